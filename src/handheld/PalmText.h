#pragma once
// The text forms of the handheld files: times, strokes, distances, age groups, event
// numbers and names as the companion reads them.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/Date.h"

namespace kvlr {

// Below 6000 hundredths "ss.hh", else "m:ss.hh"; `pad` puts blanks in front up to 8
// (the results file). 0 or less: "".
std::string PalmTime(int32_t score, bool pad = false);
// "Free", "Back", "Breast", "Fly"; every other number "IM".
std::string PalmStroke(int stroke);
// Right-aligned in five.
std::string PalmDistance(int distance);
// The report word of a non-time code: "SC", "NS", "DN", "DQ"; "" for the others.
std::string PalmDq(int nt);
// "Open", "10&U", "15&O", "11-12".
std::string PalmAgeGroup(int lo_hi);
// The number right-aligned in three, then the letter or a blank.
std::string PalmEventNum(int mt_ev, std::string_view mt_evx);
// "Last, Pref" or "Last, First" when the preferred name is blank.
std::string PalmShowName(std::string_view last, std::string_view first, std::string_view pref);
// The US short date "MM/DD/YYYY" of the staging locale.
std::string PalmDate(const std::optional<Date>& date);

// The reverse of PalmAgeGroup; nullopt for a text it can't make.
std::optional<int> PalmLoHi(std::string_view text);
// "  3A" as number and letter; number 0 when there is none.
struct PalmEventNumber {
  int number = 0;
  std::string letter;
};
PalmEventNumber ParsePalmEventNum(std::string_view text);

}  // namespace kvlr
