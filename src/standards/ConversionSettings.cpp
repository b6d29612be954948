#include "standards/ConversionSettings.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Errors.h"
#include "standards/Conversion.h"

namespace kvlr {
namespace {

// The OPTIONS fields of slots 0 to 8, in slot order.
constexpr const char* kFactorFields =
    "CvtFactor, FreeTurn, BackTurn, BreastTurn, FlyTurn, IMTurn, Straight, Cvt500, Cvt1650";

}  // namespace

ConversionSettings ReadConversionSettings(SQLite::Database& db) {
  ConversionSettings settings;
  SQLite::Statement query(
      db, std::string("SELECT ") + kFactorFields + ", Y2L FROM OPTIONS ORDER BY rowid LIMIT 1");
  if (!query.executeStep()) {
    for (size_t i = 0; i < settings.factors.size(); ++i) settings.factors[i] = kSeedCvtFactors[i];
    settings.y2l = OptionDefaults::kY2L;
    return settings;
  }
  for (int i = 0; i < 9; ++i) {
    const SQLite::Column c = query.getColumn(i);
    settings.factors[static_cast<size_t>(i)] = c.isNull() ? 0.0 : c.getDouble();
  }
  const SQLite::Column y2l = query.getColumn(9);
  settings.y2l = !y2l.isNull() && y2l.getInt() != 0;
  return settings;
}

void SaveConversionSettings(AppState& state, const ConversionSettings& settings) {
  if (!state.gDb) throw KvlError(err::kAppData, "No database is open");
  SQLite::Database& db = *state.gDb;
  const auto& f = settings.factors;
  const int y2l = settings.y2l ? 1 : 0;

  SQLite::Transaction transaction(db);
  SQLite::Statement update(db,
                           "UPDATE OPTIONS SET CvtFactor = ?, FreeTurn = ?, BackTurn = ?, "
                           "BreastTurn = ?, FlyTurn = ?, IMTurn = ?, Straight = ?, Cvt500 = ?, "
                           "Cvt1650 = ?, CvtType = ?, Y2L = ? "
                           "WHERE rowid = (SELECT rowid FROM OPTIONS ORDER BY rowid LIMIT 1)");
  SQLite::bind(update, f[0], f[1], f[2], f[3], f[4], f[5], f[6], f[7], f[8],
               OptionDefaults::kCvtType, y2l);
  if (update.exec() == 0) {
    SQLite::Statement insert(db,
                             "INSERT INTO OPTIONS (CvtFactor, FreeTurn, BackTurn, BreastTurn, "
                             "FlyTurn, IMTurn, Straight, Cvt500, Cvt1650, CvtType, Y2L) "
                             "VALUES (?,?,?,?,?,?,?,?,?,?,?)");
    SQLite::bind(insert, f[0], f[1], f[2], f[3], f[4], f[5], f[6], f[7], f[8],
                 OptionDefaults::kCvtType, y2l);
    insert.exec();
  }
  transaction.commit();

  for (size_t i = 0; i < f.size(); ++i) state.gCvtFactors[i] = f[i];
  state.gCvtFactors[cvt::kType] = 2.0;
  state.gCvtFactors[10] = 0.0;
  state.gY2L = settings.y2l;
}

StraightCheck CheckStraight(double value) {
  StraightCheck check;
  if (value == 0) return check;
  if (value <= kMaxStraight) {
    check.turns_enabled = false;
  } else {
    check.reset_to_zero = true;
    check.message = kStraightTooHigh;
  }
  return check;
}

}  // namespace kvlr
