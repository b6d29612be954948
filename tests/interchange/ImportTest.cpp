// The import of results and the report mode: made-up files through RunImportFile and
// RunFileReport into a fresh database.

#include <algorithm>
#include <fstream>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>
#include <gtest/gtest.h>

#include "FileMaker.h"
#include "athletes/CurrentAthlete.h"
#include "interchange/ImportReport.h"
#include "interchange/ImportReportRows.h"
#include "interchange/ImportReportTexts.h"
#include "interchange/ImportRun.h"
#include "interchange/ImportSession.h"
#include "interchange/Nv3AthleteCheck.h"
#include "store/ReportDatabase.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

using test::QueryNumber;
using testing::FieldValues;
using testing::Nv3;
using testing::SdifFile;

// A G0 line of Jane's: the final's splits of `distance` each.
std::string JaneSplits(const char* total, const char* distance, FieldValues splits,
                       const char* phase = "F") {
  return testing::Cl2(testing::Sdif("G0", testing::Merged({{"swimmer_name", "DOE, JANE A"},
                                                           {"sequence", "1"},
                                                           {"total_splits", total},
                                                           {"split_distance", distance},
                                                           {"split_code", "C"},
                                                           {"prelim_final", phase}},
                                                          splits)));
}

class ImportTest : public test::DbTest {
 protected:
  ImportTest() {
    CheckReportTables(t.state);
    jane_ = AddAthlete("Doe", "Jane", "F", "");
    SetCurrentAthlete(t.state, jane_);
  }
  int32_t AddAthlete(const std::string& last, const std::string& first, const std::string& sex,
                     const std::string& pref) {
    SQLite::Statement q(Db(), "INSERT INTO ATHLETE (Last, First, Sex, Pref) VALUES (?, ?, ?, ?)");
    SQLite::bind(q, last, first, sex, pref);
    q.exec();
    return static_cast<int32_t>(Db().getLastInsertRowid());
  }
  ImportOutcome Run(const std::vector<std::string>& lines, const std::string& extension = ".CL2",
                    ImportCriteria criteria = {}, ImportMonitor* monitor = nullptr) {
    ImportFile file;
    file.path = t.Data() / ("meet" + extension);
    file.extension = extension;
    file.lines = lines;
    file.ready = true;
    ImportMonitor quiet;
    return RunImportFile(t.state, monitor ? *monitor : quiet, file, criteria);
  }
  int32_t jane_ = 0;
};

TEST(ImportRules, NonTimeCodesCoursesAndPrivateNumbers) {
  const std::pair<const char*, int> nt[] = {{"DQ", 5},  {"scr", 1}, {"NS", 2},
                                            {"DNF", 3}, {"NT", 4},  {"1:05.32", 0},
                                            {"", 0},    {"DNS", 2}};  // "NS" inside "DNS"
  for (const auto& [text, code] : nt) EXPECT_EQ(NtFromTimeText(text), code) << text;
  const std::pair<const char*, const char*> courses[] = {
      {"", "Y"}, {"0", "Y"}, {"1", "S"}, {"2", "L"}, {"3", ""}, {"L", "L"}, {"X", "X"}};
  for (const auto& [code, letter] : courses) EXPECT_EQ(ImportCourseLetter(code), letter) << code;
  EXPECT_EQ(PrivateEventNumber(200, 1), 26);
  EXPECT_EQ(PrivateEventNumber(1650, 1), 56);
  EXPECT_EQ(PrivateEventNumber(75, 4), 7);  // not in the table: distance / 25
  const std::pair<int, const char*> letters[] = {{99, ""},    {1112, "C"}, {8, "A"},
                                                 {910, "B"},  {1314, "D"}, {1516, "E"},
                                                 {1718, "F"}, {1899, "G"}};
  for (const auto& [lo_hi, letter] : letters) EXPECT_EQ(PrivateEventLetter(lo_hi), letter);
}

TEST_F(ImportTest, TakesOnlyTheFamilysSwimsAndRanksThem) {
  SdifFile file;
  file.Swim().Swim("swimmer_name=ROE, ANN|finals_time=1:01.00");
  file.Swim(
      "event_number=14|distance=50|finals_time=29.10|prelim_time=29.50|"
      "prelim_course=Y|prelim_place=5");
  const ImportOutcome out = Run(file.Lines());
  EXPECT_TRUE(out.ok);
  EXPECT_EQ(out.status, " Import Successful ");
  EXPECT_EQ(out.counts.Processed(ImportRow::kMeets), 1);
  EXPECT_EQ(out.counts.Processed(ImportRow::kTeams), 1);
  EXPECT_EQ(out.counts.Processed(ImportRow::kIndividual), 2);
  EXPECT_EQ(Rows("SELECT MName, Start, End, Course FROM MEET"),
            "Autumn Made-Up Invite|2026-11-01|2026-11-02|Y\n");
  // Distance, phase, score, place, age, rank.
  EXPECT_EQ(
      Rows("SELECT Distance, F_P, Score, Place, Age, Rank FROM RESULT ORDER BY Distance, F_P"),
      "50|F|2910|3|12|1\n50|P|2950|5|12|2\n100|F|6532|3|12|1\n");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE Athlete <> ?", jane_), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblEvents WHERE Type = 2"), 2);  // two meet days
}

