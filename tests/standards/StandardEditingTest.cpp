#include <gtest/gtest.h>

#include "StandardFixture.h"
#include "core/SwimCodes.h"
#include "standards/StandardEditing.h"
#include "standards/StandardTexts.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::Key;
using test::MakeOpenDatabase;
using test::MakeStandard;
using test::TempHome;

class StandardEditing : public testing::Test {
 protected:
  StandardEditing() {
    MakeOpenDatabase(t);
    MakeStandard(db(), "JO", {"AA", "A"});
    StandardLine line = Key("M", "I", 11, 12, 100, 1);
    line.Slow('Y', 0) = 5500;
    line.Fast('L', 1) = 7000;
    InsertStandardLine(db(), "JO", line);
    InsertStandardLine(db(), "JO", Key("F", "R", 0, 10, 200, 5));
  }
  SQLite::Database& db() { return *t.state.gDb; }
  long long Count(const std::string& sql) { return test::QueryNumber(db(), sql); }
  TempHome t;
};

StandardDefinition Named(const char* name, std::initializer_list<const char*> designators) {
  StandardDefinition def;
  def.name = name;
  size_t i = 0;
  for (const char* d : designators) def.designators[i++] = d;
  return def;
}

TEST_F(StandardEditing, NewStandardChecksInOrder) {
  struct Case {
    StandardDefinition def;
    const char* copy_from;
    std::string message;
  };
  const Case cases[] = {
      {Named("  ", {"A"}), "", std::string(stdtext::kNeedName)},
      {Named("jo", {"A"}), "", "jo already exists."},
      {Named("Result", {"A"}), "", "Result already exists."},  // would clash with a table
      {Named("New", {}), "", std::string(stdtext::kNeedDesignator)},
      {Named("New", {"", "A"}), "", std::string(stdtext::kNeedDesignator)},
      {Named("New", {"A", "", "C"}), "", std::string(stdtext::kNoSkipping)},
      {Named("New", {}), "JO", ""},
      {Named("New", {"A", "B"}), "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.def.name + "/" + c.copy_from);
    EXPECT_EQ(CheckNewStandard(db(), c.def, c.copy_from), c.message);
  }
}

TEST_F(StandardEditing, SavingANewStandardMakesItsTableAndRow) {
  EXPECT_TRUE(SaveNewStandard(t.state, Named("Zone", {"Z1", "Z2"}), ""));
  EXPECT_EQ(Count("SELECT count(*) FROM ZONE"), 0);
  const auto def = ReadStandardDefinition(db(), "Zone");
  ASSERT_TRUE(def);
  EXPECT_EQ(def->designators[1], "Z2");
  EXPECT_FALSE(SaveNewStandard(t.state, Named("Zone", {"Z1"}), ""));
  EXPECT_TRUE(t.io.Saw("Zone already exists."));
}

TEST_F(StandardEditing, CopyingAsksThenCopiesDesignatorsAndLines) {
  EXPECT_TRUE(SaveNewStandard(t.state, Named("Copy", {}), "JO"));
  EXPECT_EQ(t.io.shown.at(0).text, "Copy JO into Copy");
  EXPECT_TRUE(t.io.Saw("2 standards copied."));
  EXPECT_EQ(Count("SELECT count(*) FROM COPY"), 2);
  EXPECT_EQ(Count("SELECT \"S(24)\" FROM COPY WHERE Sex = 'M'"), 5500);
  EXPECT_EQ(Count("SELECT \"F(13)\" FROM COPY WHERE Sex = 'M'"), 7000);
  const auto def = ReadStandardDefinition(db(), "Copy");
  ASSERT_TRUE(def);
  EXPECT_EQ(def->designators[0], "AA");
  EXPECT_EQ(def->long_names[1], "A long");
}

TEST_F(StandardEditing, CopyingIsSkippedOnNoAndToldWhenEmpty) {
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(SaveNewStandard(t.state, Named("Copy", {}), "JO"));
  EXPECT_FALSE(ReadStandardDefinition(db(), "Copy"));
  EXPECT_FALSE(TableExists(db(), "COPY"));

  MakeStandard(db(), "Empty", {"E"});
  EXPECT_TRUE(SaveNewStandard(t.state, Named("Copy", {}), "Empty"));
  EXPECT_TRUE(t.io.Saw(stdtext::kNothingToCopy));
  EXPECT_EQ(ReadStandardDefinition(db(), "Copy")->designators[0], "E");
}

TEST_F(StandardEditing, CopyDesignatorsNamesTheMissingRow) {
  EXPECT_EQ(CopyDesignators(db(), "Nowhere", "JO"), stdtext::kCopyFromMissing);
  EXPECT_EQ(CopyDesignators(db(), "JO", "Nowhere"), stdtext::kCopyToMissing);
}

TEST_F(StandardEditing, OneLineChecksInOrder) {
  StanAddForm full;
  full.lo_age = 13;
  full.hi_age = 14;
  full.distance = 100;
  full.stroke = 1;
  full.sex = "M";
  struct Case {
    const char* what;
    void (*change)(StanAddForm&);
    std::string_view message;
  };
  const Case cases[] = {
      {"no range",
       [](StanAddForm& f) {
         f.hi_age.reset();
         f.distance = 0;
       },
       stdtext::kSetAgeRange},
      {"no distance",
       [](StanAddForm& f) {
         f.distance = 0;
         f.stroke = 0;
       },
       stdtext::kSelectDistance},
      {"no stroke",
       [](StanAddForm& f) {
         f.stroke = 0;
         f.sex = "";
       },
       stdtext::kSelectStroke},
      {"no sex",
       [](StanAddForm& f) {
         f.sex = "";
         f.lo_age = 20;
       },
       stdtext::kSelectSex},
      {"high under low", [](StanAddForm& f) { f.lo_age = 15; }, stdtext::kHighAboveLow},
      {"a single age", [](StanAddForm& f) { f.lo_age = 14; }, ""},
      {"same line",
       [](StanAddForm& f) {
         f.lo_age = 11;
         f.hi_age = 12;
       },
       stdtext::kLineExists},
      {"same key as a relay",
       [](StanAddForm& f) {
         f.lo_age = 11;
         f.hi_age = 12;
         f.relay = true;
       },
       ""},
      {"new line", [](StanAddForm&) {}, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    StanAddForm form = full;
    c.change(form);
    EXPECT_EQ(CheckStandardLine(db(), "JO", form), c.message);
  }
}

TEST_F(StandardEditing, AddingALineStoresItWithoutTimes) {
  StanAddForm form;
  form.lo_age = 0;
  form.hi_age = 99;
  form.distance = 50;
  form.stroke = 2;
  form.sex = "F";
  form.relay = true;
  const int32_t std = AddStandardLine(t.state, "JO", form);
  ASSERT_GT(std, 0);
  EXPECT_EQ(AddStandardLine(t.state, "JO", form), 0);
  EXPECT_TRUE(t.io.Saw(stdtext::kLineExists));
  StandardFilter filter;
  filter.sex = "F";
  filter.distance = 50;
  const auto lines = ReadStandardLines(db(), "JO", filter, kStartSort);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].std, std);
  EXPECT_EQ(lines[0].i_r, "R");
  EXPECT_EQ(lines[0].slow, decltype(lines[0].slow){});
}

