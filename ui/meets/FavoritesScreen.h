#pragma once
// frmFav, "Favorite Defaults": the favourite filters (TDBGFav), with add, edit, delete,
// set default (the heart) and clear default; the box "Add / Edit Favorite" edits one.

#include <optional>
#include <vector>

#include <QAbstractTableModel>
#include <QDialog>

#include "core/AppState.h"
#include "core/DialogRunner.h"
#include "meets/Favorites.h"

class QComboBox;
class QLineEdit;
class QTableView;

namespace kvlr {

// "Name", "Meet Type", "Course"; the default's name carries a heart.
class FavoriteModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit FavoriteModel(AppState& state, QObject* parent = nullptr)
      : QAbstractTableModel(parent), state_(state) {}

  void Reload();
  const std::vector<Favorite>& Favorites() const { return rows_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  AppState& state_;
  std::vector<Favorite> rows_;
};

// "Add / Edit Favorite": name, meet type and course; "None" stands for empty.
class frmFavEdit final : public QDialog {
  Q_OBJECT
 public:
  frmFavEdit(AppState& state, const Favorite& favorite, QWidget* parent = nullptr);

  // The values as chosen; row as given.
  Favorite Values() const;
  void SetValues(const Favorite& favorite);

 private:
  int64_t row_ = 0;
  QLineEdit* name_ = nullptr;
  QComboBox* meet_type_ = nullptr;
  QComboBox* course_ = nullptr;
};

class frmFav final : public QDialog {
  Q_OBJECT
 public:
  frmFav(AppState& state, QWidget* parent = nullptr);

  // How the edit box is run; tests answer for the user.
  void SetDialogRunner(DialogRunner runner) { run_ = std::move(runner); }

  // The commands, on the current row where they need one.
  void AddFavorite();
  void EditFavorite();
  void DeleteFavorite();
  void SetDefault();
  void ClearDefault();

  FavoriteModel* Model() const { return model_; }
  QTableView* View() const { return view_; }

  // Leaving asks first when no default is set.
  void done(int result) override;

 private:
  // Runs the box until it is saved or cancelled.
  void Edit(const Favorite& start);
  std::optional<Favorite> Current() const;
  void SelectRow(int64_t row_id);

  AppState& state_;
  DialogRunner run_ = ModalRunner();
  FavoriteModel* model_ = nullptr;
  QTableView* view_ = nullptr;
};

}  // namespace kvlr
