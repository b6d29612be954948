// Start-up, reminders, login, preferences and the way out, without windows.

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "core/FileOps.h"
#include "core/InstanceLock.h"
#include "core/PrinterInfo.h"
#include "shell/Login.h"
#include "shell/MenuPlan.h"
#include "shell/OpenDatabase.h"
#include "shell/Preferences.h"
#include "shell/Startup.h"
#include "store/LastDatabase.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::MakeOpenDatabase;
using test::TempHome;

TEST(RunSetup, AMissingDataFolderIsAFirstRun) {
  TempHome t;
  t.state.data_root = t.Root() / "KVL-R-Data";
  SetupOutcome outcome = RunSetup(t.state);
  EXPECT_TRUE(outcome.first_run);
  EXPECT_TRUE(fs::is_directory(t.state.data_root));
  EXPECT_EQ(t.state.gDataDir, t.state.data_root);
  EXPECT_FALSE(t.state.gDbOpen);
  EXPECT_TRUE(fs::exists(t.state.home.SystemFile()));
  EXPECT_TRUE(fs::exists(t.state.home.ReportDb()));
}

TEST(RunSetup, OpensTheNewestLastDatabaseThatStillExists) {
  TempHome t;
  fs::path older = MakeOpenDatabase(t, "older.mdb");
  SaveLastDatabase(t.state);
  t.state.CloseCurrentDB();
  t.clock.Set(DateTime{Date{2026, 11, 23}, 8, 0, 0});
  fs::path newer = MakeOpenDatabase(t, "newer.mdb");
  SaveLastDatabase(t.state);
  t.state.CloseCurrentDB();
  fs::rename(newer, t.Root() / "moved.mdb");
  t.state.gDatabaseName.clear();
  SetupOutcome outcome = RunSetup(t.state);
  EXPECT_FALSE(outcome.first_run);
  EXPECT_EQ(outcome.last_files.size(), 2u);
  EXPECT_TRUE(t.state.gDbOpen);
  EXPECT_EQ(t.state.gDatabaseName, older.string());
  EXPECT_EQ(t.io.progress.back(), "Applying Favorite Settings...");
  // With no database left nothing opens.
  t.state.CloseCurrentDB();
  fs::remove(older);
  t.state.gDatabaseName.clear();
  RunSetup(t.state);
  EXPECT_FALSE(t.state.gDbOpen);
  EXPECT_EQ(t.state.gDatabaseName, "");
  EXPECT_EQ(MainTitle(t.state), "No Database Open");
}

// Days since the last backup must be strictly more than the setting.
TEST(BackupReminder, RunsOnlyAfterMoreDaysThanTheSetting) {
  TempHome t;
  fs::path file = MakeOpenDatabase(t);  // LastBackup is today, 2026-11-22
  t.clock.Set(DateTime{Date{2026, 11, 29}, 9, 0, 0});
  EXPECT_FALSE(BackupReminder(t.state));
  EXPECT_FALSE(fs::exists(t.Data() / "KVL-RArchive-family-01.zip"));
  t.clock.Set(DateTime{Date{2026, 11, 30}, 9, 0, 0});
  EXPECT_TRUE(BackupReminder(t.state));
  EXPECT_TRUE(fs::exists(t.Data() / "KVL-RArchive-family-01.zip"));
  EXPECT_TRUE(t.io.Saw("Automatic Backup Complete"));
  ASSERT_TRUE(t.state.gDbOpen);
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT LastBackup = '2026-11-30' FROM OPTIONS"), 1);
  EXPECT_EQ(t.state.gDatabaseName, file.string());
  // 0 days: every start, the same day too.
  t.state.gBackupDays = 0;
  EXPECT_TRUE(BackupReminder(t.state));
  EXPECT_TRUE(fs::exists(t.Data() / "KVL-RArchive-family-02.zip"));
  // A last backup that is no date is set to today without a backup.
  t.state.gBackupDays = 7;
  t.state.gDb->exec("UPDATE OPTIONS SET LastBackup = NULL");
  t.clock.Set(DateTime{Date{2027, 6, 1}, 9, 0, 0});
  EXPECT_FALSE(BackupReminder(t.state));
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT LastBackup = '2027-06-01' FROM OPTIONS"), 1);
  EXPECT_FALSE(fs::exists(t.Data() / "KVL-RArchive-family-03.zip"));
}

