#include <gtest/gtest.h>

#include <string>

#include "interchange/Scramble.h"

namespace kvlr {
namespace {

struct BlockCase {
  const char* block;
  const char* key;
  const char* plain;
};

TEST(UnscrambleBlock, EachRangeOfCodesGoesItsOwnWay) {
  const BlockCase cases[] = {
      {"A", "3", ">"},           // below 91: c - d
      {"m", "1", "0"},           // 109 and up: c - d - 60
      {"z", "0", ">"},           //
      {"[", "2", "K"},           // 91 to 108: c + d - 18
      {"l", "9", "c"},           //
      {"AB", "12", "A?"},        // reversed first: "BA", then B-1, A-2
      {" -.:", "9999", ":.- "},  // blank, '-', '.', ':' stay, whatever the digit
      {"0123456789", "0000000000", "9876543210"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(UnscrambleBlock(c.block, c.key), c.plain) << c.block << " / " << c.key;
  }
}

TEST(UnscrambleLine, OnlyTheFiveKeyDigitsOpenALine) {
  const std::string body(130, 'Q');
  for (char digit : std::string("12345")) {
    EXPECT_TRUE(UnscrambleLine(digit + body).has_value()) << digit;
  }
  for (char digit : std::string("06789 xA")) {
    EXPECT_FALSE(UnscrambleLine(digit + body).has_value()) << digit;
  }
  EXPECT_FALSE(UnscrambleLine("").has_value());
}

TEST(UnscrambleLine, ColumnsTwoTo121GoInBlocksAndTheRestIsCopied) {
  std::string body;
  for (int i = 0; i < 130; ++i) body += static_cast<char>('A' + i % 26);
  const auto line = UnscrambleLine("2" + body);
  ASSERT_TRUE(line.has_value());
  ASSERT_EQ(line->size(), 130u);
  for (size_t block = 0; block < 12; ++block) {
    EXPECT_EQ(line->substr(block * 10, 10),
              UnscrambleBlock(body.substr(block * 10, 10), kScrambleKeys[1]))
        << block;
  }
  EXPECT_EQ(line->substr(120), body.substr(120));
  // A short line ends in a short block.
  EXPECT_EQ(UnscrambleLine("1ABC"), UnscrambleBlock("ABC", kScrambleKeys[0]));
}

TEST(ScrambleLine, RoundTripsNv3TextUnderEveryKey) {
  std::string nv3 = "D1F  Rivers Pat Q           12345678901202611062026 1:05.32Y-50.00:/";
  for (char c = 'a'; c <= 'z'; ++c) nv3 += c;
  for (char c = 'A'; c <= 'Z'; ++c) nv3 += c;
  nv3.resize(130, ' ');
  for (int key = 1; key <= 5; ++key) {
    const auto scrambled = ScrambleLine(nv3, key);
    ASSERT_TRUE(scrambled.has_value()) << key;
    ASSERT_EQ(scrambled->size(), 131u);
    EXPECT_EQ((*scrambled)[0], '0' + key);
    EXPECT_NE(scrambled->substr(1, 120), nv3.substr(0, 120));
    EXPECT_EQ(scrambled->substr(121), nv3.substr(120));
    EXPECT_EQ(UnscrambleLine(*scrambled), nv3) << key;
  }
}

TEST(ScrambleLine, RefusesWhatNoScrambledTextCouldGive) {
  EXPECT_FALSE(ScrambleLine("A1", 0).has_value());
  EXPECT_FALSE(ScrambleLine("A1", 6).has_value());
  // Column 2 of a block goes by the key's second digit, 1 in the first key: only the kept
  // '-' would unscramble to ','.
  EXPECT_FALSE(ScrambleLine("A,", 1).has_value());
  EXPECT_TRUE(ScrambleLine(",A", 1).has_value());
}

}  // namespace
}  // namespace kvlr
