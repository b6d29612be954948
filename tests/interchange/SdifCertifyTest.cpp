#include "interchange/SdifCertify.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FileMaker.h"
#include "interchange/SdifTexts.h"
#include "interchange/SwimmerMatch.h"
#include "support/ScriptedUserIo.h"

namespace kvlr {
namespace {

using testing::Cl2;
using testing::Sdif;
using testing::SdifFile;
namespace ct = certify_text;

constexpr int kMonthFirst = 0;

A0Check A0Of(int mode, std::string_view line, bool allow_entries = false) {
  SdifA0 a0;
  LoadA0Rec(line, kMonthFirst, a0);
  return CheckA0(mode, a0, allow_entries);
}

// A good line of `code` with the fields of `change` put over it (blank values clear).
std::string Good(std::string_view code, testing::FieldValues change = {}) {
  using F = std::vector<std::pair<std::string, std::string>>;
  F fields;
  if (code == "A0") {
    fields = {
        {"version", "V3"},       {"file_code", "02"},           {"software_name", "Norvan, Ltd"},
        {"contact_name", "Pat"}, {"contact_phone", "555-0100"}, {"file_date", "11222026"}};
  } else if (code == "B1") {
    fields = {{"meet_name", "Made Up Open"}, {"start", "11012026"}, {"course", "Y"}};
  } else if (code == "C1") {
    fields = {{"team_code", "MUST"}, {"team_name", "Made Up Swim Team"}};
  } else if (code == "D1") {
    fields = {{"swimmer_name", "DOE, JANE A"},
              {"birth", "01022014"},
              {"sex", "F"},
              {"last_membership", "01012026"}};
  } else if (code == "D2") {
    fields = {{"swimmer_name", "DOE, JANE A"}};
  } else if (code == "F0") {
    fields = {{"team_code", "MUST"}, {"swimmer_name", "DOE, JANE A"}, {"birth", "01022014"},
              {"sex", "F"},          {"prelim_order", "0"},           {"swim_off_order", "0"},
              {"finals_order", "1"}, {"leg_time", "32.50"},           {"leg_course", "Y"}};
  } else if (code == "G0") {
    fields = {{"swimmer_name", "DOE, JANE A"}, {"sequence", "1"},   {"total_splits", "4"},
              {"split_distance", "50"},        {"split_code", "C"}, {"prelim_final", "F"}};
  } else if (code == "J0") {
    fields = {{"meet_code", "1"}, {"event_sex", "F"},    {"distance", "100"},
              {"stroke", "1"},    {"event_age", "1112"}, {"date", "11012026"}};
  } else if (code == "J1" || code == "J2") {
    fields = {{"event_sex", "F"},
              {"distance", "100"},
              {"stroke", "1"},
              {"color", "GOLD"},
              {"date", "11012026"}};
  }
  for (const auto& [name, value] : change) {
    bool set = false;
    for (auto& [n, v] : fields) {
      if (n == name) v = value, set = true;
    }
    if (!set) fields.emplace_back(name, value);
  }
  std::string line = Sdif(code);
  const auto& table = testing::SdifFieldTable(code);
  for (const auto& [name, value] : fields) {
    const auto spot = table.at(name);
    const size_t w = static_cast<size_t>(spot.last - spot.first + 1);
    std::string cell = spot.right ? std::string(w - value.size(), ' ') + value
                                  : value + std::string(w - value.size(), ' ');
    line.replace(static_cast<size_t>(spot.first - 1), w, cell);
  }
  return line;
}

TEST(CheckA0Test, EveryRefusalHasItsWords) {
  struct Case {
    int mode;
    std::string line;
    bool allow_entries;
    std::string_view problem;  // "" for a pass
  };
  const Case cases[] = {
      {0, Sdif("B1", {}), false, sdif::kNotA0},
      {1, Sdif("B1", {}), false, sdif::kNotA0},
      {0, Good("A0", {{"software_name", "Norvan Ltd"}}), false, sdif::kNotByNorvan},
      {0, Good("A0", {{"content_code", "41"}}), false, sdif::kHoldsEntries},
      {0, Good("A0", {{"content_code", "44"}}), false, sdif::kHoldsEntries},
      {0, Good("A0", {{"content_code", "41"}}), true, ""},
      {0, Good("A0", {{"content_code", "45"}}), true, sdif::kHoldsMotivational},
      {0, Good("A0", {{"content_code", "46"}}), true, sdif::kHoldsGalaSteward},
      {0, Good("A0", {{"content_code", "48"}}), true, sdif::kHoldsGalaSteward},
      // Entries let in still have their fields tested.
      {0, Good("A0", {{"content_code", "41"}, {"contact_name", ""}}), true, sdif::kRequiredMissing},
      {0, Good("A0", {{"content_code", "44"}, {"file_code", "11"}}), true, sdif::kFileCodeLabel},
      // Any other content ends the Commlink test before the fields are looked at.
      {0, Good("A0", {{"content_code", "99"}, {"contact_name", ""}, {"file_date", ""}}), false, ""},
      {1, Good("A0", {{"file_code", "11"}}), false, sdif::kFileCodeLabel},
      {1, Good("A0", {{"contact_name", ""}}), false, sdif::kRequiredMissing},
      {1, Good("A0", {{"contact_phone", ""}}), false, sdif::kRequiredMissing},
      {1, Good("A0", {{"file_date", ""}}), false, sdif::kRequiredMissing},
      {1, Good("A0", {{"file_code", "01"}}), false, sdif::kNoResultsSd3},
      {1, Good("A0", {{"file_date", "13312004"}}), false, sdif::kDateLabel},
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

// The problem a record's check finds in `line` ("" when it passes).
std::string ProblemOf(int mode, const std::string& line) {
  std::string problem;
  bool ok = false;
  const std::string code = line.substr(0, 2);
  if (code == "B1") {
    SdifB1 r;
    LoadB1Rec(line, kMonthFirst, r);
    ok = CheckB1(mode, r, &problem);
  } else if (code == "C1") {
    SdifC1 r;
    LoadC1Rec(line, r);
    ok = CheckC1(mode, r, &problem);
  } else if (code == "D1") {
    SdifD1 r;
    LoadD1Rec(line, kMonthFirst, r);
    ok = CheckD1(mode, r, &problem);
  } else if (code == "D2") {
    SdifD2 r;
    LoadD2Rec(line, r);
    ok = CheckD2(mode, r, &problem);
  } else if (code == "F0") {
    SdifF0 r;
    LoadF0Rec(line, kMonthFirst, r);
    ok = CheckF0(mode, r, &problem);
  } else if (code == "G0") {
    SdifG0 r;
    LoadG0Rec(line, r);
    ok = CheckG0(mode, r, &problem);
  } else if (code == "J0") {
    SdifJ0 r;
    LoadJ0Rec(line, kMonthFirst, r);
    ok = CheckJ0(mode, r, &problem);
  } else if (code == "J1") {
    ok = CheckJ1(mode, &problem);
  } else if (code == "J2") {
    SdifJ2 r;
    LoadJ2Rec(line, kMonthFirst, r);
    ok = CheckJ2(mode, r, &problem);
  }
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
      {Good("B1", {{"meet_name", ""}}), sdif::kRequiredMissing},
      {Good("B1", {{"start", "13312004"}}), sdif::kDateLabel},
      {Good("B1", {{"course", "Q"}}), sdif::kCourseCodeLabel},
      {Good("C1", {{"team_code", ""}}), sdif::kRequiredMissing},
      {Good("C1", {{"team_name", ""}}), sdif::kRequiredMissing},
      {Good("D1", {{"organization", "X"}}), sdif::kOrganizationCodeLabel},
      {Good("D1", {{"swimmer_name", "DOE JANE"}}), sdif::kSwimmerNameLabel},
      {Good("D1", {{"birth", "13312004"}}), sdif::kDateLabel},
      {Good("D1", {{"sex", "X"}}), sdif::kSexCodeLabel},
      {Good("D1", {{"last_membership", "00002026"}}), sdif::kDateLabel},
      {Good("D1", {{"member_code", "Z"}}), sdif::kMemberCodeLabel},
      {Good("D2", {{"organization", "0"}}), sdif::kOrganizationCodeLabel},
      {Good("D2", {{"swimmer_name", "DOE,JANE"}}), sdif::kSwimmerNameLabel},
      {Good("D2", {{"region", "Z"}}), sdif::kRegionCodeLabel},
      {Good("D2", {{"season", "X"}}), sdif::kSeasonCodeLabel},
      {Good("F0", {{"team_code", ""}}), sdif::kRequiredMissing},
      {Good("F0", {{"swimmer_name", "DOE"}}), sdif::kSwimmerNameLabel},
      {Good("F0", {{"birth", "02302014"}}), sdif::kDateLabel},
      {Good("F0", {{"sex", "X"}}), sdif::kSexCodeLabel},
      {Good("F0", {{"prelim_order", "9"}}), sdif::kOrderCodeLabel},
      {Good("F0", {{"swim_off_order", "B"}}), sdif::kOrderCodeLabel},
      {Good("F0", {{"finals_order", "5"}}), sdif::kOrderCodeLabel},
      {Good("F0", {{"leg_course", "Q"}}), sdif::kCourseCodeLabel},
      {Good("F0", {{"leg_time", "XX"}, {"leg_course", ""}}), sdif::kCourseCodeLabel},
      {Good("G0", {{"organization", "A"}}), sdif::kOrganizationCodeLabel},
      {Good("G0", {{"swimmer_name", "DOE"}}), sdif::kSwimmerNameLabel},
      {Good("G0", {{"sequence", "0"}}), sdif::kRequiredMissing},
      {Good("G0", {{"total_splits", ""}}), sdif::kRequiredMissing},
      {Good("G0", {{"split_distance", "0"}}), sdif::kRequiredMissing},
      {Good("G0", {{"split_code", "X"}}), sdif::kSplitCodeLabel},
      {Good("G0", {{"prelim_final", "Q"}}), sdif::kPrelimFinalCodeLabel},
      {Good("J0", {{"meet_code", "Z"}}), sdif::kMeetCodeLabel},
      {Good("J0", {{"event_sex", "Q"}}), sdif::kEventSexCodeLabel},
      {Good("J0", {{"stroke", "9"}}), sdif::kStrokeCodeLabel},
      {Good("J0", {{"distance", ""}}), sdif::kRequiredMissing},
      {Good("J0", {{"event_age", "  10"}}), sdif::kRequiredMissing},
      {Good("J0", {{"date", "13312004"}}), sdif::kDateLabel},
      {Good("J2", {{"event_sex", "Q"}}), sdif::kEventSexCodeLabel},
      {Good("J2", {{"stroke", "9"}}), sdif::kStrokeCodeLabel},
      {Good("J2", {{"distance", "0"}}), sdif::kRequiredMissing},
      {Good("J2", {{"color", "PINK"}}), sdif::kColorCodeLabel},
      {Good("J2", {{"date", "13312004"}}), sdif::kDateLabel},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ProblemOf(1, c.line), c.problem) << c.line;
    EXPECT_EQ(ProblemOf(0, c.line), "") << "Commlink content is trusted: " << c.line;
  }
}

TEST(RecordChecksTest, GoodLinesAndTheListRulesPass) {
  for (std::string_view code : {"B1", "C1", "D1", "D2", "F0", "G0", "J0", "J2"}) {
    EXPECT_EQ(ProblemOf(1, Good(code)), "") << code;
  }
  // Blank is allowed where the list allows it, and a leg course counts only with a time.
  EXPECT_EQ(ProblemOf(1, Good("D1", {{"member_code", ""}, {"organization", ""}})), "");
  EXPECT_EQ(ProblemOf(1, Good("F0", {{"leg_time", ""}, {"leg_course", "Q"}})), "");
  EXPECT_EQ(ProblemOf(1, Good("F0", {{"leg_time", "DQ"}, {"leg_course", ""}})), "");
  EXPECT_EQ(ProblemOf(1, Good("J2", {{"color", "RED"}})), "") << "\"RED \" in the list";
  EXPECT_EQ(ProblemOf(1, Good("B1", {{"course", "M"}})), "");
  // Eight blanks are the blank date, which is a date.
  EXPECT_EQ(ProblemOf(1, Good("J0", {{"date", ""}})), "");
}

TEST(RecordChecksTest, AJ1LineNeverPasses) {
  EXPECT_EQ(ProblemOf(1, Good("J1")), sdif::kRequiredMissing);
  EXPECT_EQ(ProblemOf(0, Good("J1")), sdif::kRequiredMissing);
}

TEST(CheckZ0Test, CountersAgainstTheFilesCountsInOrder) {
  SdifZ0 z0;
  z0.b1_count = 2;
  z0.c1_count = 3;
  z0.d0_count = 10;
  z0.swimmer_count = 4;
  z0.e0_count = 1;
  z0.g0_count = 7;
  const SdifCounters good{2, 3, 10, 1, 7};
  struct Case {
    SdifCounters n;
    bool roster;
    std::string_view problem;
  };
  const Case cases[] = {
      {good, false, ""},
      {{1, 0, 0, 0, 0}, false, ct::kMismatchedB1},
      {{2, 4, 0, 0, 0}, false, ct::kMismatchedC1},
      {{2, 3, 9, 1, 7}, false, ct::kMismatchedD0},
      {{2, 3, 10, 1, 7}, true, ct::kMismatchedSwimmers},
      {{2, 3, 4, 1, 7}, true, ""},
      {{2, 3, 10, 0, 7}, false, ct::kMismatchedE0},
      {{2, 3, 10, 1, 6}, false, ct::kMismatchedG0},
  };
  for (const Case& c : cases) {
    std::string problem;
    EXPECT_EQ(CheckZ0(1, z0, c.n, c.roster, &problem), c.problem.empty());
    EXPECT_EQ(problem, c.problem);
    EXPECT_TRUE(CheckZ0(0, z0, c.n, c.roster, nullptr));
  }
}

TEST(ShowFileStatisticsTest, KindFollowsFileCodeThenContent) {
  struct Case {
    std::string_view file_code, content, source, version, kind;
    bool valid;
  };
  const Case cases[] = {
      {"02", "", "", "", ct::kMeetResults, true},
      {"02", "43", "", "", ct::kMeetResults, true},
      {"16", "", "", "", ct::kTop16, true},
      {"01", "41", "", "", ct::kContentsUnknown, true},
      {"20", "41", "", "", ct::kMeetEntries, true},
      {"20", "44", "", "", ct::kMeetEntries, true},
      {"20", "42", "", "", ct::kBestTimes, true},
      {"20", "43", "CS", "2.1", ct::kWincsRoster, true},
      {"20", "43", "LS", "1.0", ct::kLedgerRoster, true},
      {"20", "43", "CS", "1.9", ct::kNoValidForImport, false},
      {"20", "43", "PL", "5.0", ct::kNoValidForImport, false},
      {"20", "99", "", "", ct::kContentsUnknown, true},
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
                std::string(ct::kRosterFile) + "\r\n" + std::string(ct::kUseRosterImport));
    } else {
      EXPECT_TRUE(io.shown.empty());
    }
  }
}

