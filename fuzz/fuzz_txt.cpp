// Any bytes as a scrambled result file (KVLR_*.txt): each line unscrambled and read as NV3.
// Scrambling the line as plain text under each key must come back unchanged whenever it
// succeeds. Nothing may crash or read out of bounds.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "interchange/Nv3CheckSum.h"
#include "interchange/Nv3Records.h"
#include "interchange/Scramble.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace kvlr;
  std::string_view text(reinterpret_cast<const char*>(data), size);
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (const auto plain = UnscrambleLine(line)) {
      const int order = static_cast<int>(plain->size() % 3);
      LoadNV3A1Rec(*plain);
      LoadNV3B1Rec(*plain, order);
      LoadNV3AthleteRec(*plain, order);
      LoadNV3ResultRec(*plain);
      LoadNV3SplitRec(*plain);
    }
    for (int key = 1; key <= 5; ++key) {
      const auto scrambled = ScrambleLine(line, key);
      if (scrambled && UnscrambleLine(*scrambled) != line) std::abort();
    }
  }
  return 0;
}