TEST_F(StandardEditing, FiltersAndSortsOfTheGrid) {
  InsertStandardLine(db(), "JO", Key("M", "I", 9, 10, 50, 4));
  auto sexes = [&](const StandardFilter& f, StandardSort sort) {
    std::string out;
    for (const auto& line : ReadStandardLines(db(), "JO", f, sort)) out += line.sex + line.i_r;
    return out;
  };
  EXPECT_EQ(sexes({}, kStartSort), "FRMIMI");
  EXPECT_EQ(sexes({}, StandardSort::kRelaysFirst), "FRMIMI");
  EXPECT_EQ(sexes({}, StandardSort::kRelaysLast), "MIMIFR");
  EXPECT_EQ(sexes({}, StandardSort::kDistance), "MIMIFR");
  EXPECT_EQ(sexes({}, StandardSort::kSex), "FRMIMI");
  StandardFilter boys;
  boys.sex = "M";
  boys.lo_age = 9;
  EXPECT_EQ(sexes(boys, kStartSort), "MI");
}

TEST_F(StandardEditing, HeadingClicksSetTheSorts) {
  EXPECT_EQ(SortText(SortForHeading(0, kStartSort)), "Sex,Lo_Age,Hi_Age,Stroke,Distance");
  EXPECT_EQ(SortText(SortForHeading(2, kStartSort)), "Hi_Age,Lo_Age,Stroke,Distance,Sex");
  const StandardSort first = SortForHeading(5, kStartSort);
  EXPECT_EQ(SortText(first), "I_R Desc,Hi_Age,Lo_Age,Stroke,Distance,Sex");
  EXPECT_EQ(SortText(SortForHeading(5, first)), "I_R,Hi_Age,Lo_Age,Stroke,Distance,Sex");
}

