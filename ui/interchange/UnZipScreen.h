#pragma once
// frmUnZip: unpacks every file of a zip into a new folder of its own, named after the zip,
// inside the import folder, where the user finds the files afterwards (the import dialog
// opens there). Nothing is emptied or replaced, so there is nothing to warn about. The work
// is UnZipFile's.

#include <filesystem>
#include <vector>

#include <QDialog>

#include "core/AppState.h"
#include "interchange/ImportScreen.h"

class QLabel;
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

  // Where the zip's own folder is made: the import folder (the data folder without a
  // database).
  std::filesystem::path Folder() const;
  // The folder of the last successful unzip; empty before.
  const std::filesystem::path& UnzippedFolder() const { return unzipped_folder_; }

  // "Browse...": the file dialog, the name into the file field.
  void Browse();
  void SetFile(const QString& file);
  // "UnZip": a name that isn't a .zip is told "Not a valid filename"; otherwise every file
  // is extracted and the outcome told. True when unzipped.
  bool UnZip();

  const std::vector<std::filesystem::path>& Files() const { return files_; }

 private:
  AppState& state_;
  ImportFilePicker picker_;
  std::vector<std::filesystem::path> files_;
  std::filesystem::path unzipped_folder_;

  QLabel* folder_;
  QLineEdit* file_;
  QListWidget* list_;
  QPushButton* unzip_;
};

}  // namespace kvlr
