#include <array>
#include <cstdio>
#include <sstream>

#include <gtest/gtest.h>
#include <QGuiApplication>

#include "Commands.h"
#include "meets/Ranking.h"
#include "meets/ResultsFixture.h"
#include "reports/Memorized.h"
#include "reports/ReportLayout.h"
#include "reports/TopTimes.h"
#include "store/ReportDatabase.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using Improve = TopTimesOptions::Improve;

std::string PdfText(const fs::path& pdf) {
  std::string text;
  FILE* pipe = popen(("pdftotext -layout '" + pdf.string() + "' - 2>/dev/null").c_str(), "r");
  if (!pipe) return text;
  std::array<char, 4096> buffer{};
  while (size_t n = fread(buffer.data(), 1, buffer.size(), pipe)) text.append(buffer.data(), n);
  pclose(pipe);
  return text;
}

TEST(TopTimesRules, LongDistancesMoveToTheTargetCourse) {
  const struct {
    int distance, stroke;
    char target;
    int printed;
  } cases[] = {{400, 1, 'Y', 500}, {400, 2, 'Y', 400},  {800, 2, 'Y', 1000}, {1500, 1, 'Y', 1650},
               {500, 2, 'L', 400}, {1000, 1, 'S', 800}, {1650, 1, 'L', 1500}, {500, 1, 0, 500},
               {400, 1, 'L', 400}};
  for (const auto& c : cases) {
    EXPECT_EQ(TopTimesDistance(c.distance, c.stroke, c.target), c.printed)
        << c.distance << " " << c.stroke << " " << c.target;
  }
}

TEST(TopTimesRules, ImprovementModesAndBaselines) {
  using V = std::vector<std::optional<int32_t>>;
  const std::vector<int32_t> times = {7000, 7200, 6900, 6950};  // oldest first
  const struct {
    Improve mode;
    std::optional<int32_t> before;
    V expected;
  } cases[] = {{Improve::kEachMeet, {}, {{}, -200, 100, 50}},
               {Improve::kEachMeet, 7100, {100, -100, 200, 150}},
               {Improve::kMeetToMeet, {}, {{}, -200, 300, -50}},
               {Improve::kMeetToMeet, 7100, {100, -200, 300, -50}},
               {Improve::kBest, {}, {{}, {}, 100, {}}},
               {Improve::kBest, 7100, {{}, {}, 200, {}}},
               {Improve::kNone, 7100, {{}, {}, {}, {}}}};
  for (const auto& c : cases) {
    EXPECT_EQ(Improvements(c.mode, times, c.before), c.expected) << static_cast<int>(c.mode);
  }
  EXPECT_EQ(Improvements(Improve::kBest, {7000}, {}), V{std::nullopt});
  EXPECT_EQ(ImprovementText(2.0), "-2.00");
  EXPECT_EQ(ImprovementText(-65.5), "+1:05.50");
  EXPECT_EQ(ImprovementText(std::nullopt), "");
}

class TopTimes : public ::testing::Test {
 protected:
  void SetUp() override {
    static int argc = 1;
    static char arg0[] = "toptimes_test";
    static char* argv[] = {arg0, nullptr};
    if (!QGuiApplication::instance()) new QGuiApplication(argc, argv);
    CheckReportTables(t.state);
    s.Athlete(1, "Lane", "F", "2014-03-01", 12);
    s.Meet(1, "Autumn Open", "2026-10-03", "AG", "Y");
    s.Meet(2, "Winter Champs", "2026-02-14", "HS", "L");
    s.Meet(3, "Spring Cup", "2026-05-01", "AG", "Y");
    s.Meet(9, "Goals - Yard Pools", "2000-01-01", "G", "Y");
    Swim(2, 400, 1, 27000, "L");
    Swim(1, 500, 1, 33000);
    Swim(3, 500, 1, 34000);
    Swim(1, 100, 2, 7000);
    Swim(3, 100, 2, 7200);
    Swim(2, 400, 2, 36000, "L");
    Swim(1, 100, 2, 0, "Y", "I", 5);  // DQ
    Swim(9, 100, 2, 6800, "Y", "G");
    AddRank(t.state);
    t.io.shown.clear();
  }
  void Swim(int32_t meet, int distance, int stroke, int32_t score, const std::string& course = "Y",
            const std::string& i_r = "I", int nt = 0) {
    test::Season::Swim w;
    w.meet = meet;
    w.event = s.Event(meet, ++event_no_, distance, stroke, i_r, "F", course);
    w.distance = distance;
    w.stroke = stroke;
    w.course = course;
    w.score = score;
    w.i_r = i_r;
    w.nt = nt;
    w.rank = 0;
    s.Result(w);
  }
  std::string Rows(const std::string& fields) {
    return test::QueryRows(*t.state.gReportDb,
                           "SELECT " + fields +
                               " FROM RMEETI ORDER BY INTSTROKE, INTDIST, SEX, CONVT, MEETID");
  }

