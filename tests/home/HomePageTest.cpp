#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QTableView>

#include "../meets/ResultsFixture.h"
#include "../standards/StandardFixture.h"
#include "athletes/CurrentAthlete.h"
#include "home/HomeScreen.h"
#include "support/QtApp.h"

namespace kvlr {
namespace {

std::string Rows(const HomeTable& table) {
  std::string out = table.title + "\n";
  for (const auto& row : table.rows) {
    for (const auto& cell : row) out += cell + "|";
    out += "\n";
  }
  return out;
}

// A girl of 12 on the fixed day (2026-11-22): a yards meet, two short-course meets, a meet
// ahead with one entry, a short-course goal, and a standard with two short-course levels.
class HomePageTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SQLite::Database& db = *t.state.gDb;
    test::Season s(db);
    s.Athlete(1, "Fin", "F", "2014-03-01");
    s.Athlete(2, "Fin", "M", "2016-05-05");
    s.Meet(1, "Fall Yards", "2026-09-01", "AG", "Y");
    s.Meet(2, "Autumn Open", "2026-10-10", "AG", "S");
    s.Meet(3, "Winter Cup", "2026-11-15", "AG", "S");
    s.Meet(4, "December Invite", "2026-12-05", "AG", "Y");
    s.Result({.meet = 1, .event = 1, .score = 6100});
    s.Result({.meet = 2, .event = 2, .course = "S", .score = 7000, .rank = 2});
    s.Result({.meet = 3, .event = 3, .course = "S", .score = 6800, .place = 3});
    s.Result({.meet = 3, .event = 4, .distance = 50, .stroke = 2, .course = "S", .score = 3500});
    // The brother's faster swim stays off his sister's page.
    s.Result({.meet = 3, .event = 3, .athlete = 2, .course = "S", .score = 6000});
    s.Result({.meet = 9, .athlete = 1, .i_r = "G", .course = "S", .score = 6700, .rank = -1});
    SQLite::Statement event(db,
                            "INSERT INTO MTEVENTE (Meet, MtEv, MtEvX, Distance, Stroke, Sex, I_R,"
                            " Course) VALUES (4, 3, 'A', 100, 1, 'F', 'I', 'Y')");
    event.exec();
    SQLite::Statement entry(db,
                            "INSERT INTO ENTRY (Meet, Athlete, I_R, Course, Score, MtEvent) "
                            "VALUES (4, 1, 'I', 'Y', 6050, ?)");
    entry.bind(1, static_cast<int64_t>(db.getLastInsertRowid()));
    entry.exec();
    test::MakeStandard(db, "JO", {"A", "B"});
    test::AddLine(db, "JO", "F", "I", 11, 12, 100, 1, {{'S', 0, 6500}, {'S', 1, 7200}});
    ASSERT_TRUE(MakeCurrentStandard(t.state, "JO"));
    ASSERT_TRUE(SetCurrentAthlete(t.state, 1));
  }

  test::TempHome t;
  test::OpenedDatabase opened{t};
};

TEST_F(HomePageTest, TablesSayBestsLevelsChangesEntriesAndGoals) {
  const HomePage page = FillHomePage(t.state, t.clock.Today(), 'S');
  const auto tables = HomeTables(page, [](const Date& d) { return d.Iso(); });
  ASSERT_EQ(tables.size(), 4u);
  // The yards swim converts faster than the short-course one and carries the mark.
  EXPECT_EQ(Rows(tables[0]),
            "Best Times\n"
            "100 Free|1:01.00||1:08.00  B|A 1:05.00 (-3.00)|||1:07.71'|\n"
            "50 Back|||35.00||||35.00|\n");
  EXPECT_EQ(Rows(tables[1]),
            "Last Meet: Winter Cup, 2026-11-15\n"
            "100 Free|1:08.00|3|1:10.00|-2.00|B|\n"
            "50 Back|35.00|||First swim||\n");
  EXPECT_EQ(tables[1].good, (std::vector<bool>{true, false}));
  EXPECT_EQ(Rows(tables[2]), "Next Meet: December Invite, 2026-12-05\n3A|100 Free|1:00.50|\n");
  EXPECT_EQ(Rows(tables[3]), "Goals\nSCM|100 Free|1:07.00|1:08.00|1.00|\n");
}

TEST_F(HomePageTest, RowsLeadToTheirScreensAndAnEmptyTableToItsCommand) {
  test::QtApp();
  frmHome home(t.state);
  QAbstractItemModelTester tester(&home.Model(0));
  std::vector<HomeLink> opened;
  home.SetOpen([&opened](const HomeLink& link) { opened.push_back(link); });
  home.Refresh();
  home.Activate(3, 0);
  ASSERT_EQ(opened.size(), 1u);
  EXPECT_EQ(opened[0].target, HomeTarget::kGoals);
  EXPECT_EQ(opened[0].course, 'S');

  // The brother has no goals: that table says how to set them, on one row across the grid.
  ASSERT_TRUE(SetCurrentAthlete(t.state, 2));
  home.Refresh();
  EXPECT_EQ(home.Model(3).rowCount(), 1);
  EXPECT_EQ(home.View(3).columnSpan(0, 0), home.Model(3).columnCount());
  home.Activate(3, 0);
  EXPECT_EQ(opened.back().target, HomeTarget::kGoals);
}

}  // namespace
}  // namespace kvlr
