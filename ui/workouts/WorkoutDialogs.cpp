#include "workouts/WorkoutDialogs.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "workouts/WorkoutConvert.h"
#include "workouts/WorkoutNotes.h"
#include "workouts/WorkoutSetup.h"
#include "workouts/WorkoutTexts.h"

namespace kvlr {
namespace {

QString Q(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<int>(s.size())); }

QDialogButtonBox* OkCancel(QDialog* d) {
  auto* b = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, d);
  b->button(QDialogButtonBox::Cancel)->setText(QObject::tr("&Cancel"));
  QObject::connect(b, &QDialogButtonBox::accepted, d, &QDialog::accept);
  QObject::connect(b, &QDialogButtonBox::rejected, d, &QDialog::reject);
  return b;
}

QDate ToQ(const Date& d) { return QDate(d.year, d.month, d.day); }
Date FromQ(const QDate& d) { return Date{d.year(), d.month(), d.day()}; }

}  // namespace

frmWorkoutAddEdit::frmWorkoutAddEdit(AppState& state, char mode, const HeaderEntry& entry,
                                     bool disable_energy, bool disable_stroke, QWidget* parent)
    : QDialog(parent), state_(state), mode_(mode), entry_(entry) {
  setObjectName("frmWorkoutAddEdit");
  setWindowTitle(mode == 'A' ? tr("Add New Workout")
                 : mode == 'E' ? tr("Edit Workout")
                               : tr("Save As New Workout"));
  number_ = new QSpinBox(this);
  number_->setObjectName("number");
  number_->setRange(1, 999999);
  number_->setValue(entry.wk_num);
  date_ = new QDateEdit(this);
  date_->setObjectName("date");
  date_->setCalendarPopup(true);
  date_->setDateRange(QDate(1960, 1, 1), QDate(2050, 1, 1));
  date_->setDate(ToQ(entry.wk_date == kNullDate ? state.clock->Today() : entry.wk_date));
  start_ = new QLineEdit(this);
  start_->setObjectName("start");
  start_->setInputMask("99:99 >A\\M");
  start_->setText(Q(entry.start_text));
  rest_ = new QLineEdit(this);
  rest_->setObjectName("rest");
  rest_->setInputMask("99:99");
  rest_->setText(Q(entry.rest_text));
  yards_ = new QRadioButton(tr("Yards"), this);
  meters_ = new QRadioButton(tr("Meters"), this);
  (entry.yards ? yards_ : meters_)->setChecked(true);
  energy_ = new QCheckBox(tr("Disable Energy Column"), this);
  energy_->setChecked(disable_energy);
  stroke_ = new QCheckBox(tr("Disable Stroke Category Column"), this);
  stroke_->setChecked(disable_stroke);
  auto* form = new QFormLayout;
  form->addRow(tr("Workout Number :"), number_);
  form->addRow(tr("Workout Date :"), date_);
  form->addRow(tr("Start Time :"), start_);
  form->addRow(tr("Rest between sets (MM:SS) :"), rest_);
  auto* course = new QHBoxLayout;
  course->addWidget(yards_);
  course->addWidget(meters_);
  form->addRow(course);
  form->addRow(energy_);
  form->addRow(stroke_);
  auto* v = new QVBoxLayout(this);
  v->addLayout(form);
  v->addWidget(OkCancel(this));
}

HeaderEntry frmWorkoutAddEdit::Entry() const {
  HeaderEntry e = entry_;
  e.wk_num = number_->value();
  e.wk_date = FromQ(date_->date());
  e.start_text = start_->text().toUpper().toStdString();
  e.rest_text = rest_->text().toStdString();
  e.yards = yards_->isChecked();
  return e;
}

void frmWorkoutAddEdit::accept() {
  try {
    HeaderEntry e = Entry();
    if (mode_ == 'S') e.wk_ptr = 0;
    const HeaderCheck check = CheckWorkoutHeader(*state_.gDb, e);
    if (!check.message.empty()) {
      state_.io->Tell(check.message);
      QWidget* focus[] = {number_, number_, start_, rest_};
      focus[std::clamp(check.field, 0, 3)]->setFocus();
      return;
    }
    gValidRest(e.rest_text);
    if (mode_ == 'S') {
      written_ = SaveWorkoutAs(*state_.gDb, source_, e, WorkoutNotesFile(state_),
                               state_.clock->Now());
    } else {
      written_ = SaveWorkoutHeader(*state_.gDb, e);
    }
    QDialog::accept();
  } catch (const std::exception& ex) {
    ReportError(state_, "frmWorkoutAddEdit.cmdOK_Click", ex);
  }
}

