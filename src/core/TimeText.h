#pragma once
// Swim times and diving points as typed, stored and printed.
//
// A score is whole hundredths: minutes * 6000 + seconds * 100 + hundredths for a swim,
// points * 100 for a diving event (stroke 6 or 7). 0 means no time; a negative score
// prints as points. Seconds are not limited to 59: "1:75.00" is 1 * 6000 + 75 * 100.

#include <cstdint>
#include <string>
#include <string_view>

namespace kvlr {

// Start value of best-time searches; never stored.
inline constexpr int32_t kBestSearchStart = 99999999;
// The lowest time a user may type (8.00 seconds); 1 to 799 print as "Error".
inline constexpr int32_t kMinTypedScore = 800;

inline constexpr std::string_view kTimeTooLow = "Time entered is too low.";
inline constexpr std::string_view kInvalidTime = "Invalid Time";

// Non-time codes (`NT`): why a result has no time.
inline constexpr int kNtNone = 0;
inline constexpr int kNtScratch = 1;
inline constexpr int kNtNoShow = 2;
inline constexpr int kNtDidNotFinish = 3;
inline constexpr int kNtNoTime = 4;
inline constexpr int kNtDisqualified = 5;

// Whatever was typed as exactly "mm:ss.hh", reading the digits from the right: "5123" is
// 00:51.23, "50" is 00:00.50, "51." is 00:51.00, "1:" is 01:00.00; only a ':' at the end
// carries weight. Everything but digits, ':' and '.' is dropped, leading zeros go, and
// only the last six digits count. No digits left: "".
std::string NormalizeTimeText(std::string_view text);

// Replaces `text` by NormalizeTimeText(text) and returns its score (0 for "").
int32_t TimeTextToScore(std::string& text);

// "m:ss.hh", or "ss.hh" under a minute (keeping the leading zero under ten seconds:
// "05.00"). `pad` puts blanks in front up to eight characters. A negative score is shown
// as points, Abs(score) / 100 in "####.00", and `pad` is ignored.
std::string FormatTime(int32_t score, bool pad);

// A score for a grid or report: the NtText word when `nt` > 0 and there is no time,
// points for strokes 6 and up, "" for 0, the padded time + `suffix` from 800 up,
// else "Error".
std::string ScoreText(int32_t score, int stroke, std::string_view suffix, int nt);

// The screen word of a non-time code: "SCR", "NS", "DNF", "NT", "DQ"; "" for others.
std::string NtText(int nt);

// The in/out arguments of the two checks below. The caller initialises them; each check
// changes only the fields its rules name.
struct TimeInput {
  int32_t score = 0;
  std::string exhibition;  // "X" or ""
  std::string course;      // "Y", "S", "L" or ""
  int nt = 0;              // non-time code, in/out
};

// A time typed in the entry grid. True if accepted. "X" in front marks an exhibition, a
// course letter at the end sets the course, "NT" sets nt 4; an incoming or new nt accepts
// without touching the score. Swims must reach kMinTypedScore (else kTimeTooLow in
// `message`); diving is Val(text) * 100, halves to even. Characters other than digits,
// ':' and '.' are refused with no message (the caller has its own). `message` (may be
// null) receives the text the caller must show, "" if none.
bool CheckEntryText(std::string_view text, TimeInput& io, int stroke, std::string* message);

// A time typed for a result, relay leg or goal. True if accepted. Empty text is refused
// and changes nothing. Otherwise score and course are cleared; "X" in front marks an
// exhibition; the words "SCR", "NS", "DNF", "NT", "DQ" found anywhere set nt (the last
// found wins) and accept with score 0. Else a time (diving texts too) of three characters
// or more, or any text for strokes 6 and up, with an optional course letter at the end,
// is accepted from kMinTypedScore up. Other texts are refused with kInvalidTime.
bool CheckResultText(std::string_view text, TimeInput& io, int stroke, std::string* message);

}  // namespace kvlr