TEST(UpdateReminder, AsksAfterMoreDaysAndNeverWithZero) {
  TempHome t;
  t.state.gUpdateDays = 7;
  EXPECT_FALSE(UpdateReminderDue(t.state));  // the first run only records the day
  t.clock.Set(DateTime{Date{2026, 11, 29}, 10, 30, 0});
  EXPECT_FALSE(UpdateReminderDue(t.state));
  t.clock.Set(DateTime{Date{2026, 11, 30}, 10, 30, 0});
  EXPECT_TRUE(UpdateReminderDue(t.state));
  EXPECT_FALSE(UpdateReminderDue(t.state));  // recorded: the next one is a week away
  t.state.gUpdateDays = 0;
  t.clock.Set(DateTime{Date{2027, 11, 30}, 10, 30, 0});
  EXPECT_FALSE(UpdateReminderDue(t.state));
}

// Login rows, the window's title in each state and the swimmer's background picture.
TEST(Login, RowsComeByFirstNameAndTheTitleAndPictureFollowTheSwimmer) {
  TempHome t;
  MakeOpenDatabase(t);
  EXPECT_EQ(MainTitle(t.state), "");  // login pending
  test::AddAthlete(*t.state.gDb, "O'Brien", "Zoe", "F");
  test::AddAthlete(*t.state.gDb, "Lane", "Abe", "M");
  t.state.gDb->exec("UPDATE Athlete SET Pref = 'Ziggy', Initial = 'Q' WHERE First = 'Zoe'");
  auto rows = LoginRows(t.state);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].name, "Abe Lane");
  EXPECT_EQ(rows[1].name, "Ziggy Q O'Brien");
  EXPECT_EQ(t.state.gAthleteCount, 2);
  EXPECT_FALSE(LogIn(t.state, 999));
  ASSERT_TRUE(LogIn(t.state, rows[1].athlete));
  EXPECT_EQ(MainTitle(t.state), "KVL-R for Ziggy Q O'Brien");
  EXPECT_FALSE(BackgroundPicture(t.state).has_value());
  WriteFileAtomically(t.state.home.Root() / "KVL-R.BMP", "BM");
  EXPECT_EQ(BackgroundPicture(t.state)->filename(), "KVL-R.BMP");
  WriteFileAtomically(t.state.home.Root() / "Zoe.bmp", "BM");
  EXPECT_EQ(BackgroundPicture(t.state)->filename(), "Zoe.bmp");
  t.state.CloseCurrentDB();
  EXPECT_EQ(MainTitle(t.state), "Norvan's KVL RENEWED");
  const fs::path foreign = t.Data() / "notes.mdb";
  SQLite::Database(foreign.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec("CREATE TABLE Notes (Line TEXT)");
  EXPECT_FALSE(OpenOrCreateDatabase(t.state, foreign, nullptr));
  EXPECT_EQ(MainTitle(t.state), "No Database Open");
}

TEST(OpenDatabase, MakesOpensAndListsTheFile) {
  TempHome t;
  std::vector<std::string> files;
  ASSERT_TRUE(OpenOrCreateDatabase(t.state, t.Data() / "family.mdb", &files));
  EXPECT_TRUE(t.state.gDbOpen);
  ASSERT_EQ(files.size(), 1u);
  EXPECT_EQ(files[0], (t.Data() / "family.mdb").string());
  // A name typed without its extension gets .mdb.
  ASSERT_TRUE(OpenOrCreateDatabase(t.state, t.Data() / "Jones", &files));
  EXPECT_EQ(fs::path(files[0]).filename(), "Jones.mdb");
  EXPECT_TRUE(fs::exists(t.Data() / "Jones.mdb"));
  EXPECT_EQ(fs::path(t.state.gDatabaseName).filename(), "Jones.mdb");
  t.io.shown.clear();
  EXPECT_FALSE(OpenLastFile(t.state, t.Data() / "gone.mdb", &files));
  EXPECT_TRUE(t.io.Saw("That file no longer exists."));
  EXPECT_EQ(t.state.gTitle, "No Database Open");
}

