// The import of results: made-up files through RunImportFile into a fresh database.

#include <algorithm>
#include <fstream>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>
#include <gtest/gtest.h>

#include "FileMaker.h"
#include "athletes/CurrentAthlete.h"
#include "interchange/ImportRun.h"
#include "interchange/ImportSession.h"
#include "store/ReportDatabase.h"
#include "support/TempHome.h"

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

class ImportTest : public ::testing::Test {
 protected:
  ImportTest() {
    test::MakeOpenDatabase(t_);
    CheckReportTables(t_.state);
    jane_ = AddAthlete("Doe", "Jane", "F", "");
    SetCurrentAthlete(t_.state, jane_);
  }

  SQLite::Database& Db() { return *t_.state.gDb; }
  long long Count(const std::string& sql) { return QueryNumber(Db(), sql); }

  int32_t AddAthlete(const std::string& last, const std::string& first, const std::string& sex,
                     const std::string& pref) {
    SQLite::Statement q(Db(), "INSERT INTO ATHLETE (Last, First, Sex, Pref) VALUES (?, ?, ?, ?)");
    SQLite::bind(q, last, first, sex, pref);
    q.exec();
    return static_cast<int32_t>(Db().getLastInsertRowid());
  }

  // Every row of `sql` as "a|b|c", each ended by a line end.
  std::string Rows(const std::string& sql) {
    SQLite::Statement q(Db(), sql);
    std::string out;
    while (q.executeStep()) {
      for (int i = 0; i < q.getColumnCount(); ++i)
        out += (i ? "|" : "") + q.getColumn(i).getString();
      out += "\n";
    }
    return out;
  }

  ImportOutcome Run(const std::vector<std::string>& lines, const std::string& extension = ".CL2",
                    ImportCriteria criteria = {}, ImportMonitor* monitor = nullptr) {
    ImportFile file;
    file.path = t_.Data() / ("meet" + extension);
    file.extension = extension;
    file.lines = lines;
    file.ready = true;
    ImportMonitor quiet;
    return RunImportFile(t_.state, monitor ? *monitor : quiet, file, criteria);
  }

  test::TempHome t_;
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
  EXPECT_EQ(QueryNumber(Db(), "SELECT COUNT(*) FROM RESULT WHERE Athlete <> ?", jane_), 0);
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
      QueryNumber(*t_.state.gReportDb,
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
  t_.io.Script({Answer::kNo});
  ASSERT_TRUE(Run(renamed.Lines()).ok);
  EXPECT_TRUE(t_.io.Saw("Would you like to treat this meet, Made-Up Fall Classic and Autumn"));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE Start = '2026-11-01'"), 2);

  SdifFile same;
  same.Meet({{"meet_name", "Made-Up Winter Classic"}});
  same.Line("B2", {{"location", "Shelbyville Pool"}});
  same.Swim("event_number=16|distance=25|finals_time=14.00");
  t_.io.Script({Answer::kYes});
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
  EXPECT_TRUE(t_.io.Saw("It will be given the name MEET1"));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE MName = 'MEET1' AND Start = '2003-01-01'"), 1);
  std::ifstream log(t_.Home() / "IMPERR.LOG", std::ios::binary);
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
  EXPECT_EQ(QueryNumber(Db(), "SELECT COUNT(*) FROM RESULT WHERE Athlete = ?", ann), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 2);
  EXPECT_EQ(t_.state.gAthlete, jane_);  // the current swimmer stays
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
      t_.io.Saw("File processing error for file: meet.CL2\r\nThe error is on line: 6\r\n"
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
  EXPECT_TRUE(t_.io.Saw("Not all records were imported."));
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
    EXPECT_TRUE(t_.io.Saw(std::string("Problem: ") + words)) << code;
  }
}

TEST_F(ImportTest, Nv3WithoutTheSwimmerSaysSo) {
  auto lines = Nv3File({});
  lines[5] = Nv3("D1", "sex=F|athlete=7|last=Doe|first=Mary");
  const ImportOutcome out = Run(lines, ".NV3");
  EXPECT_EQ(out.status, " Import Successful ");  // the meet and team came in
  EXPECT_TRUE(t_.io.Saw("This file did not contain any results for JANE DOE"));
  EXPECT_TRUE(t_.io.Saw("with the last name of DOE\r\nMARY DOE"));
}

}  // namespace
}  // namespace kvlr
