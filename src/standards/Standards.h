#pragma once
// Time standards: the levels a swim reaches in the current standard.

#include <cstdint>
#include <string>
#include <string_view>

#include <vector>

#include "core/AppState.h"
#include "standards/StandardStore.h"

namespace kvlr {

// Opens the standard named in OPTIONS.Standard (state.gStandardName) and loads
// state.gDesignators; with no such standard the designators are emptied.
void OpenCurrentStandard(AppState& state);

// The level `score` reached in the current standard for the swim described; `designator`
// receives its number (1 to 12) or 0. "" when no level was reached or no standard is open.
// The levels are tried from designator 1 on; the first slow limit the swim meets decides,
// and a swim faster than that level's fast limit reaches nothing. A swim between two levels
// gives four blanks with designator 0. A standard with only fast limits gives the last level
// whose fast limit the swim isn't faster than and leaves `designator` as it was; so does a
// score of 0 (""). For a relay `age` is the Lo_Hi value, tested raw against the line's ages.
// Times are judged as handed over (no conversion). Failures are reported under
// "basUtil.GetStandard" and give "".
//
// With InstallStandardHooks in place the lookup runs on an in-memory copy of the opened
// standard, taken by OpenCurrentStandard and taken again after any write through gDb;
// without it each call queries the table of state.gStandardName.
std::string GetStandard(AppState& state, int16_t& designator, int32_t score, std::string_view sex,
                        int16_t distance, int16_t stroke, int16_t age, std::string_view course,
                        bool relay);

// The next level to aim for: of the levels of the current standard's line for the swimmer
// (individual events), the one whose cut (its slow limit, else its fast limit) is the
// slowest still faster than `score`; with `score` 0, the slowest cut of all. An empty level
// and 0 when there is none or no standard is open. Failures are reported as GetStandard's.
struct StandardCut {
  std::string level;
  int32_t score = 0;
};
StandardCut NextStandardCut(AppState& state, int32_t score, std::string_view sex,
                            int16_t distance, int16_t stroke, int16_t age, char course);

// Makes `name` the current standard: OPTIONS.Standard and state.gStandardName take it and
// the standard is opened again, so results judge against it at once. "" leaves no standard
// current. False (reported under "frmStan.MakeCurrent") when the store fails.
bool MakeCurrentStandard(AppState& state, std::string_view name);

// Sets state.hooks.load_standard: read OPTIONS.Standard into state.gStandardName, then
// OpenCurrentStandard. The hook keeps the in-memory copy GetStandard uses.
void InstallStandardHooks(AppState& state);

// Makes a standards table named `table_name`. False (reported under
// "basUtil.CreateStandardsTable") on failure.
bool CreateStandardsTable(AppState& state, std::string_view table_name);

// Adds or rewrites the STDNAME row of def.name. False (reported) on failure.
bool AddstandardDefinitionr(AppState& state, const StandardDefinition& def);

// The lines of the list cboStandards: one per STDNAME row.
struct StandardsComboLine {
  std::string std_file;
  std::string year;
  std::string descript;
};
struct StandardsCombo {
  std::vector<StandardsComboLine> lines;
  int selected = -1;  // the line of the current standard; -1 when it isn't listed
  static constexpr std::string_view kColumnWidths = "5;15";
};
// Empty (reported under "basUtil.LoadStandardsCombo") on failure.
StandardsCombo LoadStandardsCombo(AppState& state);

}  // namespace kvlr
