#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "OnlineFixtures.h"
#include "athletes/CurrentAthlete.h"
#include "core/FileOps.h"
#include "interchange/EventFile.h"
#include "interchange/ImportChoice.h"
#include "interchange/ImportPrepare.h"
#include "interchange/ImportSession.h"
#include "interchange/Psn.h"
#include "interchange/Scramble.h"
#include "interchange/UnZip.h"
#include "store/ZipArchive.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::NvvMeetLine;
using test::PsnHeaderLine;
using test::PsnResultFields;
using test::PsnResultLine;
using test::PsnSplitsLine;

std::vector<std::string> FilesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& e : fs::directory_iterator(folder)) names.push_back(e.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

TEST(EventFileFields, CheckValueWorkedExamplesSemicolonsAndTheWholeLastField) {
  // "Meet;" sums to 454; 454 / 7 = 64; + 121 = " 185": '5', ' ', "18", then 'e'.
  EXPECT_EQ(EventFileCheckValue("Meet;XXXXX", "Meet"), "5 18e");
  // 70 times 'd' is 7000; 1000 + 121 = "1121".
  EXPECT_EQ(EventFileCheckValue(std::string(70, 'd') + "?????", "dodo"), "1112d");
  // Nothing before the last five: 0 + 121; a name of two letters adds nothing.
  EXPECT_EQ(EventFileCheckValue("12345", "Al"), "1 12");
  // Bytes count from 0 to 255.
  EXPECT_EQ(EventFileCheckValue(std::string(7, '\xff') + "?????", "abc"), "6 37c");
  struct Case {
    const char* line;
    size_t whole_last;
    std::vector<std::string> fields;
  };
  const Case cases[] = {
      {"a;b;c", 0, {"a", "b", "c"}},      {"a;b;c;", 0, {"a", "b", "c"}},
      {"a;;c;", 0, {"a", "", "c"}},       {"", 0, {}},
      {"a;b;c;d;", 3, {"a", "b", "c;d"}}, {"a;b;c;d", 3, {"a", "b", "c;d"}},
  };
  for (const auto& c : cases) EXPECT_EQ(SplitEventFields(c.line, c.whole_last), c.fields) << c.line;
}

TEST(ParseEventFile, StepsFailInTheirOrder) {
  const std::string good = NvvMeetLine("Harbor Open", "11/06/2026");
  std::string tampered = good;
  tampered[1] = 'A';
  // A wrong creator with a right check value: the creator's own words.
  const std::string stranger = NvvMeetLine("Harbor Open", "11/06/2026", "", "", "Y", "", "Other");
  const std::string no_start = NvvMeetLine("Harbor Open", "13/45/2026");
  struct Case {
    std::vector<std::string> lines;
    std::string error;
  };
  const Case cases[] = {
      {{}, "Error: Invalid file format."},
      {{"   ", "1;100;1;I;0;0;M"}, "Error: Invalid file format."},
      {{tampered}, "Error: This file failed integrity test."},
      {{stranger}, "Error: This file was not produced by Norvan."},
      {{no_start}, "Error: There is no start date found for meet: Harbor Open"},
      {{good}, ""},
  };
  for (const auto& c : cases) {
    const EventFileParse parse = ParseEventFile(c.lines);
    EXPECT_EQ(parse.error, c.error);
    EXPECT_EQ(parse.file.has_value(), c.error.empty());
  }
}

TEST(ParseEventFile, MeetAndEventFields) {
  const auto parse = ParseEventFile({
      NvvMeetLine("  Harbor Open ", "11/06/2026", "11/08/2026", "12/31/2026", "LCM", "North Pool",
                  "Norvan Sports Software", "AG"),
      "12A;100;1;I;11;12;F",
      "5;50;2;i;0;0;M;",
      "7;200;5;R;13;0;X",
      "3;400;4;;0;10;M",
      "",
      "0;100;1;I;0;0;M",
      "heading;only",
  });
  ASSERT_TRUE(parse.file) << parse.error;
  const EventFileMeet& m = parse.file->meet;
  EXPECT_EQ(std::tie(m.name, m.start, m.end, m.age_up, m.course, m.location, m.meet_class),
            std::make_tuple("Harbor Open", Date{2026, 11, 6}, Date{2026, 11, 8}, Date{2026, 12, 31},
                            "L", "North Pool", "AG"));
  // Number, letter, distance, stroke, I_R, Lo_Hi, sex. A high age of 0 is 99 (and a low of 0
  // adds nothing); no I_R is individual.
  using Event = std::tuple<int, std::string, int, int, std::string, int, std::string>;
  std::vector<Event> events;
  for (const EventFileEvent& e : parse.file->events) {
    events.emplace_back(e.number, e.letter, e.distance, e.stroke, e.i_r, e.lo_hi, e.sex);
  }
  EXPECT_EQ(events, (std::vector<Event>{{12, "A", 100, 1, "I", 1112, "F"},
                                        {5, "", 50, 2, "I", 99, "M"},
                                        {7, "", 200, 5, "R", 1399, "X"},
                                        {3, "", 400, 4, "I", 10, "M"}}));
}

TEST(EventCourse, TwoCourseWordsKeepTheirMiddleAndOnlyNvvAndZipNamesAreEventFiles) {
  const std::pair<const char*, const char*> cases[] = {
      {"Y", "Y"},   {"yards", "Y"}, {"LCM", "L"}, {" scm ", "S"}, {"BYLN", "YL"},
      {"bsn", "S"}, {"BN", ""},     {"BEN", "E"}, {"", ""},
  };
  for (const auto& [word, course] : cases) EXPECT_EQ(EventCourse(word), course) << word;
  EXPECT_EQ(EventFileKindOf("/x/meet.nvv"), EventFileKind::kNvv);
  EXPECT_EQ(EventFileKindOf("/x/MEET.NVV"), EventFileKind::kNvv);
  EXPECT_EQ(EventFileKindOf("/x/meets.Zip"), EventFileKind::kZip);
  EXPECT_EQ(EventFileKindOf("/x/meet.nv3"), EventFileKind::kInvalid);
  EXPECT_EQ(EventFileKindOf("/x/nvv"), EventFileKind::kInvalid);
  EXPECT_EQ(NotValidEventFileText("/x/meet.nv3"), "/x/meet.nv3Not a valid filename");
}

class EventImport : public test::DbTest {
 protected:
  fs::path Nvv(const std::string& name, const std::vector<std::string>& lines) {
    const fs::path file = t.Data() / name;
    test::WriteLines(file, lines);
    return file;
  }
};

TEST_F(EventImport, AddsMeetCalendarAndEntryEventsOnce) {
  const fs::path file =
      Nvv("harbor.nvv", {
                            NvvMeetLine("Harbor Open", "11/06/2026", "11/08/2026", "", "S",
                                        "North Pool", "Norvan Sports Software", "AG"),
                            "1;100;1;I;11;12;F",
                            "2;100;1;I;11;12;M",
                            "2;100;1;I;11;12;M",  // the same number twice is added once
                            "3A;50;3;I;0;10;X",
                        });
  const EventImportOutcome first = ImportEvents(t.state, file);
  ASSERT_TRUE(first.ok);
  EXPECT_EQ(first.events, 3);
  EXPECT_TRUE(t.io.Saw("Events imported: 3"));
  SQLite::Statement meet(
      *t.state.gDb,
      "SELECT MName, Start, End, AgeUp, Course, Location, Type FROM MEET WHERE Meet = ?");
  meet.bind(1, first.meet);
  ASSERT_TRUE(meet.executeStep());
  EXPECT_TRUE(meet.getColumn(3).isNull());
  EXPECT_EQ(std::make_tuple(meet.getColumn(0).getString(), meet.getColumn(1).getString(),
                            meet.getColumn(2).getString(), meet.getColumn(4).getString(),
                            meet.getColumn(5).getString(), meet.getColumn(6).getString()),
            std::make_tuple("Harbor Open", "2026-11-06", "2026-11-08", "S", "North Pool", "AG"));
  EXPECT_EQ(
      Count("SELECT COUNT(*) FROM tblEvents WHERE Type = 2 AND Athlete = ?",
                  first.meet),
      3);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENTE"), 3);
  EXPECT_EQ(Count("SELECT Lo_Hi FROM MTEVENTE WHERE MtEv = 3 AND MtEvX = 'A'"), 10);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENTE WHERE Course = 'S' AND I_R = 'I'"), 3);
  // The second time the meet's start date is taken: nothing more is added.
  t.io.shown.clear();
  const EventImportOutcome second = ImportEvents(t.state, file);
  EXPECT_FALSE(second.ok);
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].text,
            "There is already an existing meet with start date of: 11/06/2026  named: Harbor Open\n"
            "You will need to remove that meet before importing this file.");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE Start = '2026-11-06'"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENTE"), 3);
}

