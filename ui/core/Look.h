#pragma once
// The program's look: Qt's Fusion style in the desktop's colours; a desktop that asks for
// dark gets a dark program even where Qt's own palette stays light.

#include <string_view>

class QApplication;
class QPalette;

namespace kvlr {

// True when the desktop asks for dark: a dark platform palette, or a GTK theme named
// "...:dark" / "...-dark" (GTK_THEME), or a colour scheme "prefer-dark".
bool DesktopPrefersDark(const QPalette& platform, std::string_view gtk_theme,
                        std::string_view color_scheme);

// Fusion, the desktop's palette (or our dark one), called once after the application is made.
void ApplyDesktopLook(QApplication& app);

}  // namespace kvlr
