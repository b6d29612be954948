#include <algorithm>
#include <array>
#include <cstdio>
#include <sstream>

#include <gtest/gtest.h>
#include <QGuiApplication>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "Commands.h"
#include "interchange/ImportReportTable.h"
#include "meets/ResultsFixture.h"
#include "reports/ReportFill.h"
#include "reports/ReportFrame.h"
#include "reports/ReportLayout.h"
#include "store/ReportDatabase.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

QGuiApplication& App() {
  static int argc = 1;
  static char arg0[] = "reports_test";
  static char* argv[] = {arg0, nullptr};
  static QGuiApplication* app = new QGuiApplication(argc, argv);
  return *app;
}

// The text of a PDF as pdftotext reads it, page breaks as form feeds.
std::string PdfText(const fs::path& pdf) {
  std::string text;
  FILE* pipe = popen(("pdftotext -layout '" + pdf.string() + "' - 2>/dev/null").c_str(), "r");
  if (!pipe) return text;
  std::array<char, 4096> buffer{};
  while (size_t n = fread(buffer.data(), 1, buffer.size(), pipe)) text.append(buffer.data(), n);
  pclose(pipe);
  return text;
}

class Reports : public ::testing::Test {
 protected:
  void SetUp() override {
    App();
    CheckReportTables(t.state);
    s.Athlete(1, "Lane", "F", "2014-03-01", 12);
    s.Athlete(2, "Brook", "M", "2016-06-01", 10);
    s.Meet(1, "Autumn Open", "2026-10-03", "AG", "Y");
    s.Meet(2, "Winter Champs", "2026-02-14", "HS", "L");
    t.io.shown.clear();
  }
  SQLite::Database& Db() { return *t.state.gDb; }
  SQLite::Database& Rdb() { return *t.state.gReportDb; }
  int64_t Swim(int32_t meet, int32_t athlete, int distance, int stroke, int32_t score,
               const std::string& course = "Y", const std::string& i_r = "I") {
    test::Season::Swim w;
    w.meet = meet;
    w.athlete = athlete;
    w.event = s.Event(meet, ++event_no_, distance, stroke, "I", athlete == 1 ? "F" : "M", course);
    w.distance = distance;
    w.stroke = stroke;
    w.course = course;
    w.score = score;
    w.i_r = i_r;
    return s.Result(w);
  }
  std::optional<ReportDoc> Run(const std::string& kind, const ReportRequest& r) {
    const ReportCatalog catalog = BuiltInReports();
    return RunReport(t.state, *catalog.Find(kind), r);
  }
  // The report as PDF, read back; "" when pdftotext is missing.
  std::string Printed(const ReportDoc& doc, int* pages = nullptr) {
    const fs::path pdf = t.Data() / "report.pdf";
    const int n = WriteReportPdf(doc, pdf);
    if (pages) *pages = n;
    EXPECT_GT(n, 0);
    return PdfText(pdf);
  }

  test::TempHome t;
  test::OpenedDatabase opened{t};
  test::Season s{*t.state.gDb};
  int event_no_ = 0;
};

TEST_F(Reports, TextsAreCutWholeCharactersAndNamesJoined) {
  EXPECT_EQ(FitText("Zoë Ågren", 3), "Zoë");
  EXPECT_EQ(FitText("Zoë", 2), "Zo");
  EXPECT_EQ(FitText("Ann", 10), "Ann");
  EXPECT_EQ(ReportName("Lane", "Robin", "Q"), "Lane, Robin Q");
  EXPECT_EQ(ReportName("Lane ", "Robin", " "), "Lane, Robin");
}

TEST_F(Reports, ParameterRowTakesOptionsGenderWordsAndOpenEventWord) {
  Db().exec("UPDATE OPTIONS SET Line1 = 'Marlins Swim Club', Line2 = 'Season 2026'");
  const struct {
    int fav_sex, no_age;
    const char* girl;
    const char* open;
  } cases[] = {{0, 0, "Women", ""}, {1, 1, "Female", "Senior"}, {2, 2, "Girls", "Open"}};
  for (const auto& c : cases) {
    t.state.gFavSex = c.fav_sex;
    t.state.gNoAge = c.no_age;
    SetReportParameters(t.state, std::string(100, 'T'), {"team", "", "", ""}, "Name");
    const ReportParameters p = ReadReportParameters(Rdb());
    EXPECT_EQ(p.girl_sex, c.girl);
    EXPECT_EQ(p.open_event, c.open);
    EXPECT_EQ(p.title.size(), 88u);
    EXPECT_EQ(p.header1, "Marlins Swim Club");
    EXPECT_EQ(p.team_line, "team");
    EXPECT_EQ(p.rev_date, t.clock.Today());
  }
  EXPECT_EQ(test::QueryNumber(Rdb(), "SELECT count(*) FROM RPTWINCS"), 1);
}

