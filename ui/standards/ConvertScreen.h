#pragma once
// "Course Conversion Setup": the conversion factors of the open database.

#include <array>

#include <QDialog>

#include "core/AppState.h"
#include "standards/ConversionSettings.h"

class QLineEdit;
class QRadioButton;

namespace kvlr {

class frmConvt final : public QDialog {
  Q_OBJECT
 public:
  // Reads OPTIONS of state.gDb (the state's own values when no database is open).
  explicit frmConvt(AppState& state, QWidget* parent = nullptr);

  // The rule of the Straight box, as leaving it runs it.
  void CheckStraightBox();
  // Writes the boxes (see SaveConversionSettings) and closes as accepted; a failure is
  // reported as "frmConvt.cmdSave_Click" and keeps the screen open. True if saved.
  bool Save();

 private:
  void BuildLayout();
  void Show(const ConversionSettings& settings);
  ConversionSettings FromBoxes() const;

  AppState& state_;
  std::array<QLineEdit*, 9> boxes_{};  // by factor slot
  QRadioButton* y2l_ = nullptr;
  QRadioButton* l2s_ = nullptr;
};

}  // namespace kvlr