frmWorkoutLineAddEdit::frmWorkoutLineAddEdit(const Setup& setup, const EnergyArray& energy,
                                             const std::vector<WorkStrokeEntry>& work_stroke,
                                             const std::vector<std::string>& descriptions,
                                             UserIo& io, QWidget* parent)
    : QDialog(parent), setup_(setup), work_stroke_(work_stroke), io_(io) {
  setObjectName("frmWorkoutLineAddEdit");
  setWindowTitle(setup.title);
  const SetValues& v = setup.values;
  auto box = [this](const char* name, const QString& text) {
    auto* e = new QLineEdit(text, this);
    e->setObjectName(name);
    return e;
  };
  reps_ = box("reps", QString::number(v.reps));
  dist_ = box("dist", QString::number(v.dist));
  interval_ = box("interval", Q(gSecondsToMMSS(v.interval)));
  circuit_reps_ = box("circuit_reps", QString::number(setup.circuit_reps));
  note_ = box("note", setup.mode == 'N' ? Q(Trim(v.desc)) : QString());
  desc_ = new QComboBox(this);
  desc_->setObjectName("desc");
  desc_->setEditable(true);
  for (const auto& d : descriptions) desc_->addItem(Q(d));
  desc_->setEditText(Q(Trim(v.desc)));
  energy_ = new QComboBox(this);
  energy_->setObjectName("energy");
  for (size_t i = 0; i < energy.size(); ++i) {
    energy_->addItem(QString("%1  %2  %3").arg(i).arg(Q(Trim(energy[i].abbr)), Q(Trim(energy[i].name))),
                     static_cast<int>(i));
  }
  energy_->setCurrentIndex(std::clamp<int>(v.energyno, 0, 9));
  // A work type may combine letters ("SK"), so its box stays open to typing; a stroke is
  // one category or none.
  type_ = new QComboBox(this);
  type_->setObjectName("type");
  type_->setEditable(true);
  type_->setInsertPolicy(QComboBox::NoInsert);
  stroke_ = new QComboBox(this);
  stroke_->setObjectName("stroke");
  stroke_->addItem(QString(), QString());
  for (const auto& e : work_stroke) {
    const QString code = Q(Trim(e.abbr));
    (e.kind == 1 ? type_ : stroke_)->addItem(code + "  " + Q(Trim(e.name)), code);
  }
  // Picking a named entry leaves only its code in the box.
  connect(type_, &QComboBox::activated, this,
          [this](int i) { type_->setEditText(type_->itemData(i).toString()); });
  type_->setEditText(Q(Trim(v.type)));
  const QString category = Q(Trim(v.category)).toUpper();
  if (stroke_->findData(category) < 0) stroke_->addItem(category, category);  // kept as stored
  stroke_->setCurrentIndex(stroke_->findData(category));
  energy_->setEnabled(!setup.disable_energy);
  stroke_->setEnabled(!setup.disable_stroke);
  auto* form = new QFormLayout;
  const bool note = setup.mode == 'N';
  for (QWidget* w : std::initializer_list<QWidget*>{reps_, dist_, interval_, desc_, energy_, type_, stroke_}) {
    w->setEnabled(w->isEnabled() && !note);
  }
  form->addRow(tr("Reps"), reps_);
  form->addRow(tr("Distance"), dist_);
  form->addRow(tr("Interval"), interval_);
  form->addRow(tr("Circuit Reps"), circuit_reps_);
  form->addRow(tr("Set Description"), desc_);
  form->addRow(tr("Energy"), energy_);
  form->addRow(tr("Work Type"), type_);
  form->addRow(tr("Stroke"), stroke_);
  form->addRow(tr("Note"), note_);
  circuit_reps_->setEnabled(setup.mode == 'C' && setup.circuit_reps_on);
  note_->setEnabled(note);
  auto* v2 = new QVBoxLayout(this);
  v2->addLayout(form);
  v2->addWidget(OkCancel(this));
  (note ? static_cast<QWidget*>(note_) : reps_)->setFocus();
}

