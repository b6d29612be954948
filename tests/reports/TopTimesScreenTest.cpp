#include <gtest/gtest.h>

#include "meets/ResultsFixture.h"
#include "reports/TopTimes.h"
#include "reports/TopTimesScreen.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

// A memorized request set on the screen comes back unchanged, so a run from the list prints
// what was memorized.
TEST(TopTimesScreen, SettingsComeBackAsTheyWereSet) {
  test::QtApp();
  test::TempHome t;
  test::OpenedDatabase opened{t};
  test::Season s{*t.state.gDb};
  s.Athlete(1, "Lane", "F");
  s.Meet(4, "Autumn Open", "2026-10-03");
  frmRptTopTimes screen(t.state);
  ReportRequest r;
  for (int course : {0, 4, 8}) {
    SetTopTimesCourse(r, course);
    r.split_mode = course == 4 ? 3 : 2;
    r.since = course == 4 ? std::optional(Date{2026, 1, 2}) : std::nullopt;
    r.top.round = course == 8 ? "P" : "F";
    r.top.stroke = 2;
    r.top.distance = course == 8 ? 1650 : 200;
    r.top.improve = static_cast<TopTimesOptions::Improve>(course / 3 + 1);
    r.top.baseline_before_since = r.top.current_age = course == 4;
    r.top.top_n = course;
    r.top.lead_offs = r.top.goals = course != 4;
    screen.SetRequest(r);
    const ReportRequest back = screen.Request();
    EXPECT_EQ(TopTimesCourseIndex(back), course);
    EXPECT_EQ(std::tuple(back.split_mode, back.since, back.top.round, back.top.stroke,
                         back.top.distance, back.top.improve, back.top.baseline_before_since,
                         back.top.current_age, back.top.top_n, back.top.lead_offs, back.top.goals),
              std::tuple(r.split_mode, r.since, r.top.round, r.top.stroke, r.top.distance,
                         r.top.improve, r.top.baseline_before_since, r.top.current_age,
                         r.top.top_n, r.top.lead_offs, r.top.goals))
        << course;
  }
  EXPECT_EQ(screen.Kind(), "top-times");
  test::Shoot(screen, "frmRptTopTimes");
}

}  // namespace
}  // namespace kvlr