TEST_F(EventImport, BlankEndIsTheStartLongTextsAreCutAndRefusedFilesWriteNothing) {
  const std::string long_name(60, 'N');
  const fs::path file = Nvv(
      "long.nvv", {NvvMeetLine(long_name, "2026-12-01", "", "", "Yards", std::string(50, 'L'))});
  const EventImportOutcome out = ImportEvents(t.state, file);
  ASSERT_TRUE(out.ok);
  EXPECT_EQ(out.events, 0);
  EXPECT_EQ(out.meet_name, long_name.substr(0, 45));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE End = Start AND length(Location) = 45"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblEvents WHERE Type = 2"), 1);
  std::string bad = NvvMeetLine("Harbor Open", "11/06/2026");
  bad[0] = 'h';
  EXPECT_FALSE(ImportEvents(t.state, Nvv("bad.nvv", {bad, "1;100;1;I;0;0;M"})).ok);
  EXPECT_TRUE(t.io.Saw("Error: This file failed integrity test."));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE Start = '2026-11-06'"), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENTE"), 0);
}

TEST_F(EventImport, ZipsGiveTheirEventFilesOnly) {
  const fs::path a = Nvv("a.nvv", {NvvMeetLine("A Meet", "11/06/2026")});
  const fs::path b = Nvv("B.NVV", {NvvMeetLine("B Meet", "11/13/2026")});
  const fs::path other = Nvv("notes.txt", {"hello"});
  const fs::path zip = t.Data() / "events.zip";
  ZipArchive::Create(zip, {{"a.nvv", a}, {"sub/B.NVV", b}, {"notes.txt", other}}, "", 6);
  fs::create_directories(t.state.home.TempDir());
  const fs::path other_run = t.state.home.TempDir() / "old.nv3";
  test::WriteLines(other_run, {"old"});
  EventZipFiles unzipped = ExtractEventFiles(t.state, zip);
  const auto& files = unzipped.files;
  ASSERT_EQ(files.size(), 2u);
  const fs::path folder = unzipped.owner->Path();
  EXPECT_EQ(folder.parent_path(), t.state.home.TempDir());
  EXPECT_EQ(files[0], folder / "a.nvv");
  EXPECT_EQ(files[1], folder / "B.NVV");
  EXPECT_TRUE(fs::exists(other_run)) << "nothing outside the run's own folder is touched";
  EXPECT_FALSE(fs::exists(folder / "notes.txt"));
  EXPECT_TRUE(ImportEvents(t.state, files[1]).ok);
  unzipped = {};
  EXPECT_FALSE(fs::exists(folder));
  const fs::path none = t.Data() / "none.zip";
  ZipArchive::Create(none, {{"notes.txt", other}}, "", 6);
  EXPECT_TRUE(ExtractEventFiles(t.state, none).files.empty());
  EXPECT_TRUE(t.io.Saw("No meet event files were found in the selected Zip file."));
  EXPECT_TRUE(ExtractEventFiles(t.state, other).files.empty());
  EXPECT_TRUE(
      t.io.Saw("There was an error extracting from your ZIP file.  Error: notes.txt could "
               "not be read as a zip archive: it is damaged or not a zip file. Download "
               "it again."));
  EXPECT_EQ(FilesIn(t.state.home.TempDir()), std::vector<std::string>{"old.nv3"});
}

