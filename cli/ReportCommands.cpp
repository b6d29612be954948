// kvlr report: any report kind of the frame, filled and laid out as its screen does, to PDF.

#include <memory>
#include <ostream>

#include <QGuiApplication>

#include <fmt/format.h>

#include "Command.h"
#include "core/VbRules.h"
#include "reports/ReportFrame.h"
#include "reports/Memorized.h"
#include "reports/TopTimes.h"
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

// The options of the top times screen.
void TopTimesOf(const Context& c, ReportRequest& r) {
  TopTimesOptions& o = r.top;
  const std::string convert = UCase(c.args.Value("--convert"));
  if (!convert.empty()) {
    if (convert != "Y" && convert != "S" && convert != "L") {
      throw UsageError("--convert expects Y, S or L");
    }
    if (r.course) throw UsageError("--course and --convert exclude each other");
    o.convert_to = convert[0];
  }
  o.show_actual = c.args.Has("--actual");
  if (o.show_actual && !o.convert_to) throw UsageError("--actual goes with --convert");
  o.round = UCase(c.args.Value("--round"));
  if (!o.round.empty() && o.round != "F" && o.round != "P") {
    throw UsageError("--round expects F (finals) or P (prelims)");
  }
  o.stroke = StrokeOption(c, 1, 5);
  o.distance = NumberOption(c, "--distance");
  if (c.args.values.count("--diving")) {
    if (o.distance != 0) throw UsageError("--distance and --diving exclude each other");
    o.distance = DivingDistance(c.args.Value("--diving"));
    if (o.distance == 0) throw UsageError("--diving expects 1, 3 or platform");
  }
  o.include_nt = c.args.Has("--nt");
  if (c.args.Has("--lead-off")) o.lead_offs = true;
  o.standards = c.args.Has("--standards");
  o.current_age = c.args.Has("--current-age");
  o.chronological = c.args.Has("--chronological");
  const std::string improve = c.args.Value("--improve");
  using I = TopTimesOptions::Improve;
  if (improve == "each-meet") {
    o.improve = I::kEachMeet;
  } else if (improve == "meet-to-meet") {
    o.improve = I::kMeetToMeet;
  } else if (improve == "best") {
    o.improve = I::kBest;
  } else if (!improve.empty()) {
    throw UsageError("--improve expects each-meet, meet-to-meet or best");
  }
  o.baseline_before_since = c.args.Has("--baseline-before-since");
  o.top_n = NumberOption(c, "--top");
  o.goals = c.args.Has("--goals");
  o.comments = c.args.Has("--comments");
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
  TopTimesOf(c, r);
  return r;
}

int Report(Context& c) {
  const bool memorized = c.args.values.count("--memorized") > 0;
  if (c.args.positional.size() != (memorized ? 0u : 1u)) {
    throw UsageError(memorized ? "--memorized takes no KIND" : "expects one report KIND");
  }
  const ReportCatalog catalog = BuiltInReports();
  const ReportKind* kind = memorized ? nullptr : catalog.Find(c.args.positional[0]);
  if (!memorized && !kind) throw UsageError("unknown report kind " + c.args.positional[0]);
  const std::string pdf = Required(c, "--pdf");
  ReportRequest request = RequestOf(c);
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  CheckReportTables(c.state);
  if (memorized) {
    const std::string name = c.args.Value("--memorized");
    const std::optional<MemorizedReport> row = FindMemorized(*c.state.gDb, name);
    if (!row) {
      c.env.err << "There is no memorized report named " << name << ".\n";
      return kRefused;
    }
    kind = catalog.Find(MemorizedKind(row->type));
    if (!kind) {
      c.env.err << MemorizedTypeWord(row->type) << " reports are not available in this version yet.\n";
      return kRefused;
    }
    // The swimmer, meet and paper of the command; everything else as memorized.
    const ReportRequest given = request;
    request = row->request;
    request.athlete = given.athlete;
    request.meet = given.meet;
    request.paper = given.paper;
    request.landscape = request.landscape || given.landscape;
  }
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
      "too; --paper defaults to the one of Report Preferences. --memorized NAME runs a report "
      "memorized in the program (its swimmer and meet from --athlete and --meet).\n\n"
      "Top times: --course shows one course, --convert converts every course to one "
      "(--actual prints the times as swum); --round F or P; --diving 1, 3 or platform "
      "keeps the dives of that board, best points first; --nt includes DQs and NSs; "
      "--standards adds the levels of --standard (else the current one), at the age at the "
      "meet or with --current-age today's; --improve each-meet (against the baseline), "
      "meet-to-meet (against the swim before) or best (the best against the baseline); the "
      "baseline is the first swim, or with --baseline-before-since the best before --since; "
      "--top N keeps the N fastest of each event (0 all).\n\nKinds:\n";
  const ReportCatalog catalog = BuiltInReports();
  for (const ReportKind& k : catalog.Kinds()) {
    text += fmt::format("  {:<18} {}\n", k.name, k.summary);
  }
  return text;
}

}  // namespace

std::vector<Command> ReportCommands() {
  return {{"report",
           "kvlr report (KIND|--memorized NAME) --db PATH --pdf OUT [--athlete N] [--meet N] "
           "[--course Y|S|L] [--sex M|F] [--since DATE] [--until DATE] [--type T] "
           "[--splits 2|3] [--standard NAME] [--file F] [--title T] "
           "[--paper letter|legal|a4] [--landscape] [--convert Y|S|L] [--actual] "
           "[--round F|P] [--stroke S] [--distance D] [--diving 1|3|platform] [--nt] [--lead-off] [--standards] "
           "[--current-age] [--chronological] [--improve each-meet|meet-to-meet|best] "
           "[--baseline-before-since] [--top N] [--goals] [--comments]",
           Summary(),
           {"--db", "--pdf", "--athlete", "--meet", "--course", "--sex", "--since", "--until",
            "--type", "--splits", "--standard", "--file", "--title", "--paper", "--memorized",
            "--convert", "--round", "--stroke", "--distance", "--diving", "--improve", "--top"},
           {"--landscape", "--actual", "--nt", "--lead-off", "--standards", "--current-age",
            "--chronological", "--baseline-before-since", "--goals", "--comments"},
           Report}};
}

}  // namespace kvlr::cli
