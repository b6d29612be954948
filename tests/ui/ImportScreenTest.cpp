// frmImpCL over a scripted user and scripted file dialogs: the statistics grid, the one
// button through its states, the choice of a file (zips included) and a whole import.

#include "interchange/ImportScreen.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "athletes/CurrentAthlete.h"
#include "core/FileOps.h"
#include "interchange/FileMaker.h"
#include "interchange/ImportChoice.h"
#include "interchange/ImportRun.h"
#include "interchange/ImportStatsModel.h"
#include "store/ReportDatabase.h"
#include "store/ZipArchive.h"
#include "support/QtApp.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::Child;
using test::Shoot;
using testing::SdifFile;

QString Caption(frmImpCL& screen) {
  return Child<QPushButton>(screen, "cmdImport")->text();
}

// Answers the file dialogs in turn and remembers what they were opened with.
struct Picker {
  explicit Picker(std::vector<QString> answers = {}) : answers(std::move(answers)) {}
  std::vector<QString> answers;
  std::vector<ImportFileAsk> asked;
  ImportFilePicker Get() {
    return [this](QWidget*, const ImportFileAsk& ask) {
      asked.push_back(ask);
      if (asked.size() > answers.size()) return QString();
      return answers[asked.size() - 1];
    };
  }
};

// A database with the swimmer Jane Doe current, and a made-up results file of her swims.
class ImportScreenTest : public test::DbTest {
 protected:
  ImportScreenTest() {
    test::QtApp();
    CheckReportTables(t.state);
    SetCurrentAthlete(t.state, test::AddAthlete(Db(), "Doe", "Jane", "F"));
  }
  // The file as the opening checks leave it.
  ImportFile Prepared() {
    SdifFile made;
    made.Swim().Swim("event_number=14|distance=50|finals_time=29.10");
    ImportFile file;
    file.path = t.Data() / "autumn.cl2";
    file.extension = ".CL2";
    file.lines = made.Lines();
    file.panel = {.file_name = "autumn.cl2",
                  .created_by = "Norvan, Ltd 1.0",
                  .file_type = "Meet Results",
                  .meet_name = "Autumn Made-Up Invite",
                  .start_date = "11/01/2026",
                  .start = std::nullopt};
    file.counts.Checked(ImportRow::kMeets) = 1;
    file.counts.Checked(ImportRow::kTeams) = 1;
    file.counts.Checked(ImportRow::kIndividual) = 2;
    file.ready = true;
    file.status = " Import File Checked - Click OK to Import ";
    return file;
  }
};

TEST(ImportStatsModel, ShowsBothColumnsOfTheFiveRows) {
  test::QtApp();
  ImportStatsModel model;
  QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  ASSERT_EQ(model.rowCount(), 5);
  ASSERT_EQ(model.columnCount(), 2);
  const char* rows[] = {"Meets", "Teams", "Individual Results", "Relay Results", "Splits"};
  for (int r = 0; r < 5; ++r) EXPECT_EQ(model.headerData(r, Qt::Vertical).toString(), rows[r]);
  EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), " Records Checked");
  EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "Records Processed");
  QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  ImportCounts counts;
  counts.Checked(ImportRow::kRelay) = 7;
  counts.Processed(ImportRow::kSplits) = 12;
  model.SetCounts(counts);
  EXPECT_EQ(changed.count(), 1);
  EXPECT_EQ(model.data(model.index(3, 0)).toInt(), 7);
  EXPECT_EQ(model.data(model.index(3, 1)).toInt(), 0);
  EXPECT_EQ(model.data(model.index(4, 1)).toInt(), 12);
}

TEST_F(ImportScreenTest, CaptionAndCriteriaFollowTheMode) {
  t.state.gUseLeadOff = true;
  frmImpCL import(t.state, ImportMode::kImport);
  EXPECT_EQ(import.windowTitle(), "Import Results");
  EXPECT_EQ(Caption(import), "Import");
  EXPECT_FALSE(Child<QGroupBox>(import, "fraCriteria")->isHidden());
  EXPECT_TRUE(import.Criteria().lead_off) << "from the database's option";
  EXPECT_FALSE(Child<QCheckBox>(import, "chkImportAll")->isEnabled()) << "one swimmer only";
  Child<QCheckBox>(import, "SSChkImport0")->setChecked(true);
  Child<QCheckBox>(import, "SSChkImport1")->setChecked(false);
  const ImportCriteria criteria = import.Criteria();
  EXPECT_TRUE(criteria.overlay_results);
  EXPECT_FALSE(criteria.import_splits);
  frmImpCL report(t.state, ImportMode::kReport);
  EXPECT_EQ(Caption(report), "Print");
  EXPECT_TRUE(Child<QGroupBox>(report, "fraCriteria")->isHidden());
}

