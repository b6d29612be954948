#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "interchange/Nv3CheckSum.h"
#include "interchange/Nv3Records.h"
#include "interchange/Nv3Texts.h"

namespace kvlr {
namespace {

// Builds a line the way the column tables describe one: 130 blanks, fields placed by
// column (text left, numbers right-aligned into their columns), the sum last.
class LineMaker {
 public:
  explicit LineMaker(std::string_view code) : line_(kNv3LineLength, ' ') { Put(1, 2, code); }
  LineMaker& Put(std::size_t first, std::size_t last, std::string_view text) {
    line_.replace(first - 1, std::min(text.size(), last - first + 1),
                  text.substr(0, last - first + 1));
    return *this;
  }
  LineMaker& Right(std::size_t first, std::size_t last, std::string_view text) {
    if (text.size() > last - first + 1) text = text.substr(0, last - first + 1);
    return Put(last - text.size() + 1, last, text);
  }
  std::string Done() {
    line_.replace(128, 2, NV3CheckSum(line_));
    return line_;
  }
  std::string Raw() const { return line_; }

 private:
  std::string line_;
};

using SumFn = std::string (*)(std::string_view);

struct SumCase {
  const char* name;
  SumFn sum;
  const char* blanks;  // 128 blanks
  const char* a1;      // "A1" then blanks
  const char* all_ff;  // 128 characters of code 255: the 16-bit total wraps
};

class Nv3SumTest : public ::testing::TestWithParam<SumCase> {};

TEST_P(Nv3SumTest, KnownLinesGiveTheirDigits) {
  const SumCase& c = GetParam();
  EXPECT_EQ(c.sum(std::string(128, ' ')), c.blanks);
  EXPECT_EQ(c.sum("A1" + std::string(126, ' ')), c.a1);
  EXPECT_EQ(c.sum(std::string(128, '\xff')), c.all_ff);
  // Columns past 128 take no part; missing columns count as blanks.
  EXPECT_EQ(c.sum(std::string(128, ' ') + "99"), c.blanks);
  EXPECT_EQ(c.sum(""), c.blanks);
}

TEST_P(Nv3SumTest, EveryColumnCounts) {
  const SumCase& c = GetParam();
  for (std::size_t column = 1; column <= 128; ++column) {
    std::string line(128, ' ');
    line[column - 1] = 'z';
    EXPECT_NE(c.sum(line), c.blanks) << "column " << column;
  }
}

// Worked by hand: sum 6144 / 21 -> 292 + 205 = 497 -> "79"; "A1" adds 67 -> 500 -> "00";
// 0xff wraps 48960 to -16576, floored -790 + 205 = -585 -> "58".
INSTANTIATE_TEST_SUITE_P(
    Sums, Nv3SumTest,
    ::testing::Values(SumCase{"Sum1", NV3CheckSum, "79", "00", "58"},
                      // 12288/34 -> 361+241=602; +150 -> 606; 97920 wraps to 32384 -> 952+241
                      SumCase{"Sum2", NV3CheckSum2, "20", "60", "39"},
                      // 10240/47 -> 217+462=679; +117 -> 682; 81600 wraps to 16064 -> 341+462
                      SumCase{"Sum3", NV3CheckSum3, "97", "28", "30"},
                      // 8160/26 -> 313+139=452; +67 -> 455; 65025 wraps to -511 -> -20+139
                      SumCase{"Sum4", NV3CheckSum4, "25", "55", "91"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Nv3LineCheck, LengthAndSum) {
  const std::string blank = std::string(128, ' ') + "79";
  EXPECT_TRUE(CheckNV3Line(blank));
  EXPECT_TRUE(CheckNV3Line(blank + "\r\n"));
  EXPECT_FALSE(CheckNV3Line(blank + " "));  // good sum, 131 columns
  EXPECT_FALSE(CheckNV3Line(std::string(127, ' ') + "79"));
  EXPECT_FALSE(CheckNV3Line(std::string(128, ' ') + "97"));
  EXPECT_FALSE(CheckNV3Line(""));
  std::string changed = blank;
  changed[40] = 'X';
  EXPECT_FALSE(CheckNV3Line(changed));
}

TEST(Nv3LineCheck, FallbackTakesOnlyTheOtherSums) {
  const std::string body(128, ' ');
  EXPECT_FALSE(CheckNV3LineFallback(body + "79"));
  for (const char* digits : {"20", "97", "25"}) {
    EXPECT_TRUE(CheckNV3LineFallback(body + digits)) << digits;
    EXPECT_FALSE(CheckNV3Line(body + digits)) << digits;
    EXPECT_FALSE(CheckNV3LineFallback(body + digits + " ")) << digits;
  }
}

struct HeaderCase {
  const char* code;
  const char* version;
  bool allow_entries;
  bool ok;
  const char* source;
  bool has_entries;
  std::string_view message;
};

TEST(Nv3Header, FileCodes) {
  const HeaderCase cases[] = {
      {"01", "2.1DaKVL-R", false, false, "", false,
       "This file contains Meet Entries and is not a candidate for import."},
      {"01", "2.1DaKVL-R", true, true, "CS", true, ""},
      {"08", "2.1Da", false, false, "", false,
       "This file contains Meet Entries and is not a candidate for import."},
      {"08", "2.1Da", true, true, "CS", true, ""},
      {"02", "", false, true, "WB", false, ""},
      {"02", "", true, true, "CS", true, ""},
      {"12", "", false, true, "WB", false, ""},
      {"03", "2.1Da", false, true, "CS", false, ""},
      {"03", "4.0 GS", false, true, "GS", false, ""},
      {"04", "", true, false, "", false,
       "This file contains GALA STEWARD specific Merge Results  and is not a candidate for "
       "import."},
      {"05", "", false, false, "", false,
       "This file contains GALA STEWARD specific Merge Results  and is not a candidate for "
       "import."},
      {"06", "", true, false, "", false,
       "This file contains GALA STEWARD specific Merge Results  and is not a candidate for "
       "import."},
      {"07", "", false, true, "GS", false, ""},
      {"09", "GS", false, true, "CS", false, ""},
      {"11", "", true, true, "", false,
       "CLUB STEWARD Proof of Time for GALA STEWARD \r\nUse GALA STEWARD for Windows to review "
       "this data."},
      {"11", "", false, false, "", false,
       "This file contains CLUB STEWARD Proof of Time for GALA STEWARD  and is not a candidate for "
       "import."},
      {"10", "", true, false, "", false,
       "This file contains UNKNOWN contents  and is not a candidate for import."},
      {"  ", "", true, false, "", false,
       "This file contains UNKNOWN contents  and is not a candidate for import."},
  };
  for (const HeaderCase& c : cases) {
    const std::string line = LineMaker("A1")
                                 .Put(3, 4, c.code)
                                 .Put(5, 29, "Meet Entries")
                                 .Put(30, 44, "Norvan, Ltd")
                                 .Put(45, 58, c.version)
                                 .Put(59, 75, "11222026 10:30")
                                 .Done();
    const Nv3HeaderCheck check = CheckNV3Header(line, c.allow_entries);
    SCOPED_TRACE(std::string(c.code) + " allow " + (c.allow_entries ? "yes" : "no"));
    EXPECT_EQ(check.ok, c.ok);
    EXPECT_EQ(check.source, c.source);
    EXPECT_EQ(check.has_entries, c.has_entries);
    EXPECT_EQ(check.message, c.message);
    EXPECT_EQ(check.file_code, Nv3Columns(c.code, 1, 2) == "  " ? "" : c.code);
  }
}

TEST(Nv3Header, CreatorMustMatchExactly) {
  for (const char* creator : {"NORVAN, LTD", "Norvan Ltd", "", "Norvan, Ltd."}) {
    const std::string line = LineMaker("A1").Put(3, 4, "09").Put(30, 44, creator).Done();
    const Nv3HeaderCheck check = CheckNV3Header(line, true);
    EXPECT_FALSE(check.ok) << creator;
    EXPECT_EQ(check.message, "Not a Norvan created .NV3 file !") << creator;
  }
  const std::string padded = LineMaker("A1").Put(3, 4, "09").Put(32, 44, "Norvan, Ltd").Done();
  EXPECT_TRUE(CheckNV3Header(padded, false).ok);
  const Nv3Header header =
      LoadNV3A1Rec(LineMaker("A1").Put(45, 58, "2.1DaKVL-R").Put(59, 75, "11222026 1030").Raw());
  EXPECT_EQ(header.version, "2.1DaKVL-R    ");
  EXPECT_EQ(header.date_time, "11222026 1030    ");
}

TEST(Nv3Dates, BlankBadAndOrder) {
  EXPECT_EQ(ParseNv3Date("03152025", 0), (Date{2025, 3, 15}));
  EXPECT_EQ(ParseNv3Date("03152025", 1), (Date{2025, 3, 15}));
  EXPECT_EQ(ParseNv3Date("03152025", 2), (Date{2025, 3, 15}));
  EXPECT_EQ(ParseNv3Date("        ", 0), kNv3BlankDate);
  EXPECT_EQ(ParseNv3Date("", 1), kNv3BlankDate);
  EXPECT_EQ(ParseNv3Date("13312004", 0), std::nullopt);
  EXPECT_EQ(ParseNv3Date("02302024", 1), std::nullopt);
  EXPECT_EQ(ParseNv3Date("ab cd", 0), std::nullopt);
}

TEST(Nv3Records, MeetTeamAndAthlete) {
  const std::string b1 = LineMaker("B1")
                             .Put(3, 47, "Autumn Invitational at the Lake Pool Complex!")
                             .Put(48, 92, "Riverside Aquatic Centre, Lakeview Parkway 123")
                             .Put(93, 100, "10042026")
                             .Put(109, 116, "12312026")
                             .Done();
  const Nv3Meet meet = LoadNV3B1Rec(b1, 0);
  EXPECT_EQ(meet.name, "Autumn Invitational at the Lake Pool Complex!");
  EXPECT_EQ(meet.location, "ex!Riverside Aquatic Centre, Lakeview Parkway");
  EXPECT_EQ(meet.start, (Date{2026, 10, 4}));
  EXPECT_EQ(meet.end, kNv3BlankDate);
  EXPECT_EQ(meet.age_up, (Date{2026, 12, 31}));

  const Nv3MeetKind b2 =
      LoadNV3B2Rec(LineMaker("B2").Put(97, 98, "SL").Put(99, 99, "S").Put(107, 108, "SC").Done());
  EXPECT_EQ(b2.type, "SL");
  EXPECT_EQ(b2.course_letter, "S");
  EXPECT_EQ(b2.course, "SC");

  const Nv3Team c1 = LoadNv3C1Rec(LineMaker("C1")
                                      .Put(3, 7, "DOLPH")
                                      .Put(8, 37, "Dolphin Swim Club of Westfield")
                                      .Put(38, 53, "Dolphins")
                                      .Put(54, 55, "NE")
                                      .Put(117, 119, "ABC")
                                      .Put(120, 122, "XYZ")
                                      .Done());
  EXPECT_EQ(c1.code, "DOLPH");
  EXPECT_EQ(c1.name, "Dolphin Swim Club of Westfield");
  EXPECT_EQ(c1.short_name, "Dolphins");
  EXPECT_EQ(c1.lsc, "NE");
  EXPECT_EQ(c1.code1, "ABC");
  EXPECT_EQ(c1.code2, "XYZ");

  LineMaker d1("D1");
  d1.Put(3, 3, "F").Right(4, 8, "42").Put(9, 28, "Marlowe").Put(29, 48, "Elizabeth");
  d1.Put(49, 68, "Betsy").Put(69, 69, "J").Put(70, 83, "010203ELIJMARL");
  d1.Put(89, 96, "07142013").Right(97, 99, "13");
  const Nv3Athlete a = LoadNV3AthleteRec(d1.Done(), 1);
  EXPECT_EQ(a.sex, "F");
  EXPECT_EQ(a.athlete, 42);
  EXPECT_EQ(a.last, "Marlowe");
  EXPECT_EQ(a.first, "Elizabeth");
  EXPECT_EQ(a.pref, "Betsy");
  EXPECT_EQ(a.initial, "J");
  EXPECT_EQ(a.id_no, "010203ELIJMARL");
  EXPECT_EQ(a.birth, (Date{2013, 7, 14}));
  EXPECT_EQ(a.age, "13");
  EXPECT_EQ(LoadNV3AthleteRec(LineMaker("D1").Right(97, 99, "0").Done(), 0).age, "");
}

TEST(Nv3Records, AgeGroups) {
  struct Case {
    int lo_hi;
    const char* text;
  } cases[] = {{1011, " 10 11"}, {99, "  0109"}, {1599, " 15109"}, {10, "  0 10"}, {506, " 05 06"}};
  for (const Case& c : cases) {
    EXPECT_EQ(NV3AgeText(c.lo_hi), c.text) << c.lo_hi;
    EXPECT_EQ(Nv3AgeGroup(c.text), c.lo_hi) << c.text;
  }
  EXPECT_EQ(Nv3AgeGroup("1 12"), 12);  // short text padded on the left; low 1 reads as 0
  EXPECT_EQ(Nv3AgeGroup("  1109"), 99);
}

TEST(Nv3Records, StrokeLetters) {
  struct Case {
    int distance;
    const char* letter;
    int stroke;
    int read_distance;
  } cases[] = {{100, "A", 1, 100}, {200, "E", 5, 200}, {1, "F", 6, 9991}, {3, "H", 6, 9992},
               {10, "G", 6, 9993}, {11, "", 7, 11},    {3, "", 6, 3},     {50, "", 0, 50}};
  for (const Case& c : cases) {
    const std::string line =
        LineMaker("E1").Right(16, 21, std::to_string(c.distance)).Put(22, 22, c.letter).Done();
    const Nv3Entry e = LoadNV3EventRec(line);
    EXPECT_EQ(e.key.stroke, c.stroke) << c.distance << c.letter;
    EXPECT_EQ(e.key.distance, c.read_distance) << c.distance << c.letter;
  }
  EXPECT_EQ(NV3StrokeLetter(3, 100), "C");
  EXPECT_EQ(NV3StrokeLetter(6, 9992), "H");
  EXPECT_EQ(NV3StrokeLetter(7, 9993), "G");
  EXPECT_EQ(NV3StrokeLetter(6, 5), "");
}

TEST(Nv3Records, EntryAndResultPair) {
  LineMaker e1("E1");
  e1.Put(3, 3, "M").Right(4, 8, "7").Put(9, 13, "Hollo").Put(14, 14, "M").Put(15, 15, "B");
  e1.Right(16, 21, "100").Put(22, 22, "B").Put(23, 28, " 11 12").Right(33, 38, "4.5");
  e1.Right(39, 41, "23").Put(42, 42, "L").Right(52, 59, "65.43").Put(60, 60, "Y");
  e1.Right(61, 68, "12.5").Put(81, 81, "Y").Put(84, 84, "X").Right(86, 88, "12");
  e1.Put(92, 92, "C").Put(95, 95, "L").Put(96, 96, "G");
  const Nv3Entry e = LoadNV3EventRec(e1.Done());
  EXPECT_EQ(e.sex, "M");
  EXPECT_EQ(e.athlete, 7);
  EXPECT_EQ(e.last5, "Hollo");
  EXPECT_EQ(e.key.event_sex, "B");
  EXPECT_EQ(e.key.distance, 100);
  EXPECT_EQ(e.key.stroke, 2);
  EXPECT_EQ(e.key.lo_hi, 1112);
  EXPECT_FLOAT_EQ(e.fee, 4.5f);
  EXPECT_EQ(e.key.event_number, 23);
  EXPECT_EQ(e.key.event_letter, "L");
  EXPECT_EQ(e.lead_off, "L");
  EXPECT_EQ(e.key.seed_score, 6543);
  EXPECT_EQ(e.key.seed_text, "1:05.43");
  EXPECT_EQ(e.key.seed_course, "Y");
  EXPECT_EQ(e.points_tenths, 125);
  EXPECT_EQ(e.exhibition, "Y");
  EXPECT_EQ(e.key.col84, "X");
  EXPECT_EQ(e.col92, "C");
  EXPECT_EQ(e.age, 12);
  EXPECT_EQ(e.gs_mark, "G");

  // A digit in column 42 belongs to the event number; an age at 89-91 wins over 86-88.
  const Nv3Entry wide = LoadNV3EventRec(
      LineMaker("E1").Right(39, 42, "1234").Right(86, 88, "9").Right(89, 91, "11").Done());
  EXPECT_EQ(wide.key.event_number, 1234);
  EXPECT_EQ(wide.key.event_letter, "");
  EXPECT_EQ(wide.key.seed_text, "NT");
  EXPECT_EQ(wide.age, 11);
  const Nv3Entry dive = LoadNV3EventRec(
      LineMaker("E1").Right(16, 21, "1").Put(22, 22, "F").Right(52, 59, "245.50").Done());
  EXPECT_EQ(dive.key.seed_text, "245.50");
  EXPECT_EQ(dive.key.seed_score, 24550);

  LineMaker e2("E2");
  e2.Put(3, 3, "P").Right(4, 11, "65.12").Put(12, 12, "Y").Put(16, 16, "X").Right(30, 33, "3");
  e2.Right(61, 63, "17");
  e2.Put(64, 64, "F").Right(65, 72, "0.00").Put(73, 73, "Y").Put(74, 74, "Q").Right(91, 94, "12");
  const Nv3Result r = LoadNV3ResultRec(e2.Done());
  EXPECT_EQ(r.first.f_p, "P");
  EXPECT_EQ(r.first.score, 6512);
  EXPECT_EQ(r.first.time_text, "1:05.12");
  EXPECT_EQ(r.first.course, "Y");
  EXPECT_EQ(r.first.nt, 0);
  EXPECT_EQ(r.first.exhibition, "X");
  EXPECT_EQ(r.first.place, 3);
  EXPECT_EQ(r.number, 17);
  EXPECT_EQ(r.second.f_p, "F");
  EXPECT_EQ(r.second.score, 0);
  EXPECT_EQ(r.second.nt, 5);
  EXPECT_EQ(r.second.nt_text, "DQ");
  EXPECT_EQ(r.second.place, 12);
}

TEST(Nv3Records, NonTimeLetters) {
  struct Case {
    const char* letter;
    int nt;
    const char* text;
  } cases[] = {{"Q", 5, "DQ"}, {"D", 3, "DNF"}, {"S", 1, "SCR"},
               {"R", 2, "NS"}, {"N", 0, ""},    {" ", 0, ""}};
  for (const Case& c : cases) {
    const Nv3Result r = LoadNV3ResultRec(LineMaker("E2").Put(13, 13, c.letter).Done());
    EXPECT_EQ(r.first.nt, c.nt) << c.letter;
    EXPECT_EQ(r.first.nt_text, c.text) << c.letter;
  }
}

TEST(Nv3Records, RelayAndSplits) {
  LineMaker f1("F1");
  f1.Put(3, 7, "DOLPH").Put(8, 8, "A").Put(9, 12, "ABCD").Put(15, 15, "X").Right(16, 21, "200");
  f1.Put(22, 22, "E").Put(23, 28, "  0109").Right(39, 42, "45").Right(52, 59, "130.00");
  const Nv3Relay relay = LoadNV3RelayRec(f1.Done());
  EXPECT_EQ(relay.team, "DOLPH");
  EXPECT_EQ(relay.relay_letter, "A");
  EXPECT_EQ(relay.col9, "ABCD");
  EXPECT_EQ(relay.key.event_sex, "X");
  EXPECT_EQ(relay.key.stroke, 5);
  EXPECT_EQ(relay.key.lo_hi, 99);
  EXPECT_EQ(relay.key.event_number, 45);
  EXPECT_EQ(relay.key.seed_score, 13000);

  LineMaker g1("G1");
  g1.Put(3, 3, "F").Right(4, 5, "1").Right(6, 13, "30.12");
  g1.Put(14, 14, "F").Right(15, 16, "2").Right(17, 24, "63.50");
  g1.Put(25, 25, "F").Right(26, 27, "0").Right(28, 35, "99.00");  // ends the line
  g1.Put(36, 36, "F").Right(37, 38, "4").Right(39, 46, "130.00");
  const Nv3Splits splits = LoadNV3SplitRec(g1.Done());
  ASSERT_EQ(splits.count, 2);
  EXPECT_EQ(splits.splits[0].f_p, "F");
  EXPECT_EQ(splits.splits[0].number, 1);
  EXPECT_EQ(splits.splits[0].value, 3012);
  EXPECT_EQ(splits.splits[1].number, 2);
  EXPECT_EQ(splits.splits[1].value, 6350);

  LineMaker full("G1");
  for (int g = 0; g < 11; ++g)
    full.Put(3 + g * 11, 3 + g * 11, "P").Right(4 + g * 11, 5 + g * 11, std::to_string(g + 1));
  EXPECT_EQ(LoadNV3SplitRec(full.Done()).count, 11);
}

TEST(Nv3Records, DamagedLinesNeverCrash) {
  std::mt19937 random(20261122);
  std::vector<std::string> lines = {"", "E", "E1", "G1 1", std::string(129, '\xff')};
  for (int i = 0; i < 300; ++i) {
    std::string line(random() % 200, ' ');
    for (char& c : line) c = static_cast<char>(random() % 256);
    lines.push_back(line);
  }
  for (const std::string& line : lines) {
    CheckNV3Line(line);
    CheckNV3LineFallback(line);
    CheckNV3Header(line, true);
    LoadNV3B1Rec(line, 0);
    LoadNV3B2Rec(line);
    LoadNv3C1Rec(line);
    LoadNV3AthleteRec(line, 2);
    LoadNV3EventRec(line);
    LoadNV3ResultRec(line);
    LoadNV3RelayRec(line);
    const Nv3Splits splits = LoadNV3SplitRec(line);
    EXPECT_LE(splits.count, 11);
  }
  // A short line reads as if blank-filled.
  const Nv3Athlete a = LoadNV3AthleteRec("D1M   12Ash", 0);
  EXPECT_EQ(a.athlete, 12);
  EXPECT_EQ(a.last, "Ash");
  EXPECT_EQ(a.birth, kNv3BlankDate);
}

}  // namespace
}  // namespace kvlr
