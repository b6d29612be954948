#include "meets/ReRankScreen.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>

#include "meets/ResultRows.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

TEST(ReRankScreen, ShownWithASelectionItRanksAndClosesItself) {
  test::QtApp();
  test::TempHome t;
  test::MakeOpenDatabase(t);
  test::ResultTable results(*t.state.gDb);
  results.AddAthlete(1, "Lane");
  results.AddMeet(1, "2025-01-10", "AG");
  results.AddMeet(2, "2025-06-01", "HS");
  test::ResultRow r;
  r.score = 6000;
  const int64_t early = results.Add(r);
  r.meet = 2;
  r.score = 6100;
  const int64_t late = results.Add(r);
  r.score = 5900;
  r.f_p = "P";
  const int64_t prelim = results.Add(r);

  frmReRank screen(t.state);
  screen.SetSelection({.since = {2025, 6, 1}, .f_p = "F"});
  auto* words = screen.findChild<QLabel*>("lblWait");
  auto* bar = screen.findChild<QProgressBar*>("SSPProgress");
  ASSERT_TRUE(words && bar);
  EXPECT_EQ(words->text(), "Ranking Top Times for Selected Dates/Meet Type.  Please Wait......");
  EXPECT_TRUE(bar->text().startsWith("Adjusting for Since Date"));

  screen.show();
  QElapsedTimer clock;
  clock.start();
  while (screen.isVisible() && clock.elapsed() < 5000) QApplication::processEvents();
  EXPECT_FALSE(screen.isVisible());
  EXPECT_TRUE(screen.Succeeded());
  EXPECT_EQ(screen.result(), QDialog::Accepted);
  EXPECT_EQ(bar->value(), 100);
  EXPECT_EQ(results.Ranks({early, late, prelim}, "TRANK"),
            (test::Ranks{std::nullopt, 1, std::nullopt}));
  EXPECT_EQ(t.state.io, &t.io);  // the program's own user is back
}

}  // namespace
}  // namespace kvlr
