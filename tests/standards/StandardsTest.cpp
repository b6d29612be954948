#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "StandardFixture.h"
#include "standards/Standards.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::Key;
using test::MakeOpenDatabase;
using test::MakeStandard;
using test::TempHome;

// Levels fastest first: the first slow limit a swim meets decides.
void FillJo(SQLite::Database& db) {
  MakeStandard(db, "JO", {"AAAA", "AAA", "AA", "A", "B"});
  const std::string table = StandardTableName("JO");
  // Std 1: a qualifying line with a gap at level 4 (level 5 is never reached).
  StandardLine boys = Key("M", "I", 11, 12, 100, 1);
  boys.Slow('Y', 0) = 5500;
  boys.Slow('Y', 1) = 6000;
  boys.Slow('Y', 2) = 6500;
  boys.Slow('Y', 4) = 8000;
  boys.Slow('S', 0) = 5000;
  InsertStandardLine(db, table, boys);
  // A band: each level also has a fast limit.
  StandardLine girls = Key("F", "I", 11, 12, 100, 1);
  girls.Slow('Y', 0) = 6000;
  girls.Fast('Y', 0) = 5500;
  girls.Slow('Y', 1) = 6500;
  girls.Fast('Y', 1) = 6000;
  InsertStandardLine(db, table, girls);
  // Fast limits only.
  StandardLine fast_only = Key("M", "I", 13, 14, 50, 2);
  fast_only.Fast('Y', 0) = 3000;
  fast_only.Fast('Y', 1) = 3500;
  fast_only.Fast('Y', 2) = 4000;
  InsertStandardLine(db, table, fast_only);
  StandardLine relay = Key("M", "R", 11, 12, 200, 5);
  relay.Slow('Y', 0) = 20000;
  InsertStandardLine(db, table, relay);
  StandardLine open_relay = Key("M", "R", 0, 99, 400, 1);
  open_relay.Slow('Y', 0) = 40000;
  InsertStandardLine(db, table, open_relay);
  // Overlapping ranges: 11-12 comes first by Hi_Age.
  StandardLine open = Key("M", "I", 0, 99, 200, 1);
  open.Slow('Y', 0) = 20000;
  InsertStandardLine(db, table, open);
  StandardLine narrow = Key("M", "I", 11, 12, 200, 1);
  narrow.Slow('Y', 0) = 15000;
  InsertStandardLine(db, table, narrow);
}

struct Case {
  const char* what;
  const char* sex;
  int16_t distance;
  int16_t stroke;
  int16_t age;
  const char* course;
  bool relay;
  int32_t score;
  std::string text;
  int16_t designator;  // the caller's value is 9 before the call
};

