#include <fstream>

#include <gtest/gtest.h>

#include "core/FileOps.h"
#include "support/DbTest.h"
#include "workouts/LineEdits.h"
#include "workouts/Memorized.h"
#include "workouts/WorkoutExchange.h"
#include "workouts/WorkoutNotes.h"
#include "workouts/WorkoutReportText.h"
#include "workouts/WorkoutStore.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

// Writes a .wk3 from the field table, field by field, independent of our writer.
void Generate(const fs::path& file, const std::vector<std::vector<std::string>>& records) {
  std::ofstream out(file, std::ios::binary);
  for (const auto& r : records) {
    for (size_t i = 0; i < r.size(); ++i) out << (i ? "," : "") << r[i];
    out << "\r\n";
  }
}

class WorkoutExchange : public test::DbTest {};
class WorkoutStats : public test::DbTest {};

TEST_F(WorkoutStats, AnalysisColumnsShowTheirShareOfTheCycleTotal) {
  HeaderEntry h;
  h.wk_num = 1;
  h.wk_date = Date{2025, 3, 3};
  const int32_t ptr = SaveWorkoutHeader(Db(), h);
  WkLine swim, kick;
  swim.wk_line = 1;
  swim.set_reps = 3;
  swim.set_dist = 100;
  swim.set_interval = 90;
  swim.set_type = "S";
  kick = swim;
  kick.wk_line = 2;
  kick.set_reps = 1;
  kick.set_type = "K";
  WriteWorkoutLines(Db(), ptr, {swim, kick});
  StatsOptions o;
  o.type = StatType::kWork;
  o.start = h.wk_date;
  o.end = Date{2025, 3, 9};
  const StatsResult r = BuildWorkoutStats(t.state, o);
  ASSERT_EQ(r.tables.size(), 1u) << r.message;
  const auto& lines = r.tables[0].lines;
  ASSERT_EQ(lines.size(), 7u);
  EXPECT_EQ(lines[2].text, "       Date       S  %       K  %      Total");
  EXPECT_EQ(lines[3].text, "----------- ------- -- ------- -- ----------");
  EXPECT_EQ(lines[4].text, " 03/03/2025     300 75     100 25        400");
  EXPECT_EQ(lines[6].text, "    Average     300 75     100 25        400");
}

TEST_F(WorkoutExchange, GeneratedFileComesInWithMappedCodesAndNewNumbers) {
  HeaderEntry existing;
  existing.wk_num = 7;
  existing.wk_date = Date{2025, 1, 1};
  SaveWorkoutHeader(Db(), existing);
  const fs::path file = t.Data() / "coach.wk3";
  Generate(file, {{"<H>", "Norvan's Workout Export", "1.0", "Made Up Coach", "3", "2", "2025"},
                  {"<T>", "S", "\"Sprint\""},
                  {"<T>", "Q", "\"Quick\""},
                  {"<C>", "FLY", "\"Dolphin, kick\""},
                  {"<W>", "7", "2", "3", "2025", "960", "60", "\"12\"", "\" \"", "\"Y\"", "0", "0"},
                  {"<>", "1", "\"S\"", "0", "0", "0", "8", "50", "40", "\"Warm, easy\"", "\" \"", "2",
                   "\"SQ\"", "\"FLY\"", "0", "0", "0"},
                  {"<N>", "first line, with comma"},
                  {"<Z>"},
                  {"<W>", "8", "2", "4", "2025", "960", "60", "\"12\"", "\" \"", "\"M\"", "0", "0"},
                  {"<N>", " "},
                  {"<Z>"}});
  t.state.gAthlete = 3;
  const auto in = ImportWorkouts(t.state, file);
  ASSERT_TRUE(in.ok) << in.message;
  EXPECT_EQ(in.imported, 2);
  EXPECT_EQ(Rows("SELECT wk_num, wk_date, group_abbr, course_yls FROM WkParam WHERE wk_num > 7"),
            "8|2025-02-03|3|Y\n9|2025-02-04|3|M\n");
  // "S" clashes with Swim and takes the first free code; "Q" is new and kept; FLY under
  // another name takes a free first letter.
  EXPECT_EQ(Rows("SELECT set_type, set_categoryabbr, set_desc FROM Workout"), "1Q|ALY|Warm, easy\n");
  const auto notes = WorkoutNotesFile(t.state);
  EXPECT_EQ(ReadWorkoutNote(notes, 2).text, "first line, with comma");
  EXPECT_FALSE(ReadWorkoutNote(notes, 3).found);

  // Round trip through our writer into a second database.
  const fs::path back = t.Data() / "back.wk3";
  WriteWk3File(t.state, {2}, back);
  const auto summary = ReadWk3Summary(back);
  EXPECT_TRUE(summary.ok);
  EXPECT_EQ(summary.workouts, 1);
  PurgeWorkouts(Db());
  ASSERT_TRUE(ImportWorkouts(t.state, back).ok);
  EXPECT_EQ(Rows("SELECT set_type, set_categoryabbr, set_desc, set_reps FROM Workout"),
            "1Q|ALY|Warm, easy|8\n");
  EXPECT_EQ(ReadWorkoutNote(notes, 4).text, "first line, with comma");

  Generate(file, {{"<H>", "Another Program"}});
  EXPECT_EQ(ImportWorkouts(t.state, file).message, "Not a Norvan Workout Export File");
  EXPECT_EQ(SplitWk3Fields("<>,\"a,b\",c"), (std::vector<std::string>{"<>", "a,b", "c"}));
}

TEST_F(WorkoutExchange, NotesCompactionKeepsLastRecordOfLiveWorkouts) {
  t.state.gDatabaseName = (t.Data() / "family.mdb").string();
  const auto notes = WorkoutNotesFile(t.state);
  EnsureNotesFile(notes);
  HeaderEntry e;
  e.wk_num = 1;
  const int32_t live = SaveWorkoutHeader(Db(), e);
  const DateTime now{Date{2026, 1, 2}, 3, 4, 5};
  AppendWorkoutNote(notes, live, "old", now);
  AppendWorkoutNote(notes, live, "new", now);
  AppendWorkoutNote(notes, live + 1, "gone", now);
  EXPECT_TRUE(CompactWorkoutNotes(t.state));
  EXPECT_EQ(ReadWholeFile(notes), NoteKey(live) + " 2026-01-02 03:04:05\r\nnew\r\n");
}

TEST_F(WorkoutExchange, MemorizedCircuitNamesAndPermutations) {
  for (int i = 0; i < 3; ++i) AddMemCircuit(Db(), NextCircuitName(Db()));
  EXPECT_EQ(NextCircuitName(Db()), "Circuit0004");
  DeleteMemCircuit(Db(), 2);
  EXPECT_EQ(NextCircuitName(Db()), "Circuit0002");
  const auto p = SetPermutations(8, 50, 40);
  ASSERT_FALSE(p.empty());
  EXPECT_EQ(p.front().text, "12 x 50 on 0:26");
  EXPECT_EQ(p.back().text, "1 x 50 on 5:20");
  EXPECT_TRUE(p[4].current);
  EXPECT_EQ(RoundPermutationInterval(26, PermutationRounding::kDown), 25);
  EXPECT_EQ(RoundPermutationInterval(23, PermutationRounding::kUp), 25);
  EXPECT_EQ(RoundPermutationInterval(27, PermutationRounding::kUp), 30);
}

}  // namespace
}  // namespace kvlr
