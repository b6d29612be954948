#include "standards/CalcScreen.h"

#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace kvlr {

frmCalc::frmCalc(QWidget* parent) : QDialog(parent) {
  setObjectName("frmCalc");
  setWindowTitle(tr("Time Calculator"));
  setWindowFlag(Qt::WindowStaysOnTopHint);

  // Padded times line up in a fixed-pitch font.
  const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  auto* form = new QFormLayout;
  auto add = [&](QLineEdit*& box, const char* name, const QString& caption, bool read_only) {
    box = new QLineEdit(this);
    box->setObjectName(name);
    box->setReadOnly(read_only);
    box->setFont(fixed);
    box->setMinimumWidth(120);
    box->installEventFilter(this);
    form->addRow(caption, box);
  };
  add(time1_, "txtTime1", tr("Time 1"), false);
  add(time2_, "txtTime2", tr("Time 2"), false);
  add(sum_, "txtSum", tr("Sum"), true);
  add(difference_, "txtDifference", tr("Difference"), true);
  add(divide_by_, "txtDivideBy", tr("Divide by"), false);
  add(average_, "txtAverage", tr("Average"), true);
  divide_by_->setValidator(new QRegularExpressionValidator(QRegularExpression(R"(\d{0,4})"), this));
  divide_by_->setText("1");

  auto* close = new QPushButton(tr("&Close"), this);
  close->setObjectName("cmdClose");
  close->setAutoDefault(false);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(close);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addLayout(buttons);

  connect(time1_, &QLineEdit::editingFinished, this, [this] { LeaveTime(time1_); });
  connect(time2_, &QLineEdit::editingFinished, this, [this] { LeaveTime(time2_); });
  connect(divide_by_, &QLineEdit::textChanged, this, [this](const QString& text) {
    calc_.SetDivideBy(text.toStdString());
    ShowResults();
  });
  connect(divide_by_, &QLineEdit::editingFinished, this, [this] {
    const QString text =
        QString::fromStdString(calc_.LeaveDivideBy(divide_by_->text().toStdString()));
    if (text != divide_by_->text()) divide_by_->setText(text);
    ShowResults();
  });
  connect(close, &QPushButton::clicked, this, &QDialog::close);
}

void frmCalc::LeaveTime(QLineEdit* box) {
  std::string text = box->text().toStdString();
  if (box == time1_) {
    calc_.LeaveTime1(text);
  } else {
    calc_.LeaveTime2(text);
  }
  box->setText(QString::fromStdString(text));
  ShowResults();
}

void frmCalc::ShowResults() {
  sum_->setText(QString::fromStdString(calc_.SumText()));
  difference_->setText(QString::fromStdString(calc_.DifferenceText()));
  average_->setText(QString::fromStdString(calc_.AverageText()));
}

bool frmCalc::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && qobject_cast<QLineEdit*>(watched)) {
      // Leaving by Enter must count as leaving, whether or not focus can move.
      emit static_cast<QLineEdit*>(watched)->editingFinished();
      focusNextChild();
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace kvlr
