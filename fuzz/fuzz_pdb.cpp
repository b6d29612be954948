// Any bytes as a Palm database from the handheld: the header, the record list and every
// record's fields. Damage must be refused in words, never read outside the bytes.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/Errors.h"
#include "handheld/Pdb.h"
#include "handheld/PdbRows.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace kvlr;
  try {
    const PdbFile file = ReadPdb(std::string_view(reinterpret_cast<const char*>(data), size));
    for (const PdbRecord& r : file.records) DecodePdbRow(r.bytes);
  } catch (const FormatError&) {
  }
  return 0;
}
