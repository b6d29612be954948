#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "core/Errors.h"
#include "core/FileOps.h"
#include "standards/Conversion.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

constexpr int16_t kFree = 1, kBack = 2, kBreast = 3, kIM = 5;

// The seeds with some slots changed.
CvtFactors Seeds(std::initializer_list<std::pair<int, double>> changes = {}) {
  CvtFactors f = kSeedCvtFactors;
  for (auto [slot, value] : changes) f[static_cast<size_t>(slot)] = value;
  return f;
}

const CvtFactors kStraight2 = Seeds({{cvt::kStraight, 0.02}});

struct Case {
  const char* what;
  CvtFactors factors;
  int16_t distance;
  int32_t time;
  int16_t stroke;
  char from;
  char to;
  int32_t expected;
};

void PrintTo(const Case& c, std::ostream* os) {
  *os << c.what;
}

class ConvertTimeCases : public testing::TestWithParam<Case> {};

TEST_P(ConvertTimeCases, GivesTheHundredths) {
  const Case& c = GetParam();
  EXPECT_EQ(ConvertTime(c.factors, c.distance, c.time, c.stroke, c.from, c.to), c.expected)
      << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    WorkedExamples, ConvertTimeCases,
    testing::Values(Case{"200 free S to L", Seeds(), 200, 12000, kFree, 'S', 'L', 12320},
                    Case{"200 free L to S", Seeds(), 200, 12320, kFree, 'L', 'S', 12000},
                    Case{"100 back Y to S", Seeds(), 100, 6000, kBack, 'Y', 'S', 6660},
                    Case{"100 back Y to L", Seeds(), 100, 6000, kBack, 'Y', 'L', 6780},
                    Case{"100 back L to Y", Seeds(), 100, 6780, kBack, 'L', 'Y', 6000},
                    Case{"500 free Y to L", Seeds(), 500, 30000, kFree, 'Y', 'L', 27210},
                    Case{"1650 free Y to S", Seeds(), 1650, 96000, kFree, 'Y', 'S', 97056},
                    Case{"400 free L to Y", Seeds(), 400, 27000, kFree, 'L', 'Y', 29760}));

INSTANTIATE_TEST_SUITE_P(NothingToConvert, ConvertTimeCases,
                         testing::Values(Case{"same course, factors all 0", CvtFactors{}, 200,
                                              12345, kFree, 'Y', 'Y', 12345},
                                         Case{"time 0, factors all 0", CvtFactors{}, 200, 0, kFree,
                                              'L', 'Y', 0},
                                         Case{"same course, stroke beyond the slots", Seeds(), 100,
                                              6000, 11, 'S', 'S', 6000}));

INSTANTIATE_TEST_SUITE_P(
    LongOrShortEvent, ConvertTimeCases,
    testing::Values(
        // 400 counts as long for freestyle only.
        Case{"400 IM Y to L as a 200", Seeds(), 400, 24000, kIM, 'Y', 'L', 27280},
        Case{"400 IM L to Y as a 200", Seeds(), 400, 27280, kIM, 'L', 'Y', 24000},
        Case{"400 free Y to L as a metres time", Seeds(), 400, 27000, kFree, 'Y', 'L', 29760},
        Case{"800 back Y to L: long whatever the stroke", Seeds(), 800, 50000, kBack, 'Y', 'L',
             55497},
        // The fixed 1.11, never the CvtFactor setting.
        Case{"400 free Y to S", Seeds({{0, 1.2}}), 400, 24000, kFree, 'Y', 'S', 26640},
        Case{"800 fly Y to S", Seeds({{0, 1.2}}), 800, 50000, 4, 'Y', 'S', 55500},
        Case{"400 free S to Y takes 4 turns", Seeds(), 400, 27000, kFree, 'S', 'Y', 30491},
        Case{"1500 S to Y takes 6 turns", Seeds(), 1500, 90000, kFree, 'S', 'Y', 88986},
        Case{"1500 L to Y takes 36 turns", Seeds(), 1500, 90000, kFree, 'L', 'Y', 86600},
        Case{"1500 Y to S: no fixed factor, 6 turns", Seeds(), 1500, 90000, kFree, 'Y', 'S', 88986},
        Case{"1000 Y to S: factor then 8 turns", Seeds(), 1000, 60000, kFree, 'Y', 'S', 53140},
        Case{"1650 Y to L: factor then 36 turns", Seeds(), 1650, 96000, kFree, 'Y', 'L', 99456},
        Case{"1650 S to Y: factor only", Seeds(), 1650, 96000, kFree, 'S', 'Y', 96576},
        // A metres time at a yards distance gets no turns while the straight factor is off.
        Case{"500 L to Y, per turn", Seeds(), 500, 27210, kFree, 'L', 'Y', 23809},
        Case{"500 L to Y, straight", kStraight2, 500, 27210, kFree, 'L', 'Y', 23265},
        Case{"500 Y to L, straight", kStraight2, 500, 30000, kFree, 'Y', 'L', 26850},
        Case{"1500 L to Y, straight: a share of the time", kStraight2, 1500, 90000, kFree, 'L', 'Y',
             87674},
        // No such event: the result means nothing but is kept.
        Case{"600 Y to L", Seeds(), 600, 36000, kFree, 'Y', 'L', 960},
        Case{"600 L to Y", Seeds(), 600, 36000, kFree, 'L', 'Y', 0},
        Case{"600 L to Y, straight", kStraight2, 600, 36000, kFree, 'L', 'Y', -720}));

