#include "interchange/SdifRecords.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "FileMaker.h"
#include "interchange/MeetText.h"
#include "interchange/Nv3CheckSum.h"
#include "interchange/Nv3Records.h"
#include "interchange/Nv3Texts.h"
#include "interchange/SdifFields.h"

namespace kvlr {
namespace {

using SumFn = std::string (*)(std::string_view);
using testing::Nv3;
using testing::SdifLine;

TEST(SdifFieldsTest, TextIsPaddedShortLinesReadBlankAndValuesComeOutAsUtf8) {
  EXPECT_EQ(SdifText("A0 V3", 4, 11), "V3      ");
  EXPECT_EQ(SdifText("D0", 150, 151), "  ");
  EXPECT_EQ(SdifTrimmed("C1         XY TM ", 12, 17), "XY TM");
  const std::pair<std::string, std::string> cases[] = {
      {"DOE, ZO\xCB", "DOE, ZO\xC3\x8B"},                            // Latin-1
      {"Zo\xC3\xAB", "Zo\xC3\xAB"},                                  // already UTF-8
      {"\x80 \x93x\x94", "\xE2\x82\xAC \xE2\x80\x9Cx\xE2\x80\x9D"},  // Windows-1252
      {"\x81", "\xC2\x81"},                                          // a gap of the code page
      {"Jos\xC3", "Jos\xC3\x83"},                                    // a sequence cut short
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},  // an overlong form is no sequence
  };
  for (const auto& [raw, utf8] : cases) EXPECT_EQ(MeetText(raw), utf8) << raw;
  // Columns are bytes: the value is cut before it is converted.
  EXPECT_EQ(SdifText("ab\xEB"
                     "cd",
                     3, 4),
            "\xC3\xAB"
            "c");
}

TEST(SdifFieldsTest, IntsTimesAndAgeRanges) {
  const std::vector<std::tuple<std::string, int16_t>> cases = {
      {"0100", 100},    {"  50", 50},       {"12AB", 12}, {"AB12", 0}, {"    ", 0},
      {"99999", 32767}, {"-99999", -32768}, {"2.5 ", 2},  {"3.5 ", 4}};
  for (const auto& [cols, value] : cases) {
    EXPECT_EQ(SdifInt(cols, 1, static_cast<int>(cols.size())), value) << cols;
  }
  const std::vector<std::tuple<std::string, int32_t>> times = {
      {" 1:02.34", 6234}, {"   59.99", 5999}, {"DQ      ", 0},
      {"NT      ", 0},    {"        ", 0},    {"10:00.00", 60000}};
  for (const auto& [text, score] : times) {
    const FileTime t = ParseFileTime(text);
    EXPECT_EQ(t.text, text);
    EXPECT_EQ(t.score, score) << text;
  }
  const std::vector<std::tuple<std::string, int>> ages = {
      {"0810", 810}, {"UN10", 10}, {"11OV", 1199}, {"UNOV", 99},  {"15OV", 1599},
      {"  10", 0},   {"1 10", 0},  {"0010", 0},    {"1000", 0},   {"OVUN", 0},
      {"AB10", 0},   {"1", 0},     {"", 0},        {"1314", 1314}};
  for (const auto& [cols, value] : ages) EXPECT_EQ(ParseAgeRange(cols), value) << cols;
}

TEST(SdifFieldsTest, DatesInEachOrderBlankAndBad) {
  for (int order = 0; order < 3; ++order) {
    const FileDate good = ParseFileDate("03152004", order);
    EXPECT_FALSE(good.bad) << order;
    EXPECT_EQ(good.date, (Date{2004, 3, 15})) << order;
  }
  const FileDate blank = ParseFileDate("        ", 0);
  EXPECT_TRUE(blank.IsBlank());
  EXPECT_EQ(blank.date, (Date{1800, 1, 1}));
  for (const char* bad : {"13312004", "0231200 ", "ABCDEFGH", "0101    "}) {
    const FileDate d = ParseFileDate(bad, 1);
    EXPECT_TRUE(d.bad) << bad;
    EXPECT_FALSE(d.IsBlank()) << bad;
    EXPECT_FALSE(d == d) << "the bad date equals nothing";
  }
}

TEST(SdifRecordsTest, A0B1B2C1C2) {
  SdifA0 a;
  ASSERT_TRUE(LoadA0Rec(SdifLine("A0",
                                 "3=1|4=V3|12=02|44=Norvan, Ltd Writer|64=4.0|74=Pat Example|"
                                 "94=555-0100|106=11022026|150=PL42|156=ZZ|159=37"),
                        1, a));
  EXPECT_EQ(std::tie(a.record_code, a.version, a.file_code, a.software_name, a.contact_phone,
                     a.file_date.date, a.source_code, a.content_code, a.reserved, a.check_sum),
            std::make_tuple("A0", "V3      ", "02", "Norvan, Ltd Writer  ", "555-0100    ",
                            Date{2026, 11, 2}, "PL", "42", "ZZ", "37"));
  EXPECT_EQ(a.contact_name.size(), 20u);
  SdifB1 b;
  LoadB1Rec(SdifLine("B1",
                     "12=Autumn Invite|86=Riverton ST 12345 USA|121=1|122=10302026|130=        |"
                     "150=Y"),
            0, b);
  EXPECT_EQ(
      std::tie(b.meet_name, b.location, b.start.date, b.course),
      std::make_tuple("Autumn Invite                 ",
                      "Riverton ST 12345 USA" + std::string(14, ' '), Date{2026, 10, 30}, "Y"));
  EXPECT_TRUE(b.end.IsBlank());
  SdifB2 h;
  LoadB2Rec(SdifLine("B2", "12=Host Club|86=Lakeside|121=555-0199"), h);
  EXPECT_EQ(std::tie(h.location, h.phone),
            std::make_tuple("Lakeside" + std::string(27, ' '), "555-0199    "));
  // The C1 trims its LSC and team code.
  SdifC1 c;
  LoadC1Rec(SdifLine("C1", "12=X |14=AB  |18=Aqua Otters|143=3|150=Q"), c);
  EXPECT_EQ(std::tie(c.lsc, c.team_code, c.region, c.team_code5),
            std::make_tuple("X", "AB", "3", "Q"));
  EXPECT_EQ(c.team_name.size(), 30u);
  SdifC2 k;
  LoadC2Rec(SdifLine("C2", "14=AB  |18=Coach Kay|60=000012|66=     7|72=00003|77=000004|83=000005"),
            k);
  EXPECT_EQ(k.team_code, "AB  ");
  EXPECT_EQ(k.counts, (std::array<int16_t, 5>{12, 7, 3, 4, 5}));
}

std::string D0Line(std::string_view stroke, std::string_view prelim, std::string_view finals,
                   std::string_view col150) {
  std::string line = SdifLine("D0",
                              "3=1|12=Sample, Jamie Q|40=ABC123|52=A|53=USA|56=04152012|64=14|66=F|"
                              "67=F|68= 200|73= 12|76=B|77=1314|81=11212026|89= 2:25.10|97=Y|"
                              "106=Y|107=DQ|124=Y|125=03|127=04|129=01|131=05|133=  7|136=  2|"
                              "139=  16|143=A|144=U|151=25|156=X");
  line.replace(71, 1, stroke).replace(97, 8, prelim).replace(115, 8, finals);
  return line.replace(149, 1, col150);
}

TEST(SdifRecordsTest, D0SwimAndDive) {
  SdifD0 d;
  LoadD0Rec(D0Line("2", " 2:20.00", " 2:18.45", " "), 0, d);
  EXPECT_EQ(
      std::tie(d.swimmer_name, d.swimmer_number, d.citizen, d.birth.date, d.age, d.sex, d.distance,
               d.stroke, d.event_number, d.event_letter, d.event_age, d.swim_date.date),
      std::make_tuple("SAMPLE, JAMIE Q             ", "ABC123      ", "USA", Date{2012, 4, 15}, 14,
                      "F", 200, "2", 12, "B", 1314, Date{2026, 11, 21}));
  EXPECT_EQ(std::tie(d.seed_time.score, d.prelim_time.score, d.swim_off_time.text,
                     d.swim_off_time.score, d.finals_time.score, d.finals_time.text),
            std::make_tuple(14510, 14000, "DQ      ", 0, 13845, " 2:18.45"));
  EXPECT_EQ(std::tie(d.prelim_heat, d.prelim_lane, d.finals_heat, d.finals_lane, d.prelim_place,
                     d.finals_place, d.points_tenths, d.lower_time_class, d.upper_time_class,
                     d.exhibition),
            std::make_tuple(3, 4, 1, 5, 7, 2, 162.5, "A", "U", "X"));
  // Diving takes its stroke from column 150 and its points as the times; swim-off is never
  // points.
  LoadD0Rec(D0Line("H", "  212.35", "  250.5 ", "6"), 0, d);
  EXPECT_EQ(std::tie(d.stroke_as_read, d.stroke, d.prelim_time.score, d.finals_time.score,
                     d.swim_off_time.score),
            std::make_tuple("H", "6", 21235, 25050, 0));
}

TEST(SdifRecordsTest, D1D2D3) {
  SdifD1 s;
  LoadD1Rec(SdifLine("D1",
                     "12=XY|14=AB  |18=Z|19=Sample, Jamie|48=ABC123|61=CAN|64=04152012|72=14|74=F|"
                     "125=555-0101|137=555-0102|149=13452026|157=R"),
            1, s);
  EXPECT_EQ(std::tie(s.team_code, s.citizen, s.birth.date, s.age, s.day_phone, s.member_code),
            std::make_tuple("AB", "CAN", Date{2012, 4, 15}, "14", "555-0101    ", "R"));
  EXPECT_TRUE(s.last_membership.bad);
  SdifD2 a;
  LoadD2Rec(SdifLine("D2",
                     "19=Sample, Jamie|47=The Samples|77=1 Pond Rd|107=Riverton|127=ST|"
                     "129=Freedonia|141=12345|151=FRE|154=C|156=N"),
            a);
  EXPECT_EQ(std::tie(a.street, a.city, a.country, a.zip, a.region, a.season),
            std::make_tuple("1 Pond Rd", "Riverton", "Freedonia", "12345", "C", "N"));
  EXPECT_EQ(a.addressee.size(), 30u);
  SdifD3 x;
  LoadD3Rec(SdifLine("D3", "3=  NEW123|17=Jay|32=Q1|34=ABCDEFGH|42=!|43=WXYZ"), x);
  EXPECT_EQ(std::tie(x.new_swimmer_number, x.preferred_first_name, x.ethnicity),
            std::make_tuple("NEW123", "Jay            ", "Q1"));
  EXPECT_EQ(std::string(x.flags.begin(), x.flags.end()), "ABCDEFGHWXYZ");
}

TEST(SdifRecordsTest, E0RelayStrokesAndNoFinals) {
  struct Case {
    std::string_view col26, col150, stroke, stored;
  };
  for (const Case& k : {Case{"6", " ", "6", "1"}, Case{"7", " ", "7", "5"},
                        Case{"1", " ", "1", "1"}, Case{"H", "7", "7", "5"}}) {
    std::string line = SdifLine("E0",
                                "12=A|13=XY|15=AB  |19=04|21=M|22= 400|27=  5|30=C|31=UN10|35= 38|"
                                "38=11212026|55= 4:01.00|63=L|73=        |96=  20|151=50");
    line.replace(25, 1, k.col26).replace(149, 1, k.col150);
    SdifE0 e;
    LoadE0Rec(line, 0, e);
    EXPECT_EQ(std::tie(e.stroke, e.relay_stroke), std::make_tuple(k.stroke, k.stored)) << k.col26;
    EXPECT_EQ(std::tie(e.f0_count, e.distance, e.event_number, e.event_age, e.prelim_time.score,
                       e.no_finals, e.points_tenths),
              std::make_tuple(4, 400, 5, 10, 24100, true, 205.0));
  }
}

TEST(SdifRecordsTest, F0AndG0) {
  SdifF0 f;
  LoadF0Rec(SdifLine("F0",
                     "16=XY|18=AB  |23=Sample, Jamie Quentin Xavier|66=04152012|74=14|76=F|77=1|"
                     "78=0|79=A|80=   59.87|88=Y|89=0.21"),
            0, f);
  // Columns 46-50 are dropped.
  EXPECT_EQ(
      std::tie(f.swimmer_name, f.swimmer_number, f.finals_order, f.leg_time.score, f.take_off),
      std::make_tuple("Sample, Jamie Quentin X", std::string(12, ' '), "A", 5987, "0.21"));
  const std::vector<std::tuple<std::string_view, std::string_view, int>> seqs = {
      {"1", "24", 10}, {"2", "24", 10}, {"3", "24", 4}, {"1", "03", 3}, {"4", "24", 0}};
  for (const auto& [seq, total, count] : seqs) {
    std::string line =
        SdifLine("G0", "16=Sample, Jamie|59=  50|63=C|64=   30.01|136= 5:00.00|144=F");
    line.replace(55, 1, seq).replace(56, 2, total);
    SdifG0 g;
    LoadG0Rec(line, g);
    EXPECT_EQ(
        std::tie(g.count, g.split_distance, g.splits[0].score, g.splits[9].score, g.prelim_final),
        std::make_tuple(count, 50, 3001, 30000, "F"))
        << seq << "/" << total;
  }
}

TEST(SdifRecordsTest, J0J2Z0) {
  SdifJ0 j;
  LoadJ0Rec(SdifLine("J0", "11=A|17=F|18=  50|22=1|23=   25.10|39=   26.00|47=11OV|66=07042026"), 0,
            j);
  EXPECT_EQ(std::tie(j.times, j.event_age, j.date.date),
            std::make_tuple(std::array<int32_t, 3>{2510, 0, 2600}, 1199, Date{2026, 7, 4}));
  SdifJ2 s;
  LoadJ2Rec(SdifLine("J2", "3=M|4= 100|8=2|9=GOLD|53= 1:10.00|66=        "), 0, s);
  EXPECT_EQ(std::tie(s.distance, s.color, s.times[5].score), std::make_tuple(100, "GOLD", 7000));
  EXPECT_TRUE(s.date.IsBlank());
  SdifZ0 z;
  LoadZ0Rec(SdifLine("Z0",
                     "12=02|44=  1|47=  1|50=   2|54=   2|58=    40|64=    12|70=    3|75=    12|"
                     "81=    40|101=  9"),
            z);
  EXPECT_EQ((std::array<int16_t, 9>{z.b1_count, z.meet_count, z.c1_count, z.team_count, z.d0_count,
                                    z.swimmer_count, z.e0_count, z.f0_count, z.g0_count}),
            (std::array<int16_t, 9>{1, 1, 2, 2, 40, 12, 3, 12, 40}));
  EXPECT_EQ(z.batch_counts[3], 9);
}

// The NV3 check sums, header and records.

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

// Random bytes and short lines through every SDIF and NV3 reader and check.
TEST(DamagedLines, NeverBreakAReader) {
  std::mt19937 random(20261122);
  std::vector<std::string> lines = {"", "E", "E1", "G1 1", std::string(129, '\xff')};
  for (int i = 0; i < 400; ++i) {
    std::string line(random() % 200, ' ');
    for (char& c : line) c = static_cast<char>(random() % 256);
    lines.push_back(line);
  }
  for (size_t i = 0; i < lines.size(); ++i) {
    const std::string& line = lines[i];
    const int order = static_cast<int>(i % 3);
    SdifA0 a;
    SdifB1 b1;
    SdifB2 b2;
    SdifC1 c1;
    SdifC2 c2;
    SdifD0 d0;
    SdifD1 d1;
    SdifD2 d2;
    SdifD3 d3;
    SdifE0 e0;
    SdifF0 f0;
    SdifG0 g0;
    SdifJ0 j0;
    SdifJ2 j2;
    SdifZ0 z0;
    EXPECT_TRUE(LoadA0Rec(line, order, a) && LoadB1Rec(line, order, b1) && LoadB2Rec(line, b2) &&
                LoadC1Rec(line, c1) && LoadC2Rec(line, c2) && LoadD0Rec(line, order, d0) &&
                LoadD1Rec(line, order, d1) && LoadD2Rec(line, d2) && LoadD3Rec(line, d3) &&
                LoadE0Rec(line, order, e0) && LoadF0Rec(line, order, f0) && LoadG0Rec(line, g0) &&
                LoadJ0Rec(line, order, j0) && LoadJ2Rec(line, order, j2) && LoadZ0Rec(line, z0));
    // 28 columns as UTF-8 text: nothing left to convert.
    EXPECT_GE(d0.swimmer_name.size(), 28u);
    EXPECT_EQ(MeetText(d0.swimmer_name), d0.swimmer_name);
    EXPECT_GE(g0.count, 0);
    EXPECT_LE(g0.count, 10);
    CheckNV3Line(line);
    CheckNV3LineFallback(line);
    CheckNV3Header(line, true);
    LoadNV3B1Rec(line, order);
    LoadNV3B2Rec(line);
    LoadNv3C1Rec(line);
    LoadNV3AthleteRec(line, order);
    LoadNV3EventRec(line);
    LoadNV3ResultRec(line);
    LoadNV3RelayRec(line);
    EXPECT_LE(LoadNV3SplitRec(line).count, 11);
  }
  // A short NV3 line reads as if blank-filled.
  const Nv3Athlete a = LoadNV3AthleteRec("D1M   12Ash", 0);
  EXPECT_EQ(std::tie(a.athlete, a.last, a.birth), std::make_tuple(12, "Ash", kNv3BlankDate));
}

}  // namespace
}  // namespace kvlr
