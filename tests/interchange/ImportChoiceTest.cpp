// Choosing an import file: backups of other programs refused by name, zips unpacked into the
// home's temporary folder with the .nv3 rule, and which files each mode takes.

#include "interchange/ImportChoice.h"

#include <gtest/gtest.h>

#include <chrono>

#include "core/FileOps.h"
#include "interchange/UnZip.h"
#include "store/ZipArchive.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::TempHome;

// A zip in the test's root holding members of the given names, each with a line of text.
fs::path MakeZip(TempHome& t, const std::string& name, const std::vector<std::string>& members) {
  std::vector<ZipSource> sources;
  for (size_t i = 0; i < members.size(); ++i) {
    const fs::path file = t.Root() / ("member" + std::to_string(i));
    WriteFileAtomically(file, "made-up contents of " + members[i] + "\n");
    sources.push_back({members[i], file});
  }
  const fs::path zip = t.Root() / name;
  ZipArchive::Create(zip, sources, "", 6);
  return zip;
}

std::vector<std::string> Names(const std::vector<fs::path>& files) {
  std::vector<std::string> names;
  for (const auto& f : files) names.push_back(f.filename().string());
  return names;
}

std::vector<std::string> FolderNames(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& e : fs::directory_iterator(folder)) names.push_back(e.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

TEST(ZipRefusal, OtherProgramsBackupsAreKnownByTheStartOfTheName) {
  const std::string gala =
      "The file you selected is a Norvan GALA STEWARD for Windows (WIN-GS) Backup file.\n"
      "1. If you have WIN-GS, Restore this backup and then export meet results for your club to \n"
      "import into KVL-R. \n2. Contact the meet host and ask them to \n"
      "provide you with the Meet Results Export instead of a Database Backup.";
  struct Case {
    const char* file;
    std::optional<std::string> words;
  } cases[] = {
      {"/in/SWGSBK20250301.zip", gala},
      {"swgsbk.Zip", gala},
      {"SwCsBk1.ZIP", std::string("The file you selected is a Norvan CS II Backup file and cannot "
                                  "be used to import Meet Results.")},
      {"nvbackup_fall.zip", std::string("The file you selected is a Norvan WIN-CS or DOS-GS Backup "
                                        "file and cannot be used to import Meet Results.")},
      {"NVBACKU.zip", std::nullopt},       // eight letters are needed
      {"SWGSBK01.cl2", std::nullopt},      // only zips are tested
      {"/SWGSBK/meet.zip", std::nullopt},  // the folder doesn't count
      {"county-results.zip", std::nullopt},
  };
  for (const auto& c : cases) EXPECT_EQ(ZipRefusal(c.file), c.words) << c.file;
}

TEST(ImportExtension, PicksWhatAModeTakesAndTheDialogFiltersListThePatternsInBothCases) {
  EXPECT_EQ(ImportExtension("/a/b/Meet.Cl2"), ".CL2");
  EXPECT_EQ(ImportExtension("x.zip"), ".ZIP");
  EXPECT_EQ(ImportExtension("cl2"), "CL2");
  EXPECT_TRUE(IsZipName("results.ZIP"));
  EXPECT_TRUE(IsZipName("resultszip"));  // the name only has to end in the letters
  EXPECT_FALSE(IsZipName("results.zip.cl2"));

  struct Case {
    const char* file;
    bool import, report, online;
  } cases[] = {
      {"a.cl2", true, true, false},      {"a.SD3", true, true, false},
      {"a.nv3", true, true, false},      {"a.psn", true, false, true},
      {"KVLR_1.txt", false, true, true}, {"a.zip", false, false, false},
      {"a.hy3", false, false, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(AcceptsImportFile(ImportMode::kImport, c.file), c.import) << c.file;
    EXPECT_EQ(AcceptsImportFile(ImportMode::kReport, c.file), c.report) << c.file;
    EXPECT_EQ(AcceptsImportFile(ImportMode::kOnline, c.file), c.online) << c.file;
  }

  EXPECT_TRUE(QtFileFilter(ImportDialogFilter(ImportMode::kImport))
                  .starts_with("Import files (*.cl2,*.sd3,*.nv3,*.psn,*.zip) (*.cl2 *.CL2 *.sd3 "
                               "*.SD3 *.nv3 *.NV3 *.psn *.PSN *.zip *.ZIP);;"));
  EXPECT_EQ(QtFileFilter(ImportDialogFilter(ImportMode::kOnline)),
            "CSO Result files (KVLR_*.txt) (KVLR_*.txt KVLR_*.TXT)");
  EXPECT_TRUE(
      ImportDialogFilter(ImportMode::kReport)
          .starts_with("Reportable files (*.cl2,*.sd3,*.nv3,*.zip)|*.cl2;*.sd3;*.nv3;*.zip|"));
}

// An .nv3 stands alone for an import but not for a report; a member's name never takes it out
// of the run's own folder, and nothing else in the temporary folder is touched.
TEST(ExtractImportZip, UnpacksOnlyImportFilesIntoARunFolderOfItsOwn) {
  const std::string all =
      "Result/Roster files (*.nv3)|*.nv3|Commlink files (*.cl2)|*.cl2|SDIF files (*.SD3)|*.sd3";
  const std::string only = "Note that only *.cl2 and *.sd3 files will be displayed.";
  struct Case {
    bool report;
    std::vector<std::string> members, files;
    std::string_view filter, selected, word;
    std::string note;
  } cases[] = {
      {false,
       {"meet1.cl2", "Meet2.CL2", "notes.txt", "sub/relays.sd3", "sub/"},
       {"Meet2.CL2", "meet1.cl2", "relays.sd3"},
       all,
       "Commlink files (*.cl2)",
       "import.",
       only},
      {false,
       {"meet.cl2", "meet.nv3", "meet.sd3"},
       {"meet.nv3"},
       all,
       "Result/Roster files (*.nv3)",
       "import.",
       "Note that since this file contains Norvan specific nv3 files, only those files will be "
       "displayed."},
      {true,
       {"meet.cl2", "meet.nv3", "meet.sd3"},
       {"meet.cl2", "meet.nv3", "meet.sd3"},
       "Reportable files (*.nv3,*.cl2)|*.nv3;*.cl2|SDIF files (*.SD3)|*.sd3",
       "Reportable files (*.nv3,*.cl2)",
       "report.",
       only},
      // The climbing .nv3 isn't seen.
      {false,
       {"../x.cl2", "../../y.nv3", "/abs.sd3", "ok.cl2"},
       {"ok.cl2"},
       all,
       "Commlink files (*.cl2)",
       "import.",
       only},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.members[0] + (c.report ? " report" : ""));
    TempHome t;
    const fs::path temp = t.state.home.TempDir();
    fs::create_directories(temp / "old");
    WriteFileAtomically(temp / "stale.cl2", "another run's file");
    const auto got = ExtractImportZip(t.state, MakeZip(t, "meet.zip", c.members), c.report);
    ASSERT_TRUE(got.has_value());
    const fs::path folder = got->folder;
    EXPECT_EQ(folder, got->owner->Path());
    EXPECT_EQ(folder.parent_path(), temp);
    EXPECT_EQ(Names(got->files), c.files);
    EXPECT_EQ(FolderNames(folder), c.files) << "the others are deleted";
    EXPECT_EQ(ReadWholeFile(temp / "stale.cl2"), "another run's file");
    EXPECT_TRUE(fs::exists(temp / "old"));
    EXPECT_FALSE(fs::exists(t.Home() / "x.cl2"));
    EXPECT_FALSE(fs::exists(t.Root() / "y.nv3"));
    EXPECT_FALSE(fs::exists("/abs.sd3"));
    EXPECT_EQ(got->filter, c.filter);
    EXPECT_EQ(got->selected_filter, c.selected);
    ASSERT_EQ(t.io.shown.size(), 1u);
    EXPECT_EQ(t.io.shown[0].text,
              "The files inside the selected zip file have been unzipped to " + folder.string() +
                  "\nThese unzipped files will be listed after you click OK.\n"
                  "After the list is displayed, double click on the file you wish to " +
                  std::string(c.word) + "\n\n" + c.note);
  }
}

TEST(ExtractImportZip, AZipWithoutImportFilesOrNoZipAtAllIsRefused) {
  TempHome t;
  const fs::path none = MakeZip(t, "photos.zip", {"pool.jpg", "../x.cl2", "readme.txt"});
  EXPECT_FALSE(ExtractImportZip(t.state, none, false).has_value());
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].text, "No import files found in the selected Zip file.");

  const fs::path fake = t.Root() / "fake.zip";
  WriteFileAtomically(fake, "this is no archive");
  EXPECT_FALSE(ExtractImportZip(t.state, fake, true).has_value());
  ASSERT_EQ(t.io.shown.size(), 2u);
  EXPECT_EQ(t.io.shown[1].text,
            "There was an error extracting from your ZIP file.  Error: fake.zip could not be "
            "read as a zip archive: it is damaged or not a zip file. Download it again.");
  EXPECT_TRUE(fs::is_empty(t.state.home.TempDir())) << "no run folder is left behind";
}

