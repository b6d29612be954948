#pragma once
// frmPalmImport's work: the companion's seven files read from the handheld backup folder
// into an import database of their own, the rows matched to the open meet and saved with
// their splits in one transaction, then ranked. frmPalmDirectory's folder setting too.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

inline constexpr std::string_view kTimesPdb = "ENV080200_KVLTIMES.PDB";
inline constexpr std::string_view kControlPdb = "ENV080200_KVLCONTROL.PDB";

// `GetPalmDirectory`: PalmImportDir of OPTIONS, else "Palm" in the user's home folder.
std::filesystem::path GetPalmDirectory(AppState& state);
// The folder the import starts in: PalmImportDir, or when that is blank the default's
// "Backup" folder. Empty when the times file isn't there (the screen then offers
// frmPalmDirectory).
std::filesystem::path FindPalmFolder(AppState& state);
// frmPalmDirectory's "Set Directory": refuses a path over 60 characters or a folder without
// the times file, else keeps it in OPTIONS and says so. The user is told either way.
bool SetPalmDirectory(AppState& state, const std::filesystem::path& folder);

// One row of the grid: a timed swim of the companion with its swimmer and event.
struct PalmRow {
  std::string athlete_id, show_name, sex, event_num, age_group, distance, stroke, swim,
      swim_time, result_id, course, place, age, event_sex, stroke_code;
  bool chosen = false;  // "Imp"
  std::string state;    // what the import did: "Added", "Duplicate", "Event Mismatch", ...
  // DQStyle: a time text that is no time.
  bool NoTime() const;
};

// The companion's meet (LoadMeetMatch) as found in the open database.
struct PalmMeet {
  int32_t meet = 0;
  std::string name, date, course;  // as the file says
  std::string course_word;         // "Yards", "SCM", "LCM"
  std::optional<Date> start, age_up;
};

// The import database built from the seven files (in memory).
class PalmImportData {
 public:
  // Reads every file of the folder; damaged or missing files throw FormatError/FileError.
  explicit PalmImportData(const std::filesystem::path& folder);
  SQLite::Database& Db() { return db_; }
  // `GetPalmVersion`: the integer part of the first VersionNum; 0 when none.
  int Version();
  // The MEET file's first row: id, name, date, course; nullopt when the file is empty.
  std::optional<PalmMeet> FileMeet();
  // The grid's rows ordered by heading `column` (1 "Name" ... 8 "Time"; others by name).
  std::vector<PalmRow> Rows(int column = 1);

 private:
  SQLite::Database db_;
};

// The outcome of opening: the data and the meet, or nothing (the user was told).
struct PalmOpening {
  std::unique_ptr<PalmImportData> data;
  PalmMeet meet;
  std::vector<PalmRow> rows;
};
// Steps 2 to 8 of opening on `folder`.
std::optional<PalmOpening> OpenPalmImport(AppState& state, const std::filesystem::path& folder);

// `MatchPalmEvent`: the result-side event of the row in `meet` (found or added), with the
// words of a failed match in `problem` ("Event Mismatch"; "No Event" when the meet had no
// such entry event and one was made). 0 with a mismatch.
int32_t MatchPalmEvent(AppState& state, const PalmMeet& meet, const PalmRow& row,
                       std::string& problem);

struct PalmImportCounts {
  int added = 0;
  int updated = 0;
  int duplicates = 0;
  int skipped = 0;
};

// The OK button: each chosen row in order gets its state; results and splits are written
// in one transaction, then AddRank. A row that fails is reported and the loop goes on.
PalmImportCounts ImportPalmRows(AppState& state, PalmImportData& data, const PalmMeet& meet,
                                std::vector<PalmRow>& rows, bool replace);

// The status panel's words after an import.
std::string PalmImportStatus(const PalmImportCounts& counts);

}  // namespace kvlr