TEST(LeaveProgram, RemembersTheDatabaseAndAChangedPrinterAndOnlyOneRunHoldsTheHome) {
  TempHome t;
  fs::path file = MakeOpenDatabase(t);
  const PrinterNames at_start{"Den", "", ""};
  t.state.gPrinter = PrinterNames{"Office", "", ""};
  LeaveProgram(t.state, at_start);
  EXPECT_FALSE(t.state.gDbOpen);
  EXPECT_EQ(GetPrinterInfo(t.state.home, {}).device, "Office");
  t.state.gDatabaseName.clear();
  EXPECT_EQ(GetLastDatabase(t.state).front(), file.string());
  InstanceLock first(t.state.home.Root());
  InstanceLock second(t.state.home.Root());
  EXPECT_TRUE(first.Held());
  EXPECT_FALSE(second.Held());
}

TEST(MenuPlan, FileCommandsThatNeedADatabaseFollowIt) {
  for (const auto& entry : MainMenu()) {
    const bool always =
        entry.top == "&Help" ||
        (entry.top == "&File" &&
         (entry.command == MenuCommand::kOpenNew || entry.command == MenuCommand::kConvertKvl ||
          entry.command == MenuCommand::kInstallMobile ||
          entry.command == MenuCommand::kInstallUpdate ||
          entry.command == MenuCommand::kCreateUpdate || entry.command == MenuCommand::kExit));
    EXPECT_TRUE(MenuEnabled(entry, true)) << PlainCaption(entry.caption);
    EXPECT_EQ(MenuEnabled(entry, false), always) << PlainCaption(entry.caption);
  }
  EXPECT_EQ(PlainCaption("&Athletes "), "Athletes");
}

TEST(RunSetup, AFileNamedAtStartOpensOrIsRefusedAsFileOpenRefusesIt) {
  struct Case {
    std::vector<std::string> args;
    std::string home, file;
    bool error;
  };
  const Case cases[] = {
      {{"--home", "/h", "Jones.mdb"}, "/h", "Jones.mdb", false},
      {{"--home=/h"}, "/h", "", false},
      {{"--home"}, "", "", true},
      {{"a.mdb", "b.mdb"}, "", "", true},
      {{"--open"}, "", "", true},
  };
  for (const auto& c : cases) {
    const StartArguments got = ParseStartArguments(c.args);
    EXPECT_EQ(got.home, c.home) << c.args[0];
    EXPECT_EQ(got.file.string(), c.file) << c.args[0];
    EXPECT_EQ(!got.error.empty(), c.error) << c.args[0];
  }
  TempHome t;
  const fs::path named = MakeOpenDatabase(t, "Jones.mdb");
  t.state.CloseCurrentDB();
  RunSetup(t.state, named.parent_path() / "Jones");  // typed without its extension
  EXPECT_TRUE(t.state.gDbOpen);
  EXPECT_EQ(t.state.gDatabaseName, named.string());
  t.state.CloseCurrentDB();
  // Names are checked before anything is made.
  const std::pair<const char*, const char*> refused[] = {
      {"notes.mdb", "Not a valid KVL-R Database."},
      {"notes.txt", "Not a valid filename: notes.txt"},
      {"Bob's.mdb", "can not include quotes"}};
  for (const auto& [name, expected] : refused) {
    const fs::path file = t.Data() / name;
    const bool made = name[0] == 'n';
    if (made) WriteFileAtomically(file, "not a database");
    t.io.shown.clear();
    EXPECT_FALSE(OpenOrCreateDatabase(t.state, file, nullptr));
    ASSERT_FALSE(t.io.shown.empty()) << name;
    const std::string words = t.io.shown.back().text;
    EXPECT_NE(words.find(expected), std::string::npos) << words;
    t.state.CloseCurrentDB();
    t.io.shown.clear();
    RunSetup(t.state, file);
    EXPECT_FALSE(t.state.gDbOpen) << name;
    EXPECT_TRUE(t.io.Saw(words)) << name;
    EXPECT_EQ(MainTitle(t.state), "No Database Open");
    EXPECT_EQ(fs::exists(file), made) << name;
  }
}

