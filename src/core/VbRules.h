#pragma once
// The few Visual Basic conversions that stored values and typed texts depend on.
// All are pure and locale-free: a '.' is always the decimal point.

#include <cstdint>
#include <string>
#include <string_view>

namespace kvlr {

// VB `Val`: the number at the start of `text`. Blanks, tabs and line feeds are skipped
// wherever they stand; then an optional sign, digits with at most one '.', and an
// optional exponent ('E' or 'D', optional sign, digits). "&H" and "&O" start a hex or
// octal integer; up to 16 bits it is read as a signed 16-bit value, up to 32 bits as a
// signed 32-bit value (so "&HFFFF" is -1). Reading stops at the first other character.
// No number gives 0; an exponent too large gives +/- infinity.
double Val(std::string_view text);

// The nearest integer, halves to the even neighbour (VB CLng/CInt). `value` must be finite
// and within the range of int64_t.
int64_t RoundHalfEven(double value);
// A double as a 32-bit integer, cut toward zero; out-of-range values are held at the limits
// and NaN gives 0 (file readers must never overflow on what they read).
int32_t ToInt32(double value);

// VB Format(value, "####.00"): at least one digit only when the whole part isn't 0
// (0.05 gives ".05", 0 gives ".00"), always two decimals, halves away from zero on the
// value's 15-significant-digit form, a leading '-' for values that don't round to 0.
// Not finite: "".
std::string FormatPoints(double value);

// VB Trim: leading and trailing blanks (spaces only) removed.
std::string Trim(std::string_view text);

// VB UCase for ASCII letters; other bytes are kept.
std::string UCase(std::string_view text);

}  // namespace kvlr
