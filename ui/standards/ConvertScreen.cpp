#include "standards/ConvertScreen.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "standards/Conversion.h"

namespace kvlr {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QLabel* Help(std::string_view text, QWidget* parent) {
  auto* label = new QLabel(Q(text), parent);
  label->setWordWrap(true);
  return label;
}

// Box names by factor slot.
constexpr std::array<const char*, 9> kBoxNames = {"txtCvtFactor",  "txtFreeTurn", "txtBackTurn",
                                                  "txtBreastTurn", "txtFlyTurn",  "txtIMTurn",
                                                  "txtStraight",   "txtCvt500",   "txtCvt1650"};
constexpr std::array<const char*, 5> kTurnCaptions = {"Free", "Back", "Breast", "Fly", "IM"};

}  // namespace

frmConvt::frmConvt(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmConvt");
  setWindowTitle(Q(kConvertTitle));
  BuildLayout();
  if (state_.gDb) {
    Show(ReadConversionSettings(*state_.gDb));
  } else {
    ConversionSettings settings;
    for (size_t i = 0; i < settings.factors.size(); ++i)
      settings.factors[i] = state_.gCvtFactors[i];
    settings.y2l = state_.gY2L;
    Show(settings);
  }
}

void frmConvt::BuildLayout() {
  // Factors are never negative; the straight rule relies on that.
  auto* number = new QRegularExpressionValidator(QRegularExpression(R"(\d*\.?\d*)"), this);
  for (size_t i = 0; i < boxes_.size(); ++i) {
    boxes_[i] = new QLineEdit(this);
    boxes_[i]->setObjectName(kBoxNames[i]);
    boxes_[i]->setValidator(number);
    boxes_[i]->setMaximumWidth(80);
  }

  auto* yards = new QGroupBox(Q(kYardsGroup), this);
  auto* yards_layout = new QHBoxLayout(yards);
  yards_layout->addWidget(new QLabel(tr("Factor"), yards));
  yards_layout->addWidget(boxes_[cvt::kYardsToShort]);
  yards_layout->addSpacing(12);
  yards_layout->addWidget(Help(kYardsHelp, yards), 1);

  auto* turns = new QGroupBox(Q(kTurnGroup), this);
  auto* turn_boxes = new QGridLayout;
  for (int i = 0; i < 5; ++i) {
    turn_boxes->addWidget(new QLabel(tr(kTurnCaptions[static_cast<size_t>(i)]), turns), i, 0);
    turn_boxes->addWidget(boxes_[static_cast<size_t>(i + 1)], i, 1);
  }
  turn_boxes->addWidget(new QLabel(tr("Straight"), turns), 5, 0);
  turn_boxes->addWidget(boxes_[cvt::kStraight], 5, 1);
  turn_boxes->addWidget(new QLabel(Q(kStraightHelp), turns), 5, 2);
  auto* example = new QVBoxLayout;
  for (std::string_view line : kTurnExample) example->addWidget(new QLabel(Q(line), turns));
  example->addStretch(1);
  turn_boxes->addLayout(example, 0, 2, 5, 1);
  turn_boxes->setColumnStretch(2, 1);
  turn_boxes->setHorizontalSpacing(12);
  auto* turns_layout = new QVBoxLayout(turns);
  turns_layout->addWidget(Help(kTurnHelp, turns));
  turns_layout->addLayout(turn_boxes);

  auto* long_events = new QGroupBox(Q(kLongGroup), this);
  auto* long_layout = new QGridLayout(long_events);
  long_layout->addWidget(new QLabel(Q(kCvt500Caption), long_events), 0, 0);
  long_layout->addWidget(boxes_[cvt::kCvt500], 0, 1);
  long_layout->addWidget(new QLabel(Q(kCvt500Typical), long_events), 0, 2);
  long_layout->addWidget(new QLabel(Q(kCvt1650Caption), long_events), 1, 0);
  long_layout->addWidget(boxes_[cvt::kCvt1650], 1, 1);
  long_layout->addWidget(new QLabel(Q(kCvt1650Typical), long_events), 1, 2);
  long_layout->addWidget(new QLabel(Q(kLongToMeters), long_events), 2, 0, 1, 3);
  long_layout->addWidget(new QLabel(Q(kLongToYards), long_events), 3, 0, 1, 3);
  long_layout->addWidget(
      Help("500, 1000 and 1650 Yards: " + std::string(kLongOrder) + ".", long_events), 4, 0, 1, 3);
  long_layout->setColumnStretch(2, 1);

  auto* results = new QGroupBox(tr("Results Browser Conversion"), this);
  y2l_ = new QRadioButton(Q(kLcToYards), results);
  y2l_->setObjectName("optY2L");
  l2s_ = new QRadioButton(Q(kLcToShort), results);
  l2s_->setObjectName("optL2S");
  auto* results_layout = new QHBoxLayout(results);
  results_layout->addWidget(y2l_);
  results_layout->addWidget(l2s_);
  results_layout->addStretch(1);

  auto* save = new QPushButton(tr("&Save"), this);
  save->setObjectName("cmdSave");
  auto* cancel = new QPushButton(tr("&Cancel"), this);
  cancel->setObjectName("cmdCancel");
  // Enter in a box must not save.
  save->setAutoDefault(false);
  cancel->setAutoDefault(false);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(save);
  buttons->addWidget(cancel);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(yards);
  layout->addWidget(turns);
  layout->addWidget(long_events);
  layout->addWidget(results);
  layout->addLayout(buttons);
  setMinimumWidth(680);

  connect(boxes_[cvt::kStraight], &QLineEdit::editingFinished, this, &frmConvt::CheckStraightBox);
  connect(save, &QPushButton::clicked, this, &frmConvt::Save);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmConvt::Show(const ConversionSettings& settings) {
  for (size_t i = 0; i < boxes_.size(); ++i) {
    boxes_[i]->setText(QString::number(settings.factors[i], 'g', 15));
  }
  y2l_->setChecked(settings.y2l);
  l2s_->setChecked(!settings.y2l);
  // What was saved passed the rule; only the boxes' state follows from it.
  const bool turns = CheckStraight(settings.factors[cvt::kStraight]).turns_enabled;
  for (size_t i = 1; i <= 5; ++i) boxes_[i]->setEnabled(turns);
}

void frmConvt::CheckStraightBox() {
  QLineEdit* straight = boxes_[cvt::kStraight];
  const StraightCheck check = CheckStraight(Val(straight->text().toStdString()));
  if (!check.message.empty()) state_.io->Tell(check.message);
  if (check.reset_to_zero) straight->setText("0");
  for (size_t i = 1; i <= 5; ++i) boxes_[i]->setEnabled(check.turns_enabled);
}

ConversionSettings frmConvt::FromBoxes() const {
  ConversionSettings settings;
  for (size_t i = 0; i < boxes_.size(); ++i) {
    settings.factors[i] = Val(boxes_[i]->text().toStdString());
  }
  settings.y2l = y2l_->isChecked();
  return settings;
}

bool frmConvt::Save() {
  // A click on Save may come before the Straight box was left.
  CheckStraightBox();
  try {
    SaveConversionSettings(state_, FromBoxes());
  } catch (const std::exception& e) {
    ReportError(state_, "frmConvt.cmdSave_Click", e);
    return false;
  }
  accept();
  return true;
}

}  // namespace kvlr