TEST(ExtractImportZip, TwoRunsWithTheSameMemberNameKeepTheirOwnFiles) {
  TempHome t;
  const fs::path first = MakeZip(t, "first.zip", {"meet.cl2"});
  const fs::path second = MakeZip(t, "second.zip", {"sub/meet.cl2", "extra.sd3"});
  auto a = ExtractImportZip(t.state, first, false);
  auto b = ExtractImportZip(t.state, second, false);
  ASSERT_TRUE(a && b);
  ASSERT_NE(a->folder, b->folder);
  EXPECT_EQ(FolderNames(a->folder), std::vector<std::string>{"meet.cl2"});
  EXPECT_EQ(ReadWholeFile(a->folder / "meet.cl2"), "made-up contents of meet.cl2\n");
  EXPECT_EQ(ReadWholeFile(b->folder / "meet.cl2"), "made-up contents of sub/meet.cl2\n");

  const fs::path gone = a->folder;
  a.reset();
  EXPECT_FALSE(fs::exists(gone));
  EXPECT_EQ(FolderNames(b->folder), (std::vector<std::string>{"extra.sd3", "meet.cl2"}));
}

// bomb.zip holding `member`: `size` zero bytes, deflated from a sparse file that takes no room.
fs::path BlanksZip(TempHome& t, const std::string& member, std::uint64_t size) {
  const fs::path source = t.Root() / "zeros";
  WriteFileAtomically(source, "");
  fs::resize_file(source, size);
  const fs::path zip = t.Root() / "bomb.zip";
  ZipArchive::Create(zip, {{member, source}}, "", 9);
  fs::remove(source);
  return zip;
}

