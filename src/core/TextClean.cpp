#include "core/TextClean.h"

#include <algorithm>

namespace kvlr {
namespace {

bool IsLower(char c) {
  return c >= 'a' && c <= 'z';
}

bool IsUpper(char c) {
  return c >= 'A' && c <= 'Z';
}

char ToUpper(char c) {
  return IsLower(c) ? static_cast<char>(c - 'a' + 'A') : c;
}

char ToLower(char c) {
  return IsUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string Without(std::string_view text, std::string_view drop) {
  std::string kept;
  for (char c : text) {
    if (drop.find(c) == std::string_view::npos) kept += c;
  }
  return kept;
}

// The word breaks of VB's proper case: NUL, tab to carriage return, and blank.
// Apostrophes and hyphens are not among them, hence the later rules.
bool IsWordBreak(char c) {
  return c == '\0' || (c >= '\t' && c <= '\r') || c == ' ';
}

std::string ProperCase(std::string_view text) {
  std::string out(text);
  bool word_start = true;
  for (char& c : out) {
    c = word_start ? ToUpper(c) : ToLower(c);
    word_start = IsWordBreak(c);
  }
  return out;
}

// Writes `word` in capitals over every occurrence of it, whatever its case.
void RestoreCapitals(std::string& text, std::string_view word) {
  for (size_t i = 0; i + word.size() <= text.size(); ++i) {
    bool match = true;
    for (size_t j = 0; j < word.size() && match; ++j) match = ToUpper(text[i + j]) == word[j];
    if (match) std::copy(word.begin(), word.end(), text.begin() + i);
  }
}

// Capitalises the character after every `mark` that isn't at the end.
void CapitalAfter(std::string& text, std::string_view mark) {
  for (size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
    size_t next = at + mark.size();
    if (next < text.size()) text[next] = ToUpper(text[next]);
  }
}

}  // namespace

std::string StripIt(std::string_view text) {
  std::string kept;
  for (char c : text) {
    if ((c >= '0' && c <= '9') || c == ':' || c == '.') kept += c;
  }
  return kept;
}

std::string RemoveBadCharacters(std::string_view text) {
  return Without(text, "*.\\/");
}

std::string ValidTableName(std::string_view text) {
  std::string name = Without(text, " .!'[]");
  for (char& c : name) c = ToUpper(c);
  return name;
}

std::string RemoveCharAt(std::string_view text, int position) {
  if (position < 1 || static_cast<size_t>(position) > text.size()) return std::string(text);
  std::string out(text);
  out.erase(static_cast<size_t>(position - 1), 1);
  return out;
}

std::string ProperName(std::string_view text) {
  if (text.size() < 3 || IsLower(text[1])) return std::string(text);
  std::string name = ProperCase(text);
  for (std::string_view word : {"III", "YMCA", "YWCA"}) RestoreCapitals(name, word);
  if (name.find("Mac") != std::string::npos) return name;
  CapitalAfter(name, "Mc");
  for (size_t at = name.find("Ii"); at != std::string::npos; at = name.find("Ii", at + 2)) {
    name[at + 1] = 'I';
  }
  CapitalAfter(name, "'");
  CapitalAfter(name, "-");
  return name;
}

}  // namespace kvlr
