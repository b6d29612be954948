// The meet, meet type and event screens offscreen: their grid models, filters and sorts,
// the commands and the way to results and entries.

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>
#include <QTest>

#include "meets/EventListModel.h"
#include "meets/EventScreens.h"
#include "meets/MeetCardScreen.h"
#include "meets/MeetListModel.h"
#include "meets/MeetListScreen.h"
#include "meets/ResultsFixture.h"
#include "meets/MeetTexts.h"
#include "meets/MeetTypeModel.h"
#include "meets/MeetTypeScreens.h"
#include "support/QtApp.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

using test::AddEventRow;
using test::AddMeetRow;

class MeetScreens : public test::DbTest {
 protected:
  void SetUp() override { test::QtApp(); }
  static QStringList Column(QAbstractItemModel* model, int column) {
    QStringList out;
    for (int r = 0; r < model->rowCount(); ++r) out << model->index(r, column).data().toString();
    return out;
  }
};

TEST_F(MeetScreens, MeetListModelColumnsSortsAndFilters) {
  AddMeetRow(Db(), "Bay Open", "2026-03-01", "YO", "USS", "2026-03-02");
  AddMeetRow(Db(), "Alder Dual", "2025-12-01", "S");
  AddMeetRow(Db(), "Goal", "2026-06-01", "Y", "G");
  MeetListModel model(t.state);
  QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  model.Reload();
  ASSERT_EQ(model.columnCount(), 8);
  QStringList headers;
  for (int c = 0; c < 8; ++c) headers << model.headerData(c, Qt::Horizontal).toString();
  EXPECT_EQ(headers, (QStringList{"Meet Name", "Start Date", "Course", "Type", "End", "Ageup",
                                  "Since", "Location"}));
  EXPECT_EQ(Column(&model, 0), (QStringList{"Bay Open", "Alder Dual"}));
  EXPECT_EQ(model.index(0, 1).data().toString(), "03/01/2026");
  EXPECT_EQ(model.index(0, 4).data().toString(), "03/02/2026");
  model.SortByColumn(1);  // start: newest first turns to oldest first
  EXPECT_EQ(model.Filter().sort, MeetSort::kStartOldest);
  EXPECT_EQ(Column(&model, 0), (QStringList{"Alder Dual", "Bay Open"}));
  model.SortByColumn(1);
  EXPECT_EQ(model.Filter().sort, MeetSort::kStartNewest);
  model.SortByColumn(7);  // no sort of its own
  EXPECT_EQ(model.Filter().sort, MeetSort::kStartNewest);
  MeetFilter only_y = model.Filter();
  only_y.course = 'Y';
  model.SetFilter(only_y);
  EXPECT_EQ(Column(&model, 0), (QStringList{"Bay Open"}));
}

TEST_F(MeetScreens, DroppingOneMeetOnAnotherMergesAfterTheQuestion) {
  const int32_t a = AddMeetRow(Db(), "Bay Open", "2026-03-01");
  const int32_t b = AddMeetRow(Db(), "Bay Open 2", "2026-03-02");
  MeetListModel model(t.state);
  model.Reload();
  QSignalSpy spy(&model, &MeetListModel::mergeRequested);
  std::unique_ptr<QMimeData> data(model.mimeData({model.index(model.RowOf(a), 0)}));
  ASSERT_TRUE(data);
  EXPECT_FALSE(
      model.dropMimeData(data.get(), Qt::MoveAction, -1, -1, model.index(model.RowOf(b), 0)));
  ASSERT_EQ(spy.count(), 1);
  EXPECT_EQ(spy.at(0).at(0).toInt(), a);
  EXPECT_EQ(spy.at(0).at(1).toInt(), b);
  EXPECT_EQ(model.rowCount(), 2);
  frmMeets screen(t.state);  // the screen merges after the question
  screen.MergeRows(screen.Model()->RowOf(a), screen.Model()->RowOf(b));
  EXPECT_TRUE(t.io.Saw("Operation is not reversible!  Backup is recommended first."));
  EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"Bay Open 2"}));
}

