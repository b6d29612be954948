#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "shell/Preferences.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::MakeOpenDatabase;
using test::TempHome;

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

TEST(ReportPreferences, RoundTrip) {
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
}

TEST(Directories, SixtyCharactersAtMost) {
  TempHome t;
  MakeOpenDatabase(t);
  const std::string sixty = "/" + std::string(59, 'a');
  EXPECT_TRUE(SetFavoriteDirectory(t.state, DirectoryKind::kBackup, sixty));
  EXPECT_TRUE(t.io.Saw("Set Backup/Restore Directory to: " + sixty));
  EXPECT_FALSE(SetFavoriteDirectory(t.state, DirectoryKind::kImport, sixty + "b"));
  EXPECT_TRUE(t.io.Saw(pref_text::kPathTooLong));
  SQLite::Statement q(*t.state.gDb, "SELECT BackupDir, ImportDir FROM OPTIONS");
  q.executeStep();
  EXPECT_EQ(q.getColumn(0).getString(), sixty);
  EXPECT_TRUE(q.getColumn(1).isNull());
}

}  // namespace
}  // namespace kvlr
