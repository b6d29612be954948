#include "reports/TopTimesScreen.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

#include "athletes/AthleteList.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/MainWindow.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "meets/MeetTypes.h"
#include "meets/Meets.h"
#include "reports/ReportFill.h"
#include "reports/ReportPreview.h"
#include "reports/TopTimes.h"
#include "standards/StandardStore.h"

namespace kvlr {
namespace {

QString Q(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<int>(text.size())); }

QDate ToQDate(const Date& d) { return QDate(d.year, d.month, d.day); }

std::optional<Date> FromQDate(const QDate& d) {
  return Date::FromParts(d.year(), d.month(), d.day());
}

QGroupBox* Group(QWidget* parent, std::string_view title, QLayout* layout) {
  auto* box = new QGroupBox(Q(title), parent);
  box->setLayout(layout);
  return box;
}

void SelectData(QComboBox* combo, const QVariant& value) {
  const int at = combo->findData(value);
  combo->setCurrentIndex(at >= 0 ? at : 0);
}

}  // namespace

frmRptTopTimes::frmRptTopTimes(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state) {
  setObjectName("frmRptTopTimes");
  setWindowTitle(Q(tttxt::kScreenTitle));
  SQLite::Database& db = *state_.gDb;
  auto* grid = new QGridLayout;

  auto* who = new QFormLayout;
  swimmer_ = new QComboBox(this);
  swimmer_->setObjectName("cboSwimmer");
  swimmer_->addItem(tr("All swimmers"), 0);
  for (const AthleteListRow& a : ListAthletes(db)) {
    swimmer_->addItem(Q(ReportName(a.last, a.first, a.initial)), a.athlete);
  }
  SelectData(swimmer_, state_.gAthlete);
  who->addRow(tr("Swimmer:"), swimmer_);
  meet_ = new QComboBox(this);
  meet_->setObjectName("cboMeets");
  meet_->addItem(tr("All meets"), 0);
  MeetFilter filter;
  filter.sort = MeetSort::kStartNewest;
  for (const Meet& m : ListMeets(db, filter)) {
    meet_->addItem(Q(m.mname + "  " + MeetShortDate(m.start, state_.gDateOrder)), m.meet);
  }
  who->addRow(tr("Meet:"), meet_);
  grid->addLayout(who, 0, 0, 1, 2);

  auto* course = new QVBoxLayout;
  course_ = new QComboBox(this);
  course_->setObjectName("SSOCourse");
  for (const std::string& option : TopTimesCourseOptions()) course_->addItem(Q(option));
  const size_t favourite = CourseLetters.find(UCase(state_.gFavoriteCourse).substr(0, 1));
  course_->setCurrentIndex(state_.gFavoriteCourse.empty() || favourite == std::string_view::npos
                               ? -1
                               : static_cast<int>(favourite));
  course_->setPlaceholderText(tr("Pick a course"));
  course->addWidget(course_);
  grid->addWidget(Group(this, "Course Options", course), 1, 0);

  auto* round = new QVBoxLayout;
  prelim_ = new QComboBox(this);
  prelim_->setObjectName("SSOPrelim");
  prelim_->addItem(tr("All swims"), "");
  prelim_->addItem("Finals Only", "F");
  prelim_->addItem("Prelims Only", "P");
  round->addWidget(prelim_);
  grid->addWidget(Group(this, "Prelim / Finals Filter", round), 1, 1);

  auto* splits = new QVBoxLayout;
  splits_ = new QComboBox(this);
  splits_->setObjectName("SSOSplits");
  // The frame prints splits cumulative, or with their laps; "Legal" keeps the 50s.
  for (auto [word, mode] : {std::pair{"None", 0}, {"Cumulative", 2}, {"Subtractive", 3},
                            {"Legal", 3}}) {
    splits_->addItem(word, mode);
  }
  splits->addWidget(splits_);
  grid->addWidget(Group(this, "Splits", splits), 2, 0);

  auto* filters = new QFormLayout;
  stroke_ = new QComboBox(this);
  stroke_->setObjectName("cboStroke");
  stroke_->addItem(tr("All"), 0);
  for (int s = 1; s <= 5; ++s) stroke_->addItem(Q(StrokeText(s, "I")), s);
  filters->addRow("Stroke:", stroke_);
  distance_ = new QComboBox(this);
  distance_->setObjectName("cboDistance");
  distance_->addItem(tr("All"), 0);
  const std::vector<std::string> distances = DistanceList();
  for (size_t i = 1; i < distances.size(); ++i) {
    const int boards = DivingDistance(distances[i]);
    distance_->addItem(Q(Trim(distances[i])), i < 11 ? static_cast<int>(Val(distances[i])) : boards);
  }
  filters->addRow("Distance:", distance_);
  grid->addWidget(Group(this, "Stroke Distance Filters", filters), 2, 1);

  auto* other = new QFormLayout;
  nt_ = new QCheckBox("Include DQs and NSs", this);
  nt_->setObjectName("chkNT");
  other->addRow(nt_);
  lead_off_ = new QCheckBox(tr("Include Relay Lead-Offs"), this);
  lead_off_->setObjectName("chkIncRelayLO");
  lead_off_->setChecked(state_.gUseLeadOff);
  other->addRow(lead_off_);
  type_ = new QComboBox(this);
  type_->setObjectName("CSCboMeetType");
  type_->addItem(tr("Any type"), "");
  for (const MeetType& t : LoadMeetTypeCombo(state_)) {
    type_->addItem(Q(t.abbr + "  " + t.desc), Q(t.abbr));
  }
  other->addRow("Meet Type:", type_);
  use_standards_ = new QCheckBox("Include Time Standards", this);
  use_standards_->setObjectName("chkStandards");
  other->addRow(use_standards_);
  standards_ = new QComboBox(this);
  standards_->setObjectName("cboStandards");
  for (const StandardDefinition& d : ReadStandardDefinitions(db)) {
    standards_->addItem(Q(d.name + (d.descript.empty() ? "" : "  " + d.descript)), Q(d.name));
  }
  SelectData(standards_, Q(state_.gStandardName));
  standards_->setToolTip("(For All Times Only)");
  other->addRow("Standards:", standards_);
  grid->addWidget(Group(this, "Other Options", other), 3, 0);

  auto* calc = new QVBoxLayout;
  sort_ = new QButtonGroup(this);
  for (auto [id, word] : {std::pair{0, "Standard  based on Athlete's Age at Meet"},
                          {1, "Standard  based on Athlete's Current Age"}}) {
    auto* option = new QRadioButton(word, this);
    option->setObjectName(QString("optSort%1").arg(id));
    option->setChecked(id == 0);
    sort_->addButton(option, id);
    calc->addWidget(option);
  }
  grid->addWidget(Group(this, "Standard Calculation", calc), 3, 1);

  auto* dates = new QFormLayout;
  auto date_row = [this, dates](QCheckBox*& use, QDateEdit*& edit, const char* word,
                                const char* name, QDate start) {
    use = new QCheckBox(word, this);
    edit = new QDateEdit(start, this);
    edit->setObjectName(name);
    edit->setDisplayFormat(ShownDatePattern(state_.gDateOrder));
    edit->setCalendarPopup(true);
    edit->setEnabled(false);
    connect(use, &QCheckBox::toggled, edit, &QWidget::setEnabled);
    dates->addRow(use, edit);
  };
  const QDate today = ToQDate(state_.clock->Today());
  date_row(use_since_, since_, "Use Since Date", "SSDateSince", today.addYears(-1));
  use_since_->setObjectName("chkSince");
  date_row(use_until_, until_, "Use Times Until", "SSDateUntil", today);
  use_until_->setObjectName("chkUntil");
  chronological_ = new QCheckBox("Chronological", this);
  chronological_->setObjectName("chkChronological");
  dates->addRow(chronological_);
  grid->addWidget(Group(this, "Dates", dates), 4, 0);

  auto* improve = new QVBoxLayout;
  improve_ = new QButtonGroup(this);
  for (auto [id, word] : {std::pair{0, "None"}, {1, "Seasonal (Each Meet)"}, {2, "Meet to Meet"},
                          {3, "Seasonal (Best)"}}) {
    auto* option = new QRadioButton(id == 0 ? tr("None") : QString(word), this);
    option->setObjectName(QString("optImprove%1").arg(id));
    option->setChecked(id == 0);
    improve_->addButton(option, id);
    improve->addWidget(option);
  }
  baseline_ = new QCheckBox("Use Best Time Before Since Date as Baseline for Improvement", this);
  baseline_->setObjectName("chkImprove");
  baseline_->setToolTip("Unchecked Uses Times After Since Date as Baseline for Improvement");
  improve->addWidget(baseline_);
  grid->addWidget(Group(this, "Show Improvement", improve), 4, 1);

  auto* others = new QFormLayout;
  top_n_ = new QSpinBox(this);
  top_n_->setObjectName("CSSpinTopN");
  top_n_->setRange(0, 999);
  others->addRow("Top How Many?  (0 = All Times)", top_n_);
  goals_ = new QCheckBox("Include Goals", this);
  goals_->setObjectName("chkGoals");
  comments_ = new QCheckBox("Include Comments", this);
  comments_->setObjectName("chkComments");
  others->addRow(goals_, comments_);
  orientation_ = new QComboBox(this);
  orientation_->setObjectName("cboOrientation");
  orientation_->addItem(tr("Portrait"));
  orientation_->addItem(tr("Landscape"));
  others->addRow(tr("Orientation:"), orientation_);
  grid->addLayout(others, 5, 0, 1, 2);

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* preview = buttons->addButton(tr("&Preview"), QDialogButtonBox::AcceptRole);
  preview->setObjectName("cmdPreview");
  preview->setDefault(true);
  QPushButton* save = buttons->addButton(tr("&Memorize"), QDialogButtonBox::ActionRole);
  save->setObjectName("cmdSaveRpt");
  save->setIcon(style()->standardIcon(QStyle::SP_DialogSaveButton));
  save->setToolTip(Q(memtxt::kSaveButton));
  QPushButton* close = buttons->addButton(QDialogButtonBox::Close);
  close->setObjectName("cmdClose");
  connect(preview, &QPushButton::clicked, this, &frmRptTopTimes::Preview);
  connect(save, &QPushButton::clicked, this, &frmRptTopTimes::Memorize);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addWidget(buttons);
}