const Case kCases[] = {
    {"faster than level 1", "M", 100, 1, 12, "Y", false, 5400, "AAAA", 1},
    {"exactly on a slow limit", "M", 100, 1, 12, "Y", false, 5500, "AAAA", 1},
    {"just over level 1", "M", 100, 1, 12, "Y", false, 5501, "AAA", 2},
    {"on level 3", "M", 100, 1, 12, "Y", false, 6500, "AA", 3},
    {"a gap ends the search before level 5", "M", 100, 1, 12, "Y", false, 7000, "    ", 0},
    {"slower than every level", "M", 100, 1, 12, "Y", false, 9000, "    ", 0},
    {"low end of the age range", "M", 100, 1, 11, "Y", false, 5400, "AAAA", 1},
    {"sex compared without case", "m", 100, 1, 12, "Y", false, 5400, "AAAA", 1},
    {"age outside every line", "M", 100, 1, 15, "Y", false, 5400, "", 0},
    {"no line for the stroke", "M", 100, 3, 12, "Y", false, 5400, "", 0},
    {"short-course metres limits", "M", 100, 1, 12, "S", false, 4900, "AAAA", 1},
    {"slower than the only metres level", "M", 100, 1, 12, "S", false, 5100, "    ", 0},
    {"a course with no limits leaves the designator", "M", 100, 1, 12, "L", false, 5000, "    ", 9},
    {"band: faster than the fast limit reaches nothing", "F", 100, 1, 12, "Y", false, 5400, "", 0},
    {"band: exactly on the fast limit", "F", 100, 1, 12, "Y", false, 5500, "AAAA", 1},
    {"band: second level", "F", 100, 1, 12, "Y", false, 6200, "AAA", 2},
    {"band: slower than every level", "F", 100, 1, 12, "Y", false, 7000, "    ", 0},
    {"fast only: last limit not beaten", "M", 50, 2, 13, "Y", false, 3700, "AAA", 9},
    {"fast only: slower than all", "M", 50, 2, 14, "Y", false, 4500, "AA", 9},
    {"fast only: faster than all", "M", 50, 2, 14, "Y", false, 2900, "    ", 9},
    {"relay: a Lo_Hi age is tested raw", "M", 200, 5, 1112, "Y", true, 19000, "", 0},
    {"relay: a raw age in the range", "M", 200, 5, 12, "Y", true, 19000, "AAAA", 1},
    {"relay: Open (99) fits the 0-99 line", "M", 400, 1, 99, "Y", true, 39000, "AAAA", 1},
    {"relay: 15-18 (1518) misses the 0-99 line", "M", 400, 1, 1518, "Y", true, 39000, "", 0},
    {"an individual swim never finds a relay line", "M", 200, 5, 12, "Y", false, 19000, "", 0},
    {"overlap: the lower high age wins", "M", 200, 1, 11, "Y", false, 16000, "    ", 0},
    {"overlap: outside it the wider line", "M", 200, 1, 5, "Y", false, 16000, "AAAA", 1},
    // Without a known course the first ordinals are 0: Std (1 here) is read as both limits.
    {"unknown course reads Std as a limit", "M", 100, 1, 12, "X", false, 1, "AAAA", 1},
    {"empty course too", "M", 100, 1, 12, "", false, 1, "AAAA", 1},
    {"unknown course, slower than Std", "M", 100, 1, 12, "X", false, 5400, "    ", 0},
    {"a score of 0 is never judged", "M", 100, 1, 12, "Y", false, 0, "", 9},
};

class GetStandardTest : public testing::TestWithParam<bool> {
 protected:
  GetStandardTest() {
    MakeOpenDatabase(t);
    FillJo(*t.state.gDb);
    if (GetParam()) InstallStandardHooks(t.state);
    t.state.gStandardName = "JO";
    OpenCurrentStandard(t.state);
  }
  std::string Judge(int16_t& designator, int32_t score, const char* sex = "M",
                    int16_t distance = 100, int16_t stroke = 1, int16_t age = 12,
                    const char* course = "Y", bool relay = false) {
    return GetStandard(t.state, designator, score, sex, distance, stroke, age, course, relay);
  }
  TempHome t;
};

TEST_P(GetStandardTest, JudgesEachSwimAsTheLevelsSay) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    int16_t designator = 9;
    EXPECT_EQ(GetStandard(t.state, designator, c.score, c.sex, c.distance, c.stroke, c.age,
                          c.course, c.relay),
              c.text);
    EXPECT_EQ(designator, c.designator);
  }
  EXPECT_TRUE(t.io.shown.empty());
}

TEST_P(GetStandardTest, FollowsEditsOfTheOpenStandard) {
  int16_t designator = 0;
  ASSERT_EQ(Judge(designator, 5400), "AAAA");
  ASSERT_TRUE(UpdateStandardLimit(*t.state.gDb, "JO", 1, SlowBase('Y'), 5300));
  EXPECT_EQ(Judge(designator, 5400), "AAA");
  EXPECT_EQ(designator, 2);

  RemoveStandard(t.state, "JO");
  EXPECT_EQ(Judge(designator, 5400), "");
  EXPECT_EQ(designator, 0);
  EXPECT_EQ(t.state.gDesignators[0][0], "");
}

TEST_P(GetStandardTest, NothingIsJudgedWithoutAnOpenStandard) {
  t.state.gStandardName = "";
  OpenCurrentStandard(t.state);
  int16_t designator = 9;
  EXPECT_EQ(Judge(designator, 5400), "");
  EXPECT_EQ(designator, 0);
}

INSTANTIATE_TEST_SUITE_P(InMemoryAndQueried, GetStandardTest, testing::Bool());

