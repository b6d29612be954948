#include "interchange/Nv3AthleteCheck.h"

#include <algorithm>

#include "core/VbRules.h"
#include "interchange/Nv3Records.h"
#include "interchange/Nv3Texts.h"

namespace kvlr {

std::string Nv3BadLineText(std::string_view file_name, size_t line_number, std::string_view line,
                           std::string_view problem) {
  const std::string_view first = line.substr(0, std::min<size_t>(80, line.size()));
  const std::string_view rest = line.size() > 80 ? line.substr(80) : std::string_view();
  std::string text = std::string(kNv3FileErrorPrefix) + std::string(file_name) + "\r\n";
  text += std::string(kNv3ErrorLinePrefix) + std::to_string(line_number) + "\r\n";
  text += std::string(kNv3ProblemLineTwoParts) + "\r\n";
  text += ">>" + std::string(first) + "<<\r\n";
  text += ">>" + std::string(rest) + "<<\r\n";
  if (!problem.empty()) text += "Problem: " + std::string(problem);
  return text;
}

bool NV3AthleteCheck(AppState& state, ImportMonitor& monitor, const std::vector<std::string>& lines,
                     SwimmerMatcher& matcher, std::string_view file_name) {
  monitor.Status(kNv3CheckingForAthletes);
  for (size_t i = 0; i < lines.size(); ++i) {
    const std::string& line = lines[i];
    if (line.compare(0, 2, "D1") != 0) continue;
    monitor.Percent(static_cast<int>(i * 100 / lines.size()));
    const Nv3Athlete athlete = LoadNV3AthleteRec(line, state.gDateOrder);
    std::string_view problem;
    if (athlete.last.empty()) problem = kNv3ProblemName;
    if (!athlete.birth) problem = kNv3ProblemDate;
    if (!problem.empty()) {
      monitor.Percent(-1);
      state.io->Message(Nv3BadLineText(file_name, i + 1, line, problem), box::kStop,
                        kNv3ErrorTitle);
      return false;
    }
    // The matcher looks for the family's first (or preferred) names inside this part.
    std::string first_part = athlete.first;
    if (!athlete.pref.empty()) first_part += " " + athlete.pref;
    matcher.Match(athlete.last, first_part, athlete.sex);
  }
  monitor.Percent(-1);
  if (!matcher.AnyMatch()) {
    state.io->Tell(NoResultsText(matcher));
    if (const std::string others = OthersFoundText(matcher); !others.empty()) {
      state.io->Tell(others);
    }
  }
  monitor.Status(kNv3AthleteCheckSuccessful);
  return true;
}

}  // namespace kvlr
