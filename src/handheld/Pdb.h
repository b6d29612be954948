#pragma once
// The public Palm database layout (PDB): a 78-byte header, a list of 8-byte record entries
// (offset, attributes, 24-bit unique id), then the records; every number big-endian. Dates
// are seconds since 1904-01-01 (Palm seconds). Application and sort blocks are neither
// written nor kept.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Date.h"

namespace kvlr {

inline constexpr size_t kPdbHeaderSize = 78;
inline constexpr size_t kPdbEntrySize = 8;

struct PdbRecord {
  uint8_t attributes = 0;
  uint32_t unique_id = 0;  // 24 bits
  std::string bytes;
  bool operator==(const PdbRecord&) const = default;
};

struct PdbFile {
  std::string name;  // at most 31 bytes; longer names are cut when written
  uint16_t attributes = 0;
  uint16_t version = 0;
  uint32_t created = 0;  // Palm seconds
  uint32_t modified = 0;
  uint32_t backed_up = 0;
  std::array<char, 4> type{'D', 'A', 'T', 'A'};
  std::array<char, 4> creator{'K', 'V', 'L', 'R'};
  std::vector<PdbRecord> records;
};

// Palm seconds of a moment (local time as the store keeps it).
uint32_t PalmSeconds(const DateTime& moment);

// The whole file. Unique ids of 0 are given 1, 2, 3... in record order.
std::string WritePdb(const PdbFile& file);

// Reads a whole file. A damaged file throws FormatError whose text says what is wrong and
// where: too short for the header, a record count whose list does not fit, an offset inside
// the header or list, past the end, or before the record ahead of it. Nothing outside
// `bytes` is read.
PdbFile ReadPdb(std::string_view bytes);

}  // namespace kvlr
