#include "athletes/AthleteCardScreen.h"

#include <QButtonGroup>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidgetAction>

#include "athletes/AthleteTexts.h"
#include "athletes/BackgroundPicture.h"
#include "athletes/CardTimes.h"
#include "athletes/Siblings.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/TextClean.h"

namespace kvlr {
namespace {

namespace txt = athlete_text;

// Activities of the calendar tab: caption and the column stem of their start and end.
struct Activity {
  const char* caption;
  const char* stem;
};
constexpr Activity kActivities[] = {{"Swim", "Swim"},     {"Dry Land", "Dry"},     {"Meet", "Meet"},
                                    {"Goal", "Goal"},     {"Meeting", "Meeting"},  {"Note", "Note"},
                                    {"Health", "Health"}, {"Vacation", "Vacation"}};

QString ObjectName(std::string_view column) {
  return "txt" + Q(column);
}

}  // namespace

frmAthMt::frmAthMt(AppState& state, int32_t athlete, QWidget* parent)
    : QDialog(parent), state_(state), choose_file_(DialogFileChooser(this, "bmp")) {
  setObjectName("frmAthMt");
  setWindowTitle(Q(athlete == 0 ? txt::kAddCommand : txt::kEditCommand));

  tabs_ = new QTabWidget(this);
  tabs_->addTab(BuildNameTab(), tr("Swimmer"));
  tabs_->addTab(BuildAddressTab(), tr("Addresses"));
  tabs_->addTab(BuildContactTab(), tr("Phones and Parents"));
  tabs_->addTab(BuildMedicalTab(), tr("Medical"));
  tabs_->addTab(BuildCalendarTab(), tr("Calendar"));

  auto* buttons = new QDialogButtonBox(this);
  auto* save = buttons->addButton(tr("&Save"), QDialogButtonBox::AcceptRole);
  save->setObjectName("cmdSave");
  auto* cancel = buttons->addButton(QDialogButtonBox::Cancel);
  cancel->setObjectName("cmdCancel");
  connect(save, &QPushButton::clicked, this, &frmAthMt::Save);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs_);
  layout->addWidget(buttons);

  card_ = NewAthleteCard(state_);
  if (athlete != 0) {
    try {
      const auto loaded = LoadAthleteCard(state_, athlete);
      if (loaded) {
        card_ = *loaded;
      } else {
        loaded_ = false;
        state_.io->Tell(txt::kNotFound);
      }
    } catch (const std::exception& e) {
      loaded_ = false;
      ReportError(state_, txt::kLoadFieldsSource, e);
    }
  }
  ShowCard(card_);
}