INSTANTIATE_TEST_SUITE_P(
    TurnsAndStraight, ConvertTimeCases,
    testing::Values(
        Case{"straight S to L, free", kStraight2, 200, 12000, kFree, 'S', 'L', 12240},
        Case{"straight S to L, breast", kStraight2, 200, 12000, kBreast, 'S', 'L', 12240},
        Case{"straight L to S", kStraight2, 200, 12240, kFree, 'L', 'S', 11995},
        Case{"straight Y to L", kStraight2, 100, 6000, kBack, 'Y', 'L', 6780},
        Case{"straight L to Y", kStraight2, 100, 6780, kBack, 'L', 'Y', 5986},
        Case{"S to Y divides only", Seeds(), 100, 6660, kBack, 'S', 'Y', 6000},
        Case{"25 S to L: 0.5 turn rounds to 0", Seeds(), 25, 3000, kFree, 'S', 'L', 3000},
        Case{"75 S to L: 1.5 turns round to 2", Seeds(), 75, 4500, kFree, 'S', 'L', 4660},
        Case{"125 S to L: 2.5 turns round to 2", Seeds(), 125, 7500, kFree, 'S', 'L', 7660},
        // The stroke code is the slot of the turn seconds.
        Case{"stroke 0 reads CvtFactor", Seeds(), 100, 6000, 0, 'S', 'L', 6222},
        Case{"stroke 6 reads Straight", Seeds(), 100, 6000, 6, 'S', 'L', 6000},
        Case{"stroke 7 reads Cvt500", Seeds(), 100, 6000, 7, 'S', 'L', 6176},
        Case{"stroke 8 reads Cvt1650", Seeds(), 100, 6000, 8, 'S', 'L', 6202},
        Case{"stroke 9 reads 2.0", Seeds(), 100, 6000, 9, 'S', 'L', 6400},
        Case{"stroke 10 reads 0", Seeds(), 100, 6000, 10, 'S', 'L', 6000}));

INSTANTIATE_TEST_SUITE_P(
    HalvesToEven, ConvertTimeCases,
    testing::Values(Case{"9001.5 rounds up", Seeds({{0, 1.5}}), 100, 6001, kFree, 'Y', 'S', 9002},
                    Case{"9004.5 rounds down", Seeds({{0, 1.5}}), 100, 6003, kFree, 'Y', 'S', 9004},
                    Case{"a turn of 12.5 hundredths is 12", Seeds({{1, 0.125}}), 50, 3000, kFree,
                         'S', 'L', 3012},
                    // 30012 * 0.875 = 26260.5 is rounded before the turns go on.
                    Case{"factor rounded before turns", Seeds(), 500, 30012, kFree, 'Y', 'L',
                         27220},
                    Case{"1234 Y to S", Seeds(), 50, 1234, kFree, 'Y', 'S', 1370}));

