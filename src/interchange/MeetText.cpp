#include "interchange/MeetText.h"

#include <algorithm>
#include <cstdint>

namespace kvlr {
namespace {

// Windows-1252 0x80-0x9F; 0 where the code page leaves a gap (taken as Latin-1's control).
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Length of the well-formed UTF-8 sequence at `i` (2 to 4), or 0 when there is none.
size_t Utf8SequenceAt(std::string_view s, size_t i) {
  const auto byte = [&](size_t k) { return static_cast<unsigned char>(s[k]); };
  const unsigned char lead = byte(i);
  size_t length = 0;
  unsigned char low = 0x80, high = 0xBF;  // allowed range of the second byte
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;   // no overlong forms
    if (lead == 0xED) high = 0x9F;  // no surrogates
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return 0;
  }
  if (i + length > s.size()) return 0;
  if (byte(i + 1) < low || byte(i + 1) > high) return 0;
  for (size_t k = 2; k < length; ++k) {
    if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) return 0;
  }
  return length;
}

}  // namespace

std::string MeetText(std::string_view raw) {
  if (std::all_of(raw.begin(), raw.end(), [](char c) { return (c & 0x80) == 0; })) {
    return std::string(raw);
  }
  std::string out;
  out.reserve(raw.size() + raw.size() / 2);
  for (size_t i = 0; i < raw.size();) {
    const auto c = static_cast<unsigned char>(raw[i]);
    if (c < 0x80) {
      out += raw[i++];
      continue;
    }
    if (const size_t length = Utf8SequenceAt(raw, i)) {
      out.append(raw.substr(i, length));
      i += length;
      continue;
    }
    const char16_t mapped = c < 0xA0 ? kCp1252High[c - 0x80] : 0;
    AppendUtf8(out, mapped ? mapped : c);
    ++i;
  }
  return out;
}

std::string Utf8Prefix(std::string_view text, size_t characters) {
  size_t at = 0;
  for (size_t n = 0; at < text.size() && n < characters; ++n) {
    ++at;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) ++at;
  }
  return std::string(text.substr(0, at));
}

}  // namespace kvlr
