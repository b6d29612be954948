#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "OnlineFixtures.h"
#include "athletes/CurrentAthlete.h"
#include "interchange/ImportPrepare.h"
#include "interchange/ImportSession.h"
#include "interchange/Psn.h"
#include "interchange/Scramble.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::PsnHeaderLine;
using test::PsnResultFields;
using test::PsnResultLine;
using test::PsnSplitsLine;
using test::QueryNumber;

TEST(ParsePsnLine, ResultColumnsAndBlankColumns77And78MakeASplitsLine) {
  PsnResultFields f;
  f.lead_off = "R";
  PsnLine line = ParsePsnLine(PsnResultLine(f), 0);
  ASSERT_EQ(line.kind, PsnLine::Kind::kResult);
  const PsnResult& r = line.result;
  EXPECT_EQ(std::tie(r.stroke, r.distance, r.time.score, r.course, r.f_p, r.i_r, r.start.date,
                     r.end.date, r.meet_name, r.place),
            std::make_tuple(1, 100, 6532, "Y", "F", "L", Date{2026, 11, 6}, Date{2026, 11, 8},
                            "Harbor Invitational", 3));
  EXPECT_FALSE(r.start.bad || r.end.bad);

  // Place only in a line of 81 columns; a blank end date; a day-first user reads the same.
  f.lead_off = " ";
  f.place = "";
  f.end = "";
  line = ParsePsnLine(PsnResultLine(f), 1);
  EXPECT_EQ(std::tie(line.result.i_r, line.result.place, line.result.start.date),
            std::make_tuple("I", 0, Date{2026, 11, 6}));
  EXPECT_TRUE(line.result.end.IsBlank());
  f.start = "13/40/2026";
  EXPECT_TRUE(ParsePsnLine(PsnResultLine(f), 0).result.start.bad);

  line = ParsePsnLine(PsnSplitsLine({"14.90", "31.20", "47.85", "1:05.32"}), 0);
  ASSERT_EQ(line.kind, PsnLine::Kind::kSplits);
  EXPECT_EQ(line.splits, (std::array<int32_t, 7>{1490, 3120, 4785, 6532, 0, 0, 0}));
  // Columns behind the groups don't matter while 77-78 are blank.
  std::string padded = PsnSplitsLine({"1", "2", "3", "4", "5", "6", "7"}) + std::string(30, ' ');
  EXPECT_EQ(ParsePsnLine(padded, 0).splits[6], 7);
  EXPECT_EQ(ParsePsnLine("", 0).kind, PsnLine::Kind::kSplits);
}

struct HeaderCase {
  std::string line;
  bool passes;
  std::vector<std::string> words;  // in the one box shown; none when empty
  bool asked = false;
  Answer answer = Answer::kYes;
};

TEST(CheckPSNHeader, NamesAgainstTheCurrentSwimmer) {
  const HeaderCase cases[] = {
      {PsnHeaderLine("Pat", "Rivers").substr(0, 80),
       false,
       {"Error in import file.  The file is corrupted or was not produced by Norvan's CLUB "
        "STEWARD"}},
      {PsnHeaderLine("Pat", "Rivers", "", "", "Norvan Ltd"),
       false,
       {"This import file was not produced by  Norvan's CLUB STEWARD"}},
      {PsnHeaderLine("Pat", "Ocean", "", "Q"),
       false,
       {"This file import is for: Pat Q Ocean", "Your KVL database is for last name of Rivers.",
        "Import of results is only allowed when the last name match."}},
      {PsnHeaderLine("PAT", "RIVERS"), true, {}},
      {PsnHeaderLine("Patsy", "Rivers"), true, {}},  // the swimmer's preferred name
      {PsnHeaderLine("Alex", "Rivers", "Al"),
       true,
       {"This file import is for: Alex 'Al' Rivers",
        "Warning: The first name in the import file does not match",
        "the first name of the current KVL swimmer.", "Current KVL swimmer: Pat Rivers",
        "Do you want to continue?"},
       true},
      {PsnHeaderLine("Alex", "Rivers"), false, {"Do you want to continue?"}, true, Answer::kNo},
  };
  for (const auto& c : cases) {
    test::TempHome t;
    t.io.Script({c.answer});
    t.state.gAthleteFirst = "Pat";
    t.state.gAthleteLast = "Rivers";
    t.state.gAthletePref = "Patsy";
    t.state.gAthleteName = "Pat Rivers";
    EXPECT_EQ(CheckPSNHeader(t.state, c.line), c.passes) << c.line;
    if (c.words.empty()) {
      EXPECT_TRUE(t.io.shown.empty()) << c.line;
      continue;
    }
    ASSERT_EQ(t.io.shown.size(), 1u) << c.line;
    for (const auto& w : c.words) EXPECT_NE(t.io.shown[0].text.find(w), std::string::npos) << w;
    EXPECT_EQ(box::Buttons(t.io.shown[0].style) == box::kYesNo, c.asked) << c.line;
  }
}

