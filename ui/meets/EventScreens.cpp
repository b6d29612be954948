#include "meets/EventScreens.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "meets/EventListModel.h"
#include "meets/MeetTexts.h"
#include "meets/ScreenParts.h"

namespace kvlr {
namespace {

using screen::Button;
using screen::Q;

constexpr int kDistances[] = {25, 50, 100, 200, 400, 500, 800, 1000, 1500, 1650};

QComboBox* Combo(QWidget* parent, const char* name) {
  auto* box = new QComboBox(parent);
  box->setObjectName(name);
  return box;
}

void SelectData(QComboBox* box, const QVariant& value) {
  const int i = box->findData(value);
  box->setCurrentIndex(i < 0 ? 0 : i);
}

}  // namespace

// ---- frmEvntAdd ----

frmEvntAdd::frmEvntAdd(AppState& state, EventList list, int32_t meet, int32_t mt_event,
                       QWidget* parent)
    : QDialog(parent), state_(state), list_(list), meet_(meet) {
  setObjectName("frmEvntAdd");
  setWindowTitle(tr("Event") +
                 Q(list == EventList::kResults ? meettxt::kResultsTitle : meettxt::kEntriesTitle));
  number_ = new QLineEdit(this);
  number_->setObjectName("txtMtEv");
  number_->setMaxLength(4);
  lo_ = new QSpinBox(this);
  lo_->setObjectName("txtLoAge");
  lo_->setRange(0, 99);
  hi_ = new QSpinBox(this);
  hi_->setObjectName("txtHiAge");
  hi_->setRange(0, 99);
  age_caption_ = new QLabel(this);
  age_caption_->setObjectName("lblAgeRange");
  distance_ = Combo(this, "cboDistance");
  distance_->addItem(QString(), 0);
  for (int d : kDistances) distance_->addItem(QString::number(d), d);
  distance_->addItem(tr("6 dives"), 6);
  distance_->addItem(tr("11 dives"), 11);
  stroke_ = Combo(this, "cboStroke");
  stroke_->addItem(QString(), 0);
  const auto strokes = LoadStrokeArray();
  for (int s = 1; s <= 5; ++s) stroke_->addItem(Q(strokes[static_cast<size_t>(s)]), s);
  stroke_->addItem(tr("1 Meter Diving"), 6);
  stroke_->addItem(tr("3 Meter Diving"), 7);
  sex_ = Combo(this, "cboSex");
  sex_->addItem(QString(), QString());
  for (const char* s : {"M", "F", "X"}) sex_->addItem(Q(SexWord(s)), QString::fromLatin1(s));
  relay_ = new QCheckBox(tr("Relay"), this);
  relay_->setObjectName("chkRelay");
  status_ = new QLabel(this);
  status_->setObjectName("lblStatus");

  auto* ages = new QHBoxLayout;
  ages->addWidget(lo_);
  ages->addWidget(new QLabel(tr("to"), this));
  ages->addWidget(hi_);
  ages->addWidget(age_caption_, 1);
  auto* form = new QFormLayout;
  form->addRow(tr("Event Number:"), number_);
  form->addRow(tr("Age Group:"), ages);
  form->addRow(tr("Distance:"), distance_);
  form->addRow(tr("Stroke:"), stroke_);
  form->addRow(tr("Sex:"), sex_);
  form->addRow(QString(), relay_);

  auto* buttons = new QHBoxLayout;
  QPushButton* save = Button(this, tr("Save"), "cmdSave");
  QPushButton* next = Button(this, tr("New Event"), "cmdNew");
  QPushButton* close = Button(this, tr("Close"), "cmdClose");
  buttons->addWidget(save);
  buttons->addWidget(next);
  buttons->addStretch();
  buttons->addWidget(close);
  connect(save, &QPushButton::clicked, this, [this] { Save(); });
  connect(next, &QPushButton::clicked, this, [this] { ShowEvent(0); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(status_);
  layout->addLayout(buttons);

  const auto changed = [this] {
    if (!filling_) dirty_ = true;
  };
  connect(number_, &QLineEdit::textEdited, this, changed);
  connect(number_, &QLineEdit::editingFinished, this, &frmEvntAdd::NumberLeft);
  for (QSpinBox* box : {lo_, hi_}) {
    connect(box, &QSpinBox::valueChanged, this, changed);
    connect(box, &QSpinBox::valueChanged, this, &frmEvntAdd::UpdateAgeCaption);
  }
  for (QComboBox* box : {distance_, stroke_, sex_})
    connect(box, &QComboBox::currentIndexChanged, this, changed);
  connect(relay_, &QCheckBox::toggled, this, changed);

  MeetEvent start;
  start.lo_hi = 99;
  if (mt_event != 0) {
    const auto on_file = RunTrapped(state_, ".LoadEventForm",
                                    [&] { return LoadEvent(*state_.gDb, list_, mt_event); });
    if (on_file) start = *on_file;
  }
  Fill(start);
}

void frmEvntAdd::Fill(const MeetEvent& event) {
  filling_ = true;
  mt_event_ = event.mt_event;
  number_->setText(event.mtev > 0 ? Q(EventNumberOf(event)) : QString());
  lo_->setValue(event.lo_hi / 100);
  hi_->setValue(event.lo_hi % 100);
  SelectData(distance_, static_cast<int>(event.distance));
  SelectData(stroke_, static_cast<int>(event.stroke));
  SelectData(sex_, Q(event.sex));
  relay_->setChecked(event.i_r == "R");
  UpdateAgeCaption();
  filling_ = false;
  dirty_ = false;
}

void frmEvntAdd::UpdateAgeCaption() {
  age_caption_->setText(Q(AgeRangeCaption(lo_->value(), hi_->value())));
}

void frmEvntAdd::NumberLeft() {
  const QString text = number_->text().trimmed();
  if (text.isEmpty()) return;  // the save says what is missing
  const EventNumberCheck check = ParseEventNumber(text.toStdString());
  if (!check.message.empty()) state_.io->Tell(check.message);
}

EventForm frmEvntAdd::Form() const {
  EventForm form;
  form.mt_event = mt_event_;
  form.number = number_->text().toStdString();
  form.lo = lo_->value();
  form.hi = hi_->value();
  form.distance = distance_->currentData().toInt();
  form.stroke = stroke_->currentData().toInt();
  form.sex = sex_->currentData().toString().toStdString();
  form.i_r.assign(1, relay_->isChecked() ? 'R' : 'I');
  return form;
}

bool frmEvntAdd::Save() {
  const EventSaveOutcome outcome = SaveEvent(state_, list_, meet_, Form());
  if (outcome.status != EventSaveStatus::kAdded && outcome.status != EventSaveStatus::kUpdated)
    return false;
  mt_event_ = outcome.mt_event;
  dirty_ = false;
  status_->setText(Q(outcome.status_text));
  emit eventSaved(outcome.mt_event);
  return true;
}

bool frmEvntAdd::ShowEvent(int32_t mt_event) {
  if (dirty_) {
    state_.io->Tell(meettxt::kSaveBeforeMoving);
    return false;
  }
  MeetEvent next;
  if (mt_event != 0) {
    const auto on_file = RunTrapped(state_, ".LoadEventForm",
                                    [&] { return LoadEvent(*state_.gDb, list_, mt_event); });
    if (!on_file) return false;
    next = *on_file;
  } else {
    // A new event keeps the age group and sex of the last one: events come in runs.
    next.lo_hi = static_cast<int16_t>(lo_->value() * 100 + hi_->value());
    next.sex = sex_->currentData().toString().toStdString();
  }
  Fill(next);
  status_->clear();
  return true;
}

QString frmEvntAdd::Status() const {
  return status_->text();
}

// ---- frmCopyEvents ----

frmCopyEvents::frmCopyEvents(AppState& state, EventList list, int32_t meet, QWidget* parent)
    : QDialog(parent), state_(state), list_(list), meet_(meet) {
  setObjectName("frmCopyEvents");
  setWindowTitle(tr("Copy Events") +
                 Q(list == EventList::kResults ? meettxt::kResultsTitle : meettxt::kEntriesTitle));
  meets_ = Combo(this, "cboMeets");
  for (const MeetArrayItem& item : LoadMeetArray(state_, 0)) {
    if (item.meet != 0) meets_->addItem(Q(item.text), item.meet);
  }
  all_ = new QRadioButton(tr("All Events"), this);
  all_->setObjectName("optAll");
  individual_ = new QRadioButton(tr("Individual Events"), this);
  individual_->setObjectName("optIndividual");
  relay_ = new QRadioButton(tr("Relay Events"), this);
  relay_->setObjectName("optRelay");
  all_->setChecked(true);

  auto* which = new QHBoxLayout;
  which->addWidget(all_);
  which->addWidget(individual_);
  which->addWidget(relay_);
  auto* buttons = new QHBoxLayout;
  QPushButton* copy = Button(this, tr("Copy"), "cmdCopy");
  QPushButton* close = Button(this, tr("Close"), "cmdClose");
  buttons->addStretch();
  buttons->addWidget(copy);
  buttons->addWidget(close);
  connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(tr("Copy the events of this meet:"), this));
  layout->addWidget(meets_);
  layout->addLayout(which);
  layout->addLayout(buttons);
}

void frmCopyEvents::SetWhich(CopyWhich which) {
  (which == CopyWhich::kRelay        ? relay_
   : which == CopyWhich::kIndividual ? individual_
                                     : all_)
      ->setChecked(true);
}

bool frmCopyEvents::Copy() {
  if (meets_->currentIndex() < 0) return false;
  const CopyWhich which = relay_->isChecked()        ? CopyWhich::kRelay
                          : individual_->isChecked() ? CopyWhich::kIndividual
                                                     : CopyWhich::kAll;
  if (!CopyEventsFromMeet(state_, list_, meet_, meets_->currentData().toInt(), which)) return false;
  accept();
  return true;
}

// ---- frmEvent ----

frmEvent::frmEvent(AppState& state, EventList list, int32_t meet, QWidget* parent)
    : QDialog(parent), state_(state), list_(list), meet_(meet) {
  setObjectName(list == EventList::kResults ? "frmEvent" : "frmEventE");
  const auto m = RunTrapped(state_, ".GetEvents", [&] { return LoadMeet(*state_.gDb, meet_); });
  setWindowTitle(
      m ? Q(EventListTitle(*m, list_, state_.gDateOrder))
        : Q(list == EventList::kResults ? meettxt::kResultsTitle : meettxt::kEntriesTitle));

  sex_ = Combo(this, "cboSex");
  sex_->addItem(tr("All"), QString());
  for (const char* s : {"M", "F", "X"}) sex_->addItem(Q(SexWord(s)), QString::fromLatin1(s));
  age_ = Combo(this, "cboAge");
  stroke_ = Combo(this, "cboStroke");
  stroke_->addItem(tr("All"), 0);
  const auto strokes = LoadStrokeArray();
  for (int s = 1; s <= 5; ++s) stroke_->addItem(Q(strokes[static_cast<size_t>(s)]), s);
  distance_ = Combo(this, "cboDistance");
  distance_->addItem(tr("All"), 0);
  for (int d : kDistances) distance_->addItem(QString::number(d), d);
  sort_caption_ = new QLabel(this);
  sort_caption_->setObjectName("lblSort");

  model_ = new EventListModel(state_, list_, meet_, this);
  grid_ = new QTableView(this);
  grid_->setObjectName("grdEvents");
  grid_->setModel(model_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->verticalHeader()->hide();
  grid_->horizontalHeader()->setStretchLastSection(true);
  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
    model_->SortByColumn(column);
    sort_caption_->setText(Q(EventSortCaption(model_->Filter().sort)));
  });
  connect(grid_, &QTableView::doubleClicked, this, [this] { Edit(); });

  auto* filters = new QHBoxLayout;
  const auto labelled = [&](const QString& text, QComboBox* box) {
    filters->addWidget(new QLabel(text, this));
    filters->addWidget(box);
    connect(box, &QComboBox::currentIndexChanged, this, &frmEvent::ApplyFilters);
  };
  labelled(tr("Sex:"), sex_);
  labelled(tr("Age:"), age_);
  labelled(tr("Stroke:"), stroke_);
  labelled(tr("Distance:"), distance_);
  filters->addStretch();
  filters->addWidget(sort_caption_);

  QHBoxLayout* commands =
      screen::CommandBar<frmEvent>(this, {{tr("Add"), "cmdAdd", &frmEvent::Add},
                                          {tr("Edit"), "cmdEdit", &frmEvent::Edit},
                                          {tr("Delete"), "cmdDelete", &frmEvent::Delete},
                                          {tr("Copy Events"), "cmdCopy", &frmEvent::CopyEvents}});

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(commands);
  layout->addLayout(filters);
  layout->addWidget(grid_);
  resize(560, 420);

  LoadAgeFilter();
  Reload();
}

void frmEvent::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!offered_) {
    offered_ = true;
    OfferEntryEvents();
  }
}

