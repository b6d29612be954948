#include "reports/GraphScreen.h"

#include <QBarSet>
#include <QChartView>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLegend>
#include <QLineSeries>
#include <QMouseEvent>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolTip>
#include <QVBoxLayout>

#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "meets/ResultsQuery.h"

namespace kvlr {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

constexpr char kHelp[] =
    "Qt Charts draws graphs flat. Show in 3D gives the graph a shadow and shaded bars; Show in "
    "2D takes them off. The rotate commands move the view over the graph a tenth at a time, as "
    "does dragging with the Ctrl key held; Refresh Graph puts it back.";

// The chart view of frmGraph: the legend moves and resizes with the mouse, and with Ctrl
// held the mouse moves the view over the graph.
class GraphView final : public QChartView {
 public:
  using QChartView::QChartView;

 protected:
  void mousePressEvent(QMouseEvent* e) override {
    const QPointF at = e->position();
    if (e->button() == Qt::LeftButton && (e->modifiers() & Qt::ControlModifier)) {
      mode_ = kPan;
    } else if (e->button() == Qt::LeftButton && LegendRect().contains(at)) {
      const QRectF r = LegendRect();
      mode_ = QLineF(at, r.bottomRight()).length() < 12 ? kResize : kMove;
      QLegend* legend = chart()->legend();
      if (legend->isAttachedToChart()) {
        legend->detachFromChart();
        legend->setBackgroundVisible(true);
        legend->setGeometry(legend->geometry());
      }
    } else {
      QChartView::mousePressEvent(e);
      return;
    }
    last_ = at;
    e->accept();
  }
  void mouseMoveEvent(QMouseEvent* e) override {
    if (mode_ == kNone) {
      QChartView::mouseMoveEvent(e);
      return;
    }
    const QPointF step = e->position() - last_;
    last_ = e->position();
    if (mode_ == kPan) {
      chart()->scroll(-step.x(), step.y());
    } else {
      QLegend* legend = chart()->legend();
      QRectF r = legend->geometry();
      if (mode_ == kMove) {
        r.translate(step);
      } else {
        r.setBottomRight(r.bottomRight() + step);
        r.setSize(r.size().expandedTo(QSizeF(40, 20)));
      }
      legend->setGeometry(r);
      legend->update();
    }
    e->accept();
  }
  void mouseReleaseEvent(QMouseEvent* e) override {
    if (mode_ == kNone) {
      QChartView::mouseReleaseEvent(e);
      return;
    }
    mode_ = kNone;
    e->accept();
  }

 private:
  enum Mode { kNone, kPan, kMove, kResize };
  QRectF LegendRect() const {
    QLegend* legend = chart()->legend();
    if (!legend->isVisible()) return {};
    return mapFromScene(legend->mapToScene(legend->rect())).boundingRect();
  }
  Mode mode_ = kNone;
  QPointF last_;
};

}  // namespace

frmGraph::frmGraph(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state), athlete_(state.gAthlete) {
  setObjectName("frmGraph");
  setWindowTitle(Q(graphtext::kTitle));
  setWhatsThis(kHelp);

  auto* tools = new QToolBar(this);
  tools->setObjectName("tbrGraph");
  tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
  auto add = [this, tools](const char* text, const char* name, auto slot,
                           const char* tip = nullptr) {
    QAction* action = tools->addAction(tr(text));
    action->setObjectName(name);
    if (tip) action->setToolTip(tr(tip));
    connect(action, &QAction::triggered, this, slot);
    return action;
  };
  add("Line Graph", "cmdLine", [this] { SetKind(GraphKind::kLine); });
  add("Bar Graph", "cmdBar", [this] { SetKind(GraphKind::kBar); });
  tools->addSeparator();
  add(
      "Show in 3D", "cmd3D", [this] { SetDepth(true); }, "A shadow and shaded bars");
  add(
      "Show in 2D", "cmd2D", [this] { SetDepth(false); }, "Flat again");
  add(
      "Rotate Left", "cmdLeft", [this] { Rotate(-1, 0); }, "Moves the view left");
  add(
      "Rotate Right", "cmdRight", [this] { Rotate(1, 0); }, "Moves the view right");
  add(
      "Rotate Up", "cmdUp", [this] { Rotate(0, 1); }, "Moves the view up");
  add(
      "Rotate Down", "cmdDown", [this] { Rotate(0, -1); }, "Moves the view down");
  tools->addSeparator();
  add("Print", "cmdPrint", [this] { Print(); });
  add(
      "Save Picture", "cmdSave", [this] { Save(); }, "As PNG or SVG");
  add("Exit this Form", "cmdExit", [this] { reject(); });

  BuildFilters();

  view_ = new GraphView(this);
  view_->setObjectName("Chart");
  view_->setRenderHint(QPainter::Antialiasing);
  view_->setMinimumSize(480, 300);

  auto* bar = new QStatusBar(this);
  status_ = new QLabel(this);
  status_->setObjectName("lblStatus");
  details_ = new QLabel(this);
  details_->setObjectName("lblDetails");
  details_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  bar->addWidget(status_, 1);
  bar->addPermanentWidget(details_);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 0);
  layout->addWidget(tools);
  layout->addWidget(filters_);
  layout->addWidget(view_, 1);
  layout->addWidget(bar);
  resize(1040, 660);
}

