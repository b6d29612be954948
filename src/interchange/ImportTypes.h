#pragma once
// What the import flows share with their screens and the command-line tool: the user's
// criteria, the statistics grid and the monitor through which a run reports and is stopped.

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Date.h"

namespace kvlr {

// "Import Criteria", read once at the start of a run (ReadImportOptions).
struct ImportCriteria {
  bool overlay_results = false;  // "Overlay duplicate results"
  bool import_splits = false;    // "Import Splits for Individual Results"
  bool lead_off = false;         // "Save Relay Lead Off as Result"; gates every F0 line
  bool all_family = false;       // "Import All Family Members in this File"
};

// Rows of the "Import Statistics" grid, in its order.
enum class ImportRow { kMeets = 0, kTeams, kIndividual, kRelay, kSplits };
inline constexpr std::array<std::string_view, 5> kImportRowNames = {
    "Meets", "Teams", "Individual Results", "Relay Results", "Splits"};
inline constexpr std::string_view kRecordsCheckedColumn = " Records Checked";
inline constexpr std::string_view kRecordsProcessedColumn = "Records Processed";

struct ImportCounts {
  std::array<int, 5> checked{};    // by the certification pass
  std::array<int, 5> processed{};  // by the import

  int& Checked(ImportRow row) { return checked[static_cast<size_t>(row)]; }
  int& Processed(ImportRow row) { return processed[static_cast<size_t>(row)]; }
  int Processed(ImportRow row) const { return processed[static_cast<size_t>(row)]; }
};

// The three ways the import screen opens.
enum class ImportMode { kImport, kReport, kOnline };

// The file panel of the import screen ("File Name:", "Created by:", "File Type:", "Meet
// Name:", "Start Date:").
struct FilePanel {
  std::string file_name, created_by, file_type, meet_name, start_date;
  std::optional<Date> start;     // the start date read, for output in ISO form
  bool valid_for_import = true;  // false: the state "No Valid for Import"
};

// A chosen file (never a zip), read and certified, ready for an import or a report.
struct ImportFile {
  std::filesystem::path path;
  std::string extension;           // upper-cased: ".CL2", ".SD3", ".NV3", ".PSN", ".TXT"
  std::vector<std::string> lines;  // up to the first Z0; .TXT lines already unscrambled
  FilePanel panel;
  ImportCounts counts;         // the " Records Checked" column
  bool ready = false;          // every check passed: Import / Print may go on
  bool has_relays = false;     // any E0 (the report adds the relay report)
  bool roster = false;         // an athlete roster (content "43"): swimmers' cards, no results
  bool no_end_record = false;  // a .cl2 or .sd3 whose lines ended without a Z0: it may be
                               // cut short (the user was warned, or said to go on)
  std::string status;          // the last status line shown
};

// What a run did.
struct ImportOutcome {
  bool ok = false;                // ran to its end
  bool cancelled = false;         // the user stopped it ("Import aborted by user.")
  bool not_all_imported = false;  // lines were refused: offer the exception report
  ImportCounts counts;
  std::string status;  // " Import Successful ", " No Data Imported ", " Import Incomplete "...
};

// How a long pass over a file reports to its screen. Every member has a quiet default so
// the tool and the tests override only what they watch.
class ImportMonitor {
 public:
  virtual ~ImportMonitor() = default;
  // The status panel (" Checking Import File ", " Import Successful ", ...).
  virtual void Status(std::string_view) {}
  // The progress bar, 0-100; -1 hides it.
  virtual void Percent(int) {}
  // The statistics grid changed.
  virtual void Counts(const ImportCounts&) {}
  // Asked between lines: true stops the pass (the screen has asked its question already).
  virtual bool Cancelled() { return false; }
};

}  // namespace kvlr
