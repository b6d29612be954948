// kvlr graph: a swimmer's times in one event drawn as the graph screen draws them, written
// as PNG or SVG without a display.

#include <cstdlib>
#include <memory>
#include <ostream>
#include <string>

#include <QApplication>

#include "Command.h"
#include "athletes/CurrentAthlete.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "reports/GraphChart.h"
#include "reports/GraphData.h"

namespace kvlr::cli {
namespace {

constexpr QSize kImageSize{1000, 600};

int32_t Number(const Context& c, const std::string& option) {
  const std::string text = Required(c, option);
  if (text.empty() || text.size() > 9 ||
      text.find_first_not_of("0123456789") != std::string::npos) {
    throw UsageError(option + " expects a number, not \"" + text + "\"");
  }
  return std::stoi(text);
}

// Qt Charts draws with graphics items, which need a QApplication; other commands never
// start one.
std::unique_ptr<QApplication> EnsureApplication() {
  if (QCoreApplication::instance()) {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
      throw std::runtime_error("Graphs need a QApplication");
    }
    return nullptr;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "kvlr";
  static char* argv[] = {name, nullptr};
  return std::make_unique<QApplication>(argc, argv);
}

int Graph(Context& c) {
  if (!c.args.positional.empty()) throw UsageError("takes no positional arguments");
  const std::string db = Required(c, "--db");
  GraphResultsRequest request;
  request.athlete = Number(c, "--athlete");
  request.stroke = StrokeOption(c, 1, 7);
  if (request.stroke == 0) throw UsageError("--stroke is required");
  request.distance = static_cast<int16_t>(Number(c, "--distance"));
  request.course = UCase(c.args.Value("--course"));
  if (!request.course.empty() &&
      (request.course.size() != 1 || CourseLetters.find(request.course[0]) == std::string::npos)) {
    throw UsageError("--course expects Y, S or L");
  }
  if (c.args.values.count("--since")) {
    const std::string& text = c.args.values.at("--since");
    request.since = Date::FromIso(text);
    if (!request.since || text.size() != 10) throw UsageError("--since expects a date YYYY-MM-DD");
  }
  request.meet_type = c.args.Value("--type");
  const bool png = c.args.values.count("--png") > 0;
  const bool svg = c.args.values.count("--svg") > 0;
  if (png == svg) throw UsageError("give one of --png OUT and --svg OUT");
  const std::string out = c.args.Value(png ? "--png" : "--svg");
  GraphLook look;
  look.kind = c.args.Has("--bar") ? GraphKind::kBar : GraphKind::kLine;

  if (!OpenAsAtStart(c, db)) return kRefused;
  if (!SetCurrentAthlete(c.state, request.athlete)) {
    c.io.Tell("No swimmer numbered " + std::to_string(request.athlete) + " in this database.");
    return kRefused;
  }
  const GraphData data = GraphResults(*c.state.gDb, request, c.state.gDateOrder);
  for (const auto& message : data.messages) c.io.Tell(message);
  if (!data.Drawable()) return kRefused;

  const auto app = EnsureApplication();
  std::string error;
  if (!WriteGraph(data, look, kImageSize, out, png ? GraphFormat::kPng : GraphFormat::kSvg,
                  &error)) {
    c.io.Tell(error);
    return kRefused;
  }
  Row(c.env.out, {"Date", "Meet", "Time"});
  for (const auto& p : data.series.front().points) {
    Row(c.env.out, {p.date.Iso(), p.tip, GraphValueText(data, p.value)});
  }
  return kOk;
}

}  // namespace

std::vector<Command> GraphCommands() {
  return {{"graph",
           "kvlr graph --db PATH --athlete N --stroke S --distance D [--course Y|S|L] "
           "[--since YYYY-MM-DD] [--type T] [--bar] (--png OUT | --svg OUT)",
           "Draw a swimmer's times in one event over time into a PNG or SVG picture. The "
           "picture is 1000 by 600, a line or with --bar bars, drawn as the graph screen draws "
           "it; the swims drawn are listed. --stroke takes 1 to 7 or Free, Back, Breast, Fly, IM; "
           "--since keeps meets "
           "from that date (all of them when fewer than 2 swims are left); --type keeps one "
           "meet type. Needs no display.",
           {"--db", "--athlete", "--stroke", "--distance", "--course", "--since", "--type", "--png",
            "--svg"},
           {"--bar"},
           Graph}};
}

}  // namespace kvlr::cli
