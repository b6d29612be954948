#include "workouts/WorkoutScreen.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <QToolBar>
#include <QVBoxLayout>

#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/Options.h"
#include "core/VbRules.h"
#include "workouts/LineEdits.h"
#include "workouts/Memorized.h"
#include "workouts/WorkoutAnalysis.h"
#include "workouts/WorkoutConvert.h"
#include "workouts/WorkoutDialogs.h"
#include "workouts/WorkoutExchange.h"
#include "workouts/WorkoutNotes.h"
#include "workouts/WorkoutReportScreens.h"
#include "workouts/WorkoutStore.h"
#include "workouts/WorkoutTexts.h"

namespace kvlr {
namespace {

QString Q(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<int>(s.size())); }
constexpr const char* kLineMime = "application/x-kvlr-workout-line";

QString ListDate(const Date& d) {
  return QDate(d.year, d.month, d.day).toString(QStringLiteral("ddd dd MMM yyyy"));
}

}  // namespace

void WorkoutListModel::Reset(std::vector<WkHeader> rows, std::vector<WorkoutUser> users) {
  beginResetModel();
  rows_ = std::move(rows);
  users_ = std::move(users);
  endResetModel();
}
int WorkoutListModel::rowCount(const QModelIndex& p) const {
  return p.isValid() ? 0 : static_cast<int>(rows_.size());
}
int WorkoutListModel::columnCount(const QModelIndex& p) const { return p.isValid() ? 0 : 7; }

QVariant WorkoutListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= static_cast<int>(rows_.size())) return {};
  const WkHeader& h = rows_[static_cast<size_t>(index.row())];
  if (role == Qt::TextAlignmentRole && (index.column() == 0 || index.column() >= 4)) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  switch (index.column()) {
    case 0: return h.wk_num;
    case 1: return ListDate(h.wk_date);
    case 2: return Q(Trim(gMinutesToClock(h.start_time)));
    case 3: return Q(UserNameOf(users_, h.group_abbr));
    case 4: return Q(gFormatThousands(h.tot_yards) + (h.course_yls == "Y" ? " Yards" : " Meters"));
    case 5: return Q(gSecondsToMMSS(h.rest_period));
    default: return h.tot_stress;
  }
}

QVariant WorkoutListModel::headerData(int section, Qt::Orientation o, int role) const {
  static const char* kHeads[] = {"Wk #", "Date", "Start Time", "User Name", "Distance", "Rest",
                                 "Stress"};
  if (o != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section > 6) return {};
  return tr(kHeads[section]);
}

void WorkoutLinesModel::Reset(WkTable rows, bool meters, int base) {
  beginResetModel();
  rows_ = std::move(rows);
  meters_ = meters;
  base_ = base;
  endResetModel();
}
int WorkoutLinesModel::rowCount(const QModelIndex& p) const {
  return p.isValid() ? 0 : std::max(1, static_cast<int>(rows_.size()));
}
int WorkoutLinesModel::columnCount(const QModelIndex& p) const { return p.isValid() ? 0 : 9; }

QVariant WorkoutLinesModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (rows_.empty()) {
    return role == Qt::DisplayRole && index.column() == wkcol::kText ? Q(wk_text::kNoDetails)
                                                                     : QVariant();
  }
  const WkRow& r = rows_[static_cast<size_t>(index.row())];
  if (role == Qt::TextAlignmentRole && index.column() != wkcol::kText) {
    return QVariant((index.column() == wkcol::kCircuitMark ? Qt::AlignRight : Qt::AlignHCenter) |
                    Qt::AlignVCenter);
  }
  if (role == Qt::FontRole && index.row() + 1 == static_cast<int>(rows_.size())) {
    QFont f;
    f.setBold(true);
    return f;
  }
  if (role != Qt::DisplayRole) return {};
  return Q(r[static_cast<size_t>(index.column())]);
}

QVariant WorkoutLinesModel::headerData(int section, Qt::Orientation o, int role) const {
  if (o != Qt::Horizontal || role != Qt::DisplayRole) return {};
  switch (section) {
    case 0: return tr("#");
    case 1: return meters_ ? tr("Meters") : tr("Yards");
    case 2: return tr("Start Time");
    case 3: return tr("Circuit");
    case 4: return tr("Set Description");
    case 5: return tr("Energy");
    case 6: return tr("Type");
    case 7: return tr("Stroke");
    case 8: return QString(" Pace%1").arg(base_);
    default: return {};
  }
}

