#pragma once
// The field checks shared by the record checks of SDIF and Commlink files, the swimmer
// name rule, line lengths and reading a file into lines.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvlr {

// True when Trim(value) stands anywhere in `list` as a substring; a blank value is
// therefore always found, whatever `blank_allowed` says, and "1," passes a comma list.
// On failure `problem` (may be null) receives `label`.
bool CheckCode(std::string_view value, std::string_view list, std::string_view label,
               bool blank_allowed, std::string* problem);

// A time field and its course. With a time (score 1 or more) the course must be a Course
// Code. Without, the text must be a Time Code ("DQ", "NT", ... or blank) and the course a
// Course Code or blank. Failures give "Course Code" in `problem` (may be null).
bool CheckTimeAndCourse(int32_t score, std::string_view time_text, std::string_view course,
                        std::string* problem);

// A course code of an SDIF or Commlink file as the store keeps it: "1", "S" or "M" short
// course metres "S"; "2" or "Y" yards "Y"; "3" or "L" long course metres "L". Anything
// else (blank, "X") comes back trimmed and upper-cased for the caller's own rule.
std::string SdifCourseLetter(std::string_view code);

struct SwimmerName {
  bool ok = false;
  std::string last, first, initial;
};

// "LAST, FIRST M" upper-cased: split at the first ", ", First trimmed, a single letter
// behind First's last blank is the initial. A name holding "NO SWIMMER NAME" passes with
// no parts; a name without ", " (or ending in it, or shorter than 2) fails.
SwimmerName ParseSwimmerName(std::string_view name);

// The length every line but the first must have for an extension (".SD3", ".cl2", ...;
// case does not matter); nullopt when lines are not measured.
std::optional<size_t> LineLengthFor(std::string_view extension);

// "Line length error. Line length should be 160. Found 159".
std::string LineLengthMessage(size_t expected, size_t found);

struct InterchangeLines {
  std::vector<std::string> lines;  // up to and including the first "Z0" line
  std::string problem;             // the line-length message when a line is refused
  size_t bad_line = 0;             // 1-based number of the refused line, 0 when none

  bool ok() const { return problem.empty(); }
};

// Splits 8-bit text into lines (CR LF or LF ends a line; a last line without an end
// counts), stops behind the first line beginning with "Z0", and measures every line but
// the first against LineLengthFor(extension); reading stops at the first wrong length.
InterchangeLines ReadInterchangeText(std::string_view text, std::string_view extension);

// The same for a file. Throws FileError when it cannot be read.
InterchangeLines ReadInterchangeLines(const std::filesystem::path& path,
                                      std::string_view extension);

}  // namespace kvlr
