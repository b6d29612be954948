#pragma once
// The menu's ways into the event import, the unzip tool and the online service's notes.

class QWidget;

namespace kvlr {

struct AppState;

// frmImpEv, modal over `parent`; the file dialog opens at once.
void ShowImportEvents(AppState& state, QWidget* parent);
// frmUnZip, modal over `parent`.
void ShowUnZip(AppState& state, QWidget* parent);
// frmCSOInfo, modal over `parent`.
void ShowCSOInfo(QWidget* parent);

}  // namespace kvlr
