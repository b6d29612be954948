#include "store/BackupScreen.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Options.h"
#include "store/Backup.h"
#include "store/BackupTexts.h"

namespace kvlr {
namespace text = backup_text;

namespace {

QString ToQ(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}

std::filesystem::path StartFolder(const AppState& state) {
  std::filesystem::path folder;
  if (state.gDb) {
    try {
      folder = GetDirectories(state, DirectoryKind::kBackup);
    } catch (const std::exception&) {
      // An unreadable OPTIONS row leaves the default folder.
    }
  }
  return folder.empty() ? ProgramHome::DefaultDataDir() : folder;
}

}  // namespace

frmBackup::frmBackup(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmBackup");
  setWindowTitle(ToQ(text::kBackupTitle));

  auto* layout = new QVBoxLayout(this);
  auto* folder_row = new QHBoxLayout;
  folder_ = new QLineEdit(QString::fromStdString(StartFolder(state_).string()), this);
  folder_->setObjectName("txtFolder");
  folder_->setMinimumWidth(360);
  auto* browse = new QPushButton(tr("Browse..."), this);
  browse->setObjectName("cmdBrowse");
  auto* folder_label = new QLabel(tr("Folder:"), this);
  folder_label->setBuddy(folder_);
  folder_row->addWidget(folder_label);
  folder_row->addWidget(folder_, 1);
  folder_row->addWidget(browse);
  layout->addLayout(folder_row);

  auto* comment_label = new QLabel(ToQ(text::kEnterComments), this);
  comments_ = new QLineEdit(this);
  comments_->setObjectName("txtComments");
  comments_->setMaxLength(kBackupCommentText);
  comment_label->setBuddy(comments_);
  layout->addWidget(comment_label);
  layout->addWidget(comments_);

  auto* help = new QLabel(ToQ(text::kBackupHelp), this);
  help->setObjectName("lblHelp");
  help->setWordWrap(true);
  layout->addWidget(help);
  auto* examples = new QLabel(ToQ(text::kBackupExamples), this);
  examples->setObjectName("lblExamples");
  layout->addWidget(examples);

  auto* buttons = new QHBoxLayout;
  auto* backup = new QPushButton(tr("Backup"), this);
  backup->setObjectName("cmdBackup");
  backup->setDefault(true);
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("cmdCancel");
  buttons->addStretch(1);
  buttons->addWidget(backup);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);

  connect(browse, &QPushButton::clicked, this, &frmBackup::Browse);
  connect(backup, &QPushButton::clicked, this, &frmBackup::RunBackup);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  resize(sizeHint().expandedTo(QSize(520, 0)));
}

QString frmBackup::Folder() const {
  return folder_->text();
}
void frmBackup::SetFolder(const QString& folder) {
  folder_->setText(folder);
}
void frmBackup::SetComment(const QString& comment) {
  comments_->setText(comment);
}

void frmBackup::Browse() {
  const QString chosen = QFileDialog::getExistingDirectory(this, windowTitle(), folder_->text());
  if (!chosen.isEmpty()) folder_->setText(chosen);
}

void frmBackup::RunBackup() {
  std::filesystem::path folder = folder_->text().trimmed().toStdString();
  if (folder.empty()) folder = ProgramHome::DefaultDataDir();
  made_ = BackupDatabase(state_, folder, comments_->text().toStdString());
  if (made_) accept();
}

}  // namespace kvlr
