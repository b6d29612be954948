#pragma once
// The three views of frmCalendar, drawn by hand: a month grid and a year of small months with
// a mark per day, and the day as quarter-hour lines with the events as blocks that can be
// dragged and resized on the 15-minute grid. They hold what they show and change nothing in
// the store; the screen reacts to their signals.

#include <map>
#include <optional>
#include <vector>

#include <QWidget>

#include "core/Date.h"
#include "daily/Calendar.h"

namespace kvlr {

// The colour of a type's mark, kEventMultiple included.
QColor EventColor(int type);
// The mark's words: the type's text, "Multi" for more than one type.
QString MarkText(int type);

class MonthView final : public QWidget {
  Q_OBJECT
 public:
  explicit MonthView(QWidget* parent = nullptr);
  void SetMonth(int year, int month, std::map<Date, int> marks);
  void SetSelected(const Date& date);
  const Date& Selected() const { return selected_; }
  // The day drawn at `pos`; nullopt outside the month's cells.
  std::optional<Date> DateAt(QPoint pos) const;
  QSize sizeHint() const override { return {460, 330}; }

 signals:
  void dateChosen(const kvlr::Date& date);
  void dateMenu(const kvlr::Date& date, QPoint global);

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QRectF CellRect(int index) const;
  int year_ = 2000, month_ = 1;
  Date selected_;
  std::map<Date, int> marks_;
};

class YearView final : public QWidget {
  Q_OBJECT
 public:
  explicit YearView(QWidget* parent = nullptr);
  // Twelve months from `first` (year, month); marks of all of them.
  void SetYear(int year, int month, std::map<Date, int> marks);
  QSize sizeHint() const override { return {300, 330}; }

 signals:
  void dateChosen(const kvlr::Date& date);

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  std::optional<Date> DateAt(QPoint pos) const;
  int year_ = 2000, month_ = 1;
  std::map<Date, int> marks_;
};

class DayView final : public QWidget {
  Q_OBJECT
 public:
  explicit DayView(QWidget* parent = nullptr);
  void SetDay(const Date& date, std::vector<CalendarEvent> events, bool clock24);
  const std::vector<CalendarEvent>& Events() const { return events_; }
  // The event selected, nullptr when none.
  const CalendarEvent* Selected() const;
  // Where a block is drawn, for tests that drag it.
  QRect BlockRect(int64_t id) const;
  // The y of a minute of the day.
  int YOf(int minutes) const;
  static constexpr int kLineHeight = 16;
  static constexpr int kGutter = 64;
  QSize sizeHint() const override;

 signals:
  // A block dragged or resized to new times, already snapped.
  void blockMoved(int64_t id, int start, int end);
  void timeChosen(int start);
  void blockOpened(int64_t id);

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  int MinuteAt(int y) const;
  void Layout();
  Date date_;
  std::vector<CalendarEvent> events_;
  std::vector<QRect> rects_;
  bool clock24_ = false;
  int selected_ = -1;
  enum class Drag { kNone, kMove, kResize } drag_ = Drag::kNone;
  int press_y_ = 0;
  int drag_start_ = 0, drag_end_ = 0;
};

}  // namespace kvlr