TEST_F(ImportScreenTest, NothingChosenLeavesNothingToImport) {
  frmImpCL screen(t.state, ImportMode::kOnline);
  Picker picker;
  screen.SetFilePicker(picker.Get());
  screen.show();
  for (int i = 0; i < 5 && picker.asked.empty(); ++i) test::QtApp().processEvents();
  ASSERT_EQ(picker.asked.size(), 1u) << "the dialog opens with the screen";
  EXPECT_EQ(picker.asked[0].title, "Import Results");
  EXPECT_EQ(picker.asked[0].filter, "CSO Result files (KVLR_*.txt) (KVLR_*.txt KVLR_*.TXT)");
  EXPECT_EQ(picker.asked[0].folder.toStdString(), t.state.gDataDir.string());
  EXPECT_TRUE(t.io.shown.empty()) << "a cancelled dialog says nothing";
  Child<QPushButton>(screen, "cmdImport")->click();  // refused
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].text, "No valid import file selected.");
  EXPECT_EQ(screen.Button(), frmImpCL::ButtonState::kRun);
  EXPECT_FALSE(screen.Outcome().has_value());
}

TEST_F(ImportScreenTest, AZipIsRefusedByNameOrUnpackedForASecondDialog) {
  {
    frmImpCL screen(t.state, ImportMode::kImport);
    Picker picker{{QString::fromStdString((t.Root() / "SWGSBK0301.ZIP").string())}};
    screen.SetFilePicker(picker.Get());
    EXPECT_FALSE(screen.ChooseImportFile());
    EXPECT_EQ(picker.asked.size(), 1u);
    ASSERT_EQ(t.io.shown.size(), 1u);
    EXPECT_EQ(t.io.shown[0].text, *ZipRefusal("SWGSBK0301.ZIP"));
  }
  std::vector<ZipSource> members;
  for (const char* name : {"meet.cl2", "meet.nv3"}) {
    WriteFileAtomically(t.Root() / name, "made up\r\n");
    members.push_back({name, t.Root() / name});
  }
  const fs::path zip = t.Root() / "autumn.zip";
  ZipArchive::Create(zip, members, "", 6);
  struct Case {
    ImportMode mode;
    const char* selected;
  } cases[] = {
      {ImportMode::kImport, "Result/Roster files (*.nv3) (*.nv3 *.NV3)"},
      {ImportMode::kReport, "Reportable files (*.nv3,*.cl2) (*.nv3 *.NV3 *.cl2 *.CL2)"},
  };
  for (const auto& c : cases) {
    fs::path folder;
    {
      frmImpCL screen(t.state, c.mode);
      std::vector<ImportFileAsk> asked;
      // The zip, then the .nv3 of the list.
      screen.SetFilePicker([&](QWidget*, const ImportFileAsk& ask) {
        asked.push_back(ask);
        return asked.size() == 1 ? QString::fromStdString(zip.string()) : ask.folder + "/meet.nv3";
      });
      EXPECT_FALSE(screen.ChooseImportFile()) << "the made-up .nv3 is refused";
      ASSERT_EQ(asked.size(), 2u);
      folder = asked[1].folder.toStdString();
      EXPECT_EQ(folder.parent_path(), t.state.home.TempDir()) << "a run folder of its own";
      EXPECT_TRUE(fs::exists(folder / "meet.nv3")) << "kept while the screen is open";
      EXPECT_EQ(asked[1].selected_filter, c.selected);
      EXPECT_TRUE(asked[1].filter.split(";;").contains(c.selected));
    }
    EXPECT_FALSE(fs::exists(folder));
  }
  EXPECT_TRUE(t.io.Saw("double click on the file you wish to import."));
  EXPECT_TRUE(t.io.Saw("double click on the file you wish to report."));
}

TEST_F(ImportScreenTest, TheButtonImportsThenCloses) {
  frmImpCL screen(t.state, ImportMode::kImport);
  screen.ShowFile(Prepared());
  EXPECT_EQ(Child<QLabel>(screen, "lblMeetName")->text(), "Autumn Made-Up Invite");
  EXPECT_EQ(screen.Statistics().Counts().checked[2], 2);
  EXPECT_EQ(Caption(screen), "Import");
  Child<QPushButton>(screen, "cmdImport")->click();
  ASSERT_TRUE(screen.Outcome().has_value());
  EXPECT_TRUE(screen.Outcome()->ok);
  EXPECT_EQ(Child<QLabel>(screen, "lblStatus")->text().toStdString(), " Import Successful ");
  const ImportCounts& shown = screen.Statistics().Counts();
  EXPECT_EQ(shown.checked[2], 2) << "the checked column stays";
  EXPECT_EQ(shown.processed[2], 2);
  EXPECT_EQ(Caption(screen), "Close");
  EXPECT_FALSE(Child<QGroupBox>(screen, "fraCriteria")->isEnabled());
  EXPECT_TRUE(Child<QProgressBar>(screen, "prgImport")->isHidden());
  EXPECT_FALSE(t.io.Saw("Not all data was imported.  Do you want to view the exception report?"));
  Child<QPushButton>(screen, "cmdImport")->click();
  EXPECT_EQ(screen.result(), QDialog::Accepted);
  // The same swims again: nothing is overlaid and the exception report is offered.
  frmImpCL again(t.state, ImportMode::kImport);
  again.ShowFile(Prepared());
  t.io.Script({Answer::kNo});
  Child<QPushButton>(again, "cmdImport")->click();
  ASSERT_TRUE(again.Outcome().has_value());
  EXPECT_TRUE(again.Outcome()->not_all_imported);
  EXPECT_TRUE(t.io.Saw("Not all data was imported.  Do you want to view the exception report?"));
}

