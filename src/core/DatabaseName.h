#pragma once

#include <string_view>

#include "core/UserIo.h"

namespace kvlr {

// Longest database name the Open/New dialog accepts.
inline constexpr int kMaxDatabaseName = 20;

// True if the trimmed name (the file name before ".mdb") is not empty, not longer than
// `max_length`, holds none of the quote, apostrophe, slash, backslash, colon or bar and no
// control character, and does not start with a dot (".mdb" alone reaches here as ".mdb").
// Otherwise the user is told why.
bool DatabaseNameOk(std::string_view name, int max_length, UserIo& io);

}  // namespace kvlr
