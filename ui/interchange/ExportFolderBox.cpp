#include "interchange/ExportFolderBox.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QPushButton>

#include "interchange/ExportRun.h"

namespace kvlr {

ExportFolderBox::ExportFolderBox(AppState& state, QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  folders_ = new QComboBox(this);
  folders_->setObjectName("cboFolder");
  folders_->setEditable(true);
  folders_->setMinimumWidth(320);
  for (const auto& folder : ExportFolders(state)) {
    folders_->addItem(QString::fromStdString(folder.string()));
  }
  auto* browse = new QPushButton(tr("Browse..."), this);
  browse->setObjectName("cmdBrowse");
  row->addWidget(folders_, 1);
  row->addWidget(browse);
  connect(browse, &QPushButton::clicked, this, [this] {
    const QString chosen = QFileDialog::getExistingDirectory(this, tr("Export to Directory:"),
                                                             folders_->currentText());
    if (!chosen.isEmpty()) SetFolder(chosen.toStdString());
  });
}

std::filesystem::path ExportFolderBox::Folder() const {
  return folders_->currentText().trimmed().toStdString();
}

void ExportFolderBox::SetFolder(const std::filesystem::path& folder) {
  const QString text = QString::fromStdString(folder.string());
  if (folders_->findText(text) < 0) folders_->addItem(text);
  folders_->setCurrentText(text);
}

}  // namespace kvlr
