// The kvlr tool as a user runs it: output, words on stderr, exit codes.

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>
#include <tuple>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "Command.h"
#include "Commands.h"
#include "core/FileOps.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int code;
  std::string out;
  std::string err;
};

class Cli : public ::testing::Test {
 protected:
  Outcome Kvlr(std::vector<std::string> args, const std::string& input = "",
               bool terminal = false) {
    std::ostringstream out, err;
    std::istringstream in(input);
    args.insert(args.begin(), {"--home", t.Home().string()});
    CliEnvironment env{out, err, in, terminal, t.clock, t.disk, "%m/%d/%y", ""};
    int code = RunCli(args, env);
    return {code, out.str(), err.str()};
  }
  std::string Db(const std::string& name) { return (t.Data() / name).string(); }

  test::TempHome t;
};

TEST_F(Cli, NewDbMakesACompleteFileThatCheckDbLists) {
  Outcome made = Kvlr({"new-db", Db("family.mdb")});
  ASSERT_EQ(made.code, 0) << made.err;
  EXPECT_EQ(made.out, "Database\tTables\n" + Db("family.mdb") + "\t31\n");

  Outcome checked = Kvlr({"check-db", Db("family.mdb")});
  ASSERT_EQ(checked.code, 0) << checked.err;
  EXPECT_EQ(checked.out.substr(0, checked.out.find('\n')), "Table\tRows");
  EXPECT_NE(checked.out.find("\nCODE\t4\n"), std::string::npos);
  EXPECT_NE(checked.out.find("\nEnergy\t9\n"), std::string::npos);
  EXPECT_NE(checked.out.find("\nOPTIONS\t1\n"), std::string::npos);
}

TEST_F(Cli, RefusalsGiveTheProgramsWordsAndExitOne) {
  WriteFileAtomically(Db("junk.mdb"), std::string(3000, '?'));
  ASSERT_EQ(Kvlr({"new-db", Db("taken.mdb")}).code, 0);
  struct Case {
    std::vector<std::string> args;
    std::string words;
  };
  const Case cases[] = {
      {{"new-db", Db("family.txt")}, "Not a valid filename: family.txt"},
      {{"new-db", Db("O'Brien.mdb")}, "can not include quotes, apostrophes"},
      {{"new-db", Db("a-name-far-too-long-for-it.mdb")}, "can not be longer than 20 characters"},
      {{"new-db", Db("taken.mdb")}, "already exists"},
      {{"--no", "check-db", Db("junk.mdb")}, "Not a valid KVL-R Database."},
      {{"check-db", Db("gone.mdb")}, "That file no longer exists."},
      {{"new-db", Db(".mdb")}, "needs a name before \".mdb\""},
      {{"new-db", Db("tab\there.mdb")}, "can not hold tabs, line breaks"},
  };
  for (const auto& c : cases) {
    Outcome r = Kvlr(c.args);
    EXPECT_EQ(r.code, 1) << c.args[1];
    EXPECT_NE(r.err.find(c.words), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");
  }
}

TEST_F(Cli, MisuseExitsTwo) {
  for (const auto& args : std::vector<std::vector<std::string>>{{},
                                                                {"fly"},
                                                                {"new-db"},
                                                                {"check-db", "a.mdb", "b.mdb"},
                                                                {"time"},
                                                                {"repair", "--fast", "x"}}) {
    EXPECT_EQ(Kvlr(args).code, 2) << (args.empty() ? "" : args[0]);
  }
}

TEST_F(Cli, EveryCommandHasHelp) {
  for (const char* command : {"new-db", "check-db", "repair", "time"}) {
    Outcome r = Kvlr({command, "--help"});
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out.rfind(std::string("Usage: kvlr ") + command, 0), 0u) << r.out;
  }
  EXPECT_NE(Kvlr({"--help"}).out.find("check-db"), std::string::npos);
}

