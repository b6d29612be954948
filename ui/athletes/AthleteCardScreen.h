#pragma once
// `frmAthMt`: the athlete card, in add mode (no key) or edit mode (the swimmer's key).
// Its checks and writes are SaveAthlete's; a refused or failed save keeps it open.

#include <map>
#include <string>

#include <QDialog>

#include "athletes/AthleteCard.h"
#include "athletes/AthleteWidgets.h"
#include "core/AppState.h"

class QButtonGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QToolButton;

namespace kvlr {

class frmAthMt final : public QDialog {
  Q_OBJECT
 public:
  // `athlete` 0 opens an empty card to add a swimmer.
  frmAthMt(AppState& state, int32_t athlete, QWidget* parent = nullptr);

  // False when the swimmer to edit wasn't found ("Athlete not found" told); the card shows
  // nothing then and should be closed.
  bool Loaded() const { return loaded_; }
  bool AddMode() const { return card_.AddMode(); }

  // `cmdSave`: SaveAthlete; on success the card closes.
  void Save();
  // `cmdGetPic`.
  void ChoosePicture();
  // `cmdSibling`: copies the address of the swimmer chosen in the drop-down.
  void CopySibling();

  void SetFileChooser(FileChooser chooser) { choose_file_ = std::move(chooser); }

 signals:
  // A save went through; `athlete` is the key written (now the current swimmer).
  void saved(int athlete);

 private:
  QWidget* BuildNameTab();
  QWidget* BuildAddressTab();
  QWidget* BuildContactTab();
  QWidget* BuildMedicalTab();
  QWidget* BuildCalendarTab();
  QLineEdit* InfoEdit(std::string_view column);
  QLineEdit* TimeEdit(std::string_view column);

  void ShowCard(const AthleteCard& card);
  AthleteCard CardFromFields() const;
  void ShowBirth(const std::optional<Date>& birth);
  void BirthTyped();
  void TimeTyped(QLineEdit* edit);
  void ShowPicture();
  void LoadSiblings();

  AppState& state_;
  AthleteCard card_;
  bool loaded_ = true;
  std::optional<Date> birth_;
  FileChooser choose_file_;

  QTabWidget* tabs_ = nullptr;
  QLineEdit* last_ = nullptr;
  QLineEdit* first_ = nullptr;
  QLineEdit* initial_ = nullptr;
  QLineEdit* pref_ = nullptr;
  QLineEdit* id_ = nullptr;
  QRadioButton* male_ = nullptr;
  QRadioButton* female_ = nullptr;
  QButtonGroup* sex_ = nullptr;
  QLineEdit* birth_edit_ = nullptr;
  QToolButton* calendar_ = nullptr;
  QLabel* age_ = nullptr;
  QLabel* picture_ = nullptr;
  QPushButton* get_picture_ = nullptr;
  QLabel* sibling_label_ = nullptr;
  QComboBox* siblings_ = nullptr;
  QPushButton* copy_sibling_ = nullptr;
  std::map<std::string, QLineEdit*, std::less<>> info_edits_;
  std::map<std::string, QPlainTextEdit*, std::less<>> info_texts_;
  std::map<std::string, QLineEdit*, std::less<>> time_edits_;
};

}  // namespace kvlr
