#include "web/SwimmerPage.h"

#include "core/DateText.h"
#include "core/FileOps.h"
#include "home/HomePage.h"
#include "home/HomeTables.h"
#include "web/KvlrWeb.h"

namespace kvlr {

std::filesystem::path SwimmerPageFile(const AppState& state) {
  std::string first = state.gAthleteFirst.empty() ? "swimmer" : state.gAthleteFirst;
  for (char& c : first) {
    if (c == '/' || c == '\\' || c == ' ') c = '_';
  }
  return state.gDataDir / (state.gShortDbName + "-" + first + "-times.html");
}

std::string SwimmerPage(AppState& state, char target) {
  const Date today = state.clock->Today();
  const HomePage page = FillHomePage(state, today, target);
  const int order = state.gDateOrder;
  const auto tables =
      HomeTables(page, [order](const Date& date) { return ShownDate(date, order); });
  std::string note = "As of " + ShownDate(today, order);
  if (!state.gStandardName.empty()) note += ", standard " + state.gStandardName;
  return SwimmerPageHtml("KVL-R for " + state.gAthleteName, note, tables);
}

void WriteSwimmerPage(AppState& state, char target, const std::filesystem::path& file) {
  WriteFileAtomically(file, SwimmerPage(state, target));
}

}  // namespace kvlr