QWidget* frmAthMt::BuildNameTab() {
  auto* page = new QWidget(this);

  auto* names = new QGroupBox(tr("Name"), page);
  auto* name_form = new QFormLayout(names);
  last_ = FieldEdit("Athlete", "Last", "txtLast", names);
  first_ = FieldEdit("Athlete", "First", "txtFirst", names);
  initial_ = FieldEdit("Athlete", "Initial", "txtInit", names);
  initial_->setMaximumWidth(40);
  pref_ = FieldEdit("Athlete", "Pref", "txtPref", names);
  name_form->addRow(tr("Last Name:"), last_);
  name_form->addRow(tr("First Name:"), first_);
  name_form->addRow(tr("Middle Initial:"), initial_);
  name_form->addRow(tr("Preferred Name:"), pref_);
  // Names are put in proper case as they are left, as the list does with what is typed.
  for (QLineEdit* edit : {last_, first_, pref_}) {
    connect(edit, &QLineEdit::editingFinished, this, [edit] {
      const QString proper = Q(ProperName(S(edit->text())));
      if (proper != edit->text()) edit->setText(proper);
    });
  }
  connect(first_, &QLineEdit::editingFinished, this, &frmAthMt::ShowPicture);

  auto* personal = new QGroupBox(tr("Personal"), page);
  auto* personal_form = new QFormLayout(personal);
  male_ = new QRadioButton(tr("Male"), personal);
  male_->setObjectName("optMale");
  female_ = new QRadioButton(tr("Female"), personal);
  female_->setObjectName("optFemale");
  sex_ = new QButtonGroup(this);
  sex_->addButton(male_);
  sex_->addButton(female_);
  auto* sex_row = new QHBoxLayout;
  sex_row->addWidget(male_);
  sex_row->addWidget(female_);
  sex_row->addStretch();
  personal_form->addRow(tr("Gender:"), sex_row);
  id_ = FieldEdit("Athlete", "ID_NO", "txtID", personal);
  personal_form->addRow(tr("ID:"), id_);

  birth_edit_ = new QLineEdit(personal);
  birth_edit_->setObjectName("SSDBirth");
  birth_edit_->setMaxLength(10);
  calendar_ = new QToolButton(personal);
  calendar_->setObjectName("cmdBirthCalendar");
  calendar_->setArrowType(Qt::DownArrow);
  calendar_->setPopupMode(QToolButton::InstantPopup);
  calendar_->setStyleSheet("QToolButton::menu-indicator { image: none; }");
  auto* menu = new QMenu(calendar_);
  auto* calendar = new QCalendarWidget(menu);
  calendar->setMinimumDate(QDate(1890, 1, 1));
  const Date today = state_.clock->Today();
  calendar->setMaximumDate(QDate(today.year, today.month, today.day));
  auto* holder = new QWidgetAction(menu);
  holder->setDefaultWidget(calendar);
  menu->addAction(holder);
  calendar_->setMenu(menu);
  connect(menu, &QMenu::aboutToShow, this, [this, calendar, today] {
    const Date shown = birth_.value_or(today);
    calendar->setSelectedDate(QDate(shown.year, shown.month, shown.day));
  });
  // The calendar is the way to dates before 1930, which can't be typed.
  connect(calendar, &QCalendarWidget::clicked, this, [this, menu](QDate date) {
    ShowBirth(Date{date.year(), date.month(), date.day()});
    menu->hide();
  });
  connect(birth_edit_, &QLineEdit::editingFinished, this, &frmAthMt::BirthTyped);
  auto* birth_row = new QHBoxLayout;
  birth_row->addWidget(birth_edit_);
  birth_row->addWidget(calendar_);
  personal_form->addRow(tr("Birth Date:"), birth_row);
  age_ = new QLabel(personal);
  age_->setObjectName("lblAge");
  personal_form->addRow(tr("Age:"), age_);

  auto* picture_box = new QGroupBox(tr("Background Picture"), page);
  auto* picture_layout = new QVBoxLayout(picture_box);
  picture_ = new QLabel(picture_box);
  picture_->setObjectName("lblPicture");
  picture_->setFixedSize(200, 150);
  picture_->setAlignment(Qt::AlignCenter);
  picture_->setFrameShape(QFrame::StyledPanel);
  get_picture_ = new QPushButton(tr("Choose &Picture..."), picture_box);
  get_picture_->setObjectName("cmdGetPic");
  connect(get_picture_, &QPushButton::clicked, this, &frmAthMt::ChoosePicture);
  picture_layout->addWidget(picture_, 0, Qt::AlignHCenter);
  picture_layout->addWidget(get_picture_, 0, Qt::AlignHCenter);
  picture_layout->addStretch();

  auto* left = new QVBoxLayout;
  left->addWidget(names);
  left->addWidget(personal);
  left->addStretch();
  auto* layout = new QHBoxLayout(page);
  layout->addLayout(left, 1);
  layout->addWidget(picture_box);
  return page;
}

QLineEdit* frmAthMt::InfoEdit(std::string_view column) {
  QLineEdit* edit = FieldEdit("AthInfo", column, ObjectName(column), this);
  info_edits_[std::string(column)] = edit;
  return edit;
}

