#pragma once
// frmComments: the one comment of a result, with labels naming the event, meet and swimmer.

#include <string>

#include <QDialog>

#include "core/AppState.h"

class QLineEdit;

namespace kvlr {

struct CommentRequest {
  int64_t result = 0;
  std::string event;  // e.g. "100 Free"
  std::string meet;
  std::string swimmer;
};

class frmComments final : public QDialog {
  Q_OBJECT
 public:
  frmComments(AppState& state, const CommentRequest& request, QWidget* parent = nullptr);

  // Writes the text (an empty text leaves an empty comment) and closes. False after a failure
  // (reported as "frmComments.Save").
  bool Save();
  QLineEdit& Text() { return *text_; }

 signals:
  void saved();

 private:
  AppState& state_;
  CommentRequest request_;
  QLineEdit* text_ = nullptr;
};

}  // namespace kvlr