Qt::ItemFlags WorkoutLinesModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
  const bool line = index.isValid() && index.row() + 1 < static_cast<int>(rows_.size());
  if (line) f |= Qt::ItemIsDragEnabled;
  return f;
}

QStringList WorkoutLinesModel::mimeTypes() const { return {kLineMime}; }

QMimeData* WorkoutLinesModel::mimeData(const QModelIndexList& indexes) const {
  if (indexes.isEmpty()) return nullptr;
  auto* m = new QMimeData;
  m->setData(kLineMime, QByteArray::number(indexes.first().row() + 1));
  return m;
}

bool WorkoutLinesModel::dropMimeData(const QMimeData* data, Qt::DropAction, int row, int,
                                     const QModelIndex& parent) {
  if (!data || !data->hasFormat(kLineMime) || rows_.empty()) return false;
  const int from = data->data(kLineMime).toInt();
  const int end = static_cast<int>(rows_.size());
  int to = row >= 0 ? row + 1 : parent.isValid() ? parent.row() + 1 : end;
  to = std::clamp(to, 1, end);
  emit lineDropped(from, to);
  return false;
}

frmWorkout::frmWorkout(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmWorkout");
  setWindowTitle(tr("Workouts"));
  SQLite::Database& db = *state.gDb;
  start_ = gSetStartParmeters(ReadStartParameters(StartParametersFile(state.home.Root())));
  EnsureNotesFile(WorkoutNotesFile(state));
  energy_ = gLoadWKEnergyArray(db);
  work_stroke_ = gLoadWKWorkStrokeArray(db);
  descriptions_ = gLoadWKSetDescArray(db);
  users_ = LoadWorkoutUsers(db);

  auto* tools = new QToolBar(this);
  const std::pair<const char*, void (frmWorkout::*)()> tool_actions[] = {
      {"Add New Workout", &frmWorkout::AddWorkout},
      {"Edit Current Workout Header", &frmWorkout::EditHeader},
      {"Delete Entire Current Workout", &frmWorkout::DeleteWorkoutAsked},
      {"Save As", &frmWorkout::SaveAs},
      {"Find Workout", &frmWorkout::Find},
      {"Reports", &frmWorkout::Reports},
      {"Export Workouts", &frmWorkout::Export},
      {"Copy File", &frmWorkout::CopyFile},
      {"Purge Workouts", &frmWorkout::Purge}};
  for (const auto& [text, slot] : tool_actions) {
    QAction* a = tools->addAction(tr(text));
    a->setObjectName(text);
    connect(a, &QAction::triggered, this, slot);
  }
  connect(tools->addAction(tr("Exit this Form")), &QAction::triggered, this, &QDialog::reject);

  user_box_ = new QComboBox(this);
  user_box_->addItem(tr("All Users"), "0");
  const auto selector = WorkoutUserSelector(users_);
  for (const WorkoutUser& u : selector) user_box_->addItem(Q(u.name), Q(u.code));
  user_box_->setVisible(selector.size() > 2);
  connect(user_box_, &QComboBox::currentIndexChanged, this, [this] {
    user_ = user_box_->currentData().toString().toStdString();
    LoadList(ptr_);
  });

  list_view_ = new QTableView(this);
  list_view_->setObjectName("list");
  list_view_->setModel(&list_model_);
  list_view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_view_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_view_->verticalHeader()->hide();
  list_view_->horizontalHeader()->setSectionsClickable(true);
  list_view_->horizontalHeader()->setStretchLastSection(true);
  connect(list_view_->horizontalHeader(), &QHeaderView::sectionClicked, this, &frmWorkout::SortBy);

  caption_ = new QLabel(this);
  caption_->setObjectName("caption");
  lines_view_ = new QTableView(this);
  lines_view_->setObjectName("lines");
  lines_view_->setModel(&lines_model_);
  lines_view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  lines_view_->setSelectionMode(QAbstractItemView::SingleSelection);
  lines_view_->verticalHeader()->hide();
  lines_view_->setDragEnabled(true);
  lines_view_->setAcceptDrops(true);
  lines_view_->setDropIndicatorShown(true);
  lines_view_->setDragDropMode(QAbstractItemView::DragDrop);
  lines_view_->setDefaultDropAction(Qt::MoveAction);
  lines_view_->setContextMenuPolicy(Qt::CustomContextMenu);
  lines_view_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  lines_view_->horizontalHeader()->setSectionResizeMode(wkcol::kText, QHeaderView::Stretch);
  connect(&lines_model_, &WorkoutLinesModel::lineDropped, this, &frmWorkout::MoveDropped,
          Qt::QueuedConnection);
  connect(lines_view_, &QTableView::customContextMenuRequested, this, [this](const QPoint& p) {
    const QModelIndex i = lines_view_->indexAt(p);
    if (i.isValid() && i.column() == wkcol::kText) Permutations(i.row() + 1);
  });
  connect(lines_view_, &QTableView::doubleClicked, this, &frmWorkout::EditLineAt);

  auto* buttons = new QGridLayout;
  const std::tuple<const char*, QKeySequence, void (frmWorkout::*)()> line_actions[] = {
      {"Add Single - F2", Qt::Key_F2, &frmWorkout::AddSingle},
      {"Add Circuit - F3 ", Qt::Key_F3, &frmWorkout::AddCircuitLineAt},
      {"New Circuit - F4", Qt::Key_F4, &frmWorkout::NewCircuitAt},
      {"Add Line Note - F5", Qt::Key_F5, &frmWorkout::AddNoteAt},
      {"Edit - F6", Qt::Key_F6, &frmWorkout::EditLineAt},
      {"Delete - F7", Qt::Key_F7, &frmWorkout::DeleteLineAt},
      {" Workout Notes - F8 ", Qt::Key_F8, &frmWorkout::Notes},
      {"Analysis - F9", Qt::Key_F9, &frmWorkout::Analysis},
      {"Ins Mem Single - F10", Qt::Key_F10, &frmWorkout::InsertMemSingle},
      {"Ins Mem Circuit - F11", Qt::Key_F11, &frmWorkout::InsertMemCircuit},
      {"Memorize - Ctrl-M", QKeySequence(Qt::CTRL | Qt::Key_M), &frmWorkout::MemorizeAt}};
  int i = 0;
  for (const auto& [text, key, slot] : line_actions) {
    auto* b = new QPushButton(tr(text), this);
    b->setObjectName(QString(text).trimmed());
    b->setShortcut(key);
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, slot);
    buttons->addWidget(b, i / 6, i % 6);
    ++i;
  }
  auto* v = new QVBoxLayout(this);
  v->addWidget(tools);
  v->addWidget(user_box_);
  v->addWidget(list_view_, 2);
  v->addWidget(caption_);
  v->addWidget(lines_view_, 3);
  v->addLayout(buttons);
  resize(1000, 720);

  connect(list_view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) {
            const auto& rows = list_model_.Rows();
            if (!current.isValid() || current.row() >= static_cast<int>(rows.size())) return;
            ptr_ = rows[static_cast<size_t>(current.row())].wk_ptr;
            ShowWorkout();
          });
  LoadList(0);
}