TEST_F(Reports, RemoveExtraTimesKeepsTheFastestNOfEachGroup) {
  const struct {
    TopGroup group;
    int n;
    const char* kept;
  } cases[] = {{TopGroup::kSwimmer, 2, "1|1|50|1|100\n1|1|50|1|200\n1|1|50|2|150\n"},
               {TopGroup::kEvent, 2, "1|1|50|1|100\n1|1|50|2|150\n"},
               {TopGroup::kEventAndSex, 1, "1|1|50|1|100\n1|1|50|2|150\n"}};
  for (const auto& c : cases) {
    Rdb().exec("DELETE FROM RMEETI");
    for (auto [athlete, convt, sex] : {std::tuple{1, 300, "F"}, {1, 100, "F"}, {2, 150, "M"},
                                       {1, 200, "F"}}) {
      RMeetRow row;
      row.athlete = athlete;
      row.convt = convt;
      row.sex = sex;
      row.int_stroke = 1;
      row.int_dist = 50;
      AddMeetRow(Rdb(), row);
    }
    RemoveExtraTimes(t.state, c.group, c.n);
    EXPECT_EQ(test::QueryRows(Rdb(), "SELECT 1, INTSTROKE, INTDIST, ATHLETE, CONVT FROM RMEETI "
                                     "ORDER BY ATHLETE, CONVT"),
              c.kept);
  }
  EXPECT_EQ(t.io.progress.back(), "Filtering Times.  Please Wait...");
}

TEST_F(Reports, SplitsGoToReportAsCumulativeOrWithLaps) {
  const int64_t r200 = Swim(1, 1, 200, 1, 14000);
  const int64_t r50 = Swim(1, 1, 50, 1, 3000);
  SQLite::Statement add(Db(), "INSERT INTO SPLITS (SplitID, SplitIndex, Split) VALUES (?, ?, ?)");
  auto split = [&add](int64_t id, int index, int split) {
    SQLite::bind(add, id, index, split);
    add.exec();
    add.reset();
  };
  for (int i = 1; i <= 8; ++i) split(r200, i, 1700 * i + 40);
  split(r50, 1, 1450);
  split(r50, 2, 3000);
  const std::string row = "SELECT \"F(0)\", \"SR(0)\", \"F(1)\", \"SR(1)\", \"F(3)\", \"F(4)\" "
                          "FROM RSPLITS WHERE SPLITID = ?";
  ASSERT_TRUE(AddSplitsToReport(t.state, r200, 200, 'Y', 2));
  EXPECT_EQ(test::QueryRows(Rdb(), row, r200), "17.40||34.40||1:08.40|1:25.40\n");
  ASSERT_TRUE(AddSplitsToReport(t.state, r200, 200, 'Y', 3));  // laps of 50
  EXPECT_EQ(test::QueryRows(Rdb(), row, r200), "34.40|34.40|1:08.40|34.00|2:16.40|\n");
  ASSERT_TRUE(AddSplitsToReport(t.state, r50, 50, 'Y', 3));
  EXPECT_EQ(test::QueryRows(Rdb(), row, r50), "14.50|14.50|30.00|15.50||\n");
  EXPECT_FALSE(AddSplitsToReport(t.state, Swim(1, 1, 100, 2, 7000), 100, 'Y', 3));
}

TEST_F(Reports, EmptyFillsSayWhy) {
  const struct {
    const char* kind;
    const char* said;
  } cases[] = {{"recruiting", "No Athletes to report"},
               {"goals", "No Goals to Report."},
               {"import-exceptions", "There are no import lines to report."},
               {"meet-entries", "There is nothing to report for these choices."}};
  for (const auto& c : cases) {
    ReportRequest r;
    r.athlete = 1;
    EXPECT_FALSE(Run(c.kind, r)) << c.kind;
    EXPECT_TRUE(t.io.Saw(c.said)) << c.kind;
  }
}

