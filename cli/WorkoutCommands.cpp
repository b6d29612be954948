// kvlr workouts, workout, import-workouts, export-workouts: the training log from the command line.

#include <unistd.h>

#include <ostream>

#include <fmt/format.h>

#include "Command.h"
#include "core/VbRules.h"
#include "interchange/UnZip.h"
#include "workouts/WorkoutArrays.h"
#include "workouts/WorkoutConvert.h"
#include "workouts/WorkoutExchange.h"
#include "workouts/WorkoutLines.h"
#include "workouts/WorkoutSetup.h"
#include "workouts/WorkoutStore.h"
#include "workouts/WorkoutTexts.h"

namespace kvlr::cli {
namespace {

Date DateOption(const Context& c, const std::string& option) {
  const std::string text = c.args.Value(option);
  if (text.empty()) return kNullDate;
  const auto date = Date::FromIso(text);
  if (!date) throw UsageError(option + " expects YYYY-MM-DD");
  return *date;
}

std::string ClockText(long minutes) {
  std::string t = Trim(gMinutesToClock(minutes));
  if (!t.empty() && t[0] == '0') t.erase(0, 1);
  return t;
}

int Workouts(Context& c) {
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  auto& db = *c.state.gDb;
  const std::string user = c.args.Value("--user", "0");
  const Date since = DateOption(c, "--since");
  const Date until = DateOption(c, "--until");
  const auto users = LoadWorkoutUsers(db);
  Row(c.env.out, {"Wk #", "Date", "Start Time", "User Name", "Distance", "Rest", "Stress"});
  for (const auto& h : ListWorkouts(db, user, WorkoutOrderClause(WorkoutSort::kDate, false))) {
    if ((since != kNullDate && h.wk_date < since) || (until != kNullDate && h.wk_date > until)) {
      continue;
    }
    Row(c.env.out, {std::to_string(h.wk_num), h.wk_date.Iso(), ClockText(h.start_time),
                    UserNameOf(users, h.group_abbr),
                    gFormatThousands(h.tot_yards) + (h.course_yls == "Y" ? " Yards" : " Meters"),
                    gSecondsToMMSS(h.rest_period), std::to_string(h.tot_stress)});
  }
  return kOk;
}

int WorkoutLinesCommand(Context& c) {
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  auto& db = *c.state.gDb;
  const std::string number = Required(c, "--number");
  const auto ptr = FindWorkoutByNumber(db, static_cast<int32_t>(Val(number)), false);
  const auto header = ptr ? ReadWorkout(db, *ptr) : std::nullopt;
  if (!header || std::to_string(header->wk_num) != Trim(number)) {
    c.io.Tell("No workout numbered " + number + ".");
    return kRefused;
  }
  const auto start = gSetStartParmeters(ReadStartParameters(StartParametersFile(c.state.home.Root())));
  WorkoutLinesResult result;
  if (!gGetWorkoutLines(c.state, header->wk_ptr,
                        ParamsOfWorkout(db, header->wk_ptr, start.base_interval),
                        gLoadWKEnergyArray(db), false, result)) {
    return kRefused;
  }
  Row(c.env.out, {"#", header->course_yls == "Y" ? "Yards" : "Meters", "Start Time", "Circuit",
                  "Set Description", "Energy", "Type", "Stroke",
                  fmt::format("Pace{}", start.base_interval)});
  if (result.lines.empty()) Row(c.env.out, {"", "", "", "", std::string(wk_text::kNoDetails)});
  for (const auto& row : result.lines) {
    Row(c.env.out, {row[0], row[1], row[2], row[3], row[4], row[5], row[6], row[7], row[8]});
  }
  return kOk;
}

int ImportWorkoutsCommand(Context& c) {
  const std::string db = Required(c, "--db");
  const std::filesystem::path file = OnePath(c);
  const std::string refused = RefuseSiblingBackup(file);
  if (!refused.empty()) {
    c.io.Tell(refused);
    return kRefused;
  }
  if (!OpenAsAtStart(c, db)) return kRefused;
  c.state.gAthlete = static_cast<int32_t>(Val(c.args.Value("--athlete", "0")));
  std::vector<std::filesystem::path> files = {file};
  const auto temp = c.state.home.TempDir() / fmt::format("wkimport-{}", getpid());
  if (HasExtension(file, ".zip")) {
    auto unzip = UnzipWorkoutExport(file, temp);
    if (!unzip.message.empty()) {
      c.io.Tell(unzip.message);
      return kRefused;
    }
    files = unzip.files;
  }
  int total = 0;
  bool ok = true;
  for (const auto& f : files) {
    const auto done = ImportWorkouts(c.state, f);
    total += done.imported;
    if (!done.ok) {
      c.io.Tell(done.message);
      ok = false;
    }
  }
  std::error_code ec;
  std::filesystem::remove_all(temp, ec);
  Row(c.env.out, {"Imported"});
  Row(c.env.out, {std::to_string(total)});
  return ok ? kOk : kRefused;
}

int ExportWorkoutsCommand(Context& c) {
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  const auto out = ExportWorkouts(c.state, Required(c, "--to"), DateOption(c, "--since"),
                                  DateOption(c, "--until"));
  if (out.workouts == 0) {
    c.io.Tell(wk_text::kNoWorkoutsToExport);
    return kRefused;
  }
  Row(c.env.out, {"Zip", "Workouts"});
  Row(c.env.out, {out.zip.string(), std::to_string(out.workouts)});
  return kOk;
}

}  // namespace

std::vector<Command> WorkoutReportCommands();  // WorkoutReportCommands.cpp

std::vector<Command> WorkoutCommands() {
  std::vector<Command> commands = {
      {"workouts",
       "kvlr workouts --db PATH [--user N] [--since DATE] [--until DATE]",
       "The workouts as the workout list shows them, by date: number, date, start, user, "
       "distance, rest and stress. --user takes an athlete number or --- for generic ones.",
       {"--db", "--user", "--since", "--until"},
       {},
       Workouts},
      {"workout",
       "kvlr workout --db PATH --number N",
       "The lines of workout N as its grid shows them, End row included: times, circuits, "
       "set texts, energy, type, stroke and pace.",
       {"--db", "--number"},
       {},
       WorkoutLinesCommand},
      {"import-workouts",
       "kvlr import-workouts FILE --db PATH [--athlete N]",
       "Reads a .wk3 workout file, or the .wk3 files of a WorkoutExport zip, into the database; "
       "the workouts belong to athlete N (generic without). Prints the count.",
       {"--db", "--athlete"},
       {},
       ImportWorkoutsCommand},
      {"export-workouts",
       "kvlr export-workouts --db PATH --to DIR [--since DATE] [--until DATE]",
       "Writes the workouts (of the dates given) as a .wk3 file zipped as "
       "<db>-WorkoutExport-<date>.zip in DIR; prints the zip and the count.",
       {"--db", "--to", "--since", "--until"},
       {},
       ExportWorkoutsCommand},
  };
  for (Command& c : WorkoutReportCommands()) commands.push_back(std::move(c));
  return commands;
}

}  // namespace kvlr::cli
