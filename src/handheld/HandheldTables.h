#pragma once
// The tables that travel to and from the handheld companion, declared as data: the eleven
// staging tables of an export (each alone in its staging file as `SFTable`) and the tables
// of the companion's own files. Every field is text of its size except CHOSEN (Boolean).

#include <string>
#include <string_view>
#include <vector>

#include "store/Schema.h"

namespace kvlr {

inline constexpr std::string_view kStagingTable = "SFTable";
// The companion's databases carry this in front of their names.
inline constexpr std::string_view kCompanionPrefix = "ENV080200_";

// One export file: its staging file, the PDB base name and the table's layout.
struct HandheldTable {
  std::string staging_file;  // "KVLATHLT.MDB"
  std::string base;          // "KVLATHLT"
  TableDef table;            // named SFTable
};

// Index names the order of the export (0 swimmers ... 10 age groups).
enum HandheldIndex {
  kAthleteFile = 0,
  kMeetFile,
  kTimesFile,
  kBestFile,
  kEventFile,
  kHistFile,
  kHistMeetFile,
  kHistSplitFile,
  kBestSplitFile,
  kBestMeetFile,
  kAgeGroupFile,
};

const std::vector<HandheldTable>& HandheldTables();

// A file the companion leaves in its backup folder, with the layout of its rows.
struct CompanionFile {
  std::string pdb;      // "ENV080200_KVLTIMES.pdb"
  std::string staging;  // "TIMES.MDB"
  TableDef table;       // named as the import database knows it
};

// The seven files, in the order the import reads them.
const std::vector<CompanionFile>& CompanionFiles();

}  // namespace kvlr
