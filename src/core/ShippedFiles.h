#pragma once
// Files that ship inside the program and are written into a new program home.

#include <string_view>

namespace kvlr {

// "KVL-Rimprul.txt": one "reason,description" pair a line.
extern const std::string_view kDefaultImportRules;

}  // namespace kvlr
