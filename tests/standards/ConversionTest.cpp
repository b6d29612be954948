// Course conversion: the worked hundredths, the failures, the saved settings and the time
// calculator.

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include <SQLiteCpp/Statement.h>

#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/Options.h"
#include "standards/Conversion.h"
#include "standards/ConversionSettings.h"
#include "standards/TimeCalculator.h"
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
  int32_t expected;  // the hundredths, or the error number for a failure
};

TEST(ConvertTime, GivesTheHundredths) {
  const Case cases[] = {
      {"200 free S to L", Seeds(), 200, 12000, kFree, 'S', 'L', 12320},
      {"200 free L to S", Seeds(), 200, 12320, kFree, 'L', 'S', 12000},
      {"100 back Y to S", Seeds(), 100, 6000, kBack, 'Y', 'S', 6660},
      {"100 back Y to L", Seeds(), 100, 6000, kBack, 'Y', 'L', 6780},
      {"100 back L to Y", Seeds(), 100, 6780, kBack, 'L', 'Y', 6000},
      {"500 free Y to L", Seeds(), 500, 30000, kFree, 'Y', 'L', 27210},
      {"1650 free Y to S", Seeds(), 1650, 96000, kFree, 'Y', 'S', 97056},
      {"400 free L to Y", Seeds(), 400, 27000, kFree, 'L', 'Y', 29760},
      {"same course, factors all 0", CvtFactors{}, 200, 12345, kFree, 'Y', 'Y', 12345},
      {"time 0, factors all 0", CvtFactors{}, 200, 0, kFree, 'L', 'Y', 0},
      {"same course, stroke beyond the slots", Seeds(), 100, 6000, 11, 'S', 'S', 6000},
      // 400 counts as long for freestyle only.
      {"400 IM Y to L as a 200", Seeds(), 400, 24000, kIM, 'Y', 'L', 27280},
      {"400 IM L to Y as a 200", Seeds(), 400, 27280, kIM, 'L', 'Y', 24000},
      {"400 free Y to L as a metres time", Seeds(), 400, 27000, kFree, 'Y', 'L', 29760},
      {"800 back Y to L: long whatever the stroke", Seeds(), 800, 50000, kBack, 'Y', 'L', 55497},
      // The fixed 1.11, never the CvtFactor setting.
      {"400 free Y to S", Seeds({{0, 1.2}}), 400, 24000, kFree, 'Y', 'S', 26640},
      {"800 fly Y to S", Seeds({{0, 1.2}}), 800, 50000, 4, 'Y', 'S', 55500},
      {"400 free S to Y takes 4 turns", Seeds(), 400, 27000, kFree, 'S', 'Y', 30491},
      {"1500 S to Y takes 6 turns", Seeds(), 1500, 90000, kFree, 'S', 'Y', 88986},
      {"1500 L to Y takes 36 turns", Seeds(), 1500, 90000, kFree, 'L', 'Y', 86600},
      {"1500 Y to S: no fixed factor, 6 turns", Seeds(), 1500, 90000, kFree, 'Y', 'S', 88986},
      {"1000 Y to S: factor then 8 turns", Seeds(), 1000, 60000, kFree, 'Y', 'S', 53140},
      {"1650 Y to L: factor then 36 turns", Seeds(), 1650, 96000, kFree, 'Y', 'L', 99456},
      {"1650 S to Y: factor only", Seeds(), 1650, 96000, kFree, 'S', 'Y', 96576},
      // A metres time at a yards distance gets no turns while the straight factor is off.
      {"500 L to Y, per turn", Seeds(), 500, 27210, kFree, 'L', 'Y', 23809},
      {"500 L to Y, straight", kStraight2, 500, 27210, kFree, 'L', 'Y', 23265},
      {"500 Y to L, straight", kStraight2, 500, 30000, kFree, 'Y', 'L', 26850},
      {"1500 L to Y, straight: a share", kStraight2, 1500, 90000, kFree, 'L', 'Y', 87674},
      // No such event: the result means nothing but is kept.
      {"600 Y to L", Seeds(), 600, 36000, kFree, 'Y', 'L', 960},
      {"600 L to Y", Seeds(), 600, 36000, kFree, 'L', 'Y', 0},
      {"600 L to Y, straight", kStraight2, 600, 36000, kFree, 'L', 'Y', -720},
      {"straight S to L, free", kStraight2, 200, 12000, kFree, 'S', 'L', 12240},
      {"straight S to L, breast", kStraight2, 200, 12000, kBreast, 'S', 'L', 12240},
      {"straight L to S", kStraight2, 200, 12240, kFree, 'L', 'S', 11995},
      {"straight Y to L", kStraight2, 100, 6000, kBack, 'Y', 'L', 6780},
      {"straight L to Y", kStraight2, 100, 6780, kBack, 'L', 'Y', 5986},
      {"S to Y divides only", Seeds(), 100, 6660, kBack, 'S', 'Y', 6000},
      {"25 S to L: 0.5 turn rounds to 0", Seeds(), 25, 3000, kFree, 'S', 'L', 3000},
      {"75 S to L: 1.5 turns round to 2", Seeds(), 75, 4500, kFree, 'S', 'L', 4660},
      {"125 S to L: 2.5 turns round to 2", Seeds(), 125, 7500, kFree, 'S', 'L', 7660},
      // The stroke code is the slot of the turn seconds.
      {"stroke 0 reads CvtFactor", Seeds(), 100, 6000, 0, 'S', 'L', 6222},
      {"stroke 6 reads Straight", Seeds(), 100, 6000, 6, 'S', 'L', 6000},
      {"stroke 7 reads Cvt500", Seeds(), 100, 6000, 7, 'S', 'L', 6176},
      {"stroke 8 reads Cvt1650", Seeds(), 100, 6000, 8, 'S', 'L', 6202},
      {"stroke 9 reads 2.0", Seeds(), 100, 6000, 9, 'S', 'L', 6400},
      {"stroke 10 reads 0", Seeds(), 100, 6000, 10, 'S', 'L', 6000},
      {"9001.5 rounds up", Seeds({{0, 1.5}}), 100, 6001, kFree, 'Y', 'S', 9002},
      {"9004.5 rounds down", Seeds({{0, 1.5}}), 100, 6003, kFree, 'Y', 'S', 9004},
      {"a turn of 12.5 hundredths is 12", Seeds({{1, 0.125}}), 50, 3000, kFree, 'S', 'L', 3012},
      // 30012 * 0.875 = 26260.5 is rounded before the turns go on.
      {"factor rounded before turns", Seeds(), 500, 30012, kFree, 'Y', 'L', 27220},
      {"1234 Y to S", Seeds(), 50, 1234, kFree, 'Y', 'S', 1370},
      // A factor of 0 that is not divided by is no error.
      {"CvtFactor 0, Y to S", Seeds({{0, 0}}), 100, 6000, kFree, 'Y', 'S', 0},
      {"Cvt500 0, 500 Y to L", Seeds({{7, 0}}), 500, 30000, kFree, 'Y', 'L', 960},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ConvertTime(c.factors, c.distance, c.time, c.stroke, c.from, c.to), c.expected)
        << c.what;
  }
}

