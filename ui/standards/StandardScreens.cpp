#include "standards/StandardScreens.h"

#include <algorithm>

#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>
#include <QVBoxLayout>

#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "standards/StandardTexts.h"
#include "standards/StandardsCsv.h"
#include "store/Schema.h"

namespace kvlr {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string S(const QString& text) {
  return text.toStdString();
}

QLabel* Help(std::string_view text, QWidget* parent) {
  auto* label = new QLabel(Q(text), parent);
  label->setWordWrap(true);
  return label;
}

// Distances of the lists: the screen list's numbers, diving boards left out.
std::vector<int16_t> Distances() {
  constexpr size_t kFirstBoard = 11;
  const std::vector<std::string> list = DistanceList();
  std::vector<int16_t> out;
  for (size_t i = 0; i < std::min(kFirstBoard, list.size()); ++i) {
    const int value = static_cast<int>(Val(list[i]));
    if (value > 0) out.push_back(static_cast<int16_t>(value));
  }
  return out;
}

void FillStrokes(QComboBox* box) {
  for (int16_t stroke = 1; stroke <= 5; ++stroke) box->addItem(Q(StrokeText(stroke, "I")), stroke);
}

void FillDistances(QComboBox* box) {
  for (int16_t d : Distances()) box->addItem(QString::number(d), d);
}

void FitColumns(QTableView* grid, const StanModel& model) {
  grid->resizeColumnsToContents();
  // Room for "m:ss.hh" while a time column is still empty.
  const auto& columns = model.Columns();
  for (size_t i = 0; i < columns.size(); ++i) {
    const int at = static_cast<int>(i);
    if (columns[i].time) grid->setColumnWidth(at, std::max(grid->columnWidth(at), 64));
  }
}

}  // namespace

// ---- StanModel

StanModel::StanModel(AppState& state, QObject* parent)
    : QAbstractTableModel(parent), state_(state) {}

void StanModel::SetStandard(const StandardDefinition& def) {
  def_ = def;
  table_ = def.name.empty() ? std::string() : StandardTableName(def.name);
  Reload();
}

void StanModel::SetCourse(GridCourse course) {
  course_ = course;
  Reload();
}

void StanModel::SetFilter(const StandardFilter& filter) {
  filter_ = filter;
  Reload();
}

void StanModel::SetSort(StandardSort sort) {
  sort_ = sort;
  Reload();
}

void StanModel::Reload() {
  beginResetModel();
  columns_ = StanColumns(def_, course_);
  lines_.clear();
  if (!table_.empty() && state_.gDb) {
    lines_ = RunTrapped(state_, stdtext::kLoadGrid,
                        [&] { return ReadStandardLines(*state_.gDb, table_, filter_, sort_); });
  }
  endResetModel();
}

int StanModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int StanModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant StanModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount()) return {};
  const StanColumn& column = columns_[static_cast<size_t>(index.column())];
  const StandardLine& line = lines_[static_cast<size_t>(index.row())];
  if (role == Qt::DisplayRole || role == Qt::EditRole) return Q(CellText(line, column));
  if (role == Qt::TextAlignmentRole) {
    return column.time || column.ordinal <= 2 || column.ordinal == 75
               ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
               : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  }
  return {};
}

QVariant StanModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  if (section < 0 || section >= columnCount()) return {};
  std::string heading = columns_[static_cast<size_t>(section)].heading;
  // Two-line headings keep the time columns narrow.
  if (const size_t blank = heading.find(' '); blank != std::string::npos) heading[blank] = '\n';
  return Q(heading);
}

Qt::ItemFlags StanModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (columns_.at(static_cast<size_t>(index.column())).time) f |= Qt::ItemIsEditable;
  return f;
}

