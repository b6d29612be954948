#include "core/VbRules.h"

#include <cmath>

#include <gtest/gtest.h>
#include "core/TextClean.h"

namespace kvlr {
namespace {

TEST(ValTest, ReadsTheLeadingNumberLikeVb) {
  // clang-format off
  const std::vector<std::pair<const char*, double>> cases = {
      {"", 0}, {"12", 12}, {" \t\n12", 12}, {"1 2 3", 123}, {"- 5", -5}, {"+5", 5}, {".5", 0.5},
      {"1.2.3", 1.2}, {"12abc", 12}, {"5:30", 5},
      {"1e3", 1000}, {"1D2", 100}, {"2.5E-1", 0.25}, {"12E", 12},
      {"&hff", 255}, {"&HFFFF", -1}, {"&H10000", 65536}, {"&HFFFFFFFF", -1}, {"&O17", 15}};
  // clang-format on
  for (const auto& [text, expected] : cases) {
    EXPECT_DOUBLE_EQ(Val(text), expected) << '"' << text << '"';
  }
  EXPECT_TRUE(std::isinf(Val("1e400")));
  EXPECT_EQ(Val("1e-400"), 0);
}

TEST(RoundingTest, HalvesToEvenAndTheHashPictureWithTwoDecimals) {
  // clang-format off
  const std::vector<std::pair<double, int64_t>> cases = {
      {0.5, 0}, {1.5, 2}, {2.5, 2}, {3.5, 4}, {-0.5, 0}, {-1.5, -2}, {-2.5, -2},
      {2.4, 2}, {2.6, 3}, {-2.6, -3}, {7, 7}};
  // clang-format on
  for (const auto& [value, expected] : cases) EXPECT_EQ(RoundHalfEven(value), expected) << value;
  // clang-format off
  const std::vector<std::pair<double, std::string>> points = {
      {0.05, ".05"}, {120, "120.00"}, {0, ".00"}, {12345.6, "12345.60"}, {-1.5, "-1.50"},
      {-0.001, ".00"},
      // Halves away from zero on the decimal form, not on the binary one (2.675 is 2.67499...).
      {0.125, ".13"}, {2.675, "2.68"}, {0.995, "1.00"}, {99.999, "100.00"}, {0.004, ".00"}};
  // clang-format on
  for (const auto& [value, expected] : points) EXPECT_EQ(FormatPoints(value), expected) << value;
}

TEST(TextCleanTest, TrimUCaseCharacterFiltersAndOneBasedRemoval) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\tx "), "\tx");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(UCase("aZ-\xC3\xA9"), "AZ-\xC3\xA9");
  EXPECT_EQ(StripIt(" x1:02.5-3s"), "1:02.53");
  EXPECT_EQ(RemoveBadCharacters("a*b.c\\d/e f"), "abcde f");
  EXPECT_EQ(ValidTableName("my std's [2024]. v!1"), "MYSTDS2024V1");
  for (const auto& [at, left] : {std::pair{1, "bc"}, {3, "ab"}, {4, "abc"}, {0, "abc"}}) {
    EXPECT_EQ(RemoveCharAt("abc", at), left) << at;
  }
}

TEST(ProperNameTest, Rules) {
  // clang-format off
  const std::vector<std::pair<std::string, std::string>> cases = {
      // Short, or already in mixed case (lower-case second character): left alone.
      {"AL", "AL"}, {"Smith", "Smith"}, {"mcdonald", "mcdonald"},
      // Proper case, then the fix-ups.
      {"sMITH", "Smith"}, {"ANNE MARIE", "Anne Marie"},
      {"O'BRIEN", "O'Brien"}, {"o'brien", "O'Brien"},
      {"MCDONALD", "McDonald"}, {"JOHN MC", "John Mc"}, {"SMITH III", "Smith III"},
      {"JONES II", "Jones II"}, {"SMITH-JONES", "Smith-Jones"}, {"SMITH-", "Smith-"},
      {"CENTRAL YMCA", "Central YMCA"}, {"EAST YWCA", "East YWCA"},
      {"D'ARCY-MCGEE", "D'Arcy-Mcgee"},  // "Mc" is looked for before the hyphen's capital
      // "Mac" stops the later rules.
      {"MACDONALD", "Macdonald"}, {"MACK O'NEIL", "Mack O'neil"}, {"MACK III", "Mack III"}};
  // clang-format on
  for (const auto& [typed, expected] : cases) EXPECT_EQ(ProperName(typed), expected) << typed;
}

}  // namespace
}  // namespace kvlr
