#include "interchange/ImportScreen.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include "core/Options.h"
#include "interchange/ImportChoice.h"
#include "interchange/ImportPrepare.h"
#include "interchange/ImportReport.h"
#include "interchange/ImportRun.h"
#include "interchange/ImportStatsModel.h"
#include "reports/ReportPreview.h"

namespace kvlr {
namespace fs = std::filesystem;
namespace text = choose_text;

namespace {

QString ToQ(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

QString PathToQ(const fs::path& p) {
  return QString::fromStdString(p.string());
}

// Events are served at most this often during a run: often enough for the Cancel button
// and the progress bar, rarely enough not to slow a long file down.
constexpr qint64 kPumpMilliseconds = 15;

QLabel* ValueLabel(QWidget* parent, const char* name) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setMinimumWidth(320);
  return label;
}

QCheckBox* CriteriaBox(QWidget* parent, const char* caption, const char* name) {
  auto* box = new QCheckBox(QString::fromLatin1(caption), parent);
  box->setObjectName(name);
  return box;
}

// The entry of a Qt filter list whose description is `description`.
QString FilterEntry(const QString& qt_filter, const std::string& description) {
  if (description.empty()) return {};
  const QString start = QString::fromStdString(description) + " (";
  for (const QString& entry : qt_filter.split(";;")) {
    if (entry.startsWith(start)) return entry;
  }
  return {};
}

QString DialogPicker(QWidget* parent, const ImportFileAsk& ask) {
  QString selected = ask.selected_filter;
  return QFileDialog::getOpenFileName(parent, ask.title, ask.folder, ask.filter, &selected,
                                      QFileDialog::HideNameFilterDetails);
}

}  // namespace

frmImpCL::frmImpCL(AppState& state, ImportMode mode, QWidget* parent)
    : QDialog(parent), state_(state), mode_(mode), picker_(DialogPicker) {
  setObjectName("frmImpCL");
  setWindowTitle(ToQ(mode == ImportMode::kReport ? kImportReportScreenTitle : text::kDialogTitle));
  setModal(true);

  auto* panel = new QGroupBox(this);
  panel->setObjectName("fraFile");
  auto* form = new QFormLayout(panel);
  file_name_ = ValueLabel(panel, "lblFileName");
  created_by_ = ValueLabel(panel, "lblCreatedBy");
  file_type_ = ValueLabel(panel, "lblFileType");
  meet_name_ = ValueLabel(panel, "lblMeetName");
  start_date_ = ValueLabel(panel, "lblStartDate");
  form->addRow(tr("File Name:"), file_name_);
  form->addRow(tr("Created by:"), created_by_);
  form->addRow(tr("File Type:"), file_type_);
  form->addRow(tr("Meet Name:"), meet_name_);
  form->addRow(tr("Start Date:"), start_date_);

  criteria_ = new QGroupBox(tr("Import Criteria"), this);
  criteria_->setObjectName("fraCriteria");
  overlay_ = CriteriaBox(criteria_, "Overlay duplicate results", "SSChkImport0");
  splits_ = CriteriaBox(criteria_, "Import Splits for Individual Results", "SSChkImport1");
  lead_off_ = CriteriaBox(criteria_, "Save Relay Lead Off as Result", "SSChkImport2");
  all_family_ = CriteriaBox(criteria_, "Import All Family Members in this File", "chkImportAll");
  splits_->setChecked(true);
  lead_off_->setChecked(state_.gUseLeadOff);
  all_family_->setEnabled(OffersAllFamily(state_));
  auto* criteria_layout = new QVBoxLayout(criteria_);
  for (QCheckBox* box : {overlay_, splits_, lead_off_, all_family_}) {
    criteria_layout->addWidget(box);
  }
  criteria_layout->addStretch();
  // A report reads the file only; the criteria have nothing to say there.
  criteria_->setVisible(mode != ImportMode::kReport);

  auto* statistics = new QGroupBox(tr("Import Statistics"), this);
  statistics->setObjectName("fraStatistics");
  stats_ = new ImportStatsModel(this);
  grid_ = new QTableView(statistics);
  grid_->setObjectName("grdStatistics");
  grid_->setModel(stats_);
  grid_->setSelectionMode(QAbstractItemView::NoSelection);
  grid_->setFocusPolicy(Qt::NoFocus);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  grid_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  grid_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  grid_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  grid_->resizeRowsToContents();
  const int grid_height = grid_->horizontalHeader()->sizeHint().height() +
                          grid_->verticalHeader()->length() + 2 * grid_->frameWidth();
  grid_->setFixedHeight(grid_height);
  grid_->setMinimumWidth(grid_->verticalHeader()->sizeHint().width() + 2 * 130);
  auto* statistics_layout = new QVBoxLayout(statistics);
  statistics_layout->addWidget(grid_);
  statistics_layout->addStretch();

  auto* middle = new QHBoxLayout;
  middle->addWidget(criteria_);
  middle->addWidget(statistics, 1);

  status_ = new QLabel(this);
  status_->setObjectName("lblStatus");
  status_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  status_->setMinimumHeight(status_->fontMetrics().height() + 8);

  progress_ = new QProgressBar(this);
  progress_->setObjectName("prgImport");
  progress_->setRange(0, 100);
  progress_->setVisible(false);
  // The bar comes and goes without the window jumping.
  QSizePolicy keep = progress_->sizePolicy();
  keep.setRetainSizeWhenHidden(true);
  progress_->setSizePolicy(keep);

  button_ = new QPushButton(this);
  button_->setObjectName("cmdImport");
  button_->setDefault(true);
  connect(button_, &QPushButton::clicked, this, &frmImpCL::ButtonClicked);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(progress_, 1);
  buttons->addWidget(button_);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(panel);
  layout->addLayout(middle);
  layout->addWidget(status_);
  layout->addLayout(buttons);
  SetButton(ButtonState::kRun);
}

ImportCriteria frmImpCL::Criteria() const {
  return {.overlay_results = overlay_->isChecked(),
          .import_splits = splits_->isChecked(),
          .lead_off = lead_off_->isChecked(),
          .all_family = all_family_->isChecked()};
}

void frmImpCL::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  // A screen given its file before it is shown has nothing to choose.
  if (opened_ || !file_.path.empty()) return;
  opened_ = true;
  // After the first paint, so the dialogs open over the screen.
  QTimer::singleShot(0, this, &frmImpCL::Open);
}

