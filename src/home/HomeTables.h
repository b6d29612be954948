#pragma once
// The home page as the four tables the screen shows: plain texts, which row is good news,
// and where a double-click on a row leads.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/Date.h"
#include "home/HomePage.h"

namespace kvlr {

enum class HomeTarget { kNone, kResults, kMeetResults, kEntries, kGoals };

// The screen behind a row: the results browser on one event and course, the results or
// entries of one meet, or the goals of one course.
struct HomeLink {
  HomeTarget target = HomeTarget::kNone;
  int32_t meet = 0;
  char course = 0;
  int16_t distance = 0;
  int16_t stroke = 0;
};

struct HomeTable {
  std::string title;
  std::vector<std::string> headers;
  size_t text_columns = 1;  // the leading columns of words; the rest hold times and numbers
  std::vector<std::vector<std::string>> rows;
  std::vector<HomeLink> links;  // one per row
  std::vector<bool> good;       // one per row: an improvement or a goal reached
  std::string empty_text;       // shown when there are no rows
  HomeLink empty_link;          // where the empty table leads
};

// Formats a date for the screen; the app passes its one date form.
using HomeDateText = std::function<std::string(const Date&)>;

// Best times, last meet, next meet, goals, in that order.
std::vector<HomeTable> HomeTables(const HomePage& page, const HomeDateText& date_text);

// "Yards", "SCM", "LCM" for 'Y', 'S', 'L'.
std::string HomeCourseWord(char course);

}  // namespace kvlr