ReportRequest frmRptTopTimes::Request() const {
  ReportRequest r;
  r.athlete = swimmer_->currentData().toInt();
  r.meet = meet_->currentData().toInt();
  SetTopTimesCourse(r, course_->currentIndex());
  TopTimesOptions& o = r.top;
  o.round = prelim_->currentData().toString().toStdString();
  r.split_mode = splits_->currentData().toInt();
  o.stroke = stroke_->currentData().toInt();
  o.distance = distance_->currentData().toInt();
  o.include_nt = nt_->isChecked();
  o.lead_offs = lead_off_->isChecked();
  r.meet_type = type_->currentData().toString().toStdString();
  o.standards = use_standards_->isChecked();
  if (o.standards) r.standard = standards_->currentData().toString().toStdString();
  o.current_age = sort_->checkedId() == 1;
  if (use_since_->isChecked()) r.since = FromQDate(since_->date());
  if (use_until_->isChecked()) r.until = FromQDate(until_->date());
  o.chronological = chronological_->isChecked();
  o.improve = static_cast<TopTimesOptions::Improve>(std::max(0, improve_->checkedId()));
  o.baseline_before_since = baseline_->isChecked();
  o.top_n = top_n_->value();
  o.goals = goals_->isChecked();
  o.comments = comments_->isChecked();
  r.landscape = orientation_->currentIndex() == 1;
  return r;
}

