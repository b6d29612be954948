// The main window as a user meets it: start-up in each state, login, menus, the way out;
// the backup, restore and re-rank screens doing their work.

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include <SQLiteCpp/Statement.h>

#include "core/FileOps.h"
#include "core/MainWindow.h"
#include "core/ShellDialogs.h"
#include "meets/ReRankScreen.h"
#include "meets/ResultsFixture.h"
#include "store/Backup.h"
#include "store/BackupScreen.h"
#include "store/LastDatabase.h"
#include "store/RestoreScreen.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::MakeOpenDatabase;
using test::TempHome;

class MainWindowTest : public ::testing::Test {
 protected:
  void SetUp() override { test::QtApp(); }
  // A database with these swimmers, remembered as the last one used and closed again.
  void LastDatabaseWith(std::initializer_list<const char*> firsts) {
    MakeOpenDatabase(t);
    for (const char* first : firsts) test::AddAthlete(*t.state.gDb, "Lane", first);
    SaveLastDatabase(t.state);
    t.state.CloseCurrentDB();
    t.state.gDatabaseName.clear();
  }
  // Starts the window; `answer` stands in for the user at each modal dialog.
  std::unique_ptr<MainWindow> Started(std::function<int(QDialog&)> answer = {}) {
    auto window = std::make_unique<MainWindow>(t.state);
    window->SetDialogRunner([this, answer](QDialog& d) {
      dialogs.push_back(d.objectName());
      return answer ? answer(d) : static_cast<int>(QDialog::Rejected);
    });
    window->SetAddAthleteScreen([this] { ++add_athlete_shown; });
    window->show();
    window->Start();
    return window;
  }
  TempHome t;
  QStringList dialogs;
  int add_athlete_shown = 0;
};

TEST_F(MainWindowTest, FirstRunShowsTheWelcome) {
  t.state.data_root = t.Root() / "KVL-R-Data";
  auto w = Started([](QDialog& d) {
    if (auto* setup = qobject_cast<frmSetup*>(&d)) {
      EXPECT_TRUE(setup->findChild<QPushButton*>("cmdOK")->isVisible());
    }
    return static_cast<int>(QDialog::Accepted);
  });
  EXPECT_EQ(dialogs, QStringList{"frmSetup"});
  EXPECT_TRUE(fs::is_directory(t.state.data_root));
  EXPECT_EQ(w->windowTitle(), "No Database Open");
}

TEST_F(MainWindowTest, ADatabaseWithoutSwimmersOffersTheAddAthleteScreen) {
  LastDatabaseWith({});
  auto w = Started();
  EXPECT_TRUE(t.state.gDbOpen);
  EXPECT_TRUE(t.io.Saw("to convert a KVL database or open a different database."));
  EXPECT_EQ(add_athlete_shown, 1);
  EXPECT_EQ(t.state.gAthlete, 0);
  EXPECT_TRUE(w->Action(MenuCommand::kAthletes)->isEnabled());
  EXPECT_EQ(w->windowTitle(), "");  // the login is still pending
}

TEST_F(MainWindowTest, OneSwimmerIsCurrentAtOnce) {
  LastDatabaseWith({"Ada"});
  auto w = Started();
  EXPECT_TRUE(dialogs.isEmpty());
  EXPECT_EQ(w->windowTitle(), "KVL-R for Ada Lane");
  EXPECT_EQ(w->LastFileActions()[0]->isVisible(), true);
  w->Action(MenuCommand::kCalendar)->trigger();
  EXPECT_TRUE(t.io.Saw("Calendar is not available in this version yet."));
  // Exit with one swimmer asks the plain question; No keeps the window.
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(w->close());
  EXPECT_TRUE(t.io.Saw("Exit Norvan's KVL RENEWED?"));
  EXPECT_TRUE(t.state.gDbOpen);
  t.io.Script({Answer::kYes});
  EXPECT_TRUE(w->close());
  EXPECT_FALSE(t.state.gDbOpen);
}

