#include <fstream>

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>

#include "StandardFixture.h"
#include "standards/StandardScreens.h"
#include "standards/StandardTexts.h"
#include "support/QtApp.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

using test::AddLine;
using test::MakeStandard;

class StandardScreens : public test::DbTest {
 protected:
  StandardScreens() {
    test::QtApp();
    MakeStandard(Db(), "JO", {"AA", "A"});
    MakeStandard(Db(), "Zone", {"Z"});
    AddLine(Db(), "JO", "M", "I", 11, 12, 100, 1, {{'Y', 0, 5500, 5000}, {'Y', 1, 6000}});
    AddLine(Db(), "JO", "F", "R", 0, 10, 200, 5);
    AddLine(Db(), "JO", "F", "I", 13, 14, 50, 2);
    t.state.gStandardName = "JO";
  }
};

TEST_F(StandardScreens, GridShowsTheCurrentStandardByCourseFilteredAndSorted) {
  frmStan screen(t.state);
  QAbstractItemModelTester tester(&screen.Model(),
                                  QAbstractItemModelTester::FailureReportingMode::Warning);
  StanModel& model = screen.Model();
  ASSERT_EQ(model.rowCount(), 3);
  ASSERT_EQ(model.columnCount(), 10);
  EXPECT_EQ(model.headerData(6, Qt::Horizontal, Qt::DisplayRole).toString(), "Slower\nAA");
  EXPECT_EQ(model.headerData(7, Qt::Horizontal, Qt::DisplayRole).toString(), "Faster\nAA");
  // Start sort: Lo_Age first.
  EXPECT_EQ(model.data(model.index(0, 0), Qt::DisplayRole).toString(), "F");
  EXPECT_EQ(model.data(model.index(1, 7), Qt::DisplayRole).toString(), "55.00");
  EXPECT_EQ(model.data(model.index(1, 6), Qt::DisplayRole).toString(), "50.00");
  screen.SetCourse(GridCourse::kAll);
  EXPECT_EQ(model.columnCount(), 18);
  screen.SelectStandard("Zone");
  EXPECT_EQ(model.rowCount(), 0);
  EXPECT_EQ(model.columnCount(), 12);
  screen.SelectStandard("JO");
  screen.SetCourse(GridCourse::kSCY);
  test::Shoot(screen, "frmStan");
  // Edited times are stored at once, bad ones refused.
  const QModelIndex cell = model.index(1, 9);  // Faster A, boys 100 free
  EXPECT_TRUE(model.setData(cell, "1:02.5", Qt::EditRole));
  EXPECT_EQ(model.data(cell, Qt::DisplayRole).toString(), "1:02.50");
  EXPECT_EQ(test::QueryNumber(Db(), "SELECT \"S(25)\" FROM JO WHERE Sex = 'M'"), 6250);
  EXPECT_FALSE(model.setData(cell, "fast", Qt::EditRole));
  EXPECT_TRUE(t.io.Saw("Invalid Time"));
  EXPECT_FALSE(model.setData(model.index(1, 0), "F", Qt::EditRole));
  EXPECT_TRUE(model.setData(cell, "", Qt::EditRole));
  EXPECT_EQ(test::QueryNumber(Db(), "SELECT \"S(25)\" IS NULL FROM JO WHERE Sex = 'M'"), 1);
  // Filters and heading sorts.
  screen.findChild<QComboBox*>("cboSex")->setCurrentIndex(2);  // Females
  EXPECT_EQ(model.rowCount(), 2);
  screen.findChild<QComboBox*>("cboStroke")->setCurrentIndex(2);  // Back
  EXPECT_EQ(model.rowCount(), 1);
  screen.findChild<QComboBox*>("cboSex")->setCurrentIndex(0);
  screen.findChild<QComboBox*>("cboStroke")->setCurrentIndex(0);
  ASSERT_EQ(model.rowCount(), 3);
  screen.ClickHeading(5);
  EXPECT_EQ(screen.SortCaption(), "(Relays First)");
  EXPECT_EQ(model.Line(0).i_r, "R");
  screen.ClickHeading(5);
  EXPECT_EQ(screen.SortCaption(), "(Relays Last)");
  EXPECT_EQ(model.Line(2).i_r, "R");
  screen.ClickHeading(3);  // Distance
  EXPECT_EQ(model.Line(0).distance, 50);
  EXPECT_EQ(screen.SortCaption(), "");
}

TEST_F(StandardScreens, DeletingALineAndTheWholeStandardAsk) {
  frmStan screen(t.state);
  StanModel& model = screen.Model();
  t.io.Script({Answer::kNo});
  screen.DeleteOneStandard(1);
  EXPECT_EQ(model.rowCount(), 3);
  EXPECT_EQ(t.io.shown.back().title, "Remove Standard");
  screen.DeleteOneStandard(1);
  EXPECT_EQ(model.rowCount(), 2);
  screen.RemoveEntireStandard();
  EXPECT_TRUE(t.io.Saw("Are you sure you want to delete the [JO] Time Standard ?"));
  EXPECT_FALSE(TableExists(Db(), "JO"));
  auto* list = screen.findChild<QComboBox*>("cboStandards");
  ASSERT_EQ(list->count(), 1);
  EXPECT_EQ(list->currentData().toString(), "Zone");
  screen.RemoveEntireStandard();
  EXPECT_EQ(list->count(), 0);
  EXPECT_EQ(screen.OpenAdd(), nullptr);
  EXPECT_TRUE(t.io.Saw("No Standard has been added yet."));
}

