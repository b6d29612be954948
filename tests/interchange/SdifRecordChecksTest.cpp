#include "interchange/SdifRecordChecks.h"

#include <gtest/gtest.h>

#include <vector>

#include "SdifLines.h"

namespace kvlr {
namespace {

using testing::Put;
using testing::SdifLine;

// A good D0 with one field put over it.
SdifD0 D0With(Put change) {
  std::string line = SdifLine("D0", {{3, "1"},
                                     {12, "Sample, Jamie Q"},
                                     {52, "A"},
                                     {56, "04152012"},
                                     {64, "14"},
                                     {66, "F"},
                                     {67, "F"},
                                     {68, " 100"},
                                     {72, "1"},
                                     {73, "  3"},
                                     {77, "1314"},
                                     {81, "11212026"},
                                     {116, " 1:02.34"},
                                     {124, "Y"},
                                     {143, "P"},
                                     {144, "J"}});
  line.replace(static_cast<size_t>(change.col - 1), change.text.size(), change.text);
  SdifD0 rec;
  LoadD0Rec(line, 0, rec);
  return rec;
}

TEST(CheckD0Test, FieldsOfAnSd3Line) {
  struct Case {
    Put change;
    std::string_view problem;  // "" passes
  };
  const std::vector<Case> cases = {
      {{1, "D0"}, ""},
      {{66, "X"}, "Sex Code"},
      {{67, "Q"}, "Event Sex Code"},
      {{72, "9"}, "Stroke Code"},
      {{124, " "}, ""},  // a blank course stands in every list
      {{124, "Q"}, "Course Code"},
      {{124, "M"}, ""},  // short-course metres as other programs write them
      {{98, "XX      "}, "Course Code"},
      {{107, "DQ      "}, ""},
      {{68, "    "}, "Required fields missing"},
      {{77, "  10"}, "Required fields missing"},
      {{56, "13312004"}, "Date"},
      {{56, "        "}, ""},
      {{81, "02302026"}, "Date"},
      {{143, "O"}, "Event Time Code"},
      {{144, "U"}, "Event Time Code"},
      {{143, "Z"}, "Event Time Code"},
      {{3, "0"}, "Organization Code"},
      {{52, "Z"}, "Attach Code"},
      {{12, "Sample Jamie                "}, "Swimmer's Name"},
  };
  for (const Case& k : cases) {
    const SdifD0 rec = D0With(k.change);
    std::string problem;
    EXPECT_EQ(CheckD0(1, rec, &problem), k.problem.empty()) << k.change.col << k.change.text;
    EXPECT_EQ(problem, k.problem) << k.change.col << k.change.text;
    EXPECT_TRUE(CheckD0(0, rec, nullptr)) << "a .cl2 is trusted";
  }
}

TEST(CheckD0Test, BlankEventIsPassedOver) {
  SdifD0 rec = D0With({67, "   "});
  rec.stroke_as_read = " ";
  rec.event_letter.clear();
  rec.sex = "?";
  EXPECT_TRUE(CheckD0(1, rec, nullptr));
}

TEST(CheckE0Test, FieldsOfAnSd3Line) {
  struct Case {
    Put change;
    std::string_view problem;
  };
  const std::vector<Case> cases = {
      {{1, "E0"}, ""},
      {{21, "Q"}, "Event Sex Code"},
      {{22, "    "}, "Required fields missing"},
      {{31, "UN  "}, "Required fields missing"},
      {{26, "2"}, "Stroke Code"},
      {{26, "6"}, ""},
      {{15, "    "}, "Required fields missing"},
      {{27, "    "}, "Required fields missing"},
      {{27, "   A"}, ""},
      {{81, "Q"}, "Course Code"},
      {{100, "O"}, "Event Time Code"},
  };
  for (const Case& k : cases) {
    std::string line = SdifLine("E0", {{12, "A"},
                                       {15, "AB  "},
                                       {21, "M"},
                                       {22, " 200"},
                                       {26, "5"},
                                       {27, " 20"},
                                       {31, "1518"},
                                       {73, " 1:45.00"},
                                       {81, "S"}});
    line.replace(static_cast<size_t>(k.change.col - 1), k.change.text.size(), k.change.text);
    SdifE0 rec;
    LoadE0Rec(line, 0, rec);
    std::string problem;
    EXPECT_EQ(CheckE0(1, rec, &problem), k.problem.empty()) << k.change.col << k.change.text;
    EXPECT_EQ(problem, k.problem) << k.change.col << k.change.text;
    EXPECT_TRUE(CheckE0(0, rec, nullptr));
  }
}

}  // namespace
}  // namespace kvlr