void frmWorkout::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_C && event->modifiers() == Qt::AltModifier) {
    reject();
    return;
  }
  QDialog::keyPressEvent(event);
}

void frmWorkout::SortBy(int column) {
  static const std::pair<int, WorkoutSort> kColumns[] = {{0, WorkoutSort::kNumber},
                                                         {1, WorkoutSort::kDate},
                                                         {3, WorkoutSort::kUser},
                                                         {4, WorkoutSort::kDistance},
                                                         {6, WorkoutSort::kStress}};
  for (const auto& [c, sort] : kColumns) {
    if (c != column) continue;
    bool& desc = descending_[static_cast<int>(sort)];
    if (sort == sort_) desc = !desc;
    sort_ = sort;
    order_ = WorkoutOrderClause(sort, desc);
    LoadList(ptr_);
  }
}

void frmWorkout::LoadList(int32_t keep) {
  try {
    list_model_.Reset(ListWorkouts(*state_.gDb, user_, order_), users_);
    if (!SelectWorkout(keep) && list_model_.rowCount() > 0) {
      list_view_->selectRow(0);
    } else if (list_model_.rowCount() == 0) {
      ptr_ = 0;
      ShowWorkout();
    }
  } catch (const std::exception& e) {
    ReportError(state_, "frmWorkout.LoadList", e);
  }
}

