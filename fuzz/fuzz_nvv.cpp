// Any bytes as an event file (.nvv): split into lines and read whole, plus the field
// splitter and check value of each line. Nothing may crash or read out of bounds.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/EventFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace kvlr;
  std::string_view text(reinterpret_cast<const char*>(data), size);
  std::vector<std::string> lines;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  for (const std::string& line : lines) {
    const auto fields = SplitEventFields(line, 12);
    EventFileCheckValue(line, fields.empty() ? std::string_view() : std::string_view(fields[0]));
    if (fields.size() > 4) EventCourse(fields[4]);
  }
  ParseEventFile(lines);
  return 0;
}
