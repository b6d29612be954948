#pragma once
// Reading a chosen import file and the checks before anything is imported or reported:
// `CheckImportFile`, `ShowFileStatistics`, `SDIFCheck`, the NV3 headers and
// `NV3AthleteCheck`, the online header. Every box goes through state.io; statuses and
// progress through the monitor. Nothing here writes the database.

#include <filesystem>

#include "core/AppState.h"
#include "interchange/ImportTypes.h"

namespace kvlr {

// The whole opening check of one file by its extension, as the import screen runs it once
// a file is chosen: returns the file with ready == true when import (or report) may go on.
// `mode` kReport certifies without the current swimmer; kOnline is the .txt/.psn flow.
// A file above kMaxMeetFileBytes is refused unread. A .cl2 or .sd3 that ends without its
// Z0 may have been cut short: a report tells so and goes on (no_end_record set), an import
// asks whether to import what it holds and is not ready when the answer is No.
ImportFile PrepareImportFile(AppState& state, ImportMonitor& monitor,
                             const std::filesystem::path& file, ImportMode mode);

}  // namespace kvlr
