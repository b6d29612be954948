#include "core/Look.h"

#include <cstdlib>

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace kvlr {
namespace {

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

QPalette DarkPalette() {
  QPalette p;
  const QColor window(45, 45, 48), base(30, 30, 32), text(230, 230, 230), accent(61, 142, 201);
  p.setColor(QPalette::Window, window);
  p.setColor(QPalette::WindowText, text);
  p.setColor(QPalette::Base, base);
  p.setColor(QPalette::AlternateBase, window);
  p.setColor(QPalette::ToolTipBase, window);
  p.setColor(QPalette::ToolTipText, text);
  p.setColor(QPalette::PlaceholderText, QColor(150, 150, 150));
  p.setColor(QPalette::Text, text);
  p.setColor(QPalette::Button, window);
  p.setColor(QPalette::ButtonText, text);
  p.setColor(QPalette::BrightText, Qt::red);
  p.setColor(QPalette::Link, accent.lighter(130));
  p.setColor(QPalette::Highlight, accent);
  p.setColor(QPalette::HighlightedText, Qt::white);
  for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    p.setColor(QPalette::Disabled, role, QColor(120, 120, 120));
  }
  return p;
}

std::string_view Env(const char* name) {
  const char* value = std::getenv(name);
  return value ? std::string_view(value) : std::string_view();
}

}  // namespace

bool DesktopPrefersDark(const QPalette& platform, std::string_view gtk_theme,
                        std::string_view color_scheme) {
  if (platform.color(QPalette::Window).lightness() < 128) return true;
  if (EndsWith(gtk_theme, ":dark") || EndsWith(gtk_theme, "-dark")) return true;
  return color_scheme == "prefer-dark";
}

void ApplyDesktopLook(QApplication& app) {
  const QPalette platform = QApplication::palette();
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  const bool platform_dark = platform.color(QPalette::Window).lightness() < 128;
  if (DesktopPrefersDark(platform, Env("GTK_THEME"), Env("KVLR_COLOR_SCHEME")) && !platform_dark) {
    app.setPalette(DarkPalette());
  } else {
    app.setPalette(platform);
  }
}

}  // namespace kvlr
