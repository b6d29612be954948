#pragma once
// "Export to Directory:": the favourite folders of Directory Preferences first, then the
// data folder; any other folder typed or chosen with "Browse...".

#include <filesystem>

#include <QWidget>

#include "core/AppState.h"

class QComboBox;

namespace kvlr {

class ExportFolderBox final : public QWidget {
  Q_OBJECT
 public:
  ExportFolderBox(AppState& state, QWidget* parent = nullptr);
  std::filesystem::path Folder() const;
  void SetFolder(const std::filesystem::path& folder);

 private:
  QComboBox* folders_;
};

}  // namespace kvlr