TEST_F(ImportTest, DuplicatesAreSkippedUnlessOverlaid) {
  SdifFile first;
  first.Swim();
  ASSERT_TRUE(Run(first.Lines()).ok);
  SdifFile again;
  again.Swim("finals_time=1:04.00|swimmer_number=OLD-NUMBER");
  const ImportOutcome skipped = Run(again.Lines());
  EXPECT_TRUE(skipped.not_all_imported);
  EXPECT_EQ(skipped.counts.Processed(ImportRow::kIndividual), 0);
  EXPECT_EQ(skipped.status, " Import Successful ");  // the meet was counted
  EXPECT_EQ(Count("SELECT Score FROM RESULT"), 6532);
  // The row carries the swimmer's new number from the D3 behind the D0.
  EXPECT_EQ(
      QueryNumber(*t.state.gReportDb,
                  "SELECT COUNT(*) FROM RPTISDIN WHERE Reason = '1' AND id_no = 'MADEUP000001'"),
      1);
  const ImportOutcome overlaid = Run(again.Lines(), ".CL2", {.overlay_results = true});
  EXPECT_FALSE(overlaid.not_all_imported);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 1);
  EXPECT_EQ(Count("SELECT Score FROM RESULT"), 6400);
}

TEST_F(ImportTest, EventNumbersFoldLettersAndMakePrivateNumbersOnCollision) {
  SdifFile file;
  file.Swim("event_number=12|event_letter=3");
  file.Swim("event_number=12|distance=200|finals_time=2:20.00");
  file.Swim(
      "event_number=12|distance=200|finals_time=2:21.00|prelim_time=2:22.00|"
      "prelim_course=Y");
  ASSERT_TRUE(Run(file.Lines()).ok);
  // The second 200 finds its event again rather than making another.
  EXPECT_EQ(Rows("SELECT MtEv, MtEvX, Distance FROM MTEVENT ORDER BY MtEvent"),
            "123||100\n12||200\n");
  // 200 free for 11-12 collides with 123 (a 100): 25 + 1 = 26, letter "C". An event without
  // a number is numbered after the last.
  SdifFile other;
  other.Swim("event_number=123|distance=200|finals_time=2:19.00")
      .Swim("event_number=|event_letter=|distance=50|stroke=2|event_sex=F");
  ASSERT_TRUE(Run(other.Lines()).ok);
  EXPECT_EQ(Rows("SELECT MtEv, MtEvX, Distance FROM MTEVENT ORDER BY MtEvent"),
            "123||100\n12||200\n26|C|200\n124||50\n");
}

TEST_F(ImportTest, SameStartUnderAnotherNameAsksWhetherItIsTheSameMeet) {
  SdifFile first;
  first.Swim();
  ASSERT_TRUE(Run(first.Lines()).ok);
  SdifFile renamed;
  renamed.Meet({{"meet_name", "Made-Up Fall Classic"}});
  renamed.Line("B2", {{"location", "Shelbyville Pool"}});
  renamed.Swim("event_number=14|distance=50|finals_time=30.00");
  t.io.Script({Answer::kNo});
  ASSERT_TRUE(Run(renamed.Lines()).ok);
  EXPECT_TRUE(t.io.Saw("Would you like to treat this meet, Made-Up Fall Classic and Autumn"));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE Start = '2026-11-01'"), 2);
  SdifFile same;
  same.Meet({{"meet_name", "Made-Up Winter Classic"}});
  same.Line("B2", {{"location", "Shelbyville Pool"}});
  same.Swim("event_number=16|distance=25|finals_time=14.00");
  t.io.Script({Answer::kYes});
  ASSERT_TRUE(Run(same.Lines()).ok);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE Start = '2026-11-01'"), 2);
  SQLite::Statement q(Db(), "SELECT Location FROM MEET ORDER BY Meet LIMIT 1");
  ASSERT_TRUE(q.executeStep());
  EXPECT_EQ(q.getColumn(0).getString(), "Shelbyville Pool");
}

TEST_F(ImportTest, NamelessMeetAndBadStartDate) {
  SdifFile file;
  file.Meet("meet_name=|start=13312026");
  file.Swim();
  const ImportOutcome out = Run(file.Lines());
  ASSERT_TRUE(out.ok);
  EXPECT_TRUE(out.not_all_imported);  // the log is offered
  EXPECT_TRUE(t.io.Saw("It will be given the name MEET1"));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE MName = 'MEET1' AND Start = '2003-01-01'"), 1);
  std::ifstream log(t.Home() / "IMPERR.LOG", std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(log)), {});
  EXPECT_EQ(text.size(), 3u * 80);
  EXPECT_EQ(text.find("There is no start date found for meet: MEET1"), 0u);
}

TEST_F(ImportTest, AllFamilyTakesEverySwimmerOfTheFamily) {
  const int32_t ann = AddAthlete("Doe", "Annabel", "F", "Ann");
  SdifFile file;
  file.Swim().Swim("swimmer_name=DOE, ANN|finals_time=1:09.00");
  file.Swim("swimmer_name=DOE, JOHN|sex=M|finals_time=1:02.00");
  ASSERT_TRUE(Run(file.Lines()).ok);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 1);
  ASSERT_TRUE(Run(file.Lines(), ".CL2", {.overlay_results = true, .all_family = true}).ok);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE Athlete = ?", ann), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 2);
  EXPECT_EQ(t.state.gAthlete, jane_);  // the current swimmer stays
}

