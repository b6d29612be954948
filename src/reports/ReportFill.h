#pragma once
// The shared steps of the fills: swimmer rows, result rows, splits and the top-N filter, all
// written into the report database (state.gReportDb). Store failures throw unless a routine
// says otherwise.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include "core/AppState.h"

namespace kvlr {

namespace rpttxt {
inline constexpr std::string_view kNoAthletes = "No Athletes to report";
inline constexpr std::string_view kRecruitingTitle = "Athlete Recruiting Report";
inline constexpr std::string_view kGoalsFor = "Goals for ";
inline constexpr std::string_view kNoGoals = "No Goals to Report.";
inline constexpr std::string_view kFilteringTimes = "Filtering Times.  Please Wait...";
inline constexpr std::string_view kExceptionTitle = "Import Exception Report";
}  // namespace rpttxt

// `text` cut to at most `size` characters, never inside a UTF-8 character.
std::string FitText(std::string_view text, size_t size);

// Binds a value read from another statement, keeping its type (Null stays Null).
void BindColumn(SQLite::Statement& q, int index, const SQLite::Column& value);

// "Last, First I", the NAME of RATHINFO and RMEETI.
std::string ReportName(std::string_view last, std::string_view first, std::string_view initial);

// Empties RATHINFO and fills it from ATHLETE and ATHINFO: one swimmer, or all (athlete 0).
// With `use_athletes_name` an empty mailing line takes the swimmer's name. The row count.
int GetAthletesForReports(AppState& state, int32_t athlete, bool use_athletes_name = true);

// One row of RMEETI or RMEETR: the fields the fills write, the rest stay empty.
struct RMeetRow {
  std::string meet, meet_start, meet_end, stroke, distance, last, first, initial, course;
  std::string score, f_p, ex, mtev, sex, i_r, meet_crs, meet_type, name, event_sex, comment;
  std::string misc;
  int64_t split = 0;  // RSPLITS key (the result) when splits were added, else 0
  int lo_hi = 0, age = 0, place = 0, int_stroke = 0, int_dist = 0, sort_order = 0;
  int32_t meet_id = 0, athlete = 0, convt = 0;
  std::optional<double> improv;  // seconds faster than the baseline; unset: Null
};
// Appends rows to RMEETI (or RMEETR) through one prepared statement; texts are cut to
// their fields.
class MeetRowWriter {
 public:
  explicit MeetRowWriter(SQLite::Database& report_db, bool relay = false);
  void Add(const RMeetRow& row);

 private:
  SQLite::Statement insert_;
};
// One row, for a caller that writes few.
void AddMeetRow(SQLite::Database& report_db, const RMeetRow& row, bool relay = false);

// Splits of `result` (SPLITS, by SplitIndex) into one RSPLITS row keyed by the result:
// mode 2 the cumulative splits in F(i); mode 3 also the laps in SR(i). In a yard or short
// course race longer than 50 mode 3 keeps the splits at each 50, so laps are 50s. At most
// 33 splits. False when the result has none (no row is written) or the mode is neither.
bool AddSplitsToReport(AppState& state, int64_t result, int distance, char course, int mode);

// The groups RemoveExtraTimes counts in.
enum class TopGroup { kSwimmer, kRelay, kEvent, kEventAndSex };
// Leaves at most `n` rows in each group of RMEETI (RMEETR for kRelay), fastest (CONVT) and
// then earliest first. Returns the number of rows removed.
int RemoveExtraTimes(AppState& state, TopGroup group, int n);

// OPTIONS RptUcase applied to a name: 0 as keyed, 1 upper case, 2 each word capitalised.
std::string ReportCase(int output_case, std::string_view text);
// OPTIONS RptUcase of the open database; 0 when unreadable.
int ReportCaseOption(AppState& state);

}  // namespace kvlr
