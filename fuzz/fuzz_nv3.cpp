// Any bytes as an NV3 file: each line through the check sums, the header checks and every
// record reader. Nothing may crash or read out of bounds.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "interchange/Nv3CheckSum.h"
#include "interchange/Nv3Records.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace kvlr;
  std::string_view text(reinterpret_cast<const char*>(data), size);
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const int order = static_cast<int>(line.size() % 3);
    CheckNV3Line(line);
    CheckNV3LineFallback(line);
    LoadNV3A1Rec(line);
    LoadNV3B1Rec(line, order);
    LoadNV3B2Rec(line);
    LoadNv3C1Rec(line);
    LoadNV3AthleteRec(line, order);
    LoadNV3EventRec(line);
    LoadNV3ResultRec(line);
    LoadNV3RelayRec(line);
    LoadNV3SplitRec(line);
  }
  return 0;
}
