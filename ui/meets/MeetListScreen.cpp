#include "meets/MeetListScreen.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "meets/DefaultEvents.h"
#include "meets/EventScreens.h"
#include "meets/MeetCardScreen.h"
#include "meets/MeetListModel.h"
#include "meets/MeetTexts.h"
#include "meets/MeetTypeScreens.h"
#include "meets/MeetTypes.h"
#include "meets/ScreenParts.h"

namespace kvlr {
namespace {

using screen::Button;
using screen::Q;

}  // namespace

frmMeets::frmMeets(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmMeets");
  setWindowTitle(tr("Meets"));

  const MeetFilter start = FavoriteMeetFilter(state_);
  course_ = new QComboBox(this);
  course_->setObjectName("cboCourse");
  course_->addItem(tr("All Courses"), 0);
  for (char c : CourseLetters) course_->addItem(Q(CourseWord(std::string(1, c))), int(c));
  course_->setCurrentIndex(std::max(0, course_->findData(int(start.course))));
  since_ = new QLineEdit(this);
  since_->setObjectName("txtSince");
  since_->setMaxLength(10);
  since_->setPlaceholderText(tr("any date"));
  type_ = new QComboBox(this);
  type_->setObjectName("cboMeetType");
  LoadTypeFilter();
  sort_caption_ = new QLabel(this);
  sort_caption_->setObjectName("lblSort");

  model_ = new MeetListModel(state_, this);
  grid_ = new QTableView(this);
  grid_->setObjectName("grdMeets");
  grid_->setModel(model_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->setDragEnabled(true);
  grid_->setAcceptDrops(true);
  grid_->setDropIndicatorShown(true);
  grid_->setDragDropMode(QAbstractItemView::DragDrop);
  grid_->setDefaultDropAction(Qt::MoveAction);
  grid_->verticalHeader()->hide();
  grid_->horizontalHeader()->setStretchLastSection(true);
  grid_->installEventFilter(this);
  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
    const Meet* m = model_->MeetAt(grid_->currentIndex().row());
    const int32_t keep = m ? m->meet : 0;
    model_->SortByColumn(column);
    ShowSortCaption();
    Refresh(keep);
  });
  connect(grid_, &QTableView::doubleClicked, this, [this] { Edit(); });
  connect(grid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) {
            if (const Meet* m = model_->MeetAt(current.row())) state_.gCurrentMeet = m->meet;
          });
  connect(model_, &MeetListModel::mergeRequested, this, &frmMeets::Merge);

  auto* filters = new QHBoxLayout;
  filters->addWidget(new QLabel(tr("Course:"), this));
  filters->addWidget(course_);
  filters->addWidget(new QLabel(tr("Since:"), this));
  filters->addWidget(since_);
  filters->addWidget(new QLabel(tr("Meet Type:"), this));
  filters->addWidget(type_);
  filters->addStretch();
  filters->addWidget(sort_caption_);
  connect(course_, &QComboBox::currentIndexChanged, this, &frmMeets::ApplyFilters);
  connect(type_, &QComboBox::currentIndexChanged, this, &frmMeets::ApplyFilters);
  connect(since_, &QLineEdit::editingFinished, this, &frmMeets::ApplyFilters);

  QHBoxLayout* commands = screen::CommandBar<frmMeets>(
      this, {{tr("Add"), "cmdAdd", &frmMeets::Add},
             {tr("Edit"), "cmdEdit", &frmMeets::Edit},
             {tr("Delete"), "cmdDelete", &frmMeets::Delete},
             {tr("Result Events"), "cmdResultEvents", &frmMeets::ResultEvents},
             {tr("Entry Events"), "cmdEntryEvents", &frmMeets::EntryEvents},
             {tr("Results"), "cmdResults", &frmMeets::Results},
             {tr("Entries"), "cmdEntries", &frmMeets::Entries},
             {tr("Meet Types"), "cmdMeetTypes", &frmMeets::MeetTypes}});

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(commands);
  layout->addLayout(filters);
  layout->addWidget(grid_);
  resize(900, 480);

  MeetFilter filter = start;
  model_->SetFilter(filter);
  ShowSortCaption();
  Refresh(state_.gCurrentMeet);
}

void frmMeets::LoadTypeFilter() {
  const QSignalBlocker block(type_);
  const QString keep =
      type_->count() > 0 ? type_->currentData().toString() : Q(Trim(state_.gFavoriteMeetType));
  type_->clear();
  type_->addItem(tr("All Types"), QString());
  for (const MeetType& t : LoadMeetTypeCombo(state_)) type_->addItem(Q(t.abbr), Q(t.abbr));
  int i = type_->findData(keep, Qt::UserRole, Qt::MatchFixedString);
  if (i < 0 && !keep.isEmpty()) {
    type_->addItem(keep, keep);
    i = type_->count() - 1;
  }
  type_->setCurrentIndex(std::max(0, i));
}

void frmMeets::ShowSortCaption() {
  sort_caption_->setText(Q(SortCaption(model_->Filter().sort)));
}

void frmMeets::ApplyFilters() {
  MeetFilter filter = model_->Filter();
  filter.course = static_cast<char>(course_->currentData().toInt());
  filter.type = type_->currentData().toString().toStdString();
  const std::string since = since_->text().trimmed().toStdString();
  filter.since = since.empty() ? std::nullopt : TypedDate(since, state_.gDateOrder);
  model_->SetFilter(filter);
  Refresh(state_.gCurrentMeet);
}