QWidget* frmAthMt::BuildAddressTab() {
  auto* page = new QWidget(this);
  auto address = [this, page](const QString& title, const char* suffix) {
    auto* box = new QGroupBox(title, page);
    auto* form = new QFormLayout(box);
    auto col = [suffix](const char* stem) { return std::string(stem) + suffix; };
    form->addRow(tr("Mail To:"), InfoEdit(col("MailTo")));
    form->addRow(tr("Address:"), InfoEdit(col("Addr")));
    form->addRow(QString(), InfoEdit(col("SecAddr")));
    form->addRow(tr("City:"), InfoEdit(col("City")));
    form->addRow(tr("State/Province:"), InfoEdit(col("State")));
    form->addRow(tr("Country:"), InfoEdit(col("Cntry")));
    form->addRow(tr("Postal Code:"), InfoEdit(col("ZIP")));
    form->addRow(tr("E-Mail:"), InfoEdit(col("EMail")));
    return box;
  };
  auto* boxes = new QHBoxLayout;
  boxes->addWidget(address(tr("First Address"), ""));
  boxes->addWidget(address(tr("Second Address"), "2"));

  siblings_ = new QComboBox(page);
  siblings_->setObjectName("cboSibling");
  copy_sibling_ = new QPushButton(tr("Copy &Address from Sibling"), page);
  copy_sibling_->setObjectName("cmdSibling");
  connect(copy_sibling_, &QPushButton::clicked, this, &frmAthMt::CopySibling);
  sibling_label_ = new QLabel(tr("Sibling:"), page);
  auto* sibling_row = new QHBoxLayout;
  sibling_row->addWidget(sibling_label_);
  sibling_row->addWidget(siblings_, 1);
  sibling_row->addWidget(copy_sibling_);
  sibling_row->addStretch(1);

  auto* layout = new QVBoxLayout(page);
  layout->addLayout(boxes);
  layout->addLayout(sibling_row);
  layout->addStretch();
  return page;
}

QWidget* frmAthMt::BuildContactTab() {
  auto* page = new QWidget(this);

  auto* phones = new QGroupBox(tr("Phones"), page);
  auto* phone_grid = new QGridLayout(phones);
  phone_grid->addWidget(new QLabel(tr("First"), phones), 0, 1);
  phone_grid->addWidget(new QLabel(tr("Second"), phones), 0, 2);
  const std::pair<QString, const char*> phone_rows[] = {{tr("Day:"), "DayP"},
                                                        {tr("Evening:"), "EveP"},
                                                        {tr("Mobile:"), "CellP"},
                                                        {tr("FAX:"), "FaxP"}};
  int row = 1;
  for (const auto& [caption, stem] : phone_rows) {
    phone_grid->addWidget(new QLabel(caption, phones), row, 0);
    phone_grid->addWidget(InfoEdit(std::string(stem) + "1"), row, 1);
    phone_grid->addWidget(InfoEdit(std::string(stem) + "2"), row, 2);
    ++row;
  }

  auto* parents = new QGroupBox(tr("Parents"), page);
  auto* parent_grid = new QGridLayout(parents);
  parent_grid->addWidget(new QLabel(tr("Primary"), parents), 0, 1);
  parent_grid->addWidget(new QLabel(tr("Secondary"), parents), 0, 2);
  const std::pair<QString, const char*> parent_rows[] = {{tr("Last Name:"), "Last"},
                                                         {tr("First Name:"), "First1"},
                                                         {tr("Second First Name:"), "First2"}};
  row = 1;
  for (const auto& [caption, stem] : parent_rows) {
    parent_grid->addWidget(new QLabel(caption, parents), row, 0);
    parent_grid->addWidget(InfoEdit(std::string("Primary") + stem), row, 1);
    parent_grid->addWidget(InfoEdit(std::string("Secondary") + stem), row, 2);
    ++row;
  }

  auto* layout = new QVBoxLayout(page);
  layout->addWidget(phones);
  layout->addWidget(parents);
  layout->addStretch();
  return page;
}

