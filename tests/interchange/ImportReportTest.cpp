// The report mode: made-up files walked into RPTISDIN, and the swimmer lookup of NV3 swims.

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>
#include <gtest/gtest.h>

#include "FileMaker.h"
#include "interchange/ImportReport.h"
#include "interchange/ImportReportRows.h"
#include "interchange/ImportReportTexts.h"
#include "store/ReportDatabase.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using testing::Nv3;
using testing::SdifFile;

class Watcher : public ImportMonitor {
 public:
  void Status(std::string_view text) override { statuses.emplace_back(text); }
  bool Cancelled() override { return stop_after >= 0 && stop_after-- == 0; }
  std::vector<std::string> statuses;
  int stop_after = -1;  // lines walked before the user stops
};

class ImportReportTest : public ::testing::Test {
 protected:
  ImportReportTest() {
    test::MakeOpenDatabase(t_);
    CheckReportTables(t_.state);
  }

  int32_t AddAthlete(const std::string& last, const std::string& first, const std::string& initial,
                     const std::string& id_no, const std::string& birth) {
    SQLite::Statement q(*t_.state.gDb,
                        "INSERT INTO ATHLETE (Last, First, Initial, ID_NO, Birth, Sex) "
                        "VALUES (?, ?, ?, ?, NULLIF(?, ''), 'F')");
    SQLite::bind(q, last, first, initial, id_no, birth);
    q.exec();
    return static_cast<int32_t>(t_.state.gDb->getLastInsertRowid());
  }

  ImportOutcome Report(std::vector<std::string> lines, const std::string& extension) {
    ImportFile file;
    file.extension = extension;
    file.lines = std::move(lines);
    file.panel.file_type = "Meet Results";
    file.ready = true;
    return RunFileReport(t_.state, watcher_, file);
  }

  std::vector<ReportRow> Rows(bool relay) { return ReadIsdinRows(*t_.state.gReportDb, relay); }

  test::TempHome t_;
  Watcher watcher_;
};

const ReportRow* FindByName(const std::vector<ReportRow>& rows, std::string_view ln,
                            std::string_view fn) {
  for (const ReportRow& r : rows) {
    if (r.row.ln == ln && r.row.fn == fn) return &r;
  }
  return nullptr;
}

TEST(ImportReportTexts, DistancesStrokesAndDates) {
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
                            {"11012026", 2, "2026/11/01"}, {"        ", 0, ""},
                            {"13312004", 0, "13312004"},   {"02302026", 1, "02302026"}};
  for (const DateCase& c : dates) {
    EXPECT_EQ(ReportDateText(c.columns, c.order), c.text) << c.columns << " " << c.order;
  }
  EXPECT_EQ(ReportScoreText(0, 1, 5), "DQ");
  EXPECT_EQ(ReportScoreText(24550, 6, 0), "245.50");
  EXPECT_EQ(ReportScoreText(0, 1, 0), "");
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
  EXPECT_EQ(outcome.status, kReportBuildSuccessful);
  EXPECT_EQ(watcher_.statuses.back(), kReportBuildSuccessful);

  const auto rows = Rows(false);
  // B1, C1 and the three swims, in file order.
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_EQ(rows[0].row.meet_name, "Autumn Made-Up Invite");
  EXPECT_EQ(rows[0].row.meet_beg, "11/01/2026");
  EXPECT_EQ(rows[0].row.meet_end, "11/02/2026");
  EXPECT_EQ(rows[0].row.ln, "");
  EXPECT_EQ(rows[1].row.team_name, "Made Up Swim Team");
  EXPECT_EQ(rows[1].row.team_code, "MUST");

  const IsdinRow& jane = rows[2].row;
  EXPECT_EQ(rows[2].reason_words, "Result imported");
  EXPECT_EQ(jane.reason, "Y");
  EXPECT_EQ(jane.meet_name, "Autumn Made-Up Invite");
  EXPECT_EQ(jane.team_name, "Made Up Swim Team");
  EXPECT_EQ(jane.lsc, "ZZ");
  EXPECT_EQ(jane.ln, "DOE");
  EXPECT_EQ(jane.fn, "JANE");
  EXPECT_EQ(jane.mi, "A");
  EXPECT_EQ(jane.id_no, "MADEUP000001");  // from the D3 behind the D0
  EXPECT_EQ(jane.birth, "01/02/2014");
  EXPECT_EQ(jane.age, "12");
  EXPECT_EQ(jane.sex, "F");
  EXPECT_EQ(jane.dist, "100");
  EXPECT_EQ(jane.int_dist, 100);
  EXPECT_EQ(jane.stroke, "Free");
  EXPECT_EQ(jane.int_stroke, 1);
  EXPECT_EQ(jane.lo_hi, 1112);
  EXPECT_EQ(jane.f_time, "1:05.32");
  EXPECT_EQ(jane.f_cors, "Y");
  EXPECT_EQ(jane.diving, "");
  EXPECT_EQ(IsdinEventText(jane), "Female 11-12 100 Free");

  const IsdinRow& ann = rows[3].row;
  EXPECT_EQ(ann.id_no, "ROE-NUMBER");  // no D3: the D0's own number
  EXPECT_EQ(ann.stroke, "Diving");
  EXPECT_EQ(ann.int_stroke, 6);
  EXPECT_EQ(ann.diving, "Y");
  EXPECT_EQ(ann.lo_hi, 10);
  EXPECT_EQ(ann.f_time, "245.50");
  EXPECT_EQ(IsdinEventText(ann), "Female Un-10 Diving");

  const IsdinRow& eve = rows[4].row;
  EXPECT_EQ(eve.lo_hi, 1599);
  EXPECT_EQ(eve.p_time, "DQ");
  EXPECT_EQ(eve.f_time, "");
  EXPECT_EQ(IsdinEventText(eve), "Female 15-Ov 100 Free");

  const auto relays = Rows(true);
  ASSERT_EQ(relays.size(), 3u);
  const IsdinRow& team = relays[0].row;
  EXPECT_EQ(team.relay, "Y");
  EXPECT_EQ(team.mi, "A");
  EXPECT_EQ(team.stroke, "Free Relay");  // stroke "6" of an E0 is a free relay
  EXPECT_EQ(team.dist, "200");
  EXPECT_EQ(team.f_time, "2:10.00");
  EXPECT_EQ(IsdinNameText(team), "Relay A");
  const IsdinRow& leg = relays[2].row;
  EXPECT_EQ(IsdinNameText(leg), "ROE, ANN");
  EXPECT_EQ(leg.relay, "Y");
  EXPECT_EQ(leg.f_time, "32.50");
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
  EXPECT_EQ(jane->row.only, "Y");
  EXPECT_EQ(jane->row.id_no, "NEWNUMBER");
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
      testing::Nv3Resum("E3"),
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
  EXPECT_EQ(rows[0].row.meet_beg, "12/05/2026");
  EXPECT_EQ(rows[2].row.only, "Y");
  EXPECT_EQ(rows[2].row.id_no, "DB-ALEX");
  EXPECT_EQ(rows[3].row.id_no, "FILE-KIM");

  const IsdinRow& free = rows[4].row;
  EXPECT_EQ(IsdinNameText(free), "SMITH, ALEX B");
  EXPECT_EQ(free.birth, "01/02/2014");
  EXPECT_EQ(free.team_name, "Made Up Swim Team");
  EXPECT_EQ(free.stroke, "Free");
  EXPECT_EQ(free.lo_hi, 1112);
  EXPECT_EQ(free.f_time, "1:05.32");
  EXPECT_EQ(free.p_time, "1:06.01");
  EXPECT_EQ(free.only, "");

  // Each swim names its swimmer by number: Kim's dive here, Alex's backstroke below though
  // Kim's D1 came last.
  const IsdinRow& dive = rows[5].row;
  EXPECT_EQ(dive.ln, "JONES");
  EXPECT_EQ(dive.dist, "3 Meter");
  EXPECT_EQ(dive.stroke, "Diving");
  EXPECT_EQ(dive.diving, "Y");
  EXPECT_EQ(dive.lo_hi, 99);
  EXPECT_EQ(dive.f_time, "245.50");

  const IsdinRow& back = rows[6].row;
  EXPECT_EQ(back.ln, "SMITH");
  EXPECT_EQ(back.p_time, "DQ");
  EXPECT_EQ(IsdinEventText(back), "Female Un-10 50 Back");

  const auto relays = Rows(true);
  ASSERT_EQ(relays.size(), 1u);
  EXPECT_EQ(relays[0].row.stroke, "Medley Relay");
  EXPECT_EQ(relays[0].row.f_time, "2:30.00");
  EXPECT_EQ(IsdinNameText(relays[0].row), "Relay B");
}