bool frmWorkout::SelectWorkout(int32_t wk_ptr) {
  const auto& rows = list_model_.Rows();
  for (size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].wk_ptr != wk_ptr) continue;
    list_view_->selectRow(static_cast<int>(i));
    list_view_->scrollTo(list_model_.index(static_cast<int>(i), 0));
    if (ptr_ == wk_ptr) ShowWorkout();
    return true;
  }
  return false;
}

void frmWorkout::ShowWorkout() {
  const int keep = CurrentRow();
  lines_.clear();
  WorkoutLinesResult result;
  std::optional<WkHeader> h;
  try {
    if (ptr_ != 0) h = ReadWorkout(*state_.gDb, ptr_);
    if (h) {
      WorkoutLinesParams params = ParamsOfWorkout(*state_.gDb, ptr_, start_.base_interval);
      if (gGetWorkoutLines(state_, ptr_, params, energy_, true, result) &&
          RefreshWorkoutHeader(*state_.gDb, ptr_, result)) {
        // The list shows the new totals.
        auto rows = list_model_.Rows();
        for (auto& r : rows) {
          if (r.wk_ptr == ptr_) {
            r.tot_yards = static_cast<int32_t>(result.distance);
            r.tot_stress = result.stress;
          }
        }
        const int current = list_view_->currentIndex().row();
        const QSignalBlocker block(list_view_->selectionModel());
        list_model_.Reset(std::move(rows), users_);
        list_view_->selectRow(current);
      }
      lines_ = ReadWorkoutLines(*state_.gDb, ptr_);
    }
  } catch (const std::exception& e) {
    ReportError(state_, "frmWorkout.ShowWorkout", e);
  }
  if (h) {
    caption_->setText(QString("Wk # %1 - %2")
                          .arg(h->wk_num)
                          .arg(QDate(h->wk_date.year, h->wk_date.month, h->wk_date.day)
                                   .toString(QStringLiteral("dddd"))));
  } else {
    caption_->clear();
  }
  lines_model_.Reset(std::move(result.lines), h && h->course_yls != "Y", start_.base_interval);
  SelectLine(std::min(keep, lines_model_.rowCount()));
}

void frmWorkout::SelectLine(int row) {
  if (lines_model_.rowCount() == 0) return;
  lines_view_->selectRow(std::clamp(row, 1, lines_model_.rowCount()) - 1);
}

int frmWorkout::CurrentRow() const {
  const QModelIndex i = lines_view_->currentIndex();
  return i.isValid() ? i.row() + 1 : 1;
}

void frmWorkout::Store(int row) {
  try {
    WriteWorkoutLines(*state_.gDb, ptr_, lines_);
  } catch (const std::exception& e) {
    ReportError(state_, "frmWorkout.Store", e);
  }
  ShowWorkout();
  SelectLine(row);
}

bool frmWorkout::LineDialog(char mode, const QString& title, SetValues& values,
                            int16_t& circuit_reps, bool circuit_reps_on) {
  frmWorkoutLineAddEdit::Setup setup;
  setup.mode = mode;
  setup.title = title;
  setup.values = values;
  setup.circuit_reps = circuit_reps;
  setup.circuit_reps_on = circuit_reps_on;
  setup.disable_energy = start_.disable_energy;
  setup.disable_stroke = start_.disable_stroke;
  frmWorkoutLineAddEdit dialog(setup, energy_, work_stroke_, descriptions_, *state_.io, this);
  if (Run(dialog) != QDialog::Accepted) return false;
  values = dialog.Values();
  circuit_reps = dialog.CircuitReps();
  return true;
}

namespace {
SetValues Defaults(const StartValues& s) { return {s.reps, s.dist, s.interval, s.desc, 0, "", ""}; }
SetValues ValuesOf(const WkLine& l) {
  return {l.set_reps, l.set_dist, l.set_interval, l.IsNote() ? l.set_note : l.set_desc,
          l.set_energyno, l.set_type, l.set_categoryabbr};
}
}  // namespace

void frmWorkout::AddWorkout() {
  HeaderEntry e;
  e.wk_num = NextWorkoutNumber(*state_.gDb);
  e.wk_date = state_.clock->Today();
  e.start_text = start_.start_text;
  e.rest_text = gSecondsToMMSS(start_.rest_seconds);
  if (e.rest_text.size() < 5) e.rest_text = std::string(5 - e.rest_text.size(), '0') + e.rest_text;
  e.yards = start_.course == "Y";
  e.user = user_;
  frmWorkoutAddEdit dialog(state_, 'A', e, start_.disable_energy, start_.disable_stroke, this);
  if (Run(dialog) != QDialog::Accepted) return;
  start_.disable_energy = dialog.DisableEnergy();
  start_.disable_stroke = dialog.DisableStroke();
  LoadList(dialog.WrittenPtr());
}

