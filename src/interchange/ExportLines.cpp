#include "interchange/ExportLines.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include <fmt/format.h>

#include "core/Errors.h"
#include "interchange/Cl2CheckSum.h"
#include "interchange/Nv3CheckSum.h"

namespace kvlr {
namespace {

// Code points of Windows-1252's bytes 0x80-0x9F (0 where the code page has none).
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char ToByte(char32_t c) {
  if (c == '\r' || c == '\n') return ' ';
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(static_cast<uint8_t>(c));
  for (std::size_t i = 0; i < kHigh.size(); ++i) {
    if (kHigh[i] != 0 && kHigh[i] == c) return static_cast<char>(0x80 + i);
  }
  return '?';
}

}  // namespace

std::string FileBytes(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<uint8_t>(text[i]);
    const int extra = lead < 0x80 ? 0 : lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : -1;
    if (extra < 0 || i + static_cast<std::size_t>(extra) >= text.size()) {
      out.push_back('?');
      ++i;
      continue;
    }
    char32_t c = extra == 0 ? lead : lead & (0x3F >> extra);
    for (int k = 1; k <= extra; ++k) c = (c << 6) | (static_cast<uint8_t>(text[i + k]) & 0x3F);
    out.push_back(ToByte(c));
    i += static_cast<std::size_t>(extra) + 1;
  }
  return out;
}

FixedLine& FixedLine::Put(int column, std::string_view text, std::size_t width) {
  const std::string bytes = FileBytes(text);
  const std::size_t at = static_cast<std::size_t>(column - 1);
  const std::size_t n = std::min({bytes.size(), width, text_.size() - std::min(at, text_.size())});
  text_.replace(at, n, bytes, 0, n);
  return *this;
}

FixedLine& FixedLine::PutRight(int column, std::string_view text, std::size_t width) {
  std::string bytes = FileBytes(text);
  if (bytes.size() > width) bytes.erase(0, bytes.size() - width);
  return Put(column + static_cast<int>(width - bytes.size()), bytes, bytes.size());
}

std::string FileDateText(const std::optional<Date>& date) {
  if (!date) return "";
  return fmt::format("{:02d}{:02d}{:04d}", date->month, date->day, date->year);
}

std::string LoHiToSDIF(int lo_hi) {
  std::string text = "0000" + std::to_string(lo_hi);
  text.erase(0, text.size() - 4);
  if (text.compare(0, 2, "00") == 0) text.replace(0, 2, "UN");
  if (text.compare(2, 2, "99") == 0) text.replace(2, 2, "OV");
  return text;
}

std::string NV3NTLetter(int nt) {
  switch (nt) {
    case 1:
      return "S";
    case 2:
      return "R";
    case 3:
      return "D";
    case 5:
      return "Q";
    default:
      return "";
  }
}

std::string Nv3Number(int32_t hundredths) {
  const int64_t v = hundredths;
  const int64_t a = v < 0 ? -v : v;
  return fmt::format("{}{}.{:02d}", v < 0 ? "-" : "", a / 100, a % 100);
}

std::string CL2LineCheckSum(std::string line) {
  line.resize(160, ' ');
  const auto sum = CL2CheckSum(line);
  if (!sum) throw FormatError(err::kDataError, "A line's check sum passes 16 bits.");
  line.replace(158, 2, *sum);
  return line + "\r\n";
}

std::string Nv3LineCheckSum(std::string line) {
  line.resize(kNv3LineLength, ' ');
  line.replace(kNv3SumColumns, 2, NV3CheckSum(line));
  return line + "\r\n";
}

}  // namespace kvlr
