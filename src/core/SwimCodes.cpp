#include "core/SwimCodes.h"

#include <fmt/format.h>

#include "core/VbRules.h"

namespace kvlr {

int DistanceIndex(int distance) {
  switch (distance) {
    case 25:
      return 0;
    case 50:
      return 1;
    case 100:
      return 2;
    case 200:
      return 3;
    case 400:
      return 4;
    case 500:
      return 5;
    case 800:
      return 6;
    case 1000:
      return 7;
    case 1500:
      return 8;
    case 1650:
      return 9;
    default:
      return 10;
  }
}

int EquivalentDistance(int distance, char course) {
  struct Pair {
    int metres;
    int yards;
  };
  constexpr Pair kPairs[] = {{400, 500}, {800, 1000}, {1500, 1650}};
  for (const Pair& pair : kPairs) {
    if (course == 'Y' && distance == pair.metres) return pair.yards;
    if ((course == 'S' || course == 'L') && distance == pair.yards) return pair.metres;
  }
  return distance;
}

int AgeGroupIndex(int lo, int hi) {
  struct Row {
    int lo;
    int hi;
    int index;
  };
  constexpr Row kRows[] = {{0, 6, 0},   {0, 8, 1},    {0, 10, 2},  {15, 99, 3}, {0, 99, 4},
                           {1, 99, 4},  {7, 8, 5},    {9, 10, 6},  {11, 12, 7}, {13, 14, 8},
                           {15, 16, 9}, {17, 18, 10}, {15, 18, 23}};
  for (const Row& row : kRows) {
    if (row.lo == lo && row.hi == hi) return row.index;
  }
  if (lo == hi && lo >= 8 && lo <= 18) return lo + 4;
  return 11;
}

std::string LoHiText(int lo_hi) {
  std::string text = fmt::format("{:04}", lo_hi);
  std::string first = text.substr(0, 2);
  std::string last = text.substr(text.size() - 2);
  if (lo_hi == 99) return "Open";
  if (last == "99") return first + "-Ov";
  if (lo_hi < 99) return "Un-" + last;
  return first + "-" + last;
}

std::string AgeRangeText(int lo, int hi) {
  std::string text = lo == 0 ? "Under" : std::to_string(lo);
  return text + (hi == 99 ? " Over" : "-" + std::to_string(hi));
}

std::string AgeRangeCaption(int lo, int hi) {
  if (lo == 0 && hi == 0) return "";
  if (lo == 0 && hi == 99) return "Open";
  if (lo == 0) return std::to_string(hi) + " and Under";
  if (hi == 99) return std::to_string(lo) + " and Over";
  return fmt::format("{} - {}", lo, hi);
}

std::string StrokeText(int stroke, std::string_view i_r) {
  const bool relay = i_r == "R";
  std::string text;
  switch (stroke) {
    case 1:
      text = "Free";
      break;
    case 2:
      text = "Back";
      break;
    case 3:
      text = "Breast";
      break;
    case 4:
      text = "Fly";
      break;
    case 5:
      text = relay ? "Medley" : "IM";
      break;
    default:
      break;
  }
  if (relay) text += " Relay";
  return text;
}

std::string SexWord(std::string_view sex) {
  if (sex == "F") return "Female";
  if (sex == "M") return "Male";
  if (sex == "X") return "Mixed";
  return "";
}

std::string GirlWord(int fav_sex) {
  switch (fav_sex) {
    case 0:
      return "Women";
    case 1:
      return "Female";
    case 2:
      return "Girls";
    default:
      return "";
  }
}

std::string BoyWord(int fav_sex) {
  switch (fav_sex) {
    case 0:
      return "Men";
    case 1:
      return "Male";
    case 2:
      return "Boys";
    default:
      return "";
  }
}

std::vector<std::string> FavSexList() {
  return {"Men/Women (M/W)", "Male/Female (M/F)", "Boys/Girls (B/G)"};
}

std::string FinalsWord(std::string_view f_p) {
  if (f_p == "F") return "Finals";
  if (f_p == "P") return "Prelims";
  if (f_p == "I") return "Semi-Final";
  if (f_p == "S") return "Swimoff";
  if (f_p == "T") return "Time Trial";
  return "";
}

std::string EventNumberText(std::string_view text) {
  std::string number = Trim(text);
  if (!number.empty() && number.back() >= '0' && number.back() <= '9') {
    return fmt::format(" {:>3}", number);
  }
  return fmt::format("{:>4}", number);
}

std::vector<std::string> StartStrokeList() {
  return {"", "Free", "Back", "Breast", "Fly", "IM", "Free R", "Medley R"};
}

std::vector<std::string> LoadStrokeArray() {
  return {"", "Free", "Back", "Breast", "Fly", "IM", "", "", "Free Relay", "Medley Relay"};
}

std::vector<std::string> DistanceList() {
  return {" ",    "  25", "  50", " 100", " 200",    " 400",    " 500",
          " 800", "1000", "1500", "1650", "1 Meter", "3 Meter", "Platform"};
}

std::vector<std::string> CourseList() {
  return {"", "Yards", "SCM", "LCM"};
}

}  // namespace kvlr
