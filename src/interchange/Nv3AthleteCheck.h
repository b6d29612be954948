#pragma once
// `NV3AthleteCheck`: before an NV3 import the file's swimmers (D1 lines) are matched with
// the family, so the user learns at once when the file holds nobody of theirs.

#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"
#include "interchange/ImportTypes.h"
#include "interchange/SwimmerMatch.h"

namespace kvlr {

inline constexpr std::string_view kNv3CheckingForAthletes = " Checking for Athletes... ";
// Problems named in the box of a D1 the check cannot read.
inline constexpr std::string_view kNv3ProblemDate = "Date";
inline constexpr std::string_view kNv3ProblemName = "Swimmer's Name";

// Walks the D1 lines of `lines` (a prepared .NV3/.TXT file) through `matcher`, the
// preferred name standing beside the first name. With no match the "no results" box, and
// the box of others of the family's name when there are any, go through state.io; that is
// not a failure, the user may still import. Returns false only for a D1 with no last name
// or a birth date that is no day: the two-part "error" box names the line and the check
// stops there. Status " Checking for Athletes... ", then " Athlete Check Successful ".
// `file_name` is named in that box.
bool NV3AthleteCheck(AppState& state, ImportMonitor& monitor, const std::vector<std::string>& lines,
                     SwimmerMatcher& matcher, std::string_view file_name);

// The two-part box of a line the check refused: the file, the line number from 1,
// columns 1-80 and 81 to the end between ">>" and "<<", then "Problem: " + `problem`.
std::string Nv3BadLineText(std::string_view file_name, size_t line_number, std::string_view line,
                           std::string_view problem);

}  // namespace kvlr
