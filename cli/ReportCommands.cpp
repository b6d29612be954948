// kvlr report: any report kind of the frame, filled and laid out as its screen does, to PDF.

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

int32_t NumberOption(const Context& c, const std::string& option) {
  const std::string text = c.args.Value(option);
  if (text.empty()) return 0;
  if (text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos) {
    throw UsageError(option + " expects a number, not \"" + text + "\"");
  }
  return std::stoi(text);
}

std::optional<Date> DateOption(const Context& c, const std::string& option) {
  if (!c.args.values.count(option)) return std::nullopt;
  const std::string& text = c.args.values.at(option);
  std::optional<Date> date = Date::FromIso(text);
  if (!date || text.size() != 10) throw UsageError(option + " expects a date YYYY-MM-DD");
  return date;
}

ReportRequest RequestOf(const Context& c) {
  ReportRequest r;
  r.athlete = NumberOption(c, "--athlete");
  r.meet = NumberOption(c, "--meet");
  const std::string course = UCase(c.args.Value("--course"));
  if (!course.empty()) {
    if (course != "Y" && course != "S" && course != "L") {
      throw UsageError("--course expects Y, S or L");
    }
    r.course = course[0];
  }
  r.sex = UCase(c.args.Value("--sex"));
  if (!r.sex.empty() && r.sex != "M" && r.sex != "F") throw UsageError("--sex expects M or F");
  r.since = DateOption(c, "--since");
  r.until = DateOption(c, "--until");
  r.meet_type = c.args.Value("--type");
  r.split_mode = NumberOption(c, "--splits");
  if (r.split_mode != 0 && r.split_mode != 2 && r.split_mode != 3) {
    throw UsageError("--splits expects 2 (cumulative) or 3 (laps and cumulative)");
  }
  r.standard = c.args.Value("--standard");
  r.file = c.args.Value("--file");
  r.title = c.args.Value("--title");
  r.landscape = c.args.Has("--landscape");
  const std::string paper = UCase(c.args.Value("--paper"));
  if (paper == "LETTER") {
    r.paper = PaperChoice::kLetter;
  } else if (paper == "LEGAL") {
    r.paper = PaperChoice::kLegal;
  } else if (paper == "A4") {
    r.paper = PaperChoice::kA4;
  } else if (!paper.empty()) {
    throw UsageError("--paper expects letter, legal or a4");
  }
  return r;
}

int Report(Context& c) {
  if (c.args.positional.size() != 1) throw UsageError("expects one report KIND");
  const ReportCatalog catalog = BuiltInReports();
  const ReportKind* kind = catalog.Find(c.args.positional[0]);
  if (!kind) throw UsageError("unknown report kind " + c.args.positional[0]);
  const std::string pdf = Required(c, "--pdf");
  const ReportRequest request = RequestOf(c);
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  CheckReportTables(c.state);
  // Pages are laid out with fonts, which need a Qt application; no display is used.
  std::unique_ptr<QGuiApplication> app;
  static int argc = 3;
  static char arg0[] = "kvlr", arg1[] = "-platform", arg2[] = "offscreen";
  static char* argv[] = {arg0, arg1, arg2, nullptr};
  if (!QGuiApplication::instance()) app = std::make_unique<QGuiApplication>(argc, argv);
  const std::optional<ReportDoc> doc = RunReport(c.state, *kind, request);
  if (!doc) return kRefused;
  const int pages = WriteReportPdf(*doc, pdf);
  if (pages == 0) {
    c.env.err << "Could not write " << pdf << "\n";
    return kRefused;
  }
  c.env.out << fmt::format("{} page{} written to {}\n", pages, pages == 1 ? "" : "s", pdf);
  return kOk;
}

std::string Summary() {
  std::string text =
      "Print a report to a PDF file, filled and laid out as the program's report screens do. "
      "--athlete and --meet absent or 0 take every swimmer and meet; dates are YYYY-MM-DD on "
      "a meet's start; --type is a meet type; --splits 2 prints cumulative splits, 3 laps "
      "too; --paper defaults to the one of Report Preferences.\n\nKinds:\n";
  const ReportCatalog catalog = BuiltInReports();
  for (const ReportKind& k : catalog.Kinds()) {
    text += fmt::format("  {:<18} {}\n", k.name, k.summary);
  }
  return text;
}

}  // namespace

std::vector<Command> ReportCommands() {
  return {{"report",
           "kvlr report KIND --db PATH --pdf OUT [--athlete N] [--meet N] [--course Y|S|L] "
           "[--sex M|F] [--since DATE] [--until DATE] [--type T] [--splits 2|3] "
           "[--standard NAME] [--file F] [--title T] [--paper letter|legal|a4] [--landscape]",
           Summary(),
           {"--db", "--pdf", "--athlete", "--meet", "--course", "--sex", "--since", "--until",
            "--type", "--splits", "--standard", "--file", "--title", "--paper"},
           {"--landscape"},
           Report}};
}

}  // namespace kvlr::cli
