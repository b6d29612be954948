// kvlr logbook, workout-stats: the two workout reports to PDF, with the options of their screens.

#include <memory>
#include <ostream>

#include <QGuiApplication>

#include <fmt/format.h>

#include "Command.h"
#include "core/VbRules.h"
#include "reports/ReportFrame.h"
#include "reports/ReportLayout.h"
#include "store/ReportDatabase.h"

namespace kvlr::cli {
namespace {

std::optional<Date> DateOf(const Context& c, const std::string& option) {
  const std::string text = c.args.Value(option);
  if (text.empty()) return std::nullopt;
  const auto date = Date::FromIso(text);
  if (!date) throw UsageError(option + " expects YYYY-MM-DD");
  return date;
}

int NumberOf(const Context& c, const std::string& option, int fallback) {
  const std::string text = c.args.Value(option);
  if (text.empty()) return fallback;
  if (text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos) {
    throw UsageError(option + " expects a number");
  }
  return std::stoi(text);
}

std::vector<std::string> Users(const Context& c) {
  std::vector<std::string> users;
  std::string list = c.args.Value("--users");
  for (size_t start = 0; !list.empty() && start <= list.size();) {
    const size_t comma = std::min(list.find(',', start), list.size());
    users.push_back(Trim(list.substr(start, comma - start)));
    start = comma + 1;
  }
  return users;
}

int RunToPdf(Context& c, const char* kind_name, const ReportRequest& request) {
  const std::string pdf = Required(c, "--pdf");
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  CheckReportTables(c.state);
  std::unique_ptr<QGuiApplication> app;
  static int argc = 3;
  static char arg0[] = "kvlr", arg1[] = "-platform", arg2[] = "offscreen";
  static char* argv[] = {arg0, arg1, arg2, nullptr};
  if (!QGuiApplication::instance()) app = std::make_unique<QGuiApplication>(argc, argv);
  const ReportCatalog catalog = BuiltInReports();
  const auto doc = RunReport(c.state, *catalog.Find(kind_name), request);
  if (!doc) return kRefused;
  const int pages = WriteReportPdf(*doc, pdf);
  if (pages == 0) {
    c.env.err << "Could not write " << pdf << "\n";
    return kRefused;
  }
  c.env.out << fmt::format("{} page{} written to {}\n", pages, pages == 1 ? "" : "s", pdf);
  return kOk;
}

int Logbook(Context& c) {
  ReportRequest r;
  WorkoutReportChoices& w = r.workouts;
  r.since = DateOf(c, "--since");
  r.until = DateOf(c, "--until");
  w.from_number = NumberOf(c, "--from", 0);
  w.to_number = NumberOf(c, "--to", 0);
  w.by_number = w.from_number > 0 || w.to_number > 0;
  w.energy = !c.args.Has("--no-energy");
  w.strokes = !c.args.Has("--no-strokes");
  w.times = !c.args.Has("--no-times");
  w.notes = !c.args.Has("--no-notes");
  w.stress = !c.args.Has("--no-stress");
  w.paces = !c.args.Has("--no-paces");
  w.analysis = c.args.Has("--analysis");
  w.one_per_page = c.args.Has("--page-each");
  w.columns = NumberOf(c, "--columns", 1);
  if (w.columns != 1 && w.columns != 2) throw UsageError("--columns expects 1 or 2");
  w.users = Users(c);
  w.selected_users = !w.users.empty();
  return RunToPdf(c, "logbook", r);
}

int Stats(Context& c) {
  ReportRequest r;
  WorkoutReportChoices& w = r.workouts;
  r.since = DateOf(c, "--since");
  r.until = DateOf(c, "--until");
  static const char* kTypes[] = {"energy", "stroke", "work", "distance", "stress"};
  const std::string type = c.args.Value("--type", "distance");
  w.stat_type = -1;
  for (int i = 0; i < 5; ++i) {
    if (type == kTypes[i]) w.stat_type = i;
  }
  if (w.stat_type < 0) throw UsageError("--type expects energy, stroke, work, distance or stress");
  w.meters = c.args.Has("--meters");
  w.minutes = c.args.Has("--minutes");
  w.cycle_days = NumberOf(c, "--days", 7);
  w.users = Users(c);
  w.selected_users = !w.users.empty();
  return RunToPdf(c, "workout-stats", r);
}

}  // namespace

std::vector<Command> WorkoutReportCommands() {
  return {
      {"logbook",
       "kvlr logbook --db PATH --pdf OUT [--since DATE] [--until DATE] [--from N] [--to N] "
       "[--users CODES] [--columns 1|2] [--page-each] [--analysis] [--no-energy] "
       "[--no-strokes] [--no-times] [--no-notes] [--no-stress] [--no-paces]",
       "Prints the logbook of the workouts of a date range (or of numbers --from..--to) to PDF, "
       "as Log Books does. --users takes athlete numbers (--- for generic) separated by commas.",
       {"--db", "--pdf", "--since", "--until", "--from", "--to", "--users", "--columns"},
       {"--page-each", "--analysis", "--no-energy", "--no-strokes", "--no-times", "--no-notes",
        "--no-stress", "--no-paces"},
       Logbook},
      {"workout-stats",
       "kvlr workout-stats --db PATH --pdf OUT --since DATE [--until DATE] "
       "[--type energy|stroke|work|distance|stress] [--days N] [--meters] [--minutes] "
       "[--users CODES]",
       "Prints the workout statistics to PDF: totals by cycles of N days (7 by default, at most "
       "53 cycles) from --since to --until (today by default).",
       {"--db", "--pdf", "--since", "--until", "--type", "--days", "--users"},
       {"--meters", "--minutes"},
       Stats},
  };
}

}  // namespace kvlr::cli
