#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "OnlineFixtures.h"
#include "athletes/CurrentAthlete.h"
#include "interchange/ImportPrepare.h"
#include "interchange/ImportSession.h"
#include "interchange/Psn.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::PsnHeaderLine;
using test::PsnResultFields;
using test::PsnResultLine;
using test::PsnSplitsLine;
using test::QueryNumber;

TEST(ParsePsnLine, ResultColumns) {
  PsnResultFields f;
  f.lead_off = "R";
  PsnLine line = ParsePsnLine(PsnResultLine(f), 0);
  ASSERT_EQ(line.kind, PsnLine::Kind::kResult);
  const PsnResult& r = line.result;
  EXPECT_EQ(r.stroke, 1);
  EXPECT_EQ(r.distance, 100);
  EXPECT_EQ(r.time.score, 6532);
  EXPECT_EQ(r.course, "Y");
  EXPECT_EQ(r.f_p, "F");
  EXPECT_EQ(r.i_r, "L");
  EXPECT_TRUE(r.start == (FileDate{Date{2026, 11, 6}, false}));
  EXPECT_TRUE(r.end == (FileDate{Date{2026, 11, 8}, false}));
  EXPECT_EQ(r.meet_name, "Harbor Invitational");
  EXPECT_EQ(r.place, 3);

  // Place only in a line of 81 columns; a blank end date; a day-first user reads the same.
  f.lead_off = " ";
  f.place = "";
  f.end = "";
  line = ParsePsnLine(PsnResultLine(f), 1);
  EXPECT_EQ(line.result.i_r, "I");
  EXPECT_EQ(line.result.place, 0);
  EXPECT_TRUE(line.result.end.IsBlank());
  EXPECT_TRUE(line.result.start == (FileDate{Date{2026, 11, 6}, false}));
  f.start = "13/40/2026";
  EXPECT_TRUE(ParsePsnLine(PsnResultLine(f), 0).result.start.bad);
}

TEST(ParsePsnLine, BlankColumns77And78MakeASplitsLine) {
  const PsnLine line = ParsePsnLine(PsnSplitsLine({"14.90", "31.20", "47.85", "1:05.32"}), 0);
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
  };
  for (const auto& c : cases) {
    test::TempHome t;
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

TEST(CheckPSNHeader, NoToTheFirstNameQuestionStops) {
  test::TempHome t;
  t.state.gAthleteFirst = "Pat";
  t.state.gAthleteLast = "Rivers";
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(CheckPSNHeader(t.state, PsnHeaderLine("Alex", "Rivers")));
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
  SQLite::Statement q(Db(),
                      "SELECT r.Athlete, r.Score, r.Age, r.Place, r.Course, r.I_R, r.F_P, "
                      "e.Lo_Hi, e.Sex, e.I_R, e.MtEv, r.Result FROM RESULT r JOIN MTEVENT e "
                      "ON e.MtEvent = r.MtEvent ORDER BY r.Distance DESC");
  ASSERT_TRUE(q.executeStep());
  EXPECT_EQ(q.getColumn(0).getInt(), pat);
  EXPECT_EQ(q.getColumn(1).getInt(), 6532);
  EXPECT_EQ(q.getColumn(2).getInt(), 11);  // the birthday is the day after the start
  EXPECT_EQ(q.getColumn(3).getInt(), 3);
  EXPECT_EQ(q.getColumn(4).getString(), "Y");
  EXPECT_EQ(q.getColumn(5).getString(), "I");
  EXPECT_EQ(q.getColumn(6).getString(), "F");
  EXPECT_EQ(q.getColumn(7).getInt(), 99);
  EXPECT_EQ(q.getColumn(8).getString(), "F");
  EXPECT_EQ(q.getColumn(9).getString(), "I");
  EXPECT_EQ(q.getColumn(10).getInt(), 1);
  const int64_t free_key = q.getColumn(11).getInt64();
  ASSERT_TRUE(q.executeStep());
  EXPECT_EQ(q.getColumn(5).getString(), "L");  // a lead-off, in an individual event
  EXPECT_EQ(q.getColumn(9).getString(), "I");
  EXPECT_EQ(q.getColumn(3).getInt(), 0);
  const int64_t back_key = q.getColumn(11).getInt64();

  // Every 50 in yards; every 100 in long course, the second line going on from the seventh.
  struct Split {
    int64_t result;
    int index;
    int value;
  };
  const Split splits[] = {{free_key, 2, 1490}, {free_key, 4, 3120}, {free_key, 6, 4785},
                          {free_key, 8, 6532}, {back_key, 4, 1600}, {back_key, 8, 3410},
                          {back_key, 56, 7000}};
  EXPECT_EQ(Count("SELECT COUNT(*) FROM SPLITS"), static_cast<long long>(std::size(splits)));
  for (const auto& s : splits) {
    SQLite::Statement one(Db(), "SELECT Split FROM SPLITS WHERE SplitID = ? AND SplitIndex = ?");
    SQLite::bind(one, s.result, s.index);
    ASSERT_TRUE(one.executeStep()) << s.index;
    EXPECT_EQ(one.getColumn(0).getInt(), s.value) << s.index;
  }
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

}  // namespace
}  // namespace kvlr
