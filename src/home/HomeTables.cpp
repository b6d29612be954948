#include "home/HomeTables.h"

#include <fmt/format.h>

#include "core/SwimCodes.h"
#include "core/TimeText.h"

namespace kvlr {
namespace {

std::string Event(int distance, int stroke) {
  return fmt::format("{} {}", distance, StrokeText(stroke, "I"));
}

std::string Time(int32_t score) {
  return score > 0 ? FormatTime(score, false) : std::string();
}

// A gap between times: "1.23", "12.05", "1:02.50".
std::string Gap(int32_t hundredths) {
  if (hundredths >= 6000) return FormatTime(hundredths, false);
  return fmt::format("{}.{:02}", hundredths / 100, hundredths % 100);
}

// A difference of times as the swimmer reads it: "-1.23" faster, "+0.40" slower.
std::string Difference(int32_t hundredths) {
  return (hundredths > 0 ? "-" : "+") + Gap(hundredths > 0 ? hundredths : -hundredths);
}

std::string WithLevel(std::string text, const std::string& level) {
  if (!level.empty()) text += "  " + level;
  return text;
}

HomeTable Bests(const HomePage& page) {
  HomeTable table;
  table.title = "Best Times";
  table.headers = {"Event"};
  for (char course : kHomeCourses) {
    table.headers.push_back(HomeCourseWord(course));
    table.headers.push_back("Next Cut");
  }
  table.headers.push_back("Best as " + HomeCourseWord(page.target));
  table.empty_text = "No results yet: File > Import > Meet Results brings in a meet file.";
  for (const HomeBestRow& row : page.bests) {
    std::vector<std::string> cells;
    const int yards = row.cells[0].distance;
    cells.push_back(yards == row.distance
                        ? Event(row.distance, row.stroke)
                        : fmt::format("{}/{} {}", row.distance, yards, StrokeText(row.stroke, "I")));
    for (const HomeBestCell& cell : row.cells) {
      cells.push_back(WithLevel(Time(cell.score), cell.level));
      cells.push_back(cell.next_level.empty()
                          ? std::string()
                          : fmt::format("{} {}{}", cell.next_level, Time(cell.next_cut),
                                        cell.score > 0
                                            ? " (" + Difference(cell.score - cell.next_cut) + ")"
                                            : std::string()));
    }
    cells.push_back(row.converted > 0
                        ? Time(row.converted) +
                              (row.converted_from != std::string(1, page.target) ? "'" : "")
                        : std::string());
    table.rows.push_back(std::move(cells));
    table.links.push_back({HomeTarget::kResults, 0, 0, row.distance, row.stroke});
    // Levels are named in the cells; a whole table in green would say nothing.
    table.good.push_back(false);
  }
  return table;
}

HomeTable LastMeet(const HomePage& page, const HomeDateText& date_text) {
  HomeTable table;
  table.headers = {"Event", "Time", "Place", "Earlier Best", "Change", "Level"};
  if (!page.last_meet) {
    table.title = "Last Meet";
    table.empty_text = "No meet swum yet.";
    return table;
  }
  const HomeMeet& meet = *page.last_meet;
  table.title = fmt::format("Last Meet: {}, {}", meet.name, date_text(meet.start));
  table.empty_text = "No individual swims in this meet.";
  table.empty_link = {HomeTarget::kMeetResults, meet.meet, 0, 0, 0};
  for (const HomeSwim& swim : page.last_swims) {
    const int32_t gain = swim.Improvement();
    std::string change;
    if (swim.score > 0 && swim.nt == 0) {
      change = swim.before == 0 ? "First swim" : Difference(gain);
    }
    table.rows.push_back({Event(swim.distance, swim.stroke) + (swim.f_p == "P" ? " (prelim)" : ""),
                          swim.nt > 0 && swim.score == 0 ? NtText(swim.nt) : Time(swim.score),
                          swim.place > 0 ? std::to_string(swim.place) : std::string(),
                          Time(swim.before), change, swim.level});
    table.links.push_back({HomeTarget::kMeetResults, meet.meet, 0, swim.distance, swim.stroke});
    table.good.push_back(gain > 0);
  }
  return table;
}

HomeTable NextMeet(const HomePage& page, const HomeDateText& date_text) {
  HomeTable table;
  table.headers = {"Event No.", "Event", "Entry Time"};
  table.text_columns = 2;
  if (!page.next_meet) {
    table.title = "Next Meet";
    table.empty_text = "No meet ahead on file: Meets > Add makes one.";
    return table;
  }
  const HomeMeet& meet = *page.next_meet;
  table.title = fmt::format("Next Meet: {}, {}", meet.name, date_text(meet.start));
  if (!meet.location.empty()) table.title += ", " + meet.location;
  table.empty_text = "No entries yet: double-click to choose events.";
  table.empty_link = {HomeTarget::kEntries, meet.meet, 0, 0, 0};
  for (const HomeEntry& entry : page.next_entries) {
    table.rows.push_back({entry.event, Event(entry.distance, entry.stroke),
                          (entry.score > 0 ? Time(entry.score) : std::string("NT")) +
                              (entry.exhibition ? " X" : "")});
    table.links.push_back({HomeTarget::kEntries, meet.meet, 0, entry.distance, entry.stroke});
    table.good.push_back(false);
  }
  return table;
}

HomeTable Goals(const HomePage& page) {
  HomeTable table;
  table.title = "Goals";
  table.headers = {"Course", "Event", "Goal", "Best", "To Take Off"};
  table.text_columns = 2;
  table.empty_text = "No goals yet: Goals > Yards, SCM or LCM sets them.";
  table.empty_link = {HomeTarget::kGoals, 0, 'Y', 0, 0};
  for (const HomeGoal& goal : page.goals) {
    const int32_t left = goal.ToTakeOff();
    table.rows.push_back({HomeCourseWord(goal.course), Event(goal.distance, goal.stroke),
                          Time(goal.goal), Time(goal.best),
                          left < 0    ? std::string("Not swum yet")
                          : left == 0 ? std::string("Reached")
                                      : Gap(left)});
    table.links.push_back({HomeTarget::kGoals, goal.meet, goal.course, goal.distance, goal.stroke});
    table.good.push_back(left == 0);
  }
  return table;
}

}  // namespace

std::string HomeCourseWord(char course) {
  switch (course) {
    case 'Y':
      return "Yards";
    case 'S':
      return "SCM";
    case 'L':
      return "LCM";
    default:
      return "";
  }
}

std::vector<HomeTable> HomeTables(const HomePage& page, const HomeDateText& date_text) {
  return {Bests(page), LastMeet(page, date_text), NextMeet(page, date_text), Goals(page)};
}

}  // namespace kvlr
