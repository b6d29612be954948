// kvlr results: the rows of the results browser of one swimmer for the filters given.

#include <ostream>
#include <string>

#include <SQLiteCpp/Statement.h>

#include "Command.h"
#include "athletes/CurrentAthlete.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "meets/Ranking.h"
#include "meets/ResultLookups.h"
#include "meets/ResultsQuery.h"
#include "standards/Standards.h"

namespace kvlr::cli {
namespace {

int32_t NumberOption(const Context& c, const std::string& option, bool required) {
  const std::string text = required ? Required(c, option) : c.args.Value(option);
  if (text.empty() && !required) return 0;
  if (text.empty() || text.size() > 9 ||
      text.find_first_not_of("0123456789") != std::string::npos) {
    throw UsageError(option + " expects a number, not \"" + text + "\"");
  }
  return std::stoi(text);
}

std::string CourseOption(const Context& c, const std::string& option) {
  const std::string text = UCase(c.args.Value(option));
  if (text.empty()) return "";
  if (text.size() != 1 || CourseLetters.find(text[0]) == std::string_view::npos) {
    throw UsageError(option + " expects Y, S or L");
  }
  return text;
}

int Results(Context& c) {
  if (!c.args.positional.empty()) throw UsageError("takes no positional arguments");
  const std::string db = Required(c, "--db");
  ResultFilter filter;
  filter.athlete = NumberOption(c, "--athlete", true);
  filter.meet = NumberOption(c, "--meet", false);
  filter.course = CourseOption(c, "--course");
  filter.stroke = StrokeOption(c, 1, 7);
  filter.distance = static_cast<int16_t>(NumberOption(c, "--distance", false));
  if (c.args.values.count("--since")) {
    const std::string& text = c.args.values.at("--since");
    const auto date = Date::FromIso(text);
    if (!date || text.size() != 10) throw UsageError("--since expects a date YYYY-MM-DD");
    filter.use_since = true;
    filter.since = *date;
  }
  filter.meet_type = c.args.Value("--type");
  if (c.args.values.count("--fastest")) {
    filter.fastest = true;
    filter.fastest_text = c.args.values.at("--fastest");
  }
  filter.show_non_lead = c.args.Has("--lead-off-legs");
  filter.show_goals = c.args.Has("--goals");
  const std::string convert = CourseOption(c, "--convert");

  if (!OpenAsAtStart(c, db)) return kRefused;
  if (!SetCurrentAthlete(c.state, filter.athlete)) {
    c.io.Tell("No swimmer numbered " + std::to_string(filter.athlete) + " in this database.");
    return kRefused;
  }
  ResultCellOptions options;
  options.show_standards = c.args.Has("--standards");
  options.standards_current_age = c.args.Has("--current-age");
  options.current_age = c.state.gAthleteAge;
  options.show_conversion = !convert.empty();
  if (!convert.empty()) options.convert_to = convert[0];
  options.y2l = c.state.gY2L;
  if (options.show_standards) {
    SQLite::Statement q(*c.state.gDb, "SELECT Standard FROM OPTIONS");
    c.state.gStandardName =
        q.executeStep() && !q.getColumn(0).isNull() ? Trim(q.getColumn(0).getString()) : "";
    OpenCurrentStandard(c.state);
  }

  const ResultsPlan plan =
      PlanResults(filter, c.state.gUseLeadOff, c.state.clock->Today(), c.state.gNullDate);
  if (plan.rank_first && !AddTRank(c.state, *plan.rank_first)) return kRefused;
  const auto records = RunResults(*c.state.gDb, plan);
  const auto cells = FillResultCells(records, options, CurrentStandardLookup(c.state),
                                     StateTimeConverter(c.state));
  auto headings = ResultHeadings(filter.sort);
  Row(c.env.out, {headings.begin(), headings.end()});
  for (size_t i = 0; i < cells.size(); ++i) {
    std::vector<std::string> columns;
    for (const auto& cell : cells[i]) columns.push_back(Trim(cell));
    columns[kColStartDate] = records[i].start ? records[i].start->Iso() : "";
    Row(c.env.out, columns);
  }
  return kOk;
}

}  // namespace

std::vector<Command> ResultCommands() {
  return {{"results",
           "kvlr results --db PATH --athlete N [--meet ID] [--course Y|S|L] [--stroke S] "
           "[--distance D] [--since YYYY-MM-DD] [--type T] [--fastest N] [--standards] "
           "[--current-age] [--convert Y|S|L] [--lead-off-legs] [--goals]",
           "A swimmer's results as the results browser lists them, filtered. --stroke takes "
           "1 to 7 or Free, Back, Breast, Fly, IM; --distance the distance as stored (9991 to "
           "9993 for the diving boards); --fastest N keeps the N fastest of each event (ranked "
           "over the since date and meet type when given); --standards fills the Standard "
           "column from the current standard (--current-age: at today's age); --convert fills "
           "Converted in that course; --lead-off-legs adds the non-lead relay legs (shown only "
           "when the lead-off option is on); --goals adds goals.",
           {"--db", "--athlete", "--meet", "--course", "--stroke", "--distance", "--since",
            "--type", "--fastest", "--convert"},
           {"--standards", "--current-age", "--lead-off-legs", "--goals"},
           Results}};
}

}  // namespace kvlr::cli
