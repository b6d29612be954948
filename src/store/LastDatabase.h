#pragma once
// The last databases used on this machine, newest first, at most five.

#include <functional>
#include <string>
#include <vector>

#include "core/AppState.h"

namespace kvlr {

inline constexpr int kLastDatabaseCount = 5;

// Reads the list newest first. The first one whose file exists becomes gDatabaseName, with
// its gStandardFile. Returns the full names in that order (for the last-file menu).
std::vector<std::string> GetLastDatabase(AppState& state);

// Records gDatabaseName as opened now (with gStandardFile) and keeps the five newest rows.
// Nothing happens when gDatabaseName is empty.
void SaveLastDatabase(AppState& state);

}  // namespace kvlr
