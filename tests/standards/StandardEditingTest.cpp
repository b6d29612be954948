// Editing standards: new standards and copies, the line card, the grid's filters, sorts,
// columns and cells, and removal.

#include <gtest/gtest.h>

#include "StandardFixture.h"
#include "core/SwimCodes.h"
#include "standards/StandardEditing.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

using test::AddLine;
using test::MakeStandard;

class StandardEditing : public test::DbTest {
 protected:
  StandardEditing() {
    MakeStandard(Db(), "JO", {"AA", "A"});
    AddLine(Db(), "JO", "M", "I", 11, 12, 100, 1, {{'Y', 0, 5500}, {'L', 1, 0, 7000}});
    AddLine(Db(), "JO", "F", "R", 0, 10, 200, 5);
  }
};

StandardDefinition Named(const char* name, std::initializer_list<const char*> designators) {
  StandardDefinition def;
  def.name = name;
  size_t i = 0;
  for (const char* d : designators) def.designators[i++] = d;
  return def;
}

TEST_F(StandardEditing, NewStandardChecksInOrder) {
  const std::string need = "You must have at least one Designator or Copy another Standard File.";
  struct Case {
    StandardDefinition def;
    const char* copy_from;
    std::string message;
  };
  const Case cases[] = {
      {Named("  ", {"A"}), "", "You must supply a name for the standard."},
      {Named("jo", {"A"}), "", "jo already exists."},
      {Named("Result", {"A"}), "", "Result already exists."},  // would clash with a table
      {Named("New", {}), "", need},
      {Named("New", {"", "A"}), "", need},
      {Named("New", {"A", "", "C"}), "", "You can't skip any lines when adding designators."},
      {Named("New", {}), "JO", ""},
      {Named("New", {"A", "B"}), "", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(CheckNewStandard(Db(), c.def, c.copy_from), c.message) << c.def.name << c.copy_from;
  }
}

TEST_F(StandardEditing, SavingANewStandardMakesItsTableAndRow) {
  EXPECT_TRUE(SaveNewStandard(t.state, Named("Zone", {"Z1", "Z2"}), ""));
  EXPECT_EQ(Count("SELECT count(*) FROM ZONE"), 0);
  EXPECT_EQ(ReadStandardDefinition(Db(), "Zone")->designators[1], "Z2");
  EXPECT_FALSE(SaveNewStandard(t.state, Named("Zone", {"Z1"}), ""));
  EXPECT_TRUE(t.io.Saw("Zone already exists."));
}

TEST_F(StandardEditing, CopyingAsksThenCopiesDesignatorsAndLines) {
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(SaveNewStandard(t.state, Named("Copy", {}), "JO"));
  EXPECT_FALSE(ReadStandardDefinition(Db(), "Copy"));
  EXPECT_FALSE(TableExists(Db(), "COPY"));
  EXPECT_TRUE(SaveNewStandard(t.state, Named("Copy", {}), "JO"));
  EXPECT_EQ(t.io.shown.back().text, "2 standards copied.");
  EXPECT_TRUE(t.io.Saw("Copy JO into Copy"));
  EXPECT_EQ(Count("SELECT count(*) FROM COPY"), 2);
  EXPECT_EQ(Count("SELECT \"S(24)\" FROM COPY WHERE Sex = 'M'"), 5500);
  EXPECT_EQ(Count("SELECT \"F(13)\" FROM COPY WHERE Sex = 'M'"), 7000);
  const auto def = ReadStandardDefinition(Db(), "Copy");
  ASSERT_TRUE(def);
  EXPECT_EQ(def->designators[0], "AA");
  EXPECT_EQ(def->long_names[1], "A long");
  MakeStandard(Db(), "Empty", {"E"});
  EXPECT_TRUE(SaveNewStandard(t.state, Named("Copy2", {}), "Empty"));
  EXPECT_TRUE(t.io.Saw("No standards available to copy in selected file."));
  EXPECT_EQ(ReadStandardDefinition(Db(), "Copy2")->designators[0], "E");
  EXPECT_EQ(CopyDesignators(Db(), "Nowhere", "JO"),
            "Error retrieving Copy From Standard Information");
  EXPECT_EQ(CopyDesignators(Db(), "JO", "Nowhere"),
            "Error retrieving Copy To Standard Information");
}

TEST_F(StandardEditing, OneLineChecksInOrderAndIsStoredWithoutTimes) {
  struct Case {
    const char* what;
    StanAddForm form;  // relay, lo, hi, distance, stroke, sex
    std::string_view message;
  };
  const Case cases[] = {
      {"no range", {false, 13, std::nullopt, 0, 1, "M"}, "Please set the age range."},
      {"no distance", {false, 13, 14, 0, 0, "M"}, "Please select a Distance for the standard."},
      {"no stroke", {false, 13, 14, 100, 0, ""}, "Please select a Stroke for the standard."},
      {"no sex", {false, 20, 14, 100, 1, ""}, "Please select a sex for the standard."},
      {"high under low", {false, 15, 14, 100, 1, "M"}, "High Age must be greater than Low Age."},
      {"a single age", {false, 14, 14, 100, 1, "M"}, ""},
      {"same line", {false, 11, 12, 100, 1, "M"}, "That times standard already exists."},
      {"same key as a relay", {true, 11, 12, 100, 1, "M"}, ""},
      {"new line", {false, 13, 14, 100, 1, "M"}, ""},
  };
  for (const Case& c : cases) EXPECT_EQ(CheckStandardLine(Db(), "JO", c.form), c.message) << c.what;
  const StanAddForm form{true, 0, 99, 50, 2, "F"};
  const int32_t std = AddStandardLine(t.state, "JO", form);
  ASSERT_GT(std, 0);
  EXPECT_EQ(AddStandardLine(t.state, "JO", form), 0);
  EXPECT_TRUE(t.io.Saw("That times standard already exists."));
  StandardFilter filter;
  filter.sex = "F";
  filter.distance = 50;
  const auto lines = ReadStandardLines(Db(), "JO", filter, kStartSort);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].std, std);
  EXPECT_EQ(lines[0].i_r, "R");
  EXPECT_EQ(lines[0].slow, decltype(lines[0].slow){});
}

