#pragma once
// frmRestore: brings back a backup archive, over the open database or into a folder.

#include <filesystem>
#include <optional>

#include <QDialog>

#include "core/AppState.h"
#include "store/Backup.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace kvlr {

class frmRestore final : public QDialog {
  Q_OBJECT
 public:
  explicit frmRestore(AppState& state, QWidget* parent = nullptr);

  // The file dialog's filter list in Qt's form (patterns split by blanks, lists by ";;").
  static QString FileDialogFilter();

  // The file dialog "Restore a Database" on the favourite backup folder, then LoadBackup.
  // False when nothing was chosen or the choice isn't a backup.
  bool ChooseBackup();
  // Reads the archive into the screen; false (the user told) when it isn't a backup of ours.
  bool LoadBackup(const std::filesystem::path& zip);

  // Archives a database beside itself; true on success.
  bool SilentBackup(const std::filesystem::path& database);

  void SetOption(RestoreOption option);
  RestoreOption Option() const;
  void SetFolder(const std::filesystem::path& folder);
  // The restored file once the Restore button succeeded.
  const std::optional<std::filesystem::path>& Restored() const { return restored_; }

  // The Restore button: restores with the screen's choices; closes on success.
  void RunRestore();

 private:
  void ChangeFolder();
  void UpdateEnabled();

  AppState& state_;
  std::optional<BackupInfo> info_;
  std::filesystem::path folder_;
  std::optional<std::filesystem::path> restored_;

  QLabel* file_name_;
  QLabel* database_;
  QLabel* created_;
  QLabel* size_;
  QLabel* comments_;
  QRadioButton* replace_;
  QRadioButton* current_folder_;
  QRadioButton* selected_folder_;
  QPushButton* change_folder_;
  QLabel* folder_label_;
  QLineEdit* new_name_;
  QCheckBox* open_after_;
  QLabel* same_name_;
  QPushButton* restore_;
};

}  // namespace kvlr
