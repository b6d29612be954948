#pragma once
// `frmCalendar`: the swimmer's year, month and day at once, the selector "Show:", the add menu
// (also on a right click on a day), edit, delete, print of the month.

#include <optional>

#include <QDialog>

#include "core/AppState.h"
#include "daily/Calendar.h"

class QComboBox;
class QMenu;

namespace kvlr {

class DayView;
class MonthView;
class YearView;

class frmCalendar final : public QDialog {
  Q_OBJECT
 public:
  explicit frmCalendar(AppState& state, QWidget* parent = nullptr);

  void ShowDate(const Date& date);
  // The commands.
  void Add(int type);
  void Edit();
  void Delete();
  void Print();

  MonthView* Month() const { return month_; }
  DayView* Day() const { return day_; }

 private:
  void LoadMarks();
  void LoadDayView();
  void Moved(int64_t id, int start, int end);
  void EditEvent(const CalendarEvent& event);

  AppState& state_;
  Date date_;
  std::optional<TimeSpan> chosen_;
  QComboBox* show_;
  QMenu* add_menu_;
  YearView* year_;
  MonthView* month_;
  DayView* day_;
};

}  // namespace kvlr