TEST_F(ImportReportTest, StoppingKeepsTheRowsWrittenAndFailuresSayErrorCreatingReport) {
  SdifFile file;
  file.Swim().Swim({{"swimmer_name", "ROE, ANN"}});
  watcher_.stop_after = 4;  // A0, B1, C1, the first D0
  const ImportOutcome stopped = Report(file.Lines(), ".CL2");
  EXPECT_FALSE(stopped.ok);
  EXPECT_TRUE(stopped.cancelled);
  EXPECT_EQ(stopped.status, kReportAborted);
  const auto rows = Rows(false);
  EXPECT_NE(FindByName(rows, "DOE", "JANE"), nullptr);
  EXPECT_EQ(FindByName(rows, "ROE", "ANN"), nullptr);

  const ImportOutcome psn = Report(file.Lines(), ".PSN");
  EXPECT_FALSE(psn.ok);
  EXPECT_EQ(psn.status, kErrorCreatingReport);
  EXPECT_TRUE(t_.io.Saw(kErrorCreatingReport));

  // The run's own copy of the table, then the file's.
  t_.state.gReportDb->exec("DROP TABLE temp.RPTISDIN");
  t_.state.gReportDb->exec("DROP TABLE main.RPTISDIN");
  t_.io.shown.clear();
  EXPECT_EQ(Report(file.Lines(), ".CL2").status, kErrorCreatingReport);
  ASSERT_EQ(t_.io.shown.size(), 1u);
  EXPECT_EQ(t_.io.shown[0].text, kErrorCreatingReport);
}

TEST(ImportReportTitle, NamesTheFileKind) {
  ImportFile file;
  file.panel.file_type = "Best Times";
  EXPECT_EQ(ReportTitle(file), "Export/Import File Report - Best Times");
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
    EXPECT_EQ(GetCurrentAth(t_.state, c.id_no, c.last, c.first, c.initial, c.birth), c.expected)
        << c.what;
  }
  // A name holding a quote is a value like any other.
  const int32_t quoted = AddAthlete("O'Neil", "Sean", "", "", "");
  EXPECT_EQ(GetCurrentAth(t_.state, "", "O'NEIL", "SEAN", "", ""), quoted);

  t_.state.gDb.reset();
  EXPECT_EQ(GetCurrentAth(t_.state, "ID-ALEX", "SMITH", "ALEX", "", ""), 0);
}

}  // namespace
}  // namespace kvlr