void frmImpCL::Open() {
  // A cancelled dialog needs no box; a refused file has had its own.
  ChooseImportFile();
}

QString frmImpCL::PickFile(const ImportFileAsk& ask) {
  return picker_ ? picker_(this, ask) : QString();
}

bool frmImpCL::ChooseImportFile() {
  fs::path start = state_.gDataDir;
  if (state_.gDb) {
    try {
      start = GetDirectories(state_, DirectoryKind::kImport);
    } catch (const std::exception&) {
      // The dialog opens on the data folder.
    }
  }
  const QString title = ToQ(text::kDialogTitle);
  const QString first = PickFile(
      {title, PathToQ(start), QString::fromStdString(QtFileFilter(ImportDialogFilter(mode_))), {}});
  if (first.isEmpty()) return false;
  fs::path chosen = first.toStdString();

  if (mode_ != ImportMode::kOnline && IsZipName(chosen)) {
    if (const auto refusal = ZipRefusal(chosen)) {
      state_.io->Message(*refusal, box::kOk + box::kExclamation, {});
      return false;
    }
    const auto unzipped = ExtractImportZip(state_, chosen, mode_ == ImportMode::kReport);
    if (!unzipped) return false;
    const QString filter = QString::fromStdString(QtFileFilter(unzipped->filter));
    const QString second = PickFile(
        {title, PathToQ(unzipped->folder), filter, FilterEntry(filter, unzipped->selected_filter)});
    if (second.isEmpty()) return false;
    chosen = second.toStdString();
    unzipped_ = unzipped->owner;
  }
  if (!AcceptsImportFile(mode_, chosen)) {
    state_.io->Tell(text::kNoValidFile);
    return false;
  }
  return LoadFile(chosen);
}

bool frmImpCL::LoadFile(const fs::path& file) {
  file_ = ImportFile{};
  file_.path = file;
  file_name_->setText(PathToQ(file.filename()));
  cancel_requested_ = false;
  SetButton(ButtonState::kRunning);
  ImportFile prepared = PrepareImportFile(state_, *this, file, mode_);
  Percent(-1);
  if (prepared.path.empty()) prepared.path = file;
  ShowFile(std::move(prepared));
  return file_.ready;
}

