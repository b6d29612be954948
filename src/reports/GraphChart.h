#pragma once
// Draws a GraphData with Qt Charts, as a line or as bars, and writes it as PNG or SVG or
// to a printer. Needs a QApplication (Qt Charts draws with widgets' graphics items).

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <QChart>
#include <QSize>

#include "reports/GraphData.h"

class QBarSet;
class QLineSeries;
class QPainter;
class QPrinter;
class QRectF;

namespace kvlr {

enum class GraphKind { kLine, kBar };  // "Line Graph", "Bar Graph"

struct GraphLook {
  GraphKind kind = GraphKind::kLine;
  // "Show in 3D": Qt Charts draws flat, so depth is a drop shadow and shaded bars.
  bool depth = false;
};

// A chart with the series of its data in the data's order: `lines` for a line graph,
// `bars` for a bar graph, so that a hovered item leads back to its GraphPoint.
struct GraphChart {
  std::unique_ptr<QChart> chart;
  std::vector<QLineSeries*> lines;  // owned by the chart
  std::vector<QBarSet*> bars;       // owned by the chart
};

// The chart of a drawable `data`: the title, heading and range on top, slots along the
// bottom labelled with their dates (thinned so they don't overlap), values up the side
// (times as times). Animations are off.
GraphChart BuildGraphChart(const GraphData& data, const GraphLook& look);

// The point of series `series` nearest to `x` along the axis; nullptr when none.
const GraphPoint* NearestPoint(const GraphData& data, size_t series, double x);
// "date  meet  time" of a point, with the unit of a health measure and the graph's range.
std::string PointDetails(const GraphData& data, size_t series, const GraphPoint& point);

// Paints `chart` at its present size into `target` of `painter`, scaled to fit and
// centred. The chart stays where it is (in a view's scene or in none).
void PaintGraph(QChart& chart, QPainter& painter, const QRectF& target);

enum class GraphFormat { kPng, kSvg };

// Writes `chart` at its present size. False with `error` set when the file can't be
// written.
bool WriteGraphImage(QChart& chart, const std::filesystem::path& file, GraphFormat format,
                     std::string* error);

// Builds the chart of `data` at `size` and writes it: what `kvlr graph` does.
bool WriteGraph(const GraphData& data, const GraphLook& look, QSize size,
                const std::filesystem::path& file, GraphFormat format, std::string* error);

// Prints `chart` on one page, as large as the page allows.
void PrintGraph(QChart& chart, QPrinter& printer);

}  // namespace kvlr
