#pragma once
// The export runs of the screens and the command-line tool: a meet's entries, or results
// and best times (also as proof of time), as a Commlink and an NV3 file (and, for results,
// the online form) packed in one zip in the chosen folder. The files are built in a private
// run folder and the zip reaches the folder by a rename only when complete: a run that fails
// leaves nothing there. Boxes and questions go through state.io.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"
#include "interchange/ExportTypes.h"

namespace kvlr {

struct EntryExportOptions {
  int32_t meet = 0;
  bool actual = false;  // "Use Unconverted Times": seeds stay in their own course
  std::filesystem::path folder;
};

// Every result that passes the filters, the best times (rank 1), or the best times as
// proof of time (NV3 file code "11").
enum class ResultExportKind { kResults, kBestTimes, kProof };

struct ResultExportOptions {
  ResultExportKind kind = ResultExportKind::kResults;
  int32_t athlete = 0;      // the swimmer, unless all_family
  bool all_family = false;  // "Include All Family Member's Results"
  bool splits = false;      // "Export Splits"
  bool lead_off = false;    // relay lead-offs (I_R "L") go with the swims
  std::optional<Date> since;
  int32_t meet = 0;  // one meet's; 0 every meet
  char course = 0;   // 'Y', 'S', 'L'; 0 any. Best times of one course go under one made-up meet.
  std::filesystem::path folder;
};

struct ExportOutcome {
  bool ok = false;
  std::filesystem::path zip;  // the file written
  int count = 0;              // entries or results written
};

// `ExportEntries` and `ExportResults`. Store failures are reported (ErrorHandler) and give
// ok == false; nothing is left in the folder then.
ExportOutcome ExportEntries(AppState& state, const EntryExportOptions& options);
ExportOutcome ExportResults(AppState& state, const ResultExportOptions& options);

// `GetFileName`: the first of prefix + 01..99 (or 001..999) + extension not in `folder`.
// When all are taken, the "Overwrite?" question: Yes gives the first name, No nullopt.
std::optional<std::filesystem::path> GetFileName(AppState& state,
                                                 const std::filesystem::path& folder,
                                                 std::string_view prefix,
                                                 std::string_view extension, bool two_digits);

// `ZipExportFiles`: `files` packed into `zip` through a temporary name beside it. Refuses
// (told, false) when the disk lacks room or `zip` exists and is no zip archive.
bool ZipExportFiles(AppState& state, const std::filesystem::path& zip,
                    const std::vector<std::filesystem::path>& files);

// The team record; nullopt when no team code is set up.
std::optional<ExportTeam> LoadExportTeam(SQLite::Database& db);

// A meet of the screens' lists.
struct ExportMeetChoice {
  int32_t meet = 0;
  std::string name;
  std::optional<Date> start;
};
// Meets with entries, latest first.
std::vector<ExportMeetChoice> MeetsWithEntries(SQLite::Database& db);
// Meets with results of `athlete` (every swimmer with 0), latest first.
std::vector<ExportMeetChoice> MeetsWithResults(SQLite::Database& db, int32_t athlete);

// Folders to offer: the favourite folders of Directory Preferences (export first) that
// exist, then the data folder; each once.
std::vector<std::filesystem::path> ExportFolders(AppState& state);

// An NV3 line in the scrambled online form; keys taken in turn by `n`.
std::string OnlineLine(const std::string& nv3_line, std::size_t n);

}  // namespace kvlr
