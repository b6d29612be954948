#pragma once
// frmImpEv: reads a meet and its events from an event file (.nvv), or from one of the .nvv
// files of a zip, so that entries can be made before the meet. The checks, the store and
// the boxes are ImportEvents'; the screen chooses the file.

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include <QDialog>

#include "core/AppState.h"
#include "interchange/EventFile.h"
#include "interchange/ImportScreen.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace kvlr {

class frmImpEv final : public QDialog {
  Q_OBJECT
 public:
  explicit frmImpEv(AppState& state, QWidget* parent = nullptr);

  // Replaces the file dialog (QFileDialog unless set).
  void SetFilePicker(ImportFilePicker picker) { picker_ = std::move(picker); }
  // The Qt form of the dialog's filter.
  static QString FileDialogFilter();

  // "Browse...": the dialog "Import Events", then ChooseFile with the name chosen.
  void Browse();
  // A chosen name: a .nvv is ready to import; a zip is unpacked and its .nvv files listed
  // (the first selected); any other name is told "Not a valid filename". True when a file
  // is ready.
  bool ChooseFile(const std::filesystem::path& file);
  // "Import": ImportEvents of the ready file (from the list for a zip).
  void Import();

  // The .nvv that Import would read; nullopt when none.
  std::optional<std::filesystem::path> Ready() const;
  const std::vector<std::filesystem::path>& ZipFiles() const { return zip_files_; }
  const std::optional<EventImportOutcome>& Outcome() const { return outcome_; }

 private:
  void Refresh();

  AppState& state_;
  ImportFilePicker picker_;
  std::optional<std::filesystem::path> nvv_;
  std::vector<std::filesystem::path> zip_files_;
  std::shared_ptr<RunFolder> zip_folder_;  // where zip_files_ are, while they are offered
  std::optional<EventImportOutcome> outcome_;

  QLineEdit* file_;
  QLabel* list_label_;
  QListWidget* list_;
  QLabel* status_;
  QPushButton* import_;
};

}  // namespace kvlr
