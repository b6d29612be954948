#include "daily/DailyReports.h"

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "daily/Calendar.h"

namespace kvlr {

namespace {

std::string Number(const SQLite::Column& c) {
  return c.isNull() ? "" : fmt::format("{:g}", c.getDouble());
}

bool FillCalendar(AppState& state, const ReportRequest& request) {
  const Date month = request.since.value_or(state.clock->Today());
  FillCalendarReport(state, request.athlete ? request.athlete : state.gAthlete, month.year,
                     month.month);
  return true;
}

ReportDoc LayoutCalendar(AppState& state, const ReportRequest& request) {
  ReportDoc doc = StartReportDoc(state, request);
  ReportSection s;
  s.columns = {{"Date", 14}, {"Start", 9}, {"Type", 9}, {"Comment", 50}};
  SQLite::Statement q(*state.gReportDb,
                      "SELECT DATE, Start, Type, Comment FROM CALENDAR ORDER BY rowid");
  std::string last_day;
  while (q.executeStep()) {
    const std::string day = TextOf(q.getColumn(0));
    const auto date = Date::FromIso(day);
    std::string shown;
    if (day != last_day && date) {
      static constexpr const char* kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
      shown = std::string(kDays[Weekday(*date)]) + " " + ShownDate(*date, state.gDateOrder);
    }
    last_day = day;
    s.Row({shown, TextOf(q.getColumn(1)), TextOf(q.getColumn(2)), TextOf(q.getColumn(3))});
  }
  doc.sections.push_back(std::move(s));
  return doc;
}

}  // namespace

ReportKind CalendarReportKind() {
  return {"calendar", "the calendar month of --athlete starting --since", FillCalendar,
          LayoutCalendar};
}

ReportKind HealthReportKind(const HealthReportOptions& options) {
  auto fill = [options](AppState& state, const ReportRequest&) {
    return FillHealthReport(state, options);
  };
  auto layout = [](AppState& state, const ReportRequest& request) {
    ReportDoc doc = StartReportDoc(state, request);
    ReportSection s;
    s.columns = {{"Date", 12},
                 {"Start Time", 10},
                 {"Heart Rate", 8, ReportColumn::Align::kRight},
                 {"Sleep", 7, ReportColumn::Align::kRight},
                 {"Weight", 7, ReportColumn::Align::kRight},
                 {"Wellness", 7, ReportColumn::Align::kRight},
                 {"Comment", 40}};
    SQLite::Statement q(*state.gReportDb,
                        "SELECT NAME, DATE, STARTTIME, HR, SLEEP, WEIGHT, WELLNESS, COMMENT "
                        "FROM HEALTH ORDER BY rowid");
    bool named = false;
    while (q.executeStep()) {
      if (!named) s.Group(TextOf(q.getColumn(0)));
      named = true;
      const auto date = DateOf(q.getColumn(1));
      s.Row({date ? ShownDate(*date, state.gDateOrder) : "", TextOf(q.getColumn(2)),
             Number(q.getColumn(3)), Number(q.getColumn(4)), Number(q.getColumn(5)),
             Number(q.getColumn(6)), TextOf(q.getColumn(7))});
    }
    doc.sections.push_back(std::move(s));
    return doc;
  };
  return {"health", "the health records of --athlete", fill, layout};
}

}  // namespace kvlr
