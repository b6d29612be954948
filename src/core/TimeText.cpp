#include "core/TimeText.h"

#include <cstdlib>
#include <limits>

#include <fmt/format.h>

#include "core/TextClean.h"
#include "core/VbRules.h"

namespace kvlr {
namespace {

bool IsTimeCharacter(char c) {
  return (c >= '0' && c <= '9') || c == ':' || c == '.';
}

void SetMessage(std::string* message, std::string_view text) {
  if (message) *message = text;
}

// VB Mid(text, start, length) with a 1-based start: what is there, possibly shorter.
std::string_view Mid(std::string_view text, size_t start, size_t length) {
  if (start > text.size()) return {};
  return text.substr(start - 1, length);
}

std::string_view Right(std::string_view text, size_t length) {
  return text.substr(text.size() > length ? text.size() - length : 0);
}

}  // namespace

std::string NormalizeTimeText(std::string_view text) {
  std::string digits = StripIt(text);
  // Positions are 1-based and noted before anything moves; a ':' typed after the '.' is
  // therefore looked for one place too far on, which only garbles already odd input.
  const size_t length = digits.size();
  const size_t point = digits.find('.') + 1;  // 0 when absent
  const size_t colon = digits.find(':') + 1;

  if (point > 0) {
    if (point == length) {
      digits += "00";
    } else if (point + 1 == length) {
      digits += "0";
    }
    digits = RemoveCharAt(digits, static_cast<int>(point));
  }
  if (colon > 0) {
    if (colon == digits.size()) digits += "0000";
    digits = RemoveCharAt(digits, static_cast<int>(colon));
  }
  digits.erase(0, digits.find_first_not_of('0'));
  if (digits.size() > 6) digits = digits.substr(digits.size() - 6);

  const std::string& d = digits;
  switch (d.size()) {
    case 0:
      return "";
    case 1:
      return "00:00.0" + d;
    case 2:
      return "00:00." + d;
    case 3:
      return fmt::format("00:0{}.{}", d.substr(0, 1), d.substr(1));
    case 4:
      return fmt::format("00:{}.{}", d.substr(0, 2), d.substr(2));
    case 5:
      return fmt::format("0{}:{}.{}", d.substr(0, 1), d.substr(1, 2), d.substr(3));
    default:
      return fmt::format("{}:{}.{}", d.substr(0, 2), d.substr(2, 2), d.substr(4));
  }
}

int32_t TimeTextToScore(std::string& text) {
  text = NormalizeTimeText(text);
  std::string_view t = text;
  double score = Val(t.substr(0, 2)) * 6000 + Val(Mid(t, 4, 2)) * 100 + Val(Right(t, 2));
  // The pieces are two characters each, so the sum stays far inside 32 bits.
  return static_cast<int32_t>(RoundHalfEven(score));
}

std::string FormatTime(int32_t score, bool pad) {
  if (score < 0) return FormatPoints(std::abs(static_cast<int64_t>(score)) / 100.0);
  std::string text;
  int32_t minutes = score / 6000;
  if (minutes > 0) text = fmt::format("{:02}:", minutes);
  text += fmt::format("{:02}.{:02}", (score % 6000) / 100, score % 100);
  if (text[0] == '0' && text.size() > 7) text = text.substr(text.size() - 7);
  if (pad && text.size() < 8) text.insert(0, 8 - text.size(), ' ');
  return text;
}

std::string ScoreText(int32_t score, int stroke, std::string_view suffix, int nt) {
  if (nt > 0 && score == 0) return NtText(nt);
  if (stroke >= 6) return FormatPoints(std::abs(static_cast<int64_t>(score)) / 100.0);
  if (score == 0) return "";
  if (score >= kMinTypedScore) return FormatTime(score, true) + std::string(suffix);
  return "Error";
}

std::string NtText(int nt) {
  switch (nt) {
    case kNtScratch:
      return "SCR";
    case kNtNoShow:
      return "NS";
    case kNtDidNotFinish:
      return "DNF";
    case kNtNoTime:
      return "NT";
    case kNtDisqualified:
      return "DQ";
    default:
      return "";
  }
}

bool CheckEntryText(std::string_view text, TimeInput& io, int stroke, std::string* message) {
  SetMessage(message, "");
  std::string t = UCase(Trim(text));
  if (t.empty()) {
    io.score = 0;
    return true;
  }
  if (t[0] == 'X') {
    io.exhibition = "X";
    t.erase(0, 1);
    if (t.empty()) {
      io.score = 0;
      return true;
    }
  }
  // A typed "y", "l" or "s" is upper case by now.
  if (std::string_view("YLS").find(t.back()) != std::string_view::npos) {
    io.course = std::string(1, t.back());
    t.pop_back();
  }
  if (t.find("NT") != std::string::npos) io.nt = kNtNoTime;
  if (io.nt != kNtNone) return true;

  for (char c : t) {
    if (!IsTimeCharacter(c)) {
      io.score = 0;
      return false;
    }
  }
  if (stroke < 6) {
    io.score = TimeTextToScore(t);
    if (io.score >= kMinTypedScore) return true;
    SetMessage(message, kTimeTooLow);
    io.score = 0;
    return false;
  }
  // Points beyond the 32-bit field can't be stored; refuse them like bad characters.
  double points = Val(t) * 100;
  if (!(std::abs(points) < static_cast<double>(std::numeric_limits<int32_t>::max()))) {
    io.score = 0;
    return false;
  }
  io.score = static_cast<int32_t>(RoundHalfEven(points));
  return true;
}

bool CheckResultText(std::string_view text, TimeInput& io, int stroke, std::string* message) {
  SetMessage(message, "");
  std::string t = UCase(Trim(text));
  if (t.empty()) return false;

  io.score = 0;
  io.course.clear();
  if (t[0] == 'X') {
    io.exhibition = "X";
    t.erase(0, 1);
    if (t.empty()) return false;
  }
  // The screen words, by containment ("DNS" holds "NS"); later codes win.
  for (int code = kNtScratch; code <= kNtDisqualified; ++code) {
    if (t.find(NtText(code)) != std::string::npos) io.nt = code;
  }
  if (io.nt != kNtNone) return true;

  if (stroke >= 6 || t.size() >= 3) {
    if (std::string_view("YLS").find(t.back()) != std::string_view::npos) {
      io.course = std::string(1, t.back());
      t.pop_back();
    }
    io.score = TimeTextToScore(t);
    if (io.score >= kMinTypedScore) return true;
  }
  SetMessage(message, kInvalidTime);
  return false;
}

}  // namespace kvlr
