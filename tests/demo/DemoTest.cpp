#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "demo/DemoBuilder.h"
#include "shell/Hooks.h"
#include "standards/StandardStore.h"
#include "store/Backup.h"
#include "support/TempHome.h"
#include "workouts/WorkoutArrays.h"
#include "workouts/WorkoutStore.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::QueryNumber;
using test::QueryRows;

// One build serves every check: it is the slow part.
class DemoTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    t_ = new test::TempHome;
    InstallHooks(t_->state);
    made_ = new demo::DemoSummary(demo::BuildDemo(t_->state, t_->Data() / "Demo.mdb"));
  }
  static void TearDownTestSuite() {
    delete made_;
    delete t_;
  }
  static SQLite::Database& db() { return *t_->state.gDb; }

  static inline test::TempHome* t_ = nullptr;
  static inline demo::DemoSummary* made_ = nullptr;
};

TEST_F(DemoTest, FamilyAndMeetsCameThroughTheImportOfItsOwnFiles) {
  EXPECT_EQ(QueryRows(db(), "SELECT Sex, Birth < '2015-01-01' FROM ATHLETE ORDER BY Athlete"),
            "F|1\nM|0\n");
  EXPECT_EQ(QueryRows(db(),
                      "SELECT DISTINCT substr(Course, 1, 1) FROM MEET WHERE Type <> 'G' "
                      "ORDER BY 1"),
            "L\nS\nY\n");
  std::set<std::string> kinds;
  for (const fs::path& f : made_->meet_files) {
    EXPECT_TRUE(fs::exists(f)) << f;
    kinds.insert(f.extension().string());
  }
  EXPECT_EQ(kinds, (std::set<std::string>{".cl2", ".nv3", ".sd3"}));
  // Each file brought one meet; the meet ahead (of the fixed clock's day) has the family's
  // entries.
  EXPECT_EQ(made_->meets, static_cast<int>(made_->meet_files.size()) + 1);
  EXPECT_EQ(QueryRows(db(),
                      "SELECT DISTINCT e.Athlete FROM ENTRY e JOIN MEET m ON "
                      "m.Meet = e.Meet WHERE m.Start > '2026-11-22' ORDER BY 1"),
            "1\n2\n");
  // Every swim of both swimmers has its event and a rank: the import ranked what it stored.
  EXPECT_EQ(QueryNumber(db(),
                        "SELECT COUNT(*) FROM RESULT r LEFT JOIN MTEVENT e ON "
                        "e.MtEvent = r.MtEvent WHERE r.I_R = 'I' AND (e.MtEvent IS NULL "
                        "OR r.Rank IS NULL OR r.Rank < 1) AND r.NT = 0"),
            0);
  EXPECT_EQ(QueryRows(db(), "SELECT DISTINCT Athlete FROM RESULT WHERE I_R = 'I' ORDER BY 1"),
            "1\n2\n");
  EXPECT_EQ(QueryRows(db(), "PRAGMA integrity_check"), "ok\n");
}

TEST_F(DemoTest, RelaysSplitsStandardGoalsFavouritesAndBackup) {
  // Lead-offs from the files, later legs as the relay legs screen enters them, a medley
  // lead-off stored as backstroke.
  EXPECT_GT(QueryNumber(db(), "SELECT COUNT(*) FROM RESULT WHERE I_R = 'L'"), 0);
  EXPECT_GT(QueryNumber(db(), "SELECT COUNT(*) FROM RESULT WHERE I_R = 'N'"), 0);
  EXPECT_GT(QueryNumber(db(), "SELECT COUNT(*) FROM RESULT WHERE I_R = 'L' AND Stroke = 2"), 0);
  EXPECT_GT(QueryNumber(db(),
                        "SELECT COUNT(*) FROM SPLITS s JOIN RESULT r ON r.Result = "
                        "s.SplitID WHERE r.I_R = 'I'"),
            0);
  EXPECT_GT(QueryNumber(db(),
                        "SELECT COUNT(*) FROM SPLITS s JOIN RESULT r ON r.Result = "
                        "s.SplitID WHERE r.I_R = 'L'"),
            0);
  // The last split of a swim is its time.
  EXPECT_EQ(QueryNumber(db(),
                        "SELECT COUNT(*) FROM RESULT r WHERE r.I_R = 'I' AND EXISTS "
                        "(SELECT 1 FROM SPLITS s WHERE s.SplitID = r.Result) AND r.Score <> "
                        "(SELECT Split FROM SPLITS s WHERE s.SplitID = r.Result ORDER BY "
                        "SplitIndex DESC LIMIT 1)"),
            0);

  EXPECT_EQ(QueryRows(db(), "SELECT Standard FROM OPTIONS"), "DEMO\n");
  EXPECT_EQ(t_->state.gStandardName, "DEMO");
  EXPECT_GT(ReadStandardLines(db(), StandardTableName("DEMO"), {}, kStartSort).size(), 0u);
  EXPECT_EQ(made_->goals, 12);
  EXPECT_EQ(
      QueryRows(db(), "SELECT FavName, FavMeetType, FavCourse FROM FAVORITES ORDER BY FavName"),
      "Champs|CH|\nLCM||LCM\nYards||Yards\n");

  ASSERT_TRUE(fs::exists(made_->backup));
  const auto info = LoadBackupInfo(t_->state, made_->backup);
  ASSERT_TRUE(info.has_value());
  EXPECT_EQ(info->database_member, "Demo.mdb");
}

TEST_F(DemoTest, WorkoutsWithTheirTotalsCalendarHealthAndJournal) {
  EXPECT_GT(made_->events, 0);
  EXPECT_GT(made_->health, 0);
  EXPECT_GT(made_->journal, 0);
  EXPECT_EQ(QueryRows(db(), "SELECT DISTINCT group_abbr FROM WkParam ORDER BY 1"), "1\n2\n");
  const auto workouts = ListWorkouts(db());
  ASSERT_EQ(static_cast<int>(workouts.size()), made_->workouts);
  ASSERT_GT(made_->workouts, 0);
  const WkHeader& h = workouts.front();
  WorkoutLinesResult derived;
  ASSERT_TRUE(gGetWorkoutLines(t_->state, h.wk_ptr, ParamsOfWorkout(db(), h.wk_ptr, 100),
                               gLoadWKEnergyArray(db()), false, derived));
  EXPECT_GT(h.tot_yards, 0);
  EXPECT_EQ(h.tot_yards, derived.distance);
  EXPECT_EQ(h.tot_stress, derived.stress);
}

TEST(DemoPlanTest, SameDaySameDemoAndAnExistingFileIsRefused) {
  const Date day{2026, 11, 22};
  const demo::Plan a = demo::MakePlan(day);
  const demo::Plan b = demo::MakePlan(day);
  ASSERT_EQ(a.meets.size(), b.meets.size());
  for (size_t i = 0; i < a.meets.size(); ++i) {
    EXPECT_EQ(demo::MeetFileText(a.meets[i].file), demo::MeetFileText(b.meets[i].file));
    EXPECT_LT(a.meets[i].file.end, day);
  }

  test::TempHome t;
  const fs::path taken = t.Data() / "Taken.mdb";
  std::ofstream(taken) << "x";
  EXPECT_THROW(demo::BuildDemo(t.state, taken), demo::DemoError);
}

}  // namespace
}  // namespace kvlr
