#include <gtest/gtest.h>

#include <algorithm>

#include <SQLiteCpp/Statement.h>

#include "OnlineFixtures.h"
#include "interchange/EventFile.h"
#include "interchange/Psn.h"
#include "interchange/Scramble.h"
#include "interchange/UnZip.h"
#include "store/ZipArchive.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::NvvMeetLine;
using test::QueryNumber;

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

class EventImport : public ::testing::Test {
 protected:
  void SetUp() override { test::MakeOpenDatabase(t); }

  fs::path Nvv(const std::string& name, const std::vector<std::string>& lines) {
    const fs::path file = t.Data() / name;
    test::WriteLines(file, lines);
    return file;
  }
  long long Count(const std::string& sql) { return QueryNumber(*t.state.gDb, sql); }

  test::TempHome t;
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
      QueryNumber(*t.state.gDb, "SELECT COUNT(*) FROM tblEvents WHERE Type = 2 AND Athlete = ?",
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

TEST_F(EventImport, BlankEndIsTheStartAndLongTextsAreCut) {
  const std::string long_name(60, 'N');
  const fs::path file = Nvv(
      "long.nvv", {NvvMeetLine(long_name, "2026-12-01", "", "", "Yards", std::string(50, 'L'))});
  const EventImportOutcome out = ImportEvents(t.state, file);
  ASSERT_TRUE(out.ok);
  EXPECT_EQ(out.events, 0);
  EXPECT_EQ(out.meet_name, long_name.substr(0, 45));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE End = Start AND length(Location) = 45"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblEvents WHERE Type = 2"), 1);
}

TEST_F(EventImport, RefusedFilesWriteNothing) {
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

}  // namespace
}  // namespace kvlr