TEST_F(ImportTest, SwimmerLinesFillTheSwimmersAddressCard) {
  SdifFile file;
  file.Line("D1",
            "swimmer_name=DOE, JANE A|sex=F|citizen=USA|day_phone=555-0101|"
            "evening_phone=555-0102");
  file.Line("D2",
            "swimmer_name=DOE, JANE A|addressee=Pat Doe|street=1 O'Brien Lane|"
            "city=Springfield|state=ZZ|zip=00001");
  ASSERT_TRUE(Run(file.Lines()).ok);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM AthInfo"), 0);  // no card is made outside a roster
  SQLite::Statement card(Db(), "INSERT INTO AthInfo (Athlete) VALUES (?)");
  card.bind(1, jane_);
  card.exec();
  ASSERT_TRUE(Run(file.Lines()).ok);
  EXPECT_EQ(Rows("SELECT DayP1, EveP1, MailTo, Addr, City, State, ZIP FROM AthInfo"),
            "555-0101|555-0102|Pat Doe|1 O'Brien Lane|Springfield|ZZ|00001\n");
}

TEST_F(ImportTest, RelayLeadOffsBecomeResults) {
  SdifFile file;
  file.Relay();                            // free relay: leg is freestyle
  file.Relay("stroke=7|event_number=22");  // medley: leg is backstroke
  file.Relay("event_number=24|distance=400");
  std::vector<std::string> lines = file.Lines();
  // The third relay's lead-off has no leg time.
  int relays = 0;
  for (std::string& line : lines) {
    if (line.starts_with("E0")) ++relays;
    if (relays == 3 && line.starts_with("F0") && line.substr(22, 11).starts_with("DOE, JANE")) {
      line.replace(79, 8, "        ");
      line = testing::Cl2(line);
    }
  }
  ASSERT_TRUE(Run(lines).ok);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 0);  // the box gates every relay line
  const ImportOutcome out = Run(lines, ".CL2", {.lead_off = true});
  EXPECT_EQ(out.counts.Processed(ImportRow::kRelay), 3);
  EXPECT_EQ(Rows("SELECT I_R, Stroke, Distance, Score, F_P FROM RESULT ORDER BY Result"),
            "L|1|50|3250|F\nL|2|50|3250|F\n");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT WHERE I_R = 'R'"), 3);
}

TEST_F(ImportTest, CoursesAreReadByThePublishedCodes) {
  const std::pair<const char*, const char*> codes[] = {{"1", "S"}, {"M", "S"}, {"S", "S"},
                                                       {"2", "Y"}, {"Y", "Y"}, {"3", "L"},
                                                       {"L", "L"}, {"", "L"}};
  SdifFile file;
  file.Meet({{"course", "3"}});
  for (size_t i = 0; i < std::size(codes); ++i) {
    file.Swim({{"event_number", std::to_string(i + 1)}, {"finals_course", codes[i].first}});
  }
  ASSERT_TRUE(Run(file.Lines()).ok);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE Course = 'L'"), 1);
  std::string want;
  for (const auto& [code, course] : codes) want += std::string(course) + "\n";
  EXPECT_EQ(Rows("SELECT r.Course FROM RESULT r JOIN MTEVENT e ON e.MtEvent = r.MtEvent "
                 "ORDER BY e.MtEv"),
            want);
}

TEST_F(ImportTest, RelaySplitsLandOnTheLeadOffOfTheirOwnPhase) {
  SdifFile file;
  file.Relay();
  std::vector<std::string> lines = file.Lines();
  const auto lead_off =
      std::find_if(lines.begin(), lines.end(), [](const auto& l) { return l.starts_with("F0"); });
  const char* splits = "split1=15.00|split2=32.50";
  lines.insert(lead_off + 1, {JaneSplits("2", "25", splits, "S"), JaneSplits("2", "25", splits)});
  ASSERT_TRUE(Run(lines, ".CL2", {.lead_off = true}).ok);
  // The swim-off has no lead-off result of its own: its splits are not the final's.
  EXPECT_EQ(Count("SELECT COUNT(*) FROM SPLITS s JOIN RESULT r ON r.Result = s.SplitID "
                  "WHERE r.I_R = 'L' AND r.F_P = 'F'"),
            2);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM SPLITS"), 2);
}

// Index 1 stands for the first 25; the codes differ in what the second line's times count from.
TEST_F(ImportTest, SplitsNeedTheirBoxAndGoOverSeveralLinesWithBothCodes) {
  const std::pair<const char*, int> cases[] = {{"C", 25}, {"I", 25}, {"C", 50}};
  for (const auto& [code, distance] : cases) {
    SCOPED_TRACE(std::string(code) + std::to_string(distance));
    const std::string fields = "split_code=" + std::string(code) + "|";
    const std::string length = std::to_string(distance);
    SdifFile file;
    file.Swim("distance=300|finals_time=3:30.00")
        .Raw(JaneSplits(
            "12", length.c_str(),
            (fields + "split1=15.00|split2=32.00|split3=49.00|split4=1:06.00|split5=1:23.00|"
                      "split6=1:40.00|split7=1:57.00|split8=2:14.00|split9=2:31.00|"
                      "split10=2:48.00")
                .c_str()))
        .Raw(JaneSplits("12", length.c_str(),
                        (fields + "sequence=2|split1=17.00|split2=42.00").c_str()));
    const long long before = Count("SELECT COUNT(*) FROM SPLITS");
    ASSERT_TRUE(Run(file.Lines()).ok);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM SPLITS"), before) << "not without the box";
    const ImportOutcome out =
        Run(file.Lines(), ".CL2", {.overlay_results = true, .import_splits = true});
    EXPECT_EQ(out.counts.Processed(ImportRow::kSplits), 2);
    const int32_t result = static_cast<int32_t>(Count("SELECT Result FROM RESULT"));
    auto split = [&](int index) {
      SQLite::Statement q(Db(), "SELECT Split FROM SPLITS WHERE SplitIndex = ? AND SplitID = ?");
      SQLite::bind(q, index * distance / 25, result);
      return q.executeStep() ? q.getColumn(0).getInt64() : -1;
    };
    const int base = std::string(code) == "C" ? 0 : 16800;
    EXPECT_EQ(std::make_tuple(split(1), split(10), split(11), split(12)),
              std::make_tuple(1500, 16800, 1700 + base, 4200 + base));
  }
}