void frmMeets::Refresh(int32_t select) {
  model_->Reload();
  grid_->resizeColumnsToContents();
  const int row = select != 0 ? model_->RowOf(select) : -1;
  if (row >= 0) grid_->setCurrentIndex(model_->index(row, 0));
}

void frmMeets::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!offered_) OfferAddWhenEmpty();
}

void frmMeets::OfferAddWhenEmpty() {
  offered_ = true;
  const bool none = RunTrapped(state_, "frmMeets.GetMeets",
                               [&] { return ListMeets(*state_.gDb, MeetFilter{}).empty(); });
  if (!none) return;
  state_.io->Message(std::string(meettxt::kNoMeetsGoToAdd) + std::string(meettxt::kCrLf) +
                         std::string(meettxt::kNoMeetsCancel),
                     box::kInformation, "");
  Add();
}

bool frmMeets::eventFilter(QObject* watched, QEvent* event) {
  if (watched == grid_ && event->type() == QEvent::KeyPress) {
    const QString text = static_cast<QKeyEvent*>(event)->text();
    if (text.size() == 1 && text.at(0).isLetter()) {
      JumpToLetter(text.at(0).toLatin1());
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void frmMeets::JumpToLetter(char letter) {
  const int row = FirstMeetFrom(model_->Rows(), letter);
  if (row >= 0) grid_->setCurrentIndex(model_->index(row, 0));
}

const Meet* frmMeets::Chosen() {
  const Meet* m = model_->MeetAt(grid_->currentIndex().row());
  if (!m) {
    state_.io->Tell(meettxt::kNoMeetsYet);
    return nullptr;
  }
  state_.gCurrentMeet = m->meet;
  return m;
}

void frmMeets::Add() {
  auto* card = new frmMeetMaint(state_, 0, this);
  card->setAttribute(Qt::WA_DeleteOnClose);
  connect(card, &QDialog::accepted, this, [this, card] {
    state_.gCurrentMeet = card->SavedMeet();
    LoadTypeFilter();
    Refresh(card->SavedMeet());
  });
  card->open();
}

void frmMeets::Edit() {
  const Meet* m = Chosen();
  if (!m) return;
  auto* card = new frmMeetMaint(state_, m->meet, this);
  card->setAttribute(Qt::WA_DeleteOnClose);
  connect(card, &QDialog::accepted, this, [this, card] { Refresh(card->SavedMeet()); });
  card->open();
}

void frmMeets::Delete() {
  const Meet* m = Chosen();
  if (!m) return;
  const Meet meet = *m;
  if (!DeleteOneMeet(state_, meet)) return;
  if (state_.gCurrentMeet == meet.meet) state_.gCurrentMeet = 0;
  Refresh();
}

void frmMeets::OpenEvents(EventList list, int32_t meet) {
  // A meet without individual events is offered its course's default events first.
  OfferDefaultEvents(state_, list, meet);
  auto* events = new frmEvent(state_, list, meet, this);
  events->setAttribute(Qt::WA_DeleteOnClose);
  events->open();
}

void frmMeets::ResultEvents() {
  if (const Meet* m = Chosen()) OpenEvents(EventList::kResults, m->meet);
}

void frmMeets::EntryEvents() {
  if (const Meet* m = Chosen()) OpenEvents(EventList::kEntries, m->meet);
}

void frmMeets::Results() {
  const Meet* m = Chosen();
  if (!m) return;
  const int32_t meet = m->meet;
  switch (CheckOpenResults(state_, meet)) {
    case MeetOpen::kOpen:
      if (open_results_) open_results_(meet);
      break;
    case MeetOpen::kOpenEvents:
      OpenEvents(EventList::kResults, meet);
      break;
    case MeetOpen::kRefused:
      break;
  }
}

void frmMeets::Entries() {
  const Meet* m = Chosen();
  if (!m) return;
  const int32_t meet = m->meet;
  if (CheckOpenEntries(state_, meet) == MeetOpen::kOpen && open_entries_) open_entries_(meet);
}

void frmMeets::MeetTypes() {
  auto* types = new frmCodes(state_, this);
  types->setAttribute(Qt::WA_DeleteOnClose);
  connect(types, &QDialog::finished, this, [this] {
    LoadTypeFilter();
    Refresh(state_.gCurrentMeet);
  });
  types->open();
}

void frmMeets::MergeRows(int from, int to) {
  const Meet* a = model_->MeetAt(from);
  const Meet* b = model_->MeetAt(to);
  if (a && b) Merge(a->meet, b->meet);
}

void frmMeets::Merge(int32_t from, int32_t to) {
  const int a = model_->RowOf(from);
  const int b = model_->RowOf(to);
  if (a < 0 || b < 0 || from == to) return;
  const Meet meet_from = *model_->MeetAt(a);
  const Meet meet_to = *model_->MeetAt(b);
  if (!MergeMeetsAsked(state_, meet_from, meet_to)) return;
  if (state_.gCurrentMeet == from) state_.gCurrentMeet = to;
  Refresh(to);
}

}  // namespace kvlr
