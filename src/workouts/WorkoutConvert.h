#pragma once
// Conversions between seconds, clock minutes and the texts the workout screens and reports
// show. Pure; a '.' never appears in these texts.

#include <string>
#include <string_view>

namespace kvlr {

// "m:ss": minutes, ':', seconds in two digits ("0:40", "12:05"); 3600 and above "59:59".
std::string gSecondsToMMSS(long seconds);
// "40 seconds", "1 minute ", "2 minutes 5 seconds", "1 minute  1 second"; 3600 and above
// "1 hour+". The odd blanks are the program's own and are kept.
std::string gSecondsToWords(long seconds);
// Text padded on the left with '0' to five characters: characters 1-2 minutes, 4-5 seconds
// ("1:30" gives 90). Non-digits count as VB's Val reads them.
long gMMSSToSeconds(std::string_view text);
// Minutes since midnight as "hh:mm AM " / "hh:mm PM " (trailing blank kept), reduced by whole
// days; noon hour reads "12:", the hour after midnight "00:" ("00:15 AM ").
std::string gMinutesToClock(long minutes);
// "hh:mm AM" back to minutes: hours*60, +720 when character 7 is 'P' and hours < 12, + minutes.
// "12:15 AM" gives 735 like "12:15 PM"; callers rely on that. Upper-case letters only.
long gClockToMinutes(std::string_view clock);
// Hours at most 12, minutes at most 59, character 7 'A' or 'P'.
bool gValidClock(std::string_view clock);
// "mm:ss" with both parts below 60 (digits and blanks only). On success `text` becomes the
// normal form "mm:ss" with two digits each; on failure it is left as it was.
bool gValidRest(std::string& text);
// "1,234" .. "123,456,789" for numbers of 4 to 9 digits (a '-' kept in front); others as is.
std::string gFormatThousands(long value);

}  // namespace kvlr
