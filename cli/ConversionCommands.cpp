#include <charconv>
#include <iostream>

#include "Command.h"
#include "core/TimeText.h"
#include "standards/Conversion.h"

namespace kvlr::cli {
namespace {

// A whole number from `low` to `high`, else misuse.
int16_t SmallNumber(const Context& c, const std::string& option, int low, int high) {
  const std::string text = Required(c, option);
  int value = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc() || end != text.data() + text.size() || value < low || value > high) {
    throw UsageError(option + " expects a whole number from " + std::to_string(low) + " to " +
                     std::to_string(high));
  }
  return static_cast<int16_t>(value);
}

char Course(const Context& c, const std::string& option) {
  const std::string text = Required(c, option);
  if (text != "Y" && text != "S" && text != "L") {
    throw UsageError(option + " expects Y, S or L");
  }
  return text[0];
}

int Convert(Context& c) {
  // The fifties of a race must fit in a byte: 12774 is the longest distance the routine takes.
  const int16_t distance = SmallNumber(c, "--distance", 1, 12774);
  if (Required(c, "--stroke").empty())
    throw UsageError("--stroke expects 0 to 10 or a stroke name");
  const int16_t stroke = StrokeOption(c, 0, 10);
  const char from = Course(c, "--from");
  const char to = Course(c, "--to");
  if (c.args.positional.empty()) throw UsageError("expects at least one TIME");

  if (c.args.values.count("--db")) {
    if (!OpenAsAtStart(c, c.args.values.at("--db"))) return kRefused;
  } else {
    c.state.gCvtFactors = kSeedCvtFactors;
  }

  Row(c.env.out, {"Time", "Converted"});
  for (const auto& text : c.args.positional) {
    std::string typed = text;
    const int32_t score = TimeTextToScore(typed);
    // A failure is told on stderr and gives 0, as on the screens.
    Row(c.env.out,
        {text, FormatTime(ConvertTime(c.state, distance, score, stroke, from, to), false)});
  }
  return c.io.Told() ? kRefused : kOk;
}

}  // namespace

std::vector<Command> ConversionCommands() {
  return {
      {"convert",
       "kvlr convert --distance D --stroke S --from Y|S|L --to Y|S|L [--db PATH] TIME...",
       "Convert swim times between pool courses (Y yards, S short-course metres, L long-course "
       "metres) for the event of distance D and stroke S (Free, Back, Breast, Fly, IM or "
       "the code 1 to 5); a 500 yards "
       "time goes with D 500, a 400 metres one with D 400. Factors from the database PATH, "
       "else a new database's. Prints each TIME and its converted time.",
       {"--distance", "--stroke", "--from", "--to", "--db"},
       {},
       Convert},
  };
}

}  // namespace kvlr::cli
