#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "FileMaker.h"
#include "interchange/Nv3CheckSum.h"
#include "interchange/Nv3Records.h"
#include "interchange/Nv3Texts.h"

namespace kvlr {
namespace {

using testing::Nv3;

using SumFn = std::string (*)(std::string_view);

struct SumCase {
  const char* name;
  SumFn sum;
  const char* blanks;  // 128 blanks
  const char* a1;      // "A1" then blanks
  const char* all_ff;  // 128 characters of code 255: the 16-bit total wraps
};

class Nv3SumTest : public ::testing::TestWithParam<SumCase> {};

TEST_P(Nv3SumTest, KnownLinesGiveTheirDigitsAndEveryColumnCounts) {
  const SumCase& c = GetParam();
  EXPECT_EQ(c.sum(std::string(128, ' ')), c.blanks);
  EXPECT_EQ(c.sum("A1" + std::string(126, ' ')), c.a1);
  EXPECT_EQ(c.sum(std::string(128, '\xff')), c.all_ff);
  // Columns past 128 take no part; missing columns count as blanks.
  EXPECT_EQ(c.sum(std::string(128, ' ') + "99"), c.blanks);
  EXPECT_EQ(c.sum(""), c.blanks);
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

TEST(Nv3LineCheck, LengthSumAndTheFallbackSums) {
  const std::string body(128, ' ');
  const std::string blank = body + "79";
  EXPECT_TRUE(CheckNV3Line(blank));
  EXPECT_TRUE(CheckNV3Line(blank + "\r\n"));
  EXPECT_FALSE(CheckNV3Line(blank + " "));  // good sum, 131 columns
  EXPECT_FALSE(CheckNV3Line(std::string(127, ' ') + "79"));
  EXPECT_FALSE(CheckNV3Line(body + "97"));
  EXPECT_FALSE(CheckNV3Line(""));
  std::string changed = blank;
  changed[40] = 'X';
  EXPECT_FALSE(CheckNV3Line(changed));
  EXPECT_FALSE(CheckNV3LineFallback(blank));
  for (const char* digits : {"20", "97", "25"}) {
    EXPECT_TRUE(CheckNV3LineFallback(body + digits)) << digits;
    EXPECT_FALSE(CheckNV3Line(body + digits)) << digits;
    EXPECT_FALSE(CheckNV3LineFallback(body + digits + " ")) << digits;
  }
}

TEST(Nv3Header, FileCodes) {
  const std::string entries = "This file contains Meet Entries and is not a candidate for import.";
  const std::string merge =
      "This file contains GALA STEWARD specific Merge Results  and is not a candidate for import.";
  const std::string unknown =
      "This file contains UNKNOWN contents  and is not a candidate for import.";
  struct Case {
    const char* code;
    const char* version;
    bool allow_entries;
    bool ok;
    const char* source;
    bool has_entries;
    std::string message;
  };
  const Case cases[] = {
      {"01", "2.1DaKVL-R", false, false, "", false, entries},
      {"01", "2.1DaKVL-R", true, true, "CS", true, ""},
      {"08", "2.1Da", false, false, "", false, entries},
      {"08", "2.1Da", true, true, "CS", true, ""},
      {"02", "", false, true, "WB", false, ""},
      {"02", "", true, true, "CS", true, ""},
      {"12", "", false, true, "WB", false, ""},
      {"03", "2.1Da", false, true, "CS", false, ""},
      {"03", "4.0 GS", false, true, "GS", false, ""},
      {"04", "", true, false, "", false, merge},
      {"05", "", false, false, "", false, merge},
      {"06", "", true, false, "", false, merge},
      {"07", "", false, true, "GS", false, ""},
      {"09", "GS", false, true, "CS", false, ""},
      {"11", "", true, true, "", false,
       "CLUB STEWARD Proof of Time for GALA STEWARD \r\nUse GALA STEWARD for Windows to review "
       "this data."},
      {"11", "", false, false, "", false,
       "This file contains CLUB STEWARD Proof of Time for GALA STEWARD  and is not a candidate for "
       "import."},
      {"10", "", true, false, "", false, unknown},
      {"  ", "", true, false, "", false, unknown},
  };
  for (const Case& c : cases) {
    const std::string line = Nv3("A1", {{"file_code", c.code},
                                        {"kind", "Meet Entries"},
                                        {"creator", "Norvan, Ltd"},
                                        {"version", c.version},
                                        {"date_time", "11222026 10:30"}});
    const Nv3HeaderCheck check = CheckNV3Header(line, c.allow_entries);
    SCOPED_TRACE(std::string(c.code) + " allow " + (c.allow_entries ? "yes" : "no"));
    EXPECT_EQ(std::tie(check.ok, check.source, check.has_entries, check.message),
              std::make_tuple(c.ok, c.source, c.has_entries, c.message));
    EXPECT_EQ(check.file_code, std::string(c.code) == "  " ? "" : c.code);
  }
}

TEST(Nv3Header, CreatorMustMatchExactly) {
  for (const char* creator : {"NORVAN, LTD", "Norvan Ltd", "", "Norvan, Ltd."}) {
    const Nv3HeaderCheck check =
        CheckNV3Header(Nv3("A1", {{"file_code", "09"}, {"creator", creator}}), true);
    EXPECT_FALSE(check.ok) << creator;
    EXPECT_EQ(check.message, "Not a Norvan created .NV3 file !") << creator;
  }
  EXPECT_TRUE(CheckNV3Header(Nv3("A1", "file_code=09|creator=  Norvan, Ltd"), false).ok);
  const Nv3Header header = LoadNV3A1Rec(Nv3("A1", "version=2.1DaKVL-R|date_time=11222026 1030"));
  EXPECT_EQ(header.version, "2.1DaKVL-R    ");
  EXPECT_EQ(header.date_time, "11222026 1030    ");
}

TEST(Nv3Dates, BlankBadAndOrder) {
  for (int order = 0; order < 3; ++order) {
    EXPECT_EQ(ParseNv3Date("03152025", order), (Date{2025, 3, 15}));
  }
  EXPECT_EQ(ParseNv3Date("        ", 0), kNv3BlankDate);
  EXPECT_EQ(ParseNv3Date("", 1), kNv3BlankDate);
  EXPECT_EQ(ParseNv3Date("13312004", 0), std::nullopt);
  EXPECT_EQ(ParseNv3Date("02302024", 1), std::nullopt);
  EXPECT_EQ(ParseNv3Date("ab cd", 0), std::nullopt);
}

TEST(Nv3Records, MeetTeamAndAthlete) {
  const Nv3Meet meet = LoadNV3B1Rec(
      Nv3("B1",
          "meet_name=Autumn Invitational at the Lake Pool Complex!|"
          "location=Riverside Aquatic Centre, Lakeview Parkway 12|start=10042026|age_up=12312026"),
      0);
  EXPECT_EQ(std::tie(meet.name, meet.location, meet.start, meet.end, meet.age_up),
            std::make_tuple("Autumn Invitational at the Lake Pool Complex!",
                            "ex!Riverside Aquatic Centre, Lakeview Parkway", Date{2026, 10, 4},
                            kNv3BlankDate, Date{2026, 12, 31}));

  const Nv3MeetKind b2 = LoadNV3B2Rec(Nv3("B2", "meet_type=SL|course_letter=S|course=SC"));
  EXPECT_EQ(std::tie(b2.type, b2.course_letter, b2.course), std::make_tuple("SL", "S", "SC"));

  const Nv3Team c1 = LoadNv3C1Rec(
      Nv3("C1",
          "team_code=DOLPH|team_name=Dolphin Swim Club of Westfield|short_name=Dolphins|lsc=NE|"
          "code1=ABC|code2=XYZ"));
  EXPECT_EQ(
      std::tie(c1.code, c1.name, c1.short_name, c1.lsc, c1.code1, c1.code2),
      std::make_tuple("DOLPH", "Dolphin Swim Club of Westfield", "Dolphins", "NE", "ABC", "XYZ"));

  const Nv3Athlete a =
      LoadNV3AthleteRec(Nv3("D1",
                            "sex=F|athlete=42|last=Marlowe|first=Elizabeth|pref=Betsy|initial=J|"
                            "id_no=010203ELIJMARL|birth=07142013|age=13"),
                        1);
  EXPECT_EQ(std::tie(a.sex, a.athlete, a.last, a.first, a.pref, a.initial, a.id_no, a.birth, a.age),
            std::make_tuple("F", 42, "Marlowe", "Elizabeth", "Betsy", "J", "010203ELIJMARL",
                            Date{2013, 7, 14}, "13"));
  EXPECT_EQ(LoadNV3AthleteRec(Nv3("D1", {{"age", "0"}}), 0).age, "");
}

TEST(Nv3Records, AgeGroupsAndStrokeLetters) {
  const std::pair<int, const char*> groups[] = {
      {1011, " 10 11"}, {99, "  0109"}, {1599, " 15109"}, {10, "  0 10"}, {506, " 05 06"}};
  for (const auto& [lo_hi, text] : groups) {
    EXPECT_EQ(NV3AgeText(lo_hi), text) << lo_hi;
    EXPECT_EQ(Nv3AgeGroup(text), lo_hi) << text;
  }
  EXPECT_EQ(Nv3AgeGroup("1 12"), 12);  // short text padded on the left; low 1 reads as 0
  EXPECT_EQ(Nv3AgeGroup("  1109"), 99);

  struct Case {
    int distance;
    const char* letter;
    int stroke;
    int read_distance;
  } cases[] = {{100, "A", 1, 100}, {200, "E", 5, 200}, {1, "F", 6, 9991}, {3, "H", 6, 9992},
               {10, "G", 6, 9993}, {11, "", 7, 11},    {3, "", 6, 3},     {50, "", 0, 50}};
  for (const Case& c : cases) {
    const Nv3Entry e = LoadNV3EventRec(
        Nv3("E1", {{"distance", std::to_string(c.distance)}, {"stroke_letter", c.letter}}));
    EXPECT_EQ(e.key.stroke, c.stroke) << c.distance << c.letter;
    EXPECT_EQ(e.key.distance, c.read_distance) << c.distance << c.letter;
  }
  EXPECT_EQ(NV3StrokeLetter(3, 100), "C");
  EXPECT_EQ(NV3StrokeLetter(6, 9992), "H");
  EXPECT_EQ(NV3StrokeLetter(7, 9993), "G");
  EXPECT_EQ(NV3StrokeLetter(6, 5), "");
}

TEST(Nv3Records, EntryAndResultPair) {
  const Nv3Entry e = LoadNV3EventRec(
      Nv3("E1",
          "sex=M|athlete=7|last5=Hollo|sex2=M|event_sex=B|distance=100|stroke_letter=B|"
          "age_group= 11 12|fee=4.5|event_number=23|event_letter=L|seed_time=65.43|"
          "seed_course=Y|points=12.5|exhibition=Y|col84=X|age=12|col92=C|lead_off=L|gs_mark=G"));
  EXPECT_EQ(std::tie(e.sex, e.athlete, e.last5, e.fee, e.lead_off, e.points_tenths, e.exhibition,
                     e.col92, e.age, e.gs_mark),
            std::make_tuple("M", 7, "Hollo", 4.5f, "L", 125, "Y", "C", 12, "G"));
  const Nv3EventKey& k = e.key;
  EXPECT_EQ(std::tie(k.event_sex, k.distance, k.stroke, k.lo_hi, k.event_number, k.event_letter,
                     k.seed_score, k.seed_text, k.seed_course, k.col84),
            std::make_tuple("B", 100, 2, 1112, 23, "L", 6543, "1:05.43", "Y", "X"));

  // A digit in column 42 belongs to the event number; an age at 89-91 wins over 86-88.
  const Nv3Entry wide = LoadNV3EventRec(Nv3("E1", "event_number=123|event_letter=4|age=9|age2=11"));
  EXPECT_EQ(std::tie(wide.key.event_number, wide.key.event_letter, wide.key.seed_text, wide.age),
            std::make_tuple(1234, "", "NT", 11));
  const Nv3Entry dive = LoadNV3EventRec(Nv3("E1", "distance=1|stroke_letter=F|seed_time=245.50"));
  EXPECT_EQ(std::tie(dive.key.seed_text, dive.key.seed_score), std::make_tuple("245.50", 24550));

  const Nv3Result r = LoadNV3ResultRec(
      Nv3("E2",
          "f_p=P|score=65.12|course=Y|exhibition=X|place=3|number=17|f_p2=F|score2=0.00|"
          "course2=Y|nt_letter2=Q|place2=12"));
  const Nv3Swim& p = r.first;
  EXPECT_EQ(std::tie(p.f_p, p.score, p.time_text, p.course, p.nt, p.exhibition, p.place, r.number),
            std::make_tuple("P", 6512, "1:05.12", "Y", 0, "X", 3, 17));
  const Nv3Swim& f = r.second;
  EXPECT_EQ(std::tie(f.f_p, f.score, f.nt, f.nt_text, f.place),
            std::make_tuple("F", 0, 5, "DQ", 12));
}

TEST(Nv3Records, NonTimeLetters) {
  struct Case {
    const char* letter;
    int nt;
    const char* text;
  } cases[] = {{"Q", 5, "DQ"}, {"D", 3, "DNF"}, {"S", 1, "SCR"},
               {"R", 2, "NS"}, {"N", 0, ""},    {" ", 0, ""}};
  for (const Case& c : cases) {
    const Nv3Result r = LoadNV3ResultRec(Nv3("E2", {{"nt_letter", c.letter}}));
    EXPECT_EQ(std::tie(r.first.nt, r.first.nt_text), std::make_tuple(c.nt, c.text)) << c.letter;
  }
}

TEST(Nv3Records, RelayAndSplits) {
  const Nv3Relay relay = LoadNV3RelayRec(
      Nv3("F1",
          "team_code=DOLPH|relay_letter=A|col9=ABCD|event_sex=X|distance=200|stroke_letter=E|"
          "age_group=  0109|event_number=45|seed_time=130.00"));
  EXPECT_EQ(
      std::tie(relay.team, relay.relay_letter, relay.col9, relay.key.event_sex, relay.key.stroke,
               relay.key.lo_hi, relay.key.event_number, relay.key.seed_score),
      std::make_tuple("DOLPH", "A", "ABCD", "X", 5, 99, 45, 13000));

  // The third group's split number 0 ends the line.
  const Nv3Splits splits = LoadNV3SplitRec(
      Nv3("G1",
          "f_p1=F|split_number1=1|value1=30.12|f_p2=F|split_number2=2|value2=63.50|f_p3=F|"
          "split_number3=0|value3=99.00|f_p4=F|split_number4=4|value4=130.00"));
  ASSERT_EQ(splits.count, 2);
  const Nv3Split* s = splits.splits;
  EXPECT_EQ(std::tie(s[0].f_p, s[0].number, s[0].value, s[1].number, s[1].value),
            std::make_tuple("F", 1, 3012, 2, 6350));

  testing::FieldList full;
  for (int g = 1; g <= 11; ++g) {
    full.emplace_back("f_p" + std::to_string(g), "P");
    full.emplace_back("split_number" + std::to_string(g), std::to_string(g));
  }
  EXPECT_EQ(LoadNV3SplitRec(Nv3("G1", full)).count, 11);
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
    EXPECT_LE(LoadNV3SplitRec(line).count, 11);
  }
  // A short line reads as if blank-filled.
  const Nv3Athlete a = LoadNV3AthleteRec("D1M   12Ash", 0);
  EXPECT_EQ(std::tie(a.athlete, a.last, a.birth), std::make_tuple(12, "Ash", kNv3BlankDate));
}

}  // namespace
}  // namespace kvlr
