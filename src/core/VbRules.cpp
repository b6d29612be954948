#include "core/VbRules.h"

#include <cctype>
#include <charconv>
#include <climits>
#include <cmath>
#include <limits>

#include <fmt/format.h>

namespace kvlr {
namespace {

bool IsVbBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Reads the characters of `text` one by one, passing over the blanks Val ignores.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : text_(text) { Skip(); }
  bool AtEnd() const { return pos_ >= text_.size(); }
  char Peek() const { return AtEnd() ? '\0' : text_[pos_]; }
  void Next() {
    ++pos_;
    Skip();
  }

 private:
  void Skip() {
    while (!AtEnd() && IsVbBlank(text_[pos_])) ++pos_;
  }
  std::string_view text_;
  size_t pos_ = 0;
};

double RadixVal(Cursor& cur, int radix) {
  uint64_t value = 0;
  bool overflow = false;
  for (;; cur.Next()) {
    char c = static_cast<char>(std::toupper(static_cast<unsigned char>(cur.Peek())));
    int digit = IsDigit(c) ? c - '0' : (c >= 'A' && c <= 'F') ? c - 'A' + 10 : radix;
    if (digit >= radix) break;
    if (value > (std::numeric_limits<uint64_t>::max() - digit) / radix) overflow = true;
    value = value * radix + digit;
  }
  // VB types a hex/octal literal by its size, so the top bit of 16 or 32 bits is the sign.
  if (overflow) return std::numeric_limits<double>::infinity();
  if (value <= 0xFFFF) return static_cast<int16_t>(static_cast<uint16_t>(value));
  if (value <= 0xFFFFFFFF) return static_cast<int32_t>(static_cast<uint32_t>(value));
  return static_cast<double>(value);
}

// Adds 1 to a string of decimal digits.
void Increment(std::string& digits) {
  for (size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return;
    }
    digits[i] = '0';
  }
  digits.insert(digits.begin(), '1');
}

}  // namespace

double Val(std::string_view text) {
  Cursor cur(text);
  if (cur.Peek() == '&') {
    cur.Next();
    char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(cur.Peek())));
    if (kind == 'H' || kind == 'O') {
      cur.Next();
      return RadixVal(cur, kind == 'H' ? 16 : 8);
    }
    return 0;
  }

  std::string number;
  if (cur.Peek() == '+' || cur.Peek() == '-') {
    if (cur.Peek() == '-') number += '-';
    cur.Next();
  }
  bool any_digit = false;
  bool seen_point = false;
  for (;; cur.Next()) {
    char c = cur.Peek();
    if (IsDigit(c)) {
      number += c;
      any_digit = true;
    } else if (c == '.' && !seen_point) {
      number += c;
      seen_point = true;
    } else {
      break;
    }
  }
  if (!any_digit) return 0;

  char e = static_cast<char>(std::toupper(static_cast<unsigned char>(cur.Peek())));
  if (e == 'E' || e == 'D') {
    // An exponent counts only when a digit follows; "12E" is 12.
    std::string exponent = "e";
    cur.Next();
    if (cur.Peek() == '+' || cur.Peek() == '-') {
      exponent += cur.Peek();
      cur.Next();
    }
    bool exp_digit = false;
    for (; IsDigit(cur.Peek()); cur.Next()) {
      exponent += cur.Peek();
      exp_digit = true;
    }
    if (exp_digit) number += exponent;
  }

  double value = 0;
  const char* first = number.data();
  const char* last = number.data() + number.size();
  if (std::from_chars(first, last, value).ec == std::errc::result_out_of_range) {
    // from_chars leaves the value alone here; tell huge from tiny by the exponent's sign.
    bool tiny = number.find("e-") != std::string::npos;
    if (tiny) return 0;
    return number[0] == '-' ? -std::numeric_limits<double>::infinity()
                            : std::numeric_limits<double>::infinity();
  }
  return value;
}

int64_t RoundHalfEven(double value) {
  // Beyond 2^63 (or NaN) there is nothing to round; clamp rather than overflow.
  if (!(value > -9.2e18)) return value != value ? 0 : INT64_MIN;
  if (value > 9.2e18) return INT64_MAX;
  double floor = std::floor(value);
  double diff = value - floor;
  if (diff > 0.5 || (diff == 0.5 && std::fmod(floor, 2.0) != 0.0)) floor += 1.0;
  return static_cast<int64_t>(floor);
}

int32_t ToInt32(double value) {
  if (value != value) return 0;
  if (value >= 2147483647.0) return INT32_MAX;
  if (value <= -2147483648.0) return INT32_MIN;
  return static_cast<int32_t>(value);
}

std::string FormatPoints(double value) {
  if (!std::isfinite(value)) return "";
  if (value == 0) return ".00";
  // 15 significant digits, as VB sees a Double when it formats it: d.dddddddddddddde±x.
  std::string sci = fmt::format("{:.14e}", std::fabs(value));
  std::string mantissa = sci.substr(0, 1) + sci.substr(2, 14);
  int exponent = std::stoi(sci.substr(sci.find('e') + 1));

  // Whole hundredths: the first exponent + 3 digits of the mantissa, rounded on the next.
  int whole_digits = exponent + 3;
  std::string hundredths;
  if (whole_digits <= 0) {
    hundredths = (whole_digits == 0 && mantissa[0] >= '5') ? "1" : "0";
  } else if (whole_digits >= static_cast<int>(mantissa.size())) {
    hundredths = mantissa + std::string(whole_digits - mantissa.size(), '0');
  } else {
    hundredths = mantissa.substr(0, whole_digits);
    if (mantissa[whole_digits] >= '5') Increment(hundredths);
  }
  if (hundredths.size() < 3) hundredths.insert(0, 3 - hundredths.size(), '0');

  std::string whole = hundredths.substr(0, hundredths.size() - 2);
  whole.erase(0, whole.find_first_not_of('0'));  // '#' shows no leading zero
  std::string text = whole + "." + hundredths.substr(hundredths.size() - 2);
  if (value < 0 && text != ".00") text.insert(0, "-");
  return text;
}

std::string Trim(std::string_view text) {
  size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return "";
  size_t last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}

std::string UCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

}  // namespace kvlr
