// The kvlr tool as a user runs it: output, words on stderr, exit codes.

#include <gtest/gtest.h>

#include <sstream>

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
      {{"check-db", Db("junk.mdb")}, "Not a valid KVL-R Database."},
      {{"check-db", Db("gone.mdb")}, "That file no longer exists."},
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
