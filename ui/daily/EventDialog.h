#pragma once
// `frmKVLEVENT`: one calendar event's type, date, start and end time and comment. OK saves
// through SaveEvent; refused, the box to correct gets the focus and the dialog stays.

#include <QDialog>

#include "core/AppState.h"
#include "daily/Calendar.h"

class QComboBox;
class QDateEdit;
class QLineEdit;

namespace kvlr {

class frmKVLEVENT final : public QDialog {
  Q_OBJECT
 public:
  frmKVLEVENT(AppState& state, const CalendarEventForm& form, QWidget* parent = nullptr);
  CalendarEventForm Form() const;
  // True (and accepted) when saved.
  bool Save();
  int64_t SavedId() const { return saved_id_; }

 private:
  AppState& state_;
  CalendarEventForm form_;
  int64_t saved_id_ = 0;
  QComboBox* type_;
  QDateEdit* date_;
  QLineEdit* start_;
  QLineEdit* end_;
  QLineEdit* comment_;
};

}  // namespace kvlr
