#pragma once
// The report database "Reports/KVLReports.MDB" and the start-up checks of the program home.

#include <string>
#include <utility>
#include <vector>

#include "core/AppState.h"

namespace kvlr {

// Makes the report database ready as gReportDb: a newer one left by an update replaces it,
// missing tables are made, IMPRULES is refilled. False (user told) on a failure.
bool CheckReportTables(AppState& state);

// The training-log tables of the report database.
bool CheckWkReportTables(AppState& state, bool show_progress);

// Refills IMPRULES from "KVL-Rimprul.txt"; false (user told) when the file is missing.
bool FillImportRules(AppState& state);

// Reads "reason,description" lines; blank lines are skipped.
std::vector<std::pair<std::string, std::string>> ParseImportRules(std::string_view text);

// The two start-up checks, report tables then system file, each with its own word on failure.
void CheckSystemTables(AppState& state);

// Empties the big report tables, as the way out does.
void EmptyReportTables(AppState& state);

}  // namespace kvlr
