#pragma once
// Building the fixed-column lines of the interchange files. Columns count from 1; a value
// never spills out of its columns: a text is cut to its width, a number keeps its last
// digits. Texts are written as Windows-1252 bytes (a character that code page lacks
// becomes '?') with every line break made one blank, so one character is one column.

#include <optional>
#include <string>
#include <string_view>

#include "core/Date.h"

namespace kvlr {

// UTF-8 `text` as Windows-1252 bytes, line breaks as blanks.
std::string FileBytes(std::string_view text);

class FixedLine {
 public:
  explicit FixedLine(std::size_t width) : text_(width, ' ') {}
  // `text` left-aligned in columns column..column+width-1, cut to the width.
  FixedLine& Put(int column, std::string_view text, std::size_t width);
  // `text` right-aligned in its columns; only its last `width` characters when longer.
  FixedLine& PutRight(int column, std::string_view text, std::size_t width);
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

// "mmddyyyy"; "" for nullopt.
std::string FileDateText(const std::optional<Date>& date);

// An age range as an SDIF event age: "0000" + Lo_Hi, its last four, "UN" for a low "00",
// "OV" for a high "99" (99 "UNOV", 1099 "10OV", 11 "UN11").
std::string LoHiToSDIF(int lo_hi);

// The NV3 letter of a non-time code: 1 "S", 2 "R", 3 "D", 5 "Q", others "".
std::string NV3NTLetter(int nt);

// "####0.00": hundredths as a number with two decimals (6532 "65.32", 0 "0.00").
std::string Nv3Number(int32_t hundredths);

// A 160-column Commlink line with CL2CheckSum in columns 159-160 and CR LF behind: 162
// bytes. Throws FormatError for bytes whose sum a check sum cannot hold.
std::string CL2LineCheckSum(std::string line);

// A 130-column NV3 line with NV3CheckSum in columns 129-130 and CR LF behind: 132 bytes.
std::string Nv3LineCheckSum(std::string line);

}  // namespace kvlr
