#include "interchange/SdifChecks.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <tuple>
#include <vector>

#include "SdifLines.h"
#include "core/Errors.h"
#include "interchange/Cl2CheckSum.h"
#include "interchange/SdifTexts.h"

namespace kvlr {
namespace {

using testing::Cl2Line;
using testing::SdifLine;

TEST(Cl2CheckSumTest, WorkedExamples) {
  EXPECT_EQ(CL2CheckSum(std::string(156, ' ')), "37");  // 4992 / 19 -> 262 + 211 = 473
  // Columns behind 156 do not count.
  EXPECT_EQ(CL2CheckSum(std::string(160, ' ')), "37");
  // 'A' x 156 = 10140 -> 533 + 211 = 744.
  EXPECT_EQ(CL2CheckSum(std::string(156, 'A')), "44");
  // "0" alone: 48 / 19 -> 2 + 211 = 213, reversed "31".
  EXPECT_EQ(CL2CheckSum("0"), "31");
  // 19 x 1 = 19 -> 1 + 211 = 212: reversal matters.
  EXPECT_EQ(CL2CheckSum(std::string(19, '\x01')), "21");
  EXPECT_EQ(CL2CheckSum(std::string(156, '\xff')), std::nullopt) << "16-bit overflow";
}

TEST(Cl2CheckSumTest, LinesAreJudged) {
  const std::string good = Cl2Line(SdifLine("B1", {{12, "Autumn Invite"}}));
  EXPECT_EQ(CheckCL2Line(good), Cl2Line::kGood);

  std::string changed = good;
  changed[99] = '~';  // +94 moves the quotient by 4 or 5
  EXPECT_EQ(CheckCL2Line(changed), Cl2Line::kBadCheckSum);
  // The digits are stored low first: "37" for blanks, never "73".
  EXPECT_EQ(CheckCL2Line(std::string(158, ' ') + "37"), Cl2Line::kGood);
  EXPECT_EQ(CheckCL2Line(std::string(158, ' ') + "73"), Cl2Line::kBadCheckSum);
  EXPECT_EQ(CheckCL2Line(good.substr(0, 159)), Cl2Line::kBadCheckSum);
  EXPECT_EQ(CheckCL2Line(""), Cl2Line::kBadCheckSum);

  EXPECT_EQ(CheckCL2Line(Cl2Line(SdifLine("D0", {{89, "  :10.00"}}))), Cl2Line::kNotNorvan);
  EXPECT_EQ(CheckCL2Line(Cl2Line(SdifLine("D0", {{89, " 1:10.00"}}))), Cl2Line::kGood);
  EXPECT_EQ(CheckCL2Line(Cl2Line(SdifLine("E0", {{89, "  :10.00"}}))), Cl2Line::kGood);
}

TEST(CheckCodeTest, SubstringRule) {
  struct Case {
    std::string_view value, list;
    bool blank_allowed, ok;
  };
  const std::vector<Case> cases = {
      {"02", sdif::kFileCodes, false, true},     {"1,", sdif::kFileCodes, false, true},
      {"0", sdif::kFileCodes, false, true},      {"11", sdif::kFileCodes, false, false},
      {" ", sdif::kSexCodes, false, true},       {" ", sdif::kSexCodes, true, true},
      {"X", sdif::kSexCodes, false, false},      {"RED ", sdif::kColorCodes, false, true},
      {"PINK", sdif::kColorCodes, false, false}, {" H ", sdif::kStrokeCodes, false, true},
      {"m", sdif::kSexCodes, false, false}};
  for (const Case& k : cases) {
    std::string problem = "untouched";
    EXPECT_EQ(CheckCode(k.value, k.list, "Label", k.blank_allowed, &problem), k.ok)
        << "'" << k.value << "' in " << k.list;
    EXPECT_EQ(problem, k.ok ? "untouched" : "Label");
  }
}

TEST(CheckTimeAndCourseTest, TimesCodesAndCourses) {
  const std::vector<std::tuple<int32_t, std::string_view, std::string_view, bool>> cases = {
      {6234, " 1:02.34", "Y", true},  {6234, " 1:02.34", " ", true} /* blank is in every list */,
      {6234, " 1:02.34", "Q", false}, {0, "DQ      ", " ", true},
      {0, "DQ      ", "L", true},     {0, "XX      ", " ", false},
      {0, "        ", " ", true},     {0, "NT      ", "Q", false},
      {0, "SCR     ", "S", true}};
  for (const auto& [score, text, course, ok] : cases) {
    std::string problem;
    EXPECT_EQ(CheckTimeAndCourse(score, text, course, &problem), ok) << text << course;
    EXPECT_EQ(problem, ok ? "" : "Course Code") << text << course;
  }
}

TEST(ParseSwimmerNameTest, Parts) {
  struct Case {
    std::string_view name;
    bool ok;
    std::string_view last, first, initial;
  };
  const std::vector<Case> cases = {
      {"Sample, Jamie Q             ", true, "SAMPLE", "JAMIE", "Q"},
      {"SAMPLE, JAMIE               ", true, "SAMPLE", "JAMIE", ""},
      {"DE LA ROSA, MARY ANN        ", true, "DE LA ROSA", "MARY ANN", ""},
      {"Roe, Ann Marie B", true, "ROE", "ANN MARIE", "B"},
      {"Roe, Q", true, "ROE", "Q", ""},
      {"Roe,Ann", false, "", "", ""},
      {"Roe, ", false, "", "", ""},
      {"", false, "", "", ""},
      {"No Swimmer Name", true, "", "", ""}};
  for (const Case& k : cases) {
    const SwimmerName n = ParseSwimmerName(k.name);
    EXPECT_EQ(n.ok, k.ok) << k.name;
    EXPECT_EQ(n.last, k.last) << k.name;
    EXPECT_EQ(n.first, k.first) << k.name;
    EXPECT_EQ(n.initial, k.initial) << k.name;
  }
}

TEST(LineLengthTest, PerExtension) {
  EXPECT_EQ(LineLengthFor(".cl2"), 160u);
  EXPECT_EQ(LineLengthFor(".SD3"), 160u);
  EXPECT_EQ(LineLengthFor(".nv3"), 130u);
  EXPECT_EQ(LineLengthFor(".TXT"), 131u);
  EXPECT_EQ(LineLengthFor(".PSN"), std::nullopt);
  EXPECT_EQ(LineLengthMessage(160, 159), "Line length error. Line length should be 160. Found 159");
}

std::string Join(const std::vector<std::string>& lines, std::string_view end) {
  std::string out;
  for (const auto& l : lines) out += l + std::string(end);
  return out;
}

TEST(ReadInterchangeTest, StopsBehindFirstZ0WithEitherLineEnd) {
  const std::vector<std::string> lines = {
      Cl2Line(SdifLine("A0", {{12, "02"}})), Cl2Line(SdifLine("B1", {})),
      Cl2Line(SdifLine("Z0", {{12, "02"}})), "anything at all", SdifLine("Z0", {})};
  for (std::string_view end : {"\r\n", "\n"}) {
    const InterchangeLines read = ReadInterchangeText(Join(lines, end), ".cl2");
    EXPECT_TRUE(read.ok()) << read.problem;
    ASSERT_EQ(read.lines.size(), 3u);
    EXPECT_EQ(read.lines[2], lines[2]);
  }
  // No Z0 and no final line end: every line is kept.
  const InterchangeLines open = ReadInterchangeText(lines[0] + "\r\n" + lines[1], ".SD3");
  EXPECT_TRUE(open.ok());
  EXPECT_EQ(open.lines.size(), 2u);
  EXPECT_EQ(open.lines[1], lines[1]);
}

TEST(ReadInterchangeTest, WrongLengthStopsTheReading) {
  // The first line is not measured; a good check sum does not save a short line.
  const std::string short_b1 = Cl2Line(SdifLine("B1", {})).substr(0, 159);
  const InterchangeLines read = ReadInterchangeText(
      Join({"A0 short", SdifLine("B1", {}), short_b1, SdifLine("Z0", {})}, "\r\n"), ".CL2");
  EXPECT_EQ(read.problem, "Line length error. Line length should be 160. Found 159");
  EXPECT_EQ(read.bad_line, 3u);
  EXPECT_EQ(read.lines.size(), 3u);

  const InterchangeLines nv3 =
      ReadInterchangeText(Join({"A0", std::string(130, ' '), std::string(131, ' ')}, "\n"), ".NV3");
  EXPECT_EQ(nv3.problem, "Line length error. Line length should be 130. Found 131");

  const InterchangeLines psn = ReadInterchangeText(Join({"x", "yy", "zzz"}, "\n"), ".PSN");
  EXPECT_TRUE(psn.ok());
  EXPECT_EQ(psn.lines.size(), 3u);
}

TEST(ReadInterchangeTest, FilesAndMissingFiles) {
  const auto path = std::filesystem::temp_directory_path() / "kvlr_sdif_read_test.sd3";
  {
    std::ofstream out(path, std::ios::binary);
    out << SdifLine("A0", {}) << "\r\n" << SdifLine("Z0", {}) << "\r\n";
  }
  const InterchangeLines read = ReadInterchangeLines(path, ".sd3");
  EXPECT_TRUE(read.ok());
  EXPECT_EQ(read.lines.size(), 2u);
  std::filesystem::remove(path);
  EXPECT_THROW(ReadInterchangeLines(path, ".sd3"), FileError);
}

TEST(ReadInterchangeTest, RandomBytesNeverBreakTheReader) {
  std::mt19937 rng(7);
  for (int round = 0; round < 300; ++round) {
    std::string text(rng() % 700, ' ');
    for (char& ch : text)
      ch = static_cast<char>(rng() % 4 == 0 ? "\r\nZ0"[rng() % 4] : rng() % 256);
    const InterchangeLines read = ReadInterchangeText(text, round % 2 ? ".cl2" : ".psn");
    for (size_t i = 0; i + 1 < read.lines.size(); ++i) {
      EXPECT_NE(read.lines[i].rfind("Z0", 0), 0u) << "nothing is read behind a Z0";
    }
    for (const auto& line : read.lines) {
      (void)CheckCL2Line(line);
      (void)ParseSwimmerName(line);
    }
  }
}

}  // namespace
}  // namespace kvlr