QWidget* frmAthMt::BuildMedicalTab() {
  auto* page = new QWidget(this);
  auto* form = new QFormLayout(page);
  form->addRow(tr("Doctor:"), InfoEdit("DoctorName"));
  form->addRow(tr("Doctor's Phone:"), InfoEdit("DoctorPhone"));
  form->addRow(tr("Emergency Contact:"), InfoEdit("EmerContact"));
  form->addRow(tr("Emergency Phone:"), InfoEdit("EmerPhone"));
  for (const auto& [caption, column] : {std::pair{tr("Medical Condition:"), "MedCondition"},
                                        std::pair{tr("Medication:"), "Medication"}}) {
    QPlainTextEdit* edit = FieldTextEdit("AthInfo", column, ObjectName(column), page);
    edit->setFixedHeight(64);
    info_texts_[column] = edit;
    form->addRow(caption, edit);
  }
  return page;
}

QLineEdit* frmAthMt::TimeEdit(std::string_view column) {
  auto* edit = new QLineEdit(this);
  edit->setObjectName(ObjectName(column));
  edit->setMaxLength(10);
  edit->setMaximumWidth(100);
  connect(edit, &QLineEdit::editingFinished, this, [this, edit] { TimeTyped(edit); });
  time_edits_[std::string(column)] = edit;
  return edit;
}

QWidget* frmAthMt::BuildCalendarTab() {
  auto* page = new QWidget(this);
  auto* range = new QGroupBox(tr("Day View"), page);
  auto* range_row = new QHBoxLayout(range);
  range_row->addWidget(new QLabel(tr("From:"), range));
  range_row->addWidget(TimeEdit("StartTimeDay"));
  range_row->addWidget(new QLabel(tr("To:"), range));
  range_row->addWidget(TimeEdit("EndTimeDay"));
  range_row->addStretch();

  auto* activities = new QGroupBox(tr("Default Times of New Events"), page);
  auto* grid = new QGridLayout(activities);
  grid->addWidget(new QLabel(tr("Start"), activities), 0, 1);
  grid->addWidget(new QLabel(tr("End"), activities), 0, 2);
  int row = 1;
  for (const Activity& a : kActivities) {
    grid->addWidget(new QLabel(tr(a.caption), activities), row, 0);
    grid->addWidget(TimeEdit(std::string("Start") + a.stem), row, 1);
    grid->addWidget(TimeEdit(std::string("End") + a.stem), row, 2);
    ++row;
  }
  grid->setColumnStretch(3, 1);

  auto* layout = new QVBoxLayout(page);
  layout->addWidget(range);
  layout->addWidget(activities);
  layout->addStretch();
  return page;
}

void frmAthMt::ShowCard(const AthleteCard& card) {
  last_->setText(Q(card.last));
  first_->setText(Q(card.first));
  initial_->setText(Q(card.initial));
  pref_->setText(Q(card.pref));
  id_->setText(Q(card.id_no));
  sex_->setExclusive(false);
  male_->setChecked(card.sex == "M");
  female_->setChecked(card.sex == "F");
  sex_->setExclusive(true);
  ShowBirth(card.birth);
  for (auto& [column, edit] : info_edits_) edit->setText(Q(card.Info(column)));
  for (auto& [column, edit] : info_texts_) edit->setPlainText(Q(card.Info(column)));
  for (auto& [column, edit] : time_edits_) {
    const auto it = card.times.find(column);
    edit->setText(it == card.times.end() ? QString() : Q(it->second));
  }
  ShowPicture();
  LoadSiblings();
}

AthleteCard frmAthMt::CardFromFields() const {
  AthleteCard card;
  card.athlete = card_.athlete;
  card.last = S(last_->text());
  card.first = S(first_->text());
  card.initial = S(initial_->text());
  card.pref = S(pref_->text());
  card.id_no = S(id_->text());
  if (male_->isChecked() || female_->isChecked())
    card.sex.assign(1, male_->isChecked() ? 'M' : 'F');
  card.birth = birth_;
  for (const auto& [column, edit] : info_edits_) card.info[column] = S(edit->text());
  for (const auto& [column, edit] : info_texts_) card.info[column] = S(edit->toPlainText());
  for (const auto& [column, edit] : time_edits_) card.times[column] = S(edit->text());
  return card;
}