bool StanModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !index.isValid() || index.row() >= rowCount()) return false;
  const StanColumn& column = columns_.at(static_cast<size_t>(index.column()));
  if (!column.time) return false;
  const auto score = ParseLimitText(S(value.toString()));
  if (!score) {
    state_.io->Tell(kInvalidTime);
    return false;
  }
  StandardLine& line = lines_[static_cast<size_t>(index.row())];
  const bool stored = RunTrapped(state_, stdtext::kLoadGrid, [&] {
    return UpdateStandardLimit(*state_.gDb, table_, line.std, column.ordinal, *score);
  });
  if (!stored) return false;
  SetLineLimit(line, column.ordinal, *score);
  emit dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
  return true;
}

// ---- frmStan

frmStan::frmStan(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmStan");
  setWindowTitle("Time Standards");
  model_ = new StanModel(state_, this);

  standards_ = new QComboBox(this);
  standards_->setObjectName("cboStandards");
  standards_->setMinimumWidth(260);
  course_ = new QComboBox(this);
  course_->setObjectName("cboCourse");
  for (GridCourse c : {GridCourse::kSCY, GridCourse::kSCM, GridCourse::kLCM, GridCourse::kAll}) {
    course_->addItem(Q(GridCourseText(c)), static_cast<int>(c));
  }
  if (state_.gFavoriteCourse == "S") course_->setCurrentIndex(1);
  if (state_.gFavoriteCourse == "L") course_->setCurrentIndex(2);
  description_ = new QLabel(this);

  sex_ = new QComboBox(this);
  sex_->setObjectName("cboSex");
  sex_->addItem("All", "");
  sex_->addItem("Males", "M");
  sex_->addItem("Females", "F");
  ages_ = new QComboBox(this);
  ages_->setObjectName("cboAges");
  ages_->addItem("All", -1);
  const auto& presets = AgeRangePresets();
  for (size_t i = 0; i < presets.size(); ++i) {
    if (!presets[i].other) ages_->addItem(Q(presets[i].text), static_cast<int>(i));
  }
  stroke_ = new QComboBox(this);
  stroke_->setObjectName("cboStroke");
  stroke_->addItem("All", 0);
  FillStrokes(stroke_);
  distance_ = new QComboBox(this);
  distance_->setObjectName("cboDistance");
  distance_->addItem("All", 0);
  FillDistances(distance_);

  grid_ = new QTableView(this);
  grid_->setObjectName("grdStan");
  grid_->setModel(model_);
  grid_->verticalHeader()->setVisible(false);
  grid_->horizontalHeader()->setSectionsClickable(true);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                         QAbstractItemView::AnyKeyPressed);
  sort_caption_ = new QLabel(this);

  auto* top = new QHBoxLayout;
  top->addWidget(new QLabel("Standard:", this));
  top->addWidget(standards_);
  top->addWidget(new QLabel("Course:", this));
  top->addWidget(course_);
  top->addWidget(description_, 1);
  auto* filters = new QHBoxLayout;
  for (auto [caption, box] : {std::pair{"Sex:", sex_}, std::pair{"Ages:", ages_},
                              std::pair{"Stroke:", stroke_}, std::pair{"Distance:", distance_}}) {
    filters->addWidget(new QLabel(caption, this));
    filters->addWidget(box);
  }
  filters->addStretch(1);
  filters->addWidget(sort_caption_);

  auto* buttons = new QHBoxLayout;
  auto button = [&](const char* caption, const char* name) {
    auto* b = new QPushButton(caption, this);
    b->setObjectName(name);
    b->setAutoDefault(false);
    buttons->addWidget(b);
    return b;
  };
  QPushButton* add = button("&Add", "cmdAdd");
  QPushButton* remove = button("&Delete", "cmdDelete");
  QPushButton* create = button("&New Standard", "cmdNew");
  QPushButton* drop = button("&Remove Standard", "cmdRemove");
  QPushButton* make_current = button(stdtext::kMakeCurrentCaption.data(), "cmdMakeCurrent");
  QPushButton* import = button("&Import CSV...", "cmdImport");
  QPushButton* export_ = button("E&xport CSV...", "cmdExport");
  buttons->addStretch(1);
  current_ = new QLabel(this);
  current_->setObjectName("lblCurrent");
  buttons->addWidget(current_);
  QPushButton* done = button("D&one", "cmdDone");

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addLayout(filters);
  layout->addWidget(grid_, 1);
  layout->addLayout(buttons);
  resize(900, 520);

  connect(standards_, &QComboBox::currentIndexChanged, this, &frmStan::StandardChosen);
  connect(course_, &QComboBox::currentIndexChanged, this, [this] {
    model_->SetCourse(static_cast<GridCourse>(course_->currentData().toInt()));
    FitColumns(grid_, *model_);
  });
  for (QComboBox* box : {sex_, ages_, stroke_, distance_}) {
    connect(box, &QComboBox::currentIndexChanged, this, &frmStan::FiltersChanged);
  }
  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this, &frmStan::ClickHeading);
  connect(add, &QPushButton::clicked, this, [this] { OpenAdd(); });
  connect(remove, &QPushButton::clicked, this, [this] {
    const QModelIndex at = grid_->currentIndex();
    if (HaveStandard()) DeleteOneStandard(at.isValid() ? at.row() : -1);
  });
  connect(create, &QPushButton::clicked, this, [this] { OpenDesig(); });
  connect(drop, &QPushButton::clicked, this, &frmStan::RemoveEntireStandard);
  connect(make_current, &QPushButton::clicked, this, &frmStan::MakeCurrent);
  connect(import, &QPushButton::clicked, this, [this] {
    if (!HaveStandard()) return;
    const QString file =
        QFileDialog::getOpenFileName(this, "Import Standard", QString(), "CSV files (*.csv)");
    if (!file.isEmpty()) ImportCsv(S(file));
  });
  connect(export_, &QPushButton::clicked, this, [this] {
    if (!HaveStandard()) return;
    const QString file = QFileDialog::getSaveFileName(this, "Export Standard",
                                                      standards_->currentData().toString() + ".csv",
                                                      "CSV files (*.csv)");
    // The dialog has asked about replacing a file there.
    if (!file.isEmpty()) ExportCsv(S(file), true);
  });
  connect(done, &QPushButton::clicked, this, &QDialog::accept);

  model_->SetCourse(static_cast<GridCourse>(course_->currentData().toInt()));
  FillStandards(state_.gStandardName);
  sort_caption_->setText(Q(SortCaption()));
}