TEST_F(Cli, RowsEscapeWhatWouldBreakThem) {
  std::ostringstream out;
  cli::Row(out, {"a\tb", "c\\d", "e\r\nf", ""});
  EXPECT_EQ(out.str(), "a\\tb\tc\\\\d\te\\r\\nf\t\n");
  EXPECT_NE(Kvlr({"--help"}).out.find("a tab \\t"), std::string::npos);
}

// An export never writes over a database or a foreign file, and replaces its own kind only
// when told to.
TEST_F(Cli, StandardExportKeepsOtherFiles) {
  const std::string db = Db("family.mdb");
  ASSERT_EQ(Kvlr({"new-db", db}).code, 0);
  const std::string csv = Db("cuts.csv");
  WriteFileAtomically(csv,
                      "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke,A Y Faster,A Y Slower,A S Faster,"
                      "A S Slower,A L Faster,A L Slower\n"
                      "F,I,11,12,100,2,1:10.00,,,,,\n");
  ASSERT_EQ(Kvlr({"standard-import", "--db", db, "CUTS", csv}).code, 0);
  const std::string database = ReadWholeFile(db);
  WriteFileAtomically(Db("notes.txt"), "notes");

  Outcome over_db = Kvlr({"--yes", "standard-export", "--db", db, "CUTS", db});
  EXPECT_EQ(over_db.code, 1);
  EXPECT_EQ(over_db.err, db + " is a database, not a CSV file; choose another name.\n");
  EXPECT_EQ(ReadWholeFile(db), database);
  EXPECT_EQ(Kvlr({"standard-export", "--db", db, "CUTS", Db("notes.txt"), "--yes"}).code, 1);
  EXPECT_EQ(ReadWholeFile(Db("notes.txt")), "notes");

  WriteFileAtomically(csv, "old");
  Outcome unanswered = Kvlr({"standard-export", "--db", db, "CUTS", csv});
  EXPECT_EQ(unanswered.code, 1);
  EXPECT_NE(unanswered.err.find(csv + " already exists. Do you want to replace it?"),
            std::string::npos);
  EXPECT_EQ(Kvlr({"standard-export", "--db", db, "CUTS", csv, "--no"}).code, 1);
  EXPECT_EQ(ReadWholeFile(csv), "old");
  EXPECT_EQ(Kvlr({"standard-export", "--db", db, "CUTS", csv, "--yes"}).code, 0);
  EXPECT_NE(ReadWholeFile(csv).find("F,I,11,12,100,2,1:10.00"), std::string::npos);
}

TEST_F(Cli, TimeShowsEveryReading) {
  Outcome r = Kvlr({"time", "5123", "1:05.3", "X", "-", "7.99"});
  ASSERT_EQ(r.code, 0);
  EXPECT_EQ(r.out,
            "Text\tNormalized\tScore\tFormatted\tPadded\tScoreText\n"
            "5123\t00:51.23\t5123\t51.23\t   51.23\t   51.23\n"
            "1:05.3\t01:05.30\t6530\t1:05.30\t 1:05.30\t 1:05.30\n"
            "X\t\t0\t00.00\t   00.00\t\n"
            "-\t\t0\t00.00\t   00.00\t\n"
            "7.99\t00:07.99\t799\t07.99\t   07.99\tError\n");
}

TEST_F(Cli, RepairCompactsAndReports) {
  ASSERT_EQ(Kvlr({"new-db", Db("family.mdb")}).code, 0);
  Outcome r = Kvlr({"repair", Db("family.mdb")});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out.rfind("Database\tBytes before\tBytes after\n", 0), 0u);
  EXPECT_NE(r.err.find("Database Optimization Completed."), std::string::npos);
}

