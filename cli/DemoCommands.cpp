// kvlr demo: a database of a made-up family, built through the program's own routines.

#include <chrono>
#include <ostream>

#include <fmt/format.h>

#include "Command.h"
#include "demo/DemoBuilder.h"

namespace kvlr::cli {
namespace {

int Demo(Context& c) {
  const auto began = std::chrono::steady_clock::now();
  demo::DemoSummary made;
  try {
    made = demo::BuildDemo(c.state, OnePath(c));
  } catch (const demo::DemoError& e) {
    c.env.err << e.what() << "\n";
    return kRefused;
  }
  const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now() - began);
  Row(c.env.out, {"Item", "Value"});
  Row(c.env.out, {"Database", made.database.string()});
  Row(c.env.out, {"Meet files", made.meets_folder.string()});
  Row(c.env.out, {"Backup", made.backup.string()});
  for (const auto& [item, n] : {std::pair{"Swimmers", made.swimmers},
                                {"Meets", made.meets},
                                {"Results", made.results},
                                {"Relay legs", made.relay_legs},
                                {"Splits", made.splits},
                                {"Goals", made.goals},
                                {"Favorite filters", made.favorites},
                                {"Workouts", made.workouts},
                                {"Calendar events", made.events},
                                {"Health records", made.health},
                                {"Journal entries", made.journal}}) {
    Row(c.env.out, {item, std::to_string(n)});
  }
  Row(c.env.out, {"Standard", demo::kStandardName});
  Row(c.env.out, {"Seconds", fmt::format("{:.2f}", static_cast<double>(ms.count()) / 1000)});
  return kOk;
}

}  // namespace

std::vector<Command> DemoCommands() {
  return {{"demo",
           "kvlr demo PATH",
           "Build a demo database PATH (a new NAME.mdb) of a made-up family: two swimmers, a "
           "season and a half of meets in yards, short-course and long-course metres brought "
           "in by the import from meet files (.cl2, .sd3, .nv3) written to NAME-meets beside "
           "it, relay legs, splits, a current time standard, goals, favourite filters, four "
           "weeks of workouts, calendar events, health records, journal entries and a "
           "backup in NAME-backups. The same day always gives the same demo.",
           {},
           {},
           Demo}};
}

}  // namespace kvlr::cli
