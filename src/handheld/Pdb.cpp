#include "handheld/Pdb.h"

#include <algorithm>

#include <fmt/format.h>

#include "core/Errors.h"

namespace kvlr {

namespace {

constexpr long kDaysFrom1904To1970 = 24107;

void Put(std::string& out, uint32_t value, int bytes) {
  for (int i = bytes - 1; i >= 0; --i) out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
}

uint32_t Get(std::string_view in, size_t at, int bytes) {
  uint32_t value = 0;
  for (int i = 0; i < bytes; ++i) value = (value << 8) | static_cast<uint8_t>(in[at + i]);
  return value;
}

[[noreturn]] void Damaged(const std::string& words) {
  throw FormatError(err::kDataError, words);
}

}  // namespace

uint32_t PalmSeconds(const DateTime& moment) {
  const long days = DaysBetween(Date{1970, 1, 1}, moment.date) + kDaysFrom1904To1970;
  const int64_t seconds =
      int64_t{days} * 86400 + moment.hour * 3600 + moment.minute * 60 + moment.second;
  return seconds < 0 ? 0 : static_cast<uint32_t>(seconds);
}

std::string WritePdb(const PdbFile& file) {
  std::string out;
  std::string name = file.name.substr(0, 31);
  name.resize(32, '\0');
  out += name;
  Put(out, file.attributes, 2);
  Put(out, file.version, 2);
  Put(out, file.created, 4);
  Put(out, file.modified, 4);
  Put(out, file.backed_up, 4);
  Put(out, 0, 4);  // modification number
  Put(out, 0, 4);  // application block
  Put(out, 0, 4);  // sort block
  out.append(file.type.data(), 4);
  out.append(file.creator.data(), 4);
  Put(out, static_cast<uint32_t>(file.records.size() + 1), 4);  // unique id seed
  Put(out, 0, 4);                                              // next record list
  Put(out, static_cast<uint32_t>(file.records.size()), 2);
  // Two zero bytes after the list, as Palm's own tools leave them.
  uint32_t offset =
      static_cast<uint32_t>(kPdbHeaderSize + kPdbEntrySize * file.records.size() + 2);
  uint32_t next_id = 1;
  for (const PdbRecord& r : file.records) {
    Put(out, offset, 4);
    out.push_back(static_cast<char>(r.attributes));
    Put(out, r.unique_id != 0 ? r.unique_id : next_id, 3);
    ++next_id;
    offset += static_cast<uint32_t>(r.bytes.size());
  }
  out += std::string(2, '\0');
  for (const PdbRecord& r : file.records) out += r.bytes;
  return out;
}

PdbFile ReadPdb(std::string_view bytes) {
  if (bytes.size() < kPdbHeaderSize) {
    Damaged(fmt::format("The file is too short for a Palm database header: {} bytes of {}.",
                        bytes.size(), kPdbHeaderSize));
  }
  PdbFile file;
  const std::string_view name = bytes.substr(0, 32);
  file.name = std::string(name.substr(0, std::min(name.find('\0'), name.size())));
  file.attributes = static_cast<uint16_t>(Get(bytes, 32, 2));
  file.version = static_cast<uint16_t>(Get(bytes, 34, 2));
  file.created = Get(bytes, 36, 4);
  file.modified = Get(bytes, 40, 4);
  file.backed_up = Get(bytes, 44, 4);
  std::copy_n(bytes.data() + 60, 4, file.type.begin());
  std::copy_n(bytes.data() + 64, 4, file.creator.begin());
  const size_t count = Get(bytes, 76, 2);
  const size_t list_end = kPdbHeaderSize + kPdbEntrySize * count;
  if (list_end > bytes.size()) {
    Damaged(fmt::format("The list of {} records needs {} bytes; the file has {}.", count,
                        list_end, bytes.size()));
  }
  std::vector<size_t> offsets(count);
  for (size_t i = 0; i < count; ++i) {
    const size_t entry = kPdbHeaderSize + kPdbEntrySize * i;
    offsets[i] = Get(bytes, entry, 4);
    if (offsets[i] < list_end) {
      Damaged(fmt::format("Record {} starts at offset {}, inside the header and record list.",
                          i, offsets[i]));
    }
    if (offsets[i] > bytes.size()) {
      Damaged(fmt::format("Record {} starts at offset {}, past the end of the file ({} bytes).",
                          i, offsets[i], bytes.size()));
    }
    if (i > 0 && offsets[i] < offsets[i - 1]) {
      Damaged(fmt::format("Record {} starts at offset {}, before record {} (at {}).", i,
                          offsets[i], i - 1, offsets[i - 1]));
    }
    file.records.push_back(
        {static_cast<uint8_t>(bytes[entry + 4]), Get(bytes, entry + 5, 3), std::string()});
  }
  for (size_t i = 0; i < count; ++i) {
    const size_t end = i + 1 < count ? offsets[i + 1] : bytes.size();
    file.records[i].bytes = std::string(bytes.substr(offsets[i], end - offsets[i]));
  }
  return file;
}

}  // namespace kvlr