TEST(UnZipFile, EachZipGetsANewFolderOfItsOwnAndNothingElseIsTouched) {
  test::TempHome t;
  const fs::path a = t.Data() / "a.cl2";
  test::WriteLines(a, {"A0"});
  const fs::path zip = t.Data() / "any.zip";
  ZipArchive::Create(zip, {{"a.cl2", a}, {"b/c.sd3", a}}, "", 6);
  const fs::path parent = t.Root() / "imports";
  fs::create_directories(parent / "any" / "old");
  const UnZipOutcome ok = UnZipFile(zip, parent);
  EXPECT_TRUE(ok.ok);
  EXPECT_EQ(ok.folder, parent / "any-2");
  EXPECT_EQ(ok.message, "Successfully Unzipped to " + (parent / "any-2").string() + ".");
  EXPECT_EQ(FilesIn(ok.folder), (std::vector<std::string>{"a.cl2", "c.sd3"}));
  EXPECT_TRUE(fs::exists(parent / "any" / "old"));
  const fs::path not_zip = t.Data() / "not.zip";
  test::WriteLines(not_zip, {"A0"});
  const UnZipOutcome bad = UnZipFile(not_zip, parent);
  EXPECT_FALSE(bad.ok);
  EXPECT_EQ(bad.message,
            "There was an error Unzipping the file.  Error: not.zip could not be read as a zip "
            "archive: it is damaged or not a zip file. Download it again.");
  EXPECT_EQ(FilesIn(parent), (std::vector<std::string>{"any", "any-2"})) << "no folder is left";
}

