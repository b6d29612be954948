// The main window as a user meets it: start-up in each state, login, menus, the way out.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>

#include <SQLiteCpp/Statement.h>

#include "core/MainWindow.h"
#include "core/ShellDialogs.h"
#include "store/LastDatabase.h"
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
    for (const char* first : firsts) {
      SQLite::Statement add(*t.state.gDb,
                            "INSERT INTO Athlete (First, Last, Sex) VALUES (?, 'Lane', 'F')");
      add.bind(1, first);
      add.exec();
    }
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
  EXPECT_TRUE(w->Action(MenuCommand::kExit)->isEnabled());
  EXPECT_FALSE(w->Action(MenuCommand::kBackup)->isEnabled());
  EXPECT_FALSE(w->Action(MenuCommand::kAthletes)->isEnabled());
  EXPECT_FALSE(w->Action(MenuCommand::kResults)->isEnabled());
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

}  // namespace
}  // namespace kvlr
