#pragma once
// Online result files (.psn) of the results service: an 81-column header naming the
// swimmer, then result lines and splits lines. The readers here are pure (no store) so
// they can be fuzzed; CheckPSNHeader talks to the user; the import writes through an
// ImportSession.
//
// Result line columns (from 1): 1 stroke, 2-5 distance, 6-13 time text, 15 course, 16
// F_P, 17 "R" for a relay lead-off, 18-27 meet start and 29-38 meet end ("MM/DD/YYYY"),
// 40-69 meet name, 79-81 place (only in a line of 81 columns). A line whose columns 77-78
// are blank is a splits line: seven groups of eight columns of time text from column 1.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"
#include "interchange/SdifFields.h"

namespace kvlr {

class ImportSession;

inline constexpr std::string_view kPsnCreator = "Norvan, Ltd";
inline constexpr size_t kPsnHeaderColumns = 81;

// The words of the header check.
inline constexpr std::string_view kPsnCorrupted =
    "Error in import file.  The file is corrupted or was not produced by Norvan's CLUB "
    "STEWARD";
inline constexpr std::string_view kPsnNotProduced =
    "This import file was not produced by  Norvan's CLUB STEWARD";
inline constexpr std::string_view kPsnImportIsFor = "This file import is for: ";
inline constexpr std::string_view kPsnDatabaseLastName = "Your KVL database is for last name of ";
inline constexpr std::string_view kPsnLastNameOnly =
    "Import of results is only allowed when the last name match.";
inline constexpr std::string_view kPsnFirstNameWarning =
    "Warning: The first name in the import file does not match";
inline constexpr std::string_view kPsnFirstNameOfCurrent =
    "the first name of the current KVL swimmer.";
inline constexpr std::string_view kPsnCurrentSwimmer = "Current KVL swimmer: ";
inline constexpr std::string_view kPsnContinueAsk = "Do you want to continue?";
inline constexpr std::string_view kResultsProcessed = "Results processed: ";
// What the import screen's file panel shows for a .psn.
inline constexpr std::string_view kPsnCreatedBy = "Norvan's CLUB STEWARD II";
inline constexpr std::string_view kPsnFileType = "Individual Results";

struct PsnHeader {
  std::string first, last, preferred, middle;  // trimmed, as they stand
  std::string creator;                         // columns 62 to the end, trimmed
};

// The header's fields; nullopt when the line is not 81 columns.
std::optional<PsnHeader> ParsePsnHeader(std::string_view line);
// "First M Last", or with a preferred name "First 'Pref' Last" (blank parts left out).
std::string PsnSwimmerName(const PsnHeader& header);

// `CheckPSNHeader`: the header against the current swimmer (state.gAthleteLast, First,
// Pref). Every refusal is told through state.io; a different first name asks whether to go
// on. True when the import may go on.
bool CheckPSNHeader(AppState& state, std::string_view line);

struct PsnResult {
  int stroke = 0;
  int distance = 0;
  FileTime time;          // columns 6-13
  std::string course;     // column 15
  std::string f_p;        // column 16
  std::string i_r;        // "L" for a lead-off, else "I"
  FileDate start, end;    // blank when the columns are, `bad` when not a date
  std::string meet_name;  // trimmed
  int place = 0;          // 0 unless the line has 81 columns
};

inline constexpr int kPsnSplitGroups = 7;
inline constexpr int kPsnSplitWidth = 8;

struct PsnLine {
  enum class Kind { kResult, kSplits } kind = Kind::kResult;
  PsnResult result;                               // kResult
  std::array<int32_t, kPsnSplitGroups> splits{};  // kSplits: hundredths, 0 for none
};

// Reads one line after the header. Never fails on content: columns that aren't numbers
// read as 0, dates as FileDate's blank or bad. `date_order` is the user's regional order.
PsnLine ParsePsnLine(std::string_view line, int date_order);

// The SplitIndex step (in 25s) of a .psn result's splits: 4 (each 100) in long course,
// else 2 (each 50).
int PsnSplitStep(std::string_view course);

// `PSNImport`: every line after the header through ProcessPSNLine. Returns the number of
// results processed. Writes into the session's transaction; committing and
// UpdateResultRankings are the caller's. A store failure throws.
int PSNImport(ImportSession& session, const std::vector<std::string>& lines);
// The box after the import: "Results processed: " + count.
std::string ResultsProcessedText(int count);

// What ProcessPSNLine carries from line to line.
struct PsnProgress {
  int count = 0;            // results processed
  int32_t last_result = 0;  // the RESULT key splits lines go under; 0 before any
  std::string last_course;  // that result's course
  int split_lines = 0;      // splits lines seen since that result
};

// `ProcessPSNLine`: for a result line the meet (ProcessMeetRec) and SavePSNResult, which
// counts; a splits line writes SPLITS rows of the last result (none before one: passed
// over). False when the meet could not be set; the line is then passed over.
bool ProcessPSNLine(ImportSession& session, std::string_view line, PsnProgress& progress);

// `SavePSNResult`: the event (GetMeetEvent with Lo_Hi 99, the swimmer's sex, no number,
// I_R "I") and the RESULT row of the current swimmer: the row of the meet, event and F_P
// when there is one (the swimmer's own first), else a new row. Returns the row's key.
int32_t SavePSNResult(ImportSession& session, const PsnResult& result);

}  // namespace kvlr
