#pragma once
// The import of a prepared file into the open database (`SDIFImport`, `NV3Import`, the
// online `PSNImport` and the text form), in one transaction, then `UpdateResultRankings`.

#include "core/AppState.h"
#include "interchange/ImportTypes.h"

namespace kvlr {

inline constexpr std::string_view kImportSuccessful = " Import Successful ";
inline constexpr std::string_view kNoDataImported = " No Data Imported ";
inline constexpr std::string_view kImportIncomplete = " Import Incomplete ";
inline constexpr std::string_view kImportAborted = "Import aborted by user.";
inline constexpr std::string_view kNotAllImportedAsk =
    "Not all data was imported.  Do you want to view the exception report?";
inline constexpr std::string_view kStopImportingAsk = "Do you want to stop importing this file?";
// Behind the number of swimmers a roster file gave their cards.
inline constexpr std::string_view kAthletesImported = " Athletes Imported";

// Behind the file name: a .cl2 or .sd3 whose lines end without a Z0.
inline constexpr std::string_view kNoEndRecord =
    " has no end record (Z0): the file may be incomplete, for example a download cut short.";
inline constexpr std::string_view kImportWhatItHoldsAsk = "Do you want to import what it holds?";
// Behind the file name: a file without a single byte.
inline constexpr std::string_view kEmptyMeetFile =
    " is empty: there is nothing in it to read. Download it again or ask for another copy.";

// Whether "Import All Family Members in this File" has anyone to choose: the open database
// holds two swimmers or more. Counted afresh, as swimmers are added while the program runs.
bool OffersAllFamily(AppState& state);

// Runs the import of `file` (ready) with `criteria`. Boxes through state.io; the caller
// offers the exception report (RPTISDIN rows) when outcome.not_all_imported.
ImportOutcome RunImportFile(AppState& state, ImportMonitor& monitor, const ImportFile& file,
                            const ImportCriteria& criteria);

}  // namespace kvlr
