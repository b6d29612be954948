#include "handheld/PdbRows.h"

#include <algorithm>
#include <cstdint>

namespace kvlr {

namespace {

// 0x80 to 0x9F of Windows-1252; 0 where the code page has no character.
constexpr char16_t kHigh[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  }
}

char ToCp1252(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
  for (int i = 0; i < 32; ++i) {
    if (kHigh[i] != 0 && kHigh[i] == c) return static_cast<char>(0x80 + i);
  }
  return '?';
}

}  // namespace

std::string Utf8ToCp1252(std::string_view utf8) {
  std::string out;
  size_t i = 0;
  while (i < utf8.size()) {
    const auto lead = static_cast<uint8_t>(utf8[i]);
    const int extra = lead < 0x80 ? 0 : lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : -1;
    if (extra < 0 || i + static_cast<size_t>(extra) >= utf8.size()) {
      out.push_back('?');  // a stray or cut byte
      ++i;
      continue;
    }
    char32_t c = extra == 0 ? lead : lead & (0x3F >> extra);
    for (int k = 1; k <= extra; ++k) c = (c << 6) | (static_cast<uint8_t>(utf8[i + k]) & 0x3F);
    out.push_back(ToCp1252(c));
    i += static_cast<size_t>(extra) + 1;
  }
  return out;
}

std::string Cp1252ToUtf8(std::string_view cp1252) {
  std::string out;
  for (char ch : cp1252) {
    const auto b = static_cast<uint8_t>(ch);
    const char32_t c = b >= 0x80 && b < 0xA0 ? kHigh[b - 0x80] : b;
    AppendUtf8(out, c != 0 ? c : U'?');
  }
  return out;
}

std::string EncodePdbRow(const std::vector<std::string>& fields) {
  std::string body;
  for (const std::string& field : fields) {
    for (char ch : Utf8ToCp1252(field)) {
      if (ch != '\0') body.push_back(ch);
    }
    body.push_back('\0');
  }
  return body;
}

std::vector<std::string> DecodePdbRow(std::string_view body) {
  std::vector<std::string> fields;
  while (!body.empty()) {
    const size_t end = std::min(body.find('\0'), body.size());
    fields.push_back(Cp1252ToUtf8(body.substr(0, end)));
    body.remove_prefix(std::min(end + 1, body.size()));
  }
  return fields;
}

}  // namespace kvlr
