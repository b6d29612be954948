#pragma once
// Small text-cleaning routines for typed times, export file names, standards table
// names and athlete names. Letters are handled as ASCII; other bytes pass through.

#include <string>
#include <string_view>

namespace kvlr {

// Only the digits, ':' and '.' of `text`, in order.
std::string StripIt(std::string_view text);

// `text` without '*', '.', '\' and '/' (for the file names of exports).
std::string RemoveBadCharacters(std::string_view text);

// `text` without ' ', '.', '!', '\'', '[' and ']', upper-cased (names of standards tables).
std::string ValidTableName(std::string_view text);

// `text` without the character at 1-based `position`; unchanged when `position` is
// outside 1..size.
std::string RemoveCharAt(std::string_view text, int position);

// Names as typed on the athlete screen or read on import. Fewer than three characters,
// or a lower-case second character (the name is already in mixed case): returned as it
// is. Otherwise proper case (words split at blanks and control characters only), then
// "III", "YMCA", "YWCA" in capitals; a name holding "Mac" stops there; a capital after
// each "Mc", "Ii" as "II", and a capital after each "'" and "-".
std::string ProperName(std::string_view text);

}  // namespace kvlr
