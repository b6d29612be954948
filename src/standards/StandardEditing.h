#pragma once
// What the standards screens decide, without widgets: the new-standard form (frmDesig), the
// one-line form (frmStanAdd) and the columns and cells of the grid (frmStan).

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"
#include "standards/StandardStore.h"

namespace kvlr {

// ---- frmDesig

// The message that stops saving a new standard, "" when it may be saved. Checks in order:
// a name, a name not in use (as a STDNAME row or a table), and unless `copy_from` is set,
// designators from box 1 on without a gap.
std::string CheckNewStandard(SQLite::Database& db, const StandardDefinition& def,
                             std::string_view copy_from);

// Saves a new standard as frmDesig does: the checks above (the message told), the question
// "Copy <from> into <name>" when copying (No saves nothing), the table, the STDNAME row,
// then the designators and lines of `copy_from`, telling the count copied. With no standard
// current the new one becomes current. True when the standard was made. Failures are reported under
// "frmDesig.cmdDone_Click".
bool SaveNewStandard(AppState& state, const StandardDefinition& def, std::string_view copy_from);

// ---- frmStanAdd

// The preset age ranges, by AgeGroupIndex row (0 to 23); row 11 is "Other".
struct AgeRangePreset {
  std::string text;
  int16_t lo = 0;
  int16_t hi = 0;
  bool other = false;
};
const std::vector<AgeRangePreset>& AgeRangePresets();
inline constexpr int kOtherAgeRange = 11;

struct StanAddForm {
  bool relay = false;
  std::optional<int16_t> lo_age;  // unset: no range chosen
  std::optional<int16_t> hi_age;
  int16_t distance = 0;  // 0: none chosen
  int16_t stroke = 0;
  std::string sex;  // "", "M", "F"
};

// The message that stops adding the line, "" when it may be added. The age check refuses
// a high age under the low one (a single age, as the presets have, is allowed).
std::string CheckStandardLine(SQLite::Database& db, std::string_view table,
                              const StanAddForm& form);

// Checks and adds the line with no times; the message is told. The new line's Std, or 0.
int32_t AddStandardLine(AppState& state, std::string_view table, const StanAddForm& form);

// The sex a grid filtered to one sex fixes, and the message saying so ("" for no filter).
std::string FilteredSexMessage(std::string_view sex_filter);

// ---- frmStan

// The course choice of the grid.
enum class GridCourse { kSCY, kSCM, kLCM, kAll };
std::string_view GridCourseText(GridCourse course);  // "SCY", "SCM", "LCM", "All"

struct StanColumn {
  std::string heading;
  int ordinal = 0;    // field of the standards table shown
  bool time = false;  // a limit (editable) rather than a key field
};

// "Gen", "Low Age", "High Age", "Distance", "Stroke", "I/R", then per course (Y, S, L for
// "All") and per named designator "Slower " + d (F limit) and "Faster " + d (S limit).
// With "All" each time heading ends in the course name.
std::vector<StanColumn> StanColumns(const StandardDefinition& def, GridCourse course);

// The sort a click on key column `column` (0 to 5) sets; the I/R column toggles between
// relays first and last, starting from `current`.
StandardSort SortForHeading(int column, StandardSort current);

// The value of a line at an ordinal of the table (key fields and limits).
int32_t LineLimit(const StandardLine& line, int ordinal);
void SetLineLimit(StandardLine& line, int ordinal, int32_t score);

// The text of a cell; times as "m:ss.hh", "" for no limit.
std::string CellText(const StandardLine& line, const StanColumn& column);

// A typed limit: "" is no limit (0); otherwise digits, ':' and '.' only. nullopt when the
// text isn't a time.
std::optional<int32_t> ParseLimitText(std::string_view text);

// The question of deleting one line.
std::string RemoveLineQuestion(const StandardLine& line);
// The question of removing a whole standard.
std::string RemoveStandardQuestion(std::string_view name);

}  // namespace kvlr