TEST_F(MeetScreens, MeetListStartsFromFavouriteAndFollowsTheRow) {
  AddMeetRow(Db(), "Bay Open", "2026-03-01", "L", "USS");
  const int32_t cove = AddMeetRow(Db(), "Cove Cup", "2026-04-01", "L");
  AddMeetRow(Db(), "Dune Dual", "2026-05-01", "Y", "USS");
  Db().exec("INSERT INTO CODE (ABBR, \"DESC\", TYPE) VALUES ('USS', 'Club', 3)");
  t.state.gFavoriteCourse = "L";
  frmMeets screen(t.state);
  test::Shoot(screen, "frmMeets");
  EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"Cove Cup", "Bay Open"}));
  EXPECT_EQ(test::Child<QLabel>(screen, "lblSort")->text(), "Start Date (newest first)");
  QTest::keyClick(screen.Grid(), Qt::Key_C);
  EXPECT_EQ(screen.Grid()->currentIndex().row(), 0);
  EXPECT_EQ(t.state.gCurrentMeet, cove);
  QTest::keyClick(screen.Grid(), Qt::Key_B);
  EXPECT_EQ(screen.Grid()->currentIndex().row(), 0);  // "Cove Cup" is the first from B here
  test::Child<QComboBox>(screen, "cboCourse")->setCurrentIndex(0);
  auto* type = test::Child<QComboBox>(screen, "cboMeetType");
  type->setCurrentIndex(type->findData("USS"));
  EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"Dune Dual", "Bay Open"}));
  screen.Grid()->horizontalHeader()->sectionClicked(0);
  EXPECT_EQ(test::Child<QLabel>(screen, "lblSort")->text(), "Meet Name");
  EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"Bay Open", "Dune Dual"}));
}

TEST_F(MeetScreens, EmptyListOffersTheCardAndResultsAndEntriesOpenThroughCallbacks) {
  frmMeets empty(t.state);
  empty.OfferAddWhenEmpty();
  EXPECT_TRUE(t.io.Saw(
      "Since there are no meets setup yet, KVL-R will take you directly to the Meet Add Form."));
  auto* card = empty.findChild<frmMeetMaint*>("frmMeetMaint");
  ASSERT_NE(card, nullptr);
  card->reject();
  empty.Edit();
  EXPECT_EQ(LastShown(), "No meets have been setup yet.");
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01");
  AddEventRow(Db(), "MTEVENTE", meet, 1);
  frmMeets screen(t.state);
  int32_t results = 0;
  int32_t entries = 0;
  screen.SetOpenResults([&](int32_t m) { results = m; });
  screen.SetOpenEntries([&](int32_t m) { entries = m; });
  screen.Grid()->setCurrentIndex(screen.Model()->index(0, 0));
  screen.Entries();
  EXPECT_EQ(entries, meet);
  t.io.Script({Answer::kNo});  // no copy: the result events screen opens instead
  screen.Results();
  EXPECT_EQ(results, 0);
  auto* events = screen.findChild<frmEvent*>("frmEvent");
  ASSERT_NE(events, nullptr);
  events->reject();
  screen.Results();  // Yes copies the entry events
  EXPECT_EQ(results, meet);
  EXPECT_EQ(t.state.gCurrentMeet, meet);
}

TEST_F(MeetScreens, MeetCardSavesAndKeepsTheCheckWords) {
  Db().exec("INSERT INTO CODE (ABBR, \"DESC\", TYPE) VALUES ('USS', 'Club', 3)");
  frmMeetMaint card(t.state, 0);
  test::Shoot(card, "frmMeetMaint");
  test::Child<QLineEdit>(card, "txtMName")->setText("Harbor Sprint");
  EXPECT_FALSE(card.Save());
  EXPECT_EQ(LastShown(), "Please select a course");
  auto* course = test::Child<QComboBox>(card, "cboCourse");
  course->setCurrentIndex(course->findData("SO"));
  EXPECT_EQ(course->currentText(), "Use best SC Meter times only");
  test::Child<QLineEdit>(card, "txtStart")->setText("07/04/2026");
  auto* type = test::Child<QComboBox>(card, "CSCboMeetType");
  type->setCurrentIndex(type->findData("USS"));
  ASSERT_TRUE(card.Save());
  EXPECT_EQ(card.result(), QDialog::Accepted);
  const auto saved = LoadMeet(Db(), card.SavedMeet());
  ASSERT_TRUE(saved);
  EXPECT_EQ(saved->course, "SO");
  EXPECT_EQ(saved->type, "USS");
  EXPECT_EQ(saved->start, (Date{2026, 7, 4}));
  frmMeetMaint edit(t.state, card.SavedMeet());
  EXPECT_EQ(edit.Form().mname, "Harbor Sprint");
  EXPECT_EQ(edit.Form().start, "07/04/2026");
}

TEST_F(MeetScreens, MeetTypeListAndCard) {
  Db().exec("DELETE FROM CODE");
  Db().exec(
      "INSERT INTO CODE (ABBR, \"DESC\", TYPE) VALUES ('USS', 'Club', 3), "
      "('HS', 'High School', 3)");
  frmCodes screen(t.state);
  test::Shoot(screen, "frmCodes");
  QAbstractItemModelTester tester(screen.Model(),
                                  QAbstractItemModelTester::FailureReportingMode::Fatal);
  EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"USS", "HS"}));
  screen.Grid()->horizontalHeader()->sectionClicked(0);
  EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"HS", "USS"}));
  screen.Add();
  auto* card = screen.findChild<frmCodMt*>("frmCodMt");
  ASSERT_NE(card, nullptr);
  card->AbbrBox()->setText("JV");
  EXPECT_FALSE(card->Save());
  EXPECT_EQ(LastShown(), "You must enter a Description");
  card->DescBox()->setText("Junior Varsity");
  ASSERT_TRUE(card->Save());
  EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"HS", "JV", "USS"}));
  screen.Help();
  EXPECT_EQ(LastShown(), meettxt::kMeetTypeHelp);
}

