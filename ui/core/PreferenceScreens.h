#pragma once
// System, report and directory preferences.

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTreeView>
#include <array>

#include "core/AppState.h"
#include "shell/Preferences.h"

class QFileSystemModel;
class QLabel;

namespace kvlr {

class frmSystem final : public QDialog {
  Q_OBJECT
 public:
  explicit frmSystem(AppState& state, QWidget* parent = nullptr);
  void accept() override;
  void reject() override;

  // What the boxes hold now.
  SystemPreferences Current() const;

 private:
  AppState& state_;
  SystemPreferences loaded_;
  std::array<QRadioButton*, 3> gender_{};
  QCheckBox* lead_off_;
  QSpinBox* backup_days_;
  QSpinBox* update_days_;
  std::array<QRadioButton*, 4> age_up_{};
  QDateEdit* age_up_date_;
};

class frmReptPref final : public QDialog {
  Q_OBJECT
 public:
  explicit frmReptPref(AppState& state, QWidget* parent = nullptr);
  void accept() override;

 private:
  AppState& state_;
  ReportPreferences loaded_;
  std::array<QRadioButton*, 3> output_{};
  std::array<QRadioButton*, 3> open_{};
  QLineEdit* header1_;
  QLineEdit* header2_;
  std::array<QRadioButton*, 2> paper_{};
  QComboBox* printer_;
};

class frmDirectories final : public QDialog {
  Q_OBJECT
 public:
  explicit frmDirectories(AppState& state, QWidget* parent = nullptr);
  // Selects a folder in the tree, as a click would.
  void SelectFolder(const QString& folder);
  // The "Set Directory" button of one area.
  void SetDirectory(DirectoryKind kind);
  // "Set Directory" of the handheld's sync folder.
  void SetSyncDirectory();

 private:
  void Refresh();

  AppState& state_;
  QFileSystemModel* model_;
  QTreeView* tree_;
  std::array<QLabel*, 4> current_{};
  QLabel* sync_ = nullptr;
};

}  // namespace kvlr
