// Choosing an import file: backups of other programs refused by name, zips unpacked into the
// home's temporary folder with the .nv3 rule, and which files each mode takes.

#include "interchange/ImportChoice.h"

#include <gtest/gtest.h>

#include "core/FileOps.h"
#include "store/ZipArchive.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
namespace text = choose_text;
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
  const std::string gala = std::string(text::kGalaStewardBackup[0]) + "\n" +
                           std::string(text::kGalaStewardBackup[1]) + "\n" +
                           "import into KVL-R. \n" + std::string(text::kGalaStewardBackup[3]) +
                           "\n" + std::string(text::kGalaStewardBackup[4]);
  struct Case {
    const char* file;
    std::optional<std::string> words;
  } cases[] = {
      {"/in/SWGSBK20250301.zip", gala},
      {"swgsbk.Zip", gala},
      {"SwCsBk1.ZIP", std::string(text::kCsBackup)},
      {"nvbackup_fall.zip", std::string(text::kWinCsBackup)},
      {"NVBACKU.zip", std::nullopt},       // eight letters are needed
      {"SWGSBK01.cl2", std::nullopt},      // only zips are tested
      {"/SWGSBK/meet.zip", std::nullopt},  // the folder doesn't count
      {"county-results.zip", std::nullopt},
  };
  for (const auto& c : cases) EXPECT_EQ(ZipRefusal(c.file), c.words) << c.file;
  EXPECT_EQ(*ZipRefusal("SWCSBK.zip"),
            "The file you selected is a Norvan CS II Backup file and cannot be used to import "
            "Meet Results.");
}

TEST(ImportExtension, IsTheLastFourCharactersInCapitalsAndPicksWhatAModeTakes) {
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
}

TEST(QtFileFilter, KeepsTheDescriptionsAndListsThePatternsInBothCases) {
  EXPECT_EQ(QtFileFilter(ImportDialogFilter(ImportMode::kImport)),
            "Result files (*.nv3,*.zip,*.cl2,*.psn) (*.nv3 *.NV3 *.zip *.ZIP *.cl2 *.CL2);;"
            "SDIF files (*.SD3) (*.sd3 *.SD3)");
  EXPECT_EQ(QtFileFilter(ImportDialogFilter(ImportMode::kOnline)),
            "CSO Result files (KVLR_*.txt) (KVLR_*.txt KVLR_*.TXT)");
  EXPECT_EQ(ImportDialogFilter(ImportMode::kReport), text::kImportFilter);
}

TEST(ExtractImportZip, UnpacksOnlyImportFilesIntoTheEmptiedTemporaryFolder) {
  TempHome t;
  const fs::path temp = t.state.home.TempDir();
  fs::create_directories(temp / "old");
  WriteFileAtomically(temp / "stale.cl2", "from the last zip");
  const fs::path zip =
      MakeZip(t, "county.zip", {"meet1.cl2", "Meet2.CL2", "notes.txt", "sub/relays.sd3", "sub/"});

  const auto got = ExtractImportZip(t.state, zip, false);
  ASSERT_TRUE(got.has_value());
  EXPECT_EQ(got->folder, temp);
  EXPECT_EQ(Names(got->files), (std::vector<std::string>{"Meet2.CL2", "meet1.cl2", "relays.sd3"}));
  EXPECT_EQ(FolderNames(temp), (std::vector<std::string>{"Meet2.CL2", "meet1.cl2", "relays.sd3"}));
  EXPECT_EQ(ReadWholeFile(temp / "meet1.cl2"), "made-up contents of meet1.cl2\n");
  EXPECT_EQ(got->filter, text::kUnzippedImportFilter);
  EXPECT_EQ(got->selected_filter, "Commlink files (*.cl2)");
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].text,
            "The files inside the selected zip file have been unzipped to " + temp.string() +
                "\nThese unzipped files will be listed after you click OK.\n"
                "After the list is displayed, double click on the file you wish to import.\n\n"
                "Note that only *.cl2 and *.sd3 files will be displayed.");
}

TEST(ExtractImportZip, AnNv3StandsAloneForImportButNotForAReport) {
  struct Case {
    bool report;
    std::vector<std::string> files;
    std::string_view filter;
    std::string selected;
    std::string_view word, note;
  } cases[] = {
      {false,
       {"meet.nv3"},
       text::kUnzippedImportFilter,
       "Result/Roster files (*.nv3)",
       text::kToImport,
       text::kNoteNv3Only},
      {true,
       {"meet.cl2", "meet.nv3", "meet.sd3"},
       text::kUnzippedReportFilter,
       "Reportable files (*.nv3,*.cl2)",
       text::kToReport,
       text::kNoteCl2Sd3},
  };
  for (const auto& c : cases) {
    TempHome t;
    const fs::path zip = MakeZip(t, "meet.zip", {"meet.cl2", "meet.nv3", "meet.sd3"});
    const auto got = ExtractImportZip(t.state, zip, c.report);
    ASSERT_TRUE(got.has_value());
    EXPECT_EQ(Names(got->files), c.files) << c.report;
    EXPECT_EQ(FolderNames(got->folder), c.files) << "the others are deleted";
    EXPECT_EQ(got->filter, c.filter);
    EXPECT_EQ(got->selected_filter, c.selected);
    ASSERT_EQ(t.io.shown.size(), 1u);
    const std::string& box = t.io.shown[0].text;
    EXPECT_NE(box.find(std::string(text::kDoubleClick) + std::string(c.word)), std::string::npos);
    EXPECT_TRUE(box.ends_with(c.note)) << box;
  }
}

TEST(ExtractImportZip, MemberNamesNeverLeaveTheFolder) {
  TempHome t;
  const fs::path zip = MakeZip(t, "odd.zip", {"../x.cl2", "../../y.nv3", "/abs.sd3", "ok.cl2"});
  ASSERT_EQ(ZipArchive(zip).Members().at(0).name, "../x.cl2") << "the archive keeps the name";
  const auto got = ExtractImportZip(t.state, zip, false);
  ASSERT_TRUE(got.has_value());
  EXPECT_EQ(Names(got->files), std::vector<std::string>{"ok.cl2"});
  EXPECT_EQ(FolderNames(got->folder), std::vector<std::string>{"ok.cl2"});
  EXPECT_FALSE(fs::exists(t.Home() / "x.cl2"));
  EXPECT_FALSE(fs::exists(t.Root() / "y.nv3"));
  EXPECT_FALSE(fs::exists("/abs.sd3"));
  EXPECT_TRUE(t.io.shown[0].text.ends_with(text::kNoteCl2Sd3)) << "the climbing .nv3 isn't seen";
}

TEST(ExtractImportZip, AZipWithoutImportFilesOrNoZipAtAllIsRefused) {
  TempHome t;
  const fs::path none = MakeZip(t, "photos.zip", {"pool.jpg", "../x.cl2", "readme.txt"});
  EXPECT_FALSE(ExtractImportZip(t.state, none, false).has_value());
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].text, text::kNoImportFilesInZip);

  const fs::path fake = t.Root() / "fake.zip";
  WriteFileAtomically(fake, "this is no archive");
  EXPECT_FALSE(ExtractImportZip(t.state, fake, true).has_value());
  ASSERT_EQ(t.io.shown.size(), 2u);
  EXPECT_EQ(t.io.shown[1].text, "There was an error extracting from your ZIP file.  Error: 13");
}

}  // namespace
}  // namespace kvlr