SetValues frmWorkoutLineAddEdit::Values() const {
  SetValues v = setup_.values;
  if (setup_.mode == 'N') {
    v.desc = note_->text().toStdString();
    return v;
  }
  v.reps = static_cast<int32_t>(Val(reps_->text().toStdString()));
  v.dist = static_cast<int32_t>(Val(dist_->text().toStdString()));
  v.interval = static_cast<int32_t>(gMMSSToSeconds(interval_->text().trimmed().toStdString()));
  v.desc = desc_->currentText().toStdString();
  if (!setup_.disable_energy) v.energyno = static_cast<int16_t>(energy_->currentData().toInt());
  QString type = type_->currentText();
  if (const int i = type_->findText(type); i >= 0) type = type_->itemData(i).toString();
  v.type = Trim(type.toUpper().toStdString());
  if (!setup_.disable_stroke) v.category = stroke_->currentData().toString().toStdString();
  return v;
}

void frmWorkoutLineAddEdit::accept() {
  if (setup_.mode == 'N') {
    const std::string message = CheckNoteEntry(Note());
    if (!message.empty()) {
      io_.Tell(message);
      note_->setFocus();
      return;
    }
    QDialog::accept();
    return;
  }
  const SetValues v = Values();
  const std::string message =
      CheckSetEntry(v.reps, v.dist, v.interval, ValidWorkType(work_stroke_, v.type));
  if (!message.empty()) {
    io_.Tell(message);
    if (message == wk_text::kNeedInterval) {
      interval_->setFocus();
    } else if (message == wk_text::kBadWorkType) {
      type_->setFocus();
    } else {
      reps_->setFocus();
    }
    return;
  }
  QDialog::accept();
}

frmWorkoutNotes::frmWorkoutNotes(int32_t wk_num, const QString& text, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmWorkoutNotes");
  setWindowTitle(tr("Notes for Workout #") + QString::number(wk_num));
  text_ = new QPlainTextEdit(text, this);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QDialogButtonBox::Ok);
  auto* clear = buttons->addButton(tr("&Delete Text"), QDialogButtonBox::ResetRole);
  buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
  connect(clear, &QPushButton::clicked, text_, &QPlainTextEdit::clear);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* v = new QVBoxLayout(this);
  v->addWidget(text_);
  v->addWidget(buttons);
  resize(480, 320);
}

frmWorkoutSaveAs::frmWorkoutSaveAs(int32_t from, int32_t to, QWidget* parent) : QDialog(parent) {
  setObjectName("frmWorkoutSaveAs");
  setWindowTitle(tr("Save As Workout #") + QString::number(from));
  number_ = new QSpinBox(this);
  number_->setRange(1, 999999);
  number_->setValue(to);
  today_ = new QRadioButton(tr("Today's Date"), this);
  auto* same = new QRadioButton(tr("Workout Date"), this);
  today_->setChecked(true);
  auto* row = new QHBoxLayout;
  row->addWidget(new QLabel(tr("Save Workout  #") + QString::number(from) + tr("  As"), this));
  row->addWidget(number_);
  auto* v = new QVBoxLayout(this);
  v->addLayout(row);
  v->addWidget(today_);
  v->addWidget(same);
  v->addWidget(OkCancel(this));
}

frmWKSearch::frmWKSearch(const Date& start, QWidget* parent) : QDialog(parent) {
  setObjectName("frmWKSearch");
  setWindowTitle(tr("Workout Find"));
  date_ = new QDateEdit(ToQ(start), this);
  date_->setCalendarPopup(true);
  auto* form = new QFormLayout(this);
  form->addRow(tr("Enter Workout Date"), date_);
  form->addRow(OkCancel(this));
}

Date frmWKSearch::Chosen() const { return FromQ(date_->date()); }

