#pragma once
// Codes of events and results (distance, age group, stroke, sex, course, final/prelim,
// event number) and the words and screen lists made from them.

#include <string>
#include <string_view>
#include <vector>

namespace kvlr {

// Course letters in the order every walk over the three courses uses.
inline constexpr std::string_view CourseLetters = "YSL";

// 25->0, 50->1, 100->2, 200->3, 400->4, 500->5, 800->6, 1000->7, 1500->8, 1650->9, else 10.
int DistanceIndex(int distance);

// The same long distance in another course: yards ('Y') swim 500, 1000, 1650 where metres
// ('S', 'L') swim 400, 800, 1500. Other distances and courses come back unchanged.
int EquivalentDistance(int distance, char course);

// The preset age-group row (0 to 23) of a range, as events and standards are added in bulk.
// 11 for a range that has no row of its own.
int AgeGroupIndex(int lo, int hi);

// A Lo_Hi value (low age * 100 + high age) for reports: "Open" (99), "15-Ov", "Un-10",
// "08-12". The ages are always two digits.
std::string LoHiText(int lo_hi);

// An age range for standards: "Under-10", "11-12", "15 Over".
std::string AgeRangeText(int lo, int hi);

// The caption under the two age boxes of event screens: "" when both are 0, "Open",
// "10 and Under", "15 and Over" or "11 - 12".
std::string AgeRangeCaption(int lo, int hi);

// "Free", "Back", "Breast", "Fly" (1-4), "IM" or, for a relay, "Medley" (5), else "";
// relays (`i_r` "R") get " Relay" added.
std::string StrokeText(int stroke, std::string_view i_r);

// "Female", "Male", "Mixed" for "F", "M", "X"; "" otherwise.
std::string SexWord(std::string_view sex);

// Report words by the FavSex preference (0 Men/Women, 1 Male/Female, 2 Boys/Girls);
// "" for other values.
std::string GirlWord(int fav_sex);
std::string BoyWord(int fav_sex);
// The preference list, indexed by FavSex.
std::vector<std::string> FavSexList();

// "Finals", "Prelims", "Semi-Final", "Swimoff", "Time Trial" for F, P, I, S, T;
// "" for others (the relay codes L and Y have no word).
std::string FinalsWord(std::string_view f_p);

// An event number padded to four characters for reports: trimmed, then ending in a digit
// " " + right-aligned in three ("7" -> "   7"), else right-aligned in four ("12A" -> " 12A").
// Longer numbers are not cut.
std::string EventNumberText(std::string_view text);

// Stroke names by stroke index as the program starts (8 entries, "Free R" and
// "Medley R" at 6 and 7).
std::vector<std::string> StartStrokeList();
// Stroke names by index once a database is open (10 entries: 6 and 7 empty,
// "Free Relay" and "Medley Relay" at 8 and 9).
std::vector<std::string> LoadStrokeArray();
// Distances for screens (14 entries, right-aligned to four; diving boards at 11 to 13).
std::vector<std::string> DistanceList();
// Courses for screens, 1 to 3 in CourseLetters order; entry 0 is "".
std::vector<std::string> CourseList();

}  // namespace kvlr