void frmStan::FillStandards(const std::string& select) {
  const StandardsCombo combo = LoadStandardsCombo(state_);
  QSignalBlocker block(standards_);
  standards_->clear();
  int chosen = combo.lines.empty() ? -1 : 0;
  for (size_t i = 0; i < combo.lines.size(); ++i) {
    const auto& line = combo.lines[i];
    standards_->addItem(Q(fmt::format("{:<8}  {:<4}  {}", line.std_file, line.year, line.descript)),
                        Q(line.std_file));
    if (!select.empty() && SameName(line.std_file, select)) chosen = static_cast<int>(i);
  }
  standards_->setCurrentIndex(chosen);
  StandardChosen();
  ShowCurrent();
}

void frmStan::ShowCurrent() {
  const std::string name = Trim(state_.gStandardName);
  current_->setText(name.empty() ? Q(stdtext::kNoCurrentStandard)
                                 : Q(std::string(stdtext::kCurrentStandard) + name));
}

void frmStan::MakeCurrent() {
  if (!HaveStandard()) return;
  MakeCurrentStandard(state_, S(standards_->currentData().toString()));
  ShowCurrent();
}

void frmStan::SelectStandard(const std::string& name) {
  const int at = standards_->findData(Q(name), Qt::UserRole, Qt::MatchFixedString);
  if (at >= 0) standards_->setCurrentIndex(at);
}

