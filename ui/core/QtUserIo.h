#pragma once
// Messages and questions of core code as Qt message boxes; progress on the status bar.

#include <functional>

#include <QWidget>

#include "core/UserIo.h"

namespace kvlr {

class QtUserIo final : public UserIo {
 public:
  explicit QtUserIo(QWidget* parent = nullptr) : parent_(parent) {}

  void SetParent(QWidget* parent) { parent_ = parent; }
  // Where progress lines go (the start-up panel, a status bar).
  void SetProgressSink(std::function<void(const QString&)> sink) { progress_ = std::move(sink); }

  Answer Message(std::string_view text, int style, std::string_view title) override;
  void Progress(std::string_view line) override;

 private:
  QWidget* parent_;
  std::function<void(const QString&)> progress_;
};

}  // namespace kvlr
