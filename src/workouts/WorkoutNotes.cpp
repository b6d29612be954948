#include "workouts/WorkoutNotes.h"

#include <fstream>
#include <map>

#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/FileOps.h"
#include "core/VbRules.h"
#include "store/StoreTexts.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

bool IsKeyLine(const std::string& line) {
  return line.size() >= 11 && line.compare(0, 2, "<#") == 0 && line.compare(9, 2, "#>") == 0;
}

std::vector<std::string> ReadLines(const fs::path& file) {
  std::vector<std::string> lines;
  std::ifstream in(file, std::ios::binary);
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace

std::string NoteKey(int32_t wk_ptr) {
  return fmt::format("<#{:07}#>", wk_ptr);
}

fs::path WorkoutNotesFile(const fs::path& database, bool model) {
  return database.parent_path() /
         (database.stem().string() + (model ? "-WKmodelNotes.txt" : "-WKNotes.txt"));
}

fs::path WorkoutNotesFile(const AppState& state, bool model) {
  return WorkoutNotesFile(fs::path(state.gDatabaseName), model);
}

void EnsureNotesFile(const fs::path& notes) {
  std::error_code ec;
  if (fs::exists(notes, ec)) return;
  WriteFileAtomically(notes, NoteKey(0) + "\r\n \r\n");
}

WorkoutNote ReadWorkoutNote(const fs::path& notes, int32_t wk_ptr) {
  WorkoutNote note;
  const std::string key = NoteKey(wk_ptr);
  bool inside = false;
  std::string text;
  for (const auto& line : ReadLines(notes)) {
    if (IsKeyLine(line)) {
      inside = line.compare(0, 11, key) == 0;
      if (inside) {
        // A later record of the same workout replaces the earlier.
        note.found = true;
        note.key_line = line;
        note.text.clear();
        text.clear();
      }
      continue;
    }
    if (inside) {
      if (!note.text.empty() || !text.empty()) note.text += "\r\n";
      note.text += line;
      text = "x";
    }
  }
  return note;
}

bool AppendWorkoutNote(const fs::path& notes, int32_t wk_ptr, const std::string& text,
                       const DateTime& now) {
  std::string body = text;
  // Stored lines always end in CR LF whatever the box gave.
  std::string normal;
  for (size_t i = 0; i < body.size(); ++i) {
    if (body[i] == '\r') continue;
    if (body[i] == '\n') normal += "\r\n";
    else normal += body[i];
  }
  const std::string record = fmt::format("{} {} {:02}:{:02}:{:02}\r\n{}\r\n", NoteKey(wk_ptr),
                                         now.date.Iso(), now.hour, now.minute, now.second, normal);
  return AppendToFile(notes, record);
}

bool CompactWorkoutNotes(AppState& state, bool model) {
  if (!state.gDb || state.gDatabaseName.empty()) return true;
  return RunTrapped(state, "basWKUtil.CompactWorkoutNotes", [&] {
    const fs::path notes = WorkoutNotesFile(state, model);
    std::error_code ec;
    if (!fs::exists(notes, ec)) return true;
    std::map<int32_t, std::string> entries;
    int32_t current = -1;
    for (const auto& line : ReadLines(notes)) {
      if (IsKeyLine(line)) {
        current = static_cast<int32_t>(Val(line.substr(2, 7)));
        entries[current] = line + "\r\n";
      } else if (current >= 0) {
        entries[current] += line + "\r\n";
      }
    }
    std::string kept;
    SQLite::Statement q(*state.gDb,
                        model ? "SELECT wk_ptr FROM modelparam ORDER BY wk_ptr DESC"
                              : "SELECT wk_ptr FROM WkParam ORDER BY wk_ptr DESC");
    while (q.executeStep()) {
      auto it = entries.find(q.getColumn(0).getInt());
      if (it == entries.end()) continue;
      std::string entry = it->second;
      for (int i = 0; i < 4 && !entry.empty() && (entry.back() == '\n' || entry.back() == '\r'); ++i) {
        entry.pop_back();
        if (!entry.empty() && entry.back() == '\r') entry.pop_back();
      }
      entry = Trim(entry);
      if (entry.size() == 11) continue;  // only the key is left
      kept += entry + "\r\n";
    }
    if (kept.empty()) return true;
    const fs::path old = notes.parent_path() /
                         (fs::path(state.gDatabaseName).stem().string() +
                          (model ? "-WKmodelNotesOld.txt" : "-WKNotesOld.txt"));
    WriteFileAtomically(old, ReadWholeFile(notes));
    WriteFileAtomically(notes, kept);
    return true;
  }, false);
}

void InstallWorkoutHooks(AppState& state) {
  state.hooks.compact_workout_notes = [](AppState& s) { CompactWorkoutNotes(s); };
}

}  // namespace kvlr
