// Judging a swim against the open standard, opening and listing standards.

#include <gtest/gtest.h>

#include "StandardFixture.h"
#include "standards/Standards.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

using test::AddLine;
using test::MakeStandard;

// Levels fastest first: the first slow limit a swim meets decides.
void FillJo(SQLite::Database& db) {
  MakeStandard(db, "JO", {"AAAA", "AAA", "AA", "A", "B"});
  // Std 1: a qualifying line with a gap at level 4 (level 5 is never reached).
  AddLine(db, "JO", "M", "I", 11, 12, 100, 1,
          {{'Y', 0, 5500}, {'Y', 1, 6000}, {'Y', 2, 6500}, {'Y', 4, 8000}, {'S', 0, 5000}});
  // A band: each level also has a fast limit.
  AddLine(db, "JO", "F", "I", 11, 12, 100, 1, {{'Y', 0, 6000, 5500}, {'Y', 1, 6500, 6000}});
  // Fast limits only.
  AddLine(db, "JO", "M", "I", 13, 14, 50, 2,
          {{'Y', 0, 0, 3000}, {'Y', 1, 0, 3500}, {'Y', 2, 0, 4000}});
  AddLine(db, "JO", "M", "R", 11, 12, 200, 5, {{'Y', 0, 20000}});
  AddLine(db, "JO", "M", "R", 0, 99, 400, 1, {{'Y', 0, 40000}});
  // Overlapping ranges: 11-12 comes first by Hi_Age.
  AddLine(db, "JO", "M", "I", 0, 99, 200, 1, {{'Y', 0, 20000}});
  AddLine(db, "JO", "M", "I", 11, 12, 200, 1, {{'Y', 0, 15000}});
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

// Judged from the lines held in memory, or queried through the hook.
class GetStandardTest : public testing::TestWithParam<bool> {
 protected:
  GetStandardTest() {
    test::MakeOpenDatabase(t);
    FillJo(*t.state.gDb);
    if (GetParam()) InstallStandardHooks(t.state);
    t.state.gStandardName = "JO";
    OpenCurrentStandard(t.state);
  }
  std::string Judge(int16_t& designator, int32_t score) {
    return GetStandard(t.state, designator, score, "M", 100, 1, 12, "Y", false);
  }
  test::TempHome t;
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

TEST_P(GetStandardTest, FollowsEditsAndRemovalOfTheOpenStandard) {
  int16_t designator = 0;
  ASSERT_EQ(Judge(designator, 5400), "AAAA");
  ASSERT_TRUE(UpdateStandardLimit(*t.state.gDb, "JO", 1, SlowBase('Y'), 5300));
  EXPECT_EQ(Judge(designator, 5400), "AAA");
  EXPECT_EQ(designator, 2);
  RemoveStandard(t.state, "JO");
  designator = 9;
  EXPECT_EQ(Judge(designator, 5400), "");
  EXPECT_EQ(designator, 0);
  EXPECT_EQ(t.state.gDesignators[0][0], "");
}

INSTANTIATE_TEST_SUITE_P(InMemoryAndQueried, GetStandardTest, testing::Bool());

class StandardStoreTest : public test::DbTest {};

TEST_F(StandardStoreTest, OpeningLoadsDesignatorsAndABlankOrMissingNameClearsThem) {
  MakeStandard(Db(), "Zone 26", {"Z", "ZZ"});
  t.state.gStandardName = "Zone 26";
  t.state.gDesignators[0][5] = "old";
  OpenCurrentStandard(t.state);
  EXPECT_EQ(t.state.gDesignators[0][0], "Z");
  EXPECT_EQ(t.state.gDesignators[1][1], "ZZ long");
  EXPECT_EQ(t.state.gDesignators[0][2], "");
  EXPECT_EQ(t.state.gDesignators[0][5], "");
  EXPECT_EQ(t.state.gStandardYear, "2026");
  EXPECT_EQ(t.state.gStandardDescript, "Made-up cuts");
  for (const char* name : {"", "  ", "Nowhere"}) {
    t.state.gStandardName = "Zone 26";
    OpenCurrentStandard(t.state);
    t.state.gStandardName = name;
    OpenCurrentStandard(t.state);
    EXPECT_EQ(t.state.gDesignators[0][0], "") << name;
    EXPECT_EQ(t.state.gDesignators[1][0], "") << name;
  }
}

TEST_F(StandardStoreTest, TheHookOpensTheStandardNamedInOptions) {
  FillJo(Db());
  Db().exec("UPDATE OPTIONS SET Standard = 'JO'");
  InstallStandardHooks(t.state);
  ASSERT_TRUE(t.state.hooks.load_standard);
  t.state.hooks.load_standard(t.state);
  EXPECT_EQ(t.state.gStandardName, "JO");
  int16_t designator = 0;
  EXPECT_EQ(GetStandard(t.state, designator, 5501, "M", 100, 1, 12, "Y", false), "AAA");
  // With no standard open nothing is judged.
  t.state.gStandardName = "";
  OpenCurrentStandard(t.state);
  designator = 9;
  EXPECT_EQ(GetStandard(t.state, designator, 5400, "M", 100, 1, 12, "Y", false), "");
  EXPECT_EQ(designator, 0);
}

TEST_F(StandardStoreTest, ComboListsEveryStandardAndSelectsTheCurrentOne) {
  MakeStandard(Db(), "JO", {"A"});
  MakeStandard(Db(), "Zone", {"Z"});
  t.state.gStandardName = "zone";
  const StandardsCombo combo = LoadStandardsCombo(t.state);
  ASSERT_EQ(combo.lines.size(), 2u);
  EXPECT_EQ(combo.lines[1].std_file, "Zone");
  EXPECT_EQ(combo.lines[1].year, "2026");
  EXPECT_EQ(combo.selected, 1);
  t.state.gStandardName = "";
  EXPECT_EQ(LoadStandardsCombo(t.state).selected, -1);
}

TEST_F(StandardStoreTest, DefinitionRowIsRewrittenAndTableMadeOnce) {
  StandardDefinition def;
  def.name = "JO";
  def.designators[0] = "TOOLONG";
  ASSERT_TRUE(AddstandardDefinitionr(t.state, def));
  def.year = "2027";
  ASSERT_TRUE(AddstandardDefinitionr(t.state, def));
  EXPECT_EQ(test::QueryNumber(Db(), "SELECT count(*) FROM STDNAME"), 1);
  const auto read = ReadStandardDefinition(Db(), "jo");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->year, "2027");
  EXPECT_EQ(read->designators[0], "TOOL");  // cut to the field's size
  ASSERT_TRUE(CreateStandardsTable(t.state, "JO"));
  EXPECT_EQ(FieldNames(Db(), "JO").size(), 79u);
  t.io.Script({Answer::kCancel});
  EXPECT_FALSE(CreateStandardsTable(t.state, "JO"));  // already there
  EXPECT_EQ(t.state.gErrorSource, "basUtil.CreateStandardsTable");
}

}  // namespace
}  // namespace kvlr
