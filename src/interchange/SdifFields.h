#pragma once
// The field conversions of the 160-column interchange records. Columns count from 1 and
// are inclusive; columns behind the end of a short line read as blanks. None of these
// fails on content.

#include <cstdint>
#include <string>
#include <string_view>

#include "core/Date.h"

namespace kvlr {

// 01/01/1800: what an all-blank date field reads as.
inline constexpr Date kSdifBlankDate{1800, 1, 1};

// A date field as read. `bad` is the sentinel for columns that are neither a date nor
// blank; it compares unequal to every real date (`date` is then meaningless).
struct FileDate {
  Date date = kSdifBlankDate;
  bool bad = false;

  bool IsBlank() const { return !bad && date == kSdifBlankDate; }
  bool operator==(const FileDate& other) const { return !bad && !other.bad && date == other.date; }
};

// A time field in both forms: the columns as they stand and the score in hundredths
// (0 for no time, codes such as "DQ" included).
struct FileTime {
  std::string text;
  int32_t score = 0;
};

// Columns `from`..`to` of `line`, blank-padded to their width, as UTF-8 (MeetText): a
// value with bytes above 0x7F may be longer than its width.
std::string SdifText(std::string_view line, int from, int to);
// The same, trimmed of blanks at both ends.
std::string SdifTrimmed(std::string_view line, int from, int to);
// Forgiving numeric parse (leading number, else 0), halves to even, held to 16 bits
// (values outside -32768..32767 are clamped).
int16_t SdifInt(std::string_view line, int from, int to);

// Eight characters "mmddyyyy" in the user's `date_order` (0 month, 1 day, 2 year first).
FileDate ParseFileDate(std::string_view mmddyyyy, int date_order);
// Eight characters of time text; the score as a typed time would give it.
FileTime ParseFileTime(std::string_view text);
// Four characters "lohi" as one number (`Lo_Hi`): "UN" low is 00, "OV" high is 99,
// "0810" is 810, "15OV" 1599. 0 for any blank, or a half that is not digits and not its
// word, or is 0 without being the word.
int ParseAgeRange(std::string_view lohi);

// Column readers over one line, for the record readers.
class SdifColumns {
 public:
  explicit SdifColumns(std::string_view line) : line_(line) {}
  std::string Text(int from, int to) const { return SdifText(line_, from, to); }
  std::string Trimmed(int from, int to) const { return SdifTrimmed(line_, from, to); }
  int16_t Int(int from, int to) const { return SdifInt(line_, from, to); }
  double Number(int from, int to) const;
  FileDate DateAt(int from, int date_order) const {
    return ParseFileDate(Text(from, from + 7), date_order);
  }
  FileTime TimeAt(int from) const { return ParseFileTime(Text(from, from + 7)); }
  int AgeRangeAt(int from) const { return ParseAgeRange(Text(from, from + 3)); }

 private:
  std::string_view line_;
};

}  // namespace kvlr