TEST(ExtractImportZip, AMemberAboveTheLimitIsRefusedBeforeAByteIsWritten) {
  TempHome t;
  const fs::path zip = BlanksZip(t, "huge.cl2", kMaxMeetFileBytes + 1);
  ASSERT_LT(fs::file_size(zip), 1'000'000u);
  const auto started = std::chrono::steady_clock::now();
  EXPECT_FALSE(ExtractImportZip(t.state, zip, false).has_value());
  EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(1));
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].text,
            "There was an error extracting from your ZIP file.  Error: huge.cl2 in bomb.zip "
            "would unpack to more than 100 MB; a meet file is never that large, so it was not "
            "unpacked.");
  EXPECT_TRUE(fs::is_empty(t.state.home.TempDir()));
}

// The sizes a zip declares for its member, in the local header and the central directory,
// set to `size`: what a crafted zip may claim.
void ClaimSize(const fs::path& zip, std::uint32_t size) {
  std::string bytes = ReadWholeFile(zip);
  const auto put = [&](size_t at) {
    for (int i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(size >> (8 * i));
  };
  put(22);  // local header: uncompressed size
  const size_t central = bytes.rfind(std::string("PK\x01\x02", 4));
  ASSERT_NE(central, std::string::npos);
  put(central + 24);
  WriteFileAtomically(zip, bytes);
}

TEST(ExtractZipInto, AMemberThatLiesAboutItsSizeIsStoppedAtTheLimit) {
  TempHome t;
  const fs::path zip = BlanksZip(t, "liar.cl2", 300'000);
  ClaimSize(zip, 100);
  ASSERT_EQ(ZipArchive(zip).Members().at(0).size, 100u);
  const fs::path folder = t.Root() / "out";
  try {
    ExtractZipInto(zip, folder, {".cl2"}, 100'000);
    ADD_FAILURE() << "no refusal";
  } catch (const UnzipError& e) {
    EXPECT_STREQ(e.what(),
                 "liar.cl2 in bomb.zip would unpack to more than 100000 bytes; a meet file is "
                 "never that large, so it was not unpacked.");
  }
  EXPECT_TRUE(fs::is_empty(folder)) << "the part written is removed";
}

}  // namespace
}  // namespace kvlr
