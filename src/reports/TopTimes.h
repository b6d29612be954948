#pragma once
// The top times report (frmRptTopTimes): a swimmer's swims by event, fastest first, with a
// top-N limit, conversion to one course, improvement, goals, standards, comments and splits.
// Its options are ReportRequest::top plus the shared athlete, meet, course, since, until,
// meet_type, split_mode and standard. Kinds "top-times" and "top-times-meet" (one meet).

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"
#include "reports/ReportFrame.h"

namespace kvlr {

namespace tttxt {
inline constexpr std::string_view kScreenTitle = "Top Times Report";
inline constexpr std::string_view kBuilding = "Building Report.  Please Wait...";
inline constexpr std::string_view kNoResults = "No results to report.";
inline constexpr std::string_view kSelectCourse = "Please select a course.";
inline constexpr std::string_view kCourseHint =
    "HELP:  From the opening form, click on Set-up then Favorite-Filters"
    "     to establish a default Course.";
inline constexpr std::string_view kSelectSince = "Please select a Since Date.";
inline constexpr std::string_view kSelectUntil = "Please select an Until Date.";
// Asked by the screen before a top 1 of every swimmer.
inline constexpr std::string_view kFastestOnly =
    "Show only Fastest for Each Swimmer for each Event?";
inline constexpr std::string_view kTimesSince = "Times since: ";
inline constexpr std::string_view kTimesUntil = "Times until: ";
inline constexpr std::string_view kGoal = "GOAL";
}  // namespace tttxt

// The nine choices of "Course Options", in their order (SSOCourse index).
const std::vector<std::string>& TopTimesCourseOptions();
// The SSOCourse index of a request (-1 when no course is chosen), and the request's course
// fields set from an index.
int TopTimesCourseIndex(const ReportRequest& request);
void SetTopTimesCourse(ReportRequest& request, int index);

// The distance a swim is printed and ranked under once converted to `target`: going to
// yards only the 400 free becomes 500, 800 becomes 1000 and 1500 becomes 1650; going to
// metres every 500, 1000 and 1650 becomes 400, 800 and 1500. Unchanged without a target.
int TopTimesDistance(int distance, int stroke, char target);

// The stored distance of a diving board, the filter of "1 Meter", "3 Meter" or "Platform":
// 9991 to 9993. The words are taken trimmed and in any case, as are "1", "3" and "P"; 0
// for anything else.
int DivingDistance(std::string_view board);

// The improvement of each swim of one swimmer's event, swims given oldest first (times in
// hundredths, in the course they are compared in). Positive is faster. The baseline is
// `before` (the best before the since date) when given, else the first swim, which then
// shows none. kEachMeet: every swim against the baseline; kMeetToMeet: every swim against
// the one before it; kBest: only the fastest swim against the baseline.
std::vector<std::optional<int32_t>> Improvements(TopTimesOptions::Improve mode,
                                                 const std::vector<int32_t>& times,
                                                 std::optional<int32_t> before);

// An improvement as printed: a drop "-1.25", an added time "+0.40", none "".
std::string ImprovementText(std::optional<double> seconds);

// The fill (PrintTTReport with GetTopTimes and LoadReportTableTopTimes): RMEETI and RSPLITS
// of the report database and RPTWINCS. False when there is nothing to print or the run was
// refused (the user told). Store failures throw.
bool PrintTTReport(AppState& state, const ReportRequest& request);

// The pages of the filled tables.
ReportDoc LayoutTopTimes(AppState& state, const ReportRequest& request);

}  // namespace kvlr