TEST(ShowFileStatisticsTest, PanelNamesCreatorAndFirstMeet) {
  SdifFile file;
  file.A0({{"software_version", "3.2"}})
      .Meet({{"meet_name", "First Made Up Meet"}, {"start", "03142026"}})
      .Meet({{"meet_name", "Second Meet"}});
  const FilePanel panel =
      ShowFileStatistics(file.Lines(), "/tmp/some/meet.cl2", /*day first*/ 1, nullptr);
  EXPECT_EQ(panel.file_name, "meet.cl2");
  EXPECT_EQ(panel.created_by, "Norvan, Ltd 3.2");
  EXPECT_EQ(panel.file_type, ct::kMeetResults);
  EXPECT_EQ(panel.meet_name, "First Made Up Meet");
  EXPECT_EQ(panel.start_date, "14/03/2026");
}

// A monitor that records and can stop the pass after a number of questions.
class Recorder : public ImportMonitor {
 public:
  void Status(std::string_view s) override { statuses.emplace_back(s); }
  void Counts(const ImportCounts& c) override { last = c; }
  bool Cancelled() override { return ++asked > cancel_after; }
  std::vector<std::string> statuses;
  ImportCounts last;
  int asked = 0;
  int cancel_after = 1 << 30;
};

struct Run {
  SdifCheckResult result;
  test::ScriptedUserIo io;
  Recorder monitor;
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
        .Line("G0", {{"swimmer_name", "ROE, ANN"},
                     {"sequence", "1"},
                     {"total_splits", "2"},
                     {"split_distance", "50"},
                     {"split_code", "C"},
                     {"split1", "31.00"},
                     {"split2", "1:05.32"},
                     {"prelim_final", "F"}});
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

TEST(SdifCheckTest, FailuresOfThePassNameTheLineAndProblem) {
  struct Case {
    std::string name;
    std::vector<std::string> lines;
    std::string_view ext;
    size_t bad_line;
    std::string_view problem;
  };
  std::string marked = SdifFile(false).Swim().Lines()[3];
  marked[157] = 'X';
  const Case cases[] = {
      {"sd3 without D3", SdifFile(false).Swim({}, false).Swim({}, false).Lines(), ".SD3", 5,
       ct::kMissingD3},
      {"column 158", SdifFile(false).Raw(marked).Lines(), ".SD3", 3, ct::kImproperNonBlank},
      {"J1 in sd3", SdifFile(false).Line("J1", {}).Lines(), ".SD3", 3, sdif::kRequiredMissing},
      {"J1 in cl2", SdifFile(true).Line("J1", {}).Lines(), ".CL2", 3, sdif::kRequiredMissing},
      {"D0 field", SdifFile(false).Swim({{"sex", "X"}}).Lines(), ".SD3", 4, sdif::kSexCodeLabel},
      {"E0 field", SdifFile(false).Relay({{"stroke", "2"}}).Lines(), ".SD3", 4,
       sdif::kStrokeCodeLabel},
      {"Z0 count", SdifFile(false).Swim().Z0({{"d0_count", "2"}}).Lines(), ".SD3", 6,
       ct::kMismatchedD0},
      {"A0 in sd3", SdifFile(false).A0({{"file_code", "01"}}).Lines(), ".SD3", 1,
       sdif::kNoResultsSd3},
  };
  for (const Case& c : cases) {
    auto run = Check(c.lines, c.ext);
    EXPECT_FALSE(run->result.ok) << c.name;
    EXPECT_EQ(run->result.bad_line, c.bad_line) << c.name;
    EXPECT_EQ(run->result.problem, c.problem) << c.name;
    ASSERT_FALSE(run->io.shown.empty()) << c.name;
    EXPECT_NE(run->io.shown.back().text.find("\r\nProblem: " + std::string(c.problem)),
              std::string::npos)
        << c.name;
  }
}

TEST(SdifCheckTest, CommlinkContentAndCountsAreTrusted) {
  std::string marked = SdifFile(true).Swim().Lines()[3];
  marked[157] = 'X';
  const std::vector<std::vector<std::string>> files = {
      SdifFile(true).Swim({{"sex", "X"}}).Lines(),
      SdifFile(true).Swim().Z0({{"d0_count", "9"}}).Lines(),
      SdifFile(true).Raw(testing::Cl2(marked)).Lines(),
  };
  for (const auto& lines : files) EXPECT_TRUE(Check(lines, ".CL2")->result.ok);
  // A .cl2 needs no D3 lines.
  EXPECT_TRUE(Check(SdifFile(true).Swim({}, false).Swim({}, false).Lines(), ".CL2")->result.ok);
}

TEST(SdifCheckTest, ARosterCountsItsSwimmers) {
  SdifFile file(false);
  file.A0({{"content_code", "43"}, {"source_code", "LS"}})
      .Team()
      .Line("D1", {{"swimmer_name", "DOE, JANE A"}, {"sex", "F"}})
      .Line("D1", {{"swimmer_name", "ROE, ANN"}, {"sex", "F"}});
  auto run = Check(file.Lines(), ".SD3");
  ASSERT_TRUE(run->result.ok) << run->result.problem;
  EXPECT_EQ(run->result.counts.Checked(ImportRow::kIndividual), 2);
  auto wrong = Check(file.Z0({{"swimmer_count", "3"}}).Lines(), ".SD3");
  EXPECT_EQ(wrong->result.problem, ct::kMismatchedSwimmers);
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
  const auto lines = SdifFile()
                         .Swim({{"swimmer_name", "DOE, JOHN"}, {"sex", "M"}})
                         .Swim({{"swimmer_name", "DOE, MARY B"}})
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
              "Doe\r\nJOHN DOE\r\nMARY B DOE");
  }
  {
    SwimmerMatcher matcher(CurrentSwimmer{7, "Mary", "Doe", "F"}, {}, false);
    EXPECT_TRUE(Check(lines, ".CL2", false, &matcher)->io.shown.empty());
    SwimmerMatcher nobody(CurrentSwimmer{7, "Zed", "Zulu", "M"}, {}, false);
    EXPECT_TRUE(Check(lines, ".CL2", /*report*/ true, &nobody)->io.shown.empty());
  }
}

}  // namespace
}  // namespace kvlr
