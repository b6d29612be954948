#include <gtest/gtest.h>

#include "ResultsFixture.h"
#include "meets/Splits.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

TEST(SplitSizes, CountAndStartStep) {
  const std::pair<int, int> counts[] = {{25, 1}, {50, 2}, {100, 4}, {1650, 66}, {37, 1}, {0, 0}};
  for (auto [distance, n] : counts) EXPECT_EQ(SplitCount(distance), n) << distance;

  struct Step {
    int32_t split;
    const char* course;
    int want;
  };
  const Step steps[] = {{25, "Y", 25}, {50, "L", 50}, {100, "S", 100},
                        {0, "L", 100}, {75, "Y", 50}, {0, "", 50}};
  for (const auto& c : steps) EXPECT_EQ(StartSplitStep(c.split, c.course), c.want);
}

// A 200 with 25s at 1, 2, 4, a zero at 6 and the finish.
SplitSheet TwoHundred() {
  SplitSheet sheet(200, 12800);
  sheet.Set(1, 1400);
  sheet.Set(2, 3000);
  sheet.Set(4, 6200);
  sheet.Set(6, 0);
  return sheet;
}

std::vector<SplitPlace> Laps(const SplitSheet& sheet, int step) {
  std::vector<SplitPlace> laps;
  for (int i : sheet.VisiblePlaces(step)) laps.push_back(sheet.Lap(i, step));
  return laps;
}

TEST(SplitLaps, MissingSplitsAreBridgedAtTheSameStep) {
  const SplitSheet sheet = TwoHundred();
  EXPECT_EQ(sheet.VisiblePlaces(50), (std::vector<int>{2, 4, 6, 8}));
  EXPECT_EQ(Laps(sheet, 50), (std::vector<SplitPlace>{3000, 3200, std::nullopt, 6600}));
  EXPECT_EQ(Laps(sheet, 25), (std::vector<SplitPlace>{1400, 1600, std::nullopt, 3200, std::nullopt,
                                                      std::nullopt, std::nullopt, 6600}));
  EXPECT_EQ(Laps(sheet, 100), (std::vector<SplitPlace>{6200, 6600}));

  SplitSheet no_first = sheet;
  no_first.Set(2, std::nullopt);  // nothing earlier: the whole split is the lap
  EXPECT_EQ(no_first.Lap(4, 50), 6200);
}

TEST(SplitEdits, LapsAndSplitsRows) {
  SplitSheet sheet = TwoHundred();
  EXPECT_TRUE(sheet.Edit(2, true, "31.00", 50));  // first visible lap: the split itself
  EXPECT_EQ(sheet.At(2), 3100);
  EXPECT_TRUE(sheet.Edit(4, true, "32.50", 50));  // previous visible split + lap
  EXPECT_EQ(sheet.At(4), 6350);
  EXPECT_FALSE(sheet.Edit(8, true, "30.00", 50));  // the finish isn't moved by its lap
  EXPECT_FALSE(sheet.Edit(8, false, "2:00.00", 50));
  EXPECT_EQ(sheet.At(8), 12800);
  EXPECT_TRUE(sheet.Edit(6, false, "1:35.10", 50));
  EXPECT_EQ(sheet.At(6), 9510);
  EXPECT_EQ(sheet.Lap(8, 50), 3290);
  EXPECT_TRUE(sheet.Edit(6, false, "", 50));
  EXPECT_EQ(sheet.At(6), std::nullopt);
  EXPECT_FALSE(sheet.Edit(9, false, "10.00", 50));

  SplitSheet one_length(25, 1500);  // its one column is first and last
  EXPECT_TRUE(one_length.Edit(1, true, "14.90", 25));
  EXPECT_EQ(one_length.At(1), 1490);
}

class SplitStore : public ::testing::Test {
 protected:
  void SetUp() override {
    season.Athlete(1, "Lane", "F");
    test::Season::Swim swim;
    swim.distance = 100;
    swim.score = 6000;
    id = season.Result(swim);
  }
  void AddSplit(int index, std::optional<int32_t> split) {
    SQLite::Statement q(*t.state.gDb,
                        "INSERT INTO SPLITS (SplitID, SplitIndex, Split) VALUES (?, ?, ?)");
    q.bind(1, id);
    q.bind(2, index);
    if (split)
      q.bind(3, *split);
    else
      q.bind(3);
    q.exec();
  }
  test::TempHome t;
  test::OpenedDatabase open_{t};
  test::Season season{*t.state.gDb};
  int64_t id = 0;
};

TEST_F(SplitStore, LoadFillsPlacesAndTheFinish) {
  SplitSheet fresh(100, 6000);
  fresh.Load(*t.state.gDb, id);
  EXPECT_EQ(fresh.At(1), std::nullopt);
  EXPECT_EQ(fresh.At(4), 6000);  // no rows: the finish is the score
  EXPECT_FALSE(fresh.Changed());

  AddSplit(1, 1400);
  AddSplit(2, std::nullopt);
  AddSplit(3, 4400);
  AddSplit(6, 9999);  // past the finish
  SplitSheet sheet(100, 6000);
  sheet.Load(*t.state.gDb, id);
  EXPECT_EQ(sheet.At(1), 1400);
  EXPECT_EQ(sheet.At(2), std::nullopt);
  EXPECT_EQ(sheet.At(3), 4400);
  EXPECT_EQ(sheet.At(4), 6000);
}

TEST_F(SplitStore, SaveKeepsOnlyTimesAboveZero) {
  SplitSheet sheet(100, 6000);
  sheet.Load(*t.state.gDb, id);
  AddSplit(3, 4500);  // replaced by the save
  sheet.Edit(2, false, "29.00", 25);
  sheet.Set(1, 0);
  EXPECT_TRUE(sheet.Changed());
  sheet.Save(*t.state.gDb, id);
  sheet.MarkSaved();
  EXPECT_FALSE(sheet.Changed());
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM SPLITS"), 2);
  SplitSheet again(100, 6000);
  again.Load(*t.state.gDb, id);
  EXPECT_EQ(again.At(1), std::nullopt);
  EXPECT_EQ(again.At(2), 2900);
  EXPECT_EQ(again.At(3), std::nullopt);
  EXPECT_EQ(again.At(4), 6000);
}

TEST(SplitTexts, CellsAndCaption) {
  EXPECT_EQ(SplitText(std::nullopt), "");
  EXPECT_EQ(SplitText(6123), "1:01.23");
  EXPECT_EQ(SplitsCaption(100, 2, "P", " 1:05.00Y", "Robin Lane", "Autumn Open"),
            "Event: 100 Back [Prelims] - Time: 1:05.00Y  Robin Lane   Meet: Autumn Open");
  EXPECT_EQ(SplitsCaption(50, 1, "F", "30.00", "Robin Lane", ""),
            "Event: 50 Free [Finals] - Time: 30.00  Robin Lane");
}

}  // namespace
}  // namespace kvlr
