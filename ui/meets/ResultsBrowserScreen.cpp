#include "meets/ResultsBrowserScreen.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "meets/CommentsScreen.h"
#include "meets/ReRankScreen.h"
#include "meets/ResultLookups.h"
#include "meets/ResultTexts.h"
#include "meets/ScreenParts.h"
#include "meets/Splits.h"
#include "meets/SplitsScreen.h"
#include "reports/GraphScreens.h"
#include "standards/StandardTexts.h"

namespace kvlr {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QCheckBox* Tick(QWidget* parent, std::string_view words, const char* name) {
  auto* box = new QCheckBox(Q(words), parent);
  box->setObjectName(name);
  return box;
}

}  // namespace

frmResults::frmResults(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmResults");
  setWindowTitle(Q(kBrowserTitle) + " - " + QString::fromStdString(state_.gAthleteName));
  filter_.athlete = state_.gAthlete;

  grid_ = new QTableView(this);
  grid_->setObjectName("TDBGResults");
  grid_->setModel(&model_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->verticalHeader()->setDefaultSectionSize(22);
  grid_->horizontalHeader()->setSectionsClickable(true);
  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this,
          &frmResults::HeadingClicked);

  BuildFilterBar();

  QHBoxLayout* tools = screen::CommandBar<frmResults>(
      this, {{tr("Splits"), "cmdSplits", &frmResults::OpenSplits},
             {tr("Comment"), "cmdComment", &frmResults::OpenComment},
             {tr("Graph"), "cmdGraph", &frmResults::OpenGraph},
             {tr("Last Entered First"), "cmdLastEntered", &frmResults::LastEnteredFirst},
             {tr("Delete"), "cmdDelete", &frmResults::DeleteCurrent}});

  static_cast<QVBoxLayout*>(layout())->addWidget(grid_, 1);
  static_cast<QVBoxLayout*>(layout())->addLayout(tools);
  resize(1180, 640);
  GetResults();
}

