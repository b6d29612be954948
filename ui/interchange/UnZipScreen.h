#pragma once
// frmUnZip: unpacks every file of a zip into the program's working folder (KVL-RTemp),
// after warning that the folder is emptied first. The work is UnZipFile's.

#include <filesystem>
#include <vector>

#include <QDialog>

#include "core/AppState.h"
#include "interchange/ImportScreen.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace kvlr {

class frmUnZip final : public QDialog {
  Q_OBJECT
 public:
  explicit frmUnZip(AppState& state, QWidget* parent = nullptr);

  // Replaces the file dialog (QFileDialog unless set).
  void SetFilePicker(ImportFilePicker picker) { picker_ = std::move(picker); }
  static QString FileDialogFilter();

  // Where the files go.
  std::filesystem::path Folder() const;

  // "Browse...": the file dialog, the name into the file field.
  void Browse();
  void SetFile(const QString& file);
  // "UnZip": a name that isn't a .zip is told "Not a valid filename"; the warning question
  // (No stops); then every file is extracted and the outcome told. True when unzipped.
  bool UnZip();

  const std::vector<std::filesystem::path>& Files() const { return files_; }

 private:
  AppState& state_;
  ImportFilePicker picker_;
  std::vector<std::filesystem::path> files_;

  QLineEdit* file_;
  QListWidget* list_;
  QPushButton* unzip_;
};

}  // namespace kvlr
