#include "meets/MeetCardScreen.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "meets/MeetTexts.h"
#include "meets/MeetTypes.h"

namespace kvlr {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QLineEdit* Edit(QWidget* parent, const char* name, int max_length) {
  auto* edit = new QLineEdit(parent);
  edit->setObjectName(name);
  edit->setMaxLength(max_length);
  return edit;
}

}  // namespace

frmMeetMaint::frmMeetMaint(AppState& state, int32_t meet, QWidget* parent)
    : QDialog(parent), state_(state), meet_(meet) {
  setObjectName("frmMeetMaint");
  setWindowTitle(meet == 0 ? tr("Add Meet") : tr("Edit Meet"));
  setMinimumWidth(460);

  name_ = Edit(this, "txtMName", 45);
  course_ = new QComboBox(this);
  course_->setObjectName("cboCourse");
  course_->addItem(QString(), QString());
  for (std::string_view choice : meettxt::kCourseChoices) {
    // The list shows the words; the value stored stays the code before the ';'.
    const auto cut = choice.find(';');
    QString words = Q(choice.substr(cut + 1));
    words[0] = words[0].toUpper();
    course_->addItem(words, Q(choice.substr(0, cut)));
  }
  start_ = Edit(this, "txtStart", 10);
  end_ = Edit(this, "txtEnd", 10);
  age_up_ = Edit(this, "txtAgeUp", 10);
  since_ = Edit(this, "txtSince", 10);
  location_ = Edit(this, "txtLocation", 45);
  remarks_ = Edit(this, "txtRemarks", 50);
  type_ = new QComboBox(this);
  type_->setObjectName("CSCboMeetType");
  type_->addItem(QString(), QString());
  for (const MeetType& t : LoadMeetTypeCombo(state_))
    type_->addItem(Q(t.abbr + "  " + t.desc), Q(t.abbr));

  auto* form = new QFormLayout;
  form->addRow(tr("Meet Name:"), name_);
  form->addRow(tr("Course:"), course_);
  form->addRow(tr("Start Date:"), start_);
  form->addRow(tr("End Date:"), end_);
  form->addRow(tr("Age Up Date:"), age_up_);
  form->addRow(tr("Times Since:"), since_);
  form->addRow(tr("Location:"), location_);
  form->addRow(tr("Remarks:"), remarks_);
  form->addRow(tr("Meet Type:"), type_);

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* save = buttons->addButton(tr("Save"), QDialogButtonBox::AcceptRole);
  save->setObjectName("cmdSave");
  QPushButton* cancel = buttons->addButton(QDialogButtonBox::Cancel);
  cancel->setObjectName("cmdCancel");
  connect(save, &QPushButton::clicked, this, [this] { Save(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);

  MeetForm start = RunTrapped(state_, "frmMeetMaint.LoadMeet", [&] {
    if (meet_ == 0) return NewMeetForm(state_);
    const auto on_file = LoadMeet(*state_.gDb, meet_);
    return on_file ? MeetFormOf(*on_file, state_.gDateOrder) : MeetForm{};
  });
  start.meet = meet_;
  Fill(start);
}

void frmMeetMaint::Fill(const MeetForm& form) {
  name_->setText(Q(form.mname));
  const int course = course_->findData(Q(form.course));
  course_->setCurrentIndex(course < 0 ? 0 : course);
  start_->setText(Q(form.start));
  end_->setText(Q(form.end));
  age_up_->setText(Q(form.age_up));
  since_->setText(Q(form.since));
  location_->setText(Q(form.location));
  remarks_->setText(Q(form.remarks));
  int type = type_->findData(Q(form.type), Qt::UserRole, Qt::MatchFixedString);
  if (type < 0 && !form.type.empty()) {
    type_->addItem(Q(form.type), Q(form.type));
    type = type_->count() - 1;
  }
  type_->setCurrentIndex(type < 0 ? 0 : type);
}

MeetForm frmMeetMaint::Form() const {
  MeetForm form;
  form.meet = meet_;
  form.mname = name_->text().toStdString();
  form.course = course_->currentData().toString().toStdString();
  form.start = start_->text().toStdString();
  form.end = end_->text().toStdString();
  form.age_up = age_up_->text().toStdString();
  form.since = since_->text().toStdString();
  form.location = location_->text().toStdString();
  form.remarks = remarks_->text().toStdString();
  form.type = type_->currentData().toString().toStdString();
  return form;
}

bool frmMeetMaint::Save() {
  const MeetSaveOutcome outcome = SaveMeet(state_, Form());
  if (outcome.status != MeetSaveStatus::kSaved) return false;
  saved_meet_ = outcome.meet;
  accept();
  return true;
}

}  // namespace kvlr
