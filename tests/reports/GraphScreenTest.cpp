#include <gtest/gtest.h>

#include <QBarSeries>
#include <QBarSet>
#include <QComboBox>
#include <QLineSeries>

#include "meets/ResultsFixture.h"
#include "reports/GraphScreen.h"
#include "support/QtApp.h"

namespace kvlr {
namespace {

TEST(GraphScreen, DrawsAsksForARefreshAfterAFilterChangesAndShowsAPointsDetails) {
  test::QtApp();
  test::TempHome t;
  test::OpenedDatabase open(t);
  test::Season s(*t.state.gDb);
  s.Athlete(1, "Lane", "F");
  const char* starts[] = {"2025-10-04", "2026-01-17", "2026-02-14"};
  for (int meet = 1; meet <= 3; ++meet) {
    s.Meet(meet, "Meet " + std::to_string(meet), starts[meet - 1]);
    test::Season::Swim w;
    w.meet = meet;
    w.event = s.Event(meet, 1, 100, 1);
    w.score = 6600 - meet * 150;
    s.Result(w);
  }
  t.state.gAthlete = 1;
  frmGraph screen(t.state);
  ASSERT_TRUE(screen.Refresh());
  EXPECT_TRUE(screen.StatusText().startsWith(QString(graphtext::kClickPoint.data())));
  ASSERT_EQ(screen.Chart()->series().size(), 1);
  auto* stroke = screen.findChild<QComboBox*>("cboStroke");
  stroke->setCurrentIndex(stroke->findData(2));
  EXPECT_EQ(screen.StatusText(), QString(graphtext::kNeedsRefresh.data()));
  EXPECT_FALSE(screen.Refresh());
  EXPECT_EQ(t.io.shown.back().text, graphtext::kNeedTwoResults);
  EXPECT_TRUE(screen.Chart()->series().isEmpty());
  stroke->setCurrentIndex(stroke->findData(1));
  screen.Refresh();
  screen.SetKind(GraphKind::kBar);
  EXPECT_TRUE(screen.StatusText().startsWith(QString(graphtext::kClickBar.data())));
  auto* bars = qobject_cast<QBarSeries*>(screen.Chart()->series().at(0));
  ASSERT_NE(bars, nullptr);
  emit bars->barSets().at(0)->clicked(1);
  EXPECT_TRUE(screen.DetailsText().startsWith("01/17/2026  Meet 2  1:03.00"))
      << screen.DetailsText().toStdString();
  screen.SetDepth(true);
  EXPECT_TRUE(screen.StatusText().endsWith(QString(graphtext::kRotateHint.data())));
  test::Shoot(screen, "frmGraph");
}

}  // namespace
}  // namespace kvlr