TEST(OpenCurrentStandard, LoadsDesignatorsYearAndDescription) {
  TempHome t;
  MakeOpenDatabase(t);
  MakeStandard(*t.state.gDb, "Zone 26", {"Z", "ZZ"});
  t.state.gStandardName = "Zone 26";
  t.state.gDesignators[0][5] = "old";
  OpenCurrentStandard(t.state);
  EXPECT_EQ(t.state.gDesignators[0][0], "Z");
  EXPECT_EQ(t.state.gDesignators[1][1], "ZZ long");
  EXPECT_EQ(t.state.gDesignators[0][2], "");
  EXPECT_EQ(t.state.gDesignators[0][5], "");
  EXPECT_EQ(t.state.gStandardYear, "2026");
  EXPECT_EQ(t.state.gStandardDescript, "Made-up cuts");
}

TEST(OpenCurrentStandard, ClearsDesignatorsForABlankOrMissingStandard) {
  for (const char* name : {"", "  ", "Nowhere"}) {
    SCOPED_TRACE(name);
    TempHome t;
    MakeOpenDatabase(t);
    MakeStandard(*t.state.gDb, "JO", {"A"});
    t.state.gStandardName = "JO";
    OpenCurrentStandard(t.state);
    ASSERT_EQ(t.state.gDesignators[0][0], "A");
    t.state.gStandardName = name;
    OpenCurrentStandard(t.state);
    EXPECT_EQ(t.state.gDesignators[0][0], "");
    EXPECT_EQ(t.state.gDesignators[1][0], "");
  }
}

TEST(InstallStandardHooks, TheHookOpensTheStandardNamedInOptions) {
  TempHome t;
  MakeOpenDatabase(t);
  FillJo(*t.state.gDb);
  t.state.gDb->exec("UPDATE OPTIONS SET Standard = 'JO'");
  InstallStandardHooks(t.state);
  ASSERT_TRUE(t.state.hooks.load_standard);
  t.state.hooks.load_standard(t.state);
  EXPECT_EQ(t.state.gStandardName, "JO");
  int16_t designator = 0;
  EXPECT_EQ(GetStandard(t.state, designator, 5501, "M", 100, 1, 12, "Y", false), "AAA");
}

TEST(LoadStandardsCombo, ListsEveryStandardAndSelectsTheCurrentOne) {
  TempHome t;
  MakeOpenDatabase(t);
  MakeStandard(*t.state.gDb, "JO", {"A"});
  MakeStandard(*t.state.gDb, "Zone", {"Z"});
  t.state.gStandardName = "zone";
  const StandardsCombo combo = LoadStandardsCombo(t.state);
  ASSERT_EQ(combo.lines.size(), 2u);
  EXPECT_EQ(combo.lines[1].std_file, "Zone");
  EXPECT_EQ(combo.lines[1].year, "2026");
  EXPECT_EQ(combo.selected, 1);
  t.state.gStandardName = "";
  EXPECT_EQ(LoadStandardsCombo(t.state).selected, -1);
}

TEST(AddstandardDefinitionr, RewritesTheRowOfAnExistingName) {
  TempHome t;
  MakeOpenDatabase(t);
  StandardDefinition def;
  def.name = "JO";
  def.designators[0] = "TOOLONG";
  ASSERT_TRUE(AddstandardDefinitionr(t.state, def));
  def.year = "2027";
  ASSERT_TRUE(AddstandardDefinitionr(t.state, def));
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM STDNAME"), 1);
  const auto read = ReadStandardDefinition(*t.state.gDb, "jo");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->year, "2027");
  EXPECT_EQ(read->designators[0], "TOOL");  // cut to the field's size
}

TEST(CreateStandardsTable, MakesTheLayoutAndReportsAFailure) {
  TempHome t;
  MakeOpenDatabase(t);
  ASSERT_TRUE(CreateStandardsTable(t.state, "JO"));
  EXPECT_EQ(FieldNames(*t.state.gDb, "JO").size(), 79u);
  t.io.Script({Answer::kCancel});
  EXPECT_FALSE(CreateStandardsTable(t.state, "JO"));  // already there
  EXPECT_EQ(t.state.gErrorSource, "basUtil.CreateStandardsTable");
}

}  // namespace
}  // namespace kvlr