TEST(ConvertTime, FailuresThrowTheirNumber) {
  const Case cases[] = {
      {"CvtFactor 0, S to Y", Seeds({{0, 0}}), 100, 6000, kFree, 'S', 'Y', 11},
      {"CvtFactor 0, L to Y", Seeds({{0, 0}}), 100, 6000, kFree, 'L', 'Y', 11},
      {"CvtFactor 0, L to Y straight", Seeds({{0, 0}, {6, 0.02}}), 100, 6000, kFree, 'L', 'Y', 11},
      {"Cvt500 0, 800 to Y", Seeds({{7, 0}}), 800, 50000, kFree, 'L', 'Y', 11},
      {"Cvt1650 0, 1500 to Y", Seeds({{8, 0}}), 1500, 90000, kFree, 'S', 'Y', 11},
      {"0 / 0", Seeds({{7, 0}}), 400, 960, kFree, 'L', 'Y', 6},
      {"stroke 11", Seeds(), 100, 6000, 11, 'S', 'L', 9},
      {"stroke -1", Seeds(), 100, 6000, -1, 'Y', 'S', 9},
      {"fifties beyond a byte", Seeds(), 12775, 6000, kFree, 'S', 'L', 6},
      {"result beyond 32 bits", Seeds(), 100, 2000000000, kFree, 'Y', 'S', 6},
  };
  for (const Case& c : cases) {
    try {
      ConvertTime(c.factors, c.distance, c.time, c.stroke, c.from, c.to);
      ADD_FAILURE() << c.what << ": no error";
    } catch (const KvlError& e) {
      EXPECT_EQ(e.Number(), c.expected) << c.what;
    }
  }
}