void frmEvent::OfferEntryEvents() {
  offered_ = true;
  if (list_ != EventList::kResults || model_->rowCount() > 0) return;
  if (OfferEntryEventsForResults(state_, meet_)) Reload();
}

void frmEvent::LoadAgeFilter() {
  const QSignalBlocker block(age_);
  age_->clear();
  age_->addItem(tr("All"), -1);
  const auto groups =
      RunTrapped(state_, ".LoadAgeGroups", [&] { return LoadAgeGroups(*state_.gDb, meet_); });
  for (int g : groups) age_->addItem(Q(AgeGroupWord(g)), g);
}

void frmEvent::ApplyFilters() {
  EventFilter filter = model_->Filter();
  filter.sex = sex_->currentData().toString().toStdString();
  const int age = age_->currentData().toInt();
  filter.lo_hi = age < 0 ? std::nullopt : std::optional<int>(age);
  filter.stroke = stroke_->currentData().toInt();
  filter.distance = distance_->currentData().toInt();
  model_->SetFilter(filter);
}

void frmEvent::Reload() {
  model_->Reload();
  grid_->resizeColumnsToContents();
}

void frmEvent::Add() {
  auto* card = new frmEvntAdd(state_, list_, meet_, 0, this);
  card->setAttribute(Qt::WA_DeleteOnClose);
  connect(card, &frmEvntAdd::eventSaved, this, [this] {
    LoadAgeFilter();
    Reload();
  });
  card->open();
}

void frmEvent::Edit() {
  const MeetEvent* e = model_->EventAt(grid_->currentIndex().row());
  if (!e) return;
  auto* card = new frmEvntAdd(state_, list_, meet_, e->mt_event, this);
  card->setAttribute(Qt::WA_DeleteOnClose);
  connect(card, &frmEvntAdd::eventSaved, this, [this] { Reload(); });
  card->open();
}

void frmEvent::Delete() {
  const MeetEvent* e = model_->EventAt(grid_->currentIndex().row());
  if (!e) return;
  if (DeleteOneEvent(state_, list_, *e)) Reload();
}

void frmEvent::CopyEvents() {
  auto* copy = new frmCopyEvents(state_, list_, meet_, this);
  copy->setAttribute(Qt::WA_DeleteOnClose);
  connect(copy, &QDialog::accepted, this, [this] {
    LoadAgeFilter();
    Reload();
  });
  copy->open();
}

}  // namespace kvlr