TEST(SystemPreferences, RangesAndTheAgeUpDate) {
  struct Case {
    int backup, update;
    AgeUpChoice age_up;
    bool has_date;
    const char* refusal;  // "" when accepted
  };
  const Case cases[] = {
      {7, 7, AgeUpChoice::kMeetStart, false, ""},
      {1, 0, AgeUpChoice::kMeetEnd, false, ""},
      {60, 60, AgeUpChoice::kDate, true, ""},
      {0, 7, AgeUpChoice::kMeetStart, false, "Range for Backup Check is 1 to 60."},
      {61, 7, AgeUpChoice::kMeetStart, false, "Range for Backup Check is 1 to 60."},
      {7, 61, AgeUpChoice::kMeetStart, false, "Range for Update Check is 0 to 60."},
      {0, 61, AgeUpChoice::kMeetStart, false, "Range for Update Check is 0 to 60."},
      {7, 7, AgeUpChoice::kDate, false, "You must enter a valid Age-Up Date."},
  };
  for (const auto& c : cases) {
    SystemPreferences p;
    p.backup_days = c.backup;
    p.update_days = c.update;
    p.age_up = c.age_up;
    if (c.has_date) p.age_up_date = Date{2026, 12, 31};
    auto refusal = CheckSystemPreferences(p);
    EXPECT_EQ(refusal.value_or(""), c.refusal) << c.backup << "/" << c.update;
  }
}

TEST(SystemPreferences, SaveTakesEffectAtOnceAndReranksOnlyOnALeadOffChange) {
  TempHome t;
  MakeOpenDatabase(t);
  int reranks = 0;
  t.state.hooks.rerank_all = [&](AppState&) { ++reranks; };
  SystemPreferences p = LoadSystemPreferences(t.state);
  p.backup_days = 14;
  p.update_days = 0;
  p.fav_sex = 2;
  SaveSystemPreferences(t.state, p);
  EXPECT_EQ(reranks, 0);
  EXPECT_EQ(t.state.gBackupDays, 14);
  EXPECT_EQ(t.state.gUpdateDays, 0);
  p.use_lead_off = true;
  p.age_up = AgeUpChoice::kDate;
  p.age_up_date = Date{2027, 1, 1};
  SaveSystemPreferences(t.state, p);
  EXPECT_EQ(reranks, 1);
  SystemPreferences again = LoadSystemPreferences(t.state);
  EXPECT_TRUE(again.use_lead_off);
  EXPECT_EQ(again.backup_days, 14);
  EXPECT_EQ(again.fav_sex, 2);
  EXPECT_EQ(again.age_up_date, (Date{2027, 1, 1}));
}

TEST(ReportPreferencesAndDirectories, RoundTripAndSixtyCharactersAtMost) {
  TempHome t;
  MakeOpenDatabase(t);
  ReportPreferences p = LoadReportPreferences(t.state);
  EXPECT_EQ(p.open_events, 1);
  p.output_case = 2;
  p.header1 = "Lakeside Dolphins' Season";
  p.paper_size = 1;
  p.printer = PrinterNames{"Den Inkjet", "", ""};
  SaveReportPreferences(t.state, p);
  ReportPreferences again = LoadReportPreferences(t.state);
  EXPECT_EQ(again.output_case, 2);
  EXPECT_EQ(again.header1, "Lakeside Dolphins' Season");
  EXPECT_EQ(again.paper_size, 1);
  EXPECT_EQ(t.state.gPrinter.device, "Den Inkjet");
  const std::string sixty = "/" + std::string(59, 'a');
  EXPECT_TRUE(SetFavoriteDirectory(t.state, DirectoryKind::kBackup, sixty));
  EXPECT_TRUE(t.io.Saw("Set Backup/Restore Directory to: " + sixty));
  EXPECT_FALSE(SetFavoriteDirectory(t.state, DirectoryKind::kImport, sixty + "b"));
  EXPECT_TRUE(
      t.io.Saw("Total path length can not exceed 60 characters.  Please select a shorter path."));
  SQLite::Statement q(*t.state.gDb, "SELECT BackupDir, ImportDir FROM OPTIONS");
  q.executeStep();
  EXPECT_EQ(q.getColumn(0).getString(), sixty);
  EXPECT_TRUE(q.getColumn(1).isNull());
}

}  // namespace
}  // namespace kvlr