frmWorkoutAnalysis::frmWorkoutAnalysis(const WorkoutAnalysis& a, bool meters, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmWorkoutAnalysis");
  setWindowTitle(tr("Workout Analysis"));
  grid_ = new QTableWidget(0, 5, this);
  grid_->setHorizontalHeaderLabels(
      {tr("Energy Levels"), meters ? tr("Meters") : tr("Yards"), tr("Percent"), tr("Minutes"),
       tr("Percent")});
  grid_->verticalHeader()->hide();
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  auto put = [this](int row, int col, const std::string& text, bool right, bool bold = false) {
    auto* item = new QTableWidgetItem(Q(text));
    if (right) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (bold) {
      QFont f = item->font();
      f.setBold(true);
      item->setFont(f);
    }
    grid_->setItem(row, col, item);
  };
  // One shared routine for the three tables: a heading row, the rows, a blank row.
  auto table = [&](const char* title, const std::vector<AnalysisRow>& rows, bool first) {
    int r = grid_->rowCount();
    if (!first) {
      grid_->insertRow(r);
      put(r, 0, title, false, true);
      ++r;
    }
    for (const AnalysisRow& row : rows) {
      grid_->insertRow(r);
      put(r, 0, row.name, false);
      put(r, 1, gFormatThousands(row.distance), true);
      put(r, 2, row.distance_percent, true);
      put(r, 3, AnalysisMinutes(row.seconds), true);
      put(r, 4, row.time_percent, true);
      ++r;
    }
    grid_->insertRow(r);
  };
  table("Energy Levels", a.energy, true);
  table("Stroke Categories", a.stroke, false);
  table("Type of Work", a.work, false);
  grid_->resizeColumnsToContents();
  grid_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  auto* close = new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* v = new QVBoxLayout(this);
  v->addWidget(grid_);
  v->addWidget(close);
  resize(560, 460);
}

frmWorkoutPermutations::frmWorkoutPermutations(int32_t reps, int32_t dist, int32_t interval,
                                               QWidget* parent)
    : QDialog(parent), rows_(SetPermutations(reps, dist, interval)) {
  setObjectName("frmWorkoutPermutations");
  setWindowTitle(tr("Set Permutations"));
  grid_ = new QTableWidget(static_cast<int>(rows_.size()), 2, this);
  grid_->setHorizontalHeaderLabels({tr("#"), tr("Set")});
  grid_->verticalHeader()->hide();
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  for (int i = 0; i < static_cast<int>(rows_.size()); ++i) {
    grid_->setItem(i, 0, new QTableWidgetItem(QString::number(rows_[static_cast<size_t>(i)].number)));
    grid_->setItem(i, 1, new QTableWidgetItem(Q(rows_[static_cast<size_t>(i)].text)));
    if (rows_[static_cast<size_t>(i)].current) grid_->selectRow(i);
  }
  grid_->horizontalHeader()->setStretchLastSection(true);
  auto* none = new QRadioButton(tr("None"), this);
  down_ = new QRadioButton(tr("Round Down"), this);
  up_ = new QRadioButton(tr("Round Up"), this);
  none->setChecked(true);
  auto* options = new QHBoxLayout;
  options->addWidget(none);
  options->addWidget(down_);
  options->addWidget(up_);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(tr("&Select"), QDialogButtonBox::AcceptRole);
  buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(grid_, &QTableWidget::doubleClicked, this, &QDialog::accept);
  auto* v = new QVBoxLayout(this);
  v->addWidget(grid_);
  v->addLayout(options);
  v->addWidget(buttons);
  resize(320, 420);
}

std::pair<int32_t, int32_t> frmWorkoutPermutations::Chosen() const {
  const int row = grid_->currentRow();
  if (row < 0 || row >= static_cast<int>(rows_.size())) return {0, 0};
  const Permutation& p = rows_[static_cast<size_t>(row)];
  const auto rounding = down_->isChecked() ? PermutationRounding::kDown
                        : up_->isChecked() ? PermutationRounding::kUp
                                           : PermutationRounding::kNone;
  return {p.reps, RoundPermutationInterval(p.interval, rounding)};
}

std::optional<SetValues> AskLibraryLine(AppState& state, QWidget* parent, const QString& title,
                                        const SetValues& values, char mode) {
  SQLite::Database& db = *state.gDb;
  const EnergyArray energy = gLoadWKEnergyArray(db);
  const auto work_stroke = gLoadWKWorkStrokeArray(db);
  frmWorkoutLineAddEdit::Setup setup;
  setup.mode = mode;
  setup.title = title;
  setup.values = values;
  frmWorkoutLineAddEdit dialog(setup, energy, work_stroke, gLoadWKSetDescArray(db), *state.io,
                               parent);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Values();
}

