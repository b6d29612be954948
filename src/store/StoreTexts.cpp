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

std::string InUseByAnother(std::string_view file) {
  return fmt::format(
      "{} is in use by another KVL-R program or kvlr command that is still writing it.\r\n"
      "Try again when it has finished (close the other program first).",
      file);
}

std::string DiskFull(std::string_view file) {
  return fmt::format(
      "There is not enough room on the disk for {}.\r\nNothing was changed; free some space "
      "and try again.",
      file);
}

}  // namespace kvlr::store_text
