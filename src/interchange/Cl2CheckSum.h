#pragma once
// The check sum of a Commlink (.cl2) line, stored in columns 159-160.

#include <optional>
#include <string>
#include <string_view>

namespace kvlr {

// Two characters: the two low decimal digits of floor(sum / 19) + 211, reversed, where
// sum adds the byte values (0-255) of columns 1-156 (fewer on a short line). nullopt when
// the sum passes 32767, which the 16-bit sum of the writers cannot hold.
std::optional<std::string> CL2CheckSum(std::string_view line);

enum class Cl2Line {
  kGood,
  kBadCheckSum,  // columns 159-160 differ from CL2CheckSum (or it has none)
  kNotNorvan,    // a D0 whose seed time columns 89-91 are "  :"
};

// A Commlink line as the reader judges it. On kNotNorvan the caller shows the three
// sentences of that box (SdifTexts.h) instead of the integrity-test message.
Cl2Line CheckCL2Line(std::string_view line);

}  // namespace kvlr