void frmResults::BuildFilterBar() {
  auto* bar = new QGridLayout;
  meets_ = new QComboBox(this);
  meets_->setObjectName("cboMeets");
  meets_->addItem("All Meets", 0);
  for (const auto& m : RunTrapped(state_, "frmResults.LoadMeetArray", [&] {
         return BrowserMeets(*state_.gDb, state_.gDateOrder);
       })) {
    meets_->addItem(QString::fromStdString(m.text), m.meet);
  }
  course_ = new QComboBox(this);
  course_->setObjectName("cboCourse");
  for (const auto& c : CourseList()) course_->addItem(QString::fromStdString(c));
  // An empty filter says what it lets through.
  course_->setItemText(0, tr("All"));
  const std::string favourite_course = CourseLetterOf(state_.gFavoriteCourse);
  if (!favourite_course.empty()) {
    course_->setCurrentIndex(static_cast<int>(CourseLetters.find(favourite_course[0])) + 1);
  }
  stroke_ = new QComboBox(this);
  stroke_->setObjectName("cboStroke");
  stroke_->addItem(tr("All"), 0);
  for (int s = 1; s <= 5; ++s) stroke_->addItem(QString::fromStdString(StrokeText(s, "")), s);
  stroke_->addItem("Diving", 6);
  distance_ = new QComboBox(this);
  distance_->setObjectName("cboDistance");
  for (const auto& d : DistanceList()) distance_->addItem(QString::fromStdString(d).trimmed());
  distance_->setItemText(0, tr("All"));
  meet_type_ = new QComboBox(this);
  meet_type_->setObjectName("cboMeetType");
  meet_type_->addItem(tr("All"), "");
  for (const auto& [abbr, desc] :
       RunTrapped(state_, "frmResults.LoadMeetTypes", [&] { return MeetTypes(*state_.gDb); })) {
    meet_type_->addItem(QString::fromStdString(abbr + " " + desc), QString::fromStdString(abbr));
  }
  if (!state_.gFavoriteMeetType.empty()) {
    const int at = meet_type_->findData(QString::fromStdString(state_.gFavoriteMeetType));
    if (at >= 0) meet_type_->setCurrentIndex(at);
  }
  use_since_ = Tick(this, kUseSinceDate, "chkSince");
  since_ = new QDateEdit(this);
  since_->setObjectName("dtSince");
  since_->setCalendarPopup(true);
  since_->setDisplayFormat(ShownDatePattern(state_.gDateOrder));
  const Date today = state_.clock->Today();
  since_->setDate(QDate(today.year - 1, today.month, 1));
  fastest_ = Tick(this, kFastest, "chkFastest");
  fastest_n_ = new QLineEdit("1", this);
  fastest_n_->setObjectName("txtFastest");
  fastest_n_->setMaximumWidth(40);
  chronological_ = Tick(this, kChronological, "chkChronological");
  non_lead_ = Tick(this, kShowNonLeadLegs, "chkNonLead");
  goals_ = Tick(this, kShowGoals, "chkGoals");
  conversion_ = Tick(this, kShowConversion, "chkConversion");
  standards_ = Tick(this, kShowStandards, "chkStandards");
  current_age_ = Tick(this, kStandardsCurrentAge, "chkCurrentAge");
  auto* convert_group = new QButtonGroup(this);
  convert_group->setExclusive(false);
  const char* letters[] = {"L", "S", "Y"};
  for (size_t i = 0; i < convert_to_.size(); ++i) {
    convert_to_[i] = new QPushButton(letters[i], this);
    convert_to_[i]->setObjectName(QString("SSRibCvt%1").arg(i));
    convert_to_[i]->setCheckable(true);
    convert_to_[i]->setAutoDefault(false);
    convert_to_[i]->setMaximumWidth(28);
    convert_group->addButton(convert_to_[i], static_cast<int>(i));
  }
  // At most one button is down; pressing the one down lifts it.
  connect(convert_group, &QButtonGroup::idToggled, this, [this](int id, bool on) {
    if (!on) return;
    for (size_t i = 0; i < convert_to_.size(); ++i) {
      if (static_cast<int>(i) != id) convert_to_[i]->setChecked(false);
    }
  });

  bar->addWidget(new QLabel("Meet:", this), 0, 0);
  bar->addWidget(meets_, 0, 1, 1, 3);
  bar->addWidget(new QLabel("Course:", this), 0, 4);
  bar->addWidget(course_, 0, 5);
  bar->addWidget(new QLabel("Stroke:", this), 0, 6);
  bar->addWidget(stroke_, 0, 7);
  bar->addWidget(new QLabel("Distance:", this), 0, 8);
  bar->addWidget(distance_, 0, 9);
  bar->addWidget(new QLabel("Meet Type:", this), 0, 10);
  bar->addWidget(meet_type_, 0, 11);
  bar->addWidget(use_since_, 1, 0);
  bar->addWidget(since_, 1, 1);
  bar->addWidget(fastest_, 1, 2);
  bar->addWidget(fastest_n_, 1, 3);
  bar->addWidget(chronological_, 1, 4, 1, 2);
  bar->addWidget(non_lead_, 1, 6, 1, 2);
  bar->addWidget(goals_, 1, 8);
  bar->addWidget(conversion_, 2, 0);
  auto* buttons = new QHBoxLayout;
  for (auto* b : convert_to_) buttons->addWidget(b);
  buttons->addStretch();
  bar->addLayout(buttons, 2, 1);
  bar->addWidget(standards_, 2, 2, 1, 2);
  bar->addWidget(current_age_, 2, 4, 1, 4);
  // "Show Standards" judges against this one; an empty name is why it shows nothing.
  const std::string standard = Trim(state_.gStandardName);
  auto* standard_name = new QLabel(
      QString::fromStdString(standard.empty() ? std::string(stdtext::kNoCurrentStandard)
                                              : std::string(stdtext::kCurrentStandard) + standard),
      this);
  standard_name->setObjectName("lblStandard");
  bar->addWidget(standard_name, 2, 8, 1, 4);
  bar->setColumnStretch(12, 1);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(bar);

  // Every change of a filter fills the grid again.
  for (auto* combo : {meets_, course_, stroke_, distance_, meet_type_}) {
    connect(combo, &QComboBox::currentIndexChanged, this, [this] { GetResults(); });
  }
  for (auto* tick : {use_since_, fastest_, chronological_, non_lead_, goals_, conversion_,
                     standards_, current_age_}) {
    connect(tick, &QCheckBox::toggled, this, [this] { GetResults(); });
  }
  for (auto* b : convert_to_) connect(b, &QPushButton::toggled, this, [this] { GetResults(); });
  connect(since_, &QDateEdit::dateChanged, this, [this] {
    if (use_since_->isChecked()) GetResults();
  });
  connect(fastest_n_, &QLineEdit::editingFinished, this, [this] {
    if (fastest_->isChecked()) GetResults();
  });
}

void frmResults::ShowEvent(int16_t distance, int16_t stroke) {
  {
    const QSignalBlocker course(course_), strokes(stroke_), distances(distance_);
    course_->setCurrentIndex(0);
    stroke_->setCurrentIndex(std::max(0, stroke_->findData(stroke)));
    distance_->setCurrentIndex(std::max(0, distance_->findText(QString::number(distance))));
  }
  GetResults();
}

void frmResults::ReadFilters() {
  filter_.athlete = state_.gAthlete;
  filter_.meet = meets_->currentData().toInt();
  filter_.course =
      course_->currentIndex() > 0
          ? std::string(1, CourseLetters[static_cast<size_t>(course_->currentIndex() - 1)])
          : std::string();
  filter_.stroke = static_cast<int16_t>(stroke_->currentData().toInt());
  filter_.distance = DistanceFilterValue(distance_->currentIndex());
  filter_.meet_type = meet_type_->currentData().toString().toStdString();
  filter_.use_since = use_since_->isChecked();
  const QDate since = since_->date();
  filter_.since = Date{since.year(), since.month(), since.day()};
  filter_.fastest = fastest_->isChecked();
  filter_.fastest_text = fastest_n_->text().toStdString();
  filter_.chronological = chronological_->isChecked();
  filter_.show_non_lead = non_lead_->isChecked();
  filter_.show_goals = goals_->isChecked();
}

