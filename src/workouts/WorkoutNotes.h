#pragma once
// The notes of workouts: a text file beside the database ("<name>-WKNotes.txt") holding
// records of a key line "<#0000012#>" (then, when written by the editor, " date time") and
// text lines. Of two records of one wk_ptr the later counts. Lines end in CR LF; LF alone is
// read too.

#include <cstdint>
#include <filesystem>
#include <string>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

// "<#" + wk_ptr in seven digits + "#>".
std::string NoteKey(int32_t wk_ptr);
// The notes file of a database file; `model` names the model workouts' file.
std::filesystem::path WorkoutNotesFile(const std::filesystem::path& database, bool model = false);
// The same for the open database (state.gDatabaseName).
std::filesystem::path WorkoutNotesFile(const AppState& state, bool model = false);

// Creates the file with the key "<#0000000#>" and one blank line when it is missing.
void EnsureNotesFile(const std::filesystem::path& notes);

struct WorkoutNote {
  bool found = false;
  std::string key_line;  // the record's key line as written
  std::string text;      // its lines joined with CR LF; "" when not found
};
// The last record of `wk_ptr`; found false when none or the file is missing.
WorkoutNote ReadWorkoutNote(const std::filesystem::path& notes, int32_t wk_ptr);
// Appends a record "<key> YYYY-MM-DD HH:MM:SS" + CR LF + text + CR LF. False when it can't be
// written.
bool AppendWorkoutNote(const std::filesystem::path& notes, int32_t wk_ptr, const std::string& text,
                       const DateTime& now);

// Keeps only the last record of each workout still in `WkParam`, newest wk_ptr first, dropping
// records left with nothing but their key; the old file is kept as "-WKNotesOld.txt". A file
// is only replaced when something is left to write. False (reported) on failure.
bool CompactWorkoutNotes(AppState& state, bool model = false);

// Puts CompactWorkoutNotes into the repair's "Compacting Workout Notes..." step.
void InstallWorkoutHooks(AppState& state);

}  // namespace kvlr
