#pragma once
// Start parameters of new workouts and sets ("wkstartparam.mem" in the program home) and the
// categories lines refer to: energy levels, stroke and work categories, set descriptions.
// Check* return the message to show, "" when the entry passes.

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

namespace kvlr {

// The thirteen lines of the file as text, defaults in place of missing or blank lines.
struct StartParameters {
  std::array<std::string, 13> line = {"04:00 PM", "01:00", "0", "0", "8", "50", "00:40",
                                      "4",        "free",  "0", "0", "0", "0"};
};
std::filesystem::path StartParametersFile(const std::filesystem::path& program_home);
StartParameters ReadStartParameters(const std::filesystem::path& file);
// Written anew (through a temporary name).
void WriteStartParameters(const std::filesystem::path& file, const StartParameters& p);
// The window's checks: start time, rest, set interval (padded to five with '0').
std::string CheckStartParameters(const StartParameters& p);

// The values in the form callers need.
struct StartValues {
  std::string start_text;      // "04:00 PM"
  long start_minutes = 960;
  long rest_seconds = 60;
  std::string course = "Y";    // "Y" or "M"
  int16_t base_interval = 100; // 50 or 100
  int32_t reps = 8;
  int32_t dist = 50;
  int32_t interval = 40;       // seconds
  std::string desc = "free";
  int16_t circuit_reps = 4;
  bool disable_energy = false;
  bool disable_stroke = false;
};
StartValues gSetStartParmeters(const StartParameters& p);

// Energy levels: always nine rows, edited and cleared, never added.
struct EnergyRow {
  int16_t energy_no = 0;
  std::string abbr;
  std::string name;
  int16_t stress_index = 0;
};
std::vector<EnergyRow> ReadEnergyRows(SQLite::Database& db);
std::string CheckEnergyEntry(SQLite::Database& db, int16_t level, const std::string& code,
                             const std::string& name);
// Code trimmed and upper-cased; the index box read as VB reads numbers (empty gives 0).
void SaveEnergyEntry(SQLite::Database& db, int16_t level, const std::string& code,
                     const std::string& name, const std::string& index_text);
// The level stays with blank code and name and index 0; lines keep their set_energyno.
void ClearEnergyLevel(SQLite::Database& db, int16_t level);
// "Warning: This action will remove the  <code>  and clear..." and the question.
std::string RemoveCodeQuestion(const std::string& code);

enum class CategoryKind { kStroke, kWork, kDescription };
struct CategoryRow {
  std::string code;  // empty for set descriptions
  std::string name;
};
// In code order (descriptions in name order).
std::vector<CategoryRow> ReadCategories(SQLite::Database& db, CategoryKind kind);
// `old_code` empty when adding (for descriptions: the old description).
std::string CheckCategoryEntry(SQLite::Database& db, CategoryKind kind,
                               const std::string& old_code, const std::string& code,
                               const std::string& name);
// Adds or rewrites the row; a changed stroke or work code is followed by every line of
// `Workout` (and of `MODEL` when that table exists) holding exactly the old code.
void SaveCategoryEntry(SQLite::Database& db, CategoryKind kind, const std::string& old_code,
                       const std::string& code, const std::string& name);
// Deletes the row; a stroke or work code is cleared to one blank on the lines holding exactly it.
void RemoveCategory(SQLite::Database& db, CategoryKind kind, const std::string& code);

}  // namespace kvlr