void frmResults::GetResults() {
  if (loading_) return;
  loading_ = true;
  ReadFilters();
  const ResultsPlan plan =
      PlanResults(filter_, state_.gUseLeadOff, state_.clock->Today(), state_.gNullDate);
  if (plan.rank_first) {
    frmReRank rerank(state_, this);
    rerank.SetSelection(*plan.rank_first);
    rerank.exec();
  }
  ResultCellOptions options;
  options.show_standards = standards_->isChecked();
  options.standards_current_age = current_age_->isChecked();
  options.current_age = state_.gAthleteAge;
  options.show_conversion = conversion_->isChecked();
  static constexpr char kButtonCourse[] = {'L', 'S', 'Y'};
  for (size_t i = 0; i < convert_to_.size(); ++i) {
    if (convert_to_[i]->isChecked()) options.convert_to = kButtonCourse[i];
  }
  options.y2l = state_.gY2L;
  options.date_order = state_.gDateOrder;
  std::vector<ResultRecord> records =
      RunTrapped(state_, "frmResults.GetResults", [&] { return RunResults(*state_.gDb, plan); });
  std::vector<ResultCells> cells =
      FillResultCells(records, options, CurrentStandardLookup(state_), StateTimeConverter(state_));
  model_.SetRows(std::move(records), std::move(cells), filter_.sort);
  grid_->setColumnHidden(kColConverted, !options.show_conversion);
  grid_->resizeColumnsToContents();
  loading_ = false;
}

void frmResults::HeadingClicked(int column) {
  bool untick = false;
  const ResultSort sort = SortAfterHeadingClick(column, filter_.sort, untick);
  if (sort == filter_.sort && column != kColStartDate) return;
  filter_.sort = sort;
  if (untick && chronological_->isChecked()) {
    const QSignalBlocker quiet(chronological_);
    chronological_->setChecked(false);
  }
  GetResults();
}

void frmResults::LastEnteredFirst() {
  {
    const QSignalBlocker quiet_fastest(fastest_);
    const QSignalBlocker quiet_chronological(chronological_);
    fastest_->setChecked(false);
    chronological_->setChecked(false);
  }
  filter_.sort = ResultSort::kLastEntered;
  GetResults();
  if (model_.rowCount() > 0) grid_->selectRow(0);
}

int frmResults::CurrentRow() const {
  const QModelIndex at = grid_->currentIndex();
  return at.isValid() ? at.row() : -1;
}

void frmResults::DeleteCurrent() {
  const int row = CurrentRow();
  if (row < 0) return;
  const int count = model_.rowCount();
  if (!DeleteOneResult(state_, model_.Record(row), state_.gAthleteName)) return;
  GetResults();
  const int next = RowAfterDelete(row, count);
  if (next >= 0 && next < model_.rowCount()) grid_->selectRow(next);
}

void frmResults::OpenGraph() {
  const int row = CurrentRow();
  if (row < 0) return;
  const ResultRecord& r = model_.Record(row);
  GraphResultsRequest request;
  request.athlete = state_.gAthlete;
  request.stroke = r.stroke;
  request.distance = r.distance;
  request.course = r.course;
  if (filter_.use_since) request.since = filter_.since;
  request.meet_type = filter_.meet_type;
  request.all_relay_legs = filter_.show_non_lead;
  ShowResultsGraph(state_, this, request);
}

void frmResults::OpenSplits() {
  const int row = CurrentRow();
  if (row < 0) return;
  const ResultRecord& r = model_.Record(row);
  SplitsRequest request{r.result,
                        r.distance,
                        r.score,
                        r.split,
                        r.course,
                        SplitsCaption(r.distance, r.stroke, r.f_p,
                                      r.ex + ScoreText(r.score, r.stroke, r.course, r.nt),
                                      state_.gAthleteName, r.meet_name)};
  auto* splits = new frmSplits(state_, request, this);
  splits->setAttribute(Qt::WA_DeleteOnClose);
  connect(splits, &frmSplits::saved, this, &frmResults::GetResults);
  splits->open();
}

void frmResults::OpenComment() {
  const int row = CurrentRow();
  if (row < 0) return;
  const ResultRecord& r = model_.Record(row);
  CommentRequest request{r.result, std::to_string(r.distance) + " " + StrokeText(r.stroke, ""),
                         r.meet_name, state_.gAthleteName};
  auto* comments = new frmComments(state_, request, this);
  comments->setAttribute(Qt::WA_DeleteOnClose);
  connect(comments, &frmComments::saved, this, &frmResults::GetResults);
  comments->open();
}

}  // namespace kvlr
