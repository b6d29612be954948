#include "reports/GraphChart.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <QBarSeries>
#include <QBarSet>
#include <QCategoryAxis>
#include <QCoreApplication>
#include <QFile>
#include <QGraphicsScene>
#include <QImage>
#include <QLineSeries>
#include <QPainter>
#include <QPrinter>
#include <QSvgGenerator>
#include <QValueAxis>

namespace kvlr {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Steps of a time axis in hundredths: each label is a time a swimmer reads at a glance.
constexpr double kTimeSteps[] = {1,    2,    5,    10,   20,    50,    100,   200,   500,
                                 1000, 1500, 3000, 6000, 12000, 30000, 60000, 120000};
constexpr int kMostTicks = 8;

// The time axis as labelled positions: a value axis would print hundredths.
QAbstractAxis* TimeAxis(const GraphData& data, double low, double high) {
  double step = kTimeSteps[std::size(kTimeSteps) - 1];
  for (double s : kTimeSteps) {
    if ((high - low) / s <= kMostTicks) {
      step = s;
      break;
    }
  }
  const double first = std::floor(low / step) * step;
  const double last = std::ceil(high / step) * step;
  auto* axis = new QCategoryAxis;
  axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
  axis->setStartValue(first);
  for (double v = first; v <= last + step / 2; v += step) {
    axis->append(Q(GraphValueText(data, v)), v);
  }
  axis->setRange(first, last);
  return axis;
}

// Dates along the bottom, at most about ten of them.
QAbstractAxis* SlotAxis(const GraphData& data) {
  auto* axis = new QCategoryAxis;
  axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
  const int count = static_cast<int>(data.slot_labels.size());
  const int every = std::max(1, (count + 9) / 10);
  QString previous;
  for (int i = 0; i < count; i += every) {
    const QString label = Q(data.slot_labels[static_cast<size_t>(i)]);
    // The axis keeps one label per text; a second swim on a day shares the first's label.
    if (label == previous) continue;
    axis->append(label, i);
    previous = label;
  }
  // Half a slot on either side keeps bars and the end labels inside the plot.
  axis->setRange(-0.5, count - 0.5);
  axis->setLabelsAngle(count > 6 ? -45 : 0);
  return axis;
}

QString TitleOf(const GraphData& data) {
  QString title = "<b>" + Q(data.title).toHtmlEscaped() + "</b>";
  QString line = Q(data.heading).toHtmlEscaped();
  if (!data.range.empty()) {
    if (!line.isEmpty()) line += "&nbsp;&nbsp;&nbsp;";
    line += Q(data.range).toHtmlEscaped();
  }
  if (!line.isEmpty()) title += "<br>" + line;
  return title;
}

// Lays the chart out before it is painted outside an event loop.
void Settle(QChart& chart) {
  QCoreApplication::sendPostedEvents(&chart);
  QCoreApplication::sendPostedEvents(nullptr, 0);
}

}  // namespace

GraphChart BuildGraphChart(const GraphData& data, const GraphLook& look) {
  GraphChart out;
  out.chart = std::make_unique<QChart>();
  QChart& chart = *out.chart;
  chart.setAnimationOptions(QChart::NoAnimation);
  chart.setTitle(TitleOf(data));
  chart.legend()->setAlignment(Qt::AlignBottom);
  chart.setDropShadowEnabled(look.depth);

  double low = std::numeric_limits<double>::max();
  double high = std::numeric_limits<double>::lowest();
  for (const auto& s : data.series) {
    for (const auto& p : s.points) {
      low = std::min(low, p.value);
      high = std::max(high, p.value);
    }
  }
  if (low > high) low = high = 0;
  if (high - low < 1) high = low + 1;
  const double pad = (high - low) * 0.05;

  QAbstractAxis* x_axis = SlotAxis(data);
  QAbstractAxis* y_axis = nullptr;
  if (data.times || data.points) {
    y_axis = TimeAxis(data, std::max(0.0, low - pad), high + pad);
  } else {
    auto* values = new QValueAxis;
    values->setRange(std::max(0.0, low - pad), high + pad);
    values->applyNiceNumbers();
    values->setLabelFormat("%g");
    y_axis = values;
  }
  chart.addAxis(x_axis, Qt::AlignBottom);
  chart.addAxis(y_axis, Qt::AlignLeft);

  if (look.kind == GraphKind::kLine) {
    for (const auto& s : data.series) {
      auto* line = new QLineSeries;
      line->setName(Q(s.name));
      for (const auto& p : s.points) line->append(p.slot, p.value);
      line->setPointsVisible(s.points.size() <= 120);
      chart.addSeries(line);
      line->attachAxis(x_axis);
      line->attachAxis(y_axis);
      QPen pen = line->pen();
      pen.setWidthF(look.depth ? 3.5 : 2.0);
      line->setPen(pen);
      out.lines.push_back(line);
    }
  } else {
    auto* bars = new QBarSeries;
    bars->setBarWidth(0.8);
    for (const auto& s : data.series) {
      auto* set = new QBarSet(Q(s.name));
      QList<qreal> values(static_cast<qsizetype>(data.slot_labels.size()), 0.0);
      for (const auto& p : s.points) values[p.slot] = p.value;
      set->append(values);
      bars->append(set);
      out.bars.push_back(set);
    }
    chart.addSeries(bars);
    // The theme's light outline would wash out hundreds of thin bars.
    for (QBarSet* set : out.bars) set->setBorderColor(set->color());
    bars->attachAxis(x_axis);
    bars->attachAxis(y_axis);
    if (look.depth) {
      // Shading across each bar stands in for the depth Qt Charts doesn't draw.
      for (QBarSet* set : out.bars) {
        const QColor base = set->color();
        QLinearGradient shade(0, 0, 1, 0);
        shade.setCoordinateMode(QGradient::ObjectMode);
        shade.setColorAt(0, base.lighter(150));
        shade.setColorAt(0.6, base);
        shade.setColorAt(1, base.darker(170));
        set->setBrush(shade);
      }
    }
  }
  return out;
}