TEST_F(MeetScreens, EventListModelFiltersAndSorts) {
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01", "L");
  AddEventRow(Db(), "MTEVENT", meet, 2, "", 1112, 100, 2, "M");
  AddEventRow(Db(), "MTEVENT", meet, 1, "A", 1599, 400, 5, "F");
  AddEventRow(Db(), "MTEVENT", meet, 3, "", 10, 200, 1, "X", "R");
  frmEvent screen(t.state, EventList::kResults, meet);
  test::Shoot(screen, "frmEvent");
  EXPECT_EQ(screen.windowTitle(), "Bay Open  - 03/01/2026 LC Meters [Results]");
  QAbstractItemModelTester tester(screen.Model(),
                                  QAbstractItemModelTester::FailureReportingMode::Fatal);
  EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"1A", "2", "3"}));
  EXPECT_EQ(Column(screen.Model(), 3), (QStringList{"IM", "Back", "Free Relay"}));
  EXPECT_EQ(Column(screen.Model(), 4), (QStringList{"15 & Over", "11 - 12", "10 & Under"}));
  screen.Grid()->horizontalHeader()->sectionClicked(1);
  EXPECT_EQ(Column(screen.Model(), 1), (QStringList{"X", "M", "F"}));
  EXPECT_EQ(test::Child<QLabel>(screen, "lblSort")->text(), "(Men First)");
  screen.Grid()->horizontalHeader()->sectionClicked(1);
  EXPECT_EQ(test::Child<QLabel>(screen, "lblSort")->text(), "(Women Last)");
  auto* stroke = test::Child<QComboBox>(screen, "cboStroke");
  stroke->setCurrentIndex(stroke->findData(2));
  EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"2"}));
}

TEST_F(MeetScreens, EventCardAddsAndStaysOpen) {
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01", "Y");
  frmEvent list(t.state, EventList::kEntries, meet);
  list.Add();
  auto* card = list.findChild<frmEvntAdd*>("frmEvntAdd");
  ASSERT_NE(card, nullptr);
  test::Shoot(*card, "frmEvntAdd");
  card->NumberBox()->setText("4b");
  card->LowBox()->setValue(11);
  card->HighBox()->setValue(12);
  card->DistanceBox()->setCurrentIndex(card->DistanceBox()->findData(200));
  card->StrokeBox()->setCurrentIndex(card->StrokeBox()->findData(3));
  card->SexBox()->setCurrentIndex(card->SexBox()->findData("F"));
  EXPECT_TRUE(card->Dirty());
  EXPECT_FALSE(card->ShowEvent(0));
  EXPECT_EQ(LastShown(), "You need to save your changes before changing to a new event.");
  ASSERT_TRUE(card->Save());
  EXPECT_EQ(card->Status(), "New Event Added");
  EXPECT_EQ(Column(list.Model(), 0), (QStringList{"4B"}));
  EXPECT_TRUE(card->ShowEvent(0));
  EXPECT_EQ(card->NumberBox()->text(), "");
  EXPECT_EQ(card->LowBox()->value(), 11);  // the next event keeps the age group
  card->NumberBox()->setText("12345");
  emit card->NumberBox()->editingFinished();
  EXPECT_EQ(LastShown(), "3 digits and one alpha character permitted.");
}

TEST_F(MeetScreens, ResultListOffersEntryEventsAndCopiesFromAnotherMeet) {
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01", "Y");
  const int32_t other = AddMeetRow(Db(), "Cove Cup", "2025-03-01", "Y");
  AddEventRow(Db(), "MTEVENTE", meet, 1);
  AddEventRow(Db(), "MTEVENT", other, 7);
  AddEventRow(Db(), "MTEVENT", other, 8, "", 99, 200, 1, "F", "R");
  {
    frmEvent screen(t.state, EventList::kResults, meet);
    screen.OfferEntryEvents();
    EXPECT_TRUE(t.io.Saw("Do you want to copy the Entry Events for use with Results?"));
    EXPECT_EQ(Column(screen.Model(), 0), (QStringList{"1"}));
  }
  frmCopyEvents copy(t.state, EventList::kResults, meet);
  test::Shoot(copy, "frmCopyEvents");
  auto* meets = copy.MeetBox();
  meets->setCurrentIndex(meets->findData(other));
  copy.SetWhich(CopyWhich::kRelay);
  ASSERT_TRUE(copy.Copy());
  EXPECT_TRUE(t.io.Saw("No Entry Events found.  Will try to copy Result Events."));
  EXPECT_EQ(Count("SELECT MtEv FROM MTEVENT WHERE Meet = ?", meet), 8);
}

}  // namespace
}  // namespace kvlr
