#pragma once
// Where frmGraph opens: the Reports menu, and the doors the results and health screens use.

#include <QWidget>

#include "core/AppState.h"
#include "reports/GraphData.h"

namespace kvlr {

class MainWindow;

// Reports, Graphs: the current swimmer's graph with the screen's first filters.
void InstallGraphScreens(MainWindow& window, AppState& state);

// frmGraph on one event of a swimmer (a results screen's selection), modal.
void ShowResultsGraph(AppState& state, QWidget* parent, const GraphResultsRequest& request);
// frmGraph on health measures (the health screen's flags and dates), modal. Nothing opens
// when no measure is chosen: the message is told instead.
void ShowHealthGraph(AppState& state, QWidget* parent, const GraphHealthRequest& request);

}  // namespace kvlr