void frmGraph::BuildFilters() {
  filters_ = new QWidget(this);
  auto* row = new QHBoxLayout(filters_);
  row->setContentsMargins(0, 0, 0, 0);
  use_since_ = new QCheckBox(tr("Start Date:"), filters_);
  use_since_->setObjectName("chkSince");
  since_ = new QDateEdit(filters_);
  since_->setObjectName("SSDateSince");
  since_->setCalendarPopup(true);
  since_->setDisplayFormat(ShownDatePattern(state_.gDateOrder));
  const Date today = state_.clock->Today();
  since_->setDateRange(QDate(1930, 1, 1), QDate(std::max(2020, today.year), 12, 31));
  since_->setDate(QDate(today.year - 1, today.month, 1));
  since_->setEnabled(false);
  connect(use_since_, &QCheckBox::toggled, since_, &QWidget::setEnabled);

  meet_type_ = new QComboBox(filters_);
  meet_type_->setObjectName("CSCboMeetType");
  meet_type_->addItem(tr("All"), QString());
  for (const auto& [abbr, desc] :
       RunTrapped(state_, "frmGraph.LoadMeetTypes", [&] { return MeetTypes(*state_.gDb); })) {
    meet_type_->addItem(Q(Trim(abbr + " " + desc)), Q(abbr));
  }
  const int favourite_type = meet_type_->findData(Q(Trim(state_.gFavoriteMeetType)));
  if (favourite_type > 0) meet_type_->setCurrentIndex(favourite_type);

  stroke_ = new QComboBox(filters_);
  stroke_->setObjectName("cboStroke");
  for (int s = 1; s <= 5; ++s) stroke_->addItem(Q(StrokeText(s, "")), s);
  stroke_->addItem("Diving", 6);

  distance_ = new QComboBox(filters_);
  distance_->setObjectName("cboDistance");
  const auto distances = DistanceList();
  for (int i = 1; i < static_cast<int>(distances.size()); ++i) {
    distance_->addItem(Q(Trim(distances[static_cast<size_t>(i)])), DistanceFilterValue(i));
  }
  distance_->setCurrentIndex(distance_->findData(100));

  course_ = new QComboBox(filters_);
  course_->setObjectName("ComboArray");
  course_->addItem(tr("All"), QString());
  const auto courses = CourseList();
  for (size_t i = 0; i < CourseLetters.size(); ++i) {
    course_->addItem(Q(courses[i + 1]), QString(QChar(CourseLetters[i])));
  }
  const std::string favourite_course = CourseLetterOf(state_.gFavoriteCourse);
  if (!favourite_course.empty()) course_->setCurrentIndex(course_->findData(Q(favourite_course)));

  row->addWidget(use_since_);
  row->addWidget(since_);
  row->addWidget(new QLabel(tr("Meet Type:"), filters_));
  row->addWidget(meet_type_);
  row->addWidget(new QLabel(tr("Stroke:"), filters_));
  row->addWidget(stroke_);
  row->addWidget(new QLabel(tr("Distance:"), filters_));
  row->addWidget(distance_);
  row->addWidget(new QLabel(tr("Course:"), filters_));
  row->addWidget(course_);
  // Beside the filters it waits for.
  auto* refresh = new QPushButton(tr("Refresh Graph"), filters_);
  refresh->setObjectName("cmdRefresh");
  refresh->setAutoDefault(false);
  connect(refresh, &QPushButton::clicked, this, [this] { Refresh(); });
  row->addWidget(refresh);
  row->addStretch();

  for (auto* combo : {meet_type_, stroke_, distance_, course_}) {
    connect(combo, &QComboBox::currentIndexChanged, this, &frmGraph::FilterChanged);
  }
  connect(use_since_, &QCheckBox::toggled, this, &frmGraph::FilterChanged);
  connect(since_, &QDateEdit::dateChanged, this, &frmGraph::FilterChanged);
}

GraphResultsRequest frmGraph::ReadFilters() const {
  GraphResultsRequest r;
  r.athlete = athlete_;
  r.stroke = static_cast<int16_t>(stroke_->currentData().toInt());
  r.distance = static_cast<int16_t>(distance_->currentData().toInt());
  r.course = course_->currentData().toString().toStdString();
  r.meet_type = meet_type_->currentData().toString().toStdString();
  if (use_since_->isChecked()) {
    const QDate d = since_->date();
    r.since = Date{d.year(), d.month(), d.day()};
  }
  return r;
}

void frmGraph::ShowResults(const GraphResultsRequest& request) {
  health_ = false;
  filters_->show();
  athlete_ = request.athlete;
  auto pick = [](QComboBox* combo, const QVariant& value) {
    const int at = combo->findData(value);
    if (at >= 0) combo->setCurrentIndex(at);
  };
  pick(stroke_, request.stroke);
  pick(distance_, request.distance);
  pick(course_, Q(UCase(request.course)));
  pick(meet_type_, Q(request.meet_type));
  use_since_->setChecked(request.since.has_value());
  if (request.since)
    since_->setDate(QDate(request.since->year, request.since->month, request.since->day));
  Refresh();
}

