#include "store/StoreTexts.h"

#include <fmt/format.h>

namespace kvlr::store_text {

std::string ProblemCreating(std::string_view word, std::string_view store_text) {
  return fmt::format("Problem Creating the {} Table\r\n{}", word, store_text);
}

std::string ProblemAddingField(std::string_view field, std::string_view table) {
  return fmt::format("Problem adding Field: {} to Table: {}", field, table);
}

std::string Thousands(long long value) {
  std::string digits = std::to_string(value < 0 ? -value : value);
  std::string out;
  int count = 0;
  for (auto it = digits.rbegin(); it != digits.rend(); ++it) {
    if (count > 0 && count % 3 == 0) out.insert(out.begin(), ',');
    out.insert(out.begin(), *it);
    ++count;
  }
  return value < 0 ? "-" + out : out;
}

std::string DiskRoomMessage(long long free_kb, std::string_view drive, long long needed_kb) {
  return fmt::format(
      "There are {} Kbytes of disk space left on {}\r\nThis operation will need at least {} "
      "Kbytes for temporary files.\r\n{}",
      Thousands(free_kb), drive, Thousands(needed_kb), kNotEnoughRoom);
}

}  // namespace kvlr::store_text
