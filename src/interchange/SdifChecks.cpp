#include "interchange/SdifChecks.h"

#include <cerrno>
#include <fstream>
#include <iterator>

#include "core/Errors.h"
#include "core/VbRules.h"
#include "interchange/SdifTexts.h"

namespace kvlr {

bool CheckCode(std::string_view value, std::string_view list, std::string_view label,
               bool blank_allowed, std::string* problem) {
  const std::string trimmed = Trim(value);
  // A blank search string is found in any list, so `blank_allowed` changes nothing here.
  if ((trimmed.empty() && blank_allowed) || list.find(trimmed) != std::string_view::npos) {
    return true;
  }
  if (problem) *problem = std::string(label);
  return false;
}

bool CheckTimeAndCourse(int32_t score, std::string_view time_text, std::string_view course,
                        std::string* problem) {
  bool ok;
  if (score >= 1) {
    ok = CheckCode(course, sdif::kCourseCodes, sdif::kCourseCodeLabel, false, nullptr);
  } else {
    ok = CheckCode(time_text, sdif::kTimeCodes, sdif::kTimeCodeLabel, false, nullptr) &&
         CheckCode(course, sdif::kCourseCodes, sdif::kCourseCodeLabel, true, nullptr);
  }
  if (!ok && problem) *problem = std::string(sdif::kCourseCodeLabel);
  return ok;
}

std::string SdifCourseLetter(std::string_view code) {
  const std::string c = UCase(Trim(code));
  if (c == "1" || c == "S" || c == "M") return "S";
  if (c == "2" || c == "Y") return "Y";
  if (c == "3" || c == "L") return "L";
  return c;
}

SwimmerName ParseSwimmerName(std::string_view name) {
  SwimmerName out;
  const std::string upper = UCase(name);
  if (upper.find("NO SWIMMER NAME") != std::string::npos) {
    out.ok = true;
    return out;
  }
  const size_t comma = upper.find(", ");
  if (comma == std::string::npos || comma + 1 >= upper.size() - 1 || upper.size() < 2) {
    return out;
  }
  out.ok = true;
  out.last = upper.substr(0, comma);
  out.first = Trim(std::string_view(upper).substr(comma + 2));
  const size_t blank = out.first.rfind(' ');
  if (blank != std::string::npos && blank + 2 == out.first.size()) {
    out.initial = out.first.substr(blank + 1);
    out.first.resize(blank);
  }
  return out;
}

std::optional<size_t> LineLengthFor(std::string_view extension) {
  const std::string ext = UCase(extension);
  if (ext == ".CL2" || ext == ".SD3") return 160;
  if (ext == ".NV3") return 130;
  if (ext == ".TXT") return 131;
  return std::nullopt;
}

std::string LineLengthMessage(size_t expected, size_t found) {
  return std::string(sdif::kLineLengthError) + std::to_string(expected) +
         std::string(sdif::kLineLengthFound) + std::to_string(found);
}

InterchangeLines ReadInterchangeText(std::string_view text, std::string_view extension) {
  InterchangeLines out;
  const auto expected = LineLengthFor(extension);
  size_t pos = 0;
  while (pos < text.size()) {
    size_t end = text.find('\n', pos);
    const size_t next = end == std::string_view::npos ? text.size() : end + 1;
    if (end == std::string_view::npos) end = text.size();
    if (end > pos && text[end - 1] == '\r' && end < text.size()) --end;
    out.lines.emplace_back(text.substr(pos, end - pos));
    pos = next;
    const std::string& line = out.lines.back();
    if (expected && out.lines.size() > 1 && line.size() != *expected) {
      out.problem = LineLengthMessage(*expected, line.size());
      out.bad_line = out.lines.size();
      break;
    }
    if (line.rfind("Z0", 0) == 0) break;
  }
  return out;
}

InterchangeLines ReadInterchangeLines(const std::filesystem::path& path,
                                      std::string_view extension) {
  std::ifstream in(path, std::ios::binary);
  if (!in) ThrowFileError(errno ? errno : ENOENT, "open", path.string());
  const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (in.bad()) ThrowFileError(errno ? errno : EIO, "read", path.string());
  return ReadInterchangeText(text, extension);
}

}  // namespace kvlr
