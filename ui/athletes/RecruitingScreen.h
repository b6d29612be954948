#pragma once
// `frmRecr`: the recruiting profile of one swimmer.

#include <map>
#include <string>

#include <QDialog>

#include "athletes/AthleteWidgets.h"
#include "athletes/Recruiting.h"
#include "core/AppState.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace kvlr {

class frmRecr final : public QDialog {
  Q_OBJECT
 public:
  frmRecr(AppState& state, int32_t athlete, QWidget* parent = nullptr);

  // False when the swimmer wasn't found ("Athlete not found" told).
  bool Loaded() const { return loaded_; }

  // Writes the profile (a row is added the first time). True when written.
  bool Save();
  // "Load Swimmer's Picture".
  void LoadPicture();
  // "Print Recruiting Report".
  void Print();

  void SetFileChooser(FileChooser chooser) { choose_file_ = std::move(chooser); }

 private:
  QLineEdit* Edit(std::string_view column);
  QLineEdit* NumberEdit(std::string_view column, bool decimals = false);
  void ShowPicture();

  AppState& state_;
  RecruitingCard card_;
  bool loaded_ = false;
  FileChooser choose_file_;
  std::map<std::string, QLineEdit*, std::less<>> edits_;
  QPlainTextEdit* comments_ = nullptr;
  QCheckBox* video_ = nullptr;
  QLabel* picture_ = nullptr;
};

}  // namespace kvlr
