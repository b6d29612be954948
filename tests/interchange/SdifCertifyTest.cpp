#include "interchange/SdifCertify.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "FileMaker.h"
#include "interchange/Cl2CheckSum.h"
#include "interchange/ImportPrepare.h"
#include "interchange/Nv3Texts.h"
#include "interchange/Psn.h"
#include "interchange/Scramble.h"
#include "interchange/SdifChecks.h"
#include "interchange/SdifRecordChecks.h"
#include "interchange/SdifTexts.h"
#include "interchange/SwimmerMatch.h"
#include "support/ScriptedUserIo.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace ct = certify_text;
namespace fs = std::filesystem;
using testing::Cl2;
using testing::Nv3;
using testing::Sdif;
using testing::SdifFile;
using testing::SdifLine;

constexpr int kMonthFirst = 0;

A0Check A0Of(int mode, std::string_view line, bool allow_entries = false) {
  SdifA0 a0;
  LoadA0Rec(line, kMonthFirst, a0);
  return CheckA0(mode, a0, allow_entries);
}

// A good line of `code` with the fields of `change` put over it (blank values clear).
std::string Good(std::string_view code, testing::FieldValues change = {}) {
  static const std::map<std::string, const char*, std::less<>> kGood = {
      {"A0",
       "version=V3|file_code=02|software_name=Norvan, Ltd|contact_name=Pat|"
       "contact_phone=555-0100|file_date=11222026"},
      {"B1", "meet_name=Made Up Open|start=11012026|course=Y"},
      {"C1", "team_code=MUST|team_name=Made Up Swim Team"},
      {"D0",
       "organization=1|swimmer_name=SAMPLE, JAMIE Q|attach=A|birth=04152012|sex=F|"
       "event_sex=F|distance=100|stroke=1|event_number=3|event_age=1314|swim_date=11212026|"
       "finals_time=1:02.34|finals_course=Y|lower_time_class=P|upper_time_class=J"},
      {"E0",
       "team_letter=A|team_code=AB|event_sex=M|distance=200|stroke=5|event_number=20|"
       "event_age=1518|finals_time=1:45.00|finals_course=S"},
      {"D1", "swimmer_name=DOE, JANE A|birth=01022014|sex=F|last_membership=01012026"},
      {"D2", "swimmer_name=DOE, JANE A"},
      {"F0",
       "team_code=MUST|swimmer_name=DOE, JANE A|birth=01022014|sex=F|prelim_order=0|"
       "swim_off_order=0|finals_order=1|leg_time=32.50|leg_course=Y"},
      {"G0",
       "swimmer_name=DOE, JANE A|sequence=1|total_splits=4|split_distance=50|split_code=C|"
       "prelim_final=F"},
      {"J0", "meet_code=1|event_sex=F|distance=100|stroke=1|event_age=1112|date=11012026"},
      {"J1", "event_sex=F|distance=100|stroke=1|color=GOLD|date=11012026"},
      {"J2", "event_sex=F|distance=100|stroke=1|color=GOLD|date=11012026"}};
  return Sdif(code, testing::Merged(kGood.find(code)->second, change));
}

TEST(Cl2CheckSumTest, WorkedExamplesAndLinesJudged) {
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
  const std::string good = Cl2(SdifLine("B1", "12=Autumn Invite"));
  EXPECT_EQ(CheckCL2Line(good), Cl2Line::kGood);
  std::string changed = good;
  changed[99] = '~';  // +94 moves the quotient by 4 or 5
  EXPECT_EQ(CheckCL2Line(changed), Cl2Line::kBadCheckSum);
  // The digits are stored low first: "37" for blanks, never "73".
  EXPECT_EQ(CheckCL2Line(std::string(158, ' ') + "37"), Cl2Line::kGood);
  EXPECT_EQ(CheckCL2Line(std::string(158, ' ') + "73"), Cl2Line::kBadCheckSum);
  EXPECT_EQ(CheckCL2Line(good.substr(0, 159)), Cl2Line::kBadCheckSum);
  EXPECT_EQ(CheckCL2Line(""), Cl2Line::kBadCheckSum);
  EXPECT_EQ(CheckCL2Line(Cl2(SdifLine("D0", "89=  :10.00"))), Cl2Line::kNotNorvan);
  EXPECT_EQ(CheckCL2Line(Cl2(SdifLine("D0", "89= 1:10.00"))), Cl2Line::kGood);
  EXPECT_EQ(CheckCL2Line(Cl2(SdifLine("E0", "89=  :10.00"))), Cl2Line::kGood);
}

TEST(CheckCodeTest, SubstringRule) {
  struct Case {
    std::string_view value, list;
    bool blank_allowed, ok;
  };
  const std::string_view files = "01,02,03,04,05,06,07,08,09,10,16,20";
  const std::string_view colors = "GOLD,SILV,BRNZ,BLUE,RED ,WHIT";
  const std::vector<Case> cases = {{"02", files, false, true},     {"1,", files, false, true},
                                   {"0", files, false, true},      {"11", files, false, false},
                                   {" ", "MF", false, true},       {" ", "MF", true, true},
                                   {"X", "MF", false, false},      {"RED ", colors, false, true},
                                   {"PINK", colors, false, false}, {" H ", "1234567H", false, true},
                                   {"m", "MF", false, false}};
  for (const Case& k : cases) {
    std::string problem = "untouched";
    EXPECT_EQ(CheckCode(k.value, k.list, "Label", k.blank_allowed, &problem), k.ok)
        << "'" << k.value << "' in " << k.list;
    EXPECT_EQ(problem, k.ok ? "untouched" : "Label");
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
    EXPECT_EQ(std::tie(n.ok, n.last, n.first, n.initial),
              std::make_tuple(k.ok, k.last, k.first, k.initial))
        << k.name;
  }
}