TEST_F(Reports, RecruitingAndGoalsPrintTheSwimmersRows) {
  Db().exec("INSERT INTO ATHRECR (Athlete, HS_Name, Oth_Team, Grad) "
            "VALUES (1, 'North High', 'Demo Aquatics', 2031)");
  ReportRequest r;
  r.athlete = 1;
  auto recruiting = Run("recruiting", r);
  ASSERT_TRUE(recruiting);
  EXPECT_EQ(test::QueryRows(Rdb(), "SELECT Athlete, HS_Name FROM ATHRECR"), "1|North High\n");
  EXPECT_EQ(test::QueryRows(Rdb(), "SELECT NAME FROM RATHINFO"), "Lane, Robin\n");

  s.Meet(9, "Goals - Yard Pools", "2000-01-01", "G", "Y");
  Swim(9, 1, 100, 2, 7000, "Y", "G");
  Swim(9, 1, 50, 1, 2900, "Y", "G");
  Swim(1, 1, 50, 1, 3100);  // a swim, not a goal
  auto goals = Run("goals", r);
  ASSERT_TRUE(goals);
  EXPECT_EQ(goals->title, "Goals for Lane, Robin for Yards");
  EXPECT_EQ(test::QueryRows(Rdb(), "SELECT NAME, DISTANCE, STROKE, SCORE, I_R FROM RMEETI "
                                   "ORDER BY SORTORDER"),
            "Lane, Robin|50|Free|29.00|G\nLane, Robin|100|Back|1:10.00|G\n");
  if (system("pdftotext -v >/dev/null 2>&1") != 0) GTEST_SKIP() << "pdftotext is missing";
  const std::string card = Printed(*recruiting);
  for (const char* text : {"Athlete Recruiting Report", "Lane, Robin", "North High",
                           "Demo Aquatics", "Page 1 of 1"}) {
    EXPECT_NE(card.find(text), std::string::npos) << text;
  }
  const std::string printed = Printed(*goals);
  for (const char* text : {"Goals for Lane, Robin for Yards", "Free", "50 Free", "1:10.00"}) {
    EXPECT_NE(printed.find(text), std::string::npos) << text;
  }
}

TEST_F(Reports, MeetResultsAndEntriesPrintByMeetWithHeadingsOnEveryPage) {
  if (system("pdftotext -v >/dev/null 2>&1") != 0) GTEST_SKIP() << "pdftotext is missing";
  Db().exec("UPDATE OPTIONS SET Line1 = 'Marlins Swim Club'");
  t.state.gFavSex = 2;
  {
    SQLite::Transaction batch(Db());
    for (int i = 0; i < 120; ++i) Swim(1, 1 + i % 2, 50 * (1 + i % 4), 1 + i % 5, 3000 + i);
    Swim(2, 1, 100, 1, 6100, "L");
    batch.commit();
  }
  ReportRequest r;
  auto results = Run("meet-results", r);
  ASSERT_TRUE(results);
  EXPECT_EQ(test::QueryNumber(Rdb(), "SELECT count(*) FROM RMEETI"), 121);
  EXPECT_EQ(test::QueryRows(Rdb(), "SELECT MEET, NAME, SCORE FROM RMEETI WHERE SORTORDER = 1"),
            "Winter Champs|Lane, Robin|1:01.00L\n");
  int pages = 0;
  const std::string printed = Printed(*results, &pages);
  EXPECT_GE(pages, 3);
  const std::string last_page = "Page " + std::to_string(pages) + " of " + std::to_string(pages);
  for (const std::string& text :
       {std::string("Meet Results"), std::string("Marlins Swim Club"), std::string("Autumn Open"),
        std::string("(Yards) (continued)"), std::string("Brook, Robin"),
        std::string("Page 2 of "), last_page}) {
    EXPECT_NE(printed.find(text), std::string::npos) << text;
  }
  EXPECT_EQ(std::count(printed.begin(), printed.end(), '\f'), pages);

  SQLite::Statement entry(Db(),
                          "INSERT INTO MTEVENTE (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, "
                          "Stroke, Sex, I_R) VALUES (1, 4, '', 99, 'Y', 100, 2, 'F', 'I')");
  entry.exec();
  Db().exec("INSERT INTO ENTRY (Meet, Athlete, I_R, Course, Score, MtEvent, Misc) "
            "VALUES (1, 1, 'I', 'Y', 0, last_insert_rowid(), 'N')");
  t.state.gNoAge = 2;
  r.meet = 1;
  auto entries = Run("meet-entries", r);
  ASSERT_TRUE(entries);
  const std::string listed = Printed(*entries);
  for (const char* text : {"Meet Entries", "Girls Open 100 Back", "Lane, Robin", "NT"}) {
    EXPECT_NE(listed.find(text), std::string::npos) << text;
  }
}

