#pragma once
// `frmKVLEVENTHealth` ("Health Record"): the four measures, the date, start and end time and
// the comment of one health record; Save goes through SaveHealth.

#include <QDialog>

#include "core/AppState.h"
#include "daily/Health.h"

class QDateEdit;
class QLineEdit;

namespace kvlr {

class frmKVLEVENTHealth final : public QDialog {
  Q_OBJECT
 public:
  frmKVLEVENTHealth(AppState& state, const HealthForm& form, QWidget* parent = nullptr);
  HealthForm Form() const;
  bool Save();

 private:
  AppState& state_;
  HealthForm form_;
  QLineEdit *hr_, *sleep_, *weight_, *wellness_, *start_, *end_, *comment_;
  QDateEdit* date_;
};

// `ShowHealthRecord`: the dialog on record `id` (0 for a new one dated today); true when saved.
bool ShowHealthRecord(AppState& state, int64_t id, QWidget* parent);

}  // namespace kvlr
