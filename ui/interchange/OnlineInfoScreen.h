#pragma once
// frmCSOInfo: what the online results service is and the conditions of its files, in one
// read-only text panel with one button.

#include <QDialog>

class QTextBrowser;

namespace kvlr {

class frmCSOInfo final : public QDialog {
  Q_OBJECT
 public:
  explicit frmCSOInfo(QWidget* parent = nullptr);

  // The panel's text (HTML): a description and the numbered conditions.
  static QString InfoText();
};

}  // namespace kvlr