namespace {

void FillSetRow(QTableWidget* grid, int row, const SetValues& v, int first_col = 0) {
  const QString texts[] = {QString::number(v.reps), QString::number(v.dist),
                           Q(gSecondsToMMSS(v.interval)), Q(Trim(v.desc)),
                           v.energyno ? QString::number(v.energyno) : QString(), Q(Trim(v.type)),
                           Q(Trim(v.category))};
  for (int c = 0; c < 7; ++c) grid->setItem(row, first_col + c, new QTableWidgetItem(texts[c]));
}

QTableWidget* Grid(QWidget* parent, const QStringList& heads) {
  auto* g = new QTableWidget(0, static_cast<int>(heads.size()), parent);
  g->setHorizontalHeaderLabels(heads);
  g->verticalHeader()->hide();
  g->setSelectionBehavior(QAbstractItemView::SelectRows);
  g->setSelectionMode(QAbstractItemView::SingleSelection);
  g->setEditTriggers(QAbstractItemView::NoEditTriggers);
  g->horizontalHeader()->setStretchLastSection(true);
  return g;
}

}  // namespace

frmWorkoutInsertMemSingle::frmWorkoutInsertMemSingle(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state) {
  setObjectName("frmWorkoutInsertMemSingle");
  setWindowTitle(tr("Memorized Single Sets"));
  grid_ = Grid(this, {tr("Reps"), tr("Dist"), tr("Interval"), tr("Set Description"),
                      tr("Energy"), tr("Type"), tr("Stroke")});
  grid_->setSortingEnabled(false);
  auto* add = new QPushButton(tr("Add Set"), this);
  auto* edit = new QPushButton(tr("Edit Highlighted Set"), this);
  auto* del = new QPushButton(tr("Delete Highlighted Set"), this);
  auto* select = new QPushButton(tr("&Select"), this);
  auto* cancel = new QPushButton(tr("&Cancel"), this);
  connect(add, &QPushButton::clicked, this, [this] { Edit(true); });
  connect(edit, &QPushButton::clicked, this, [this] { Edit(false); });
  connect(del, &QPushButton::clicked, this, [this] {
    const int row = grid_->currentRow();
    if (row < 0 || row >= static_cast<int>(sets_.size())) return;
    if (!state_.io->AskYesNo(wk_text::kDeleteMemSet)) return;
    DeleteMemSet(*state_.gDb, sets_[static_cast<size_t>(row)].set_no);
    const size_t next = static_cast<size_t>(row) + 1 < sets_.size() ? static_cast<size_t>(row) + 1
                                                                    : static_cast<size_t>(std::max(0, row - 1));
    Load(next < sets_.size() ? sets_[next].set_no : 0);
  });
  auto pick = [this] {
    const int row = grid_->currentRow();
    if (row < 0 || row >= static_cast<int>(sets_.size())) return;
    selected_ = sets_[static_cast<size_t>(row)].values;
    accept();
  };
  connect(select, &QPushButton::clicked, this, pick);
  connect(grid_, &QTableWidget::doubleClicked, this, pick);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* b : {add, edit, del, select, cancel}) buttons->addWidget(b);
  auto* v = new QVBoxLayout(this);
  v->addWidget(grid_);
  v->addLayout(buttons);
  resize(640, 400);
  Load(0);
}

void frmWorkoutInsertMemSingle::Load(int32_t current) {
  sets_ = ReadMemSets(*state_.gDb);
  grid_->setRowCount(0);
  if (sets_.empty()) {
    grid_->setRowCount(1);
    grid_->setItem(0, 3, new QTableWidgetItem(Q(wk_text::kNoSets)));
    return;
  }
  grid_->setRowCount(static_cast<int>(sets_.size()));
  for (size_t i = 0; i < sets_.size(); ++i) {
    FillSetRow(grid_, static_cast<int>(i), sets_[i].values);
    if (sets_[i].set_no == current) grid_->selectRow(static_cast<int>(i));
  }
}

void frmWorkoutInsertMemSingle::Edit(bool add) {
  const int row = grid_->currentRow();
  if (!add && (row < 0 || row >= static_cast<int>(sets_.size()))) return;
  SetValues start;
  if (add) {
    const auto s = gSetStartParmeters(ReadStartParameters(StartParametersFile(state_.home.Root())));
    start = {s.reps, s.dist, s.interval, s.desc, 0, "", ""};
  } else {
    start = sets_[static_cast<size_t>(row)].values;
  }
  const auto values = AskLibraryLine(
      state_, this, add ? tr("Add Single Set to Memorized List") : tr("Edit Memorized Single Set"),
      start);
  if (!values) return;
  int32_t current = 0;
  if (add) {
    current = AddMemSet(*state_.gDb, *values);
  } else {
    current = sets_[static_cast<size_t>(row)].set_no;
    EditMemSet(*state_.gDb, current, *values);
  }
  Load(current);
}

