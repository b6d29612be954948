#include "reports/GraphData.h"

#include <cmath>

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "meets/ResultsQuery.h"

namespace kvlr {
namespace {

struct ResultRow {
  Date start;
  std::string meet_name;
  int32_t score = 0;
};

std::vector<ResultRow> QueryResults(SQLite::Database& db, const GraphResultsRequest& r,
                                    bool with_since) {
  std::string sql =
      "SELECT MEET.Start, MEET.MName, RESULT.SCORE FROM RESULT "
      "INNER JOIN MEET ON RESULT.MEET = MEET.Meet WHERE RESULT.ATHLETE = ?";
  sql += r.all_relay_legs ? " AND (RESULT.I_R = 'I' OR RESULT.I_R = 'L' OR RESULT.I_R = 'N')"
                          : " AND (RESULT.I_R = 'I' OR RESULT.I_R = 'L')";
  sql += " AND RESULT.STROKE = ? AND RESULT.DISTANCE = ?";
  if (!r.course.empty()) sql += " AND RESULT.COURSE = ?";
  if (!r.meet_type.empty()) sql += " AND MEET.TYPE = ?";
  sql += " AND RESULT.SCORE > 0";
  if (with_since) sql += " AND MEET.Start >= ?";
  // 'P' sorts after 'F': prelims come before the final of the same day.
  sql += " ORDER BY MEET.Start, RESULT.F_P DESC, RESULT.SCORE";

  SQLite::Statement q(db, sql);
  int at = 1;
  q.bind(at++, r.athlete);
  q.bind(at++, r.stroke);
  q.bind(at++, r.distance);
  if (!r.course.empty()) q.bind(at++, r.course);
  if (!r.meet_type.empty()) q.bind(at++, r.meet_type);
  if (with_since) q.bind(at++, r.since->Iso());

  std::vector<ResultRow> rows;
  while (q.executeStep()) {
    // A meet without a start date has no place on a time line.
    const auto start = DateOf(q.getColumn(0));
    if (!start) continue;
    rows.push_back({*start, Trim(TextOf(q.getColumn(1))), q.getColumn(2).getInt()});
  }
  return rows;
}

std::string SwimmerName(SQLite::Database& db, int32_t athlete) {
  SQLite::Statement q(db, "SELECT First, Last FROM ATHLETE WHERE Athlete = ?");
  q.bind(1, athlete);
  if (!q.executeStep()) return "";
  return Trim(Trim(TextOf(q.getColumn(0))) + " " + Trim(TextOf(q.getColumn(1))));
}

std::string EventText(int distance, int stroke) {
  if (distance >= 9991 && distance <= 9993) {
    return Trim(DistanceList().at(static_cast<size_t>(distance - 9980))) + " Diving";
  }
  return fmt::format("{} {}", distance, StrokeText(stroke, ""));
}

std::string MeetTypeWord(SQLite::Database& db, const std::string& type) {
  if (type.empty()) return "All";
  for (const auto& [abbr, desc] : MeetTypes(db)) {
    if (UCase(abbr) == UCase(type)) return Trim(abbr + " " + desc);
  }
  return type;
}

void SetRange(GraphData& data) {
  const auto& points = data.series.front().points;
  if (points.empty()) return;
  data.range = points.front().label + std::string(graphtext::kRangeJoin) + points.back().label;
}

}  // namespace

GraphData GraphResults(SQLite::Database& db, const GraphResultsRequest& request, int date_order) {
  GraphData data;
  data.times = request.stroke < 6;
  data.points = !data.times;
  std::vector<ResultRow> rows;
  if (request.since) {
    rows = QueryResults(db, request, true);
    if (rows.size() < 2) {
      data.messages.emplace_back(graphtext::kNotEnoughInRange);
      data.since_cleared = true;
    }
  }
  if (!request.since || data.since_cleared) rows = QueryResults(db, request, false);
  if (rows.size() < 2) {
    data.messages.emplace_back(graphtext::kNeedTwoResults);
    return data;
  }

  data.title =
      SwimmerName(db, request.athlete) + "  " + EventText(request.distance, request.stroke);
  if (!request.course.empty()) {
    const auto at = CourseLetters.find(UCase(request.course)[0]);
    if (at != std::string_view::npos) data.title += "  " + CourseList().at(at + 1);
  }
  data.heading = std::string(graphtext::kMeetTypeHeading) + MeetTypeWord(db, request.meet_type);
  GraphSeries series{std::string(graphtext::kResultsSeries), "", {}};
  series.points.reserve(rows.size());
  for (const auto& row : rows) {
    const int slot = static_cast<int>(series.points.size());
    series.points.push_back({slot, row.start, ShownDate(row.start, date_order),
                             static_cast<double>(row.score), row.meet_name});
    data.slot_labels.push_back(series.points.back().label);
  }
  data.series.push_back(std::move(series));
  SetRange(data);
  return data;
}

GraphData GraphHealth(SQLite::Database& db, const GraphHealthRequest& request, int date_order) {
  GraphData data;
  struct Measure {
    bool chosen;
    const char* column;
    const char* name;
    const char* unit;
  };
  const Measure measures[] = {{request.heart_rate, "tblHealth.HR", "Heart Rate", "Hr"},
                              {request.sleep, "tblHealth.SLEEP", "Sleep", "hours"},
                              {request.weight, "tblHealth.WEIGHT", "Weight", "lbs"},
                              {request.wellness, "tblHealth.WELLNESS", "Wellness", ""}};
  std::string any;
  for (const auto& m : measures) {
    if (m.chosen) any += std::string(any.empty() ? "" : " OR ") + m.column + " > 0";
  }
  if (any.empty()) {
    data.messages.emplace_back(graphtext::kNoHealthItem);
    return data;
  }

  std::string sql =
      "SELECT tblEvents.DATE, tblEvents.Comment, tblHealth.HR, tblHealth.SLEEP, "
      "tblHealth.WEIGHT, tblHealth.WELLNESS FROM tblHealth "
      "INNER JOIN tblEvents ON tblEvents.ID = tblHealth.ID "
      "WHERE tblHealth.ID > 0 AND tblHealth.Athlete = ? AND (" +
      any + ")";
  // A stored date may carry a time of day; the range compares days.
  if (request.from) sql += " AND substr(tblEvents.DATE, 1, 10) >= ?";
  if (request.until) sql += " AND substr(tblEvents.DATE, 1, 10) <= ?";
  sql += " ORDER BY tblEvents.DATE, tblEvents.StartTime";
  SQLite::Statement q(db, sql);
  int at = 1;
  q.bind(at++, request.athlete);
  if (request.from) q.bind(at++, request.from->Iso());
  if (request.until) q.bind(at++, request.until->Iso());

  std::vector<GraphSeries> series;
  for (const auto& m : measures) {
    if (m.chosen) series.push_back({m.name, m.unit, {}});
  }
  std::vector<std::string> labels;
  while (q.executeStep()) {
    const auto date = DateOf(q.getColumn(0));
    if (!date) continue;
    const int slot = static_cast<int>(labels.size());
    const std::string label = ShownDate(*date, date_order);
    labels.push_back(label);
    const std::string comment = Trim(TextOf(q.getColumn(1)));
    size_t s = 0;
    for (int i = 0; i < 4; ++i) {
      if (!measures[i].chosen) continue;
      const double value = q.getColumn(2 + i).isNull() ? 0 : q.getColumn(2 + i).getDouble();
      if (value > 0) series[s].points.push_back({slot, *date, label, value, comment});
      ++s;
    }
  }
  if (labels.size() < 2) {
    data.messages.emplace_back(graphtext::kNeedTwoEntries);
    return data;
  }
  data.title = SwimmerName(db, request.athlete) + "  Health";
  data.series = std::move(series);
  data.slot_labels = std::move(labels);
  std::optional<Date> first, last;
  for (const auto& s : data.series) {
    if (s.points.empty()) continue;
    if (!first || s.points.front().date < *first) first = s.points.front().date;
    if (!last || *last < s.points.back().date) last = s.points.back().date;
  }
  if (first) {
    data.range = ShownDate(*first, date_order) + std::string(graphtext::kRangeJoin) +
                 ShownDate(*last, date_order);
  }
  return data;
}

std::string GraphValueText(const GraphData& data, double value) {
  const auto whole = static_cast<int32_t>(std::lround(value));
  if (data.times) return FormatTime(whole, false);
  if (data.points) return FormatTime(-std::abs(whole), false);
  std::string text = fmt::format("{:.2f}", value);
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text;
}

}  // namespace kvlr
