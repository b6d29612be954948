#pragma once
// The help pages shipped inside the program, and F1 on any screen.

#include <QString>

#include "core/DialogRunner.h"

class QWidget;

namespace kvlr {

// Addresses of the shipped pages; a "#name" behind one opens it at that anchor.
inline constexpr char kHelpContentsPage[] = "qrc:/help/KVL-R.html";
inline constexpr char kHelpReleaseNotesPage[] = "qrc:/help/KVL-RReleasenotes.html";
inline constexpr char kHelpSupportPage[] = "qrc:/help/KVL-R.html#support";

// Runs the help window (objectName "frmHelp", its browser "txtHelp") over `parent` at
// `page_and_anchor`, through `run`.
void ShowHelp(QWidget* parent, const QString& page_and_anchor, const DialogRunner& run);

// The contents at the anchor named `screen_name` (a screen's objectName, "frmResults"), or
// the contents' top when the contents have no such anchor.
QString HelpPageFor(const QString& screen_name);

// Makes F1 anywhere in the application open the help of the screen it was pressed on: the
// nearest window or widget, from the focus up, whose objectName has an anchor. The handler
// lives as long as `main_window`; help windows run through `run`.
void InstallHelpKey(QWidget* main_window, DialogRunner run);

}  // namespace kvlr
