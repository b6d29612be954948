#include "daily/HealthScreen.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "daily/DailyReports.h"
#include "daily/DailyTexts.h"
#include "daily/HealthDialog.h"
#include "daily/RowsModel.h"
#include "reports/GraphScreens.h"
#include "reports/ReportPreview.h"

namespace kvlr {

namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

QString Num(double v) {
  return QString::number(v, 'g', 6);
}

constexpr std::string_view kMeasures[] = {dailytext::kHeartRate, dailytext::kSleep,
                                          dailytext::kWeight, dailytext::kWellness};

void AddMeasureBoxes(QWidget* parent, QLayout* layout, QCheckBox* (&boxes)[4]) {
  for (int i = 0; i < 4; ++i) {
    boxes[i] = new QCheckBox(" " + Q(kMeasures[i]), parent);
    boxes[i]->setObjectName(QString("chkHealth%1").arg(i));
    boxes[i]->setChecked(true);
    layout->addWidget(boxes[i]);
  }
}

}  // namespace

frmHealth::frmHealth(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmHealth");
  setWindowTitle(tr("Health") + " - " + QString::fromStdString(state.gAthleteName));
  auto* layout = new QVBoxLayout(this);
  auto* tools = new QToolBar(this);
  tools->addAction(tr("Add"), this, &frmHealth::Add);
  tools->addAction(tr("Edit"), this, &frmHealth::Edit);
  tools->addAction(tr("Delete"), this, &frmHealth::Delete);
  tools->addAction(Q(dailytext::kPrint), this, &frmHealth::Print);
  tools->addAction(tr("Graph"), this, &frmHealth::Graph);
  tools->addAction(Q(dailytext::kExitForm), this, &QDialog::reject);
  layout->addWidget(tools);
  auto* filter = new QHBoxLayout;
  from_ = new QLineEdit(this);
  from_->setObjectName("txtFrom");
  from_->setPlaceholderText(Q(ShownDateHint(state.gDateOrder)));
  until_ = new QLineEdit(this);
  until_->setObjectName("txtUntil");
  until_->setPlaceholderText(from_->placeholderText());
  filter->addWidget(new QLabel(tr("From"), this));
  filter->addWidget(from_);
  filter->addWidget(new QLabel(tr("To"), this));
  filter->addWidget(until_);
  filter->addStretch();
  layout->addLayout(filter);
  model_ = new RowsModel({"Date", "Start Time", "Heart Rate", "Sleep", "Weight", "Wellness",
                          "Comment"},
                         this);
  grid_ = new QTableView(this);
  grid_->setObjectName("TDBGHealth");
  grid_->setModel(model_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->horizontalHeader()->setStretchLastSection(true);
  layout->addWidget(grid_, 1);
  auto* graph = new QHBoxLayout;
  AddMeasureBoxes(this, graph, chk_);
  graph->addStretch();
  layout->addLayout(graph);
  connect(from_, &QLineEdit::editingFinished, this, &frmHealth::Refresh);
  connect(until_, &QLineEdit::editingFinished, this, &frmHealth::Refresh);
  connect(grid_, &QTableView::doubleClicked, this, &frmHealth::Edit);
  resize(720, 460);
  Refresh();
}

std::optional<Date> frmHealth::BoxDate(QLineEdit* box) const {
  return TypedDate(box->text().trimmed().toStdString(), state_.gDateOrder);
}

void frmHealth::Refresh() {
  rows_ = RunTrapped(state_, "frmHealth.LoadHealth", [&] {
    return ListHealth(*state_.gDb, state_.gAthlete, BoxDate(from_), BoxDate(until_));
  });
  std::vector<QStringList> texts;
  for (const HealthRecord& r : rows_) {
    texts.push_back({QString::fromStdString(ShownDate(r.date, state_.gDateOrder)),
                     r.start ? QString::fromStdString(ClockText(*r.start)) : QString(),
                     Num(r.hr), Num(r.sleep), Num(r.weight), QString::number(r.wellness),
                     QString::fromStdString(r.comment)});
  }
  model_->SetRows(std::move(texts));
}

const HealthRecord* frmHealth::Current() const {
  const int row = grid_->currentIndex().row();
  return row >= 0 && row < static_cast<int>(rows_.size()) ? &rows_[row] : nullptr;
}

void frmHealth::Add() {
  if (ShowHealthRecord(state_, 0, this)) Refresh();
}

void frmHealth::Edit() {
  if (const HealthRecord* r = Current(); r && ShowHealthRecord(state_, r->id, this)) Refresh();
}

void frmHealth::Delete() {
  if (const HealthRecord* r = Current(); r && DeleteHealth(state_, *r)) Refresh();
}

void frmHealth::Print() {
  frmRptHealth report(state_, this);
  report.exec();
}

void frmHealth::Graph() {
  GraphHealthRequest request;
  request.athlete = state_.gAthlete;
  request.heart_rate = chk_[0]->isChecked();
  request.sleep = chk_[1]->isChecked();
  request.weight = chk_[2]->isChecked();
  request.wellness = chk_[3]->isChecked();
  request.from = BoxDate(from_);
  request.until = BoxDate(until_);
  ShowHealthGraph(state_, this, request);
}

frmRptHealth::frmRptHealth(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmRptHealth");
  setWindowTitle(Q(dailytext::kHealthReports));
  auto* layout = new QVBoxLayout(this);
  auto* measures = new QHBoxLayout;
  AddMeasureBoxes(this, measures, chk_);
  layout->addLayout(measures);
  auto* form = new QFormLayout;
  since_ = new QLineEdit(this);
  since_->setObjectName("txtSince");
  until_ = new QLineEdit(this);
  until_->setObjectName("txtUntil");
  form->addRow(tr("Health Since"), since_);
  form->addRow(tr("Health Until"), until_);
  layout->addLayout(form);
  descending_ = new QRadioButton(tr("Start Date Descending"), this);
  descending_->setChecked(true);
  layout->addWidget(descending_);
  layout->addWidget(new QRadioButton(tr("Start Date Ascending"), this));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Close, this);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &frmRptHealth::Run);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

HealthReportOptions frmRptHealth::Options() const {
  HealthReportOptions o;
  o.athlete = state_.gAthlete;
  o.hr = chk_[0]->isChecked();
  o.sleep = chk_[1]->isChecked();
  o.weight = chk_[2]->isChecked();
  o.wellness = chk_[3]->isChecked();
  o.since = TypedDate(since_->text().trimmed().toStdString(), state_.gDateOrder);
  o.until = TypedDate(until_->text().trimmed().toStdString(), state_.gDateOrder);
  o.ascending = !descending_->isChecked();
  return o;
}

void frmRptHealth::Run() {
  ReportRequest request;
  request.athlete = state_.gAthlete;
  std::optional<ReportDoc> doc = RunReport(state_, HealthReportKind(Options()), request);
  if (!doc) return;
  ReportPreviewDialog preview(state_, std::move(*doc), this);
  preview.exec();
}

}  // namespace kvlr
