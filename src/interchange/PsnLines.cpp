#include "interchange/Psn.h"

#include "core/DateText.h"
#include "core/VbRules.h"

namespace kvlr {
namespace {

// "MM/DD/YYYY" of a .psn; blank columns are a blank date, anything else that isn't a day
// is the bad date.
FileDate PsnDate(std::string_view line, int from, int to, int date_order) {
  const std::string cols = SdifText(line, from, to);
  if (Trim(cols).empty()) return {kSdifBlankDate, false};
  if (auto date = USTextToDate(cols, date_order)) return {*date, false};
  return {kSdifBlankDate, true};
}

}  // namespace

std::optional<PsnHeader> ParsePsnHeader(std::string_view line) {
  if (line.size() != kPsnHeaderColumns) return std::nullopt;
  PsnHeader header;
  header.first = SdifTrimmed(line, 1, 20);
  header.last = SdifTrimmed(line, 21, 40);
  header.preferred = SdifTrimmed(line, 41, 60);
  header.middle = SdifTrimmed(line, 61, 61);
  header.creator = SdifTrimmed(line, 62, static_cast<int>(kPsnHeaderColumns));
  return header;
}

std::string PsnSwimmerName(const PsnHeader& header) {
  std::string name;
  const auto add = [&name](std::string_view part) {
    if (part.empty()) return;
    if (!name.empty()) name += ' ';
    name += part;
  };
  if (!header.preferred.empty()) {
    return header.first + " '" + header.preferred + "' " + header.last;
  }
  add(header.first);
  add(header.middle);
  add(header.last);
  return name;
}

PsnLine ParsePsnLine(std::string_view line, int date_order) {
  PsnLine out;
  if (Trim(SdifText(line, 77, 78)).empty()) {
    out.kind = PsnLine::Kind::kSplits;
    for (int g = 0; g < kPsnSplitGroups; ++g) {
      const int from = 1 + g * kPsnSplitWidth;
      out.splits[static_cast<size_t>(g)] =
          ParseFileTime(SdifText(line, from, from + kPsnSplitWidth - 1)).score;
    }
    return out;
  }
  PsnResult& r = out.result;
  r.stroke = SdifInt(line, 1, 1);
  r.distance = SdifInt(line, 2, 5);
  r.time = ParseFileTime(SdifText(line, 6, 13));
  r.course = UCase(SdifTrimmed(line, 15, 15));
  r.f_p = UCase(SdifTrimmed(line, 16, 16));
  r.i_r = SdifText(line, 17, 17) == "R" ? "L" : "I";
  r.start = PsnDate(line, 18, 27, date_order);
  r.end = PsnDate(line, 29, 38, date_order);
  r.meet_name = SdifTrimmed(line, 40, 69);
  if (line.size() == kPsnHeaderColumns) r.place = SdifInt(line, 79, 81);
  return out;
}

int PsnSplitStep(std::string_view course) {
  return !course.empty() && (course[0] == 'L' || course[0] == 'l') ? 4 : 2;
}

std::string ResultsProcessedText(int count) {
  return std::string(kResultsProcessed) + std::to_string(count);
}

}  // namespace kvlr