TEST_F(StandardEditing, GridColumnsFollowCourseAndNamedDesignators) {
  StandardDefinition def = Named("JO", {"AA", "A"});
  const auto yards = StanColumns(def, GridCourse::kSCY);
  ASSERT_EQ(yards.size(), 10u);
  EXPECT_EQ(yards[6].heading, "Slower AA");
  EXPECT_EQ(yards[6].ordinal, 27);
  EXPECT_EQ(yards[7].heading, "Faster AA");
  EXPECT_EQ(yards[7].ordinal, 63);
  EXPECT_EQ(yards[9].ordinal, 64);
  EXPECT_EQ(StanColumns(def, GridCourse::kLCM)[8].ordinal, 16);
  const auto all = StanColumns(def, GridCourse::kAll);
  ASSERT_EQ(all.size(), 18u);
  EXPECT_EQ(all[10].heading, "Slower AA SCM");
  EXPECT_EQ(all[10].ordinal, 3);
}

TEST_F(StandardEditing, EditedCellsAreStoredAtOnce) {
  const auto columns = StanColumns(*ReadStandardDefinition(db(), "JO"), GridCourse::kSCY);
  auto line = ReadStandardLines(db(), "JO", {}, StandardSort::kRelaysLast).at(0);
  EXPECT_EQ(CellText(line, columns[7]), "55.00");
  EXPECT_EQ(CellText(line, columns[6]), "");
  EXPECT_EQ(CellText(line, columns[4]), "Free");
  ASSERT_TRUE(UpdateStandardLimit(db(), "JO", line.std, columns[6].ordinal, 5000));
  ASSERT_TRUE(UpdateStandardLimit(db(), "JO", line.std, columns[7].ordinal, 0));
  EXPECT_EQ(Count("SELECT \"F(24)\" FROM JO WHERE Sex = 'M'"), 5000);
  EXPECT_EQ(Count("SELECT \"S(24)\" IS NULL FROM JO WHERE Sex = 'M'"), 1);
  EXPECT_FALSE(UpdateStandardLimit(db(), "JO", line.std, 75, 1));
}

TEST(LimitText, TypedLimits) {
  struct Case {
    const char* text;
    std::optional<int32_t> score;
  };
  const Case cases[] = {{"", 0},
                        {"  ", 0},
                        {"1:05.32", 6532},
                        {"55.1", 5510},
                        {"5532", 5532},
                        {"abc", std::nullopt},
                        {"1:2:3", std::nullopt},
                        {"1.2:3", std::nullopt},
                        {":", std::nullopt},
                        {"-55.00", std::nullopt}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(ParseLimitText(c.text), c.score);
  }
}

TEST_F(StandardEditing, RemovingALineAndAWholeStandard) {
  const auto lines = ReadStandardLines(db(), "JO", {}, StandardSort::kRelaysLast);
  EXPECT_EQ(RemoveLineQuestion(lines[0]),
            "Remove Standard for:\r\nSex:M\r\nLow Age:11\r\nHigh Age: 12");
  EXPECT_TRUE(DeleteStandardLine(db(), "JO", lines[0].std));
  EXPECT_FALSE(DeleteStandardLine(db(), "JO", lines[0].std));
  EXPECT_EQ(Count("SELECT count(*) FROM JO"), 1);

  MakeStandard(db(), "Other", {"O"});
  RemoveStandard(t.state, "JO");
  EXPECT_FALSE(TableExists(db(), "JO"));
  EXPECT_FALSE(ReadStandardDefinition(db(), "JO"));
  EXPECT_TRUE(ReadStandardDefinition(db(), "Other"));
  EXPECT_TRUE(TableExists(db(), "OTHER"));
}

TEST(FilteredSex, TheMessageNamesTheSexTwice) {
  EXPECT_EQ(FilteredSexMessage("F"),
            "Since you have filtered your standards to view Females only, you can only add "
            "standards for Females");
  EXPECT_EQ(FilteredSexMessage(""), "");
}

TEST(AgeRangePresets, FollowTheAgeGroupRows) {
  const auto& presets = AgeRangePresets();
  ASSERT_EQ(presets.size(), 24u);
  for (size_t i = 0; i < presets.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_FALSE(presets[i].text.empty());
    if (!presets[i].other) {
      EXPECT_EQ(AgeGroupIndex(presets[i].lo, presets[i].hi), int(i));
    }
  }
  EXPECT_TRUE(presets[kOtherAgeRange].other);
  EXPECT_EQ(presets[7].text, "11 - 12");
}

}  // namespace
}  // namespace kvlr