// Damaged files give the first step's words or read what they can; never a crash.
TEST(DamagedOnlineFiles, ReadersHoldTheirGround) {
  const std::string huge = "99999999999999999999;1e999;-1e999;R;32767;32767;MM";
  const std::vector<std::vector<std::string>> nvv_files = {
      {std::string(300, '\xff')},
      {std::string(12, ';')},
      {";;;;;;;Norvan Sports Software;;;"},
      {test::NvvMeetLine("Zz", "11/06/2026"), huge, ";", "A", "1", std::string(500, ';')},
      {test::NvvMeetLine("", "11/06/2026")},
  };
  for (const auto& lines : nvv_files) {
    const EventFileParse parse = ParseEventFile(lines);
    EXPECT_NE(parse.file.has_value(), !parse.error.empty());
  }
  const auto parse = ParseEventFile({test::NvvMeetLine("Zz", "11/06/2026"), huge});
  ASSERT_TRUE(parse.file) << parse.error;
  ASSERT_EQ(parse.file->events.size(), 1u);
  EXPECT_EQ(parse.file->events[0].number, 32767);  // held to the store's 16 bits
  EXPECT_EQ(parse.file->events[0].distance, 32767);
  EXPECT_EQ(parse.file->events[0].stroke, -32768);
  for (const std::string& line :
       {std::string(), std::string(300, '\xff'), std::string(81, ' '), std::string(76, 'x') + "  ",
        std::string("9ZZZZ:::::R"), std::string(120, '9')}) {
    const PsnLine psn = ParsePsnLine(line, 2);
    if (psn.kind == PsnLine::Kind::kResult) {
      EXPECT_GE(psn.result.place, 0);
    }
    UnscrambleLine(line);
  }
}

// Choosing an import file: backups of other programs refused by name, zips unpacked into a run
// folder of their own with the .nv3 rule, and which files each mode takes.