void frmStan::StandardChosen() {
  StandardDefinition def;
  if (standards_->currentIndex() >= 0 && state_.gDb) {
    const std::string name = S(standards_->currentData().toString());
    def = RunTrapped(state_, stdtext::kLoadGrid, [&] {
      return ReadStandardDefinition(*state_.gDb, name).value_or(StandardDefinition{});
    });
  }
  description_->setText(Q(def.descript));
  model_->SetStandard(def);
  FitColumns(grid_, *model_);
}

void frmStan::SetCourse(GridCourse course) {
  course_->setCurrentIndex(course_->findData(static_cast<int>(course)));
}

void frmStan::FiltersChanged() {
  StandardFilter filter;
  filter.sex = S(sex_->currentData().toString());
  const int age = ages_->currentData().toInt();
  if (age >= 0) {
    filter.lo_age = AgeRangePresets()[static_cast<size_t>(age)].lo;
    filter.hi_age = AgeRangePresets()[static_cast<size_t>(age)].hi;
  }
  if (const int s = stroke_->currentData().toInt(); s > 0) filter.stroke = static_cast<int16_t>(s);
  if (const int d = distance_->currentData().toInt(); d > 0)
    filter.distance = static_cast<int16_t>(d);
  model_->SetFilter(filter);
}

void frmStan::ClickHeading(int column) {
  if (column < 0 || column > 5) return;
  model_->SetSort(SortForHeading(column, model_->Sort()));
  sort_caption_->setText(Q(SortCaption()));
}

std::string frmStan::SortCaption() const {
  if (model_->Sort() == StandardSort::kRelaysFirst) return std::string(stdtext::kRelaysFirst);
  if (model_->Sort() == StandardSort::kRelaysLast) return std::string(stdtext::kRelaysLast);
  return "";
}

bool frmStan::HaveStandard() {
  if (standards_->count() == 0) {
    state_.io->Tell(stdtext::kNoStandardYet);
    return false;
  }
  if (model_->Table().empty()) {
    state_.io->Tell(stdtext::kSelectOrCreate);
    return false;
  }
  return true;
}

void frmStan::DeleteOneStandard(int row) {
  if (row < 0 || row >= model_->rowCount()) return;
  const StandardLine line = model_->Line(row);
  if (!state_.io->AskYesNo(RemoveLineQuestion(line), stdtext::kRemoveLineTitle)) return;
  RunTrapped(state_, stdtext::kDeleteOneStandard,
             [&] { return DeleteStandardLine(*state_.gDb, model_->Table(), line.std); });
  model_->Reload();
}

void frmStan::RemoveEntireStandard() {
  if (!HaveStandard()) return;
  const std::string name = S(standards_->currentData().toString());
  if (!state_.io->AskYesNo(RemoveStandardQuestion(name))) return;
  RunTrapped(state_, stdtext::kRemoveEntireStandard, [&] {
    RemoveStandard(state_, name);
    return true;
  });
  FillStandards("");
}

frmStanAdd* frmStan::OpenAdd() {
  if (!HaveStandard()) return nullptr;
  auto* add = new frmStanAdd(state_, model_->Table(), model_->Filter().sex, this);
  add->setAttribute(Qt::WA_DeleteOnClose);
  connect(add, &QDialog::accepted, model_, &StanModel::Reload);
  add->open();
  return add;
}

frmDesig* frmStan::OpenDesig() {
  auto* desig = new frmDesig(state_, this);
  desig->setAttribute(Qt::WA_DeleteOnClose);
  connect(desig, &QDialog::accepted, this,
          [this, desig] { FillStandards(Trim(S(desig->name_->text()))); });
  desig->open();
  return desig;
}

void frmStan::ImportCsv(const std::string& file) {
  const std::string name = S(standards_->currentData().toString());
  const CsvImportResult result = RunTrapped(
      state_, stdtext::kLoadGrid, [&] { return ImportStandardCsvFile(state_, name, file); });
  if (!result.ok && !result.message.empty()) state_.io->Tell(result.message);
  model_->Reload();
}

void frmStan::ExportCsv(const std::string& file, bool already_asked) {
  ExportStandardCsvFile(state_, S(standards_->currentData().toString()), file, already_asked);
}

