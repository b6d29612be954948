#pragma once
// frmGraph's points: a swimmer's times in one event over time (GraphResults) and health
// measures over time (GraphHealth). Plain data, no drawing; GraphChart.h draws it.
//
// Values of times are hundredths (diving: points * 100). Dates are meet start dates or
// health record dates.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/Date.h"

namespace kvlr {

namespace graphtext {
inline constexpr std::string_view kTitle = "Graphing";
inline constexpr std::string_view kNotEnoughInRange =
    "Not enough results for selected date range.  Resetting to ALL results.";
inline constexpr std::string_view kNeedTwoResults =
    "You need at least 2 results to graph that Stroke/Distance combination";
inline constexpr std::string_view kNoHealthItem =
    "You mush select at least one Health item to graph.";
inline constexpr std::string_view kNeedTwoEntries = "You need at least 2 entries to graph.";
inline constexpr std::string_view kClickPoint = "Click on a Point to show details.";
inline constexpr std::string_view kClickBar = "Click on a Bar to show details.";
inline constexpr std::string_view kLegendHint =
    "You can move the legend by clicking on it and dragging it where you want it.  You can "
    "resize it by dragging the corners.";
inline constexpr std::string_view kRotateHint =
    "3D graphs can be rotated by holding down the Ctrl key then using the mouse.";
inline constexpr std::string_view kNeedsRefresh = "The Graph needs to be Refreshed";
inline constexpr std::string_view kMeetTypeHeading = "Meet Type: ";
inline constexpr std::string_view kRangeJoin = " to ";
inline constexpr std::string_view kResultsSeries = "Results";
}  // namespace graphtext

struct GraphPoint {
  int slot = 0;  // place along the axis: the number of the row among all rows drawn
  Date date;
  std::string label;  // the date as screens show it
  double value = 0;
  std::string tip;  // the meet's name, or the health record's comment
};

struct GraphSeries {
  std::string name;  // "Results", "Heart Rate", ...
  std::string unit;  // "Hr", "hours", "lbs", "" (times carry none)
  std::vector<GraphPoint> points;
};

// What a graph draws and what the user must be told about it, in order.
struct GraphData {
  std::vector<GraphSeries> series;  // empty when there is nothing to draw
  std::vector<std::string> messages;
  bool since_cleared = false;            // the start date was dropped for too few results
  bool times = false;                    // values are swim times (hundredths)
  bool points = false;                   // values are diving points * 100
  std::string title;                     // "Robin Lane  100 Free  Yards"
  std::string heading;                   // "Meet Type: ..." for times
  std::string range;                     // first date + " to " + last date
  std::vector<std::string> slot_labels;  // the date of each slot
  bool Drawable() const { return !series.empty(); }
};

struct GraphResultsRequest {
  int32_t athlete = 0;
  int16_t stroke = 1;
  int16_t distance = 100;
  std::string course;           // "Y", "S", "L"; "" for every course
  std::optional<Date> since;    // meets starting on or after it
  std::string meet_type;        // a CODE abbreviation; "" for every type
  bool all_relay_legs = false;  // non-lead legs too
};

// The swims of one event, oldest first; on one day prelims before finals, then by time.
// Results without a time never count. Fewer than two since the start date: the message and
// every date instead; fewer than two in all: the message and no series. `date_order` is
// the regional order the labels are written in. Store failures throw SQLite::Exception.
GraphData GraphResults(SQLite::Database& db, const GraphResultsRequest& request, int date_order);

struct GraphHealthRequest {
  int32_t athlete = 0;
  bool heart_rate = false;
  bool sleep = false;
  bool weight = false;
  bool wellness = false;
  std::optional<Date> from;  // either end may be open
  std::optional<Date> until;
};

// One series per chosen measure, in the order heart rate, sleep, weight, wellness, over the
// swimmer's health records in the range by date and start time. A record counts when one of
// the chosen measures is above 0; a series leaves out its own zero values. No measure
// chosen, or fewer than two records: the message and no series.
GraphData GraphHealth(SQLite::Database& db, const GraphHealthRequest& request, int date_order);

// An axis or tip text of a value: the time as "1:05.30" for times, points for diving,
// else the number with up to two decimals.
std::string GraphValueText(const GraphData& data, double value);

}  // namespace kvlr
