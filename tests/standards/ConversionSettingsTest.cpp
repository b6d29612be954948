#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "core/Errors.h"
#include "core/Options.h"
#include "standards/Conversion.h"
#include "standards/ConversionSettings.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::MakeOpenDatabase;
using test::TempHome;

const ConversionSettings kChanged{{1.2, 0.9, 0.5, 1.1, 0.75, 0.85, 0.03, 0.9, 1.01}, false};

TEST(ConversionSettings, ANewDatabaseReadsTheSeeds) {
  TempHome t;
  MakeOpenDatabase(t);
  const ConversionSettings read = ReadConversionSettings(*t.state.gDb);
  EXPECT_EQ(read, (ConversionSettings{{1.11, 0.8, 0.6, 1, 0.7, 0.8, 0, 0.875, 1.006}, true}));
}

TEST(ConversionSettings, SaveTakesEffectAtOnceAndIsWrittenToOptions) {
  TempHome t;
  MakeOpenDatabase(t);
  ASSERT_EQ(ConvertTime(t.state, 200, 12000, 1, 'S', 'L'), 12320);

  SaveConversionSettings(t.state, kChanged);

  // Straight 0.03 now: 12000 + 360, whatever the stroke.
  EXPECT_EQ(ConvertTime(t.state, 200, 12000, 1, 'S', 'L'), 12360);
  const CvtFactors expected = {1.2, 0.9, 0.5, 1.1, 0.75, 0.85, 0.03, 0.9, 1.01, 2.0, 0.0};
  EXPECT_EQ(t.state.gCvtFactors, expected);
  EXPECT_FALSE(t.state.gY2L);  // the browser's default direction follows at once

  SQLite::Statement row(*t.state.gDb,
                        "SELECT count(*), CvtFactor, FreeTurn, BackTurn, BreastTurn, FlyTurn, "
                        "IMTurn, Straight, Cvt500, Cvt1650, CvtType, Y2L, BackupCheck "
                        "FROM OPTIONS");
  ASSERT_TRUE(row.executeStep());
  EXPECT_EQ(row.getColumn(0).getInt(), 1);
  for (int i = 0; i < 9; ++i) {
    EXPECT_DOUBLE_EQ(row.getColumn(i + 1).getDouble(), kChanged.factors[static_cast<size_t>(i)])
        << "field " << i;
  }
  EXPECT_EQ(row.getColumn(10).getInt(), 2);
  EXPECT_EQ(row.getColumn(11).getInt(), 0);
  EXPECT_EQ(row.getColumn(12).getInt(), 7);  // other settings untouched
  EXPECT_EQ(ReadConversionSettings(*t.state.gDb), kChanged);
}

TEST(ConversionSettings, CvtTypeChangedByHandHasNoEffect) {
  TempHome t;
  MakeOpenDatabase(t);
  const int32_t before = ConvertTime(t.state, 500, 30000, 1, 'Y', 'L');
  t.state.gDb->exec("UPDATE OPTIONS SET CvtType = 1");
  GetOptions(t.state);
  EXPECT_EQ(t.state.gCvtFactors[cvt::kType], 2.0);
  EXPECT_EQ(ConvertTime(t.state, 500, 30000, 1, 'Y', 'L'), before);

  t.state.gCvtFactors[cvt::kType] = 5;  // whatever the slot holds, saving puts 2 back
  SaveConversionSettings(t.state, ReadConversionSettings(*t.state.gDb));
  EXPECT_EQ(t.state.gCvtFactors[cvt::kType], 2.0);
  EXPECT_EQ(t.state.gDb->execAndGet("SELECT CvtType FROM OPTIONS").getInt(), 2);
}

TEST(ConversionSettings, SaveAddsTheRowWhenOptionsIsEmpty) {
  TempHome t;
  MakeOpenDatabase(t);
  t.state.gDb->exec("DELETE FROM OPTIONS");
  SaveConversionSettings(t.state, kChanged);
  EXPECT_EQ(t.state.gDb->execAndGet("SELECT count(*) FROM OPTIONS").getInt(), 1);
  EXPECT_EQ(ReadConversionSettings(*t.state.gDb), kChanged);
}

TEST(ConversionSettings, EmptyFieldsReadAsZero) {
  TempHome t;
  MakeOpenDatabase(t);
  t.state.gDb->exec("UPDATE OPTIONS SET FlyTurn = NULL, Y2L = NULL");
  const ConversionSettings read = ReadConversionSettings(*t.state.gDb);
  EXPECT_EQ(read.factors[4], 0.0);
  EXPECT_FALSE(read.y2l);
}

TEST(ConversionSettings, SaveWithoutADatabaseChangesNothing) {
  TempHome t;
  t.state.gCvtFactors = kSeedCvtFactors;
  EXPECT_THROW(SaveConversionSettings(t.state, kChanged), KvlError);
  EXPECT_EQ(t.state.gCvtFactors, kSeedCvtFactors);
}

struct StraightCase {
  double value;
  bool turns_enabled;
  bool reset;
};

class StraightRule : public testing::TestWithParam<StraightCase> {};

TEST_P(StraightRule, DecidesTheTurnBoxes) {
  const StraightCase& c = GetParam();
  const StraightCheck check = CheckStraight(c.value);
  EXPECT_EQ(check.turns_enabled, c.turns_enabled) << c.value;
  EXPECT_EQ(check.reset_to_zero, c.reset) << c.value;
  EXPECT_EQ(check.message, c.reset ? "Maximum allowable is 0.1 ( 10% )" : "") << c.value;
}

INSTANTIATE_TEST_SUITE_P(Values, StraightRule,
                         testing::Values(StraightCase{0, true, false},
                                         StraightCase{0.02, false, false},
                                         StraightCase{0.1, false, false},
                                         StraightCase{0.1000001, true, true},
                                         StraightCase{2, true, true}));

}  // namespace
}  // namespace kvlr