void frmRptTopTimes::SetRequest(const ReportRequest& r) {
  const TopTimesOptions& o = r.top;
  course_->setCurrentIndex(TopTimesCourseIndex(r));
  SelectData(prelim_, Q(o.round));
  splits_->setCurrentIndex(r.split_mode == 2 ? 1 : r.split_mode == 3 ? 2 : 0);
  SelectData(stroke_, o.stroke);
  SelectData(distance_, o.distance);
  nt_->setChecked(o.include_nt);
  lead_off_->setChecked(o.lead_offs.value_or(state_.gUseLeadOff));
  SelectData(type_, Q(r.meet_type));
  use_standards_->setChecked(o.standards);
  if (!r.standard.empty()) SelectData(standards_, Q(r.standard));
  sort_->button(o.current_age ? 1 : 0)->setChecked(true);
  use_since_->setChecked(r.since.has_value());
  if (r.since) since_->setDate(ToQDate(*r.since));
  use_until_->setChecked(r.until.has_value());
  if (r.until) until_->setDate(ToQDate(*r.until));
  chronological_->setChecked(o.chronological);
  improve_->button(static_cast<int>(o.improve))->setChecked(true);
  baseline_->setChecked(o.baseline_before_since);
  top_n_->setValue(o.top_n);
  goals_->setChecked(o.goals);
  comments_->setChecked(o.comments);
  orientation_->setCurrentIndex(r.landscape ? 1 : 0);
}