  test::TempHome t;
  test::OpenedDatabase opened{t};
  test::Season s{*t.state.gDb};
  int event_no_ = 0;
};

TEST_F(TopTimes, FillWritesTheRowsOfEachChoice) {
  const std::string fields = "INTSTROKE, INTDIST, trim(DISTANCE), MEETID, F_P, IMPROV";
  const struct {
    const char* name;
    std::function<void(ReportRequest&)> set;
    const char* rows;
  } cases[] = {
      {"yards, each meet", [](ReportRequest& r) { r.top.improve = Improve::kEachMeet; },
       "1|500|500|1|F|10.0\n1|500|500|3|F|\n2|100|100|1|F|2.0\n2|100|100|3|F|\n"},
      {"yards, top 1", [](ReportRequest& r) { r.top.top_n = 1; },
       "1|500|500|1|F|\n2|100|100|1|F|\n"},
      {"goals and DQs", [](ReportRequest& r) {
         r.top.goals = r.top.include_nt = true;
         r.top.stroke = 2;
       },
       "2|100|100|0|G|\n2|100|100|1|F|\n2|100|100|3|F|\n2|100|100|1|F|\n"},
      {"to LC, 500 under 400", [](ReportRequest& r) { SetTopTimesCourse(r, 5); },
       "1|400|400|2|F|\n1|400|400|1|F|\n1|400|400|3|F|\n2|100|100|1|F|\n2|100|100|3|F|\n"
       "2|400|400|2|F|\n"},
      {"to yards, only the free 400 moves", [](ReportRequest& r) { SetTopTimesCourse(r, 3); },
       "1|500|500|2|F|\n1|500|500|1|F|\n1|500|500|3|F|\n2|100|100|1|F|\n2|100|100|3|F|\n"
       "2|400|400|2|F|\n"},
      {"since, baseline before it", [](ReportRequest& r) {
         r.since = Date{2026, 6, 1};
         r.top.improve = Improve::kMeetToMeet;
         r.top.baseline_before_since = true;
       },
       "1|500|500|1|F|10.0\n2|100|100|1|F|2.0\n"},
      {"to LC, top 1 after conversion", [](ReportRequest& r) {
         SetTopTimesCourse(r, 5);
         r.top.top_n = 1;
         r.top.goals = true;
       },
       "1|400|400|2|F|\n2|100|100|0|G|\n2|100|100|1|F|\n2|400|400|2|F|\n"},
  };
  for (const auto& c : cases) {
    ReportRequest r;
    r.athlete = 1;
    r.course = 'Y';
    c.set(r);
    ASSERT_TRUE(PrintTTReport(t.state, r)) << c.name;
    EXPECT_EQ(Rows(fields), c.rows) << c.name;
  }
  // Swum in the target course as it stands, converted with a mark.
  EXPECT_EQ(Rows("SCORE"), "4:30.00L\n" + Rows("SCORE").substr(9));
  EXPECT_NE(Rows("SCORE").find("L'\n"), std::string::npos);

  ReportRequest none;
  none.athlete = 1;
  EXPECT_FALSE(PrintTTReport(t.state, none));
  EXPECT_TRUE(t.io.Saw("Please select a course."));
  none.course = 'S';
  EXPECT_FALSE(PrintTTReport(t.state, none));
  EXPECT_TRUE(t.io.Saw("No results to report."));

  // The spread sheet: each event's best in its column.
  none.course = 'Y';
  ASSERT_TRUE(BuiltInReports().Find("top-times-spread")->fill(t.state, none));
  EXPECT_EQ(test::QueryRows(*t.state.gReportDb, "SELECT NAME, Dis0, EV0, F0, Dis1, EV1, F1, "
                                                "F2 FROM RSPREAD"),
            "Lane, Robin|500|Free|5:30.00Y|100|Back|1:10.00Y|\n");

  // A dive has no course; its board alone picks it, printed as points.
  Swim(1, 9991, 6, 35050, "");
  ReportRequest dives;
  dives.athlete = 1;
  dives.course = 'Y';
  dives.top.distance = DivingDistance("1");
  ASSERT_TRUE(PrintTTReport(t.state, dives));
  EXPECT_EQ(Rows(fields + ", STROKE, SCORE"), "6|9991|1 Meter|1|F||Diving|350.50\n");
}

