#pragma once
// "Time Calculator": sum, difference and average of two typed times. Stays on top of the
// window it is opened beside.

#include <QDialog>

#include "standards/TimeCalculator.h"

class QLineEdit;

namespace kvlr {

class frmCalc final : public QDialog {
  Q_OBJECT
 public:
  explicit frmCalc(QWidget* parent = nullptr);

 protected:
  // Enter in any box moves to the next one.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LeaveTime(QLineEdit* box);
  void ShowResults();

  TimeCalculator calc_;
  QLineEdit* time1_ = nullptr;
  QLineEdit* time2_ = nullptr;
  QLineEdit* sum_ = nullptr;
  QLineEdit* difference_ = nullptr;
  QLineEdit* divide_by_ = nullptr;
  QLineEdit* average_ = nullptr;
};

}  // namespace kvlr