TEST_F(StandardEditing, FiltersAndSortsOfTheGrid) {
  AddLine(Db(), "JO", "M", "I", 9, 10, 50, 4);
  auto sexes = [&](const StandardFilter& f, StandardSort sort) {
    std::string out;
    for (const auto& line : ReadStandardLines(Db(), "JO", f, sort)) out += line.sex + line.i_r;
    return out;
  };
  EXPECT_EQ(sexes({}, kStartSort), "FRMIMI");
  EXPECT_EQ(sexes({}, StandardSort::kRelaysFirst), "FRMIMI");
  EXPECT_EQ(sexes({}, StandardSort::kRelaysLast), "MIMIFR");
  EXPECT_EQ(sexes({}, StandardSort::kDistance), "MIMIFR");
  EXPECT_EQ(sexes({}, StandardSort::kSex), "FRMIMI");
  EXPECT_EQ(sexes({"M", 9, {}, {}, {}}, kStartSort), "MI");
  EXPECT_EQ(SortText(SortForHeading(0, kStartSort)), "Sex,Lo_Age,Hi_Age,Stroke,Distance");
  EXPECT_EQ(SortText(SortForHeading(2, kStartSort)), "Hi_Age,Lo_Age,Stroke,Distance,Sex");
  const StandardSort first = SortForHeading(5, kStartSort);
  EXPECT_EQ(SortText(first), "I_R Desc,Hi_Age,Lo_Age,Stroke,Distance,Sex");
  EXPECT_EQ(SortText(SortForHeading(5, first)), "I_R,Hi_Age,Lo_Age,Stroke,Distance,Sex");
}