std::string frmRptTopTimes::Kind() const {
  return meet_->currentData().toInt() != 0 ? "top-times-meet" : "top-times";
}

bool frmRptTopTimes::Preview() {
  const ReportRequest r = Request();
  if (r.top.top_n == 1 && r.athlete == 0 && !state_.io->AskYesNo(tttxt::kFastestOnly)) {
    return false;
  }
  return PreviewReport(state_, this, Kind(), r);
}

void frmRptTopTimes::Memorize() {
  frmRptSaveCustom save(state_, MemorizedType::kTopTimes, Request(), this);
  save.exec();
}

frmRptSaveCustom::frmRptSaveCustom(AppState& state, MemorizedType type, ReportRequest request,
                                   QWidget* parent)
    : QDialog(parent), state_(state), type_(type), request_(std::move(request)) {
  setObjectName("frmRptSaveCustom");
  setWindowTitle(Q(memtxt::kSaveTitle));
  auto* layout = new QVBoxLayout(this);
  for (std::string_view line : memtxt::kSaveLines) layout->addWidget(new QLabel(Q(line), this));
  name_ = new QLineEdit(this);
  name_->setObjectName("txtName");
  name_->setMaxLength(30);
  layout->addWidget(name_);
  auto* names = new QListWidget(this);
  names->setObjectName("lstNames");
  for (const MemorizedReport& m : ListMemorized(*state_.gDb, type_)) names->addItem(Q(m.name));
  connect(names, &QListWidget::currentTextChanged, name_, &QLineEdit::setText);
  layout->addWidget(names);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &frmRptSaveCustom::Save);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
}

void frmRptSaveCustom::Save() {
  try {
    if (SaveMemorized(state_, {name_->text().toStdString(), type_, request_})) accept();
  } catch (const std::exception& e) {
    ReportError(state_, "frmRptSaveCustom.cmdOK_Click", e);
  }
}

frmRptCustom::frmRptCustom(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmRptCustom");
  setWindowTitle(Q(memtxt::kListTitle));
  grid_ = new QTableWidget(0, 2, this);
  grid_->setObjectName("grdReports");
  grid_->setHorizontalHeaderLabels({Q(memtxt::kColName), Q(memtxt::kColType)});
  grid_->horizontalHeader()->setStretchLastSection(true);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  connect(grid_, &QTableWidget::itemChanged, this, &frmRptCustom::NameEdited);
  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this,
          [this](int column) { Load(column == 1); });
  connect(grid_, &QTableWidget::cellDoubleClicked, this, [this] { RunSelected(); });
  auto* buttons = new QDialogButtonBox(this);
  const std::pair<const char*, void (frmRptCustom::*)()> commands[] = {
      {"&Run", &frmRptCustom::RunSelected},
      {"Re&name", &frmRptCustom::RenameSelected},
      {"Re&move", &frmRptCustom::RemoveSelected}};
  for (const auto& [word, slot] : commands) {
    QPushButton* b = buttons->addButton(tr(word), QDialogButtonBox::ActionRole);
    connect(b, &QPushButton::clicked, this, slot);
  }
  QPushButton* help = buttons->addButton(QDialogButtonBox::Help);
  connect(help, &QPushButton::clicked, this,
          [this] { state_.io->Message(memtxt::kHelp, box::kInformation, memtxt::kListTitle); });
  connect(buttons->addButton(QDialogButtonBox::Close), &QPushButton::clicked, this,
          &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(grid_);
  layout->addWidget(buttons);
  resize(460, 320);
}