TEST_F(Reports, ImportRowsPrintWithTheirRelaysOnAPageOfTheirOwn) {
  if (system("pdftotext -v >/dev/null 2>&1") != 0) GTEST_SKIP() << "pdftotext is missing";
  IsdinRow swim;
  swim.reason = "1";
  swim.meet_name = "Autumn Open";
  swim.ln = "LANE";
  swim.fn = "ROBIN";
  swim.ev_sex = "F";
  swim.dist = "100";
  swim.stroke = "Free";
  swim.f_time = "1:01.00";
  swim.f_cors = "Y";
  IsdinRow relay = swim;
  relay.relay = "A";
  relay.stroke = "Free Relay";
  AddIsdinRow(Rdb(), swim);
  AddIsdinRow(Rdb(), relay);
  auto doc = Run("import-exceptions", {});
  ASSERT_TRUE(doc);
  int pages = 0;
  const std::string printed = Printed(*doc, &pages);
  EXPECT_EQ(pages, 2);
  const std::string relays = printed.substr(printed.find('\f'));
  for (const char* text : {"Import Exception Report", "Autumn Open", "LANE, ROBIN", "1:01.00 Y"}) {
    EXPECT_NE(printed.find(text), std::string::npos) << text;
  }
  EXPECT_NE(relays.find("Relays"), std::string::npos);
  EXPECT_NE(relays.find("Free Relay"), std::string::npos);
}

TEST_F(Reports, FixedWidthLinesFitTheirFlowColumnWhole) {
  ReportDoc doc;
  doc.title = "Log";
  doc.flow_columns = 2;
  ReportSection s;
  s.fixed_pitch = true;
  const std::string line = "4:30 PM    500      1 x 500 on 7:30 Warm-up            REC    S FR 1:39";
  s.columns = {ReportColumn{"", static_cast<double>(line.size() + 1)}};
  s.lines.push_back(ReportLine{ReportLine::Kind::kRow, {line}, {}});
  doc.sections.push_back(s);
  const std::string text = Printed(doc);
  if (text.empty()) GTEST_SKIP() << "pdftotext is missing";
  EXPECT_NE(text.find("FR 1:39"), std::string::npos) << text;
  EXPECT_EQ(text.find("\u2026"), std::string::npos) << text;
}

TEST_F(Reports, CommandWritesThePdfOfAKind) {
  Swim(1, 1, 100, 1, 6000);
  Db().exec("UPDATE OPTIONS SET PaperSize = 1");  // "8 1/2 x 14"
  t.state.CloseCurrentDB();  // the command opens the file itself
  std::istringstream in;
  const fs::path pdf = t.Data() / "meets.pdf";
  // The paper of Report Preferences, then the one the command names.
  const struct {
    std::vector<std::string> options;
    const char* size;
  } cases[] = {{{}, "612 x 1008"}, {{"--paper", "a4", "--landscape"}, "842 x 595"}};
  for (const auto& c : cases) {
    std::ostringstream out, err;
    CliEnvironment env{out, err, in, false, t.clock, t.disk, "%m/%d/%y", ""};
    std::vector<std::string> args = {"--home", t.Home().string(), "report", "meets", "--db",
                                     (t.Data() / "family.mdb").string(), "--pdf", pdf.string()};
    args.insert(args.end(), c.options.begin(), c.options.end());
    EXPECT_EQ(RunCli(args, env), 0) << err.str();
    EXPECT_EQ(out.str(), "1 page written to " + pdf.string() + "\n");
    if (system("pdfinfo -v >/dev/null 2>&1") != 0) continue;
    const std::string text = PdfText(pdf);
    EXPECT_NE(text.find("Winter Champs"), std::string::npos);
    EXPECT_NE(text.find("2 meets"), std::string::npos);
    FILE* info = popen(("pdfinfo '" + pdf.string() + "'").c_str(), "r");
    std::array<char, 4096> buffer{};
    const std::string shown(buffer.data(), fread(buffer.data(), 1, buffer.size(), info));
    pclose(info);
    EXPECT_NE(shown.find(c.size), std::string::npos) << shown;
  }
  std::ostringstream err;
  std::ostringstream help;
  CliEnvironment help_env{help, err, in, false, t.clock, t.disk, "%m/%d/%y", ""};
  RunCli({"report", "--help"}, help_env);
  const ReportCatalog catalog = BuiltInReports();
  for (const ReportKind& k : catalog.Kinds()) {
    EXPECT_NE(help.str().find(k.name), std::string::npos) << k.name;
  }
}

}  // namespace
}  // namespace kvlr
