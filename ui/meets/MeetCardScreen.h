#pragma once
// `frmMeetMaint`: adds or edits one meet. Save runs the card's checks and questions; a saved
// card closes with Accepted and tells the key of the meet.

#include <QDialog>

#include "core/AppState.h"
#include "meets/Meets.h"

class QComboBox;
class QLineEdit;

namespace kvlr {

class frmMeetMaint final : public QDialog {
  Q_OBJECT
 public:
  // `meet` 0 adds a meet.
  frmMeetMaint(AppState& state, int32_t meet, QWidget* parent = nullptr);

  // The card as typed.
  MeetForm Form() const;
  // Saves; true (and the dialog accepted) when saved.
  bool Save();
  int32_t SavedMeet() const { return saved_meet_; }

 private:
  void Fill(const MeetForm& form);

  AppState& state_;
  int32_t meet_;
  int32_t saved_meet_ = 0;
  QLineEdit* name_ = nullptr;
  QComboBox* course_ = nullptr;
  QLineEdit* start_ = nullptr;
  QLineEdit* end_ = nullptr;
  QLineEdit* age_up_ = nullptr;
  QLineEdit* since_ = nullptr;
  QLineEdit* location_ = nullptr;
  QLineEdit* remarks_ = nullptr;
  QComboBox* type_ = nullptr;
};

}  // namespace kvlr