bool frmRptCustom::Load(bool by_type) {
  rows_ = ListMemorized(*state_.gDb, std::nullopt, by_type);
  loading_ = true;
  grid_->setRowCount(static_cast<int>(rows_.size()));
  for (int i = 0; i < static_cast<int>(rows_.size()); ++i) {
    grid_->setItem(i, 0, new QTableWidgetItem(Q(rows_[i].name)));
    auto* type = new QTableWidgetItem(Q(MemorizedTypeWord(rows_[i].type)));
    type->setFlags(type->flags() & ~Qt::ItemIsEditable);
    grid_->setItem(i, 1, type);
  }
  loading_ = false;
  if (!rows_.empty()) grid_->selectRow(0);
  return !rows_.empty();
}

std::optional<MemorizedReport> frmRptCustom::Selected() const {
  const int row = grid_->currentRow();
  if (row < 0 || row >= static_cast<int>(rows_.size())) return std::nullopt;
  return rows_[static_cast<size_t>(row)];
}

void frmRptCustom::RunSelected() {
  const auto m = Selected();
  if (!m) return;
  try {
    if (m->type == MemorizedType::kTopTimes) {
      frmRptTopTimes screen(state_, this);
      screen.SetRequest(m->request);
      screen.Preview();
      return;
    }
    const std::string kind = MemorizedKind(m->type);
    if (kind.empty()) {
      state_.io->Tell(MemorizedTypeWord(m->type) + " reports are not available in this version yet.");
      return;
    }
    ReportRequest r = m->request;
    r.athlete = state_.gAthlete;
    PreviewReport(state_, this, kind, r);
  } catch (const std::exception& e) {
    ReportError(state_, "frmRptCustom.cmdRun_Click", e);
  }
}

void frmRptCustom::RenameSelected() {
  const auto m = Selected();
  if (!m) return;
  bool ok = false;
  const QString name = QInputDialog::getText(this, Q(memtxt::kListTitle), Q(memtxt::kColName),
                                             QLineEdit::Normal, Q(m->name), &ok);
  if (!ok) return;
  try {
    if (RenameMemorized(state_, m->type, m->name, name.toStdString())) Load();
  } catch (const std::exception& e) {
    ReportError(state_, "frmRptCustom.cmdRename_Click", e);
  }
}

void frmRptCustom::NameEdited(QTableWidgetItem* item) {
  if (loading_ || item->column() != 0) return;
  const int row = item->row();
  if (row < 0 || row >= static_cast<int>(rows_.size())) return;
  const MemorizedReport m = rows_[static_cast<size_t>(row)];
  try {
    RenameMemorized(state_, m.type, m.name, item->text().toStdString(), true);
  } catch (const std::exception& e) {
    ReportError(state_, "frmRptCustom.grdReports_BeforeColUpdate", e);
  }
  Load();
}

void frmRptCustom::RemoveSelected() {
  const auto m = Selected();
  if (!m) return;
  try {
    if (!RemoveMemorized(state_, m->type, m->name)) return;
  } catch (const std::exception& e) {
    ReportError(state_, "frmRptCustom.cmdRemove_Click", e);
    return;
  }
  if (!Load()) {
    state_.io->Tell(memtxt::kNoneRemain);
    reject();
  }
}

void InstallTopTimesScreens(MainWindow& window, AppState& state) {
  window.SetHandler(MenuCommand::kReportTopTimes, [&window, &state] {
    try {
      frmRptTopTimes screen(state, &window);
      screen.exec();
    } catch (const std::exception& e) {
      ReportError(state, "frmRptTopTimes.Form_Load", e);
    }
  });
  window.SetHandler(MenuCommand::kReportMemorized, [&window, &state] {
    try {
      frmRptCustom screen(state, &window);
      if (!screen.Load()) {
        std::string text(memtxt::kNoneYet);
        for (std::string_view line : memtxt::kNoneYetLines) text += "\n" + std::string(line);
        state.io->Message(text, box::kInformation, memtxt::kListTitle);
        return;
      }
      screen.exec();
    } catch (const std::exception& e) {
      ReportError(state, "frmRptCustom.Form_Load", e);
    }
  });
}

}  // namespace kvlr
