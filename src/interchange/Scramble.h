#pragma once
// The scrambled text form of NV3 lines that the online results service hands out
// (KVLR_*.txt): column 1 is a digit that picks one of five shared keys, columns 2-121 are
// scrambled in twelve blocks of ten, the rest of the 130-column NV3 line stands as it is.
// Codes are bytes (0-255); a code that would leave that range wraps.

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace kvlr {

// The five keys the service and the program share, picked by the digits '1' to '5'.
inline constexpr std::array<std::string_view, 5> kScrambleKeys = {
    "3141592653", "2718281828", "1414213562", "1732050807", "2236067977"};

// The key of a column-1 character; nullopt when it is not one of '1' to '5'.
std::optional<std::string_view> ScrambleKeyFor(char key_digit);

// One block (ten columns; a shorter last block is allowed): reversed, then column i goes
// by the key's digit d at i: blank, '-', '.' and ':' stay; a code of 109 or more becomes
// c - d - 60, one below 91 c - d, the others c + d - 18. A key shorter than the block
// counts its missing digits as 0.
std::string UnscrambleBlock(std::string_view block, std::string_view key);

// A whole line: the NV3 line (column 1 dropped, columns 2-121 unscrambled, the rest copied).
// nullopt when column 1 is not a key digit, the line's error. An empty line gives nullopt.
std::optional<std::string> UnscrambleLine(std::string_view line);

// The inverse, for writing such files: the key digit of `key_index` (1 to 5) in front of
// the scrambled NV3 line. nullopt for another key index, or when a character of columns
// 1-120 has no scrambled form under its key digit: the codes that unscramble to it are kept
// codes (a ',' under the digits 1 and 2, for one), or it lies above 186.
std::optional<std::string> ScrambleLine(std::string_view nv3_line, int key_index);

}  // namespace kvlr
