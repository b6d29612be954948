#include "interchange/UnZipScreen.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Options.h"
#include "interchange/UnZip.h"

namespace kvlr {
namespace {

QString ToQ(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}

QString DialogPicker(QWidget* parent, const ImportFileAsk& ask) {
  QString selected = ask.selected_filter;
  return QFileDialog::getOpenFileName(parent, ask.title, ask.folder, ask.filter, &selected);
}

}  // namespace

frmUnZip::frmUnZip(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state), picker_(DialogPicker) {
  setObjectName("frmUnZip");
  setWindowTitle(ToQ(kUnZipTitle));

  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  auto* file_row = new QHBoxLayout;
  file_ = new QLineEdit(this);
  file_->setObjectName("txtFile");
  file_->setMinimumWidth(360);
  auto* browse = new QPushButton(tr("Browse..."), this);
  browse->setObjectName("cmdBrowse");
  file_row->addWidget(file_, 1);
  file_row->addWidget(browse);
  form->addRow(tr("ZIP File:"), file_row);
  folder_ = new QLabel(QString::fromStdString(Folder().string()), this);
  folder_->setObjectName("lblFolder");
  folder_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  form->addRow(tr("Unzip to:"), folder_);
  layout->addLayout(form);

  list_ = new QListWidget(this);
  list_->setObjectName("lstFiles");
  layout->addWidget(new QLabel(tr("Files unzipped:"), this));
  layout->addWidget(list_, 1);

  auto* buttons = new QHBoxLayout;
  unzip_ = new QPushButton(tr("UnZip"), this);
  unzip_->setObjectName("cmdUnZip");
  unzip_->setDefault(true);
  unzip_->setEnabled(false);
  auto* close = new QPushButton(tr("Close"), this);
  close->setObjectName("cmdClose");
  buttons->addStretch(1);
  buttons->addWidget(unzip_);
  buttons->addWidget(close);
  layout->addLayout(buttons);

  connect(browse, &QPushButton::clicked, this, &frmUnZip::Browse);
  connect(unzip_, &QPushButton::clicked, this, [this] { UnZip(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  connect(file_, &QLineEdit::textChanged, this,
          [this](const QString& text) { unzip_->setEnabled(!text.trimmed().isEmpty()); });
}

QString frmUnZip::FileDialogFilter() {
  return "ZIP files (*.zip)";
}

std::filesystem::path frmUnZip::Folder() const {
  if (state_.gDb) {
    try {
      return GetDirectories(state_, DirectoryKind::kImport);
    } catch (const std::exception&) {
      // an unreadable OPTIONS row leaves the data folder
    }
  }
  return state_.gDataDir.empty() ? state_.data_root : state_.gDataDir;
}

void frmUnZip::Browse() {
  const QString folder = QString::fromStdString(Folder().string());
  const QString chosen = picker_(this, {ToQ(kUnZipTitle), folder, FileDialogFilter(), {}});
  if (!chosen.isEmpty()) SetFile(chosen);
}

void frmUnZip::SetFile(const QString& file) {
  file_->setText(file);
}

bool frmUnZip::UnZip() {
  const std::filesystem::path zip = file_->text().trimmed().toStdString();
  if (!HasExtension(zip, ".zip")) {
    state_.io->Tell(kNotValidFilename);
    return false;
  }
  const UnZipOutcome outcome = UnZipFile(zip, Folder());
  files_ = outcome.files;
  if (outcome.ok) {
    unzipped_folder_ = outcome.folder;
    folder_->setText(QString::fromStdString(outcome.folder.string()));
  }
  list_->clear();
  for (const auto& f : files_) list_->addItem(QString::fromStdString(f.filename().string()));
  state_.io->Message(outcome.message,
                     box::kOk + (outcome.ok ? box::kInformation : box::kExclamation), kUnZipTitle);
  return outcome.ok;
}

}  // namespace kvlr
