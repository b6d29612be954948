#include "core/TextClean.h"

#include <gtest/gtest.h>

namespace kvlr {
namespace {

TEST(TextCleanTest, CharacterFilters) {
  EXPECT_EQ(StripIt(" x1:02.5-3s"), "1:02.53");
  EXPECT_EQ(RemoveBadCharacters("a*b.c\\d/e f"), "abcde f");
  EXPECT_EQ(ValidTableName("my std's [2024]. v!1"), "MYSTDS2024V1");
}

TEST(TextCleanTest, RemoveCharAtIsOneBased) {
  EXPECT_EQ(RemoveCharAt("abc", 1), "bc");
  EXPECT_EQ(RemoveCharAt("abc", 3), "ab");
  EXPECT_EQ(RemoveCharAt("abc", 4), "abc");
  EXPECT_EQ(RemoveCharAt("abc", 0), "abc");
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
