#include "store/RestoreScreen.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/DatabaseName.h"
#include "core/Options.h"
#include "store/BackupTexts.h"

namespace kvlr {
namespace fs = std::filesystem;
namespace text = backup_text;

namespace {

QString ToQ(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}

QLabel* ValueLabel(QWidget* parent, const char* name) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setMinimumWidth(380);
  return label;
}

}  // namespace

QString frmRestore::FileDialogFilter() {
  // The list is "caption|patterns|caption|patterns"; Qt reads the patterns from the caption's
  // parentheses, split by blanks.
  const QStringList parts = ToQ(text::kRestoreFilter).split('|');
  QStringList filters;
  for (int i = 0; i + 1 < parts.size(); i += 2) {
    QString caption = parts[i];
    const int open = caption.indexOf('(');
    if (open >= 0) caption = caption.left(open).trimmed();
    filters << QString("%1 (%2)").arg(caption, QString(parts[i + 1]).replace(';', ' '));
  }
  return filters.join(";;");
}

frmRestore::frmRestore(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmRestore");
  setWindowTitle(ToQ(text::kRestoreTitle));
  auto* layout = new QVBoxLayout(this);

  auto* fields = new QFormLayout;
  file_name_ = ValueLabel(this, "lblFileName");
  database_ = ValueLabel(this, "lblDbName");
  created_ = ValueLabel(this, "lblCreated");
  size_ = ValueLabel(this, "lblSize");
  comments_ = ValueLabel(this, "lblComments");
  comments_->setWordWrap(true);
  fields->addRow(ToQ(text::kBackupFileName), file_name_);
  fields->addRow(ToQ(text::kBackedUpDatabase), database_);
  fields->addRow(ToQ(text::kBackupCreated), created_);
  fields->addRow(ToQ(text::kTotalSize), size_);
  fields->addRow(ToQ(text::kBackupComments), comments_);
  layout->addLayout(fields);

  auto* options = new QGroupBox(ToQ(text::kRestoreOptions), this);
  auto* options_layout = new QVBoxLayout(options);
  replace_ = new QRadioButton(ToQ(text::kReplaceOpen), options);
  replace_->setObjectName("optReplace");
  current_folder_ = new QRadioButton(ToQ(text::kCurrentFolder), options);
  current_folder_->setObjectName("optCurrentFolder");
  selected_folder_ = new QRadioButton(ToQ(text::kSelectedFolder), options);
  selected_folder_->setObjectName("optSelectedFolder");
  auto* group = new QButtonGroup(this);
  for (auto* option : {replace_, current_folder_, selected_folder_}) {
    group->addButton(option);
    options_layout->addWidget(option);
  }
  auto* folder_row = new QHBoxLayout;
  change_folder_ = new QPushButton(ToQ(text::kChangeFolder), options);
  change_folder_->setObjectName("cmdChangeFolder");
  folder_label_ = new QLabel(options);
  folder_label_->setObjectName("lblFolder");
  folder_row->addSpacing(20);
  folder_row->addWidget(change_folder_);
  folder_row->addWidget(folder_label_, 1);
  options_layout->addLayout(folder_row);

  auto* name_row = new QHBoxLayout;
  auto* name_label = new QLabel(ToQ(text::kRenameTo), options);
  new_name_ = new QLineEdit(options);
  new_name_->setObjectName("txtDBName");
  new_name_->setMaxLength(kMaxDatabaseName);
  name_label->setBuddy(new_name_);
  name_row->addWidget(name_label);
  name_row->addWidget(new_name_, 1);
  options_layout->addLayout(name_row);
  open_after_ = new QCheckBox(ToQ(text::kOpenAfter), options);
  open_after_->setObjectName("chkOpenAfter");
  options_layout->addWidget(open_after_);
  same_name_ = new QLabel(
      QString("%1\n%2").arg(ToQ(text::kSameName), ToQ(text::kSameAsFirstOption)), options);
  same_name_->setObjectName("lblSameName");
  same_name_->setWordWrap(true);
  same_name_->setVisible(false);
  options_layout->addWidget(same_name_);
  layout->addWidget(options);

  auto* recommend = new QLabel(ToQ(text::kRecommendBackup), this);
  recommend->setObjectName("lblRecommend");
  recommend->setWordWrap(true);
  layout->addWidget(recommend);

  auto* buttons = new QHBoxLayout;
  restore_ = new QPushButton(tr("Restore"), this);
  restore_->setObjectName("cmdRestore");
  restore_->setDefault(true);
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("cmdCancel");
  buttons->addStretch(1);
  buttons->addWidget(restore_);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);

  // Replacing needs a database open; without one the folder choices are left.
  replace_->setEnabled(state_.gDb != nullptr);
  (state_.gDb ? replace_ : selected_folder_)->setChecked(true);
  restore_->setEnabled(false);

  connect(group, &QButtonGroup::buttonToggled, this, &frmRestore::UpdateEnabled);
  connect(change_folder_, &QPushButton::clicked, this, &frmRestore::ChangeFolder);
  connect(restore_, &QPushButton::clicked, this, &frmRestore::RunRestore);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  UpdateEnabled();
}