// A damaged file: the question is answered by a flag or a terminal, else the command stops.
TEST_F(Cli, DamagedFileAsksBeforeRepair) {
  ASSERT_EQ(Kvlr({"new-db", Db("family.mdb")}).code, 0);
  fs::resize_file(Db("family.mdb"), fs::file_size(Db("family.mdb")) / 2);
  const std::string damaged = ReadWholeFile(Db("family.mdb"));

  Outcome unanswered = Kvlr({"check-db", Db("family.mdb")});
  EXPECT_EQ(unanswered.code, 1);
  EXPECT_NE(unanswered.err.find("Attempt to Repair it?"), std::string::npos);
  EXPECT_NE(unanswered.err.find("--yes"), std::string::npos);

  EXPECT_EQ(Kvlr({"check-db", Db("family.mdb")}, "n\n", true).code, 1);
  EXPECT_EQ(Kvlr({"--no", "check-db", Db("family.mdb")}).code, 1);
  EXPECT_EQ(ReadWholeFile(Db("family.mdb")), damaged);

  Outcome fixed = Kvlr({"--yes", "check-db", Db("family.mdb")});
  EXPECT_EQ(fixed.code, 0) << fixed.err;
  EXPECT_NE(fixed.out.find("\nAthlete\t0\n"), std::string::npos);
}

}  // namespace
}  // namespace kvlr

