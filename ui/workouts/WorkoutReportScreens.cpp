#include "workouts/WorkoutReportScreens.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "reports/ReportPreview.h"
#include "workouts/WorkoutArrays.h"
#include "workouts/WorkoutExchange.h"
#include "workouts/WorkoutStore.h"

namespace kvlr {
namespace {

QString Q(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<int>(s.size())); }
QDate ToQ(const Date& d) { return QDate(d.year, d.month, d.day); }
Date FromQ(const QDate& d) { return Date{d.year(), d.month(), d.day()}; }

QDialogButtonBox* RunClose(QDialog* d, std::function<void()> run) {
  auto* b = new QDialogButtonBox(d);
  auto* create = b->addButton(QObject::tr("Create Report"), QDialogButtonBox::AcceptRole);
  b->addButton(QDialogButtonBox::Close);
  QObject::connect(create, &QPushButton::clicked, d, std::move(run));
  QObject::connect(b, &QDialogButtonBox::rejected, d, &QDialog::reject);
  return b;
}

}  // namespace

WorkoutUserChoice::WorkoutUserChoice(AppState& state, std::string report, QWidget* parent)
    : QListWidget(parent), state_(state), report_(std::move(report)) {
  const auto selector = WorkoutUserSelector(LoadWorkoutUsers(*state.gDb));
  std::vector<std::string> codes;
  for (const auto& u : selector) codes.push_back(u.code);
  const auto marks = gApplyWKFavoriteGroups(
      codes, ReadGroupSelection(GroupSelectionFile(state.home.Root(), report_)));
  for (size_t i = 0; i < selector.size(); ++i) {
    auto* item = new QListWidgetItem(Q(selector[i].name), this);
    item->setData(Qt::UserRole, Q(selector[i].code));
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(i < marks.size() && marks[i] ? Qt::Checked : Qt::Unchecked);
  }
  setMaximumHeight(110);
}

std::vector<std::string> WorkoutUserChoice::Marked() const {
  std::vector<std::string> codes;
  for (int i = 0; i < count(); ++i) {
    if (item(i)->checkState() == Qt::Checked) {
      codes.push_back(item(i)->data(Qt::UserRole).toString().toStdString());
    }
  }
  return codes;
}

void WorkoutUserChoice::Save() const {
  SaveGroupSelection(GroupSelectionFile(state_.home.Root(), report_), Marked());
}

frmWorkoutRptLogBook::frmWorkoutRptLogBook(AppState& state, int32_t number, QWidget* parent)
    : QDialog(parent), state_(state) {
  setObjectName("frmWorkoutRptLogBook");
  setWindowTitle(tr("Log Books"));
  const auto by_date = ListWorkouts(*state.gDb, "0", "wk_date, start_time");
  const auto by_num = ListWorkouts(*state.gDb, "0", "wk_num");
  const Date first = by_date.empty() ? state.clock->Today() : by_date.front().wk_date;
  const Date last = by_date.empty() ? state.clock->Today() : by_date.back().wk_date;
  const int lo = by_num.empty() ? 1 : by_num.front().wk_num;
  const int hi = by_num.empty() ? 1 : by_num.back().wk_num;
  auto* by_date_option = new QRadioButton(tr("By Date"), this);
  by_number_ = new QRadioButton(tr("By Workout Number"), this);
  (number ? by_number_ : by_date_option)->setChecked(true);
  from_date_ = new QDateEdit(ToQ(first), this);
  to_date_ = new QDateEdit(ToQ(last), this);
  for (QDateEdit* d : {from_date_, to_date_}) {
    d->setCalendarPopup(true);
    d->setDateRange(QDate(1900, 1, 1), QDate(2050, 1, 1));
  }
  from_number_ = new QSpinBox(this);
  to_number_ = new QSpinBox(this);
  for (QSpinBox* s : {from_number_, to_number_}) s->setRange(0, 999999);
  from_number_->setValue(number ? number : lo);
  to_number_->setValue(number ? number : hi);
  auto check = [this](const char* text, bool on) {
    auto* c = new QCheckBox(tr(text), this);
    c->setChecked(on);
    return c;
  };
  energy_ = check("Include energy level data :", true);
  strokes_ = check("Include stroke categories :", true);
  times_ = check("Include set start times :", true);
  notes_ = check("Include notes :", true);
  analysis_ = check("Include analysis :", false);
  stress_ = check("Include stress values :", true);
  paces_ = check("Include 50/100's paces :", true);
  per_page_ = check("One workout per page :", false);
  auto* all = new QRadioButton(tr("All Users"), this);
  selected_ = new QRadioButton(tr("Selected Users"), this);
  all->setChecked(true);
  users_ = new WorkoutUserChoice(state, "Logbook", this);
  auto* single = new QRadioButton(tr("Single Col"), this);
  double_ = new QRadioButton(tr("Double Col"), this);
  single->setChecked(true);
  auto* form = new QFormLayout;
  auto* kind = new QHBoxLayout;
  kind->addWidget(by_date_option);
  kind->addWidget(by_number_);
  form->addRow(kind);
  form->addRow(tr("Workout Start Date :"), from_date_);
  form->addRow(tr("Workout End Date :"), to_date_);
  form->addRow(tr("Starting Number (%1) :").arg(lo), from_number_);
  form->addRow(tr("Ending Number (%1) :").arg(hi), to_number_);
  for (QCheckBox* c : {energy_, strokes_, times_, notes_, analysis_, stress_, paces_, per_page_}) {
    form->addRow(c);
  }
  auto* group = new QHBoxLayout;
  group->addWidget(all);
  group->addWidget(selected_);
  form->addRow(group);
  form->addRow(users_);
  auto* cols = new QHBoxLayout;
  cols->addWidget(single);
  cols->addWidget(double_);
  form->addRow(cols);
  auto* v = new QVBoxLayout(this);
  v->addLayout(form);
  v->addWidget(RunClose(this, [this] { Preview(); }));
}

