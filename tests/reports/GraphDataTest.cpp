#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "meets/ResultsFixture.h"
#include "reports/GraphData.h"

namespace kvlr {
namespace {

class GraphDataTest : public ::testing::Test {
 protected:
  void SetUp() override {
    s.Athlete(1, "Lane", "F");
    s.Athlete(2, "Brook", "F");
    s.Meet(1, "Autumn Open", "2025-10-04", "AG", "Y");
    s.Meet(2, "Winter Champs", "2026-02-14", "HS", "Y");
    s.Meet(3, "Spring Splash", "2026-04-11", "AG", "Y");
    Swim(1, "I", "F", 6400);
    Swim(2, "I", "F", 6100);
    Swim(2, "I", "P", 6300);  // same day: before the final
    Swim(3, "L", "F", 6000);  // a lead-off counts with the swims
    Swim(3, "N", "F", 5900);
    Swim(3, "I", "P", 0, 5);  // a DQ has no time
    Swim(3, "I", "S", 6200, 0, "L");
    Swim(3, "I", "T", 6250, 0, "Y", 2);
  }
  void Swim(int meet, std::string i_r, std::string f_p, int score, int nt = 0,
            std::string course = "Y", int athlete = 1) {
    test::Season::Swim w;
    w.meet = meet;
    w.event = s.Event(meet, ++event_, 100, 1, i_r == "I" ? "I" : "R");
    w.athlete = athlete;
    w.i_r = std::move(i_r);
    w.f_p = std::move(f_p);
    w.score = score;
    w.nt = nt;
    w.course = std::move(course);
    s.Result(w);
  }
  GraphData Graph(GraphResultsRequest r) {
    r.athlete = r.athlete ? r.athlete : 1;
    return GraphResults(*t.state.gDb, r, 0);
  }
  static std::vector<double> Values(const GraphData& d) {
    std::vector<double> v;
    for (const auto& p : d.series.at(0).points) v.push_back(p.value);
    return v;
  }
  test::TempHome t;
  test::OpenedDatabase open_{t};
  test::Season s{*t.state.gDb};
  int event_ = 0;
};

TEST_F(GraphDataTest, SwimsInDateOrderPrelimsFirstWithoutDqsOtherSwimmersOrCourses) {
  GraphData d = Graph({.course = "Y"});
  ASSERT_TRUE(d.Drawable());
  EXPECT_EQ(Values(d), (std::vector<double>{6400, 6300, 6100, 6000}));
  const GraphPoint& p = d.series[0].points[1];
  EXPECT_EQ(p.label, "02/14/2026");
  EXPECT_EQ(p.tip, "Winter Champs");
  EXPECT_EQ(p.slot, 1);
  EXPECT_EQ(d.series[0].name, "Results");
  EXPECT_EQ(d.heading, "Meet Type: All");
  EXPECT_EQ(d.range, "10/04/2025 to 04/11/2026");
  EXPECT_TRUE(d.messages.empty());
  EXPECT_EQ(Values(Graph({.course = "Y", .all_relay_legs = true})).size(), 5u);
  EXPECT_EQ(Values(Graph({})).size(), 5u);  // every course
  EXPECT_EQ(Values(Graph({.meet_type = "AG"})), (std::vector<double>{6400, 6200, 6000}));
  EXPECT_EQ(GraphValueText(d, 6130), "1:01.30");
}

TEST_F(GraphDataTest, TooFewSinceTheStartDateDrawsAllAndTooFewInAllDrawsNothing) {
  GraphData all = Graph({.course = "Y", .since = Date{2026, 4, 1}});
  EXPECT_TRUE(all.since_cleared);
  EXPECT_EQ(all.messages, std::vector<std::string>{std::string(graphtext::kNotEnoughInRange)});
  EXPECT_EQ(Values(all).size(), 4u);
  EXPECT_FALSE(Graph({.course = "Y", .since = Date{2026, 2, 1}}).since_cleared);
  GraphData two = Graph({.athlete = 2});
  EXPECT_FALSE(two.Drawable());
  EXPECT_EQ(two.messages.back(), graphtext::kNeedTwoResults);
  Swim(1, "I", "F", 6500, 0, "Y", 2);
  EXPECT_EQ(Values(Graph({.athlete = 2})).size(), 2u);
}

TEST_F(GraphDataTest, HealthDrawsEachChosenMeasureOverTheRecordsInRange) {
  SQLite::Database& db = *t.state.gDb;
  auto record = [&db](int id, const char* date, const char* start, double hr, double weight) {
    SQLite::Statement e(db,
                        "INSERT INTO tblEvents (ID, Athlete, DATE, Type, StartTime) "
                        "VALUES (?, 1, ?, 6, ?)");
    SQLite::bind(e, id, date, start);
    e.exec();
    SQLite::Statement h(db,
                        "INSERT INTO tblHealth (ID, Athlete, DATE, HR, WEIGHT) "
                        "VALUES (?, 1, ?, ?, ?)");
    SQLite::bind(h, id, date, hr, weight);
    h.exec();
  };
  record(1, "2026-03-02", "1899-12-30 09:00:00", 58, 101.5);
  record(2, "2026-03-02", "1899-12-30 07:00:00", 0, 102);
  record(3, "2026-03-05", "1899-12-30 07:00:00", 61, 0);
  record(4, "2026-04-01", "1899-12-30 07:00:00", 0, 0);
  GraphHealthRequest r{.athlete = 1, .heart_rate = true, .weight = true};
  GraphData d = GraphHealth(db, r, 0);
  ASSERT_EQ(d.series.size(), 2u);
  EXPECT_EQ(d.series[0].name, "Heart Rate");
  EXPECT_EQ(d.series[0].unit, "Hr");
  EXPECT_EQ(d.series[1].unit, "lbs");
  EXPECT_EQ(d.slot_labels.size(), 3u);  // record 4 has neither measure
  ASSERT_EQ(d.series[0].points.size(), 2u);
  EXPECT_EQ(d.series[0].points[0].slot, 1);  // 07:00 comes first on its day
  EXPECT_EQ(d.series[1].points[0].value, 102);
  EXPECT_EQ(GraphValueText(d, 101.5), "101.5");
  r.until = Date{2026, 3, 4};
  EXPECT_EQ(GraphHealth(db, r, 0).series[0].points.size(), 1u);
  r.from = Date{2026, 3, 3};
  EXPECT_EQ(GraphHealth(db, r, 0).messages.back(), graphtext::kNeedTwoEntries);
  EXPECT_EQ(GraphHealth(db, {.athlete = 1}, 0).messages.back(), graphtext::kNoHealthItem);
}

}  // namespace
}  // namespace kvlr
