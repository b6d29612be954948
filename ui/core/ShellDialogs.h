#pragma once
// The small dialogs of the shell: the start-up panel, the login, the way out.

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <vector>

#include "core/UserIo.h"
#include "shell/Login.h"

namespace kvlr {

// The start-up panel: one line of progress; on a first run it grows into the welcome.
class frmSetup final : public QDialog {
  Q_OBJECT
 public:
  explicit frmSetup(QWidget* parent = nullptr);
  void SetLine(const QString& line);
  // Grows the panel to show the welcome texts and its button.
  void ShowWelcome();

 private:
  QLabel* line_;
  QWidget* welcome_;
};

// The choice of the current swimmer among two or more.
class frmLogin final : public QDialog {
  Q_OBJECT
 public:
  frmLogin(const std::vector<LoginRow>& rows, UserIo& io, QWidget* parent = nullptr);
  // The swimmer chosen when OK was pressed; 0 if none.
  int32_t Chosen() const { return chosen_; }
  // Chooses a swimmer as a click on its button would.
  void Choose(int32_t athlete);
  void accept() override;

 private:
  UserIo& io_;
  std::vector<QRadioButton*> buttons_;
  int32_t chosen_ = 0;
};

// Exit or switch user: Result() is 0 for exit, 1 for switch, 2 for Cancel.
class frmExit final : public QDialog {
  Q_OBJECT
 public:
  explicit frmExit(QWidget* parent = nullptr);
  int Result() const;
  void ChooseSwitch();

 private:
  QRadioButton* exit_;
  QRadioButton* switch_;
};

}  // namespace kvlr