void frmImpCL::ShowFile(ImportFile file) {
  file_ = std::move(file);
  const FilePanel& p = file_.panel;
  file_name_->setText(ToQ(p.file_name.empty() ? file_.path.filename().string() : p.file_name));
  created_by_->setText(ToQ(p.created_by));
  file_type_->setText(ToQ(p.file_type));
  meet_name_->setText(ToQ(p.meet_name));
  start_date_->setText(ToQ(p.start_date));
  stats_->SetCounts(file_.counts);
  status_->setText(ToQ(file_.status));
  outcome_.reset();
  SetButton(ButtonState::kRun);
}

void frmImpCL::SetButton(ButtonState state) {
  button_state_ = state;
  switch (state) {
    case ButtonState::kRun:
      button_->setText(mode_ == ImportMode::kReport ? tr("Print") : tr("Import"));
      break;
    case ButtonState::kRunning:
      button_->setText(tr("Cancel"));
      break;
    case ButtonState::kDone:
      button_->setText(tr("Close"));
      break;
  }
  criteria_->setEnabled(state == ButtonState::kRun);
}

void frmImpCL::ButtonClicked() {
  switch (button_state_) {
    case ButtonState::kRunning:
      AskToStop();
      return;
    case ButtonState::kDone:
      accept();
      return;
    case ButtonState::kRun:
      if (!file_.ready) {
        state_.io->Tell(text::kNoValidFile);
        return;
      }
      Run();
      return;
  }
}

void frmImpCL::AskToStop() {
  if (state_.io->AskYesNo(kStopImportingAsk)) cancel_requested_ = true;
}

void frmImpCL::reject() {
  // Closing the window in the middle of a run is a request to stop it.
  if (button_state_ == ButtonState::kRunning) {
    AskToStop();
    return;
  }
  QDialog::reject();
}

void frmImpCL::Run() {
  cancel_requested_ = false;
  in_run_ = true;
  SetButton(ButtonState::kRunning);
  const bool report = mode_ == ImportMode::kReport;
  ImportOutcome outcome = report ? RunFileReport(state_, *this, file_)
                                 : RunImportFile(state_, *this, file_, Criteria());
  in_run_ = false;
  ImportCounts counts = outcome.counts;
  counts.checked = file_.counts.checked;
  stats_->SetCounts(counts);
  status_->setText(ToQ(outcome.status));
  progress_->setVisible(false);
  SetButton(ButtonState::kDone);
  outcome_ = outcome;

  // Both print the rows the run left in RPTISDIN.
  ReportRequest request;
  if (report) {
    request.title = ReportTitle(file_);
    if (outcome.ok) PreviewReport(state_, this, "import-exceptions", request);
  } else if (outcome.not_all_imported && state_.io->AskYesNo(kNotAllImportedAsk)) {
    request.title = std::string(kExceptionReportTitle);
    PreviewReport(state_, this, "import-exceptions", request);
  }
}

void frmImpCL::Pump() {
  if (since_pump_.isValid() && since_pump_.elapsed() < kPumpMilliseconds) return;
  QCoreApplication::processEvents();
  since_pump_.start();
}

void frmImpCL::Status(std::string_view text) {
  status_->setText(ToQ(text));
  Pump();
}

void frmImpCL::Percent(int percent) {
  if (percent < 0) {
    progress_->setVisible(false);
  } else {
    progress_->setValue(std::min(percent, 100));
    progress_->setVisible(true);
  }
  Pump();
}

void frmImpCL::Counts(const ImportCounts& counts) {
  ImportCounts shown = counts;
  // A run counts what it processed; the checked column stays the certification's.
  if (in_run_) shown.checked = file_.counts.checked;
  stats_->SetCounts(shown);
  Pump();
}

bool frmImpCL::Cancelled() {
  Pump();
  return cancel_requested_;
}

void ShowImportResults(AppState& state, QWidget* parent, ImportMode mode) {
  frmImpCL screen(state, mode, parent);
  screen.exec();
}

}  // namespace kvlr