std::string Join(const std::vector<std::string>& lines, std::string_view end) {
  std::string out;
  for (const auto& l : lines) out += l + std::string(end);
  return out;
}

TEST(ReadInterchangeTest, StopsBehindFirstZ0WithEitherLineEndOrAtAWrongLength) {
  const std::vector<std::string> lines = {Cl2(SdifLine("A0", "12=02")), Cl2(SdifLine("B1", "")),
                                          Cl2(SdifLine("Z0", "12=02")), "anything at all",
                                          SdifLine("Z0", "")};
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
  // The first line is not measured; a good check sum does not save a short line.
  const std::string short_b1 = Cl2(SdifLine("B1", "")).substr(0, 159);
  const InterchangeLines read = ReadInterchangeText(
      Join({"A0 short", SdifLine("B1", ""), short_b1, SdifLine("Z0", "")}, "\r\n"), ".CL2");
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

TEST(CheckA0Test, EveryRefusalHasItsWords) {
  struct Case {
    int mode;
    std::string line;
    bool allow_entries;
    std::string_view problem;  // "" for a pass
  };
  const std::string_view not_a0 = "Invalid format.  First line is not an A0 record.";
  const std::string_view entries =
      "This file contains Meet Entries and is not a candidate for import.";
  const std::string_view gala =
      "This file contains GALA STEWARD specific information and is not a candidate for import.";
  const std::string_view missing = "Required fields missing";
  const Case cases[] = {
      {0, Sdif("B1", {}), false, not_a0},
      {1, Sdif("B1", {}), false, not_a0},
      {0, Good("A0", {{"software_name", "Norvan Ltd"}}), false,
       "The Proprietary LUSKUGE File format was not produced by Norvan"},
      {0, Good("A0", {{"content_code", "41"}}), false, entries},
      {0, Good("A0", {{"content_code", "44"}}), false, entries},
      {0, Good("A0", {{"content_code", "41"}}), true, ""},
      {0, Good("A0", {{"content_code", "45"}}), true,
       "This file contains ASCA motivational times and is not a candidate for import."},
      {0, Good("A0", {{"content_code", "46"}}), true, gala},
      {0, Good("A0", {{"content_code", "48"}}), true, gala},
      // Entries let in still have their fields tested.
      {0, Good("A0", "content_code=41|contact_name="), true, missing},
      {0, Good("A0", "content_code=44|file_code=11"), true, "File Code"},
      // Any other content ends the Commlink test before the fields are looked at.
      {0, Good("A0", "content_code=99|contact_name=|file_date="), false, ""},
      {1, Good("A0", {{"file_code", "11"}}), false, "File Code"},
      {1, Good("A0", {{"contact_name", ""}}), false, missing},
      {1, Good("A0", {{"contact_phone", ""}}), false, missing},
      {1, Good("A0", {{"file_date", ""}}), false, missing},
      {1, Good("A0", {{"file_code", "01"}}), false,
       "Selected SD3 file does not contain Results and is not a candidate for import."},
      {1, Good("A0", {{"file_date", "13312004"}}), false, "Date"},
      {1, Good("A0"), false, ""},
  };
  for (const Case& c : cases) {
    const A0Check check = A0Of(c.mode, c.line, c.allow_entries);
    EXPECT_EQ(check.ok, c.problem.empty()) << c.line;
    EXPECT_EQ(check.problem, c.problem) << c.line;
  }
  EXPECT_TRUE(A0Of(0, Good("A0", {{"content_code", "44"}}), true).has_entries);
  EXPECT_FALSE(A0Of(0, Good("A0", {{"content_code", "42"}}), true).has_entries);
}

// Reads `line` as an R and runs the record's check on it.
template <typename R, typename Load, typename Check>
bool Judge(int mode, std::string_view line, Load load, Check check, std::string* problem) {
  R r;
  if constexpr (std::is_invocable_v<Load, std::string_view, int, R&>) {
    load(line, kMonthFirst, r);
  } else {
    load(line, r);
  }
  return check(mode, r, problem);
}

// The problem a record's check finds in `line` ("" when it passes).
std::string ProblemOf(int mode, const std::string& line) {
  std::string problem;
  bool ok = false;
  const std::string code = line.substr(0, 2);
  if (code == "B1") ok = Judge<SdifB1>(mode, line, LoadB1Rec, CheckB1, &problem);
  if (code == "C1") ok = Judge<SdifC1>(mode, line, LoadC1Rec, CheckC1, &problem);
  if (code == "D0") ok = Judge<SdifD0>(mode, line, LoadD0Rec, CheckD0, &problem);
  if (code == "E0") ok = Judge<SdifE0>(mode, line, LoadE0Rec, CheckE0, &problem);
  if (code == "D1") ok = Judge<SdifD1>(mode, line, LoadD1Rec, CheckD1, &problem);
  if (code == "D2") ok = Judge<SdifD2>(mode, line, LoadD2Rec, CheckD2, &problem);
  if (code == "F0") ok = Judge<SdifF0>(mode, line, LoadF0Rec, CheckF0, &problem);
  if (code == "G0") ok = Judge<SdifG0>(mode, line, LoadG0Rec, CheckG0, &problem);
  if (code == "J0") ok = Judge<SdifJ0>(mode, line, LoadJ0Rec, CheckJ0, &problem);
  if (code == "J1") ok = CheckJ1(mode, &problem);
  if (code == "J2") ok = Judge<SdifJ2>(mode, line, LoadJ2Rec, CheckJ2, &problem);
  if (ok) {
    EXPECT_EQ(problem, "") << "a pass leaves no problem";
  }
  return ok ? "" : problem;
}

TEST(RecordChecksTest, EveryFailureWordInSdifModeAndNoneInCommlinkMode) {
  struct Case {
    std::string line;
    std::string_view problem;
  };
  const Case cases[] = {
      {Good("B1", {{"meet_name", ""}}), "Required fields missing"},
      {Good("B1", {{"start", "13312004"}}), "Date"},
      {Good("B1", {{"course", "Q"}}), "Course Code"},
      {Good("C1", {{"team_code", ""}}), "Required fields missing"},
      {Good("C1", {{"team_name", ""}}), "Required fields missing"},
      {Good("D0", {{"sex", "X"}}), "Sex Code"},
      {Good("D0", {{"event_sex", "Q"}}), "Event Sex Code"},
      {Good("D0", {{"stroke", "9"}}), "Stroke Code"},
      {Good("D0", {{"finals_course", "Q"}}), "Course Code"},
      {Good("D0", {{"prelim_time", "XX"}}), "Course Code"},
      {Good("D0", "swim_off_time=NT|swim_off_course=Q"), "Course Code"},
      {Good("D0", {{"distance", ""}}), "Required fields missing"},
      {Good("D0", {{"event_age", "  10"}}), "Required fields missing"},
      {Good("D0", {{"birth", "13312004"}}), "Date"},
      {Good("D0", {{"swim_date", "02302026"}}), "Date"},
      {Good("D0", {{"lower_time_class", "O"}}), "Event Time Code"},
      {Good("D0", {{"upper_time_class", "U"}}), "Event Time Code"},
      {Good("D0", {{"lower_time_class", "Z"}}), "Event Time Code"},
      {Good("D0", {{"organization", "0"}}), "Organization Code"},
      {Good("D0", {{"attach", "Z"}}), "Attach Code"},
      {Good("D0", {{"swimmer_name", "SAMPLE JAMIE"}}), "Swimmer's Name"},
      {Good("E0", {{"event_sex", "Q"}}), "Event Sex Code"},
      {Good("E0", {{"distance", ""}}), "Required fields missing"},
      {Good("E0", {{"event_age", "UN  "}}), "Required fields missing"},
      {Good("E0", {{"event_number", ""}}), "Required fields missing"},
      {Good("E0", {{"stroke", "2"}}), "Stroke Code"},
      {Good("E0", {{"team_code", ""}}), "Required fields missing"},
      {Good("E0", {{"finals_course", "Q"}}), "Course Code"},
      {Good("E0", {{"lower_time_class", "O"}}), "Event Time Code"},
      {Good("D1", {{"organization", "X"}}), "Organization Code"},
      {Good("D1", {{"swimmer_name", "DOE JANE"}}), "Swimmer's Name"},
      {Good("D1", {{"birth", "13312004"}}), "Date"},
      {Good("D1", {{"sex", "X"}}), "Sex Code"},
      {Good("D1", {{"last_membership", "00002026"}}), "Date"},
      {Good("D1", {{"member_code", "Z"}}), "Member Code"},
      {Good("D2", {{"organization", "0"}}), "Organization Code"},
      {Good("D2", {{"swimmer_name", "DOE,JANE"}}), "Swimmer's Name"},
      {Good("D2", {{"region", "Z"}}), "Region Code"},
      {Good("D2", {{"season", "X"}}), "Season Code"},
      {Good("F0", {{"team_code", ""}}), "Required fields missing"},
      {Good("F0", {{"swimmer_name", "DOE"}}), "Swimmer's Name"},
      {Good("F0", {{"birth", "02302014"}}), "Date"},
      {Good("F0", {{"sex", "X"}}), "Sex Code"},
      {Good("F0", {{"prelim_order", "9"}}), "Order Code"},
      {Good("F0", {{"swim_off_order", "B"}}), "Order Code"},
      {Good("F0", {{"finals_order", "5"}}), "Order Code"},
      {Good("F0", {{"leg_course", "Q"}}), "Course Code"},
      {Good("F0", "leg_time=XX|leg_course="), "Course Code"},
      {Good("G0", {{"organization", "A"}}), "Organization Code"},
      {Good("G0", {{"swimmer_name", "DOE"}}), "Swimmer's Name"},
      {Good("G0", {{"sequence", "0"}}), "Required fields missing"},
      {Good("G0", {{"total_splits", ""}}), "Required fields missing"},
      {Good("G0", {{"split_distance", "0"}}), "Required fields missing"},
      {Good("G0", {{"split_code", "X"}}), "Split Code"},
      {Good("G0", {{"prelim_final", "Q"}}), "Prelim/Final Code"},
      {Good("J0", {{"meet_code", "Z"}}), "Meet Code"},
      {Good("J0", {{"event_sex", "Q"}}), "Event Sex Code"},
      {Good("J0", {{"stroke", "9"}}), "Stroke Code"},
      {Good("J0", {{"distance", ""}}), "Required fields missing"},
      {Good("J0", {{"event_age", "  10"}}), "Required fields missing"},
      {Good("J0", {{"date", "13312004"}}), "Date"},
      {Good("J2", {{"event_sex", "Q"}}), "Event Sex Code"},
      {Good("J2", {{"stroke", "9"}}), "Stroke Code"},
      {Good("J2", {{"distance", "0"}}), "Required fields missing"},
      {Good("J2", {{"color", "PINK"}}), "Color Code"},
      {Good("J2", {{"date", "13312004"}}), "Date"},
      // A blank course stands in every list; a time code may go without a course.
      {Good("D0", {{"finals_course", ""}}), ""},
      {Good("D0", {{"finals_course", "M"}}), ""},
      {Good("D0", {{"swim_off_time", "DQ"}}), ""},
      {Good("D0", "swim_off_time=SCR|swim_off_course=S"), ""},
      {Good("D0", {{"birth", ""}}), ""},
      // A D0 with no event at all is passed over, whatever else it holds.
      {Good("D0", "event_sex=|stroke=|sex=?"), ""},
      {Good("E0", {{"stroke", "6"}}), ""},
      {Good("E0", "event_number=|event_letter=A"), ""},
      // Blank is allowed where the list allows it, and a leg course counts only with a time.
      {Good("D1", "member_code=|organization="), ""},
      {Good("F0", "leg_time=|leg_course=Q"), ""},
      {Good("F0", "leg_time=DQ|leg_course="), ""},
      {Good("J2", {{"color", "RED"}}), ""},  // "RED " in the list
      {Good("B1", {{"course", "M"}}), ""},
      // Eight blanks are the blank date, which is a date.
      {Good("J0", {{"date", ""}}), ""},
  };
  for (std::string_view code : {"B1", "C1", "D0", "D1", "D2", "E0", "F0", "G0", "J0", "J2"}) {
    EXPECT_EQ(ProblemOf(1, Good(code)), "") << code;
  }
  for (const Case& c : cases) {
    EXPECT_EQ(ProblemOf(1, c.line), c.problem) << c.line;
    EXPECT_EQ(ProblemOf(0, c.line), "") << "Commlink content is trusted: " << c.line;
  }
}

TEST(CheckZ0Test, CountersAgainstTheFilesCountsInOrder) {
  SdifZ0 z0;
  LoadZ0Rec(Sdif("Z0", "b1_count=2|c1_count=3|d0_count=10|swimmer_count=4|e0_count=1|g0_count=7"),
            z0);
  const SdifCounters good{2, 3, 10, 1, 7};
  struct Case {
    SdifCounters n;
    bool roster;
    std::string_view problem;
  };
  const Case cases[] = {
      {good, false, ""},
      {{1, 0, 0, 0, 0}, false, "Mismatched B1 records"},
      {{2, 4, 0, 0, 0}, false, "Mismatched C1 records"},
      {{2, 3, 9, 1, 7}, false, "Mismatched D0 records"},
      {{2, 3, 10, 1, 7}, true, "Mismatched Swimmer Count"},
      {{2, 3, 4, 1, 7}, true, ""},
      {{2, 3, 10, 0, 7}, false, "Mismatched E0 records"},
      {{2, 3, 10, 1, 6}, false, "Mismatched G0 records"},
  };
  for (const Case& c : cases) {
    std::string problem;
    EXPECT_EQ(CheckZ0(1, z0, c.n, c.roster, &problem), c.problem.empty());
    EXPECT_EQ(problem, c.problem);
    EXPECT_TRUE(CheckZ0(0, z0, c.n, c.roster, nullptr));
  }
}

TEST(ShowFileStatisticsTest, KindFollowsFileCodeThenContentAndThePanelNamesCreatorAndFirstMeet) {
  struct Case {
    std::string_view file_code, content, source, version, kind;
    bool valid;
  };
  const Case cases[] = {
      {"02", "", "", "", "Meet Results", true},
      {"02", "43", "", "", "Meet Results", true},
      {"16", "", "", "", "Top 16", true},
      {"01", "41", "", "", "Contents Unknown", true},
      {"20", "41", "", "", "Meet Entries", true},
      {"20", "44", "", "", "Meet Entries", true},
      {"20", "42", "", "", "Best Times", true},
      {"20", "43", "CS", "2.1", "WINCS Athlete Roster", true},
      {"20", "43", "LS", "1.0", "Ledger Steward Athlete Roster", true},
      {"20", "43", "CS", "1.9", "No Valid for Import", false},
      {"20", "43", "PL", "5.0", "No Valid for Import", false},
      {"20", "99", "", "", "Contents Unknown", true},
  };
  for (const Case& c : cases) {
    test::ScriptedUserIo io;
    const std::vector<std::string> lines = {Sdif("A0", {{"file_code", c.file_code},
                                                        {"content_code", c.content},
                                                        {"source_code", c.source},
                                                        {"software_version", c.version},
                                                        {"software_name", "Made Up Soft"}})};
    const FilePanel panel = ShowFileStatistics(lines, "/x/meet.cl2", kMonthFirst, &io);
    EXPECT_EQ(panel.file_type, c.kind) << c.file_code << c.content << c.source;
    EXPECT_EQ(panel.valid_for_import, c.valid);
    if (!c.valid) {
      ASSERT_EQ(io.shown.size(), 1u);
      EXPECT_EQ(io.shown[0].text,
                std::string("This file is an Athlete Roster file.") + "\r\n" +
                    std::string("Use the Import Athlete Roster Menu Option for this file."));
    } else {
      EXPECT_TRUE(io.shown.empty());
    }
  }
  SdifFile file;
  file.A0({{"software_version", "3.2"}})
      .Meet("meet_name=First Made Up Meet|start=03142026")
      .Meet({{"meet_name", "Second Meet"}});
  const FilePanel panel =
      ShowFileStatistics(file.Lines(), "/tmp/some/meet.cl2", /*day first*/ 1, nullptr);
  EXPECT_EQ(panel.file_name, "meet.cl2");
  EXPECT_EQ(panel.created_by, "Norvan, Ltd 3.2");
  EXPECT_EQ(panel.file_type, "Meet Results");
  EXPECT_EQ(panel.meet_name, "First Made Up Meet");
  EXPECT_EQ(panel.start_date, "14/03/2026");
}

struct Run {
  SdifCheckResult result;
  test::ScriptedUserIo io;
  testing::Monitor monitor;
};

std::unique_ptr<Run> Check(const std::vector<std::string>& lines, std::string_view ext,
                           bool report = true, SwimmerMatcher* matcher = nullptr,
                           int cancel_after = 1 << 30) {
  auto run = std::make_unique<Run>();
  run->monitor.cancel_after = cancel_after;
  run->result = SDIFCheck(lines, false, ext, report, kMonthFirst, matcher, run->monitor, run->io);
  return run;
}

TEST(SdifCheckTest, AGoodFileIsCountedAndSaysWhatComesNext) {
  for (bool commlink : {true, false}) {
    SdifFile file(commlink);
    file.Line("B2", {{"host_name", "Made Up Host"}})
        .Swim()
        .Swim({{"swimmer_name", "ROE, ANN"}})
        .Relay()
        .Line("G0",
              "swimmer_name=ROE, ANN|sequence=1|total_splits=2|split_distance=50|"
              "split_code=C|split1=31.00|split2=1:05.32|prelim_final=F");
    auto run = Check(file.Lines(), commlink ? ".CL2" : ".SD3");
    ASSERT_TRUE(run->result.ok) << run->result.problem;
    EXPECT_EQ(run->result.counts.checked, (std::array<int, 5>{2, 1, 2, 1, 1}))
        << "B2 counts with the meets";
    EXPECT_EQ(run->monitor.last.checked, run->result.counts.checked);
    EXPECT_TRUE(run->result.has_relays);
    EXPECT_TRUE(run->result.current_format);
    EXPECT_EQ(run->result.status,
              " Import File Checked - Click OK to Format Report   A Relay Report will also be "
              "Printed.");
    EXPECT_EQ(run->monitor.statuses.front(), " Checking Import File ");
    EXPECT_TRUE(run->io.shown.empty());
  }
  auto import = Check(SdifFile().Swim().Lines(), ".CL2", /*report*/ false);
  EXPECT_EQ(import->result.status, " Import File Checked - Click OK to Import ");
}

TEST(SdifCheckTest, TheFailureBoxShowsTheLineInTwoParts) {
  SdifFile file(false);
  std::string unknown = "Q1" + std::string(158, ' ');
  unknown.replace(75, 10, "ACROSS-80!");
  file.Swim().Raw(unknown);
  const auto lines = file.Lines();
  auto run = Check(lines, ".SD3");
  ASSERT_FALSE(run->result.ok);
  EXPECT_EQ(run->result.bad_line, 6u);  // A0 B1 C1 D0 D3 Q1
  ASSERT_EQ(run->io.shown.size(), 1u);
  const std::string q1 = lines[5];
  EXPECT_EQ(run->io.shown[0].text,
            "This file did not pass the initial SDIF certification check that is required "
            "for importing.  \r\nThe error is on line: 6\r\nThe problem line is listed below "
            "in two parts: \r\n>>" +
                q1.substr(0, 80) + "<<\r\n>>" + q1.substr(80) + "<<\r\n")
      << "an unknown record has no problem line";
  EXPECT_EQ(run->io.shown[0].title, "error");
  EXPECT_EQ(run->io.shown[0].style, box::kStop);
  EXPECT_EQ(run->result.status, "Error Checking Import File ");
  EXPECT_EQ(run->monitor.statuses.back(), "Error Checking Import File ");
  EXPECT_EQ(CertificationFailureText(3, "D0", "Date"),
            "This file did not pass the initial SDIF certification check that is required "
            "for importing.  \r\nThe error is on line: 3\r\nThe problem line is listed below "
            "in two parts: \r\n>>D0<<\r\n>><<\r\nProblem: Date");
}

TEST(SdifCheckTest, FailuresOfThePassNameTheLineAndProblemButCommlinkContentIsTrusted) {
  struct Case {
    std::string name;
    std::vector<std::string> lines;
    std::string_view ext;
    size_t bad_line;
    std::string_view problem;
  };
  std::string marked = SdifFile(false).Swim().Lines()[3];
  marked[157] = 'X';
  // A .cl2 needs no D3 lines, and its fields, counts and column 158 are not judged.
  const Case cases[] = {
      {"cl2 without D3", SdifFile(true).Swim({}, false).Swim({}, false).Lines(), ".CL2", 0, ""},
      {"cl2 field", SdifFile(true).Swim({{"sex", "X"}}).Lines(), ".CL2", 0, ""},
      {"cl2 count", SdifFile(true).Swim().Z0({{"d0_count", "9"}}).Lines(), ".CL2", 0, ""},
      {"cl2 column 158", SdifFile(true).Raw(Cl2(marked)).Lines(), ".CL2", 0, ""},
      {"sd3 without D3", SdifFile(false).Swim({}, false).Swim({}, false).Lines(), ".SD3", 5,
       "Invalid SD3 file.  Missing required D3 records for Athletes."},
      {"column 158", SdifFile(false).Raw(marked).Lines(), ".SD3", 3,
       "Improper non-blank field encountered."},
      {"J1 in sd3", SdifFile(false).Line("J1", {}).Lines(), ".SD3", 3, "Required fields missing"},
      {"J1 in cl2", SdifFile(true).Line("J1", {}).Lines(), ".CL2", 3, "Required fields missing"},
      {"D0 field", SdifFile(false).Swim({{"sex", "X"}}).Lines(), ".SD3", 4, "Sex Code"},
      {"E0 field", SdifFile(false).Relay({{"stroke", "2"}}).Lines(), ".SD3", 4, "Stroke Code"},
      {"Z0 count", SdifFile(false).Swim().Z0({{"d0_count", "2"}}).Lines(), ".SD3", 6,
       "Mismatched D0 records"},
      {"A0 in sd3", SdifFile(false).A0({{"file_code", "01"}}).Lines(), ".SD3", 1,
       "Selected SD3 file does not contain Results and is not a candidate for import."},
  };
  for (const Case& c : cases) {
    auto run = Check(c.lines, c.ext);
    EXPECT_EQ(run->result.ok, c.problem.empty()) << c.name;
    EXPECT_EQ(run->result.bad_line, c.bad_line) << c.name;
    EXPECT_EQ(run->result.problem, c.problem) << c.name;
    if (c.problem.empty()) continue;
    ASSERT_FALSE(run->io.shown.empty()) << c.name;
    EXPECT_NE(run->io.shown.back().text.find("\r\nProblem: " + std::string(c.problem)),
              std::string::npos)
        << c.name;
  }
}

TEST(SdifCheckTest, ARosterCountsItsSwimmers) {
  SdifFile file(false);
  file.A0("content_code=43|source_code=LS")
      .Team()
      .Line("D1", "swimmer_name=DOE, JANE A|sex=F")
      .Line("D1", "swimmer_name=ROE, ANN|sex=F");
  auto run = Check(file.Lines(), ".SD3");
  ASSERT_TRUE(run->result.ok) << run->result.problem;
  EXPECT_EQ(run->result.counts.Checked(ImportRow::kIndividual), 2);
}

TEST(SdifCheckTest, CancelStopsBetweenLinesWithoutABox) {
  auto run = Check(SdifFile().Swim().Swim().Lines(), ".CL2", true, nullptr, 3);
  EXPECT_FALSE(run->result.ok);
  EXPECT_TRUE(run->result.cancelled);
  EXPECT_EQ(run->result.problem, "Checking canceled by user.");
  EXPECT_EQ(run->monitor.statuses.back(), "Checking canceled by user.");
  EXPECT_TRUE(run->io.shown.empty());
  EXPECT_EQ(run->result.counts.Checked(ImportRow::kTeams), 1) << "counted up to the stop";
}

TEST(SdifCheckTest, NoResultsForTheSwimmerIsToldOutsideReports) {
  // Others of the family name are listed once each, whatever their sex; another family's not.
  const auto lines = SdifFile()
                         .Swim("swimmer_name=DOE, JOHN|sex=M")
                         .Swim("swimmer_name=DOE, JOHN|sex=M|event_number=14")
                         .Swim({{"swimmer_name", "DOE, MARY B"}})
                         .Swim({{"swimmer_name", "ROE, JANE"}})
                         .Swim("swimmer_name=DOE, JANE|sex=M")
                         .Lines();
  {
    SwimmerMatcher matcher(CurrentSwimmer{7, "Jane", "Doe", "F"}, {}, false);
    auto run = Check(lines, ".CL2", /*report*/ false, &matcher);
    EXPECT_TRUE(run->result.ok) << "the user may still import the family";
    ASSERT_EQ(run->io.shown.size(), 2u);
    EXPECT_EQ(run->io.shown[0].text,
              "This file did not contain any results for Jane Doe\r\nPlease run the "
              "Import/Export Files Report to determine if this swimmer's name was spelled "
              "correctly by the meet host.");
    EXPECT_EQ(run->io.shown[1].text,
              "The file did contain the following athlete(s) with the last name of "
              "Doe\r\nJOHN DOE\r\nMARY B DOE\r\nJANE DOE");
  }
  {
    SwimmerMatcher matcher(CurrentSwimmer{7, "Mary", "Doe", "F"}, {}, false);
    EXPECT_TRUE(Check(lines, ".CL2", false, &matcher)->io.shown.empty());
    SwimmerMatcher nobody(CurrentSwimmer{7, "Zed", "Zulu", "M"}, {}, false);
    EXPECT_TRUE(Check(lines, ".CL2", /*report*/ true, &nobody)->io.shown.empty());
  }
}

// The opening of an import file: read, certified, its panel filled, or refused in a box.

class PrepareTest : public ::testing::Test {
 protected:
  PrepareTest() {
    fs::create_directories(t_.Data());
    t_.state.gAthlete = 1;
    t_.state.gAthleteFirst = "Jane";
    t_.state.gAthleteLast = "Doe";
    t_.state.gAthleteSex = "F";
  }
  fs::path Write(const std::string& name, const std::string& text) {
    const fs::path path = t_.Data() / name;
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
  ImportFile Prepare(const std::string& name, const std::string& text,
                     ImportMode mode = ImportMode::kReport) {
    return PrepareImportFile(t_.state, monitor_, Write(name, text), mode);
  }
  // The one box shown, or "" with none; a second box fails the test.
  std::string OnlyBox() {
    EXPECT_LE(t_.io.shown.size(), 1u);
    return t_.io.shown.empty() ? "" : t_.io.shown.back().text;
  }
  test::TempHome t_;
  testing::Monitor monitor_;
};

TEST_F(PrepareTest, ReadingRefusalsHaveTheirWords) {
  std::string bad_sum = SdifFile().Swim().Lines()[3];
  bad_sum[20] = 'Z';
  std::string not_norvan = Sdif("D0", "swimmer_name=DOE, JANE|seed_time=  :31.00");
  struct Case {
    std::string name;
    std::string file_name;
    std::string text;
    std::string box;
  };
  const std::string integrity(
      "This file failed the SDIF integrity test - please request another copy of the file.");
  const Case cases[] = {
      {"159 columns in a good .cl2", "a.cl2",
       SdifFile().Raw(Cl2(Sdif("C1", {{"team_code", "MUST"}})).substr(0, 159)).Text(),
       "Line length error. Line length should be 160. Found 159"},
      {"bad check sum", "b.cl2", SdifFile().Raw(bad_sum).Text(), integrity},
      {"first line's check sum", "c.cl2",
       testing::FileText({Sdif("A0", {{"software_name", "Norvan, Ltd"}})}), integrity},
      {"not Norvan's D0", "d.cl2", SdifFile().Raw(Cl2(not_norvan)).Text(),
       "This .cl2 file was not created by Norvan software !\r\n\r\nContact the source and ask "
       "them to generate an SDIF .sd3 file if their software is not Norvan.\r\nOnly Norvan "
       "software is authorized to generate a .cl2 file."},
      {"other software", "e.cl2", SdifFile().A0({{"software_name", "Made Up Meet Co"}}).Text(),
       std::string("The Proprietary LUSKUGE File format was not produced by Norvan")},
      {"sd3 not results", "g.sd3", SdifFile(false).A0({{"file_code", "01"}}).Text(),
       std::string(
           "Selected SD3 file does not contain Results and is not a candidate for import.")},
      {"sd3 not A0", "h.SD3", SdifFile(false).Text().substr(162),
       std::string("Invalid format.  First line is not an A0 record.")},
      {"nv3 129 columns", "i.nv3",
       testing::FileText({Nv3("A1", "file_code=09|creator=Norvan, Ltd"),
                          Nv3("B1", {{"meet_name", "Made Up"}}).substr(0, 129)}),
       "Line length error. Line length should be 130. Found 129"},
      {"nv3 check sum", "j.nv3",
       testing::FileText({Nv3("A1", "file_code=09|creator=Norvan, Ltd"),
                          Nv3("B1", {{"meet_name", "Made Up"}}).substr(0, 128) + "00"}),
       std::string("This file's Integrity has been compromised - please request another copy of "
                   "the file.")},
      {"nv3 creator", "k.nv3", testing::FileText({Nv3("A1", {{"file_code", "09"}})}),
       std::string("Not a Norvan created .NV3 file !")},
      {"psn header", "l.psn", "too short\r\n",
       std::string("Error in import file.  The file is corrupted or was not produced by Norvan's "
                   "CLUB STEWARD")},
      {"empty file", "m.cl2", "",
       "m.cl2 is empty: there is nothing in it to read. Download it again or ask for another "
       "copy."},
  };
  for (const Case& c : cases) {
    t_.io.shown.clear();
    const ImportFile f = Prepare(c.file_name, c.text);
    EXPECT_FALSE(f.ready) << c.name;
    EXPECT_TRUE(f.lines.empty()) << c.name;
    ASSERT_FALSE(t_.io.shown.empty()) << c.name;
    EXPECT_NE(t_.io.shown.back().text.find(c.box), std::string::npos)
        << c.name << ": " << t_.io.shown.back().text;
  }
}

TEST_F(PrepareTest, AMissingFileIsReportedNotThrown) {
  const ImportFile f =
      PrepareImportFile(t_.state, monitor_, t_.Data() / "gone.cl2", ImportMode::kReport);
  EXPECT_FALSE(f.ready);
  EXPECT_FALSE(t_.io.shown.empty());
}

TEST_F(PrepareTest, EntriesAreReportedButNotImported) {
  const std::string text = SdifFile().A0({{"content_code", "41"}}).Swim().Text();
  EXPECT_TRUE(Prepare("e.cl2", text, ImportMode::kReport).ready) << OnlyBox();
  EXPECT_FALSE(Prepare("e.cl2", text, ImportMode::kImport).ready);
  EXPECT_EQ(OnlyBox(), "This file contains Meet Entries and is not a candidate for import.");
}

TEST_F(PrepareTest, AForeignRosterIsNotForThisImport) {
  const ImportFile f =
      Prepare("r.cl2", SdifFile().A0("file_code=20|content_code=43").Text(), ImportMode::kImport);
  EXPECT_FALSE(f.ready);
  EXPECT_EQ(f.panel.file_type, "No Valid for Import");
  EXPECT_EQ(OnlyBox(),
            "This file is an Athlete Roster file.\r\nUse the Import Athlete Roster Menu Option "
            "for this file.");
}

TEST_F(PrepareTest, ImportModeTellsWhenTheSwimmerIsNotInTheFile) {
  const std::string text = SdifFile().Swim({{"swimmer_name", "ROE, ANN"}}).Text();
  const ImportFile f = Prepare("o.cl2", text, ImportMode::kImport);
  EXPECT_TRUE(f.ready);
  EXPECT_EQ(f.status, " Import File Checked - Click OK to Import ");
  EXPECT_NE(OnlyBox().find("This file did not contain any results for Jane Doe"),
            std::string::npos);
  t_.io.shown.clear();
  EXPECT_TRUE(Prepare("p.cl2", SdifFile().Swim().Text(), ImportMode::kImport).ready);
  EXPECT_TRUE(t_.io.shown.empty());
}

std::vector<std::string> Nv3File() {
  return {Nv3("A1", "file_code=09|kind=Exported Results|creator=Norvan, Ltd|version=2.1Da"),
          Nv3("B1", "meet_name=Made Up Winter Meet|start=12052026"),
          Nv3("D1", "sex=F|athlete=1|last=DOE|first=JANE|birth=01022014")};
}

TEST_F(PrepareTest, AnNv3FillsThePanelFromItsFirstTwoLines) {
  const ImportFile report = Prepare("w.nv3", testing::FileText(Nv3File()));
  ASSERT_TRUE(report.ready) << OnlyBox();
  EXPECT_EQ(monitor_.statuses.front(), "Initial File Check... ");
  EXPECT_EQ(report.panel.created_by, "Norvan, Ltd 2.1Da");
  EXPECT_EQ(report.panel.file_type, "Exported Results");
  EXPECT_EQ(report.panel.meet_name, "Made Up Winter Meet");
  EXPECT_EQ(report.panel.start_date, "12/05/2026");
  EXPECT_EQ(report.status, " Import File Checked - Click OK to Print");
  const ImportFile import = Prepare("w.nv3", testing::FileText(Nv3File()), ImportMode::kImport);
  ASSERT_TRUE(import.ready) << OnlyBox();
  EXPECT_EQ(import.status, " Import File Checked - Click OK to Import");
}

TEST_F(PrepareTest, ATextFileIsUnscrambledIntoNv3Lines) {
  std::string text;
  for (const std::string& line : Nv3File()) {
    // Not every key can carry every character; the service picks one that can.
    std::optional<std::string> scrambled;
    for (int key = 1; key <= 5 && !scrambled; ++key) scrambled = ScrambleLine(line, key);
    ASSERT_TRUE(scrambled) << line;
    text += *scrambled + "\r\n";
  }
  const ImportFile f = Prepare("KVLR_1.txt", text, ImportMode::kOnline);
  ASSERT_TRUE(f.ready) << OnlyBox();
  EXPECT_EQ(f.lines, Nv3File());
  // A key digit outside the table stops the reading.
  const ImportFile bad = Prepare("KVLR_2.txt", "9" + Nv3File()[0] + "\r\n", ImportMode::kOnline);
  EXPECT_FALSE(bad.ready);
}

TEST_F(PrepareTest, APsnFileNamesTheOnlineProgram) {
  std::string header(81, ' ');
  header.replace(0, 4, "Jane");
  header.replace(20, 3, "Doe");
  header.replace(61, 11, "Norvan, Ltd");
  const ImportFile f = Prepare("jane.psn", header + "\r\nanything at all\r\n", ImportMode::kOnline);
  ASSERT_TRUE(f.ready) << OnlyBox();
  EXPECT_EQ(f.panel.created_by, "Norvan's CLUB STEWARD II");
  EXPECT_EQ(f.panel.file_type, "Individual Results");
  EXPECT_EQ(f.lines.size(), 2u);
}

}  // namespace
}  // namespace kvlr
