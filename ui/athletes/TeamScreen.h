#pragma once
// `frmTeamMaint`: the club record of the database. OK writes it, Cancel leaves it.

#include <map>
#include <string>

#include <QDialog>

#include "athletes/Team.h"
#include "core/AppState.h"

class QLineEdit;

namespace kvlr {

class frmTeamMaint final : public QDialog {
  Q_OBJECT
 public:
  explicit frmTeamMaint(AppState& state, QWidget* parent = nullptr);

  // OK: writes the row and closes; a failed write (reported) keeps the screen open.
  void Save();

 private:
  QLineEdit* Edit(std::string_view column, const QString& object_name);

  AppState& state_;
  TeamCard card_;
  std::map<std::string, QLineEdit*, std::less<>> edits_;
};

}  // namespace kvlr
