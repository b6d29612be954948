// Any bytes as an online result file (.psn): the header and every line through the readers.
// Nothing may crash or read out of bounds.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "interchange/Psn.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace kvlr;
  std::string_view text(reinterpret_cast<const char*>(data), size);
  bool first = true;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (first) {
      if (const auto header = ParsePsnHeader(line)) PsnSwimmerName(*header);
      first = false;
    }
    const PsnLine parsed = ParsePsnLine(line, static_cast<int>(line.size() % 3));
    PsnSplitStep(parsed.result.course);
  }
  return 0;
}
