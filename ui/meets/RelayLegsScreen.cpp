#include "meets/RelayLegsScreen.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "core/TimeText.h"
#include "meets/ResultTexts.h"

namespace kvlr {
namespace {

QRadioButton* Option(const char* words, const char* name, QWidget* parent, QHBoxLayout* row,
                     QButtonGroup* group) {
  auto* button = new QRadioButton(words, parent);
  button->setObjectName(name);
  row->addWidget(button);
  group->addButton(button);
  return button;
}

}  // namespace

frmRelayLegs::frmRelayLegs(AppState& state, int32_t meet, int32_t athlete, const std::string& sex,
                           QWidget* parent)
    : QDialog(parent), state_(state), meet_(meet), athlete_(athlete) {
  setObjectName("frmRelayLegs");
  setWindowTitle(
      QString::fromUtf8(kRelayLegsTitle.data(), static_cast<qsizetype>(kRelayLegsTitle.size())));
  choices_ = RunTrapped(state_, "frmRelayLegs.LoadRelays",
                        [&] { return RelayEvents(*state_.gDb, meet_, sex); });
  relays_ = new QComboBox(this);
  relays_->setObjectName("cboRelays");
  for (const auto& c : choices_) relays_->addItem(QString::fromStdString(c.text));

  auto* leg_row = new QHBoxLayout;
  auto* leg_group = new QButtonGroup(this);
  lead_off_ = Option("Lead Off", "optLeadOff", this, leg_row, leg_group);
  non_lead_ = Option("Non-Lead", "optNonLead", this, leg_row, leg_group);
  auto* round_row = new QHBoxLayout;
  auto* round_group = new QButtonGroup(this);
  final_ = Option("Final", "optFinal", this, round_row, round_group);
  prelim_ = Option("Prelim", "optPrelim", this, round_row, round_group);
  auto* stroke_row = new QHBoxLayout;
  auto* stroke_group = new QButtonGroup(this);
  const char* words[] = {"Free", "Back", "Breast", "Fly"};
  for (size_t i = 0; i < strokes_.size(); ++i) {
    strokes_[i] = Option(words[i], words[i], this, stroke_row, stroke_group);
    strokes_[i]->setObjectName(QString("optStroke%1").arg(i + 1));
  }
  time_ = new QLineEdit(this);
  time_->setObjectName("txtTime");
  connect(time_, &QLineEdit::textEdited, this, &frmRelayLegs::TimeEdited);
  connect(time_, &QLineEdit::editingFinished, this, [this] {
    const std::string normal = NormalizeTimeText(time_->text().toStdString());
    time_->setText(QString::fromStdString(normal));
    last_good_time_ = time_->text();
  });

  auto* form = new QFormLayout;
  form->addRow("Relay:", relays_);
  form->addRow("Leg:", leg_row);
  form->addRow("Round:", round_row);
  form->addRow("Stroke:", stroke_row);
  form->addRow("Time:", time_);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Save)->setObjectName("cmdSave");
  connect(buttons, &QDialogButtonBox::accepted, this, [this] { Save(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);
  setMinimumWidth(420);

  connect(relays_, &QComboBox::currentIndexChanged, this, &frmRelayLegs::ChooseRelay);
  ChooseRelay(relays_->currentIndex());
}

void frmRelayLegs::ChooseRelay(int index) {
  if (index < 0 || index >= static_cast<int>(choices_.size())) return;
  const int16_t stroke = StrokeOfRelayName(choices_[static_cast<size_t>(index)].text);
  for (size_t i = 0; i < strokes_.size(); ++i) {
    strokes_[i]->setEnabled(stroke == 0 || static_cast<int16_t>(i + 1) == stroke);
  }
  if (stroke != 0) {
    strokes_[static_cast<size_t>(stroke - 1)]->setChecked(true);
  } else {
    // A medley: the swimmer chooses among all four.
    for (auto* b : strokes_) {
      b->group()->setExclusive(false);
      b->setChecked(false);
      b->group()->setExclusive(true);
    }
  }
}

void frmRelayLegs::TimeEdited(const QString& text) {
  if (TimeCharactersValid(text.toStdString())) {
    last_good_time_ = text;
    return;
  }
  time_->setText(last_good_time_);
  state_.io->Tell(kInvalidTimeCharacters);
  time_->selectAll();
}

RelayLegOutcome frmRelayLegs::Save() {
  RelayLegInput in;
  in.athlete = athlete_;
  in.meet = meet_;
  const int index = relays_->currentIndex();
  if (index >= 0 && index < static_cast<int>(choices_.size())) {
    in.relay = choices_[static_cast<size_t>(index)];
  }
  in.i_r = lead_off_->isChecked() ? "L" : non_lead_->isChecked() ? "N" : "";
  in.f_p = final_->isChecked() ? "F" : prelim_->isChecked() ? "P" : "";
  for (size_t i = 0; i < strokes_.size(); ++i) {
    if (strokes_[i]->isChecked()) in.stroke = static_cast<int16_t>(i + 1);
  }
  in.time = time_->text().toStdString();
  const RelayLegOutcome outcome = SaveRelayLeg(state_, in);
  if (outcome == RelayLegOutcome::kSaved) {
    emit saved();
    accept();
  }
  return outcome;
}

}  // namespace kvlr