void frmWorkout::EditHeader() {
  const auto h = ptr_ ? ReadWorkout(*state_.gDb, ptr_) : std::nullopt;
  if (!h) {
    state_.io->Tell(wk_text::kNothingToEdit);
    return;
  }
  HeaderEntry e;
  e.wk_ptr = h->wk_ptr;
  e.wk_num = h->wk_num;
  e.wk_date = h->wk_date;
  e.start_text = Trim(gMinutesToClock(h->start_time));
  e.rest_text = gSecondsToMMSS(h->rest_period);
  if (e.rest_text.size() < 5) e.rest_text = std::string(5 - e.rest_text.size(), '0') + e.rest_text;
  e.yards = h->course_yls == "Y";
  e.user = h->group_abbr == "---" ? "0" : h->group_abbr;
  frmWorkoutAddEdit dialog(state_, 'E', e, start_.disable_energy, start_.disable_stroke, this);
  if (Run(dialog) != QDialog::Accepted) return;
  start_.disable_energy = dialog.DisableEnergy();
  start_.disable_stroke = dialog.DisableStroke();
  LoadList(ptr_);
}

void frmWorkout::DeleteWorkoutAsked() {
  const auto h = ptr_ ? ReadWorkout(*state_.gDb, ptr_) : std::nullopt;
  if (!h) {
    state_.io->Tell(wk_text::kNothingToDelete);
    return;
  }
  if (!state_.io->AskYesNo(DeleteWorkoutQuestion(*h))) return;
  DeleteWorkout(*state_.gDb, ptr_);
  ptr_ = 0;
  LoadList(0);
}

void frmWorkout::SaveAs() {
  const auto h = ptr_ ? ReadWorkout(*state_.gDb, ptr_) : std::nullopt;
  if (!h) {
    state_.io->Tell(wk_text::kSaveAsNeedsWorkout);
    return;
  }
  const int32_t next = NextWorkoutNumber(*state_.gDb);
  frmWorkoutSaveAs ask(h->wk_num, next, this);
  if (Run(ask) != QDialog::Accepted) return;
  HeaderEntry e;
  e.wk_num = ask.Number();
  e.wk_date = ask.Today() ? state_.clock->Today() : h->wk_date;
  e.start_text = Trim(gMinutesToClock(h->start_time));
  e.rest_text = gSecondsToMMSS(h->rest_period);
  if (e.rest_text.size() < 5) e.rest_text = std::string(5 - e.rest_text.size(), '0') + e.rest_text;
  e.yards = h->course_yls == "Y";
  e.user = h->group_abbr == "---" ? "0" : h->group_abbr;
  frmWorkoutAddEdit dialog(state_, 'S', e, start_.disable_energy, start_.disable_stroke, this);
  dialog.SetSource(ptr_);
  if (Run(dialog) != QDialog::Accepted) return;
  LoadList(dialog.WrittenPtr());
}

void frmWorkout::Find() {
  const bool desc = descending_[static_cast<int>(sort_)];
  std::optional<int32_t> found;
  if (sort_ == WorkoutSort::kDate) {
    const auto h = ptr_ ? ReadWorkout(*state_.gDb, ptr_) : std::nullopt;
    frmWKSearch ask(h ? h->wk_date : state_.clock->Today(), this);
    if (Run(ask) != QDialog::Accepted) return;
    found = FindWorkoutByDate(*state_.gDb, ask.Chosen(), desc, user_);
  } else {
    bool ok = false;
    const int n = QInputDialog::getInt(this, tr("Find Workout"), Q(wk_text::kNumberPrompt), 1, 1,
                                       999999, 1, &ok);
    if (!ok) return;
    found = FindWorkoutByNumber(*state_.gDb, n, desc, user_);
  }
  if (found) SelectWorkout(*found);
}

