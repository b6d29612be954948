#pragma once
// `frmCodes` lists the meet types; `frmCodMt` adds or edits one.

#include <QDialog>

#include "core/AppState.h"
#include "meets/MeetTypes.h"

class QLineEdit;
class QTableView;

namespace kvlr {

class MeetTypeModel;

class frmCodMt final : public QDialog {
  Q_OBJECT
 public:
  // `original` empty code adds a type.
  frmCodMt(AppState& state, const MeetType& original, QWidget* parent = nullptr);
  // Saves; true (and the dialog accepted) when saved.
  bool Save();
  QLineEdit* AbbrBox() const { return abbr_; }
  QLineEdit* DescBox() const { return desc_; }

 private:
  AppState& state_;
  std::string original_;
  QLineEdit* abbr_ = nullptr;
  QLineEdit* desc_ = nullptr;
};

class frmCodes final : public QDialog {
  Q_OBJECT
 public:
  explicit frmCodes(AppState& state, QWidget* parent = nullptr);

  MeetTypeModel* Model() const { return model_; }
  QTableView* Grid() const { return grid_; }

  // The commands. Add and Edit open frmCodMt window-modal (object name "frmCodMt") and
  // return at once; the list reloads when it closes.
  void Add();
  void Edit();
  void Delete();
  void Help();

 private:
  void OpenCard(const MeetType& original);
  const MeetType* Current() const;

  AppState& state_;
  MeetTypeModel* model_ = nullptr;
  QTableView* grid_ = nullptr;
};

}  // namespace kvlr
