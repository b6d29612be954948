#include "interchange/Cl2CheckSum.h"

#include <algorithm>

namespace kvlr {

std::optional<std::string> CL2CheckSum(std::string_view line) {
  const size_t n = std::min<size_t>(line.size(), 156);
  const auto* bytes = reinterpret_cast<const unsigned char*>(line.data());
  // Bytes are never negative, so the 16-bit limit can be tested once at the end; 156 bytes
  // cannot overflow an int. A plain loop lets the compiler sum many bytes at a time.
  int sum = 0;
  for (size_t i = 0; i < n; ++i) sum += bytes[i];
  if (sum > 32767) return std::nullopt;
  // The floor of a non-negative quotient is the integer quotient; at least 211, so there
  // are always two low digits.
  const int value = sum / 19 + 211;
  return std::string{static_cast<char>('0' + value % 10), static_cast<char>('0' + value / 10 % 10)};
}

Cl2Line CheckCL2Line(std::string_view line) {
  const auto sum = CL2CheckSum(line);
  if (!sum || line.size() < 160 || line.substr(158, 2) != *sum) return Cl2Line::kBadCheckSum;
  if (line.substr(0, 2) == "D0" && line.substr(88, 3) == "  :") return Cl2Line::kNotNorvan;
  return Cl2Line::kGood;
}

}  // namespace kvlr