// A zip in the test's root holding members of the given names, each with a line of text.
fs::path MakeZip(test::TempHome& t, const std::string& name,
                 const std::vector<std::string>& members) {
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
    test::TempHome t;
    const fs::path temp = t.state.home.TempDir();
    fs::create_directories(temp / "old");
    WriteFileAtomically(temp / "stale.cl2", "another run's file");
    const auto got = ExtractImportZip(t.state, MakeZip(t, "meet.zip", c.members), c.report);
    ASSERT_TRUE(got.has_value());
    const fs::path folder = got->folder;
    EXPECT_EQ(folder, got->owner->Path());
    EXPECT_EQ(folder.parent_path(), temp);
    EXPECT_EQ(Names(got->files), c.files);
    EXPECT_EQ(FilesIn(folder), c.files) << "the others are deleted";
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
  test::TempHome t;
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
  test::TempHome t;
  const fs::path first = MakeZip(t, "first.zip", {"meet.cl2"});
  const fs::path second = MakeZip(t, "second.zip", {"sub/meet.cl2", "extra.sd3"});
  auto a = ExtractImportZip(t.state, first, false);
  auto b = ExtractImportZip(t.state, second, false);
  ASSERT_TRUE(a && b);
  ASSERT_NE(a->folder, b->folder);
  EXPECT_EQ(FilesIn(a->folder), std::vector<std::string>{"meet.cl2"});
  EXPECT_EQ(ReadWholeFile(a->folder / "meet.cl2"), "made-up contents of meet.cl2\n");
  EXPECT_EQ(ReadWholeFile(b->folder / "meet.cl2"), "made-up contents of sub/meet.cl2\n");
  const fs::path gone = a->folder;
  a.reset();
  EXPECT_FALSE(fs::exists(gone));
  EXPECT_EQ(FilesIn(b->folder), (std::vector<std::string>{"extra.sd3", "meet.cl2"}));
}

// bomb.zip holding `member`: `size` zero bytes, deflated from a sparse file that takes no room.
fs::path BlanksZip(test::TempHome& t, const std::string& member, std::uint64_t size) {
  const fs::path source = t.Root() / "zeros";
  WriteFileAtomically(source, "");
  fs::resize_file(source, size);
  const fs::path zip = t.Root() / "bomb.zip";
  ZipArchive::Create(zip, {{member, source}}, "", 9);
  fs::remove(source);
  return zip;
}