TEST_F(ImportTest, AStoppedRunKeepsWhatItStored) {
  SdifFile file;
  for (int e = 1; e <= 6; ++e) {
    file.Swim({{"event_number", std::to_string(e)}, {"distance", std::to_string(25 * e)}});
  }
  testing::Monitor stop;
  stop.cancel_after = 4;  // A0, B1, C1, D0 with its D3
  const ImportOutcome out = Run(file.Lines(), ".CL2", {}, &stop);
  EXPECT_TRUE(out.cancelled);
  EXPECT_EQ(out.status, "Import aborted by user.");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 1);
  EXPECT_EQ(Count("SELECT Rank FROM RESULT"), 1);
}

TEST_F(ImportTest, ABadLineStopsTheRunWithTheTwoPartBox) {
  SdifFile file;
  file.Swim();
  file.Raw(testing::Cl2(testing::Sdif("D0", {}).replace(0, 2, "Q9")));
  file.Swim("event_number=14|distance=50");
  const ImportOutcome out = Run(file.Lines());
  EXPECT_FALSE(out.ok);
  EXPECT_EQ(out.status, " Import Incomplete ");
  EXPECT_TRUE(
      t.io.Saw("File processing error for file: meet.CL2\r\nThe error is on line: 6\r\n"
                "The problem line is listed below in two parts: \r\n>>Q9"));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 1);  // what came before stays
}

TEST_F(ImportTest, AStoreFailureLeavesTheDatabaseAsItWas) {
  Db().exec("DROP TABLE SPLITS");  // the first split written fails
  SdifFile file;
  file.Swim();
  file.Raw(JaneSplits("1", "50", "split1=31.00"));
  const ImportOutcome out = Run(file.Lines(), ".CL2", {.import_splits = true});
  EXPECT_FALSE(out.ok);
  EXPECT_TRUE(t.io.Saw("Not all records were imported."));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET"), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 0);
}

std::vector<std::string> Nv3File(std::vector<std::string> swims, const char* file_code = "09") {
  std::vector<std::string> lines = {
      Nv3("A1", {{"file_code", file_code}, {"creator", "Norvan, Ltd"}, {"version", "2.1Da"}}),
      Nv3("B1", "meet_name=Made-Up Sprint Meet|start=10102026|end=10112026"),
      Nv3("B2", {{"course_letter", "L"}}),
      Nv3("C1", "team_code=MUST|team_name=Made Up Swim Team"),
      Nv3("C2"),
      Nv3("D1", "sex=F|athlete=7|last=Doe|first=Jane"),
      Nv3("D2"),
      Nv3("D3")};
  for (std::string& s : swims) lines.push_back(std::move(s));
  return lines;
}

// Jane's (athlete 7) entry to a 100 free for 11-12s.
std::string JaneEntry(FieldValues fields) {
  return Nv3("E1", testing::Merged("sex=F|athlete=7|event_sex=F|distance=100|stroke_letter=A|"
                                   "age_group= 11 12|age=12",
                                   fields));
}

TEST_F(ImportTest, Nv3ResultsLeadOffsNonTimesAndSplits) {
  const auto lines = Nv3File(
      {JaneEntry("event_number=5"),
       Nv3("E2", "f_p=P|score=62.10|course=L|place=4|f_p2=F|score2=61.50|course2=L|place2=2"),
       Nv3("G1",
           "f_p1=F|split_number1=2|value1=29.90|f_p2=F|split_number2=4|value2=61.50|"
           "f_p3=P|split_number3=4|value3=62.10"),
       JaneEntry("event_number=6|event_letter=L|lead_off=L"),
       Nv3("E2", "f_p=F|score=30.00|course=L"), JaneEntry("event_number=7"),
       Nv3("E2", "f_p=F|score=0.00|nt_letter=Q")});
  const ImportOutcome out = Run(lines, ".NV3", {.import_splits = true});
  ASSERT_TRUE(out.ok) << out.status;
  EXPECT_EQ(out.counts.Processed(ImportRow::kIndividual), 3);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE Course = 'L' AND Start = '2026-10-10'"), 1);
  // Event, its letter, phase, score, place, I_R, non-time code.
  EXPECT_EQ(Rows("SELECT e.MtEv, e.MtEvX, r.F_P, r.Score, r.Place, r.I_R, r.NT FROM RESULT r "
                 "JOIN MTEVENT e ON e.MtEvent = r.MtEvent ORDER BY e.MtEv, r.F_P"),
            "5||F|6150|2|I|0\n5||P|6210|4|I|0\n6|L|F|3000|0|L|0\n7||F|0|0|I|5\n");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM SPLITS"), 3);
  EXPECT_EQ(Count("SELECT s.Split FROM SPLITS s JOIN RESULT r ON r.Result = s.SplitID WHERE "
                  "r.F_P = 'P'"),
            6210);
}

