#pragma once
// `frmMeets`: the meets of the database with their filters (course, since, meet type; the
// default favourite's values first), the door to the card, the event lists, entries and
// results of a meet. A chosen row becomes state.gCurrentMeet. Dragging a row onto another
// merges the two meets; typing a letter on the grid jumps to the first name from it.

#include <functional>

#include <QDialog>

#include "core/AppState.h"
#include "meets/MeetEvents.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;

namespace kvlr {

class MeetListModel;

class frmMeets final : public QDialog {
  Q_OBJECT
 public:
  explicit frmMeets(AppState& state, QWidget* parent = nullptr);

  // Where the results and entries of a meet open (screens of their own).
  void SetOpenResults(std::function<void(int32_t meet)> open) { open_results_ = std::move(open); }
  void SetOpenEntries(std::function<void(int32_t meet)> open) { open_entries_ = std::move(open); }

  MeetListModel* Model() const { return model_; }
  QTableView* Grid() const { return grid_; }

  // With no meets at all: the words, then the card of a new meet. Runs once on first show.
  void OfferAddWhenEmpty();
  // Reads the filter boxes into the list.
  void ApplyFilters();
  // Selects the first row whose name is not below the letter.
  void JumpToLetter(char letter);
  // Merges the meet of row `from` into the one of row `to`, as a drop does.
  void MergeRows(int from, int to);

  // The commands. The card, event lists and meet types open window-modal as children
  // (object names "frmMeetMaint", "frmEvent", "frmEventE", "frmCodes") and return at once.
  void Add();
  void Edit();
  void Delete();
  void ResultEvents();
  void EntryEvents();
  void Results();
  void Entries();
  void MeetTypes();

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // The meet of the current row; with none the user is told and nullptr comes back.
  const Meet* Chosen();
  void OpenEvents(EventList list, int32_t meet);
  void Merge(int32_t from, int32_t to);
  void Refresh(int32_t select = 0);
  void LoadTypeFilter();
  void ShowSortCaption();

  AppState& state_;
  bool offered_ = false;
  MeetListModel* model_ = nullptr;
  QTableView* grid_ = nullptr;
  QComboBox* course_ = nullptr;
  QLineEdit* since_ = nullptr;
  QComboBox* type_ = nullptr;
  QLabel* sort_caption_ = nullptr;
  std::function<void(int32_t)> open_results_;
  std::function<void(int32_t)> open_entries_;
};

}  // namespace kvlr