bool frmRestore::ChooseBackup() {
  fs::path start;
  if (state_.gDb) {
    try {
      start = GetDirectories(state_, DirectoryKind::kBackup);
    } catch (const std::exception&) {
      // The dialog opens on the default folder.
    }
  }
  const QString chosen =
      QFileDialog::getOpenFileName(this, ToQ(text::kRestoreDialogTitle),
                                   QString::fromStdString(start.string()), FileDialogFilter());
  if (chosen.isEmpty()) return false;
  return LoadBackup(chosen.toStdString());
}

bool frmRestore::LoadBackup(const fs::path& zip) {
  info_ = LoadBackupInfo(state_, zip);
  restore_->setEnabled(info_.has_value());
  if (!info_) return false;
  file_name_->setText(QString::fromStdString(info_->file_name_text));
  database_->setText(QString::fromStdString(info_->database_text));
  created_->setText(QString::fromStdString(info_->created_text));
  size_->setText(QString::fromStdString(info_->size_text));
  comments_->setText(QString::fromStdString(info_->comments));
  same_name_->setVisible(SameAsOpenDatabase(state_, *info_));
  return true;
}

bool frmRestore::SilentBackup(const fs::path& database) {
  return kvlr::SilentBackup(state_, database);
}

void frmRestore::SetOption(RestoreOption option) {
  switch (option) {
    case RestoreOption::kReplaceOpen:
      replace_->setChecked(true);
      break;
    case RestoreOption::kCurrentFolder:
      current_folder_->setChecked(true);
      break;
    case RestoreOption::kSelectedFolder:
      selected_folder_->setChecked(true);
      break;
  }
}

RestoreOption frmRestore::Option() const {
  if (replace_->isChecked()) return RestoreOption::kReplaceOpen;
  if (current_folder_->isChecked()) return RestoreOption::kCurrentFolder;
  return RestoreOption::kSelectedFolder;
}

void frmRestore::SetFolder(const fs::path& folder) {
  folder_ = folder;
  folder_label_->setText(QString::fromStdString(ShortPathText(folder.string())));
}

void frmRestore::ChangeFolder() {
  const QString chosen = QFileDialog::getExistingDirectory(
      this, ToQ(text::kChangeFolder), QString::fromStdString(folder_.string()));
  if (!chosen.isEmpty()) SetFolder(chosen.toStdString());
}

void frmRestore::UpdateEnabled() {
  // The new name and the open choice belong to the two folder choices.
  const bool into_folder = !replace_->isChecked();
  new_name_->setEnabled(into_folder);
  open_after_->setEnabled(into_folder);
  change_folder_->setEnabled(selected_folder_->isChecked());
}

void frmRestore::RunRestore() {
  if (!info_) return;
  const RestoreOption option = Option();
  const bool into_folder = option != RestoreOption::kReplaceOpen;
  restored_ = RestoreDatabase(state_, info_->zip, *info_, option, folder_,
                              into_folder ? new_name_->text().toStdString() : std::string(),
                              into_folder && open_after_->isChecked());
  if (restored_) accept();
}

}  // namespace kvlr
