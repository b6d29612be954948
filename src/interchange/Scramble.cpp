#include "interchange/Scramble.h"

#include <algorithm>

namespace kvlr {
namespace {

constexpr size_t kBlock = 10;
constexpr size_t kScrambledColumns = 120;  // columns 2-121 of the file line

bool Kept(int c) {
  return c == 32 || c == 45 || c == 46 || c == 58;
}

int DigitAt(std::string_view key, size_t i) {
  if (i >= key.size()) return 0;
  const char k = key[i];
  return k >= '0' && k <= '9' ? k - '0' : 0;
}

int Unscramble(int c, int d) {
  if (Kept(c)) return c;
  if (c >= 109) return c - d - 60;
  if (c < 91) return c - d;
  return c + d - 18;
}

// A code that Unscramble turns back into `p`, or -1. Kept codes must not come out of any
// other character, so each candidate is checked against the branch it would fall in.
int Scramble(int p, int d) {
  if (Kept(p)) return p;
  const int candidates[] = {p + d, p - d + 18, p + d + 60};
  for (int c : candidates) {
    if (c < 0 || c > 255 || Kept(c)) continue;
    if (Unscramble(c, d) == p) return c;
  }
  return -1;
}

}  // namespace

std::optional<std::string_view> ScrambleKeyFor(char key_digit) {
  if (key_digit < '1' || key_digit > '5') return std::nullopt;
  return kScrambleKeys[static_cast<size_t>(key_digit - '1')];
}

std::string UnscrambleBlock(std::string_view block, std::string_view key) {
  std::string out(block.rbegin(), block.rend());
  for (size_t i = 0; i < out.size(); ++i) {
    const int c = static_cast<unsigned char>(out[i]);
    out[i] = static_cast<char>(static_cast<unsigned char>(Unscramble(c, DigitAt(key, i)) & 0xFF));
  }
  return out;
}

std::optional<std::string> UnscrambleLine(std::string_view line) {
  if (line.empty()) return std::nullopt;
  const auto key = ScrambleKeyFor(line[0]);
  if (!key) return std::nullopt;
  const std::string_view body = line.substr(1);
  const std::string_view scrambled = body.substr(0, std::min(body.size(), kScrambledColumns));
  std::string out;
  out.reserve(body.size());
  for (size_t at = 0; at < scrambled.size(); at += kBlock) {
    out += UnscrambleBlock(scrambled.substr(at, kBlock), *key);
  }
  out += body.substr(scrambled.size());
  return out;
}

std::optional<std::string> ScrambleLine(std::string_view nv3_line, int key_index) {
  if (key_index < 1 || key_index > static_cast<int>(kScrambleKeys.size())) return std::nullopt;
  const std::string_view key = kScrambleKeys[static_cast<size_t>(key_index - 1)];
  const std::string_view head = nv3_line.substr(0, std::min(nv3_line.size(), kScrambledColumns));
  std::string out(1, static_cast<char>('0' + key_index));
  for (size_t at = 0; at < head.size(); at += kBlock) {
    const std::string_view plain = head.substr(at, kBlock);
    std::string block(plain.size(), ' ');
    for (size_t i = 0; i < plain.size(); ++i) {
      const int c = Scramble(static_cast<unsigned char>(plain[i]), DigitAt(key, i));
      if (c < 0) return std::nullopt;
      block[i] = static_cast<char>(static_cast<unsigned char>(c));
    }
    out.append(block.rbegin(), block.rend());
  }
  out += nv3_line.substr(head.size());
  return out;
}

}  // namespace kvlr