struct Failure {
  const char* what;
  CvtFactors factors;
  int16_t distance;
  int32_t time;
  int16_t stroke;
  char from;
  char to;
  int number;
};

void PrintTo(const Failure& c, std::ostream* os) {
  *os << c.what;
}

class ConvertTimeFailures : public testing::TestWithParam<Failure> {};

TEST_P(ConvertTimeFailures, ThrowWithTheNumber) {
  const Failure& c = GetParam();
  try {
    ConvertTime(c.factors, c.distance, c.time, c.stroke, c.from, c.to);
    ADD_FAILURE() << c.what << ": no error";
  } catch (const KvlError& e) {
    EXPECT_EQ(e.Number(), c.number) << c.what;
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, ConvertTimeFailures,
    testing::Values(
        Failure{"CvtFactor 0, S to Y", Seeds({{0, 0}}), 100, 6000, kFree, 'S', 'Y', 11},
        Failure{"CvtFactor 0, L to Y", Seeds({{0, 0}}), 100, 6000, kFree, 'L', 'Y', 11},
        Failure{"CvtFactor 0, L to Y straight", Seeds({{0, 0}, {6, 0.02}}), 100, 6000, kFree, 'L',
                'Y', 11},
        Failure{"Cvt500 0, 800 to Y", Seeds({{7, 0}}), 800, 50000, kFree, 'L', 'Y', 11},
        Failure{"Cvt1650 0, 1500 to Y", Seeds({{8, 0}}), 1500, 90000, kFree, 'S', 'Y', 11},
        Failure{"0 / 0", Seeds({{7, 0}}), 400, 960, kFree, 'L', 'Y', 6},
        Failure{"stroke 11", Seeds(), 100, 6000, 11, 'S', 'L', 9},
        Failure{"stroke -1", Seeds(), 100, 6000, -1, 'Y', 'S', 9},
        Failure{"fifties beyond a byte", Seeds(), 12775, 6000, kFree, 'S', 'L', 6},
        Failure{"result beyond 32 bits", Seeds(), 100, 2000000000, kFree, 'Y', 'S', 6}));

TEST(ConvertTimeFailures, FactorZeroNotDividedByIsNoError) {
  EXPECT_EQ(ConvertTime(Seeds({{0, 0}}), 100, 6000, kFree, 'Y', 'S'), 0);
  EXPECT_EQ(ConvertTime(Seeds({{7, 0}}), 500, 30000, kFree, 'Y', 'L'), 960);
}

TEST(ConvertTimeWithState, UsesTheFactorsOfTheMoment) {
  test::TempHome t;
  t.state.gCvtFactors = kSeedCvtFactors;
  EXPECT_EQ(ConvertTime(t.state, 200, 12000, kFree, 'S', 'L'), 12320);
  t.state.gCvtFactors[kFree] = 1.0;
  EXPECT_EQ(ConvertTime(t.state, 200, 12000, kFree, 'S', 'L'), 12400);
  EXPECT_TRUE(t.io.shown.empty());
}

TEST(ConvertTimeWithState, AFailureIsReportedAndGivesZero) {
  test::TempHome t;
  t.state.gCvtFactors = Seeds({{0, 0}});
  t.io.Script({Answer::kRetry});  // even a retry goes on: the same step would fail again
  EXPECT_EQ(ConvertTime(t.state, 100, 6000, kFree, 'S', 'Y'), 0);
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].title, "Program Error");
  EXPECT_NE(t.io.shown[0].text.find("Error Source: basUtil.ConvertTime"), std::string::npos);
  EXPECT_NE(t.io.shown[0].text.find("Error Number: 11"), std::string::npos);
  EXPECT_EQ(t.state.gErrorSource, "basUtil.ConvertTime");
  EXPECT_NE(ReadWholeFile(t.state.home.Log()).find("basUtil.ConvertTime"), std::string::npos);

  t.io.shown.clear();
  EXPECT_EQ(ConvertTime(t.state, 100, 6000, 12, 'S', 'L'), 0);
  EXPECT_TRUE(t.io.Saw("Error Number: 9"));
}

}  // namespace
}  // namespace kvlr