frmWorkoutInsertMemCirName::frmWorkoutInsertMemCirName(const QString& title, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmWorkoutInsertMemCirName");
  setWindowTitle(tr("Circuit Title"));
  title_ = new QLineEdit(title, this);
  title_->setObjectName("title");
  title_->setMaxLength(30);  // the width of cir_name
  auto* form = new QFormLayout;
  form->addRow(tr("Circuit Title :"), title_);
  auto* buttons = OkCancel(this);
  QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
  ok->setEnabled(!Title().isEmpty());
  connect(title_, &QLineEdit::textChanged, this, [this, ok] { ok->setEnabled(!Title().isEmpty()); });
  auto* v = new QVBoxLayout(this);
  v->addLayout(form);
  v->addWidget(buttons);
  title_->setFocus();
}

frmWorkoutInsertMemCircuit::frmWorkoutInsertMemCircuit(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state) {
  setObjectName("frmWorkoutInsertMemCircuit");
  setWindowTitle(tr("Memorized Circuits"));
  names_ = Grid(this, {tr("Circuit Title"), tr("Lines"), tr("1x Distance"), tr("Minutes")});
  grid_ = Grid(this, {tr("Line"), tr("Reps"), tr("Dist"), tr("Interval"), tr("Set Description"),
                      tr("Energy"), tr("Type"), tr("Stroke")});
  cycles_ = new QSpinBox(this);
  cycles_->setRange(1, 99);
  cycles_->setValue(gSetStartParmeters(ReadStartParameters(StartParametersFile(state.home.Root())))
                        .circuit_reps);
  auto* add = new QPushButton(tr("Add Set"), this);
  auto* rename = new QPushButton(tr("Edit Highlighted Set"), this);
  auto* del = new QPushButton(tr("Delete Highlighted Set"), this);
  connect(add, &QPushButton::clicked, this, [this] {
    frmWorkoutInsertMemCirName dialog({}, this);
    if (dialog.exec() != QDialog::Accepted) return;
    LoadNames(AddMemCircuit(*state_.gDb, dialog.Title().toStdString()));
  });
  connect(rename, &QPushButton::clicked, this, [this] {
    const int32_t cir = Current();
    if (cir == 0) return;
    frmWorkoutInsertMemCirName dialog(names_->item(names_->currentRow(), 0)->text(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    RenameMemCircuit(*state_.gDb, cir, dialog.Title().toStdString());
    LoadNames(cir);
  });
  connect(del, &QPushButton::clicked, this, [this] {
    const int32_t cir = Current();
    if (cir == 0 || !state_.io->AskYesNo(wk_text::kDeleteMemCircuit)) return;
    DeleteMemCircuit(*state_.gDb, cir);
    LoadNames(0);
  });
  auto* line_buttons = new QHBoxLayout;
  const std::pair<const char*, char> steps[] = {
      {"Add - F2", 'A'}, {"Add Note - F5", 'N'}, {"Edit - F6", 'E'}, {"Delete - F7", 'D'}};
  const Qt::Key keys[] = {Qt::Key_F2, Qt::Key_F5, Qt::Key_F6, Qt::Key_F7};
  for (int i = 0; i < 4; ++i) {
    auto* b = new QPushButton(tr(steps[i].first), this);
    b->setShortcut(keys[i]);
    const char step = steps[i].second;
    connect(b, &QPushButton::clicked, this, [this, step] { LineStep(step); });
    line_buttons->addWidget(b);
  }
  auto* select = new QPushButton(tr("&Select"), this);
  auto* cancel = new QPushButton(tr("&Cancel"), this);
  connect(select, &QPushButton::clicked, this, [this] {
    if (Current() == 0 || lines_.empty()) return;
    chosen_ = true;
    accept();
  });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(names_, &QTableWidget::currentCellChanged, this, [this] { LoadLines(); });
  auto* top = new QHBoxLayout;
  for (QPushButton* b : {add, rename, del}) top->addWidget(b);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(new QLabel(tr("Cycles :"), this));
  bottom->addWidget(cycles_);
  bottom->addStretch();
  bottom->addWidget(select);
  bottom->addWidget(cancel);
  auto* v = new QVBoxLayout(this);
  v->addWidget(names_);
  v->addLayout(top);
  v->addWidget(grid_);
  v->addLayout(line_buttons);
  v->addLayout(bottom);
  resize(720, 560);
  LoadNames(0);
}

int32_t frmWorkoutInsertMemCircuit::Current() const {
  const int row = names_->currentRow();
  return row >= 0 && row < static_cast<int>(circuits_.size())
             ? circuits_[static_cast<size_t>(row)].cir_no
             : 0;
}

void frmWorkoutInsertMemCircuit::LoadNames(int32_t current) {
  circuits_ = ReadMemCircuits(*state_.gDb);
  const QSignalBlocker block(names_);
  names_->setRowCount(0);
  if (circuits_.empty()) {
    names_->setRowCount(1);
    names_->setItem(0, 0, new QTableWidgetItem(Q(wk_text::kNoCircuits)));
  }
  int chosen = 0;
  for (size_t i = 0; i < circuits_.size(); ++i) {
    const MemCircuit& c = circuits_[i];
    const int r = static_cast<int>(i);
    names_->insertRow(r);
    names_->setItem(r, 0, new QTableWidgetItem(Q(c.cir_name)));
    names_->setItem(r, 1, new QTableWidgetItem(QString::number(c.tot_lines)));
    names_->setItem(r, 2, new QTableWidgetItem(Q(gFormatThousands(c.tot_dist))));
    names_->setItem(r, 3, new QTableWidgetItem(Q(MemMinutesText(c.tot_seconds))));
    if (c.cir_no == current) chosen = r;
  }
  names_->setCurrentCell(chosen, 0);
  LoadLines();
}

void frmWorkoutInsertMemCircuit::LoadLines() {
  const int32_t cir = Current();
  lines_ = cir ? ReadMemCircuitLines(*state_.gDb, cir) : std::vector<SetValues>{};
  grid_->setRowCount(0);
  if (cir == 0) return;
  if (lines_.empty()) {
    grid_->setRowCount(1);
    grid_->setItem(0, 4, new QTableWidgetItem(Q(wk_text::kNoCircuitLines)));
    return;
  }
  for (size_t i = 0; i < lines_.size(); ++i) {
    const int r = static_cast<int>(i);
    grid_->insertRow(r);
    grid_->setItem(r, 0, new QTableWidgetItem(QString::number(r + 1)));
    FillSetRow(grid_, r, lines_[i], 1);
  }
  const int end = grid_->rowCount();
  grid_->insertRow(end);
  grid_->setItem(end, 0, new QTableWidgetItem(QString::number(end + 1)));
  grid_->setItem(end, 1, new QTableWidgetItem(tr("End")));
}

void frmWorkoutInsertMemCircuit::LineStep(char step) {
  const int32_t cir = Current();
  if (cir == 0) return;
  const int n = static_cast<int>(lines_.size());
  const int at = lines_.empty() ? 1 : std::clamp(grid_->currentRow() + 1, 1, n + 1);
  SQLite::Database& db = *state_.gDb;
  if (step == 'D') {
    if (at > n) return;
    DeleteMemCircuitLine(db, cir, at);
  } else if (step == 'N') {
    const auto v = AskLibraryLine(state_, this, QString("Add Note in front of Line %1").arg(at), {}, 'N');
    if (!v) return;
    AddMemCircuitNote(db, cir, at, v->desc);
  } else if (step == 'E' && at <= n) {
    const SetValues& cur = lines_[static_cast<size_t>(at - 1)];
    const bool note = cur.reps == 0 && cur.dist == 0;
    const auto v = AskLibraryLine(
        state_, this, QString(note ? "Edit Note on Line %1" : "Edit Line %1").arg(at), cur,
        note ? 'N' : 'S');
    if (!v) return;
    EditMemCircuitLine(db, cir, at, *v);
  } else {
    const auto s = gSetStartParmeters(ReadStartParameters(StartParametersFile(state_.home.Root())));
    const auto v = AskLibraryLine(
        state_, this,
        n == 0 ? QString("Add Line 1") : QString("Add Set in front of Line %1").arg(at),
        {s.reps, s.dist, s.interval, s.desc, 0, "", ""}, 'C');
    if (!v) return;
    AddMemCircuitLine(db, cir, at, *v);
  }
  LoadNames(cir);
}

}  // namespace kvlr
