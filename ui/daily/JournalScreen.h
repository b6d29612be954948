#pragma once
// `frmJourn`: the journal grid `TDBGJournal` (a header click changes the order) with the edit
// frame "Add/Edit Journal Entry".

#include <vector>

#include <QDialog>

#include "core/AppState.h"
#include "daily/Journal.h"

class QDateEdit;
class QGroupBox;
class QLineEdit;
class QPlainTextEdit;
class QTableView;

namespace kvlr {

class RowsModel;

class frmJourn final : public QDialog {
  Q_OBJECT
 public:
  explicit frmJourn(AppState& state, QWidget* parent = nullptr);
  void Add();
  void Edit();
  void Save();
  void Delete();
  RowsModel* Model() const { return model_; }

 private:
  void Refresh(int64_t select = 0);
  AppState& state_;
  std::vector<JournalEntry> rows_;
  JournalOrder order_ = JournalOrder::kDateDescending;
  int64_t editing_ = 0;
  RowsModel* model_;
  QTableView* grid_;
  QGroupBox* frame_;
  QDateEdit* date_;
  QLineEdit* subject_;
  QPlainTextEdit* comment_;
};

}  // namespace kvlr
