#pragma once
// The handheld screens: frmPalm (export), frmPalmImport and frmPalmDirectory, and the menu
// commands that open them.

#include <optional>

#include <QDialog>

#include "core/AppState.h"
#include "handheld/PalmExport.h"
#include "handheld/PalmImport.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;
class QTableView;

namespace kvlr {

class MainWindow;
class PalmImportModel;

// File > Export > "Export / Hot Sync to KVL-R Mobile" and File > Import > "Meet Results from
// KVL-R Mobile".
void InstallHandheldScreens(MainWindow& window, AppState& state);

class frmPalm final : public QDialog {
  Q_OBJECT
 public:
  explicit frmPalm(AppState& state, QWidget* parent = nullptr);
  // The screen's choice as it stands.
  PalmExportChoice Choice() const;

 private:
  void LoadMeets();
  void MeetTicked(QListWidgetItem* item);
  void ChooseSyncFolder();
  void Ok();

  AppState& state_;
  QRadioButton* just_active_;
  QComboBox* course_;
  QCheckBox* since_;
  QDateEdit* since_date_;
  QListWidget* meets_;
  QComboBox* entry_meet_;
  QLineEdit* sync_dir_;
  QLabel* panel_;
  QPushButton* ok_;
  bool done_ = false;
};

class frmPalmDirectory final : public QDialog {
  Q_OBJECT
 public:
  explicit frmPalmDirectory(AppState& state, QWidget* parent = nullptr);

 private:
  AppState& state_;
  QLineEdit* folder_;
};

class frmPalmImport final : public QDialog {
  Q_OBJECT
 public:
  frmPalmImport(AppState& state, PalmOpening opening, QWidget* parent = nullptr);

 private:
  void SortBy(int column);
  void Ok();

  AppState& state_;
  PalmOpening opening_;
  PalmImportModel* model_;
  QTableView* grid_;
  QCheckBox* replace_;
  QLabel* status_;
  QPushButton* ok_;
};

}  // namespace kvlr