TEST_F(MainWindowTest, TwoSwimmersChooseAtLoginAndCanSwitch) {
  LastDatabaseWith({"Ada", "Ben"});
  int32_t ben = 0;
  auto w = Started([&](QDialog& d) {
    if (auto* login = qobject_cast<frmLogin*>(&d)) {
      login->accept();  // nothing chosen yet
      EXPECT_TRUE(t.io.Saw("Please select a swimmer."));
      SQLite::Statement q(*t.state.gDb, "SELECT Athlete FROM Athlete WHERE First = 'Ben'");
      q.executeStep();
      ben = q.getColumn(0).getInt();
      login->Choose(ben);
      login->accept();
      return login->result();
    }
    return static_cast<int>(QDialog::Rejected);
  });
  EXPECT_EQ(dialogs, QStringList{"frmLogin"});
  EXPECT_EQ(w->windowTitle(), "KVL-R for Ben Lane");
  // Exit offers exit or switch; switch runs the login again and keeps the window.
  dialogs.clear();
  w->SetDialogRunner([&](QDialog& d) {
    dialogs.push_back(d.objectName());
    if (auto* exit = qobject_cast<frmExit*>(&d)) {
      exit->ChooseSwitch();
      exit->accept();
      return exit->result();
    }
    d.reject();
    return d.result();
  });
  EXPECT_FALSE(w->close());
  EXPECT_EQ(dialogs, (QStringList{"frmExit", "frmLogin"}));
  EXPECT_EQ(t.state.gAthlete, 0);
  EXPECT_TRUE(t.state.gDbOpen);
}

TEST_F(MainWindowTest, WithoutADatabaseOnlyTheFileCommandsWorkAndOpenNewMakesOne) {
  auto w = Started();
  EXPECT_EQ(w->windowTitle(), "No Database Open");
  EXPECT_TRUE(w->Action(MenuCommand::kOpenNew)->isEnabled());
  EXPECT_FALSE(w->Action(MenuCommand::kBackup)->isEnabled());
  EXPECT_TRUE(w->Action(MenuCommand::kHelpAbout)->isEnabled());
  EXPECT_TRUE(dialogs.isEmpty());
  EXPECT_EQ(t.state.gDataDir, t.state.data_root);
  const QString file = QString::fromStdString((t.Data() / "season.mdb").string());
  w->SetDialogRunner([&](QDialog& d) {
    if (auto* chooser = qobject_cast<QFileDialog*>(&d)) {
      EXPECT_EQ(chooser->windowTitle(), "Open Existing or Create New Database");
      chooser->selectFile(file);
      return static_cast<int>(QDialog::Accepted);
    }
    return static_cast<int>(QDialog::Rejected);
  });
  w->Action(MenuCommand::kOpenNew)->trigger();
  EXPECT_TRUE(t.state.gDbOpen);
  EXPECT_TRUE(fs::exists(t.Data() / "season.mdb"));
  EXPECT_TRUE(w->Action(MenuCommand::kBackup)->isEnabled());
  EXPECT_EQ(add_athlete_shown, 1);
}

using test::Child;
using test::Shoot;

TEST(frmBackup, WritesTheArchiveThatRestoreShowsAndFollowsTheOptionRules) {
  test::QtApp();
  TempHome t;
  const fs::path database = MakeOpenDatabase(t);
  frmBackup backup(t.state);
  EXPECT_EQ(backup.windowTitle(), "Backup Current KVL-R Database");
  EXPECT_EQ(backup.Folder().toStdString(), t.Data().string());
  EXPECT_EQ(Child<QLineEdit>(backup, "txtComments")->maxLength(), 150);
  Shoot(backup, "frmBackup");
  const fs::path backups = t.Root() / "backups";
  backup.SetFolder(QString::fromStdString(backups.string()));
  backup.SetComment("  weekly  ");
  Child<QPushButton>(backup, "cmdBackup")->click();
  ASSERT_TRUE(backup.Made().has_value());
  EXPECT_EQ(*backup.Made(), backups / "KVL-RBkupfamily-01.zip");
  EXPECT_EQ(backup.result(), QDialog::Accepted);
  const auto zip = backup.Made();
  frmRestore screen(t.state);
  EXPECT_EQ(screen.windowTitle(), "Restore a KVL-R database");
  EXPECT_FALSE(Child<QPushButton>(screen, "cmdRestore")->isEnabled()) << "nothing chosen yet";
  ASSERT_TRUE(screen.LoadBackup(*zip));
  EXPECT_EQ(Child<QLabel>(screen, "lblDbName")->text(), "family.mdb");
  EXPECT_EQ(Child<QLabel>(screen, "lblComments")->text(), "weekly");
  EXPECT_TRUE(Child<QLabel>(screen, "lblSize")->text().endsWith(" megabytes"));
  EXPECT_FALSE(Child<QLabel>(screen, "lblSameName")->isHidden()) << "same name as the open one";
  Shoot(screen, "frmRestore");
  auto* name = Child<QLineEdit>(screen, "txtDBName");
  auto* open_after = Child<QCheckBox>(screen, "chkOpenAfter");
  auto* change = Child<QPushButton>(screen, "cmdChangeFolder");
  EXPECT_EQ(screen.Option(), RestoreOption::kReplaceOpen);
  EXPECT_FALSE(name->isEnabled());
  EXPECT_FALSE(open_after->isEnabled());
  Child<QRadioButton>(screen, "optCurrentFolder")->setChecked(true);
  EXPECT_TRUE(name->isEnabled());
  EXPECT_FALSE(change->isEnabled());
  Child<QRadioButton>(screen, "optSelectedFolder")->setChecked(true);
  EXPECT_TRUE(change->isEnabled());
  Child<QPushButton>(screen, "cmdRestore")->click();
  EXPECT_TRUE(t.io.Saw("Please select a directory to restore to."));
  EXPECT_FALSE(screen.Restored().has_value());
  const fs::path folder = t.Root() / "restored";
  fs::create_directories(folder);
  screen.SetFolder(folder);
  name->setText("copy");
  open_after->setChecked(true);
  Child<QPushButton>(screen, "cmdRestore")->click();
  ASSERT_TRUE(screen.Restored().has_value());
  EXPECT_EQ(*screen.Restored(), folder / "copy.MDB");
  EXPECT_EQ(t.state.gDatabaseName, (folder / "copy.MDB").string());
  EXPECT_TRUE(fs::exists(database)) << "the other database is untouched";
}

