// The report mode: made-up files walked into RPTISDIN, and the swimmer lookup of NV3 swims;
// the athlete check of an NV3 file before its import.

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>
#include <gtest/gtest.h>

#include "FileMaker.h"
#include "interchange/ImportReport.h"
#include "interchange/ImportReportRows.h"
#include "interchange/ImportReportTexts.h"
#include "interchange/Nv3AthleteCheck.h"
#include "store/ReportDatabase.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using testing::Nv3;
using testing::SdifFile;

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
                            {"11012026", 2, "2026/11/01"}, {"        ", 0, ""},
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
  EXPECT_TRUE(t_.io.Saw("Error creating report."));

  // The run's own copy of the table, then the file's.
  t_.state.gReportDb->exec("DROP TABLE temp.RPTISDIN");
  t_.state.gReportDb->exec("DROP TABLE main.RPTISDIN");
  t_.io.shown.clear();
  EXPECT_EQ(Report(file.Lines(), ".CL2").status, "Error creating report.");
  ASSERT_EQ(t_.io.shown.size(), 1u);
  EXPECT_EQ(t_.io.shown[0].text, "Error creating report.");
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
