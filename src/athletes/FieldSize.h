#pragma once
// How many characters a text field of a user table holds, for the limits of entry fields.

#include <string_view>

namespace kvlr {

// The declared size of text field `field` of `table` (names case-insensitive); 0 when the
// field isn't text or doesn't exist.
int FieldSize(std::string_view table, std::string_view field);

}  // namespace kvlr