TEST(ConvertTime, WithStateUsesTheFactorsOfTheMomentAndReportsAFailureAsZero) {
  test::TempHome t;
  t.state.gCvtFactors = kSeedCvtFactors;
  t.state.gCvtFactors[kFree] = 1.0;
  EXPECT_EQ(ConvertTime(t.state, 200, 12000, kFree, 'S', 'L'), 12400);
  EXPECT_TRUE(t.io.shown.empty());
  t.state.gCvtFactors = Seeds({{0, 0}});
  t.io.Script({Answer::kRetry});  // even a retry goes on: the same step would fail again
  EXPECT_EQ(ConvertTime(t.state, 100, 6000, kFree, 'S', 'Y'), 0);
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].title, "Program Error");
  EXPECT_TRUE(t.io.Saw("Error Source: basUtil.ConvertTime"));
  EXPECT_TRUE(t.io.Saw("Error Number: 11"));
  EXPECT_EQ(t.state.gErrorSource, "basUtil.ConvertTime");
  EXPECT_NE(ReadWholeFile(t.state.home.Log()).find("basUtil.ConvertTime"), std::string::npos);
  EXPECT_EQ(ConvertTime(t.state, 100, 6000, 12, 'S', 'L'), 0);
  EXPECT_TRUE(t.io.Saw("Error Number: 9"));
}

class ConversionSettingsTest : public testing::Test {
 protected:
  void SetUp() override { test::MakeOpenDatabase(t); }
  SQLite::Database& Db() { return *t.state.gDb; }
  test::TempHome t;
};

const ConversionSettings kChanged{{1.2, 0.9, 0.5, 1.1, 0.75, 0.85, 0.03, 0.9, 1.01}, false};

TEST_F(ConversionSettingsTest, SaveTakesEffectAtOnceAndIsWrittenToOptions) {
  EXPECT_EQ(ReadConversionSettings(Db()),
            (ConversionSettings{{1.11, 0.8, 0.6, 1, 0.7, 0.8, 0, 0.875, 1.006}, true}));
  ASSERT_EQ(ConvertTime(t.state, 200, 12000, 1, 'S', 'L'), 12320);
  SaveConversionSettings(t.state, kChanged);
  // Straight 0.03 now: 12000 + 360, whatever the stroke.
  EXPECT_EQ(ConvertTime(t.state, 200, 12000, 1, 'S', 'L'), 12360);
  EXPECT_EQ(t.state.gCvtFactors,
            (CvtFactors{1.2, 0.9, 0.5, 1.1, 0.75, 0.85, 0.03, 0.9, 1.01, 2.0, 0.0}));
  EXPECT_FALSE(t.state.gY2L);  // the browser's default direction follows at once
  SQLite::Statement row(Db(),
                        "SELECT count(*), CvtFactor, FreeTurn, BackTurn, BreastTurn, FlyTurn, "
                        "IMTurn, Straight, Cvt500, Cvt1650, CvtType, Y2L, BackupCheck "
                        "FROM OPTIONS");
  ASSERT_TRUE(row.executeStep());
  EXPECT_EQ(row.getColumn(0).getInt(), 1);
  for (int i = 0; i < 9; ++i) {
    EXPECT_DOUBLE_EQ(row.getColumn(i + 1).getDouble(), kChanged.factors[size_t(i)]) << i;
  }
  EXPECT_EQ(row.getColumn(10).getInt(), 2);
  EXPECT_EQ(row.getColumn(11).getInt(), 0);
  EXPECT_EQ(row.getColumn(12).getInt(), 7);  // other settings untouched
  EXPECT_EQ(ReadConversionSettings(Db()), kChanged);
  // A missing row is added; empty fields read as zero.
  Db().exec("DELETE FROM OPTIONS");
  SaveConversionSettings(t.state, kChanged);
  EXPECT_EQ(test::QueryNumber(Db(), "SELECT count(*) FROM OPTIONS"), 1);
  Db().exec("UPDATE OPTIONS SET FlyTurn = NULL, Y2L = NULL");
  const ConversionSettings read = ReadConversionSettings(Db());
  EXPECT_EQ(read.factors[4], 0.0);
  EXPECT_FALSE(read.y2l);
}

