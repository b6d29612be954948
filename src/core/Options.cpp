#include "core/Options.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Columns.h"
#include "core/SwimCodes.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

double DoubleOr0(const SQLite::Column& c) {
  return c.isNull() ? 0.0 : c.getDouble();
}
int IntOr0(const SQLite::Column& c) {
  return c.isNull() ? 0 : c.getInt();
}

void AddDefaultRow(AppState& state) {
  using D = OptionDefaults;
  SQLite::Statement insert(
      *state.gDb,
      "INSERT INTO OPTIONS (CvtFactor, FreeTurn, BackTurn, BreastTurn, FlyTurn, IMTurn, "
      "Straight, Cvt500, Cvt1650, CvtType, y2l, Backupcheck, Updatecheck, LastBackup) "
      "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  SQLite::bind(insert, D::kCvtFactor, D::kFreeTurn, D::kBackTurn, D::kBreastTurn, D::kFlyTurn,
               D::kIMTurn, D::kStraight, D::kCvt500, D::kCvt1650, D::kCvtType, D::kY2L ? 1 : 0,
               D::kBackupCheck, D::kUpdateCheck, state.clock->Today().Iso());
  insert.exec();
}

}  // namespace

void GetOptions(AppState& state) {
  static constexpr const char* kSelect =
      "SELECT CvtFactor, FreeTurn, BackTurn, BreastTurn, FlyTurn, IMTurn, Straight, Cvt500, "
      "Cvt1650, CvtType, Y2L, BackupCheck, UpdateCheck, Favorite, RptUCase, UseLeadOff, FavSex, "
      "NoAge FROM OPTIONS LIMIT 1";
  SQLite::Statement query(*state.gDb, kSelect);
  if (!query.executeStep()) {
    AddDefaultRow(state);
    query.reset();
    query.executeStep();
  }
  for (int i = 0; i < 9; ++i) state.gCvtFactors[i] = DoubleOr0(query.getColumn(i));
  // Whatever the table holds for the method, the conversion always works the second way.
  state.gCvtFactors[9] = 2.0;
  state.gCvtFactors[10] = 0.0;
  state.gY2L = IntOr0(query.getColumn(10)) != 0;
  state.gBackupDays = static_cast<uint8_t>(IntOr0(query.getColumn(11)));
  state.gUpdateDays = static_cast<uint8_t>(IntOr0(query.getColumn(12)));
  state.gFavorite = TextOf(query.getColumn(13));
  state.gRptUCase = IntOr0(query.getColumn(14)) != 0;
  state.gUseLeadOff = IntOr0(query.getColumn(15)) != 0;
  state.gFavSex = IntOr0(query.getColumn(16));
  state.gNoAge = IntOr0(query.getColumn(17));
  state.gStroke = LoadStrokeArray();
}

fs::path GetDirectories(const AppState& state, DirectoryKind which) {
  static constexpr const char* kSelect[] = {
      "SELECT ImportDir FROM OPTIONS LIMIT 1", "SELECT ExportDir FROM OPTIONS LIMIT 1",
      "SELECT BackupDir FROM OPTIONS LIMIT 1", "SELECT ReportDir FROM OPTIONS LIMIT 1"};
  SQLite::Statement query(*state.gDb, kSelect[static_cast<int>(which)]);
  if (query.executeStep()) {
    std::string folder = TextOf(query.getColumn(0));
    std::error_code ec;
    if (!folder.empty() && fs::is_directory(folder, ec)) return folder;
  }
  return state.gDataDir;
}

}  // namespace kvlr
