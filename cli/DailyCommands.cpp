// kvlr calendar, health, journal: the lists of the calendar, health and journal screens, and
// the swimmer's calendar as an iCalendar file.

#include <ostream>
#include <string>

#include <fmt/format.h>

#include "Command.h"
#include "athletes/CurrentAthlete.h"
#include "daily/Calendar.h"
#include "daily/CalendarIcs.h"
#include "daily/Health.h"
#include "daily/Journal.h"

namespace kvlr::cli {
namespace {

std::optional<Date> DateOption(const Context& c, const std::string& option) {
  if (!c.args.values.count(option)) return std::nullopt;
  const std::string& text = c.args.values.at(option);
  const auto date = Date::FromIso(text);
  if (!date || text.size() != 10) throw UsageError(option + " expects a date YYYY-MM-DD");
  return date;
}

// Opens the database and makes --athlete the current swimmer; false (told) when refused.
bool OpenForSwimmer(Context& c) {
  if (!c.args.positional.empty()) throw UsageError("takes no positional arguments");
  const std::string db = Required(c, "--db");
  const std::string text = Required(c, "--athlete");
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos) {
    throw UsageError("--athlete expects a number");
  }
  if (!OpenAsAtStart(c, db)) return false;
  if (!SetCurrentAthlete(c.state, std::stoi(text))) {
    c.io.Tell("No swimmer numbered " + text + " in this database.");
    return false;
  }
  return true;
}

std::string Times(const CalendarEvent& e) {
  return (e.start ? ClockText(*e.start) : "") + "-" + (e.end ? ClockText(*e.end) : "");
}

int Calendar(Context& c) {
  const bool month = c.args.values.count("--month") > 0;
  const bool ics = c.args.values.count("--ics") > 0;
  if (month == ics) throw UsageError("give one of --month YYYY-MM and --ics OUT");
  std::optional<Date> first;
  if (month) {
    first = Date::FromIso(c.args.values.at("--month") + "-01");
    if (!first || c.args.values.at("--month").size() != 7) {
      throw UsageError("--month expects YYYY-MM");
    }
  }
  if (!OpenForSwimmer(c)) return kRefused;
  if (ics) {
    const std::filesystem::path out = c.args.values.at("--ics");
    if (!OutputFileOk(c.state, out, kIcsOutput)) return kRefused;
    const int events = WriteCalendarIcs(c.state, c.state.gAthlete, out);
    c.env.out << fmt::format("{} events written to {}\n", events, out.string());
    return kOk;
  }
  // A month's first day plus 32 days lands in the next month.
  const Date next = AddDays(*first, 32);
  const Date last = AddDays(Date{next.year, next.month, 1}, -1);
  for (const auto& [date, events] : EventsByDay(*c.state.gDb, c.state.gAthlete, *first, last)) {
    std::vector<std::string> columns = {date.Iso()};
    for (const CalendarEvent& e : events) {
      std::string item = std::string(EventTypeText(e.type)) + " " + Times(e);
      if (!e.comment.empty()) item += " " + e.comment;
      columns.push_back(item);
    }
    Row(c.env.out, columns);
  }
  return kOk;
}

int Health(Context& c) {
  const auto since = DateOption(c, "--since");
  const auto until = DateOption(c, "--until");
  if (!OpenForSwimmer(c)) return kRefused;
  Row(c.env.out, {"Date", "Start Time", "Heart Rate", "Sleep", "Weight", "Wellness", "Comment"});
  for (const HealthRecord& r : ListHealth(*c.state.gDb, c.state.gAthlete, since, until)) {
    Row(c.env.out, {r.date.Iso(), r.start ? ClockText(*r.start) : "", fmt::format("{:g}", r.hr),
                    fmt::format("{:g}", r.sleep), fmt::format("{:g}", r.weight),
                    std::to_string(r.wellness), r.comment});
  }
  return kOk;
}

int Journal(Context& c) {
  if (!c.args.positional.empty()) throw UsageError("takes no positional arguments");
  const std::string db = Required(c, "--db");
  const auto since = DateOption(c, "--since");
  if (!OpenAsAtStart(c, db)) return kRefused;
  Row(c.env.out, {"Date", "Subject", "Comment"});
  for (const JournalEntry& e : ListJournal(*c.state.gDb, JournalOrder::kDateDescending, since)) {
    Row(c.env.out, {e.date ? e.date->Iso() : "", e.subject, e.comment});
  }
  return kOk;
}

}  // namespace

std::vector<Command> DailyCommands() {
  return {{"calendar",
           "kvlr calendar --db PATH --athlete N (--month YYYY-MM | --ics OUT)",
           "With --month, one line per day of that month with something on the swimmer's "
           "calendar: the date, then each event's type, start-end time and comment, as the day "
           "view lists them (every meet shows for every swimmer). With --ics, the swimmer's "
           "meets, workouts and other events written as an iCalendar file a phone calendar "
           "imports.",
           {"--db", "--athlete", "--month", "--ics"},
           {},
           Calendar},
          {"health",
           "kvlr health --db PATH --athlete N [--since YYYY-MM-DD] [--until YYYY-MM-DD]",
           "The swimmer's health records, as the health screen lists them: date, start time, "
           "heart rate, sleep, weight, wellness, comment.",
           {"--db", "--athlete", "--since", "--until"},
           {},
           Health},
          {"journal",
           "kvlr journal --db PATH [--since YYYY-MM-DD]",
           "The journal entries, newest first: date, subject, comment.",
           {"--db", "--since"},
           {},
           Journal}};
}

}  // namespace kvlr::cli