TEST_F(StandardEditing, GridColumnsFollowCourseAndEditedCellsAreStoredAtOnce) {
  const auto columns = StanColumns(*ReadStandardDefinition(Db(), "JO"), GridCourse::kSCY);
  ASSERT_EQ(columns.size(), 10u);
  EXPECT_EQ(columns[6].heading, "Slower AA");
  EXPECT_EQ(columns[6].ordinal, 27);
  EXPECT_EQ(columns[7].heading, "Faster AA");
  EXPECT_EQ(columns[7].ordinal, 63);
  EXPECT_EQ(columns[9].ordinal, 64);
  EXPECT_EQ(StanColumns(Named("JO", {"AA", "A"}), GridCourse::kLCM)[8].ordinal, 16);
  const auto all = StanColumns(Named("JO", {"AA", "A"}), GridCourse::kAll);
  ASSERT_EQ(all.size(), 18u);
  EXPECT_EQ(all[10].heading, "Slower AA SCM");
  EXPECT_EQ(all[10].ordinal, 3);
  const auto line = ReadStandardLines(Db(), "JO", {}, StandardSort::kRelaysLast).at(0);
  EXPECT_EQ(CellText(line, columns[7]), "55.00");
  EXPECT_EQ(CellText(line, columns[6]), "");
  EXPECT_EQ(CellText(line, columns[4]), "Free");
  ASSERT_TRUE(UpdateStandardLimit(Db(), "JO", line.std, columns[6].ordinal, 5000));
  ASSERT_TRUE(UpdateStandardLimit(Db(), "JO", line.std, columns[7].ordinal, 0));
  EXPECT_EQ(Count("SELECT \"F(24)\" FROM JO WHERE Sex = 'M'"), 5000);
  EXPECT_EQ(Count("SELECT \"S(24)\" IS NULL FROM JO WHERE Sex = 'M'"), 1);
  EXPECT_FALSE(UpdateStandardLimit(Db(), "JO", line.std, 75, 1));
}

TEST(LimitText, TypedLimits) {
  const std::pair<const char*, std::optional<int32_t>> cases[] = {
      {"", 0},     {"  ", 0},     {"1:05.32", 6532}, {"55.1", 5510}, {"5532", 5532},
      {"abc", {}}, {"1:2:3", {}}, {"1.2:3", {}},     {":", {}},      {"-55.00", {}}};
  for (const auto& [text, score] : cases) EXPECT_EQ(ParseLimitText(text), score) << text;
}

TEST_F(StandardEditing, RemovingALineAndAWholeStandard) {
  const auto lines = ReadStandardLines(Db(), "JO", {}, StandardSort::kRelaysLast);
  EXPECT_EQ(RemoveLineQuestion(lines[0]),
            "Remove Standard for:\r\nSex:M\r\nLow Age:11\r\nHigh Age: 12");
  EXPECT_TRUE(DeleteStandardLine(Db(), "JO", lines[0].std));
  EXPECT_FALSE(DeleteStandardLine(Db(), "JO", lines[0].std));
  EXPECT_EQ(Count("SELECT count(*) FROM JO"), 1);
  MakeStandard(Db(), "Other", {"O"});
  RemoveStandard(t.state, "JO");
  EXPECT_FALSE(TableExists(Db(), "JO"));
  EXPECT_FALSE(ReadStandardDefinition(Db(), "JO"));
  EXPECT_TRUE(ReadStandardDefinition(Db(), "Other"));
  EXPECT_TRUE(TableExists(Db(), "OTHER"));
}

TEST(StandardCard, FilteredSexMessageAndAgePresets) {
  EXPECT_EQ(FilteredSexMessage("F"),
            "Since you have filtered your standards to view Females only, you can only add "
            "standards for Females");
  EXPECT_EQ(FilteredSexMessage(""), "");
  const auto& presets = AgeRangePresets();
  ASSERT_EQ(presets.size(), 24u);
  for (size_t i = 0; i < presets.size(); ++i) {
    EXPECT_FALSE(presets[i].text.empty()) << i;
    if (!presets[i].other) {
      EXPECT_EQ(AgeGroupIndex(presets[i].lo, presets[i].hi), int(i)) << i;
    }
  }
  EXPECT_TRUE(presets[kOtherAgeRange].other);
  EXPECT_EQ(presets[7].text, "11 - 12");
}

}  // namespace
}  // namespace kvlr
