#pragma once
// The rows of frmResults, the results browser of one swimmer: which RESULT rows the
// filters select, in which order, and the texts of their cells.
//
// Times are hundredths; diving scores are points * 100. Dates are meet start dates.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "core/Date.h"
#include "meets/Ranking.h"

namespace kvlr {

// The orders of the browser. Each is a fixed ORDER BY text; no user text goes into it.
enum class ResultSort {
  kStart,        // "MtEvent.Stroke,MtEvent.Distance,NT": the order the browser opens with
  kDistance,     // the "Distance" heading
  kStroke,       // the "Stroke" heading
  kStartOldest,  // the "Start Date" heading, oldest first
  kStartNewest,  // the "Start Date" heading again, newest first
  kMeetName,     // the "Meet" heading
  kLastEntered,  // "Last Entered First": newest row first
};

// The ORDER BY text of a sort (without the tail the query adds).
std::string_view SortText(ResultSort sort);

// The filters of the browser. Empty texts and zero numbers mean "every".
struct ResultFilter {
  int32_t athlete = 0;
  int32_t meet = 0;
  std::string course;      // "Y", "S", "L" or ""
  int16_t stroke = 0;      // 1 to 7
  int16_t distance = 0;    // as stored: 25 ... 1650, diving boards 9991 to 9993
  bool use_since = false;  // "Use Since Date"
  Date since = kNullDate;
  std::string meet_type;
  bool fastest = false;            // "Fastest"
  std::string fastest_text = "1";  // the box next to it, read with Val
  bool chronological = false;      // "Chronological"
  bool show_non_lead = false;      // "Show Non-Lead Relay Legs"
  bool show_goals = false;         // "Show Goals"
  ResultSort sort = ResultSort::kStart;
};

// The stored distance a distance list entry (DistanceList(), index 0 = none) filters on:
// 0 for index 0, the number of the text below index 11, index + 9980 for the diving boards.
int16_t DistanceFilterValue(int list_index);
// The course letter of a course text as the favourites and lists hold it ("Yards", "SCM",
// "LCM", or a text starting with Y, S or L); "" for anything else.
std::string CourseLetterOf(std::string_view course_text);

// A value bound into the query.
using BoundValue = std::variant<int64_t, std::string>;

// The query of a filter set, with what must run before it.
struct ResultsPlan {
  std::string sql;
  std::vector<BoundValue> binds;
  bool filtered = false;  // a since date or a meet type is in force
  int fastest_n = 0;      // 0 when "Fastest" isn't ticked
  // Set when "Fastest" runs over a filtered selection: TRANK must be ranked first
  // (AddTRank with this selection).
  std::optional<TRankSelection> rank_first;
};

// Builds the query of `filter`. `use_lead_off` is OPTIONS.UseLeadOff; the since date counts
// only when it is a real date before `today`; `null_date` stands for "no date" in the
// ranking selection.
ResultsPlan PlanResults(const ResultFilter& filter, bool use_lead_off, const Date& today,
                        const Date& null_date);

// One row of the browser: a RESULT row with its meet, event, swimmer and comment.
struct ResultRecord {
  int64_t result = 0;
  int32_t meet = 0;
  int32_t athlete = 0;
  std::string i_r;
  std::string f_p;
  std::string ex;
  std::string course;
  int32_t score = 0;
  int nt = 0;
  int16_t age = 0;
  int16_t distance = 0;
  int16_t stroke = 0;
  int16_t place = 0;
  int32_t split = 0;
  int32_t mt_event = 0;
  std::string mt_ev;  // event number and letter
  int lo_hi = 0;
  std::string meet_name;
  std::optional<Date> start;
  std::string comment;
  std::string sex;  // the swimmer's
};

// Runs a plan on `db`. Store failures throw SQLite::Exception.
std::vector<ResultRecord> RunResults(SQLite::Database& db, const ResultsPlan& plan);

// Columns of the browser grid, in order.
enum ResultColumn {
  kColDistance,
  kColStroke,
  kColTime,
  kColNt,
  kColIR,
  kColFP,
  kColStandard,
  kColConverted,
  kColEvent,
  kColEventAge,
  kColSwimmerAge,
  kColPlace,
  kColStartDate,
  kColMeet,
  kColComment,
  kResultColumnCount
};

// The headings; "Start Date" and "Meet" change with the sort.
std::array<std::string, kResultColumnCount> ResultHeadings(ResultSort sort);

// A click on a heading: the new sort (unchanged for a heading that doesn't sort).
// `untick_chronological` is set when the click must untick "Chronological".
ResultSort SortAfterHeadingClick(int column, ResultSort current, bool& untick_chronological);

// "Converted" target course: `chosen` ('L', 'S', 'Y') when a button is down, else by the
// swim's own course (Y to L; S to Y with y2l, else L; L to Y with y2l, else S); 0 when
// none applies.
char ConvertTarget(std::optional<char> chosen, std::string_view course, bool y2l);

// What the cells show beyond the stored values.
struct ResultCellOptions {
  bool show_standards = false;
  bool standards_current_age = false;
  int16_t current_age = 0;
  bool show_conversion = false;
  std::optional<char> convert_to;  // a button of the filter bar
  bool y2l = true;
  int date_order = 0;  // of the start date, as ShownDate takes it
};

// The level a swim reached at `age`; "" when none.
using StandardLookup = std::function<std::string(const ResultRecord&, int16_t age)>;
// A time converted from course `from` to `to` (hundredths).
using TimeConverter =
    std::function<int32_t(int16_t distance, int32_t score, int16_t stroke, char from, char to)>;

using ResultCells = std::array<std::string, kResultColumnCount>;

// The texts of every row. `standard` is asked only with show_standards, `convert` only with
// show_conversion; either may be empty, which leaves its column empty.
std::vector<ResultCells> FillResultCells(const std::vector<ResultRecord>& records,
                                         const ResultCellOptions& options,
                                         const StandardLookup& standard,
                                         const TimeConverter& convert);

// A meet of the browser's meet list.
struct MeetChoice {
  int32_t meet = 0;
  std::string text;  // medium start date and name
};
// The meets a browser may choose: every meet but goal meets and pseudo-meets, newest first,
// each named after its ShownDate in `date_order`.
std::vector<MeetChoice> BrowserMeets(SQLite::Database& db, int date_order);
// The meet types (CODE rows of type 3): abbreviation and description, by abbreviation.
std::vector<std::pair<std::string, std::string>> MeetTypes(SQLite::Database& db);

// The question of DeleteOneResult. `start_text` is the meet start as the user reads dates.
std::string DeleteResultQuestion(const ResultRecord& record, std::string_view start_text,
                                 std::string_view swimmer);

// Asks (title "Remove Result") and on Yes deletes the row with its splits, then re-ranks the
// swimmer's group of the row's stroke, distance and course. True when deleted; false on No
// or after a failure (reported as "frmResults.DeleteOneResult").
bool DeleteOneResult(AppState& state, const ResultRecord& record, std::string_view swimmer);

// The row to go to after row `deleted` of `count` rows (before deletion) went: the next, or
// the last when it was the last; -1 when none is left.
int RowAfterDelete(int deleted, int count);

}  // namespace kvlr
