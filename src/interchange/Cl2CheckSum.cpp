#include "interchange/Cl2CheckSum.h"

#include <algorithm>

namespace kvlr {

std::optional<std::string> CL2CheckSum(std::string_view line) {
  const std::string_view body = line.substr(0, std::min<size_t>(line.size(), 156));
  int sum = 0;
  for (const char ch : body) {
    sum += static_cast<unsigned char>(ch);
    if (sum > 32767) return std::nullopt;
  }
  // The floor of a non-negative quotient is the integer quotient.
  const std::string digits = std::to_string(sum / 19 + 211);
  const size_t n = digits.size();
  return std::string{digits[n - 1], digits[n - 2]};
}

Cl2Line CheckCL2Line(std::string_view line) {
  const auto sum = CL2CheckSum(line);
  if (!sum || line.size() < 160 || line.substr(158, 2) != *sum) return Cl2Line::kBadCheckSum;
  if (line.substr(0, 2) == "D0" && line.substr(88, 3) == "  :") return Cl2Line::kNotNorvan;
  return Cl2Line::kGood;
}

}  // namespace kvlr
