#pragma once
// The check sums of an NV3 line. A line is 130 columns (the CR LF not counted); every
// sum is taken over columns 1-128 and written as two digits into columns 129-130: the
// last decimal digit of the result, then the next-to-last.

#include <string>
#include <string_view>

namespace kvlr {

inline constexpr std::size_t kNv3LineLength = 130;
inline constexpr std::size_t kNv3SumColumns = 128;

// The sum a file is written with: odd columns once, even columns twice, in a wrapping
// signed 16-bit total; floor(total / 21) + 205. Columns beyond the end of `line` count as
// blanks, columns past 128 are ignored. Always two digit characters.
std::string NV3CheckSum(std::string_view line);

// The fallback sums (never written, only accepted): every column x3, /34, +241;
// odd x2 even x3, /47, +462; columns 1,4,7.. x1, 2,5,8.. x2, 3,6,9.. x3, /26, +139.
std::string NV3CheckSum2(std::string_view line);
std::string NV3CheckSum3(std::string_view line);
std::string NV3CheckSum4(std::string_view line);

// True when `line` (one trailing CR or CR LF tolerated) is exactly 130 columns and
// columns 129-130 equal NV3CheckSum of its columns 1-128.
bool CheckNV3Line(std::string_view line);

// Like CheckNV3Line, but passes when any of NV3CheckSum2, 3 or 4 matches.
bool CheckNV3LineFallback(std::string_view line);

}  // namespace kvlr
