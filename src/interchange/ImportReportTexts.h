#pragma once
// The text forms the import report keeps of a file's values: distances and strokes in the
// words of the program's lists, dates in the user's order. Pure functions.

#include <string>
#include <string_view>

namespace kvlr {

inline constexpr std::string_view kDivingWord = "Diving";

// "1 Meter", "3 Meter", "Platform" for the boards (9991-9993), "" for 0, else the number.
std::string ReportDistText(int distance);
// kDivingWord for strokes 6 and 7, else StrokeText(stroke, i_r) ("Free Relay" for "R").
std::string ReportStrokeText(int stroke, std::string_view i_r);
// Eight date columns "mmddyyyy" as ShownDate gives them in `date_order`; "" for blank
// columns, the trimmed columns when they name no day (so the report shows what the file
// holds).
std::string ReportDateText(std::string_view mmddyyyy, int date_order);
// A time field for a report: the score as the grids print it (points for strokes 6 and
// up, the non-time word when there is no time), without padding; "" for nothing.
std::string ReportScoreText(int score, int stroke, int nt);

}  // namespace kvlr
