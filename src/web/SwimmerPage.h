#pragma once
// The page of the current swimmer's best times and results that the web window shows.

#include <filesystem>
#include <string>

#include "core/AppState.h"

namespace kvlr {

// Where the page of the current swimmer is kept: in gDataDir, named by the database and the
// swimmer's first name.
std::filesystem::path SwimmerPageFile(const AppState& state);

// The home page of state.gAthlete today (converted column in `target` course) as HTML.
std::string SwimmerPage(AppState& state, char target);

// Writes SwimmerPage to `file` through a temporary name. Throws FileError.
void WriteSwimmerPage(AppState& state, char target, const std::filesystem::path& file);

}  // namespace kvlr