TEST_F(ImportTest, Nv3OfTheMeetProgramKeepsItsPhasesAndTakesTheNumberFromE2) {
  const auto lines =
      Nv3File({JaneEntry("gs_mark=T"), Nv3("E2", "f_p=F|score=60.00|course=L|number=44"),
               JaneEntry("event_number=5"), Nv3("E2", "f_p=S|score=61.00|course=L")},
              "07");
  ASSERT_TRUE(Run(lines, ".NV3").ok);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT r JOIN MTEVENT e ON e.MtEvent = r.MtEvent WHERE "
                  "r.F_P = 'T' AND e.MtEv = 44"),
            1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE F_P = 'I' AND Score = 6100"), 1);
}

TEST_F(ImportTest, Nv3LinesOutOfPlaceStopTheRun) {
  const std::pair<const char*, const char*> cases[] = {
      {"E2", "Processing error on Event Records."},
      {"F2", "Processing error on Relay Records."},
      {"D4", "Processing error on Athlete Records."}};
  for (const auto& [code, words] : cases) {
    auto lines = Nv3File({});
    lines.push_back(Nv3("C1", {{"team_code", "OTHR"}}));
    lines.push_back(Nv3(code));
    Run(lines, ".NV3");
    EXPECT_TRUE(t.io.Saw(std::string("Problem: ") + words)) << code;
  }
}

TEST_F(ImportTest, Nv3WithoutTheSwimmerSaysSo) {
  auto lines = Nv3File({});
  lines[5] = Nv3("D1", "sex=F|athlete=7|last=Doe|first=Mary");
  const ImportOutcome out = Run(lines, ".NV3");
  EXPECT_EQ(out.status, " Import Successful ");  // the meet and team came in
  EXPECT_TRUE(t.io.Saw("This file did not contain any results for JANE DOE"));
  EXPECT_TRUE(t.io.Saw("with the last name of DOE\r\nMARY DOE"));
}

// The report mode: made-up files walked into RPTISDIN, the swimmer lookup of NV3 swims, and the
// athlete check of an NV3 file before its import.

class ImportReportTest : public test::DbTest {
 protected:
  ImportReportTest() { CheckReportTables(t.state); }
  int32_t AddAthlete(const std::string& last, const std::string& first, const std::string& initial,
                     const std::string& id_no, const std::string& birth) {
    SQLite::Statement q(Db(),
                        "INSERT INTO ATHLETE (Last, First, Initial, ID_NO, Birth, Sex) "
                        "VALUES (?, ?, ?, ?, NULLIF(?, ''), 'F')");
    SQLite::bind(q, last, first, initial, id_no, birth);
    q.exec();
    return static_cast<int32_t>(Db().getLastInsertRowid());
  }
  ImportOutcome Report(std::vector<std::string> lines, const std::string& extension) {
    ImportFile file;
    file.extension = extension;
    file.lines = std::move(lines);
    file.panel.file_type = "Meet Results";
    file.ready = true;
    return RunFileReport(t.state, watcher_, file);
  }
  std::vector<ReportRow> Rows(bool relay) { return ReadIsdinRows(*t.state.gReportDb, relay); }
  testing::Monitor watcher_;
};

const ReportRow* FindByName(const std::vector<ReportRow>& rows, std::string_view ln,
                            std::string_view fn) {
  for (const ReportRow& r : rows) {
    if (r.row.ln == ln && r.row.fn == fn) return &r;
  }
  return nullptr;
}

TEST(ImportReportTexts, DistancesStrokesDatesAndTitle) {
  const std::pair<int, const char*> dists[] = {
      {9991, "1 Meter"}, {9992, "3 Meter"}, {9993, "Platform"}, {0, ""}, {100, "100"}, {75, "75"}};
  for (const auto& [distance, text] : dists) EXPECT_EQ(ReportDistText(distance), text);
  EXPECT_EQ(ReportStrokeText(6, "I"), "Diving");
  EXPECT_EQ(ReportStrokeText(7, "I"), "Diving");
  EXPECT_EQ(ReportStrokeText(5, "R"), "Medley Relay");
  EXPECT_EQ(ReportStrokeText(5, "L"), "IM");
  struct DateCase {
    const char* columns;
    int order;
    const char* text;
  };
  const DateCase dates[] = {{"11012026", 0, "11/01/2026"}, {"11012026", 1, "01/11/2026"},
                            {"11012026", 2, "2026-11-01"}, {"        ", 0, ""},
                            {"13312004", 0, "13312004"},   {"02302026", 1, "02302026"}};
  for (const DateCase& c : dates) {
    EXPECT_EQ(ReportDateText(c.columns, c.order), c.text) << c.columns << " " << c.order;
  }
  EXPECT_EQ(ReportScoreText(0, 1, 5), "DQ");
  EXPECT_EQ(ReportScoreText(24550, 6, 0), "245.50");
  EXPECT_EQ(ReportScoreText(0, 1, 0), "");
  ImportFile file;
  file.panel.file_type = "Best Times";
  EXPECT_EQ(ReportTitle(file), "Export/Import File Report - Best Times");
}

