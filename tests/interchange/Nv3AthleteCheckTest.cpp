// The athlete check of an NV3 file before its import: matches, the "no results" boxes and
// a D1 the check cannot read.

#include <gtest/gtest.h>

#include "FileMaker.h"
#include "interchange/Nv3AthleteCheck.h"
#include "interchange/Nv3Texts.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using testing::Nv3;

class StatusLog : public ImportMonitor {
 public:
  void Status(std::string_view text) override { statuses.emplace_back(text); }
  std::vector<std::string> statuses;
};

std::string D1(const char* last, const char* first, const char* pref = "",
               const char* birth = "01022014", const char* sex = "F") {
  return Nv3("D1", {{"sex", sex},
                    {"athlete", "1"},
                    {"last", last},
                    {"first", first},
                    {"pref", pref},
                    {"birth", birth}});
}

std::vector<std::string> FileOf(std::vector<std::string> swimmers) {
  std::vector<std::string> lines = {Nv3("A1", "file_code=09|creator=Norvan, Ltd"),
                                    Nv3("B1", {{"meet_name", "Made-Up Meet"}})};
  lines.insert(lines.end(), swimmers.begin(), swimmers.end());
  return lines;
}

SwimmerMatcher Family(const char* first, const char* last = "Smith", const char* sex = "F") {
  return SwimmerMatcher(CurrentSwimmer{1, first, last, sex}, {}, false);
}

TEST(NV3AthleteCheck, FindsTheSwimmerByFirstOrPreferredName) {
  struct Case {
    const char* what;
    const char* current_first;
    std::string d1;
  };
  const Case cases[] = {
      {"first name", "Alex", D1("SMITH", "ALEX")},
      {"preferred name", "Lexi", D1("SMITH", "ALEXANDRA", "LEXI")},
      {"any case", "alex", D1("smith", "Alex")},
  };
  for (const Case& c : cases) {
    test::TempHome t;
    StatusLog monitor;
    SwimmerMatcher matcher = Family(c.current_first);
    EXPECT_TRUE(
        NV3AthleteCheck(t.state, monitor, FileOf({D1("JONES", "KIM"), c.d1}), matcher, "m.nv3"))
        << c.what;
    EXPECT_TRUE(matcher.AnyMatch()) << c.what;
    EXPECT_TRUE(t.io.shown.empty()) << c.what;
    EXPECT_EQ(monitor.statuses,
              (std::vector<std::string>{std::string(" Checking for Athletes... "),
                                        std::string(" Athlete Check Successful ")}))
        << c.what;
  }
}

TEST(NV3AthleteCheck, NoMatchTellsTheUserAndListsOthersOfTheLastName) {
  test::TempHome t;
  StatusLog monitor;
  SwimmerMatcher matcher = Family("Alex");
  const auto lines = FileOf({D1("SMITH", "JORDAN"), D1("JONES", "ALEX"), D1("SMITH", "CASEY"),
                             D1("SMITH", "ALEX", "", "01022014", "M")});
  // Not a failure: the user may still import the file.
  EXPECT_TRUE(NV3AthleteCheck(t.state, monitor, lines, matcher, "m.nv3"));
  ASSERT_EQ(t.io.shown.size(), 2u);
  EXPECT_EQ(t.io.shown[0].text, NoResultsText(matcher));
  EXPECT_NE(t.io.shown[0].text.find("Alex Smith"), std::string::npos);
  EXPECT_EQ(t.io.shown[1].text,
            std::string("The file did contain the following athlete(s) with the last name of ") +
                "Smith\r\nJORDAN SMITH\r\nCASEY SMITH\r\nALEX SMITH");
  EXPECT_EQ(monitor.statuses.back(), " Athlete Check Successful ");

  // Nobody of the name at all: the first box only.
  test::TempHome t2;
  SwimmerMatcher lonely = Family("Alex");
  EXPECT_TRUE(NV3AthleteCheck(t2.state, monitor, FileOf({D1("JONES", "KIM")}), lonely, "m.nv3"));
  ASSERT_EQ(t2.io.shown.size(), 1u);
  EXPECT_EQ(t2.io.shown[0].text, NoResultsText(lonely));
}

TEST(NV3AthleteCheck, AnUnreadableSwimmerLineStopsWithTheTwoPartBox) {
  struct Case {
    std::string line;
    const char* problem;
  };
  const Case cases[] = {{D1("SMITH", "ALEX", "", "13312004"), "Problem: Date"},
                        {D1("", "ALEX"), "Problem: Swimmer's Name"}};
  for (const Case& c : cases) {
    test::TempHome t;
    StatusLog monitor;
    SwimmerMatcher matcher = Family("Alex");
    EXPECT_FALSE(
        NV3AthleteCheck(t.state, monitor, FileOf({D1("SMITH", "ALEX"), c.line}), matcher, "m.nv3"));
    ASSERT_EQ(t.io.shown.size(), 1u) << c.problem;  // no "no results" box behind it
    const auto& box = t.io.shown[0];
    EXPECT_EQ(box.title, "error");
    EXPECT_EQ(box::Icon(box.style), box::kStop);
    EXPECT_EQ(box.text,
              "File processing error for file: m.nv3\r\nThe error is on line: 4\r\nThe problem "
              "line is listed below in two parts: \r\n>>" +
                  c.line.substr(0, 80) + "<<\r\n>>" + c.line.substr(80) + "<<\r\n" + c.problem);
    EXPECT_NE(monitor.statuses.back(), " Athlete Check Successful ");
  }
}

}  // namespace
}  // namespace kvlr
