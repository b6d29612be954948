#pragma once
// frmBackup: zips the open database into a chosen folder with a comment.

#include <filesystem>
#include <optional>

#include <QDialog>

#include "core/AppState.h"

class QLineEdit;
class QPushButton;

namespace kvlr {

class frmBackup final : public QDialog {
  Q_OBJECT
 public:
  // Starts on the favourite backup folder of the open database, else ~/KVL-R-Data.
  explicit frmBackup(AppState& state, QWidget* parent = nullptr);

  QString Folder() const;
  void SetFolder(const QString& folder);
  void SetComment(const QString& comment);
  // The archive the Backup button wrote, if it did.
  const std::optional<std::filesystem::path>& Made() const { return made_; }

  // The Backup button: runs the backup; the screen closes once one is written.
  void RunBackup();

 private:
  void Browse();

  AppState& state_;
  QLineEdit* folder_;
  QLineEdit* comments_;
  std::optional<std::filesystem::path> made_;
};

}  // namespace kvlr