TEST_F(ImportReportTest, SdifFileGivesARowForEveryMeetTeamSwimmerAndRelayLine) {
  SdifFile file;
  file.Swim()
      .Swim(
          "swimmer_name=ROE, ANN|swimmer_number=ROE-NUMBER|stroke=H|private_stroke=6|"
          "distance=|event_age=UN10|finals_time=245.50|finals_course=",
          false)
      .Swim(
          "swimmer_name=POE, EVE|event_age=15OV|prelim_time=DQ|prelim_course=Y|"
          "finals_time=")
      .Relay({}, 2)
      .Line("G0", {{"swimmer_name", "DOE, JANE A"}});
  const ImportOutcome outcome = Report(file.Lines(), ".CL2");
  ASSERT_TRUE(outcome.ok);
  EXPECT_EQ(outcome.status, " Report Build Successful ");
  EXPECT_EQ(watcher_.statuses.back(), " Report Build Successful ");
  const auto rows = Rows(false);
  // B1, C1 and the three swims, in file order.
  ASSERT_EQ(rows.size(), 5u);
  const IsdinRow& meet = rows[0].row;
  EXPECT_EQ(std::tie(meet.meet_name, meet.meet_beg, meet.meet_end, meet.ln),
            std::make_tuple("Autumn Made-Up Invite", "11/01/2026", "11/02/2026", ""));
  EXPECT_EQ(std::tie(rows[1].row.team_name, rows[1].row.team_code),
            std::make_tuple("Made Up Swim Team", "MUST"));
  // Jane's number comes from the D3 behind her D0.
  const IsdinRow& jane = rows[2].row;
  EXPECT_EQ(rows[2].reason_words, "Result imported");
  EXPECT_EQ(std::tie(jane.reason, jane.meet_name, jane.team_name, jane.lsc, jane.ln, jane.fn,
                     jane.mi, jane.id_no, jane.birth, jane.age, jane.sex),
            std::make_tuple("Y", "Autumn Made-Up Invite", "Made Up Swim Team", "ZZ", "DOE", "JANE",
                            "A", "MADEUP000001", "01/02/2014", "12", "F"));
  EXPECT_EQ(std::tie(jane.dist, jane.int_dist, jane.stroke, jane.int_stroke, jane.lo_hi,
                     jane.f_time, jane.f_cors, jane.diving),
            std::make_tuple("100", 100, "Free", 1, 1112, "1:05.32", "Y", ""));
  EXPECT_EQ(IsdinEventText(jane), "Female 11-12 100 Free");
  // No D3 behind Ann's dive: the D0's own number.
  const IsdinRow& ann = rows[3].row;
  EXPECT_EQ(std::tie(ann.id_no, ann.stroke, ann.int_stroke, ann.diving, ann.lo_hi, ann.f_time),
            std::make_tuple("ROE-NUMBER", "Diving", 6, "Y", 10, "245.50"));
  EXPECT_EQ(IsdinEventText(ann), "Female Un-10 Diving");
  const IsdinRow& eve = rows[4].row;
  EXPECT_EQ(std::tie(eve.lo_hi, eve.p_time, eve.f_time), std::make_tuple(1599, "DQ", ""));
  EXPECT_EQ(IsdinEventText(eve), "Female 15-Ov 100 Free");
  // Stroke "6" of an E0 is a free relay.
  const auto relays = Rows(true);
  ASSERT_EQ(relays.size(), 3u);
  const IsdinRow& team = relays[0].row;
  EXPECT_EQ(std::tie(team.relay, team.mi, team.stroke, team.dist, team.f_time),
            std::make_tuple("Y", "A", "Free Relay", "200", "2:10.00"));
  EXPECT_EQ(IsdinNameText(team), "Relay A");
  const IsdinRow& leg = relays[2].row;
  EXPECT_EQ(std::tie(leg.relay, leg.f_time), std::make_tuple("Y", "32.50"));
  EXPECT_EQ(IsdinNameText(leg), "ROE, ANN");
  EXPECT_EQ(IsdinEventText(leg), "Female 11-12 200 Free Relay");
  EXPECT_EQ(outcome.counts.Processed(ImportRow::kMeets), 1);
  EXPECT_EQ(outcome.counts.Processed(ImportRow::kIndividual), 3);
  EXPECT_EQ(outcome.counts.Processed(ImportRow::kRelay), 1);
  // A second report starts from an empty table.
  ASSERT_TRUE(Report(file.Lines(), ".CL2").ok);
  EXPECT_EQ(Rows(false).size(), 5u);
}

TEST_F(ImportReportTest, RosterLinesAreSwimmerOnlyRowsWithTheirD3Number) {
  SdifFile file;
  file.Line("D1",
            "lsc=ZZ|team_code=MUST|swimmer_name=DOE, JANE A|swimmer_number=OLDNUMBER|"
            "birth=01022014|age=12|sex=F")
      .Line("D2", {{"swimmer_name", "DOE, JANE A"}})
      .Line("D3", {{"new_swimmer_number", "NEWNUMBER"}});
  ASSERT_TRUE(Report(file.Lines(), ".SD3").ok);
  const auto rows = Rows(false);
  const ReportRow* jane = FindByName(rows, "DOE", "JANE");
  ASSERT_NE(jane, nullptr);
  EXPECT_EQ(std::tie(jane->row.only, jane->row.id_no), std::make_tuple("Y", "NEWNUMBER"));
  EXPECT_EQ(IsdinEventText(jane->row), "");
}

