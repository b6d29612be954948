#pragma once
// NV3 records cut into plain values. Every reader takes one line (columns counted from
// 1, missing columns read as blanks) and never fails on content: a field that holds no
// number reads as 0, a date that is no day reads as the bad date. Text fields are
// trimmed. Whether a line is whole and sound is CheckNV3Line's business, not theirs.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/Date.h"

namespace kvlr {

// The date an NV3 file means by eight blank columns.
inline constexpr Date kNv3BlankDate{1800, 1, 1};

// Columns `first`..`last` (from 1) of `line`, blank-padded where the line is short.
std::string Nv3Columns(std::string_view line, std::size_t first, std::size_t last);

// Eight columns mmddyyyy read in the user's `date_order` (see DateText.h): the day they
// name; kNv3BlankDate when they are all blank; nullopt (the bad date, unequal to every
// real day) otherwise.
std::optional<Date> ParseNv3Date(std::string_view columns, int date_order);

// Lo_Hi (low age x 100 + high age, 99 open) as six columns: 99 "  0109", low-99
// " 15109", up-to-high "  0 10", else " 10 11".
std::string NV3AgeText(int lo_hi);
// Back from six columns (padded on the left): low x 100 + high, low 1 read as 0,
// high 109 as 99.
int Nv3AgeGroup(std::string_view text);

// The stroke letter of a swim: "A".."E" for strokes 1-5, by board for diving (distance
// 9991 "F", 9992 "H", 9993 "G"); "" for anything else.
std::string NV3StrokeLetter(int stroke, int distance);

// Non-time letter of E2 column 13 -> NT code: "S" 1, "R" 2, "D" 3, "Q" 5; others 0.
int Nv3NtCode(std::string_view letter);

struct Nv3Header {          // A1
  std::string file_code;    // 3-4
  std::string kind;         // 5-29
  std::string creator;      // 30-44
  std::string version;      // 45-58, untrimmed: searched for "GS" and shown
  std::string date_time;    // 59-75, untrimmed: shown
  std::string family_name;  // 76-120
};
Nv3Header LoadNV3A1Rec(std::string_view line);

// What CheckNV3Header makes of a file. `source` is "CS", "GS", "WB" or "".
struct Nv3HeaderCheck {
  bool ok = false;
  std::string source;
  bool has_entries = false;
  std::string file_code;
  std::string message;  // the words to show; "" when there are none
};
// The creator and file-code checks of the A1. `allow_entries` lets Meet Entries in.
Nv3HeaderCheck CheckNV3Header(std::string_view line, bool allow_entries);

struct Nv3Meet {                           // B1
  std::string name;                        // 3-47
  std::string location;                    // 45-89: the reader's shifted field of 45
  std::string start_text;                  // 93-100
  std::string end_text;                    // 101-108
  std::string age_up_text;                 // 109-116
  std::optional<Date> start, end, age_up;  // nullopt: the bad date
};
Nv3Meet LoadNV3B1Rec(std::string_view line, int date_order);

struct Nv3MeetKind {          // B2
  std::string type;           // 97-98
  std::string course_letter;  // 99
  std::string course;         // 107-108, kept, not used
};
Nv3MeetKind LoadNV3B2Rec(std::string_view line);

struct Nv3Team {           // C1
  std::string code;        // 3-7
  std::string name;        // 8-37
  std::string short_name;  // 38-53
  std::string lsc;         // 54-55
  std::string code1;       // 117-119
  std::string code2;       // 120-122
};
Nv3Team LoadNv3C1Rec(std::string_view line);

struct Nv3Athlete {        // D1
  std::string sex;         // 3
  int32_t athlete = 0;     // 4-8
  std::string last;        // 9-28
  std::string first;       // 29-48
  std::string pref;        // 49-68
  std::string initial;     // 69
  std::string id_no;       // 70-83
  std::string birth_text;  // 89-96
  std::optional<Date> birth;
  std::string age;  // 97-99; "" when it reads 0
};
Nv3Athlete LoadNV3AthleteRec(std::string_view line, int date_order);

// The columns the E1 and F1 share.
struct Nv3EventKey {
  std::string event_sex;      // 15
  int32_t distance = 0;       // 16-21; 9991-9993 from a diving letter
  std::string stroke_letter;  // 22
  int stroke = 0;             // from distance and letter; 0 when neither says
  std::string age_text;       // 23-28
  int lo_hi = 0;
  std::string col29;         // 29-31
  int32_t event_number = 0;  // 39-42 when 42 is a digit, else 39-41
  std::string event_letter;  // 42 when it isn't a digit
  std::string seed_text;     // 52-59: "NT" when 0, the columns for diving, else the time
  int32_t seed_score = 0;    // hundredths (points x 100 for diving)
  std::string seed_course;   // 60
  std::string col84;         // 84
};

struct Nv3Entry {       // E1
  std::string sex;      // 3
  int32_t athlete = 0;  // 4-8
  std::string last5;    // 9-13
  std::string sex2;     // 14
  Nv3EventKey key;
  float fee = 0;              // 33-38
  std::string exhibition;     // 81
  std::string col92;          // 92
  int age = 0;                // 89-91, else 86-88 when that reads 0
  std::string lead_off;       // 95
  std::string gs_mark;        // 96
  int32_t points_tenths = 0;  // 61-68 x 10
};
Nv3Entry LoadNV3EventRec(std::string_view line);

struct Nv3Swim {          // one half of an E2 or F2
  std::string f_p;        // 3 / 64
  int32_t score = 0;      // 4-11 / 65-72, hundredths
  std::string time_text;  // from the score; "" for 0
  std::string course;     // 12 / 73
  std::string nt_letter;  // 13 / 74
  int nt = 0;
  std::string nt_text;     // "DQ", "DNF", "SCR", "NS" or ""
  std::string exhibition;  // 16 / 77
  int32_t place = 0;       // 30-33 / 91-94
};
struct Nv3Result {  // E2, F2
  Nv3Swim first;
  Nv3Swim second;
  int32_t number = 0;  // 61-63
};
Nv3Result LoadNV3ResultRec(std::string_view line);

struct Nv3Relay {            // F1
  std::string team;          // 3-7
  std::string relay_letter;  // 8
  std::string col9;          // 9-12
  std::string col13, col14;  // 13, 14
  Nv3EventKey key;
};
Nv3Relay LoadNV3RelayRec(std::string_view line);

struct Nv3Split {
  std::string f_p;
  int number = 0;
  int32_t value = 0;  // hundredths
};
struct Nv3Splits {  // G1: the groups before the first with split number 0
  Nv3Split splits[11];
  int count = 0;
};
Nv3Splits LoadNV3SplitRec(std::string_view line);

}  // namespace kvlr
