#pragma once
// The stored standards: their STDNAME rows (name and designators) and the lines of their
// tables. Store failures throw SQLite::Exception unless a routine says otherwise.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"

namespace kvlr {

inline constexpr int kDesignatorCount = 12;
// Ordinals of a standards table that hold limits: 3 to 74.
inline constexpr int kFirstLimitOrdinal = 3;
inline constexpr int kLimitOrdinalEnd = 75;

// The first ordinal of the fast or of the slow limits of a course letter; 0 for a letter
// other than 'Y', 'L', 'S' (the lookup then reads Std, Lo_Age, ... as limits).
int FastBase(char course);
int SlowBase(char course);

// The field name of an ordinal of a standards table ("Std", "F(0)", "S(35)", "I_R").
const std::string& StandardFieldName(int ordinal);

// One STDNAME row. Texts are cut to their field sizes when written (StdFile 8, Year 4,
// Descript 25, designators 4, long names 15).
struct StandardDefinition {
  std::string name;  // StdFile
  std::string year;
  std::string descript;
  std::array<std::string, kDesignatorCount> designators{};  // D1..D12
  std::array<std::string, kDesignatorCount> long_names{};   // D1Des..D12Des

  // Designators that have a name, from D1 up to the first blank one.
  int DesignatorsInUse() const;
};

// One line of a standard. Limits are hundredths; 0 stands for no limit (NULL read as 0).
struct StandardLine {
  int32_t std = 0;  // key; 0 for a line not stored yet
  int16_t lo_age = 0;
  int16_t hi_age = 0;
  std::array<int32_t, 36> fast{};  // F(0)..F(35): S metres, L metres, yards, 12 each
  std::array<int32_t, 36> slow{};  // S(0)..S(35), same order
  int16_t distance = 0;
  int16_t stroke = 0;
  std::string sex;  // "M", "F"
  std::string i_r;  // "I", "R"

  // The fast or slow limit of designator `index` (0 to 11) in a course 'Y', 'S' or 'L'.
  int32_t& Fast(char course, int index);
  int32_t& Slow(char course, int index);
};

// Which lines frmStan shows; unset members don't filter.
struct StandardFilter {
  std::string sex;  // "", "M" or "F"
  std::optional<int16_t> lo_age;
  std::optional<int16_t> hi_age;
  std::optional<int16_t> stroke;
  std::optional<int16_t> distance;
};

// The orders of frmStan, one per heading.
enum class StandardSort { kSex, kLowAge, kHighAge, kDistance, kStroke, kRelaysFirst, kRelaysLast };
// The "order by" text of a sort, as the grid heading states it.
std::string_view SortText(StandardSort sort);
inline constexpr StandardSort kStartSort = StandardSort::kLowAge;

// The table of a standard: ValidTableName(name).
std::string StandardTableName(std::string_view name);

// The STDNAME row of `name` (compared case-insensitively); nullopt when there is none.
std::optional<StandardDefinition> ReadStandardDefinition(SQLite::Database& db,
                                                         std::string_view name);
// Every STDNAME row, in file order.
std::vector<StandardDefinition> ReadStandardDefinitions(SQLite::Database& db);

// Adds the STDNAME row of def.name, or rewrites the one there.
void WriteStandardDefinition(SQLite::Database& db, const StandardDefinition& def);

// Lines of a standards table by filter and sort (only lines with Std > 0).
std::vector<StandardLine> ReadStandardLines(SQLite::Database& db, std::string_view table,
                                            const StandardFilter& filter, StandardSort sort);

// Adds a line; returns its Std key. Limits of 0 are stored as NULL.
int32_t InsertStandardLine(SQLite::Database& db, std::string_view table, const StandardLine& line);

// Writes one limit (ordinal 3 to 74) of the line `std`; 0 stores NULL. False when there is
// no such line or the ordinal holds no limit.
bool UpdateStandardLimit(SQLite::Database& db, std::string_view table, int32_t std, int ordinal,
                         int32_t score);

// True if the table has a line with the same ages, sex, stroke, distance and I_R.
bool StandardLineExists(SQLite::Database& db, std::string_view table, const StandardLine& key);

// Removes every line of the table.
void DeleteAllStandardLines(SQLite::Database& db, std::string_view table);

// Removes the line `std`; false when there was none.
bool DeleteStandardLine(SQLite::Database& db, std::string_view table, int32_t std);

// Drops the table of `name` (if present) and deletes its STDNAME row, in one transaction.
// When it was the current standard, no standard is current afterwards.
void RemoveStandard(AppState& state, std::string_view name);

// Copies the lines of the standard `from` into the table of `to`; returns the count.
int CopyStandardLines(SQLite::Database& db, std::string_view from, std::string_view to);

// Copies the designators and long names of `from`'s STDNAME row into `to`'s. "" when done,
// else the message naming the row that is missing.
std::string CopyDesignators(SQLite::Database& db, std::string_view from, std::string_view to);

}  // namespace kvlr