TEST_F(ImportReportTest, Nv3FileReportsSwimsUnderTheSwimmerOfTheirNumber) {
  // The database knows Alex by name only; the file leaves Alex's number out.
  AddAthlete("Smith", "Alex", "B", "DB-ALEX", "2014-01-02");
  const std::vector<std::string> lines = {
      Nv3("A1", "file_code=09|creator=Norvan, Ltd"),
      Nv3("B1", "meet_name=Winter Made-Up Open|start=12052026|end=12062026"),
      Nv3("C1", "team_code=MUST|team_name=Made Up Swim Team|lsc=ZZ"),
      Nv3("D1", "sex=F|athlete=7|last=SMITH|first=ALEX|initial=B|birth=01022014|age=12"),
      Nv3("D1", "sex=F|athlete=8|last=JONES|first=KIM|id_no=FILE-KIM"),
      Nv3("E1",
          "sex=F|athlete=7|event_sex=F|distance=100|stroke_letter=A|age_group= 11 12|"
          "event_number=12|age=12"),
      Nv3("E2", "f_p=F|score=65.32|course=Y|f_p2=P|score2=66.01|course2=Y"),
      Nv3("E3"),
      Nv3("E1", "sex=F|athlete=8|event_sex=F|distance=1|stroke_letter=H|age_group=  0109"),
      Nv3("E2", "f_p=F|score=245.50"),
      Nv3("E1", "sex=F|athlete=7|event_sex=F|distance=50|stroke_letter=B|age_group=  0 10"),
      Nv3("E2", "f_p=P|nt_letter=Q"),
      Nv3("F1",
          "team_code=MUST|relay_letter=B|event_sex=F|distance=200|stroke_letter=E|"
          "age_group= 11 12"),
      Nv3("F2", "f_p=F|score=150.00|course=Y"),
  };
  ASSERT_TRUE(Report(lines, ".NV3").ok);
  const auto rows = Rows(false);
  // B1, C1, two D1 and three E1.
  ASSERT_EQ(rows.size(), 7u);
  EXPECT_EQ(std::tie(rows[0].row.meet_beg, rows[2].row.only, rows[2].row.id_no, rows[3].row.id_no),
            std::make_tuple("12/05/2026", "Y", "DB-ALEX", "FILE-KIM"));
  const IsdinRow& free = rows[4].row;
  EXPECT_EQ(IsdinNameText(free), "SMITH, ALEX B");
  EXPECT_EQ(
      std::tie(free.birth, free.team_name, free.stroke, free.lo_hi, free.f_time, free.p_time,
               free.only),
      std::make_tuple("01/02/2014", "Made Up Swim Team", "Free", 1112, "1:05.32", "1:06.01", ""));
  // Each swim names its swimmer by number: Kim's dive here, Alex's backstroke below though
  // Kim's D1 came last.
  const IsdinRow& dive = rows[5].row;
  EXPECT_EQ(std::tie(dive.ln, dive.dist, dive.stroke, dive.diving, dive.lo_hi, dive.f_time),
            std::make_tuple("JONES", "3 Meter", "Diving", "Y", 99, "245.50"));
  const IsdinRow& back = rows[6].row;
  EXPECT_EQ(std::tie(back.ln, back.p_time), std::make_tuple("SMITH", "DQ"));
  EXPECT_EQ(IsdinEventText(back), "Female Un-10 50 Back");
  const auto relays = Rows(true);
  ASSERT_EQ(relays.size(), 1u);
  EXPECT_EQ(std::tie(relays[0].row.stroke, relays[0].row.f_time),
            std::make_tuple("Medley Relay", "2:30.00"));
  EXPECT_EQ(IsdinNameText(relays[0].row), "Relay B");
}

TEST_F(ImportReportTest, StoppingKeepsTheRowsWrittenAndFailuresSayErrorCreatingReport) {
  SdifFile file;
  file.Swim().Swim({{"swimmer_name", "ROE, ANN"}});
  watcher_.cancel_after = 4;  // A0, B1, C1, the first D0
  const ImportOutcome stopped = Report(file.Lines(), ".CL2");
  EXPECT_FALSE(stopped.ok);
  EXPECT_TRUE(stopped.cancelled);
  EXPECT_EQ(stopped.status, "Report aborted by user.");
  const auto rows = Rows(false);
  EXPECT_NE(FindByName(rows, "DOE", "JANE"), nullptr);
  EXPECT_EQ(FindByName(rows, "ROE", "ANN"), nullptr);
  watcher_.cancel_after = 1 << 30;
  const ImportOutcome psn = Report(file.Lines(), ".PSN");
  EXPECT_FALSE(psn.ok);
  EXPECT_EQ(psn.status, "Error creating report.");
  EXPECT_TRUE(t.io.Saw("Error creating report."));
  // The run's own copy of the table, then the file's.
  t.state.gReportDb->exec("DROP TABLE temp.RPTISDIN");
  t.state.gReportDb->exec("DROP TABLE main.RPTISDIN");
  t.io.shown.clear();
  EXPECT_EQ(Report(file.Lines(), ".CL2").status, "Error creating report.");
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].text, "Error creating report.");
}

