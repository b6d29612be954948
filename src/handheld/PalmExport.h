#pragma once
// frmPalm's work: the eleven staging tables filled for the chosen swimmers, then written as
// PDB files into the sync folder. Screens and the command-line tool call the same routines.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

struct PalmExportChoice {
  std::vector<int32_t> athletes;
  char course = 'Y';            // 'Y', 'S', 'L'; 0 when left blank
  std::optional<Date> since;    // best times since this date (inclusive)
  std::vector<int32_t> meets;   // result meets, at most five
  int32_t entry_meet = 0;       // 0: no entries
};

struct PalmMeetChoice {
  int32_t meet = 0;
  std::string name;
  std::optional<Date> start;
};

// lstMeets: meets of the course with results, not goal meets nor pseudo-meets, latest first.
std::vector<PalmMeetChoice> PalmResultMeets(SQLite::Database& db, char course);
// cboMeets: meets of the course that have entries, latest first.
std::vector<PalmMeetChoice> PalmEntryMeets(SQLite::Database& db, char course);

// What the screen says before it starts; nullopt when the choice may go. No swimmer or no
// course gives "" (the screen stays, with no words).
std::optional<std::string> CheckPalmExport(const PalmExportChoice& choice);

struct PalmExportSummary {
  int meets = 0;    // result meets exported
  int entries = 0;  // entry rows exported
  std::vector<std::filesystem::path> files;  // the PDB files written
};

// Fills the staging files in `staging` (made new), with the panel texts through
// state.io->Progress. Store failures throw.
PalmExportSummary StagePalmExport(AppState& state, const PalmExportChoice& choice,
                                  const std::filesystem::path& staging);

// The whole OK button: staging, the summary box, the PDB files in `sync_dir` (each through a
// temporary name), then the staging files removed. False (the user told which file) on a
// failure; nothing half-written stays in `sync_dir`.
bool RunPalmExport(AppState& state, const PalmExportChoice& choice,
                   const std::filesystem::path& sync_dir, PalmExportSummary* summary = nullptr);

// The summary box's text.
std::string PalmExportSummaryText(const PalmExportSummary& summary, const PalmExportChoice& choice);

}  // namespace kvlr
