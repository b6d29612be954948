#include "interchange/OnlineScreens.h"

#include <QTimer>

#include "interchange/ImportEventsScreen.h"
#include "interchange/OnlineInfoScreen.h"
#include "interchange/UnZipScreen.h"

namespace kvlr {

void ShowImportEvents(AppState& state, QWidget* parent) {
  frmImpEv screen(state, parent);
  QTimer::singleShot(0, &screen, &frmImpEv::Browse);
  screen.exec();
}

void ShowUnZip(AppState& state, QWidget* parent) {
  frmUnZip screen(state, parent);
  screen.exec();
}

void ShowCSOInfo(QWidget* parent) {
  frmCSOInfo screen(parent);
  screen.exec();
}

}  // namespace kvlr