TEST_F(ConversionSettingsTest, CvtTypeChangedByHandHasNoEffect) {
  const int32_t before = ConvertTime(t.state, 500, 30000, 1, 'Y', 'L');
  Db().exec("UPDATE OPTIONS SET CvtType = 1");
  GetOptions(t.state);
  EXPECT_EQ(t.state.gCvtFactors[cvt::kType], 2.0);
  EXPECT_EQ(ConvertTime(t.state, 500, 30000, 1, 'Y', 'L'), before);
  t.state.gCvtFactors[cvt::kType] = 5;  // whatever the slot holds, saving puts 2 back
  SaveConversionSettings(t.state, ReadConversionSettings(Db()));
  EXPECT_EQ(t.state.gCvtFactors[cvt::kType], 2.0);
  EXPECT_EQ(test::QueryNumber(Db(), "SELECT CvtType FROM OPTIONS"), 2);
}

TEST(ConversionSettings, SaveWithoutADatabaseChangesNothing) {
  test::TempHome t;
  t.state.gCvtFactors = kSeedCvtFactors;
  EXPECT_THROW(SaveConversionSettings(t.state, kChanged), KvlError);
  EXPECT_EQ(t.state.gCvtFactors, kSeedCvtFactors);
}

TEST(ConversionSettings, StraightRuleDecidesTheTurnBoxes) {
  struct Straight {
    double value;
    bool turns_enabled, reset;
  };
  for (const Straight& c :
       {Straight{0, true, false}, Straight{0.02, false, false}, Straight{0.1, false, false},
        Straight{0.1000001, true, true}, Straight{2, true, true}}) {
    const StraightCheck check = CheckStraight(c.value);
    EXPECT_EQ(check.turns_enabled, c.turns_enabled) << c.value;
    EXPECT_EQ(check.reset_to_zero, c.reset) << c.value;
    EXPECT_EQ(check.message, c.reset ? "Maximum allowable is 0.1 ( 10% )" : "") << c.value;
  }
}

TEST(TimeCalculator, NormalizesTimesAndGivesSumDifferenceAndAverage) {
  for (bool larger_first : {true, false}) {
    TimeCalculator calc;
    std::string large = "1:02.50", small = "58.75";
    calc.LeaveTime1(larger_first ? large : small);
    calc.LeaveTime2(larger_first ? small : large);
    EXPECT_EQ(calc.SumText(), " 2:01.25");
    EXPECT_EQ(calc.DifferenceText(), "   03.75");
  }
  TimeCalculator calc;
  std::string a = "5123", b = "1:";
  calc.LeaveTime1(a);
  calc.LeaveTime2(b);
  EXPECT_EQ(a, "00:51.23");
  EXPECT_EQ(b, "01:00.00");
  EXPECT_EQ(calc.Time1(), 5123);
  EXPECT_EQ(calc.Time2(), 6000);
  a = "30.01";
  b = "30.00";  // 6001 hundredths
  calc.LeaveTime1(a);
  calc.LeaveTime2(b);
  EXPECT_EQ(calc.AverageText(), " 1:00.01");  // divide by 1 at first
  calc.SetDivideBy("2");
  EXPECT_EQ(calc.AverageText(), "   30.00");  // 3000.5 to even
  calc.SetDivideBy("4");
  EXPECT_EQ(calc.AverageText(), "   15.00");  // 1500.25
  calc.SetDivideBy("0");                      // while typed, 0 leaves the average as it was
  EXPECT_EQ(calc.AverageText(), "   15.00");
  EXPECT_EQ(calc.LeaveDivideBy("0"), "1");
  EXPECT_EQ(calc.AverageText(), " 1:00.01");
  EXPECT_EQ(calc.LeaveDivideBy(""), "1");
  EXPECT_EQ(calc.LeaveDivideBy("6"), "6");
  EXPECT_EQ(calc.AverageText(), "   10.00");
}

}  // namespace
}  // namespace kvlr
