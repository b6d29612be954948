#pragma once
// The record body of a row: each field as text, in table order, ended by a NUL byte, in
// Windows-1252. Our texts are UTF-8; a character that code page lacks goes out as '?'.

#include <string>
#include <string_view>
#include <vector>

namespace kvlr {

std::string Utf8ToCp1252(std::string_view utf8);
std::string Cp1252ToUtf8(std::string_view cp1252);

// A NUL inside a field would split it: it is dropped.
std::string EncodePdbRow(const std::vector<std::string>& fields);
// The fields of a body; text after the last NUL counts as one more field.
std::vector<std::string> DecodePdbRow(std::string_view body);

}  // namespace kvlr
