#pragma once
// The standards screens: the grid of a standard's times (frmStan), adding one line
// (frmStanAdd) and defining a new standard (frmDesig). Every question and message goes
// through state.io; the decisions are in standards/StandardEditing.h.

#include <QAbstractTableModel>
#include <QDialog>

#include "core/AppState.h"
#include "standards/StandardEditing.h"
#include "standards/Standards.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QSpinBox;
class QTableView;

namespace kvlr {

// The lines of one standard for the chosen course; time cells are edited in place and each
// edit is stored at once. Failures are reported under "frmStan.LoadGrid".
class StanModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit StanModel(AppState& state, QObject* parent = nullptr);

  // Shows the standard `def` (no standard: def.name empty) and reads its lines.
  void SetStandard(const StandardDefinition& def);
  void SetCourse(GridCourse course);
  void SetFilter(const StandardFilter& filter);
  void SetSort(StandardSort sort);
  void Reload();

  StandardSort Sort() const { return sort_; }
  const StandardFilter& Filter() const { return filter_; }
  const std::string& Table() const { return table_; }
  const StandardLine& Line(int row) const { return lines_.at(static_cast<size_t>(row)); }
  const std::vector<StanColumn>& Columns() const { return columns_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  AppState& state_;
  StandardDefinition def_;
  std::string table_;
  GridCourse course_ = GridCourse::kSCY;
  StandardFilter filter_;
  StandardSort sort_ = kStartSort;
  std::vector<StanColumn> columns_;
  std::vector<StandardLine> lines_;
};

class frmStan final : public QDialog {
  Q_OBJECT
 public:
  explicit frmStan(AppState& state, QWidget* parent = nullptr);

  StanModel& Model() { return *model_; }
  QTableView* Grid() const { return grid_; }

  // The steps behind the controls, public so tests drive them as a user would.
  void SelectStandard(const std::string& name);  // one listed in cboStandards
  void SetCourse(GridCourse course);
  void ClickHeading(int column);
  // Asks, then deletes the line of grid row `row`.
  void DeleteOneStandard(int row);
  // Asks, then drops the standard shown.
  void RemoveEntireStandard();
  // Makes the standard shown the one results and reports judge against.
  void MakeCurrent();
  // Open the child screens (non-modal, so tests can fill them).
  class frmStanAdd* OpenAdd();
  class frmDesig* OpenDesig();
  void ImportCsv(const std::string& file);
  // `already_asked`: the file dialog asked about replacing an existing file.
  void ExportCsv(const std::string& file, bool already_asked = false);
  std::string SortCaption() const;

 private:
  void FillStandards(const std::string& select);
  void StandardChosen();
  void FiltersChanged();
  bool HaveStandard();
  void ShowCurrent();

  AppState& state_;
  StanModel* model_ = nullptr;
  QTableView* grid_ = nullptr;
  QComboBox* standards_ = nullptr;
  QComboBox* course_ = nullptr;
  QComboBox* sex_ = nullptr;
  QComboBox* ages_ = nullptr;
  QComboBox* stroke_ = nullptr;
  QComboBox* distance_ = nullptr;
  QLabel* sort_caption_ = nullptr;
  QLabel* description_ = nullptr;
  QLabel* current_ = nullptr;
};

// "Add/Edit One Standard".
class frmStanAdd final : public QDialog {
  Q_OBJECT
 public:
  // `sex_filter` "M" or "F" fixes the sex, as the grid is filtered.
  frmStanAdd(AppState& state, std::string table, std::string sex_filter, QWidget* parent = nullptr);

  StanAddForm Form() const;
  // Checks and adds the line (messages told); accepts the dialog when added.
  bool Save();
  int32_t Added() const { return added_; }

  QComboBox* ages_ = nullptr;
  QSpinBox* lo_ = nullptr;
  QSpinBox* hi_ = nullptr;
  QComboBox* distance_ = nullptr;
  QComboBox* stroke_ = nullptr;
  QComboBox* sex_ = nullptr;
  QRadioButton* relay_ = nullptr;

 private:
  void AgeRangeChosen();

  AppState& state_;
  std::string table_;
  int32_t added_ = 0;
};

// A new standard and its designators, or a copy of another standard.
class frmDesig final : public QDialog {
  Q_OBJECT
 public:
  explicit frmDesig(AppState& state, QWidget* parent = nullptr);

  StandardDefinition Definition() const;
  std::string CopyFrom() const;
  // Checks, asks and saves (messages told); accepts the dialog when the standard was made.
  bool Save();

  QLineEdit* name_ = nullptr;
  QLineEdit* year_ = nullptr;
  QLineEdit* descript_ = nullptr;
  std::array<QLineEdit*, kDesignatorCount> designators_{};
  std::array<QLineEdit*, kDesignatorCount> long_names_{};
  QComboBox* copy_from_ = nullptr;

 private:
  AppState& state_;
};

}  // namespace kvlr
