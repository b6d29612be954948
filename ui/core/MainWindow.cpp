#include "core/MainWindow.h"

#include <QMenuBar>
#include <QStatusBar>

namespace kvlr {

MainWindow::MainWindow(AppState& state, QWidget* parent) : QMainWindow(parent), state_(state) {
  setObjectName("frmMain");
  resize(900, 640);
  BuildMenus();
  statusBar();
  RefreshTitle();
}

void MainWindow::RefreshTitle() { setWindowTitle(QString::fromStdString(state_.gTitle)); }

void MainWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  QAction* exit = file->addAction(tr("E&xit"));
  exit->setObjectName("mnuExit");
  connect(exit, &QAction::triggered, this, &QWidget::close);
}

}  // namespace kvlr
