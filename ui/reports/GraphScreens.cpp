#include "reports/GraphScreens.h"

#include "core/MainWindow.h"
#include "reports/GraphScreen.h"

namespace kvlr {

void InstallGraphScreens(MainWindow& window, AppState& state) {
  window.SetHandler(MenuCommand::kReportGraphs, [&window, &state] {
    frmGraph screen(state, &window);
    screen.Refresh();
    screen.exec();
  });
}

void ShowResultsGraph(AppState& state, QWidget* parent, const GraphResultsRequest& request) {
  frmGraph screen(state, parent);
  screen.ShowResults(request);
  screen.exec();
}

void ShowHealthGraph(AppState& state, QWidget* parent, const GraphHealthRequest& request) {
  if (!request.heart_rate && !request.sleep && !request.weight && !request.wellness) {
    state.io->Tell(graphtext::kNoHealthItem);
    return;
  }
  frmGraph screen(state, parent);
  screen.ShowHealth(request);
  screen.exec();
}

}  // namespace kvlr
