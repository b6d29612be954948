#pragma once
// The certification of an SDIF (.sd3) or Commlink (.cl2) file before it is imported or
// reported: the remaining record checks, the file panel (`ShowFileStatistics`) and the
// pass over all lines (`SDIFCheck`). Nothing here touches the database.
//
// Record checks take `mode` 0 for a Commlink file (trusted for its content once its check
// sums passed: every check but CheckA0 passes at once) and 1 for an SDIF file. On failure
// `problem` (may be null) receives the words of the "Problem: " line.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/UserIo.h"
#include "interchange/ImportTypes.h"
#include "interchange/SdifRecords.h"

namespace kvlr {

class SwimmerMatcher;

namespace certify_text {
inline constexpr std::string_view kCheckingImportFile = " Checking Import File ";
inline constexpr std::string_view kImportFileChecked = " Import File Checked - Click OK to ";
inline constexpr std::string_view kToImport = "Import ";
inline constexpr std::string_view kToFormatReport = "Format Report ";
inline constexpr std::string_view kRelayReportToo = "  A Relay Report will also be Printed.";
inline constexpr std::string_view kErrorChecking = "Error Checking Import File ";
inline constexpr std::string_view kCheckingCanceled = "Checking canceled by user.";

inline constexpr std::string_view kErrorTitle = "error";
inline constexpr std::string_view kDidNotPass =
    "This file did not pass the initial SDIF certification check that is required for "
    "importing.  ";
inline constexpr std::string_view kErrorOnLine = "The error is on line: ";
inline constexpr std::string_view kTwoParts = "The problem line is listed below in two parts: ";
inline constexpr std::string_view kProblem = "Problem: ";

inline constexpr std::string_view kImproperNonBlank = "Improper non-blank field encountered.";
inline constexpr std::string_view kMissingD3 =
    "Invalid SD3 file.  Missing required D3 records for Athletes.";
inline constexpr std::string_view kMismatchedB1 = "Mismatched B1 records";
inline constexpr std::string_view kMismatchedC1 = "Mismatched C1 records";
inline constexpr std::string_view kMismatchedSwimmers = "Mismatched Swimmer Count";
inline constexpr std::string_view kMismatchedD0 = "Mismatched D0 records";
inline constexpr std::string_view kMismatchedE0 = "Mismatched E0 records";
inline constexpr std::string_view kMismatchedG0 = "Mismatched G0 records";

// File kinds of the panel.
inline constexpr std::string_view kMeetResults = "Meet Results";
inline constexpr std::string_view kTop16 = "Top 16";
inline constexpr std::string_view kContentsUnknown = "Contents Unknown";
inline constexpr std::string_view kMeetEntries = "Meet Entries";
inline constexpr std::string_view kBestTimes = "Best Times";
inline constexpr std::string_view kWincsRoster = "WINCS Athlete Roster";
inline constexpr std::string_view kLedgerRoster = "Ledger Steward Athlete Roster";
inline constexpr std::string_view kRosterFile = "This file is an Athlete Roster file.";
inline constexpr std::string_view kUseRosterImport =
    "Use the Import Athlete Roster Menu Option for this file.";
inline constexpr std::string_view kNoValidForImport = "No Valid for Import";
}  // namespace certify_text

// What CheckA0 makes of the first line.
struct A0Check {
  bool ok = false;
  std::string problem;       // the words to show when !ok
  bool has_entries = false;  // content "41"/"44" let in by `allow_entries`
};

A0Check CheckA0(int mode, const SdifA0& rec, bool allow_entries);

// Content code (columns 152-153) as the status panel words it; "" when it has no words.
// `source` and `software_version` choose between the roster words.
std::string ContentCodeMeaning(std::string_view content_code, std::string_view source,
                               std::string_view software_version);

bool CheckB1(int mode, const SdifB1& rec, std::string* problem);
bool CheckC1(int mode, const SdifC1& rec, std::string* problem);
bool CheckD1(int mode, const SdifD1& rec, std::string* problem);
bool CheckD2(int mode, const SdifD2& rec, std::string* problem);
bool CheckF0(int mode, const SdifF0& rec, std::string* problem);
bool CheckG0(int mode, const SdifG0& rec, std::string* problem);
bool CheckJ0(int mode, const SdifJ0& rec, std::string* problem);
// A J1 line is read into the J2 buffer; its own buffer stays empty, so this always fails
// with "Required fields missing", in either mode: a file with J1 lines never passes.
bool CheckJ1(int mode, std::string* problem);
bool CheckJ2(int mode, const SdifJ2& rec, std::string* problem);

// The record counters of a pass (B1 and B2 count together).
struct SdifCounters {
  int b = 0, c1 = 0, d = 0, e0 = 0, g0 = 0;
};

// The counters against the file's own counts. `roster`: D1 lines were counted and are
// compared with the number of swimmers.
bool CheckZ0(int mode, const SdifZ0& rec, const SdifCounters& counters, bool roster,
             std::string* problem);

// True when the first line's content code marks an athlete roster ("43").
bool IsRosterFile(std::string_view first_line);

// `ShowFileStatistics`: the file panel of a .cl2/.sd3 from its A0 and first B1. A roster
// that no roster program made is shown in a box through `io` (may be null: no box) and
// marked not valid for import.
FilePanel ShowFileStatistics(const std::vector<std::string>& lines,
                             const std::filesystem::path& file, int date_order, UserIo* io);

// The failure box of a line: the two parts, and "Problem: " when `problem` isn't blank.
std::string CertificationFailureText(size_t line_number, std::string_view line,
                                     std::string_view problem);

struct SdifCheckResult {
  bool ok = false;
  bool cancelled = false;
  bool has_relays = false;      // any E0
  bool current_format = false;  // "V3" in columns 4-5, or "LS43" in 150-153
  bool has_entries = false;
  ImportCounts counts;  // the " Records Checked" column
  std::string problem;  // the problem of the failed line (or the cancel words)
  size_t bad_line = 0;  // from 1; 0 when none
  std::string status;   // the last status shown
};

// `SDIFCheck` over the lines of a file read by CheckImportFile. `extension` is the
// upper-cased one (".SD3" needs D3 lines). Outside `report_mode` the D0 lines go through
// `matcher` (may be null: no match is made nor told) and a file with nothing for the
// current swimmer is told in a box. Statuses, progress and cancel through `monitor`;
// boxes through `io`.
SdifCheckResult SDIFCheck(const std::vector<std::string>& lines, bool allow_entries,
                          std::string_view extension, bool report_mode, int date_order,
                          SwimmerMatcher* matcher, ImportMonitor& monitor, UserIo& io);

}  // namespace kvlr
