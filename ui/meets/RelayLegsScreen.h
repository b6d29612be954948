#pragma once
// frmRelayLegs, "Save Relay Split as Individual Result": a swimmer's leg of one of the
// meet's relays, saved as the swimmer's result.

#include <array>
#include <string>
#include <vector>

#include <QDialog>

#include "core/AppState.h"
#include "meets/RelayLegs.h"

class QComboBox;
class QLineEdit;
class QRadioButton;

namespace kvlr {

class frmRelayLegs final : public QDialog {
  Q_OBJECT
 public:
  frmRelayLegs(AppState& state, int32_t meet, int32_t athlete, const std::string& sex,
               QWidget* parent = nullptr);

  // Chooses relay `index` of the list: sets the stroke buttons.
  void ChooseRelay(int index);
  // The checks and the save; the screen closes when saved.
  RelayLegOutcome Save();

  QComboBox& Relays() { return *relays_; }
  QLineEdit& Time() { return *time_; }
  QRadioButton& LeadOff() { return *lead_off_; }
  QRadioButton& NonLead() { return *non_lead_; }
  QRadioButton& Final() { return *final_; }
  QRadioButton& Prelim() { return *prelim_; }
  QRadioButton& StrokeButton(int stroke) { return *strokes_.at(static_cast<size_t>(stroke - 1)); }

 signals:
  void saved();

 private:
  void TimeEdited(const QString& text);

  AppState& state_;
  int32_t meet_;
  int32_t athlete_;
  std::vector<RelayChoice> choices_;
  QComboBox* relays_ = nullptr;
  QLineEdit* time_ = nullptr;
  QRadioButton* lead_off_ = nullptr;
  QRadioButton* non_lead_ = nullptr;
  QRadioButton* final_ = nullptr;
  QRadioButton* prelim_ = nullptr;
  std::array<QRadioButton*, 4> strokes_{};
  QString last_good_time_;
};

}  // namespace kvlr