namespace kvlr {
namespace {

// A family's season through the tool: swimmers, a meet and its swims, best times, a standard.
TEST_F(Cli, ASeasonThroughTheTool) {
  const std::string db = Db("family.mdb");
  ASSERT_EQ(Kvlr({"new-db", db}).code, 0);
  Outcome added = Kvlr({"add-athlete", "--db", db, "--last", "O'Brien", "--first", "Maeve", "--sex",
                        "F", "--birth", "2014-03-09"});
  ASSERT_EQ(added.code, 0) << added.err;
  ASSERT_EQ(added.out.rfind("Athlete\n", 0), 0u) << added.out;
  const std::string athlete = added.out.substr(8, added.out.size() - 9);
  {
    SQLite::Database file(db, SQLite::OPEN_READWRITE);
    file.exec(
        "INSERT INTO MEET (Meet, MName, Start, \"End\", Course, Type) VALUES "
        "(1, 'Harbor Winter Classic', '2026-12-05', '2026-12-06', 'Y', 'AG')");
    file.exec(
        "INSERT INTO MTEVENT (Meet, MtEv, Lo_Hi, Course, MtEvent, Distance, Stroke, Sex, "
        "I_R) VALUES (1, 3, 1112, 'Y', 30, 100, 2, 'F', 'I')");
    SQLite::Statement swim(file,
                           "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, MTEVENT, "
                           "DISTANCE, STROKE, COURSE, AGE) VALUES (1, ?, 'I', ?, ?, 0, 30, 100, "
                           "2, 'Y', 12)");
    for (auto [score, round] : {std::pair{6512, "P"}, std::pair{6398, "F"}}) {
      swim.reset();
      SQLite::bind(swim, std::stoi(athlete), score, round);
      swim.exec();
    }
    // One long-distance free race in two courses: 500 yards and 400 long-course metres.
    file.exec(
        "INSERT INTO MEET (Meet, MName, Start, \"End\", Course, Type) VALUES "
        "(2, 'Lakeside Long Course', '2027-01-09', '2027-01-10', 'L', 'AG')");
    SQLite::Statement free(file,
                           "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, MTEVENT, "
                           "DISTANCE, STROKE, COURSE, AGE) VALUES (?, ?, 'I', ?, 'F', 0, ?, ?, "
                           "1, ?, 12)");
    SQLite::bind(free, 1, std::stoi(athlete), 33000, 31, 500, "Y");
    free.exec();
    free.reset();
    SQLite::bind(free, 2, std::stoi(athlete), 28000, 40, 400, "L");
    free.exec();
  }
  EXPECT_EQ(Kvlr({"rank", "--db", db}).code, 0);

  Outcome meets = Kvlr({"meets", "--db", db});
  ASSERT_EQ(meets.code, 0) << meets.err;
  EXPECT_NE(meets.out.find("Harbor Winter Classic\t2026-12-05\t2026-12-06\tY\tAG"),
            std::string::npos)
      << meets.out;

  Outcome results = Kvlr({"results", "--db", db, "--athlete", athlete, "--convert", "L"});
  ASSERT_EQ(results.code, 0) << results.err;
  EXPECT_NE(results.out.find("1:03.98"), std::string::npos) << results.out;
  EXPECT_NE(results.out.find("1:05.12"), std::string::npos) << results.out;
  EXPECT_NE(results.out.find("\t2026-12-05\t"), std::string::npos) << results.out;

  // Each event once, under the distance of the course asked for.
  for (auto [course, listed, other] : {std::tuple{"Y", "500\tFree\t", "400\tFree\t"},
                                       std::tuple{"L", "400\tFree\t", "500\tFree\t"}}) {
    Outcome best = Kvlr({"best", "--db", db, "--athlete", athlete, "--course", course});
    ASSERT_EQ(best.code, 0) << best.err;
    EXPECT_NE(best.out.find(std::string("\n") + listed), std::string::npos) << best.out;
    EXPECT_EQ(best.out.find(std::string("\n") + listed), best.out.rfind(std::string("\n") + listed))
        << best.out;
    EXPECT_EQ(best.out.find(std::string("\n") + other), std::string::npos) << best.out;
    if (std::string(course) == "Y") {
      EXPECT_NE(best.out.find("100\tBack\t1:03.98Y\tY\tHarbor Winter Classic"), std::string::npos)
          << best.out;
    }
  }
  Outcome by_word = Kvlr(
      {"convert", "--distance", "100", "--stroke", "back", "--from", "Y", "--to", "L", "1:03.98"});
  ASSERT_EQ(by_word.code, 0) << by_word.err;
  EXPECT_EQ(by_word.out, Kvlr({"convert", "--distance", "100", "--stroke", "2", "--from", "Y",
                               "--to", "L", "1:03.98"})
                             .out);

  // Headers name each column once; dates read YYYY-MM-DD.
  const Outcome backup = Kvlr({"--yes", "backup", "--db", db, "--to", t.Data().string()});
  ASSERT_EQ(backup.code, 0) << backup.err;
  const fs::path zip = [&] {
    for (const auto& e : fs::directory_iterator(t.Data())) {
      if (e.path().extension() == ".zip") return e.path();
    }
    return fs::path();
  }();
  fs::create_directory(t.Data() / "restored");
  const Outcome restored =
      Kvlr({"--yes", "restore", zip.string(), "--to", (t.Data() / "restored").string()});
  ASSERT_EQ(restored.code, 0) << restored.err;
  EXPECT_TRUE(
      std::regex_search(restored.out, std::regex("\t\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\t")))
      << restored.out;
  for (const Outcome& o : {results, restored, Kvlr({"athletes", "--db", db})}) {
    const std::string head = o.out.substr(0, o.out.find('\n'));
    std::set<std::string> names;
    size_t count = 0;
    for (size_t at = 0; at <= head.size(); ++count) {
      const size_t tab = std::min(head.find('\t', at), head.size());
      names.insert(head.substr(at, tab - at));
      at = tab + 1;
    }
    EXPECT_EQ(names.size(), count) << head;
  }

  // A standard goes out and comes back the same.
  const std::string csv = Db("girls.csv");
  WriteFileAtomically(csv,
                      "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke,A Y Faster,A Y Slower,A S Faster,"
                      "A S Slower,A L Faster,A L Slower\n"
                      "F,I,11,12,100,2,1:10.00,1:04.00,,,,\n");
  Outcome imported = Kvlr({"standard-import", "--db", db, "GIRLS", csv});
  ASSERT_EQ(imported.code, 0) << imported.err;
  ASSERT_EQ(Kvlr({"standard-export", "--db", db, "GIRLS", Db("again.csv")}).code, 0);
  EXPECT_NE(ReadWholeFile(Db("again.csv")).find("F,I,11,12,100,2,1:10.00,1:04.00"),
            std::string::npos)
      << ReadWholeFile(Db("again.csv"));
  WriteFileAtomically(csv, "Sex,I_R\nF\n");
  EXPECT_EQ(Kvlr({"standard-import", "--db", db, "BAD", csv}).code, 1);
}

}  // namespace
}  // namespace kvlr