class PsnImportTest : public ::testing::Test {
 protected:
  PsnImportTest() {
    test::MakeOpenDatabase(t);
    SQLite::Statement add(Db(),
                          "INSERT INTO ATHLETE (Last, First, Sex, Birth) VALUES (?, ?, ?, ?)");
    SQLite::bind(add, "Rivers", "Pat", "F", "2014-11-07");
    add.exec();
    pat = static_cast<int32_t>(Db().getLastInsertRowid());
    SetCurrentAthlete(t.state, pat);
  }
  SQLite::Database& Db() { return *t.state.gDb; }
  long long Count(const std::string& sql) { return QueryNumber(Db(), sql); }

  int Import(const std::vector<std::string>& lines) {
    ImportMonitor quiet;
    ImportSession session(t.state, ImportCriteria{}, quiet);
    const int count = PSNImport(session, lines);
    session.Commit();
    return count;
  }

  test::TempHome t;
  int32_t pat = 0;
};

TEST_F(PsnImportTest, ResultsAndTheirSplits) {
  PsnResultFields free;
  PsnResultFields back;
  back.stroke = "2";
  back.distance = "  50";
  back.time = "   34.10";
  back.course = "L";
  back.lead_off = "R";
  back.place = "";
  const int count = Import({
      PsnHeaderLine("Pat", "Rivers"),
      PsnSplitsLine({"1.00"}),  // no result yet: passed over
      PsnResultLine(free),
      PsnSplitsLine({"14.90", "31.20", "47.85", "1:05.32"}),
      PsnResultLine(back),
      PsnSplitsLine({"16.00", "34.10"}),
      PsnSplitsLine({"", "", "", "", "", "", "1:10.00"}),
  });
  EXPECT_EQ(count, 2);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE MName = 'Harbor Invitational' AND "
                  "Start = '2026-11-06' AND End = '2026-11-08'"),
            1);
  // Athlete, score, age (the birthday is the day after the start), place, course, I_R, F_P;
  // the event's Lo_Hi, sex, I_R and number.
  SQLite::Statement q(Db(),
                      "SELECT r.Athlete, r.Score, r.Age, r.Place, r.Course, r.I_R, "
                      "r.F_P, e.Lo_Hi, e.Sex, e.I_R, e.MtEv FROM RESULT r JOIN MTEVENT e "
                      "ON e.MtEvent = r.MtEvent ORDER BY r.Distance DESC");
  const auto row = [&q] {
    std::string text;
    for (int i = 0; i < q.getColumnCount(); ++i) text += q.getColumn(i).getString() + "|";
    return text;
  };
  ASSERT_TRUE(q.executeStep());
  EXPECT_EQ(row(), std::to_string(pat) + "|6532|11|3|Y|I|F|99|F|I|1|");
  ASSERT_TRUE(q.executeStep());
  // A lead-off, in an individual event.
  EXPECT_EQ(row(), std::to_string(pat) + "|3410|11|0|L|L|F|99|F|I|2|");

  // Every 50 in yards; every 100 in long course, the second line going on from the seventh.
  SQLite::Statement splits(Db(),
                           "SELECT r.Distance, s.SplitIndex, s.Split FROM SPLITS s JOIN RESULT r "
                           "ON r.Result = s.SplitID ORDER BY r.Distance DESC, s.SplitIndex");
  std::string rows;
  while (splits.executeStep()) {
    rows += splits.getColumn(0).getString() + "|" + splits.getColumn(1).getString() + "|" +
            splits.getColumn(2).getString() + "\n";
  }
  EXPECT_EQ(rows,
            "100|2|1490\n100|4|3120\n100|6|4785\n100|8|6532\n50|4|1600\n50|8|3410\n50|56|7000\n");
}