// ---- frmStanAdd

frmStanAdd::frmStanAdd(AppState& state, std::string table, std::string sex_filter, QWidget* parent)
    : QDialog(parent), state_(state), table_(std::move(table)) {
  setObjectName("frmStanAdd");
  setWindowTitle(Q(stdtext::kStanAddTitle));

  auto* individual = new QRadioButton("Individual", this);
  individual->setObjectName("optIndividual");
  individual->setChecked(true);
  relay_ = new QRadioButton("Relay", this);
  relay_->setObjectName("optRelay");
  ages_ = new QComboBox(this);
  ages_->setObjectName("cboAgeRange");
  const auto& presets = AgeRangePresets();
  for (size_t i = 0; i < presets.size(); ++i)
    ages_->addItem(Q(presets[i].text), static_cast<int>(i));
  ages_->setCurrentIndex(-1);
  lo_ = new QSpinBox(this);
  lo_->setObjectName("txtLoAge");
  hi_ = new QSpinBox(this);
  hi_->setObjectName("txtHiAge");
  for (QSpinBox* box : {lo_, hi_}) {
    box->setRange(0, 99);
    box->setEnabled(false);
  }
  distance_ = new QComboBox(this);
  distance_->setObjectName("cboDistance");
  FillDistances(distance_);
  distance_->setCurrentIndex(-1);
  stroke_ = new QComboBox(this);
  stroke_->setObjectName("cboStroke");
  FillStrokes(stroke_);
  stroke_->setCurrentIndex(-1);
  sex_ = new QComboBox(this);
  sex_->setObjectName("cboSex");
  sex_->addItem("Male", "M");
  sex_->addItem("Female", "F");
  sex_->setCurrentIndex(-1);

  auto* form = new QFormLayout;
  auto* kind = new QHBoxLayout;
  kind->addWidget(individual);
  kind->addWidget(relay_);
  form->addRow("Type:", kind);
  form->addRow("Age range:", ages_);
  auto* other = new QHBoxLayout;
  other->addWidget(new QLabel("Low Age", this));
  other->addWidget(lo_);
  other->addWidget(new QLabel("High Age", this));
  other->addWidget(hi_);
  form->addRow("", other);
  form->addRow("Distance:", distance_);
  form->addRow("Stroke:", stroke_);
  form->addRow("Sex:", sex_);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(Help(stdtext::kHelpOther, this));
  layout->addWidget(Help(stdtext::kHelpUnderOver, this));
  layout->addWidget(Help(stdtext::kHelpAfterAdd, this));
  if (const std::string fixed = FilteredSexMessage(sex_filter); !fixed.empty()) {
    sex_->setCurrentIndex(sex_->findData(Q(sex_filter)));
    sex_->setEnabled(false);
    layout->addWidget(Help(fixed, this));
  }
  auto* buttons = new QHBoxLayout;
  auto* done = new QPushButton("&Done", this);
  done->setObjectName("cmdDone");
  auto* cancel = new QPushButton("&Cancel", this);
  cancel->setObjectName("cmdCancel");
  buttons->addStretch(1);
  buttons->addWidget(done);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  setMinimumWidth(420);

  connect(ages_, &QComboBox::currentIndexChanged, this, &frmStanAdd::AgeRangeChosen);
  connect(done, &QPushButton::clicked, this, &frmStanAdd::Save);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmStanAdd::AgeRangeChosen() {
  const int at = ages_->currentData().toInt();
  const bool other = ages_->currentIndex() >= 0 && AgeRangePresets()[static_cast<size_t>(at)].other;
  lo_->setEnabled(other);
  hi_->setEnabled(other);
  if (ages_->currentIndex() >= 0 && !other) {
    lo_->setValue(AgeRangePresets()[static_cast<size_t>(at)].lo);
    hi_->setValue(AgeRangePresets()[static_cast<size_t>(at)].hi);
  }
}

StanAddForm frmStanAdd::Form() const {
  StanAddForm form;
  form.relay = relay_->isChecked();
  if (ages_->currentIndex() >= 0) {
    form.lo_age = static_cast<int16_t>(lo_->value());
    form.hi_age = static_cast<int16_t>(hi_->value());
  }
  if (distance_->currentIndex() >= 0) {
    form.distance = static_cast<int16_t>(distance_->currentData().toInt());
  }
  if (stroke_->currentIndex() >= 0)
    form.stroke = static_cast<int16_t>(stroke_->currentData().toInt());
  if (sex_->currentIndex() >= 0) form.sex = S(sex_->currentData().toString());
  return form;
}

bool frmStanAdd::Save() {
  added_ = AddStandardLine(state_, table_, Form());
  if (added_ > 0) accept();
  return added_ > 0;
}

// ---- frmDesig

frmDesig::frmDesig(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmDesig");
  setWindowTitle("New Time Standard");
  name_ = new QLineEdit(this);
  name_->setObjectName("txtName");
  name_->setMaxLength(8);
  year_ = new QLineEdit(this);
  year_->setObjectName("txtYear");
  year_->setMaxLength(4);
  descript_ = new QLineEdit(this);
  descript_->setObjectName("txtDescript");
  descript_->setMaxLength(25);
  copy_from_ = new QComboBox(this);
  copy_from_->setObjectName("cboCopyFrom");
  copy_from_->addItem("", "");
  for (const auto& line : LoadStandardsCombo(state_).lines) {
    copy_from_->addItem(Q(line.std_file), Q(line.std_file));
  }

  auto* head = new QFormLayout;
  head->addRow("Name:", name_);
  head->addRow("Year:", year_);
  head->addRow("Description:", descript_);
  head->addRow("Copy from:", copy_from_);

  auto* boxes = new QGridLayout;
  boxes->addWidget(new QLabel("Designator", this), 0, 1);
  boxes->addWidget(new QLabel("Long name", this), 0, 2);
  for (int i = 0; i < kDesignatorCount; ++i) {
    const auto at = static_cast<size_t>(i);
    boxes->addWidget(new QLabel(QString::number(i + 1), this), i + 1, 0);
    designators_[at] = new QLineEdit(this);
    designators_[at]->setObjectName(QString("txtD%1").arg(i + 1));
    designators_[at]->setMaxLength(4);
    designators_[at]->setMaximumWidth(70);
    long_names_[at] = new QLineEdit(this);
    long_names_[at]->setObjectName(QString("txtD%1Des").arg(i + 1));
    long_names_[at]->setMaxLength(15);
    boxes->addWidget(designators_[at], i + 1, 1);
    boxes->addWidget(long_names_[at], i + 1, 2);
  }

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(head);
  layout->addWidget(Help(stdtext::kDesigHelp, this));
  layout->addLayout(boxes);
  auto* buttons = new QHBoxLayout;
  auto* done = new QPushButton("&Done", this);
  done->setObjectName("cmdDone");
  auto* cancel = new QPushButton("&Cancel", this);
  cancel->setObjectName("cmdCancel");
  buttons->addStretch(1);
  buttons->addWidget(done);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  setMinimumWidth(380);

  connect(done, &QPushButton::clicked, this, &frmDesig::Save);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

StandardDefinition frmDesig::Definition() const {
  StandardDefinition def;
  def.name = Trim(S(name_->text()));
  def.year = Trim(S(year_->text()));
  def.descript = Trim(S(descript_->text()));
  for (size_t i = 0; i < designators_.size(); ++i) {
    def.designators[i] = Trim(S(designators_[i]->text()));
    def.long_names[i] = Trim(S(long_names_[i]->text()));
  }
  return def;
}

std::string frmDesig::CopyFrom() const {
  return S(copy_from_->currentData().toString());
}

bool frmDesig::Save() {
  const bool made = SaveNewStandard(state_, Definition(), CopyFrom());
  if (made) accept();
  return made;
}

}  // namespace kvlr
