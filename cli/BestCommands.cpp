// kvlr best: a swimmer's best time of every individual event swum.

#include <optional>
#include <ostream>
#include <string>

#include <SQLiteCpp/Statement.h>

#include "Command.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "meets/BestTimes.h"

namespace kvlr::cli {
namespace {

int32_t AthleteOption(const Context& c) {
  const std::string text = Required(c, "--athlete");
  if (text.empty() || text.size() > 9 ||
      text.find_first_not_of("0123456789") != std::string::npos || std::stoi(text) == 0) {
    throw UsageError("--athlete expects a swimmer number, not \"" + text + "\"");
  }
  return std::stoi(text);
}

char CourseOption(const Context& c) {
  const std::string text = UCase(Required(c, "--course"));
  if (text.size() != 1 || CourseLetters.find(text[0]) == std::string_view::npos) {
    throw UsageError("--course expects Y, S or L");
  }
  return text[0];
}

std::optional<Date> SinceOption(const Context& c) {
  if (!c.args.values.count("--since")) return std::nullopt;
  const std::string& text = c.args.values.at("--since");
  std::optional<Date> date = Date::FromIso(text);
  if (!date || text.size() != 10) throw UsageError("--since expects a date YYYY-MM-DD");
  return date;
}

std::string MeetName(SQLite::Statement& q, int32_t meet) {
  q.reset();
  q.bind(1, meet);
  return q.executeStep() ? q.getColumn(0).getString() : "";
}

int Best(Context& c) {
  if (!c.args.positional.empty()) throw UsageError("takes no positional arguments");
  const std::string db = Required(c, "--db");
  const int32_t athlete = AthleteOption(c);
  const char course = CourseOption(c);
  const std::optional<Date> since = SinceOption(c);
  const std::string type = c.args.Value("--type");
  const bool fastest = c.args.Has("--fastest");

  if (!OpenAsAtStart(c, db)) return kRefused;
  SQLite::Database& database = *c.state.gDb;
  {
    SQLite::Statement known(database, "SELECT 1 FROM Athlete WHERE Athlete = ?");
    known.bind(1, athlete);
    if (!known.executeStep()) {
      c.io.Tell("No swimmer numbered " + std::to_string(athlete) + " in this database.");
      return kRefused;
    }
  }

  SQLite::Statement meet_name(database, "SELECT MName FROM MEET WHERE Meet = ?");
  BestTimeFinder finder(c.state);
  const Date from = since.value_or(c.state.gNullDate);

  Row(c.env.out, {"Distance", "Stroke", "Time", "Course", "Meet"});
  for (const auto [distance, stroke] : SwumEvents(database, athlete, course)) {
    const BestTimeRec rec = fastest ? finder.FastestText(athlete, distance, stroke, course,
                                                         since.has_value(), from, type)
                                    : finder.BestText(athlete, distance, stroke, course,
                                                      since.has_value(), from, type, true);
    Row(c.env.out, {std::to_string(distance), StrokeText(stroke, "I"), Trim(rec.text), rec.course,
                    rec.score > 0 ? MeetName(meet_name, rec.meet) : ""});
  }
  return kOk;
}

}  // namespace

std::vector<Command> BestCommands() {
  return {
      {"best",
       "kvlr best --db PATH --athlete N --course Y|S|L [--since YYYY-MM-DD] [--type T] "
       "[--fastest]",
       "List the best time of each individual event swum by swimmer N (the athlete key), "
       "converted to the course given and listed once under that course's distance (500, "
       "1000, 1650 in yards; 400, 800, 1500 in metres); an apostrophe marks a time swum in "
       "another course. "
       "--fastest: swims of that course only, unconverted; --since: meets from that date on; "
       "--type: meets of that type. Prints distance, stroke, time, course swum and meet.",
       {"--db", "--athlete", "--course", "--since", "--type"},
       {"--fastest"},
       Best},
  };
}

}  // namespace kvlr::cli
