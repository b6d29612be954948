#pragma once
// Made-up online result files (.psn) and event files (.nvv) for the tests.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/FileOps.h"
#include "interchange/EventFile.h"

namespace kvlr::test {

// `text` cut or blank-padded to `width`.
inline std::string Pad(std::string_view text, size_t width) {
  std::string out(text.substr(0, std::min(text.size(), width)));
  out.resize(width, ' ');
  return out;
}

// An 81-column .psn header.
inline std::string PsnHeaderLine(std::string_view first, std::string_view last,
                                 std::string_view pref = "", std::string_view middle = "",
                                 std::string_view creator = "Norvan, Ltd") {
  return Pad(first, 20) + Pad(last, 20) + Pad(pref, 20) + Pad(middle, 1) + Pad(creator, 20);
}

struct PsnResultFields {
  std::string stroke = "1";
  std::string distance = " 100";
  std::string time = " 1:05.32";
  std::string course = "Y";
  std::string f_p = "F";
  std::string lead_off = " ";
  std::string start = "11/06/2026";
  std::string end = "11/08/2026";
  std::string meet = "Harbor Invitational";
  std::string place = "  3";  // columns 79-81; "" leaves the line at 78 columns
};

inline std::string PsnResultLine(const PsnResultFields& f) {
  std::string line = Pad(f.stroke, 1) + Pad(f.distance, 4) + Pad(f.time, 8) + " " +
                     Pad(f.course, 1) + Pad(f.f_p, 1) + Pad(f.lead_off, 1) + Pad(f.start, 10) +
                     " " + Pad(f.end, 10) + " " + Pad(f.meet, 30) + Pad("", 7) + "12";
  if (!f.place.empty()) line += Pad(f.place, 3);
  return line;
}

// A splits line: up to seven times of eight columns each, right-aligned.
inline std::string PsnSplitsLine(const std::vector<std::string>& times) {
  std::string line;
  for (const auto& t : times) line += std::string(8 - std::min<size_t>(8, t.size()), ' ') + t;
  return line;
}

// The meet line of an event file with the check value as the last five columns.
inline std::string NvvMeetLine(std::string_view name, std::string_view start,
                               std::string_view end = "", std::string_view age_up = "",
                               std::string_view course = "Y", std::string_view location = "",
                               std::string_view creator = kEventFileCreator,
                               std::string_view meet_class = "") {
  std::string head;
  for (std::string_view f : {name, start, end, age_up, course, location, std::string_view("x"),
                             creator, std::string_view(""), meet_class}) {
    head += std::string(f) + ";";
  }
  // The check covers every column before its own, whatever its length.
  std::string check = EventFileCheckValue(head + "00000", name);
  check = EventFileCheckValue(head + std::string(check.size(), '0'), name);
  return head + check;
}

inline void WriteLines(const std::filesystem::path& file, const std::vector<std::string>& lines,
                       std::string_view eol = "\r\n") {
  std::string text;
  for (const auto& l : lines) text += l + std::string(eol);
  WriteFileAtomically(file, text);
}

}  // namespace kvlr::test
