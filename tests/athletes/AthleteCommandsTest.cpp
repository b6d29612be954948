// The athlete commands of the kvlr tool: output, the card's words, exit codes.

#include <gtest/gtest.h>

#include <sstream>

#include "Commands.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

struct Outcome {
  int code;
  std::string out;
  std::string err;
};

class AthleteCommands : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(Kvlr({"new-db", db}).code, 0); }

  Outcome Kvlr(std::vector<std::string> args, const std::string& input = "",
               bool terminal = false) {
    std::ostringstream out, err;
    std::istringstream in(input);
    args.insert(args.begin(), {"--home", t.Home().string()});
    CliEnvironment env{out, err, in, terminal, t.clock, t.disk, "%m/%d/%y", ""};
    const int code = RunCli(args, env);
    return {code, out.str(), err.str()};
  }
  Outcome Add(const std::string& last, const std::string& first, const std::string& sex,
              std::vector<std::string> more = {}, const std::string& global = "") {
    std::vector<std::string> args = {"add-athlete", "--db", db,      "--last", last,
                                     "--first",     first,  "--sex", sex};
    args.insert(args.end(), more.begin(), more.end());
    if (!global.empty()) args.insert(args.begin(), global);
    return Kvlr(args);
  }

  test::TempHome t;
  std::string db = (t.Data() / "family.mdb").string();
};

TEST_F(AthleteCommands, AddedSwimmersAreListed) {
  Outcome added =
      Add("o'brien", "ADA", "f",
          {"--initial", "Q", "--pref", "Addie", "--birth", "2012-11-22", "--id", "A12"});
  ASSERT_EQ(added.code, 0) << added.err;
  EXPECT_EQ(added.out, "Athlete\n1\n");
  ASSERT_EQ(Add("Lane", "Bo", "M").code, 0);

  Outcome listed = Kvlr({"athletes", "--db", db});
  ASSERT_EQ(listed.code, 0) << listed.err;
  EXPECT_EQ(listed.out,
            "Athlete\tLast\tFirst\tInitial\tSex\tBirth\tAge\tPref\tID_NO\tActive\n"
            "2\tLane\tBo\t\tM\t\t\t\t\t1\n"
            "1\tO'Brien\tAda\tQ\tF\t2012-11-22\t14\tAddie\tA12\t1\n");
}

TEST_F(AthleteCommands, RefusalsUseTheCardsWords) {
  ASSERT_EQ(Add("Lane", "Ada", "F").code, 0);
  struct Case {
    std::vector<std::string> args;
    std::string words;
  };
  const Case cases[] = {
      {{"Lane", "  ", "F"}, "You must enter a First Name."},
      {{"Lane", "Bo", ""}, "You must select the gender of the athlete."},
      {{"LANE", "ada", "M"}, "Duplicate Names with different sexes are not allowed."},
      {{"Lane", "Ada", "F"}, "Do you want to save this swimmer's record as entered?"},
      {{"Lane", "Bo", "M", "--initial", "AB"}, "Initial can not be longer than 1 character.\n"},
      {{std::string(40, 'x'), "Bo", "M"}, "Last can not be longer than 20 characters.\n"},
      {{"Lane", "Bo", "M", "--birth", "1929-12-31"},
       "Please use the drop-down calendar to enter dates before 1930."},
      {{"Lane", "Bo", "M", "--birth", "2026-11-23"}, "The birth date can not be later than today."},
  };
  for (const auto& c : cases) {
    Outcome r = Add(c.args[0], c.args[1], c.args[2],
                    std::vector<std::string>(c.args.begin() + 3, c.args.end()));
    EXPECT_EQ(r.code, 1) << c.words;
    EXPECT_NE(r.err.find(c.words), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");
  }
}

TEST_F(AthleteCommands, TheDuplicateQuestionIsAnsweredByYesOrNo) {
  ASSERT_EQ(Add("Lane", "Ada", "F").code, 0);
  EXPECT_EQ(Add("Lane", "Ada", "F", {}, "--yes").out, "Athlete\n2\n");
  // No merges into the swimmer on file: its key comes back, nothing is added.
  EXPECT_EQ(Add("Lane", "Ada", "F", {"--pref", "Addie"}, "--no").out, "Athlete\n1\n");
  Outcome listed = Kvlr({"athletes", "--db", db});
  EXPECT_NE(listed.out.find("\tAddie\t"), std::string::npos);
  EXPECT_EQ(std::count(listed.out.begin(), listed.out.end(), '\n'), 3);
}

TEST_F(AthleteCommands, AFifthSwimmerIsRefused) {
  for (const char* first : {"Ada", "Bo", "Cy", "Di"}) ASSERT_EQ(Add("Lane", first, "F").code, 0);
  Outcome r = Add("Lane", "Eve", "F");
  EXPECT_EQ(r.code, 1);
  EXPECT_EQ(r.err, "KVL-R allows a maximum of 4 Athletes.\n");
}

TEST_F(AthleteCommands, Misuse) {
  EXPECT_EQ(Add("Lane", "Ada", "F", {"--birth", "2012-13-01"}).code, 2);
  EXPECT_EQ(Add("Lane", "Ada", "F", {"--birth", "12/01/2012"}).code, 2);
  EXPECT_EQ(Add("Lane", "Ada", "X").code, 2);
  EXPECT_EQ(Kvlr({"add-athlete", "--db", db, "--first", "Ada", "--sex", "F"}).code, 2);
  EXPECT_EQ(Kvlr({"athletes"}).code, 2);
  EXPECT_EQ(Kvlr({"athletes", "--db", db, db}).code, 2);
  EXPECT_EQ(Kvlr({"athletes", "--db", (t.Data() / "gone.mdb").string()}).code, 1);
}

}  // namespace
}  // namespace kvlr