TEST_F(PsnImportTest, TheSameSwimAgainRewritesItsRow) {
  PsnResultFields f;
  ASSERT_EQ(
      Import({PsnHeaderLine("Pat", "Rivers"), PsnResultLine(f), PsnSplitsLine({"", "31.20"})}), 1);
  f.time = " 1:04.99";
  f.place = "  1";
  ASSERT_EQ(
      Import({PsnHeaderLine("Pat", "Rivers"), PsnResultLine(f), PsnSplitsLine({"", "31.00"})}), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE MName = 'Harbor Invitational'"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 1);
  EXPECT_EQ(Count("SELECT Score FROM RESULT"), 6499);
  EXPECT_EQ(Count("SELECT Place FROM RESULT"), 1);
  EXPECT_EQ(Count("SELECT Split FROM SPLITS WHERE SplitIndex = 4"), 3100);
}

TEST_F(PsnImportTest, AFileOfAnotherLastNameImportsNothing) {
  const std::filesystem::path file = t.Data() / "results.psn";
  test::WriteLines(file, {PsnHeaderLine("Pat", "Ocean"), PsnResultLine({})});
  ImportMonitor quiet;
  const ImportFile prepared = PrepareImportFile(t.state, quiet, file, ImportMode::kOnline);
  EXPECT_FALSE(prepared.ready);
  EXPECT_TRUE(t.io.Saw("Import of results is only allowed when the last name match."));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE MName = 'Harbor Invitational'"), 0);
  EXPECT_EQ(ResultsProcessedText(0), "Results processed: 0");
}

// The scrambling of the online service's text files.

struct BlockCase {
  const char* block;
  const char* key;
  const char* plain;
};

TEST(Unscramble, BlocksByRangeOfCodesAndOnlyTheFiveKeyDigitsOpenALineOfTenColumnBlocks) {
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

  const std::string body(130, 'Q');
  for (char digit : std::string("12345")) {
    EXPECT_TRUE(UnscrambleLine(digit + body).has_value()) << digit;
  }
  for (char digit : std::string("06789 xA")) {
    EXPECT_FALSE(UnscrambleLine(digit + body).has_value()) << digit;
  }
  EXPECT_FALSE(UnscrambleLine("").has_value());

  // Columns 2 to 121 go in blocks of ten; the rest is copied.
  std::string blocks;
  for (int i = 0; i < 130; ++i) blocks += static_cast<char>('A' + i % 26);
  const auto line = UnscrambleLine("2" + blocks);
  ASSERT_TRUE(line.has_value());
  ASSERT_EQ(line->size(), 130u);
  for (size_t block = 0; block < 12; ++block) {
    EXPECT_EQ(line->substr(block * 10, 10),
              UnscrambleBlock(blocks.substr(block * 10, 10), kScrambleKeys[1]))
        << block;
  }
  EXPECT_EQ(line->substr(120), blocks.substr(120));
  // A short line ends in a short block.
  EXPECT_EQ(UnscrambleLine("1ABC"), UnscrambleBlock("ABC", kScrambleKeys[0]));
}

TEST(ScrambleLine, RoundTripsNv3TextUnderEveryKeyAndRefusesTheRest) {
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
  // Refused: what no scrambled text could give.
  EXPECT_FALSE(ScrambleLine("A1", 0).has_value());
  EXPECT_FALSE(ScrambleLine("A1", 6).has_value());
  // Column 2 of a block goes by the key's second digit, 1 in the first key: only the kept
  // '-' would unscramble to ','.
  EXPECT_FALSE(ScrambleLine("A,", 1).has_value());
  EXPECT_TRUE(ScrambleLine(",A", 1).has_value());
}

}  // namespace
}  // namespace kvlr