TEST(frmRestore, WithoutAnOpenDatabaseOnlyTheFolderChoicesAreOffered) {
  EXPECT_EQ(frmRestore::FileDialogFilter().toStdString(),
            "KVL-R Backup files (KVL-RBkup*.zip KVL-RArchive*.zip);;"
            "Backup files (KVL-RBkup*.zip);;Archived files (KVL-RArchive*.zip)");
  test::QtApp();
  TempHome t;
  frmRestore screen(t.state);
  EXPECT_FALSE(Child<QRadioButton>(screen, "optReplace")->isEnabled());
  EXPECT_EQ(screen.Option(), RestoreOption::kSelectedFolder);
  WriteFileAtomically(t.Root() / "notes.txt", "");
  EXPECT_FALSE(screen.LoadBackup(t.Root() / "notes.txt"));
  EXPECT_TRUE(t.io.Saw("Not a valid filename: notes.txt"));
}

TEST(ReRankScreen, ShownWithASelectionItRanksAndClosesItself) {
  test::QtApp();
  test::TempHome t;
  test::MakeOpenDatabase(t);
  test::ResultTable results(*t.state.gDb);
  results.AddAthlete(1, "Lane");
  results.AddMeet(1, "2025-01-10", "AG");
  results.AddMeet(2, "2025-06-01", "HS");
  test::ResultRow r;
  r.score = 6000;
  const int64_t early = results.Add(r);
  r.meet = 2;
  r.score = 6100;
  const int64_t late = results.Add(r);
  r.score = 5900;
  r.f_p = "P";
  const int64_t prelim = results.Add(r);
  frmReRank screen(t.state);
  screen.SetSelection({.since = {2025, 6, 1}, .f_p = "F"});
  auto* words = screen.findChild<QLabel*>("lblWait");
  auto* bar = screen.findChild<QProgressBar*>("SSPProgress");
  ASSERT_TRUE(words && bar);
  EXPECT_EQ(words->text(), "Ranking Top Times for Selected Dates/Meet Type.  Please Wait......");
  EXPECT_TRUE(bar->text().startsWith("Adjusting for Since Date"));
  screen.show();
  QElapsedTimer clock;
  clock.start();
  while (screen.isVisible() && clock.elapsed() < 5000) QApplication::processEvents();
  EXPECT_FALSE(screen.isVisible());
  EXPECT_TRUE(screen.Succeeded());
  EXPECT_EQ(screen.result(), QDialog::Accepted);
  EXPECT_EQ(bar->value(), 100);
  EXPECT_EQ(results.Ranks({early, late, prelim}, "TRANK"),
            (test::Ranks{std::nullopt, 1, std::nullopt}));
  EXPECT_EQ(t.state.io, &t.io);  // the program's own user is back
}

}  // namespace
}  // namespace kvlr
