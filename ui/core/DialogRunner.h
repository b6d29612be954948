#pragma once
// How screens run a modal dialog. Tests put in a runner that answers for the user.

#include <functional>

#include <QDialog>

namespace kvlr {

using DialogRunner = std::function<int(QDialog&)>;

inline DialogRunner ModalRunner() {
  return [](QDialog& dialog) { return dialog.exec(); };
}

}  // namespace kvlr