void frmWorkout::AddSingle() {
  if (ptr_ == 0) return;
  const int r = CurrentRow();
  if (const auto refuse = RefuseAddSingle(lines_, r)) {
    state_.io->Tell(*refuse);
    return;
  }
  SetValues v = Defaults(start_);
  int16_t reps = 0;
  if (!LineDialog('S', Q(AddSingleTitle(lines_, r)), v, reps, false)) return;
  if (AddSingleSet(lines_, r, v)) Store(lines_.empty() ? 1 : std::min<int>(r, static_cast<int>(lines_.size())));
}

void frmWorkout::AddNoteAt() {
  if (ptr_ == 0) return;
  const int r = lines_.empty() ? 1 : CurrentRow();
  SetValues v;
  int16_t reps = 0;
  if (!LineDialog('N', Q(AddNoteTitle(r)), v, reps, false)) return;
  if (AddNote(lines_, r, v.desc)) Store(r);
}

void frmWorkout::NewCircuitAt() {
  if (ptr_ == 0) return;
  const int r = lines_.empty() ? 1 : CurrentRow();
  if (const auto refuse = RefuseAddSingle(lines_, r)) {
    state_.io->Tell(*refuse);
    return;
  }
  SetValues v = Defaults(start_);
  int16_t reps = start_.circuit_reps;
  if (!LineDialog('C', Q(NewCircuitTitle(r)), v, reps, true)) return;
  if (NewCircuit(lines_, r, v, reps)) Store(r);
}

void frmWorkout::AddCircuitLineAt() {
  if (ptr_ == 0) return;
  const int r = lines_.empty() ? 1 : CurrentRow();
  CircuitPlace place = PlanAddCircuitLine(lines_, r);
  if (place == CircuitPlace::kNewCircuit) {
    NewCircuitAt();
    return;
  }
  if (place == CircuitPlace::kAsk) {
    place = state_.io->AskYesNo(AddCircuitQuestion(r)) ? CircuitPlace::kEndOfPrevious
                                                       : CircuitPlace::kFrontOfNext;
  }
  SetValues v = Defaults(start_);
  int16_t reps = CircuitRepsAt(lines_, r, place, start_.circuit_reps);
  const bool first = place == CircuitPlace::kFrontOfNext;
  if (!LineDialog('C', Q(AddCircuitTitle(place, r)), v, reps, first)) return;
  if (AddCircuitLine(lines_, r, place, v, reps)) Store(r);
}

void frmWorkout::EditLineAt() {
  if (ptr_ == 0) return;
  const int r = CurrentRow();
  if (lines_.empty() || r > static_cast<int>(lines_.size())) {
    AddSingle();
    return;
  }
  const WkLine& l = lines_[static_cast<size_t>(r - 1)];
  SetValues v = ValuesOf(l);
  int16_t reps = l.circuit_reps;
  if (l.IsNote()) {
    v.desc = Trim(l.set_note);
    if (!LineDialog('N', QString("Edit note for Line %1").arg(r), v, reps, false)) return;
    if (EditNote(lines_, r, v.desc)) Store(r);
    return;
  }
  const bool first = l.IsCircuit() && l.circuit_line == 1;
  if (!LineDialog(l.IsCircuit() ? 'C' : 'S', Q(EditTitle(lines_, r)), v, reps, first)) return;
  if (EditLine(lines_, r, v, reps)) Store(r);
}

void frmWorkout::DeleteLineAt() {
  if (ptr_ == 0) return;
  const int r = CurrentRow();
  if (DeleteLine(lines_, r)) Store(r);
}

void frmWorkout::MoveDropped(int from, int to) {
  if (ptr_ == 0) return;
  const int row = MoveLine(lines_, from, to);
  if (row > 0) Store(row);
}

void frmWorkout::Notes() {
  const auto h = ptr_ ? ReadWorkout(*state_.gDb, ptr_) : std::nullopt;
  if (!h) return;
  const auto file = WorkoutNotesFile(state_);
  const QString old = Q(ReadWorkoutNote(file, ptr_).text);
  frmWorkoutNotes dialog(h->wk_num, old, this);
  if (Run(dialog) != QDialog::Accepted || dialog.Text() == old) return;
  QString text = dialog.Text();
  text.replace("\r\n", "\n").replace("\n", "\r\n");
  if (!AppendWorkoutNote(file, ptr_, text.toStdString(), state_.clock->Now())) {
    state_.io->Tell("The notes could not be written to " + file.string());
  }
}