void frmAthMt::ShowBirth(const std::optional<Date>& birth) {
  birth_ = birth;
  birth_edit_->setText(birth ? Q(ShownDate(*birth, state_.gDateOrder)) : QString());
  age_->setText(birth ? QString::number(AgeAtDate(birth, state_.clock->Today())) : QString());
}

void frmAthMt::BirthTyped() {
  const BirthEntry entry =
      TypedBirthDate(S(birth_edit_->text()), state_.gDateOrder, state_.clock->Today());
  if (!entry.accepted) {
    // Back to the date the card had, before any box takes the focus away.
    ShowBirth(birth_);
    if (!entry.message.empty()) state_.io->Tell(entry.message);
    return;
  }
  ShowBirth(entry.date);
}

void frmAthMt::TimeTyped(QLineEdit* edit) {
  const CardTime time = TypedCardTime(S(edit->text()), state_.g12Hour);
  edit->setText(Q(time.shown));
  if (!time.message.empty()) state_.io->Tell(time.message);
}

void frmAthMt::ShowPicture() {
  const auto file = CardPicture(state_.home, S(first_->text()));
  QPixmap pixmap;
  if (file && pixmap.load(QString::fromStdString(file->string()))) {
    picture_->setPixmap(
        pixmap.scaled(picture_->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
  } else {
    picture_->setPixmap(QPixmap());
    picture_->setText(tr("No picture"));
  }
}

void frmAthMt::LoadSiblings() {
  siblings_->clear();
  try {
    for (const Sibling& s : SiblingsWithAddress(*state_.gDb, card_.athlete)) {
      siblings_->addItem(Q(s.name), s.athlete);
    }
  } catch (const std::exception& e) {
    ReportError(state_, txt::kLoadFieldsSource, e);
  }
  const bool any = siblings_->count() > 0;
  siblings_->setVisible(any);
  sibling_label_->setVisible(any);
  copy_sibling_->setVisible(any);
}

void frmAthMt::CopySibling() {
  if (siblings_->currentIndex() < 0) return;
  AthleteCard card = CardFromFields();
  try {
    if (!CopySiblingAddress(*state_.gDb, siblings_->currentData().toInt(), card)) return;
  } catch (const std::exception& e) {
    ReportError(state_, txt::kLoadFieldsSource, e);
    return;
  }
  for (auto column : kSiblingColumns) {
    if (auto it = info_edits_.find(column); it != info_edits_.end()) {
      it->second->setText(Q(card.Info(column)));
    }
  }
}

void frmAthMt::ChoosePicture() {
  const std::string first = S(first_->text());
  if (!MayChooseBackgroundPicture(*state_.io, first)) return;
  const QString chosen =
      choose_file_(Q(txt::kPictureDialogTitle), Q(txt::kPictureFilter),
                   QString::fromStdString((state_.home.Root() / txt::kPictureStartName).string()));
  if (chosen.isEmpty()) return;
  if (ImportBackgroundPicture(state_, first, S(chosen))) ShowPicture();
}

void frmAthMt::Save() {
  AthleteCard card = CardFromFields();
  const SaveOutcome outcome = SaveAthlete(state_, card);
  const bool switched = card.athlete != card_.athlete;
  card_ = card;
  if (outcome.status == SaveStatus::kSaved) {
    emit saved(card_.athlete);
    accept();
    return;
  }
  // The sex goes back when its change was refused; a "No" to the same-name question made the
  // card the other swimmer's.
  if (switched || outcome.focus == CardField::kSex) ShowCard(card_);
  tabs_->setCurrentIndex(0);
  switch (outcome.focus) {
    case CardField::kLast:
      last_->setFocus();
      break;
    case CardField::kFirst:
      first_->setFocus();
      break;
    case CardField::kSex:
      male_->setFocus();
      break;
    case CardField::kNone:
      break;
  }
}

}  // namespace kvlr
