#include "shell/Login.h"

#include <SQLiteCpp/Statement.h>

#include "athletes/CurrentAthlete.h"
#include "core/ErrorHandler.h"
#include "core/PrinterInfo.h"
#include "store/LastDatabase.h"
#include "store/ReportDatabase.h"

namespace kvlr {

std::vector<LoginRow> LoginRows(AppState& state) {
  std::vector<LoginRow> rows;
  SQLite::Statement query(*state.gDb,
                          "SELECT Athlete, Pref, First, Initial, Last FROM Athlete ORDER BY First");
  auto text = [&](int i) {
    return query.getColumn(i).isNull() ? std::string() : query.getColumn(i).getString();
  };
  while (query.executeStep()) {
    rows.push_back(
        {query.getColumn(0).getInt(), AthleteDisplayName(text(1), text(2), text(3), text(4))});
  }
  state.gAthleteCount = static_cast<int16_t>(rows.size());
  return rows;
}

bool LogIn(AppState& state, int32_t athlete) {
  state.ClearAthlete();
  if (athlete == 0) return true;
  return SetCurrentAthlete(state, athlete);
}

void LeaveProgram(AppState& state, const PrinterNames& printer_at_start) {
  try {
    if (state.gDbOpen) SaveLastDatabase(state);
  } catch (const std::exception& e) {
    ReportError(state, "frmMain.Form_Unload", e, false);
  }
  if (!(state.gPrinter == printer_at_start)) SavePrinterInfo(state.home, state.gPrinter);
  state.CloseCurrentDB();
  try {
    EmptyReportTables(state);
  } catch (const std::exception& e) {
    ReportError(state, "frmMain.Form_Unload", e, false);
  }
  state.gReportDb.reset();
}

}  // namespace kvlr
