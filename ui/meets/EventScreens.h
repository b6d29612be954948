#pragma once
// The event screens of a meet, on one of its two lists: `frmEvent` lists the events,
// `frmEvntAdd` adds and edits one (and stays open for the next), `frmCopyEvents` copies the
// list of another meet.

#include <QDialog>

#include "core/AppState.h"
#include "meets/MeetEvents.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QSpinBox;
class QTableView;

namespace kvlr {

class EventListModel;

class frmEvntAdd final : public QDialog {
  Q_OBJECT
 public:
  // `mt_event` 0 starts with a new event.
  frmEvntAdd(AppState& state, EventList list, int32_t meet, int32_t mt_event,
             QWidget* parent = nullptr);

  EventForm Form() const;
  // Saves; the status line says "New Event Added" or "Event Updated". True when saved.
  bool Save();
  // Moves to another event (0: a new one); refused, with the words told, while the fields
  // hold unsaved changes.
  bool ShowEvent(int32_t mt_event);
  bool Dirty() const { return dirty_; }
  QString Status() const;

  QLineEdit* NumberBox() const { return number_; }
  QSpinBox* LowBox() const { return lo_; }
  QSpinBox* HighBox() const { return hi_; }
  QComboBox* DistanceBox() const { return distance_; }
  QComboBox* StrokeBox() const { return stroke_; }
  QComboBox* SexBox() const { return sex_; }
  QCheckBox* RelayBox() const { return relay_; }

 signals:
  void eventSaved(int32_t mt_event);

 private:
  void Fill(const MeetEvent& event);
  void NumberLeft();
  void UpdateAgeCaption();

  AppState& state_;
  EventList list_;
  int32_t meet_;
  int32_t mt_event_ = 0;
  bool dirty_ = false;
  bool filling_ = false;
  QLineEdit* number_ = nullptr;
  QSpinBox* lo_ = nullptr;
  QSpinBox* hi_ = nullptr;
  QLabel* age_caption_ = nullptr;
  QComboBox* distance_ = nullptr;
  QComboBox* stroke_ = nullptr;
  QComboBox* sex_ = nullptr;
  QCheckBox* relay_ = nullptr;
  QLabel* status_ = nullptr;
};

class frmCopyEvents final : public QDialog {
  Q_OBJECT
 public:
  frmCopyEvents(AppState& state, EventList list, int32_t meet, QWidget* parent = nullptr);
  // Copies from the chosen meet; true (and the dialog accepted) when copied.
  bool Copy();
  QComboBox* MeetBox() const { return meets_; }
  void SetWhich(CopyWhich which);

 private:
  AppState& state_;
  EventList list_;
  int32_t meet_;
  QComboBox* meets_ = nullptr;
  QRadioButton* all_ = nullptr;
  QRadioButton* individual_ = nullptr;
  QRadioButton* relay_ = nullptr;
};

class frmEvent final : public QDialog {
  Q_OBJECT
 public:
  frmEvent(AppState& state, EventList list, int32_t meet, QWidget* parent = nullptr);

  EventListModel* Model() const { return model_; }
  QTableView* Grid() const { return grid_; }

  // On the result list with no events: the question to copy the entry events.
  void OfferEntryEvents();
  // Reads the filter boxes into the list.
  void ApplyFilters();
  // The commands. Add, Edit and Copy open their screens window-modal as children (object
  // names "frmEvntAdd", "frmCopyEvents") and return at once; the list reloads after.
  void Add();
  void Edit();
  void Delete();
  void CopyEvents();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void LoadAgeFilter();
  void Reload();

  AppState& state_;
  EventList list_;
  int32_t meet_;
  bool offered_ = false;
  EventListModel* model_ = nullptr;
  QTableView* grid_ = nullptr;
  QComboBox* sex_ = nullptr;
  QComboBox* age_ = nullptr;
  QComboBox* stroke_ = nullptr;
  QComboBox* distance_ = nullptr;
  QLabel* sort_caption_ = nullptr;
};

}  // namespace kvlr