TEST_F(ImportScreenTest, AChosenFileIsCheckedIntoThePanelAndImported) {
  SdifFile made;
  made.Swim().Swim("event_number=14|distance=50|finals_time=29.10");
  made.Relay();
  const fs::path file = t.Data() / "autumn.cl2";
  WriteFileAtomically(file, made.Text());
  frmImpCL screen(t.state, ImportMode::kImport);
  Picker picker{{QString::fromStdString(file.string())}};
  screen.SetFilePicker(picker.Get());
  ASSERT_TRUE(screen.ChooseImportFile());
  EXPECT_EQ(screen.File().extension, ".CL2");
  EXPECT_EQ(Child<QLabel>(screen, "lblFileName")->text(), "autumn.cl2");
  EXPECT_EQ(Child<QLabel>(screen, "lblMeetName")->text().trimmed(), "Autumn Made-Up Invite");
  EXPECT_FALSE(Child<QLabel>(screen, "lblCreatedBy")->text().isEmpty());
  EXPECT_EQ(screen.Statistics().Counts().checked[2], 2);
  EXPECT_EQ(Caption(screen), "Import");
  EXPECT_TRUE(Child<QProgressBar>(screen, "prgImport")->isHidden());
  Shoot(screen, "frmImpCL-checked");
  Child<QPushButton>(screen, "cmdImport")->click();
  ASSERT_TRUE(screen.Outcome().has_value());
  EXPECT_TRUE(screen.Outcome()->ok);
  EXPECT_EQ(screen.Statistics().Counts().processed[2], 2);
  Shoot(screen, "frmImpCL-imported");
  frmImpCL report(t.state, ImportMode::kReport);
  ASSERT_TRUE(report.LoadFile(file));
  EXPECT_EQ(Caption(report), "Print");
  EXPECT_TRUE(Child<QLabel>(report, "lblStatus")->text().contains("Format Report"));
  Shoot(report, "frmImpCL-report");
}

TEST_F(ImportScreenTest, DuringARunTheButtonAsksToStop) {
  frmImpCL screen(t.state, ImportMode::kImport);
  screen.ShowFile(Prepared());
  screen.show();
  QString during;
  // Fires while the run serves events between lines.
  QTimer::singleShot(0, &screen, [&] {
    during = Caption(screen);
    t.io.Script({Answer::kNo, Answer::kYes});
    Child<QPushButton>(screen, "cmdImport")->click();  // no: goes on
    screen.reject();                                   // closing asks too: yes
  });
  Child<QPushButton>(screen, "cmdImport")->click();
  EXPECT_EQ(during, "Cancel");
  int asked = 0;
  for (const auto& s : t.io.shown) asked += s.text == "Do you want to stop importing this file?";
  EXPECT_EQ(asked, 2);
  ASSERT_TRUE(screen.Outcome().has_value());
  EXPECT_TRUE(screen.Outcome()->cancelled);
  EXPECT_TRUE(screen.isVisible()) << "the stop request didn't close the screen";
  EXPECT_EQ(Caption(screen), "Close");
}

TEST_F(ImportScreenTest, AllFamilyTakesEverySwimmerOfTheFamilyAsTheToolDoes) {
  // A second swimmer, added while the program runs; the older one stays current.
  SQLite::Statement add(*t.state.gDb,
                        "INSERT INTO ATHLETE (Last, First, Sex, Pref) VALUES (?, ?, ?, ?)");
  SQLite::bind(add, "Doe", "Tom", "M", "");
  add.exec();
  SdifFile made;
  made.Swim().Swim("swimmer_name=DOE, TOM|sex=M|event_sex=M|event_number=13");
  const fs::path file = t.Data() / "family.cl2";
  WriteFileAtomically(file, made.Text());
  frmImpCL screen(t.state, ImportMode::kImport);
  ASSERT_TRUE(screen.LoadFile(file));
  auto* all = Child<QCheckBox>(screen, "chkImportAll");
  ASSERT_TRUE(all->isEnabled()) << "the second swimmer counts at once";
  all->setChecked(true);
  Child<QPushButton>(screen, "cmdImport")->click();
  ASSERT_TRUE(screen.Outcome().has_value());
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT COUNT(DISTINCT Athlete) FROM RESULT"), 2);
  Shoot(screen, "frmImpCL-family");
  // The same file again: every line is refused, and the screen says so.
  frmImpCL again(t.state, ImportMode::kImport);
  ASSERT_TRUE(again.LoadFile(file));
  Child<QCheckBox>(again, "chkImportAll")->setChecked(true);
  t.io.shown.clear();
  t.io.Script({Answer::kNo});
  Child<QPushButton>(again, "cmdImport")->click();
  EXPECT_TRUE(t.io.Saw("Not all data was imported.  Do you want to view the exception report?"));
}

}  // namespace
}  // namespace kvlr