TEST(ExtractImportZip, AMemberAboveTheLimitIsRefusedBeforeAByteIsWritten) {
  test::TempHome t;
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
  test::TempHome t;
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

// The online result files (.psn) and the scrambled text files.

TEST(ParsePsnLine, ResultColumnsAndBlankColumns77And78MakeASplitsLine) {
  PsnResultFields f;
  f.lead_off = "R";
  PsnLine line = ParsePsnLine(PsnResultLine(f), 0);
  ASSERT_EQ(line.kind, PsnLine::Kind::kResult);
  const PsnResult& r = line.result;
  EXPECT_EQ(std::tie(r.stroke, r.distance, r.time.score, r.course, r.f_p, r.i_r, r.start.date,
                     r.end.date, r.meet_name, r.place),
            std::make_tuple(1, 100, 6532, "Y", "F", "L", Date{2026, 11, 6}, Date{2026, 11, 8},
                            "Harbor Invitational", 3));
  EXPECT_FALSE(r.start.bad || r.end.bad);
  // Place only in a line of 81 columns; a blank end date; a day-first user reads the same.
  f.lead_off = " ";
  f.place = "";
  f.end = "";
  line = ParsePsnLine(PsnResultLine(f), 1);
  EXPECT_EQ(std::tie(line.result.i_r, line.result.place, line.result.start.date),
            std::make_tuple("I", 0, Date{2026, 11, 6}));
  EXPECT_TRUE(line.result.end.IsBlank());
  f.start = "13/40/2026";
  EXPECT_TRUE(ParsePsnLine(PsnResultLine(f), 0).result.start.bad);
  line = ParsePsnLine(PsnSplitsLine({"14.90", "31.20", "47.85", "1:05.32"}), 0);
  ASSERT_EQ(line.kind, PsnLine::Kind::kSplits);
  EXPECT_EQ(line.splits, (std::array<int32_t, 7>{1490, 3120, 4785, 6532, 0, 0, 0}));
  // Columns behind the groups don't matter while 77-78 are blank.
  std::string padded = PsnSplitsLine({"1", "2", "3", "4", "5", "6", "7"}) + std::string(30, ' ');
  EXPECT_EQ(ParsePsnLine(padded, 0).splits[6], 7);
  EXPECT_EQ(ParsePsnLine("", 0).kind, PsnLine::Kind::kSplits);
}

struct HeaderCase {
  std::string line;
  bool passes;
  std::vector<std::string> words;  // in the one box shown; none when empty
  bool asked = false;
  Answer answer = Answer::kYes;
};

TEST(CheckPSNHeader, NamesAgainstTheCurrentSwimmer) {
  const HeaderCase cases[] = {
      {PsnHeaderLine("Pat", "Rivers").substr(0, 80),
       false,
       {"Error in import file.  The file is corrupted or was not produced by Norvan's CLUB "
        "STEWARD"}},
      {PsnHeaderLine("Pat", "Rivers", "", "", "Norvan Ltd"),
       false,
       {"This import file was not produced by  Norvan's CLUB STEWARD"}},
      {PsnHeaderLine("Pat", "Ocean", "", "Q"),
       false,
       {"This file import is for: Pat Q Ocean", "Your KVL database is for last name of Rivers.",
        "Import of results is only allowed when the last name match."}},
      {PsnHeaderLine("PAT", "RIVERS"), true, {}},
      {PsnHeaderLine("Patsy", "Rivers"), true, {}},  // the swimmer's preferred name
      {PsnHeaderLine("Alex", "Rivers", "Al"),
       true,
       {"This file import is for: Alex 'Al' Rivers",
        "Warning: The first name in the import file does not match",
        "the first name of the current KVL swimmer.", "Current KVL swimmer: Pat Rivers",
        "Do you want to continue?"},
       true},
      {PsnHeaderLine("Alex", "Rivers"), false, {"Do you want to continue?"}, true, Answer::kNo},
  };
  for (const auto& c : cases) {
    test::TempHome t;
    t.io.Script({c.answer});
    t.state.gAthleteFirst = "Pat";
    t.state.gAthleteLast = "Rivers";
    t.state.gAthletePref = "Patsy";
    t.state.gAthleteName = "Pat Rivers";
    EXPECT_EQ(CheckPSNHeader(t.state, c.line), c.passes) << c.line;
    if (c.words.empty()) {
      EXPECT_TRUE(t.io.shown.empty()) << c.line;
      continue;
    }
    ASSERT_EQ(t.io.shown.size(), 1u) << c.line;
    for (const auto& w : c.words) EXPECT_NE(t.io.shown[0].text.find(w), std::string::npos) << w;
    EXPECT_EQ(box::Buttons(t.io.shown[0].style) == box::kYesNo, c.asked) << c.line;
  }
}

class PsnImportTest : public test::DbTest {
 protected:
  PsnImportTest() { SetCurrentAthlete(t.state, pat); }
  int Import(const std::vector<std::string>& lines) {
    ImportMonitor quiet;
    ImportSession session(t.state, ImportCriteria{}, quiet);
    const int count = PSNImport(session, lines);
    session.Commit();
    return count;
  }
  int32_t pat = test::AddAthlete(Db(), "Rivers", "Pat", "F", "2014-11-07");
};

TEST_F(PsnImportTest, ResultsAndTheirSplits) {
  PsnResultFields free;
  PsnResultFields back;
  back.stroke = "2";
  back.distance = "  50";
  back.time = "   34.10";
  back.course = "L";
  back.lead_off = "R";
  back.place = "";
  const int count = Import({
      PsnHeaderLine("Pat", "Rivers"),
      PsnSplitsLine({"1.00"}),  // no result yet: passed over
      PsnResultLine(free),
      PsnSplitsLine({"14.90", "31.20", "47.85", "1:05.32"}),
      PsnResultLine(back),
      PsnSplitsLine({"16.00", "34.10"}),
      PsnSplitsLine({"", "", "", "", "", "", "1:10.00"}),
  });
  EXPECT_EQ(count, 2);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE MName = 'Harbor Invitational' AND "
                  "Start = '2026-11-06' AND End = '2026-11-08'"),
            1);
  // Athlete, score, age (the birthday is the day after the start), place, course, I_R, F_P;
  // the event's Lo_Hi, sex, I_R and number.
  SQLite::Statement q(Db(),
                      "SELECT r.Athlete, r.Score, r.Age, r.Place, r.Course, r.I_R, "
                      "r.F_P, e.Lo_Hi, e.Sex, e.I_R, e.MtEv FROM RESULT r JOIN MTEVENT e "
                      "ON e.MtEvent = r.MtEvent ORDER BY r.Distance DESC");
  const auto row = [&q] {
    std::string text;
    for (int i = 0; i < q.getColumnCount(); ++i) text += q.getColumn(i).getString() + "|";
    return text;
  };
  ASSERT_TRUE(q.executeStep());
  EXPECT_EQ(row(), std::to_string(pat) + "|6532|11|3|Y|I|F|99|F|I|1|");
  ASSERT_TRUE(q.executeStep());
  // A lead-off, in an individual event.
  EXPECT_EQ(row(), std::to_string(pat) + "|3410|11|0|L|L|F|99|F|I|2|");
  // Every 50 in yards; every 100 in long course, the second line going on from the seventh.
  SQLite::Statement splits(Db(),
                           "SELECT r.Distance, s.SplitIndex, s.Split FROM SPLITS s JOIN RESULT r "
                           "ON r.Result = s.SplitID ORDER BY r.Distance DESC, s.SplitIndex");
  std::string rows;
  while (splits.executeStep()) {
    rows += splits.getColumn(0).getString() + "|" + splits.getColumn(1).getString() + "|" +
            splits.getColumn(2).getString() + "\n";
  }
  EXPECT_EQ(rows,
            "100|2|1490\n100|4|3120\n100|6|4785\n100|8|6532\n50|4|1600\n50|8|3410\n50|56|7000\n");
}