const GraphPoint* NearestPoint(const GraphData& data, size_t series, double x) {
  if (series >= data.series.size()) return nullptr;
  const GraphPoint* best = nullptr;
  double distance = std::numeric_limits<double>::max();
  for (const auto& p : data.series[series].points) {
    const double d = std::abs(p.slot - x);
    if (d < distance) {
      distance = d;
      best = &p;
    }
  }
  return best;
}

std::string PointDetails(const GraphData& data, size_t series, const GraphPoint& point) {
  std::string text = point.label;
  if (!point.tip.empty()) text += "  " + point.tip;
  text += "  " + GraphValueText(data, point.value);
  if (series < data.series.size() && !data.series[series].unit.empty()) {
    text += " " + data.series[series].unit;
  }
  if (!data.range.empty()) text += "    (" + data.range + ")";
  return text;
}

void PaintGraph(QChart& chart, QPainter& painter, const QRectF& target) {
  Settle(chart);
  const QRectF source = chart.geometry();
  QRectF fit = target;
  const QSizeF scaled = source.size().scaled(target.size(), Qt::KeepAspectRatio);
  fit.setSize(scaled);
  fit.moveCenter(target.center());
  if (QGraphicsScene* scene = chart.scene()) {
    scene->render(&painter, fit, chart.sceneBoundingRect(), Qt::KeepAspectRatio);
    return;
  }
  QGraphicsScene scene;
  scene.addItem(&chart);
  Settle(chart);
  scene.render(&painter, fit, chart.sceneBoundingRect(), Qt::KeepAspectRatio);
  // The scene would delete the chart it holds.
  scene.removeItem(&chart);
}

bool WriteGraphImage(QChart& chart, const std::filesystem::path& file, GraphFormat format,
                     std::string* error) {
  const QSize size = chart.size().toSize();
  const QString name = QString::fromStdString(file.string());
  if (format == GraphFormat::kPng) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    {
      QPainter painter(&image);
      painter.setRenderHint(QPainter::Antialiasing);
      PaintGraph(chart, painter, QRectF(QPointF(0, 0), QSizeF(size)));
    }
    if (!image.save(name, "PNG")) {
      if (error) *error = "Can't write " + file.string();
      return false;
    }
    return true;
  }
  // QSvgGenerator doesn't report a failed write; try the file first.
  {
    QFile probe(name);
    if (!probe.open(QIODevice::WriteOnly)) {
      if (error) *error = "Can't write " + file.string();
      return false;
    }
  }
  QSvgGenerator svg;
  svg.setFileName(name);
  svg.setSize(size);
  svg.setViewBox(QRect(QPoint(0, 0), size));
  svg.setTitle(QString::fromUtf8(graphtext::kTitle.data(),
                                 static_cast<qsizetype>(graphtext::kTitle.size())));
  QPainter painter(&svg);
  PaintGraph(chart, painter, QRectF(QPointF(0, 0), QSizeF(size)));
  return true;
}

bool WriteGraph(const GraphData& data, const GraphLook& look, QSize size,
                const std::filesystem::path& file, GraphFormat format, std::string* error) {
  GraphChart built = BuildGraphChart(data, look);
  built.chart->resize(size);
  return WriteGraphImage(*built.chart, file, format, error);
}

void PrintGraph(QChart& chart, QPrinter& printer) {
  QPainter painter(&printer);
  painter.setRenderHint(QPainter::Antialiasing);
  // The painter's origin is the printable area's corner.
  PaintGraph(chart, painter, QRectF(QPointF(0, 0), printer.pageRect(QPrinter::DevicePixel).size()));
}

}  // namespace kvlr
