#pragma once
// Text values of meet files as UTF-8. The files are 8-bit text written by programs of every
// age: mostly ASCII, names often in Windows-1252 (Latin-1), now and then already UTF-8.
// Columns are byte positions, so a line is cut into its fields first and each text value is
// converted after; check sums are computed over the bytes as they stand.

#include <string>
#include <string_view>

namespace kvlr {

// `raw` as UTF-8: a valid UTF-8 sequence stays as it is; any other byte 0x80-0xFF is taken
// as Windows-1252 (its five unused codes as Latin-1) and converted. Plain ASCII is unchanged.
std::string MeetText(std::string_view raw);

// The first `characters` characters of UTF-8 `text` (never a part of one).
std::string Utf8Prefix(std::string_view text, size_t characters);

}  // namespace kvlr
