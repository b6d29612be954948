// Blocks of the day view dragged and resized with the mouse land on the 15-minute grid and
// are written back.

#include <QTest>

#include <SQLiteCpp/Statement.h>

#include "daily/CalendarScreen.h"
#include "daily/CalendarViews.h"
#include "support/DbTest.h"
#include "support/QtApp.h"

namespace kvlr {
namespace {

class CalendarDragTest : public test::DbTest {
 protected:
  CalendarDragTest() {
    test::QtApp();
    t.state.gAthlete = test::AddAthlete(Db(), "Lane", "Robin");
    Db().exec("INSERT INTO tblEvents (Athlete, DATE, Type, StartTime, EndTime, Comment) VALUES "
              "(1, '2026-11-22', 4, '1899-12-30 09:00:00', '1899-12-30 10:00:00', 'Coach')");
  }
};

TEST_F(CalendarDragTest, DragAndResizeSnapToQuarterHours) {
  frmCalendar screen(t.state);
  test::Shoot(screen, "frmCalendar");
  DayView* day = screen.Day();
  const struct {
    int from_dy;  // where in the block the press is, from its top (-1: on its bottom edge)
    int dy;       // how far the mouse goes
    const char* rows;
  } cases[] = {
      {4, 2 * DayView::kLineHeight + 5, "1899-12-30 09:30:00|1899-12-30 10:30:00\n"},
      {4, -DayView::kLineHeight + 2, "1899-12-30 09:15:00|1899-12-30 10:15:00\n"},
      {-1, 3 * DayView::kLineHeight, "1899-12-30 09:15:00|1899-12-30 11:00:00\n"},
  };
  for (const auto& c : cases) {
    const QRect block = day->BlockRect(1);
    ASSERT_FALSE(block.isEmpty());
    const QPoint from(block.center().x(), c.from_dy < 0 ? block.bottom() - 1 : block.top() + c.from_dy);
    QTest::mousePress(day, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, from + QPoint(0, c.dy), day->mapToGlobal(from + QPoint(0, c.dy)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(day, &move);
    QTest::mouseRelease(day, Qt::LeftButton, {}, from + QPoint(0, c.dy));
    EXPECT_EQ(Rows("SELECT StartTime, EndTime FROM tblEvents"), c.rows) << c.dy;
  }
}

}  // namespace
}  // namespace kvlr
