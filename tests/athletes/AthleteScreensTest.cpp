// The athlete screens offscreen: the list's model, the commands of the list, the card's
// checks and fields, and the merge, recruiting and team screens.

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <SQLiteCpp/Statement.h>

#include "athletes/AthleteCardScreen.h"
#include "athletes/AthleteListModel.h"
#include "athletes/AthleteListScreen.h"
#include "athletes/CurrentAthlete.h"
#include "athletes/MergeScreen.h"
#include "athletes/RecruitingScreen.h"
#include "athletes/TeamScreen.h"
#include "support/QtApp.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

class AthleteScreens : public test::DbTest {
 protected:
  void SetUp() override { test::QtApp(); }
  int32_t Insert(const std::string& last, const std::string& first, const std::string& sex,
                 const std::string& birth = "") {
    return test::AddAthlete(*t.state.gDb, last, first, sex, birth);
  }
  template <typename T>
  static T* Child(QObject* parent, const char* name) {
    T* child = parent->findChild<T*>(name);
    EXPECT_NE(child, nullptr) << name;
    return child;
  }
  static void Type(QLineEdit* edit, const QString& text) {
    edit->setText(text);
    emit edit->editingFinished();
  }
};

TEST_F(AthleteScreens, ListModelShowsTheColumnsAndSorts) {
  Insert("Lane", "Bo", "M", "2010-05-01");
  Insert("Abel", "Cy", "M", "2014-01-09");
  Insert("Lane", "Ada", "F");
  AthleteListModel model(t.state);
  QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  const QStringList headers = {"Active", "Last Name", "First Name",     "Mid", "Gen",
                               "Birth",  "Age",       "Preferred Name", "ID"};
  ASSERT_EQ(model.columnCount(), headers.size());
  for (int c = 0; c < headers.size(); ++c) {
    EXPECT_EQ(model.headerData(c, Qt::Horizontal).toString(), headers[c]);
  }
  ASSERT_EQ(model.rowCount(), 3);
  EXPECT_EQ(model.index(0, 2).data().toString(), "Cy");
  EXPECT_EQ(model.index(0, 5).data().toString(), "01/09/2014");
  EXPECT_EQ(model.index(0, 6).data().toInt(), 12);
  EXPECT_FALSE(model.index(1, 6).data().isValid());  // no birth date, no age
  EXPECT_EQ(model.index(0, 0).data(Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Checked);
  model.sort(6, Qt::DescendingOrder);
  EXPECT_EQ(model.index(0, 2).data().toString(), "Bo");
  model.sort(2, Qt::AscendingOrder);
  EXPECT_EQ(model.index(0, 2).data().toString(), "Ada");
  EXPECT_TRUE(model.flags(model.index(0, 0)) & Qt::ItemIsUserCheckable);
  EXPECT_FALSE(model.flags(model.index(0, 1)) & Qt::ItemIsEditable);
  ASSERT_TRUE(model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
  EXPECT_EQ(Count("SELECT Inactive FROM Athlete WHERE First = 'Ada'"), 1);
  EXPECT_FALSE(model.setData(model.index(0, 1), "Zed", Qt::EditRole));
}

TEST_F(AthleteScreens, SelectingARowMakesTheSwimmerCurrentAndDeletingItClearsThat) {
  const int32_t ada = Insert("Lane", "Ada", "F");
  const int32_t bo = Insert("Lane", "Bo", "M");
  ASSERT_TRUE(SetCurrentAthlete(t.state, bo));
  frmAthlete list(t.state);
  EXPECT_EQ(t.io.progress.back(), "Opening Athletes...");
  EXPECT_EQ(list.Grid()->currentIndex().row(), 1);  // the current swimmer is selected
  QSignalSpy changed(&list, &frmAthlete::currentAthleteChanged);
  list.Grid()->selectRow(0);
  EXPECT_EQ(t.state.gAthlete, ada);
  EXPECT_EQ(t.state.gAthleteName, "Ada Lane");
  EXPECT_EQ(changed.count(), 1);
  list.Grid()->selectRow(0);
  EXPECT_EQ(changed.count(), 1);
  t.io.Script({Answer::kNo});
  list.Delete();
  EXPECT_EQ(list.Model()->rowCount(), 2);
  list.Delete();
  EXPECT_EQ(list.Model()->rowCount(), 1);
  EXPECT_EQ(t.state.gAthlete, 0);
  EXPECT_EQ(changed.count(), 2);
  EXPECT_FALSE(list.Grid()->selectionModel()->hasSelection());
}

TEST_F(AthleteScreens, CommandsWithoutRowsSaySoAndAFifthSwimmerIsRefused) {
  frmAthlete list(t.state);
  for (const char* command : {"cmdEdit", "cmdDelete", "cmdRecruiting", "cmdMerge"}) {
    t.io.shown.clear();
    Child<QAction>(&list, command)->trigger();
    EXPECT_EQ(LastShown(), "No Athletes have been added yet.") << command;
  }
  EXPECT_EQ(list.findChild<QDialog*>(), nullptr);
  for (const char* first : {"Ada", "Bo", "Cy"}) Insert("Lane", first, "F");
  t.io.shown.clear();
  Child<QAction>(&list, "cmdAdd")->trigger();
  frmAthMt* card = list.findChild<frmAthMt*>();
  ASSERT_NE(card, nullptr);
  EXPECT_TRUE(card->isVisible());
  EXPECT_TRUE(card->AddMode());
  EXPECT_TRUE(t.io.shown.empty());
  card->reject();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Insert("Lane", "Di", "F");
  Child<QAction>(&list, "cmdAdd")->trigger();
  EXPECT_EQ(LastShown(), "KVL-R allows a maximum of 4 Athletes.");
  EXPECT_EQ(list.findChild<frmAthMt*>(), nullptr);
}

TEST_F(AthleteScreens, TheCardChecksThenSavesAndTheListFollows) {
  frmAthlete list(t.state);
  QSignalSpy changed(&list, &frmAthlete::currentAthleteChanged);
  list.Add();
  QPointer<frmAthMt> card = list.findChild<frmAthMt*>();
  ASSERT_TRUE(card);
  auto* save = Child<QPushButton>(card, "cmdSave");
  save->click();
  EXPECT_EQ(LastShown(), "You must enter a First Name.");
  EXPECT_TRUE(card->isVisible());
  Type(Child<QLineEdit>(card, "txtFirst"), "ADA");
  Type(Child<QLineEdit>(card, "txtLast"), "O'BRIEN");
  EXPECT_EQ(Child<QLineEdit>(card, "txtFirst")->text(), "Ada");
  EXPECT_EQ(Child<QLineEdit>(card, "txtLast")->text(), "O'Brien");
  save->click();
  EXPECT_EQ(LastShown(), "You must select the gender of the athlete.");
  EXPECT_TRUE(card->isVisible());
  Child<QRadioButton>(card, "optFemale")->setChecked(true);
  save->click();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(card.isNull());
  ASSERT_EQ(list.Model()->rowCount(), 1);
  EXPECT_EQ(list.Model()->index(0, 1).data().toString(), "O'Brien");
  EXPECT_EQ(t.state.gAthleteName, "Ada O'Brien");
  EXPECT_EQ(list.Grid()->currentIndex().row(), 0);
  EXPECT_GE(changed.count(), 1);
  // Edit: a refused sex change goes back on the card.
  SQLite::Statement result(
      *t.state.gDb,
      "INSERT INTO RESULT (MEET, ATHLETE, I_R, MTEVENT, F_P) VALUES (1, ?, 'I', 1, 'F')");
  result.bind(1, t.state.gAthlete);
  result.exec();
  list.Edit();
  card = list.findChild<frmAthMt*>();
  ASSERT_TRUE(card);
  EXPECT_FALSE(card->AddMode());
  Child<QRadioButton>(card, "optMale")->setChecked(true);
  Child<QPushButton>(card, "cmdSave")->click();
  EXPECT_TRUE(t.io.Saw("This athlete's sex cannot be changed while this is true."));
  EXPECT_TRUE(Child<QRadioButton>(card, "optFemale")->isChecked());
  EXPECT_TRUE(card->isVisible());
}

TEST_F(AthleteScreens, TheCardTakesTimesDatesAndFieldsAndCopiesASiblingsAddress) {
  t.state.g12Hour = true;
  Insert("Lane", "Ada", "F", "2012-03-04");
  t.state.gDb->exec(
      "INSERT INTO AthInfo (Athlete, Addr, City, MailTo) VALUES (1, '12 Pool Road', 'Springfield', "
      "'The Lanes')");
  frmAthMt ada(t.state, 1);
  EXPECT_TRUE(Child<QPushButton>(&ada, "cmdSibling")->isHidden());  // no other swimmer
  ASSERT_TRUE(ada.Loaded());
  EXPECT_EQ(Child<QLineEdit>(&ada, "txtStartTimeDay")->text(), "7:00 AM");
  EXPECT_EQ(Child<QLineEdit>(&ada, "txtEndTimeDay")->text(), "8:00 PM");
  auto* swim = Child<QLineEdit>(&ada, "txtStartSwim");
  Type(swim, "1930");
  EXPECT_EQ(swim->text(), "07:30 PM");
  Type(swim, "7:10");
  EXPECT_EQ(swim->text(), "");
  EXPECT_EQ(LastShown(), "Time must be in 15 minute intervals.");
  auto* birth = Child<QLineEdit>(&ada, "SSDBirth");
  auto* age = Child<QLabel>(&ada, "lblAge");
  EXPECT_EQ(birth->text(), "03/04/2012");
  EXPECT_EQ(age->text(), "14");
  Type(birth, "12/31/1929");
  EXPECT_EQ(LastShown(), "Please use the drop-down calendar to enter dates before 1930.");
  EXPECT_EQ(birth->text(), "03/04/2012");
  Type(birth, "11/22/2026");
  EXPECT_EQ(age->text(), "0");
  frmAthMt missing(t.state, 999);
  EXPECT_FALSE(missing.Loaded());
  EXPECT_EQ(LastShown(), "Athlete not found");
  frmAthMt card(t.state, 0);
  EXPECT_FALSE(Child<QPushButton>(&card, "cmdSibling")->isHidden());
  card.CopySibling();
  EXPECT_EQ(Child<QLineEdit>(&card, "txtAddr")->text(), "12 Pool Road");
  EXPECT_EQ(Child<QLineEdit>(&card, "txtCity")->text(), "Springfield");
  EXPECT_EQ(Child<QLineEdit>(&card, "txtMailTo")->text(), "");
  const std::pair<const char*, int> sizes[] = {{"txtLast", 20},  {"txtFirst", 20},  {"txtInit", 1},
                                               {"txtPref", 20},  {"txtID", 17},     {"txtState", 3},
                                               {"txtEMail", 36}, {"txtMailTo2", 40}};
  for (const auto& [name, size] : sizes) {
    EXPECT_EQ(Child<QLineEdit>(&card, name)->maxLength(), size) << name;
  }
  auto* initial = Child<QLineEdit>(&card, "txtInit");
  QTest::keyClicks(initial, "QZ");
  EXPECT_EQ(initial->text(), "Q");
  auto* condition = Child<QPlainTextEdit>(&card, "txtMedCondition");
  condition->setPlainText(QString(130, 'x'));
  EXPECT_EQ(condition->toPlainText().size(), 120);
}

TEST_F(AthleteScreens, RecruitingAndMergeScreensWorkOnTheSelectedSwimmer) {
  const int32_t ada = Insert("Lane", "Ada", "F");
  const int32_t bo = Insert("Lane", "Bo", "F");
  Insert("Lane", "Cy", "M");
  frmAthlete list(t.state);
  list.Grid()->selectRow(0);
  list.Recruiting();
  frmRecr* recr = list.findChild<frmRecr*>();
  ASSERT_NE(recr, nullptr);
  EXPECT_EQ(Child<QLabel>(recr, "lblName")->text(), "Lane, Ada ");
  QString chosen = "/" + QString(56, 'p') + ".bmp";  // 61 characters
  recr->SetFileChooser([&chosen](const QString& title, const QString&, const QString&) {
    EXPECT_EQ(title, "Import Picture");
    return chosen;
  });
  recr->LoadPicture();
  EXPECT_EQ(LastShown(), "The file name and path exceeds 60 characters.");
  EXPECT_EQ(Child<QLineEdit>(recr, "txtPicture")->text(), "");
  chosen.remove(1, 1);
  recr->LoadPicture();
  EXPECT_EQ(Child<QLineEdit>(recr, "txtPicture")->text(), chosen);
  Child<QPushButton>(recr, "cmdPrint")->click();
  EXPECT_EQ(LastShown(), "No Athletes to report") << "the card prints as stored";
  Child<QLineEdit>(recr, "txtHS_Name")->setText("North High");
  Child<QLineEdit>(recr, "txtGrad")->setText("2030");
  ASSERT_TRUE(recr->Save());
  EXPECT_EQ(
      QString::fromStdString(
          t.state.gDb->execAndGet("SELECT HS_Name || '|' || Grad || '|' || Picture FROM ATHRECR")
              .getString()),
      "North High|2030|" + chosen);
  recr->close();
  list.Merge();
  frmMerge* merge = list.findChild<frmMerge*>();
  ASSERT_NE(merge, nullptr);
  EXPECT_EQ(merge->Source()->currentData().toInt(), ada);
  ASSERT_EQ(merge->Destination()->count(), 2);
  EXPECT_EQ(merge->Destination()->findData(ada), -1);
  merge->Destination()->setCurrentIndex(merge->Destination()->findData(bo));
  QSignalSpy changed(&list, &frmAthlete::currentAthleteChanged);
  merge->Run();
  EXPECT_EQ(list.Model()->rowCount(), 2);
  EXPECT_EQ(t.state.gAthlete, bo);
  EXPECT_EQ(changed.count(), 1);
}

TEST_F(AthleteScreens, TeamScreenStartsEmptyAndKeepsOneRow) {
  {
    frmTeamMaint team(t.state);
    EXPECT_EQ(team.windowTitle(), "Team Maintenance");
    EXPECT_EQ(Child<QLineEdit>(&team, "txtName")->text(), "");
    Child<QLineEdit>(&team, "txtName")->setText("Seals");
    team.reject();
  }
  EXPECT_EQ(Count("SELECT COUNT(*) FROM TEAM"), 0);
  frmTeamMaint team(t.state);
  Child<QLineEdit>(&team, "txtName")->setText("Springfield Seals");
  Child<QLineEdit>(&team, "txtAddr")->setText("1 Pool Road\r\nSuite 2");
  Child<QPushButton>(&team, "cmdOK")->click();
  EXPECT_EQ(team.result(), QDialog::Accepted);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM TEAM"), 1);
  // Reopened it shows the row on one line; saving again edits that row.
  frmTeamMaint again(t.state);
  EXPECT_EQ(Child<QLineEdit>(&again, "txtName")->text(), "Springfield Seals");
  EXPECT_EQ(Child<QLineEdit>(&again, "txtAddr")->text(), "1 Pool Road Suite 2");
  Child<QPushButton>(&again, "cmdOK")->click();
  EXPECT_EQ(Count("SELECT COUNT(*) FROM TEAM"), 1);
}

}  // namespace
}  // namespace kvlr
