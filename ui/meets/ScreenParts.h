#pragma once
// Small pieces the meet screens share: text conversion, command buttons, the command bar.

#include <initializer_list>
#include <string_view>
#include <tuple>

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace kvlr::screen {

inline QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A button that Enter in a grid or box never presses by accident.
inline QPushButton* Button(QWidget* parent, const QString& text, const char* name) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(name);
  button->setAutoDefault(false);
  return button;
}

// A row of commands of `screen` (caption, object name, member), then Close on the right.
template <class Screen>
QHBoxLayout* CommandBar(
    Screen* screen,
    std::initializer_list<std::tuple<QString, const char*, void (Screen::*)()>> commands) {
  auto* row = new QHBoxLayout;
  for (const auto& [text, name, slot] : commands) {
    QPushButton* b = Button(screen, text, name);
    QObject::connect(b, &QPushButton::clicked, screen, slot);
    row->addWidget(b);
  }
  row->addStretch();
  QPushButton* close = Button(screen, QObject::tr("Close"), "cmdClose");
  QObject::connect(close, &QPushButton::clicked, screen, &QDialog::accept);
  row->addWidget(close);
  return row;
}

}  // namespace kvlr::screen