TEST_F(PsnImportTest, TheSameSwimAgainRewritesItsRow) {
  PsnResultFields f;
  ASSERT_EQ(
      Import({PsnHeaderLine("Pat", "Rivers"), PsnResultLine(f), PsnSplitsLine({"", "31.20"})}), 1);
  f.time = " 1:04.99";
  f.place = "  1";
  ASSERT_EQ(
      Import({PsnHeaderLine("Pat", "Rivers"), PsnResultLine(f), PsnSplitsLine({"", "31.00"})}), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE MName = 'Harbor Invitational'"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 1);
  EXPECT_EQ(Count("SELECT Score FROM RESULT"), 6499);
  EXPECT_EQ(Count("SELECT Place FROM RESULT"), 1);
  EXPECT_EQ(Count("SELECT Split FROM SPLITS WHERE SplitIndex = 4"), 3100);
}

TEST_F(PsnImportTest, AFileOfAnotherLastNameImportsNothing) {
  const std::filesystem::path file = t.Data() / "results.psn";
  test::WriteLines(file, {PsnHeaderLine("Pat", "Ocean"), PsnResultLine({})});
  ImportMonitor quiet;
  const ImportFile prepared = PrepareImportFile(t.state, quiet, file, ImportMode::kOnline);
  EXPECT_FALSE(prepared.ready);
  EXPECT_TRUE(t.io.Saw("Import of results is only allowed when the last name match."));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE MName = 'Harbor Invitational'"), 0);
  EXPECT_EQ(ResultsProcessedText(0), "Results processed: 0");
}

// The scrambling of the online service's text files.

struct BlockCase {
  const char* block;
  const char* key;
  const char* plain;
};

TEST(Unscramble, BlocksByRangeOfCodesAndOnlyTheFiveKeyDigitsOpenALineOfTenColumnBlocks) {
  const BlockCase cases[] = {
      {"A", "3", ">"},           // below 91: c - d
      {"m", "1", "0"},           // 109 and up: c - d - 60
      {"z", "0", ">"},           //
      {"[", "2", "K"},           // 91 to 108: c + d - 18
      {"l", "9", "c"},           //
      {"AB", "12", "A?"},        // reversed first: "BA", then B-1, A-2
      {" -.:", "9999", ":.- "},  // blank, '-', '.', ':' stay, whatever the digit
      {"0123456789", "0000000000", "9876543210"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(UnscrambleBlock(c.block, c.key), c.plain) << c.block << " / " << c.key;
  }
  const std::string body(130, 'Q');
  for (char digit : std::string("12345")) {
    EXPECT_TRUE(UnscrambleLine(digit + body).has_value()) << digit;
  }
  for (char digit : std::string("06789 xA")) {
    EXPECT_FALSE(UnscrambleLine(digit + body).has_value()) << digit;
  }
  EXPECT_FALSE(UnscrambleLine("").has_value());
  // Columns 2 to 121 go in blocks of ten; the rest is copied.
  std::string blocks;
  for (int i = 0; i < 130; ++i) blocks += static_cast<char>('A' + i % 26);
  const auto line = UnscrambleLine("2" + blocks);
  ASSERT_TRUE(line.has_value());
  ASSERT_EQ(line->size(), 130u);
  for (size_t block = 0; block < 12; ++block) {
    EXPECT_EQ(line->substr(block * 10, 10),
              UnscrambleBlock(blocks.substr(block * 10, 10), kScrambleKeys[1]))
        << block;
  }
  EXPECT_EQ(line->substr(120), blocks.substr(120));
  // A short line ends in a short block.
  EXPECT_EQ(UnscrambleLine("1ABC"), UnscrambleBlock("ABC", kScrambleKeys[0]));
}

TEST(ScrambleLine, RoundTripsNv3TextUnderEveryKeyAndRefusesTheRest) {
  std::string nv3 = "D1F  Rivers Pat Q           12345678901202611062026 1:05.32Y-50.00:/";
  for (char c = 'a'; c <= 'z'; ++c) nv3 += c;
  for (char c = 'A'; c <= 'Z'; ++c) nv3 += c;
  nv3.resize(130, ' ');
  for (int key = 1; key <= 5; ++key) {
    const auto scrambled = ScrambleLine(nv3, key);
    ASSERT_TRUE(scrambled.has_value()) << key;
    ASSERT_EQ(scrambled->size(), 131u);
    EXPECT_EQ((*scrambled)[0], '0' + key);
    EXPECT_NE(scrambled->substr(1, 120), nv3.substr(0, 120));
    EXPECT_EQ(scrambled->substr(121), nv3.substr(120));
    EXPECT_EQ(UnscrambleLine(*scrambled), nv3) << key;
  }
  // Refused: what no scrambled text could give.
  EXPECT_FALSE(ScrambleLine("A1", 0).has_value());
  EXPECT_FALSE(ScrambleLine("A1", 6).has_value());
  // Column 2 of a block goes by the key's second digit, 1 in the first key: only the kept
  // '-' would unscramble to ','.
  EXPECT_FALSE(ScrambleLine("A,", 1).has_value());
  EXPECT_TRUE(ScrambleLine(",A", 1).has_value());
}

}  // namespace
}  // namespace kvlr
