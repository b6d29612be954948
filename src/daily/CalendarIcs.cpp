#include "daily/CalendarIcs.h"

#include <memory>

#include <fmt/format.h>
#include <libical/ical.h>

#include <SQLiteCpp/Statement.h>

#include "core/FileOps.h"
#include "core/Platform.h"
#include "daily/Calendar.h"

namespace kvlr {

namespace {

struct CalendarDeleter {
  void operator()(icalcomponent* c) const { icalcomponent_free(c); }
};

icaltimetype LocalTime(const Date& date, int minutes) {
  icaltimetype t = icaltime_null_time();
  t.year = date.year;
  t.month = date.month;
  t.day = date.day;
  t.hour = minutes / 60;
  t.minute = minutes % 60;
  return t;
}

}  // namespace

std::string CalendarIcs(AppState& state, int32_t athlete) {
  std::unique_ptr<icalcomponent, CalendarDeleter> cal(icalcomponent_new_vcalendar());
  icalcomponent_add_property(cal.get(), icalproperty_new_version("2.0"));
  icalcomponent_add_property(cal.get(), icalproperty_new_prodid("-//KVL-R//Calendar//EN"));
  const DateTime now = state.clock->Now();
  icaltimetype stamp = LocalTime(now.date, now.hour * 60 + now.minute);
  stamp.second = now.second;
  stamp = icaltime_set_timezone(&stamp, icaltimezone_get_utc_timezone());

  const auto days = EventsByDay(*state.gDb, athlete, Date{100, 1, 1}, Date{9999, 12, 31});
  for (const auto& [date, events] : days) {
    for (const CalendarEvent& e : events) {
      const TimeSpan defaults = DefaultTimes(*state.gDb, athlete, e.type);
      const int start = e.start.value_or(defaults.start);
      int end = e.end.value_or(defaults.end);
      // The calendar repairs such rows when it shows them; the file needs a real length.
      if (end <= start) end = std::min(start + 60, 24 * 60 - 1);
      icalcomponent* ev = icalcomponent_new_vevent();
      const std::string uid = fmt::format("kvlr-event-{}-{}@kvl-r", e.id, date.Iso());
      icalcomponent_add_property(ev, icalproperty_new_uid(uid.c_str()));
      icalcomponent_add_property(ev, icalproperty_new_dtstamp(stamp));
      icalcomponent_add_property(ev, icalproperty_new_dtstart(LocalTime(date, start)));
      icalcomponent_add_property(ev, icalproperty_new_dtend(LocalTime(date, end)));
      std::string summary(EventTypeText(e.type));
      if (!e.comment.empty()) summary += ": " + e.comment;
      icalcomponent_add_property(ev, icalproperty_new_summary(summary.c_str()));
      icalcomponent_add_property(
          ev, icalproperty_new_categories(std::string(EventTypeText(e.type)).c_str()));
      icalcomponent_add_component(cal.get(), ev);
    }
  }
  char* text = icalcomponent_as_ical_string_r(cal.get());
  std::string out = text ? text : "";
  free(text);
  return out;
}

int WriteCalendarIcs(AppState& state, int32_t athlete, const std::filesystem::path& file) {
  const std::string text = CalendarIcs(state, athlete);
  int events = 0;
  for (size_t at = text.find("BEGIN:VEVENT"); at != std::string::npos;
       at = text.find("BEGIN:VEVENT", at + 1)) {
    ++events;
  }
  WriteFileAtomically(file, text);
  return events;
}

}  // namespace kvlr