void frmGraph::ShowHealth(const GraphHealthRequest& request) {
  health_ = true;
  health_request_ = request;
  filters_->hide();
  Refresh();
}

void frmGraph::FilterChanged() {
  needs_refresh_ = true;
  status_->setText(Q(graphtext::kNeedsRefresh));
}

bool frmGraph::Refresh() {
  const char* source = health_ ? "frmGraph.GraphHealth" : "frmGraph.GraphResults";
  const GraphResultsRequest request = ReadFilters();
  data_ = RunTrapped(state_, source, [&] {
    return health_ ? GraphHealth(*state_.gDb, health_request_, state_.gDateOrder)
                   : GraphResults(*state_.gDb, request, state_.gDateOrder);
  });
  for (const auto& message : data_.messages) state_.io->Tell(message);
  if (data_.since_cleared) {
    const QSignalBlocker block(use_since_);
    use_since_->setChecked(false);
    since_->setEnabled(false);
  }
  needs_refresh_ = false;
  Draw();
  return data_.Drawable();
}

void frmGraph::Draw() {
  details_->clear();
  // The view owns its chart but leaves the one it showed before to its caller.
  auto show = [this](QChart* chart) {
    QChart* old = view_->chart();
    view_->setChart(chart);
    delete old;
  };
  if (!data_.Drawable()) {
    show(new QChart);
    ShowHints();
    return;
  }
  const char* source = look_.kind == GraphKind::kBar ? "frmGraph.ChartBar" : "frmGraph.Chart";
  GraphChart built = RunTrapped(state_, source, [&] { return BuildGraphChart(data_, look_); });
  if (!built.chart) return;
  for (size_t i = 0; i < built.lines.size(); ++i) {
    auto details = [this, i](const QPointF& at) {
      if (const GraphPoint* p = NearestPoint(data_, i, at.x())) ShowDetails(i, *p);
    };
    connect(built.lines[i], &QLineSeries::clicked, this, details);
    connect(built.lines[i], &QLineSeries::hovered, this, [details](const QPointF& at, bool on) {
      if (on) details(at);
    });
  }
  for (size_t i = 0; i < built.bars.size(); ++i) {
    auto details = [this, i](int slot) {
      for (const auto& p : data_.series[i].points) {
        if (p.slot == slot) ShowDetails(i, p);
      }
    };
    connect(built.bars[i], &QBarSet::clicked, this, details);
    connect(built.bars[i], &QBarSet::hovered, this, [details](bool on, int slot) {
      if (on) details(slot);
    });
  }
  show(built.chart.release());
  ShowHints();
}

void frmGraph::ShowHints() {
  if (needs_refresh_) {
    status_->setText(Q(graphtext::kNeedsRefresh));
    return;
  }
  if (!data_.Drawable()) {
    status_->clear();
    return;
  }
  QString hints = Q(look_.kind == GraphKind::kBar ? graphtext::kClickBar : graphtext::kClickPoint);
  hints += "  " + Q(look_.depth ? graphtext::kRotateHint : graphtext::kLegendHint);
  status_->setText(hints);
}

void frmGraph::ShowDetails(size_t series, const GraphPoint& point) {
  const QString text = Q(PointDetails(data_, series, point));
  details_->setText(text);
  if (view_->underMouse()) QToolTip::showText(QCursor::pos(), text, view_);
}

void frmGraph::SetKind(GraphKind kind) {
  look_.kind = kind;
  Draw();
}

void frmGraph::SetDepth(bool depth) {
  look_.depth = depth;
  Draw();
}

void frmGraph::Rotate(int right, int up) {
  QChart* chart = view_->chart();
  const QRectF plot = chart->plotArea();
  chart->scroll(right * plot.width() / 10, up * plot.height() / 10);
}

void frmGraph::Print() {
  if (!data_.Drawable()) return;
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  if (!state_.gPrinter.device.empty()) printer.setPrinterName(Q(state_.gPrinter.device));
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() != QDialog::Accepted) return;
  PrintGraph(*view_->chart(), printer);
}

void frmGraph::Save() {
  if (!data_.Drawable()) return;
  QString selected;
  const QString file = QFileDialog::getSaveFileName(
      this, tr("Save Picture"), Q((state_.gDataDir / "graph.png").string()),
      tr("PNG picture (*.png);;SVG picture (*.svg)"), &selected);
  if (file.isEmpty()) return;
  const bool svg = file.endsWith(".svg", Qt::CaseInsensitive);
  std::string error;
  if (!WriteGraphImage(*view_->chart(), file.toStdString(),
                       svg ? GraphFormat::kSvg : GraphFormat::kPng, &error)) {
    state_.io->Tell(error);
  }
}

QChart* frmGraph::Chart() const {
  return view_->chart();
}
QString frmGraph::StatusText() const {
  return status_->text();
}
QString frmGraph::DetailsText() const {
  return details_->text();
}

}  // namespace kvlr