void frmWorkout::Analysis() {
  const auto h = ptr_ ? ReadWorkout(*state_.gDb, ptr_) : std::nullopt;
  if (!h) return;
  const WorkoutAnalysis a = AnalyzeWorkout(lines_, energy_, work_stroke_);
  if (!a.any) {
    state_.io->Tell(kNothingToAnalyze);
    return;
  }
  frmWorkoutAnalysis dialog(a, h->course_yls != "Y", this);
  Run(dialog);
}

void frmWorkout::InsertMemSingle() {
  if (ptr_ == 0) return;
  const int r = lines_.empty() ? 1 : CurrentRow();
  frmWorkoutInsertMemSingle dialog(state_, this);
  if (Run(dialog) != QDialog::Accepted || !dialog.Selected()) return;
  if (InsertMemorizedSet(lines_, r, *dialog.Selected())) Store(r);
}

void frmWorkout::InsertMemCircuit() {
  if (ptr_ == 0) return;
  const int r = lines_.empty() ? 1 : CurrentRow();
  frmWorkoutInsertMemCircuit dialog(state_, this);
  if (Run(dialog) != QDialog::Accepted || !dialog.HasSelection()) return;
  if (InsertMemorizedCircuit(lines_, r, dialog.Lines(), dialog.Cycles())) Store(r);
}

void frmWorkout::MemorizeAt() {
  if (ptr_ == 0 || lines_.empty()) return;
  const MemorizePlan plan = PlanMemorize(lines_, CurrentRow());
  if (plan.kind == MemorizePlan::kRefuse) {
    state_.io->Tell(plan.text);
    return;
  }
  if (!state_.io->AskYesNo(plan.text)) return;
  try {
    Memorize(*state_.gDb, lines_, plan);
  } catch (const std::exception& e) {
    ReportError(state_, "frmWorkout.Memorize", e);
  }
}

void frmWorkout::Permutations(int row) {
  if (row < 1 || row > static_cast<int>(lines_.size())) return;
  const WkLine& l = lines_[static_cast<size_t>(row - 1)];
  if (l.set_reps == 0 || l.set_dist == 0 || l.set_interval == 0) return;
  frmWorkoutPermutations dialog(l.set_reps, l.set_dist, l.set_interval, this);
  if (Run(dialog) != QDialog::Accepted) return;
  const auto [reps, interval] = dialog.Chosen();
  if (reps > 0 && SetRepsAndInterval(lines_, row, reps, interval)) Store(row);
}

void frmWorkout::Export() {
  const QString folder = QFileDialog::getExistingDirectory(
      this, tr("Export Workouts"),
      QString::fromStdString(GetDirectories(state_, DirectoryKind::kExport).string()));
  if (folder.isEmpty()) return;
  // The same export as `kvlr export-workouts`: every workout, no date bound.
  const Wk3Export out =
      ExportWorkouts(state_, folder.toStdString(), state_.gNullDate, state_.gNullDate);
  if (out.workouts == 0) {
    state_.io->Tell(wk_text::kNoWorkoutsToExport);
    return;
  }
  state_.io->Tell(fmt::format("{} workouts exported to {}", out.workouts, out.zip.string()));
}

void frmWorkout::CopyFile() {
  const QString file = QFileDialog::getOpenFileName(
      this, tr("Copy File"), QString::fromStdString(state_.gDataDir.string()),
      tr("Workout files (*WorkoutExport*.zip *.wk3)"));
  if (file.isEmpty()) return;
  const QString folder = QFileDialog::getExistingDirectory(
      this, tr("Copy File"), QString::fromStdString(state_.gDataDir.string()));
  if (folder.isEmpty()) return;
  state_.io->Tell(CopyWorkoutFile(file.toStdString(), folder.toStdString()));
}

void frmWorkout::Purge() {
  if (!state_.io->AskYesNo(wk_text::kPurgeQuestion)) return;
  PurgeWorkouts(*state_.gDb);
  state_.io->Tell(wk_text::kPurged);
  ptr_ = 0;
  LoadList(0);
}

void frmWorkout::Reports() {
  const auto h = ptr_ ? ReadWorkout(*state_.gDb, ptr_) : std::nullopt;
  if (!h) {
    state_.io->Tell(wk_text::kNothingToPrint);
    return;
  }
  frmWorkoutRptLogBook dialog(state_, h->wk_num, this);
  dialog.exec();
}

}  // namespace kvlr
