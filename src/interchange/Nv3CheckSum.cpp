#include "interchange/Nv3CheckSum.h"

#include <cstdint>
#include <cstdlib>

namespace kvlr {
namespace {

// weight(column) for columns counted from 1.
template <typename Weight>
std::string SumDigits(std::string_view line, Weight weight, int divisor, int added) {
  // The file's own total is a 16-bit Integer that wraps; keeping that makes lines with
  // high character codes agree with the files already written.
  int16_t total = 0;
  for (std::size_t column = 1; column <= kNv3SumColumns; ++column) {
    const int code = column <= line.size() ? static_cast<unsigned char>(line[column - 1]) : ' ';
    total = static_cast<int16_t>(total + code * weight(column));
  }
  int quotient = total / divisor;
  if (total % divisor != 0 && total < 0) --quotient;  // floor, not truncation
  const int value = std::abs(quotient + added);
  std::string digits(2, '0');
  digits[0] = static_cast<char>('0' + value % 10);
  digits[1] = static_cast<char>('0' + value / 10 % 10);
  return digits;
}

std::string_view WithoutLineEnd(std::string_view line) {
  if (!line.empty() && line.back() == '\n') line.remove_suffix(1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

bool SumMatches(std::string_view line, std::string (*sum)(std::string_view)) {
  return line.substr(kNv3SumColumns, 2) == sum(line);
}

}  // namespace

std::string NV3CheckSum(std::string_view line) {
  return SumDigits(
      line, [](std::size_t c) { return c % 2 == 1 ? 1 : 2; }, 21, 205);
}

std::string NV3CheckSum2(std::string_view line) {
  return SumDigits(
      line, [](std::size_t) { return 3; }, 34, 241);
}

std::string NV3CheckSum3(std::string_view line) {
  return SumDigits(
      line, [](std::size_t c) { return c % 2 == 1 ? 2 : 3; }, 47, 462);
}

std::string NV3CheckSum4(std::string_view line) {
  return SumDigits(
      line, [](std::size_t c) { return static_cast<int>((c - 1) % 3 + 1); }, 26, 139);
}

bool CheckNV3Line(std::string_view line) {
  line = WithoutLineEnd(line);
  return line.size() == kNv3LineLength && SumMatches(line, NV3CheckSum);
}

bool CheckNV3LineFallback(std::string_view line) {
  line = WithoutLineEnd(line);
  if (line.size() != kNv3LineLength) return false;
  return SumMatches(line, NV3CheckSum2) || SumMatches(line, NV3CheckSum3) ||
         SumMatches(line, NV3CheckSum4);
}

}  // namespace kvlr
