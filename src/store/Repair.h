#pragma once
// Repair and compaction of the user database.

#include <filesystem>

#include "core/AppState.h"

namespace kvlr {

// Orphans out, the file checked and rebuilt, compacted into place, the report database made
// afresh, the database opened again, notes compacted and ranks rebuilt (through the hooks).
// Needs gDb open. False when a step failed; the database is then opened again if it can be.
bool RepairAndCompact(AppState& state);

// Rebuilds a damaged file from what can still be read (a garbled header is mended first).
// The original is kept beside it as "<name>-damaged-<YYYYMMDD-HHMMSS>.mdb". The file must
// not be open. False (user told) when it failed or when no table of this system could be
// read, and then the file is left as it was.
bool RepairDamagedFile(AppState& state, const std::filesystem::path& file);

// True when free room on the file's disk, less the file's size, is at least 1000 Kbytes;
// otherwise the user is told the figures.
bool EnoughRoomToRepair(AppState& state, const std::filesystem::path& file);

// Where the kept copy of a damaged file goes.
std::filesystem::path DamagedCopyName(const std::filesystem::path& file, const DateTime& now);

}  // namespace kvlr
