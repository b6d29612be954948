#include "interchange/ImportEventsScreen.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Options.h"

namespace kvlr {
namespace {

QString ToQ(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}

QString DialogPicker(QWidget* parent, const ImportFileAsk& ask) {
  QString selected = ask.selected_filter;
  return QFileDialog::getOpenFileName(parent, ask.title, ask.folder, ask.filter, &selected);
}

QString StartFolder(const AppState& state) {
  if (!state.gDb) return {};
  try {
    return QString::fromStdString(GetDirectories(state, DirectoryKind::kImport).string());
  } catch (const std::exception&) {
    return {};  // an unreadable OPTIONS row leaves the dialog's own folder
  }
}

}  // namespace

frmImpEv::frmImpEv(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state), picker_(DialogPicker) {
  setObjectName("frmImpEv");
  setWindowTitle(ToQ(kImportEventsTitle));

  auto* layout = new QVBoxLayout(this);
  auto* intro = new QLabel(
      tr("Adds a meet and its events from the meet host's event file (.nvv), or from a zip "
         "file holding event files, so that entries can be made before the meet."),
      this);
  intro->setWordWrap(true);
  layout->addWidget(intro);

  auto* file_row = new QHBoxLayout;
  auto* file_label = new QLabel(tr("File Name:"), this);
  file_ = new QLineEdit(this);
  file_->setObjectName("txtFile");
  file_->setReadOnly(true);
  file_->setMinimumWidth(360);
  file_label->setBuddy(file_);
  auto* browse = new QPushButton(tr("Browse..."), this);
  browse->setObjectName("cmdBrowse");
  file_row->addWidget(file_label);
  file_row->addWidget(file_, 1);
  file_row->addWidget(browse);
  layout->addLayout(file_row);

  list_label_ = new QLabel(tr("Meet Event files (*.nvv)"), this);
  list_ = new QListWidget(this);
  list_->setObjectName("lstFiles");
  list_label_->setBuddy(list_);
  layout->addWidget(list_label_);
  layout->addWidget(list_, 1);

  status_ = new QLabel(this);
  status_->setObjectName("lblStatus");
  layout->addWidget(status_);

  auto* buttons = new QHBoxLayout;
  import_ = new QPushButton(tr("Import"), this);
  import_->setObjectName("cmdImport");
  import_->setDefault(true);
  auto* close = new QPushButton(tr("Close"), this);
  close->setObjectName("cmdClose");
  buttons->addStretch(1);
  buttons->addWidget(import_);
  buttons->addWidget(close);
  layout->addLayout(buttons);

  connect(browse, &QPushButton::clicked, this, &frmImpEv::Browse);
  connect(import_, &QPushButton::clicked, this, &frmImpEv::Import);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  connect(list_, &QListWidget::currentRowChanged, this, [this] { Refresh(); });
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { Import(); });
  Refresh();
}

QString frmImpEv::FileDialogFilter() {
  return "Event files (*.nvv *.zip)";
}

void frmImpEv::Browse() {
  const QString chosen =
      picker_(this, {ToQ(kImportEventsTitle), StartFolder(state_), FileDialogFilter(), {}});
  if (chosen.isEmpty()) return;
  ChooseFile(chosen.toStdString());
}

bool frmImpEv::ChooseFile(const std::filesystem::path& file) {
  nvv_.reset();
  zip_files_.clear();
  zip_folder_.reset();
  list_->clear();
  status_->clear();
  file_->setText(QString::fromStdString(file.string()));
  switch (EventFileKindOf(file)) {
    case EventFileKind::kInvalid:
      state_.io->Tell(NotValidEventFileText(file));
      break;
    case EventFileKind::kNvv:
      nvv_ = file;
      break;
    case EventFileKind::kZip: {
      EventZipFiles unzipped = ExtractEventFiles(state_, file);
      zip_files_ = std::move(unzipped.files);
      zip_folder_ = std::move(unzipped.owner);
      for (const auto& f : zip_files_)
        list_->addItem(QString::fromStdString(f.filename().string()));
      if (!zip_files_.empty()) list_->setCurrentRow(0);
      break;
    }
  }
  Refresh();
  return Ready().has_value();
}

std::optional<std::filesystem::path> frmImpEv::Ready() const {
  if (nvv_) return nvv_;
  const int row = list_->currentRow();
  if (row >= 0 && row < static_cast<int>(zip_files_.size())) {
    return zip_files_[static_cast<size_t>(row)];
  }
  return std::nullopt;
}

void frmImpEv::Import() {
  const auto file = Ready();
  if (!file) return;
  outcome_ = ImportEvents(state_, *file);
  if (outcome_->ok) {
    status_->setText(ToQ(kEventsImported) + QString::number(outcome_->events) + "  (" +
                     QString::fromStdString(outcome_->meet_name) + ")");
  }
}

void frmImpEv::Refresh() {
  const bool zip = !zip_files_.empty();
  list_label_->setEnabled(zip);
  list_->setEnabled(zip);
  import_->setEnabled(Ready().has_value());
}

}  // namespace kvlr
