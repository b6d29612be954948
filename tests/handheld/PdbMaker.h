#pragma once
// Palm databases packed by hand from the published layout, apart from the program's writer.

#include <cstdint>
#include <string>
#include <vector>

namespace kvlr::test {

inline void PutBig(std::string& out, uint32_t value, int bytes) {
  for (int i = bytes - 1; i >= 0; --i) out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

// Records follow the list directly; unique ids 0x10, 0x20, ...
inline std::string MakePdb(const std::string& name, const std::vector<std::string>& records,
                           uint32_t created = 0xB5D1A600) {
  std::string out = name;
  out.resize(32, '\0');
  PutBig(out, 0x0008, 2);  // backup bit
  PutBig(out, 1, 2);
  PutBig(out, created, 4);
  PutBig(out, created + 60, 4);
  for (int i = 0; i < 4; ++i) PutBig(out, 0, 4);  // backup date, modification number, blocks
  out += "DATAPTAL";
  PutBig(out, 0, 4);
  PutBig(out, 0, 4);
  PutBig(out, static_cast<uint32_t>(records.size()), 2);
  uint32_t offset = static_cast<uint32_t>(78 + 8 * records.size());
  for (size_t i = 0; i < records.size(); ++i) {
    PutBig(out, offset, 4);
    out += '\x40';  // dirty
    PutBig(out, static_cast<uint32_t>(0x10 * (i + 1)), 3);
    offset += static_cast<uint32_t>(records[i].size());
  }
  for (const auto& r : records) out += r;
  return out;
}

// A row as the companion writes it: each field ended by a NUL.
inline std::string Row(const std::vector<std::string>& fields) {
  std::string out;
  for (const auto& f : fields) out += f + '\0';
  return out;
}

}  // namespace kvlr::test
