#pragma once
// frmImpCL: brings a meet file (.cl2, .sd3, .nv3, a zip of them, or the online service's
// .psn / .txt) into the open database, or in report mode lists what a file holds. The file
// is chosen when the screen is first shown; its one button imports (or prints), asks about
// stopping while the run goes on and closes the screen afterwards.

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include <QDialog>
#include <QElapsedTimer>

#include "core/AppState.h"
#include "core/RunFolder.h"
#include "interchange/ImportTypes.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;

namespace kvlr {

class ImportStatsModel;

inline constexpr std::string_view kImportReportScreenTitle = "Import/Export Files Report";
inline constexpr std::string_view kExceptionReportTitle = "Import Exception Report";

// What a file dialog is opened with: the filter in Qt's form, `selected_filter` one of its
// entries or empty.
struct ImportFileAsk {
  QString title;
  QString folder;
  QString filter;
  QString selected_filter;
};
// Returns the chosen file, or an empty text when the user chose nothing.
using ImportFilePicker = std::function<QString(QWidget* parent, const ImportFileAsk& ask)>;

class frmImpCL final : public QDialog, private ImportMonitor {
  Q_OBJECT
 public:
  // What the one button does next.
  enum class ButtonState { kRun, kRunning, kDone };

  frmImpCL(AppState& state, ImportMode mode, QWidget* parent = nullptr);

  // Replaces the file dialogs (QFileDialog unless set).
  void SetFilePicker(ImportFilePicker picker) { picker_ = std::move(picker); }

  // `ChooseImportFile`: the file dialog, for a zip the refusal of other programs' backups,
  // the extraction and the second dialog, then LoadFile. True when a file is ready. Runs
  // by itself the first time the screen is shown without a file. A cancelled dialog ends it
  // quietly; a file of a kind the mode doesn't take is told "No valid import file selected.".
  bool ChooseImportFile();
  // The opening checks of a chosen file (never a zip), then ShowFile. True when ready.
  bool LoadFile(const std::filesystem::path& file);
  // Shows a prepared file: panel, " Records Checked", status; the button offers the run.
  void ShowFile(ImportFile file);

  // The button: the import (or the report) when a file is ready, refused otherwise; during
  // a run the question whether to stop; afterwards Close.
  void ButtonClicked();

  ImportMode Mode() const { return mode_; }
  const ImportFile& File() const { return file_; }
  ButtonState Button() const { return button_state_; }
  // `ReadImportOptions`: the criteria as the check boxes stand.
  ImportCriteria Criteria() const;
  // The last run's outcome, once there was one.
  const std::optional<ImportOutcome>& Outcome() const { return outcome_; }
  const ImportStatsModel& Statistics() const { return *stats_; }

 public slots:
  void reject() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  // ImportMonitor: the screen answers between lines and stays responsive.
  void Status(std::string_view text) override;
  void Percent(int percent) override;
  void Counts(const ImportCounts& counts) override;
  bool Cancelled() override;

  void Open();
  void Run();
  void SetButton(ButtonState state);
  void AskToStop();
  void Pump();
  QString PickFile(const ImportFileAsk& ask);

  AppState& state_;
  ImportMode mode_;
  ImportFilePicker picker_;
  ImportFile file_;
  // The run folder of the zip the file came from, kept while the screen is open.
  std::shared_ptr<RunFolder> unzipped_;
  std::optional<ImportOutcome> outcome_;
  ButtonState button_state_ = ButtonState::kRun;
  bool opened_ = false;
  bool cancel_requested_ = false;
  bool in_run_ = false;
  QElapsedTimer since_pump_;

  QLabel* file_name_;
  QLabel* created_by_;
  QLabel* file_type_;
  QLabel* meet_name_;
  QLabel* start_date_;
  QGroupBox* criteria_;
  QCheckBox* overlay_;
  QCheckBox* splits_;
  QCheckBox* lead_off_;
  QCheckBox* all_family_;
  ImportStatsModel* stats_;
  QTableView* grid_;
  QLabel* status_;
  QProgressBar* progress_;
  QPushButton* button_;
};

// Opens frmImpCL modally in `mode` over `parent`: the main menu's import, file report and
// online import.
void ShowImportResults(AppState& state, QWidget* parent, ImportMode mode);

}  // namespace kvlr
