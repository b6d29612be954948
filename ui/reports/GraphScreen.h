#pragma once
// frmGraph ("Graphing"): a swimmer's times in one event over time, or health measures over
// time, as a line or bars, with details of a point on hover or click, print and save.
//
// Qt Charts has no 3D: "Show in 3D" adds a drop shadow and shaded bars, and the four
// rotate commands (and Ctrl with the mouse) move the view over the graph instead.

#include <QDialog>

#include "core/AppState.h"
#include "reports/GraphChart.h"
#include "reports/GraphData.h"

class QChartView;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;

namespace kvlr {

class frmGraph final : public QDialog {
  Q_OBJECT
 public:
  // Opens on the current swimmer (state.gAthlete) with the favourite course and meet type.
  explicit frmGraph(AppState& state, QWidget* parent = nullptr);

  // Sets the filters from `request` (its athlete becomes the one drawn) and draws.
  void ShowResults(const GraphResultsRequest& request);
  // Draws health measures instead; the result filters are hidden.
  void ShowHealth(const GraphHealthRequest& request);

  // "Refresh Graph": runs the query of the filters (or the health request) and draws.
  // Its messages are told to the user; false when there is nothing to draw.
  bool Refresh();
  void SetKind(GraphKind kind);  // "Line Graph", "Bar Graph"
  void SetDepth(bool depth);     // "Show in 3D", "Show in 2D"
  // "Rotate Left/Right/Up/Down": moves the view by a tenth of the plot.
  void Rotate(int right, int up);
  void Print();
  // Asks for a file name; a ".svg" name is written as SVG, anything else as PNG.
  void Save();
  // Shows the details of a point of series `series` (a click or a hover).
  void ShowDetails(size_t series, const GraphPoint& point);

  const GraphData& Data() const { return data_; }
  QChart* Chart() const;
  QString StatusText() const;
  QString DetailsText() const;
  bool NeedsRefresh() const { return needs_refresh_; }

 private:
  void BuildFilters();
  GraphResultsRequest ReadFilters() const;
  void FilterChanged();
  void Draw();
  void ShowHints();

  AppState& state_;
  int32_t athlete_ = 0;
  bool health_ = false;
  GraphHealthRequest health_request_;
  GraphData data_;
  GraphLook look_;
  bool needs_refresh_ = false;

  QWidget* filters_ = nullptr;
  QCheckBox* use_since_ = nullptr;
  QDateEdit* since_ = nullptr;
  QComboBox* meet_type_ = nullptr;
  QComboBox* stroke_ = nullptr;
  QComboBox* distance_ = nullptr;
  QComboBox* course_ = nullptr;
  QChartView* view_ = nullptr;
  QLabel* status_ = nullptr;
  QLabel* details_ = nullptr;
};

}  // namespace kvlr