ReportRequest frmWorkoutRptLogBook::Request() const {
  ReportRequest r;
  WorkoutReportChoices& w = r.workouts;
  w.by_number = by_number_->isChecked();
  r.since = FromQ(from_date_->date());
  r.until = FromQ(to_date_->date());
  w.from_number = from_number_->value();
  w.to_number = to_number_->value();
  w.energy = energy_->isChecked();
  w.strokes = strokes_->isChecked();
  w.times = times_->isChecked();
  w.notes = notes_->isChecked();
  w.analysis = analysis_->isChecked();
  w.stress = stress_->isChecked();
  w.paces = paces_->isChecked();
  w.one_per_page = per_page_->isChecked();
  w.columns = double_->isChecked() ? 2 : 1;
  if (selected_->isChecked()) {
    w.users = users_->Marked();
    w.selected_users = true;
  }
  return r;
}

void frmWorkoutRptLogBook::Preview() {
  users_->Save();
  PreviewReport(state_, this, "logbook", Request());
}

frmWorkoutRptStats::frmWorkoutRptStats(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state) {
  setObjectName("frmWorkoutRptStats");
  setWindowTitle(tr("Workout Statistics"));
  type_ = new QComboBox(this);
  type_->addItems({tr("Energy Analysis"), tr("Stroke Categories"), tr("Work Type Categories"),
                   tr("Distance Totals"), tr("Stress Totals")});
  type_->setCurrentIndex(3);
  auto* yards = new QRadioButton(tr("Yards"), this);
  meters_ = new QRadioButton(tr("Meters"), this);
  yards->setChecked(true);
  auto* yardage = new QRadioButton(tr("Yardage"), this);
  minutes_ = new QRadioButton(tr("Minutes"), this);
  yardage->setChecked(true);
  auto* course_group = new QWidget(this);
  auto* course = new QHBoxLayout(course_group);
  course->addWidget(yards);
  course->addWidget(meters_);
  auto* data_group = new QWidget(this);
  auto* data = new QHBoxLayout(data_group);
  data->addWidget(yardage);
  data->addWidget(minutes_);
  days_ = new QLineEdit("7", this);
  days_->setValidator(new QIntValidator(0, 99999, days_));
  const Date today = state.clock->Today();
  from_ = new QDateEdit(ToQ(AddDays(today, -27)), this);
  to_ = new QDateEdit(ToQ(today), this);
  for (QDateEdit* d : {from_, to_}) d->setCalendarPopup(true);
  auto* all = new QRadioButton(tr("All Users"), this);
  selected_ = new QRadioButton(tr("Selected Users"), this);
  all->setChecked(true);
  auto* group_box = new QWidget(this);
  auto* group = new QHBoxLayout(group_box);
  group->addWidget(all);
  group->addWidget(selected_);
  users_ = new WorkoutUserChoice(state, "Statistics", this);
  auto* form = new QFormLayout;
  form->addRow(tr("Report Type"), type_);
  form->addRow(tr("Show Totals in"), course_group);
  form->addRow(tr("Show Data as"), data_group);
  form->addRow(tr("Days in Cycle"), days_);
  form->addRow(tr("Start Date"), from_);
  form->addRow(tr("End Date"), to_);
  form->addRow(group_box);
  form->addRow(users_);
  auto* v = new QVBoxLayout(this);
  v->addLayout(form);
  v->addWidget(RunClose(this, [this] { Preview(); }));
}

ReportRequest frmWorkoutRptStats::Request() const {
  ReportRequest r;
  WorkoutReportChoices& w = r.workouts;
  w.stat_type = type_->currentIndex();
  w.meters = meters_->isChecked();
  w.minutes = minutes_->isChecked();
  w.cycle_days = days_->text().toInt();
  r.since = FromQ(from_->date());
  r.until = FromQ(to_->date());
  if (selected_->isChecked()) {
    w.users = users_->Marked();
    w.selected_users = true;
  }
  return r;
}

void frmWorkoutRptStats::Preview() {
  users_->Save();
  if (!PreviewReport(state_, this, "workout-stats", Request())) days_->setFocus();
}

}  // namespace kvlr
