#include "handheld/PalmText.h"

#include <fmt/format.h>

#include "core/VbRules.h"

namespace kvlr {

std::string PalmTime(int32_t score, bool pad) {
  if (score <= 0) return "";
  const int32_t minutes = score / 6000;
  const int32_t seconds = score % 6000 / 100;
  const int32_t hundredths = score % 100;
  if (minutes == 0) {
    const std::string text = fmt::format("{:02}.{:02}", seconds, hundredths);
    return pad ? fmt::format("{:>8}", text) : text;
  }
  if (!pad) return fmt::format("{}:{:02}.{:02}", minutes, seconds, hundredths);
  return fmt::format("{:>8}", fmt::format("{:>2}:{:02}.{:02}", minutes, seconds, hundredths));
}

std::string PalmStroke(int stroke) {
  switch (stroke) {
    case 1:
      return "Free";
    case 2:
      return "Back";
    case 3:
      return "Breast";
    case 4:
      return "Fly";
    default:
      return "IM";
  }
}

std::string PalmDistance(int distance) {
  const std::string text = std::to_string(distance);
  return text.size() >= 5 ? text.substr(text.size() - 5) : std::string(5 - text.size(), ' ') + text;
}

std::string PalmDq(int nt) {
  switch (nt) {
    case 1:
      return "SC";
    case 2:
      return "NS";
    case 3:
      return "DN";
    case 5:
      return "DQ";
    default:
      return "";
  }
}

std::string PalmAgeGroup(int lo_hi) {
  if (lo_hi == 99) return "Open";
  if (lo_hi < 100) return fmt::format("{}&U", lo_hi);
  if (lo_hi % 100 == 99) return fmt::format("{}&O", lo_hi / 100);
  return fmt::format("{}-{}", lo_hi / 100, lo_hi % 100);
}

std::string PalmEventNum(int mt_ev, std::string_view mt_evx) {
  const std::string number = "   " + std::to_string(mt_ev);
  return number.substr(number.size() - 3) + (mt_evx.empty() ? std::string(" ") : std::string(mt_evx));
}

std::string PalmShowName(std::string_view last, std::string_view first, std::string_view pref) {
  return Trim(last) + ", " + Trim(Trim(pref).empty() ? first : pref);
}

std::string PalmDate(const std::optional<Date>& date) {
  if (!date) return "";
  return fmt::format("{:02}/{:02}/{:04}", date->month, date->day, date->year);
}

std::optional<int> PalmLoHi(std::string_view text_in) {
  const std::string text = UCase(Trim(text_in));
  if (text == "OPEN") return 99;
  const size_t dash = text.find('-');
  if (text.size() > 2 && text.ends_with("&U")) return static_cast<int>(Val(text));
  if (text.size() > 2 && text.ends_with("&O")) return static_cast<int>(Val(text)) * 100 + 99;
  if (dash != std::string::npos && dash > 0) {
    return static_cast<int>(Val(text.substr(0, dash))) * 100 +
           static_cast<int>(Val(text.substr(dash + 1)));
  }
  return std::nullopt;
}

PalmEventNumber ParsePalmEventNum(std::string_view text_in) {
  const std::string text = Trim(text_in);
  PalmEventNumber out;
  size_t i = 0;
  while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
  if (i > 0 && i <= 6) out.number = std::stoi(text.substr(0, i));
  out.letter = Trim(text.substr(i));
  return out;
}

}  // namespace kvlr
