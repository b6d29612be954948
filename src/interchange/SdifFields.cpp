#include "interchange/SdifFields.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "core/DateText.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "interchange/MeetText.h"

namespace kvlr {

std::string SdifText(std::string_view line, int from, int to) {
  if (from < 1 || to < from) return {};
  const size_t width = static_cast<size_t>(to - from + 1);
  const size_t start = static_cast<size_t>(from - 1);
  std::string out = start < line.size() ? std::string(line.substr(start, width)) : std::string();
  out.resize(width, ' ');
  return MeetText(out);
}

std::string SdifTrimmed(std::string_view line, int from, int to) {
  return Trim(SdifText(line, from, to));
}

int16_t SdifInt(std::string_view line, int from, int to) {
  const double value = Val(SdifText(line, from, to));
  if (std::isnan(value)) return 0;
  const double held = std::clamp(value, -32768.0, 32767.0);
  return static_cast<int16_t>(RoundHalfEven(held));
}

double SdifColumns::Number(int from, int to) const {
  const double value = Val(Text(from, to));
  return std::isfinite(value) ? value : 0.0;
}

FileDate ParseFileDate(std::string_view mmddyyyy, int date_order) {
  const std::string cols = SdifText(mmddyyyy, 1, 8);
  if (auto date = RegionalTextToDate(ToRegionalDate(cols, date_order), date_order)) {
    return {*date, false};
  }
  if (Trim(cols).empty()) return {kSdifBlankDate, false};
  return {kSdifBlankDate, true};
}

FileTime ParseFileTime(std::string_view text) {
  FileTime out{std::string(text), 0};
  std::string work(text);
  out.score = TimeTextToScore(work);
  return out;
}

namespace {

// One half of an age range: its value, or -1 when it gives the whole range 0.
int AgeHalf(std::string_view half, std::string_view word, int word_value) {
  if (half == word) return word_value;
  if (!std::all_of(half.begin(), half.end(), [](char c) { return c >= '0' && c <= '9'; })) {
    return -1;
  }
  const int value = (half[0] - '0') * 10 + (half[1] - '0');
  return value == 0 ? -1 : value;
}

}  // namespace

int ParseAgeRange(std::string_view lohi) {
  const std::string cols = SdifText(lohi, 1, 4);
  if (cols.find(' ') != std::string::npos) return 0;
  const int lo = AgeHalf(std::string_view(cols).substr(0, 2), "UN", 0);
  const int hi = AgeHalf(std::string_view(cols).substr(2, 2), "OV", 99);
  if (lo < 0 || hi < 0) return 0;
  return lo * 100 + hi;
}

}  // namespace kvlr