TEST_F(TopTimes, PrintedWithHeadingsAndRows) {
  if (system("pdftotext -v >/dev/null 2>&1") != 0) GTEST_SKIP() << "pdftotext is missing";
  ReportRequest r;
  r.athlete = 1;
  r.course = 'Y';
  r.since = Date{2026, 1, 1};
  r.top.improve = Improve::kEachMeet;
  r.top.goals = true;
  const ReportCatalog catalog = BuiltInReports();
  const auto doc = RunReport(t.state, *catalog.Find("top-times"), r);
  ASSERT_TRUE(doc);
  const fs::path pdf = t.Data() / "tt.pdf";
  ASSERT_EQ(WriteReportPdf(*doc, pdf), 1);
  const std::string text = PdfText(pdf);
  for (const char* part : {"Top Times for Lane, Robin", "YO (Show Yards Only)",
                           "Times since: 01-Jan-26", "100 Back", "500 Free", "Improv", "GOAL",
                           "1:10.00Y", "-2.00", "Autumn Open"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part;
  }
}

TEST_F(TopTimes, MemorizedSettingsSaveRenameRemoveAndRunFromTheCommand) {
  MemorizedReport m{"Season best", MemorizedType::kTopTimes, {}};
  SetTopTimesCourse(m.request, 5);
  m.request.since = Date{2026, 1, 1};
  m.request.top.top_n = 3;
  m.request.top.improve = Improve::kBest;
  m.request.top.baseline_before_since = true;
  m.request.top.distance = 400;
  m.request.split_mode = 3;
  ASSERT_TRUE(SaveMemorized(t.state, m));
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(SaveMemorized(t.state, m));
  m.request.top.goals = true;
  EXPECT_TRUE(SaveMemorized(t.state, m));  // overwrite, answered Yes
  EXPECT_TRUE(t.io.Saw("That Report already exists.  Overwrite?"));
  const auto back = FindMemorized(*t.state.gDb, "Season best");
  ASSERT_TRUE(back);
  EXPECT_EQ(ListMemorized(*t.state.gDb).size(), 1u);
  const TopTimesOptions& o = back->request.top;
  EXPECT_EQ(std::tuple(o.convert_to, o.top_n, o.improve, o.baseline_before_since, o.goals,
                       o.distance, back->request.split_mode, back->request.since),
            std::tuple('L', 3, Improve::kBest, true, true, 400, 3,
                       std::optional(Date{2026, 1, 1})));
  EXPECT_FALSE(SaveMemorized(t.state, {" ", MemorizedType::kTopTimes, {}}));
  EXPECT_TRUE(t.io.Saw("You must enter a name."));

  ASSERT_TRUE(SaveMemorized(t.state, {"Yards", MemorizedType::kTopTimes, {}}));
  EXPECT_FALSE(RenameMemorized(t.state, MemorizedType::kTopTimes, "Yards", "Season best"));
  EXPECT_TRUE(t.io.Saw("This Report name already exists for this report type."));
  EXPECT_TRUE(RenameMemorized(t.state, MemorizedType::kTopTimes, "Yards", "Short"));
  EXPECT_TRUE(RemoveMemorized(t.state, MemorizedType::kTopTimes, "Short"));
  EXPECT_TRUE(t.io.Saw("Remove Short"));

  t.state.CloseCurrentDB();
  std::istringstream in;
  const fs::path pdf = t.Data() / "memorized.pdf";
  const std::string db = (t.Data() / "family.mdb").string();
  const std::vector<std::string> base = {"--home", t.Home().string(), "report"};
  const struct {
    std::vector<std::string> args;
    int status;
  } runs[] = {{{"--memorized", "Season best"}, 0},
              {{"top-times", "--convert", "L", "--top", "1", "--improve", "best", "--stroke",
                "Free"},
               0},
              {{"--memorized", "Nothing"}, 1},
              {{"top-times", "--course", "Y", "--diving", "5"}, 2},
              {{"top-times", "--course", "Y", "--convert", "L"}, 2}};
  for (const auto& run : runs) {
    std::ostringstream out, err;
    CliEnvironment env{out, err, in, false, t.clock, t.disk, "%m/%d/%y", ""};
    std::vector<std::string> args = base;
    args.insert(args.end(), run.args.begin(), run.args.end());
    for (const std::string& a : {std::string("--db"), db, std::string("--pdf"), pdf.string(),
                                 std::string("--athlete"), std::string("1")}) {
      args.push_back(a);
    }
    EXPECT_EQ(RunCli(args, env), run.status) << run.args[0] << err.str();
    if (run.status == 0 && system("pdftotext -v >/dev/null 2>&1") == 0) {
      const std::string text = PdfText(pdf);
      EXPECT_NE(text.find("LL (Convert to LC, Show LC)"), std::string::npos);
      EXPECT_NE(text.find("4:30.00L"), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace kvlr