TEST_F(StandardScreens, AddingALineFromTheFilteredGridFixesTheSex) {
  frmStan screen(t.state);
  screen.findChild<QComboBox*>("cboSex")->setCurrentIndex(1);  // Males
  frmStanAdd* add = screen.OpenAdd();
  ASSERT_NE(add, nullptr);
  EXPECT_FALSE(add->sex_->isEnabled());
  EXPECT_EQ(add->Form().sex, "M");
  EXPECT_FALSE(add->Save());
  EXPECT_EQ(t.io.shown.back().text, "Please set the age range.");
  add->ages_->setCurrentIndex(kOtherAgeRange);
  EXPECT_TRUE(add->lo_->isEnabled());
  add->lo_->setValue(19);
  add->hi_->setValue(99);
  add->distance_->setCurrentIndex(add->distance_->findData(200));
  add->stroke_->setCurrentIndex(0);
  add->relay_->setChecked(true);
  test::Shoot(*add, "frmStanAdd");
  ASSERT_TRUE(add->Save());
  EXPECT_EQ(screen.Model().rowCount(), 2);
  StandardFilter filter;
  filter.lo_age = 19;
  const auto lines = ReadStandardLines(Db(), "JO", filter, kStartSort);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].i_r, "R");
  EXPECT_EQ(lines[0].distance, 200);
}

TEST_F(StandardScreens, ANewStandardIsListedAndShown) {
  frmStan screen(t.state);
  frmDesig* desig = screen.OpenDesig();
  desig->name_->setText("Sect");
  desig->designators_[0]->setText("S1");
  desig->designators_[2]->setText("S3");
  test::Shoot(*desig, "frmDesig");
  EXPECT_FALSE(desig->Save());
  EXPECT_EQ(t.io.shown.back().text, "You can't skip any lines when adding designators.");
  desig->designators_[1]->setText("S2");
  desig->long_names_[1]->setText("Second");
  ASSERT_TRUE(desig->Save());
  auto* list = screen.findChild<QComboBox*>("cboStandards");
  EXPECT_EQ(list->count(), 3);
  EXPECT_EQ(list->currentData().toString(), "Sect");
  EXPECT_EQ(screen.Model().columnCount(), 12);
  EXPECT_EQ(ReadStandardDefinition(Db(), "Sect")->long_names[1], "Second");
}

TEST_F(StandardScreens, CsvImportRefusalIsTold) {
  frmStan screen(t.state);
  std::filesystem::create_directories(t.Data());
  const auto file = t.Data() / "bad.csv";
  { std::ofstream(file) << "Sex,I_R\n"; }
  screen.ImportCsv(file.string());
  EXPECT_TRUE(t.io.Saw("Line 1"));
  EXPECT_EQ(screen.Model().rowCount(), 3);
  screen.ExportCsv((t.Data() / "jo.csv").string());
  EXPECT_TRUE(std::filesystem::exists(t.Data() / "jo.csv"));
  // Even after the file dialog's own question, the open database is never written over.
  const auto size = std::filesystem::file_size(t.state.gDatabaseName);
  screen.ExportCsv(t.state.gDatabaseName, true);
  EXPECT_TRUE(t.io.Saw("is a database, not a CSV file"));
  EXPECT_EQ(std::filesystem::file_size(t.state.gDatabaseName), size);
}

TEST_F(StandardScreens, MakeCurrentIsStoredShownAndJudgedAgainst) {
  auto option = [&] {
    return Db().execAndGet("SELECT ifnull(Standard, '') FROM OPTIONS").getString();
  };
  t.state.gStandardName = "";
  frmStan screen(t.state);
  auto* current = screen.findChild<QLabel*>("lblCurrent");
  ASSERT_NE(current, nullptr);
  EXPECT_EQ(current->text(), "No current standard");
  screen.SelectStandard("JO");
  screen.MakeCurrent();
  EXPECT_EQ(option(), "JO");
  EXPECT_EQ(current->text(), "Current standard: JO");
  int16_t level = 0;
  EXPECT_EQ(GetStandard(t.state, level, 5400, "M", 100, 1, 11, "Y", false), "AA");
  test::Shoot(screen, "frmStan-current");
  t.io.Script({Answer::kYes});
  screen.RemoveEntireStandard();
  EXPECT_EQ(option(), "") << "a removed standard is no longer current";
  EXPECT_EQ(current->text(), "No current standard");
  // With none current, the next standard made becomes current.
  StandardDefinition def;
  def.name = "Fall";
  def.designators[0] = "B";
  ASSERT_TRUE(SaveNewStandard(t.state, def, ""));
  EXPECT_EQ(option(), "Fall");
}

}  // namespace
}  // namespace kvlr