TEST_F(ImportReportTest, GetCurrentAthFindsBySwimmerNumberThenNameInitialAndBirth) {
  const int32_t alex = AddAthlete("Smith", "Alex", "", "ID-ALEX", "2014-01-02");
  const int32_t alex_b = AddAthlete("Smith", "Alex", "B", "", "2012-05-05");
  const int32_t alex_too = AddAthlete("SMITH", "ALEX", "", "", "2016-03-03");
  const int32_t kim = AddAthlete("Jones", "Kim", "C", "ID-KIM", "");
  struct Case {
    const char* what;
    const char* id_no;
    const char* last;
    const char* first;
    const char* initial;
    const char* birth;
    int32_t expected;
  };
  const Case cases[] = {
      {"number and names", "ID-ALEX", "smith", "alex", "", "2016-03-03", alex},
      {"number of another swimmer", "ID-KIM", "SMITH", "ALEX", "", "2016-03-03", alex_too},
      {"initial", "", "SMITH", "ALEX", "B", "", alex_b},
      {"initial beats birth", "", "SMITH", "ALEX", "B", "2016-03-03", alex_b},
      {"unknown initial: a row without one", "", "SMITH", "ALEX", "Z", "", alex},
      {"unknown initial, birth decides", "", "SMITH", "ALEX", "Z", "2016-03-03", alex_too},
      {"no initial, no birth: the first", "", "SMITH", "ALEX", "", "", alex},
      {"birth matching nobody", "", "SMITH", "ALEX", "", "2001-01-01", alex},
      {"no initial asked, one on file", "", "JONES", "KIM", "", "", kim},
      {"other initial, none blank", "", "JONES", "KIM", "D", "", 0},
      {"unknown swimmer", "NOBODY", "DOE", "JANE", "", "", 0},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(GetCurrentAth(t.state, c.id_no, c.last, c.first, c.initial, c.birth), c.expected)
        << c.what;
  }
  // A name holding a quote is a value like any other.
  const int32_t quoted = AddAthlete("O'Neil", "Sean", "", "", "");
  EXPECT_EQ(GetCurrentAth(t.state, "", "O'NEIL", "SEAN", "", ""), quoted);
  t.state.gDb.reset();
  EXPECT_EQ(GetCurrentAth(t.state, "ID-ALEX", "SMITH", "ALEX", "", ""), 0);
}

// The athlete check of an NV3 file: matches, the "no results" boxes and a D1 it cannot read.

std::string D1(const char* last, const char* first, const char* pref = "",
               const char* birth = "01022014", const char* sex = "F") {
  return Nv3("D1", {{"sex", sex},
                    {"athlete", "1"},
                    {"last", last},
                    {"first", first},
                    {"pref", pref},
                    {"birth", birth}});
}

TEST(NV3AthleteCheck, FindsTheSwimmerOrSaysWhoIsThereOrStopsAtAnUnreadableLine) {
  const std::string no_results =
      "This file did not contain any results for Alex Smith\r\nPlease run the Import/Export "
      "Files Report to determine if this swimmer's name was spelled correctly by the meet host.";
  const auto two_part = [](const std::string& line, const char* problem) {
    return "File processing error for file: m.nv3\r\nThe error is on line: 4\r\nThe problem "
           "line is listed below in two parts: \r\n>>" +
           line.substr(0, 80) + "<<\r\n>>" + line.substr(80) + "<<\r\nProblem: " + problem;
  };
  const std::string bad_date = D1("SMITH", "ALEX", "", "13312004");
  const std::string no_name = D1("", "ALEX");
  struct Case {
    const char* what;
    const char* first;
    std::vector<std::string> swimmers;
    bool ok;
    std::vector<std::string> boxes;
  };
  const Case cases[] = {
      {"first name", "Alex", {D1("JONES", "KIM"), D1("SMITH", "ALEX")}, true, {}},
      {"preferred name", "Lexi", {D1("JONES", "KIM"), D1("SMITH", "ALEXANDRA", "LEXI")}, true, {}},
      {"any case", "alex", {D1("JONES", "KIM"), D1("smith", "Alex")}, true, {}},
      // Not a failure: the user may still import the file.
      {"others of the name",
       "Alex",
       {D1("SMITH", "JORDAN"), D1("JONES", "ALEX"), D1("SMITH", "CASEY"),
        D1("SMITH", "ALEX", "", "01022014", "M")},
       true,
       {no_results,
        "The file did contain the following athlete(s) with the last name of Smith\r\nJORDAN "
        "SMITH\r\nCASEY SMITH\r\nALEX SMITH"}},
      {"nobody of the name", "Alex", {D1("JONES", "KIM")}, true, {no_results}},
      // No "no results" box behind the error's.
      {"bad date", "Alex", {D1("SMITH", "ALEX"), bad_date}, false, {two_part(bad_date, "Date")}},
      {"no name",
       "Alex",
       {D1("SMITH", "ALEX"), no_name},
       false,
       {two_part(no_name, "Swimmer's Name")}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    test::TempHome t;
    testing::Monitor monitor;
    SwimmerMatcher matcher(CurrentSwimmer{1, c.first, "Smith", "F"}, {}, false);
    std::vector<std::string> lines = {Nv3("A1", "file_code=09|creator=Norvan, Ltd"),
                                      Nv3("B1", {{"meet_name", "Made-Up Meet"}})};
    lines.insert(lines.end(), c.swimmers.begin(), c.swimmers.end());
    EXPECT_EQ(NV3AthleteCheck(t.state, monitor, lines, matcher, "m.nv3"), c.ok);
    std::vector<std::string> boxes;
    for (const auto& shown : t.io.shown) boxes.push_back(shown.text);
    EXPECT_EQ(boxes, c.boxes);
    EXPECT_EQ(monitor.statuses.front(), " Checking for Athletes... ");
    EXPECT_EQ(monitor.statuses.back() == " Athlete Check Successful ", c.ok);
    if (c.ok) {
      EXPECT_EQ(matcher.AnyMatch(), c.boxes.empty());
    } else {
      EXPECT_EQ(t.io.shown.at(0).title, "error");
      EXPECT_EQ(box::Icon(t.io.shown.at(0).style), box::kStop);
    }
  }
}

}  // namespace
}  // namespace kvlr
