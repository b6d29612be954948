#include "core/SwimCodes.h"

#include <gtest/gtest.h>

namespace kvlr {
namespace {

TEST(DistanceTest, IndexEquivalentsAndTheListsIndexedByThem) {
  const std::vector<int> distances = {25, 50, 100, 200, 400, 500, 800, 1000, 1500, 1650};
  for (int i = 0; i < static_cast<int>(distances.size()); ++i) {
    EXPECT_EQ(DistanceIndex(distances[i]), i) << distances[i];
  }
  for (int other : {0, 6, 11, 75, 1600}) EXPECT_EQ(DistanceIndex(other), 10) << other;
  // clang-format off
  const std::vector<std::tuple<int, char, int>> equivalents = {
      {400, 'Y', 500}, {800, 'Y', 1000}, {1500, 'Y', 1650}, {500, 'Y', 500},
      {500, 'S', 400}, {1000, 'L', 800}, {1650, 'S', 1500}, {400, 'L', 400},
      {200, 'Y', 200}, {500, ' ', 500}};
  // clang-format on
  for (const auto& [distance, course, expected] : equivalents) {
    EXPECT_EQ(EquivalentDistance(distance, course), expected) << distance << course;
  }
  // Screens index these lists by DistanceIndex + 1 and course number.
  const auto list = DistanceList();
  ASSERT_EQ(list.size(), 14u);
  EXPECT_EQ(list[DistanceIndex(100) + 1], " 100");
  EXPECT_EQ(list[DistanceIndex(1650) + 1], "1650");
  EXPECT_EQ(CourseList()[CourseLetters.find('S') + 1], "SCM");
}

TEST(AgeGroupTest, PresetRowsAndTexts) {
  // clang-format off
  const std::vector<std::tuple<int, int, int>> cases = {
      {0, 6, 0}, {0, 8, 1}, {0, 10, 2}, {15, 99, 3}, {0, 99, 4}, {1, 99, 4}, {7, 8, 5}, {9, 10, 6},
      {11, 12, 7}, {13, 14, 8}, {15, 16, 9}, {17, 18, 10}, {15, 18, 23},
      {8, 8, 12}, {12, 12, 16}, {18, 18, 22},
      {7, 7, 11}, {19, 19, 11}, {0, 12, 11}, {10, 99, 11}, {6, 8, 11}};
  // clang-format on
  for (const auto& [lo, hi, expected] : cases) {
    EXPECT_EQ(AgeGroupIndex(lo, hi), expected) << lo << "-" << hi;
  }
  // clang-format off
  const std::vector<std::pair<int, std::string>> lo_hi = {
      {99, "Open"}, {1099, "10-Ov"}, {199, "01-Ov"}, {10, "Un-10"}, {8, "Un-08"},
      {1112, "11-12"}, {812, "08-12"}};
  // clang-format on
  for (const auto& [value, expected] : lo_hi) EXPECT_EQ(LoHiText(value), expected) << value;
  const std::tuple<int, int, const char*, const char*> ranges[] = {
      {0, 10, "Under-10", "10 and Under"}, {15, 99, "15 Over", "15 and Over"},
      {11, 12, "11-12", "11 - 12"}};
  for (const auto& [lo, hi, text, caption] : ranges) {
    EXPECT_EQ(AgeRangeText(lo, hi), text) << lo << hi;
    EXPECT_EQ(AgeRangeCaption(lo, hi), caption) << lo << hi;
  }
  EXPECT_EQ(AgeRangeCaption(0, 0), "");
  EXPECT_EQ(AgeRangeCaption(0, 99), "Open");
}

TEST(WordsTest, StrokeSexFinalsAndEventNumbers) {
  // clang-format off
  const std::vector<std::tuple<int, const char*, std::string>> strokes = {
      {1, "I", "Free"}, {3, "L", "Breast"}, {4, "E", "Fly"}, {5, "I", "IM"},
      {5, "R", "Medley Relay"}, {1, "R", "Free Relay"}, {6, "I", ""}, {0, "", ""}};
  // clang-format on
  for (const auto& [stroke, i_r, expected] : strokes) {
    EXPECT_EQ(StrokeText(stroke, i_r), expected) << stroke << i_r;
  }
  EXPECT_EQ(std::make_tuple(SexWord("F"), SexWord("X"), SexWord(""), GirlWord(0), BoyWord(2)),
            std::make_tuple("Female", "Mixed", "", "Women", "Boys"));
  EXPECT_EQ(std::make_tuple(FinalsWord("I"), FinalsWord("T"), FinalsWord("L")),
            std::make_tuple("Semi-Final", "Time Trial", ""));
  // clang-format off
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"7", "   7"}, {" 12 ", "  12"}, {"123", " 123"},
      {"12A", " 12A"}, {"7B", "  7B"}, {"", "    "}};
  // clang-format on
  for (const auto& [text, expected] : cases) EXPECT_EQ(EventNumberText(text), expected) << text;
}

}  // namespace
}  // namespace kvlr
