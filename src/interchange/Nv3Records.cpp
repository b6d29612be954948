#include "interchange/Nv3Records.h"

#include <algorithm>

#include <fmt/format.h>

#include "core/DateText.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "interchange/MeetText.h"
#include "interchange/Nv3Texts.h"

namespace kvlr {
namespace {

std::string Cut(std::string_view line, std::size_t first, std::size_t last) {
  return MeetText(Trim(Nv3Columns(line, first, last)));
}

int32_t Number(std::string_view line, std::size_t first, std::size_t last) {
  return ToInt32(Val(Nv3Columns(line, first, last)));
}

int32_t Hundredths(std::string_view text) {
  return ToInt32(static_cast<double>(RoundHalfEven(Val(text) * 100)));
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

Nv3EventKey LoadEventKey(std::string_view line) {
  Nv3EventKey key;
  key.event_sex = Cut(line, 15, 15);
  key.distance = Number(line, 16, 21);
  key.stroke_letter = Cut(line, 22, 22);
  if (key.distance < 15) key.stroke = key.distance == 11 ? 7 : 6;
  if (!key.stroke_letter.empty()) {
    const char letter = key.stroke_letter[0];
    if (letter >= 'A' && letter <= 'E') key.stroke = letter - 'A' + 1;
    // A board letter names springboard/platform diving; the distance carries the board.
    if (letter == 'F') key.distance = 9991, key.stroke = 6;
    if (letter == 'H') key.distance = 9992, key.stroke = 6;
    if (letter == 'G') key.distance = 9993, key.stroke = 6;
  }
  key.age_text = Nv3Columns(line, 23, 28);
  key.lo_hi = Nv3AgeGroup(key.age_text);
  key.col29 = Cut(line, 29, 31);
  const std::string letter_column = Nv3Columns(line, 42, 42);
  if (IsDigit(letter_column[0])) {
    key.event_number = Number(line, 39, 42);
  } else {
    key.event_number = Number(line, 39, 41);
    key.event_letter = Trim(letter_column);
  }
  const std::string seed = Nv3Columns(line, 52, 59);
  key.seed_score = Hundredths(seed);
  if (key.seed_score == 0) {
    key.seed_text = "NT";
  } else if (key.stroke >= 6) {
    key.seed_text = Trim(seed);
  } else {
    key.seed_text = FormatTime(key.seed_score, false);
  }
  key.seed_course = Cut(line, 60, 60);
  key.col84 = Cut(line, 84, 84);
  return key;
}

Nv3Swim LoadSwim(std::string_view line, std::size_t shift) {
  Nv3Swim swim;
  swim.f_p = Cut(line, 3 + shift, 3 + shift);
  swim.score = Hundredths(Nv3Columns(line, 4 + shift, 11 + shift));
  if (swim.score != 0) swim.time_text = FormatTime(swim.score, false);
  swim.course = Cut(line, 12 + shift, 12 + shift);
  swim.nt_letter = Cut(line, 13 + shift, 13 + shift);
  swim.nt = Nv3NtCode(swim.nt_letter);
  swim.nt_text = NtText(swim.nt);
  swim.exhibition = Cut(line, 16 + shift, 16 + shift);
  swim.place = Number(line, 30 + shift, 33 + shift);
  return swim;
}

}  // namespace

std::string Nv3Columns(std::string_view line, std::size_t first, std::size_t last) {
  std::string out(last - first + 1, ' ');
  for (std::size_t column = first; column <= last && column <= line.size(); ++column)
    out[column - first] = line[column - 1];
  return out;
}

std::optional<Date> ParseNv3Date(std::string_view columns, int date_order) {
  if (auto date = RegionalTextToDate(ToRegionalDate(columns, date_order), date_order)) return date;
  if (Trim(columns).empty()) return kNv3BlankDate;
  return std::nullopt;
}

std::string NV3AgeText(int lo_hi) {
  if (lo_hi == 99) return "  0109";
  const int low = lo_hi / 100;
  const int high = lo_hi % 100;
  if (high == 99) return fmt::format(" {:02d}109", low);
  if (lo_hi < 99) return fmt::format("  0 {:02d}", high);
  return fmt::format(" {:02d} {:02d}", low, high);
}

int Nv3AgeGroup(std::string_view text) {
  std::string padded(text);
  if (padded.size() < 6) padded.insert(0, 6 - padded.size(), ' ');
  int low = std::clamp(ToInt32(Val(padded.substr(0, 3))), -999, 999);
  int high = std::clamp(ToInt32(Val(padded.substr(3, 3))), -999, 999);
  if (low == 1) low = 0;
  if (high == 109) high = 99;
  return low * 100 + high;
}

std::string NV3StrokeLetter(int stroke, int distance) {
  if (stroke >= 1 && stroke <= 5) return std::string(1, static_cast<char>('A' + stroke - 1));
  if (distance == 9991) return "F";
  if (distance == 9992) return "H";
  if (distance == 9993) return "G";
  return "";
}

int Nv3NtCode(std::string_view letter) {
  if (letter == "S") return kNtScratch;
  if (letter == "R") return kNtNoShow;
  if (letter == "D") return kNtDidNotFinish;
  if (letter == "Q") return kNtDisqualified;
  return kNtNone;
}

Nv3Header LoadNV3A1Rec(std::string_view line) {
  return Nv3Header{Cut(line, 3, 4),          Cut(line, 5, 29),         Cut(line, 30, 44),
                   Nv3Columns(line, 45, 58), Nv3Columns(line, 59, 75), Cut(line, 76, 120)};
}

Nv3HeaderCheck CheckNV3Header(std::string_view line, bool allow_entries) {
  const Nv3Header header = LoadNV3A1Rec(line);
  Nv3HeaderCheck check;
  check.file_code = header.file_code;
  if (header.creator != kNv3Creator) {
    check.message = kNv3NotNorvan;
    return check;
  }
  const std::string& code = header.file_code;
  auto entries = [&] {
    check.source = "CS";
    check.has_entries = true;
    check.ok = true;
  };
  if (code == "01" || code == "08") {
    if (allow_entries)
      entries();
    else
      check.message = kNv3MeetEntriesRefused;
  } else if (code == "02" || code == "12") {
    check.source = "WB";
    check.ok = true;
    if (allow_entries) entries();
  } else if (code == "03") {
    check.source = header.version.find("GS") != std::string::npos ? "GS" : "CS";
    check.ok = true;
  } else if (code == "04" || code == "05" || code == "06") {
    check.message = kNv3MergeResultsRefused;
  } else if (code == "07") {
    check.source = "GS";
    check.ok = true;
  } else if (code == "09") {
    check.source = "CS";
    check.ok = true;
  } else if (code == "11") {
    // Where entries may come in, proof of time is only pointed out, not refused.
    check.message = allow_entries ? kNv3ProofOfTimeReview : kNv3ProofOfTimeRefused;
    check.ok = allow_entries;
  } else {
    check.message = kNv3UnknownRefused;
  }
  return check;
}

Nv3Meet LoadNV3B1Rec(std::string_view line, int date_order) {
  Nv3Meet meet;
  meet.name = Cut(line, 3, 47);
  // Read as the files have always been read: three columns early, three short.
  meet.location = Cut(line, 45, 89);
  meet.start_text = Nv3Columns(line, 93, 100);
  meet.end_text = Nv3Columns(line, 101, 108);
  meet.age_up_text = Nv3Columns(line, 109, 116);
  meet.start = ParseNv3Date(meet.start_text, date_order);
  meet.end = ParseNv3Date(meet.end_text, date_order);
  meet.age_up = ParseNv3Date(meet.age_up_text, date_order);
  return meet;
}

Nv3MeetKind LoadNV3B2Rec(std::string_view line) {
  return Nv3MeetKind{Cut(line, 97, 98), Cut(line, 99, 99), Cut(line, 107, 108)};
}

Nv3Team LoadNv3C1Rec(std::string_view line) {
  return Nv3Team{Cut(line, 3, 7),   Cut(line, 8, 37),    Cut(line, 38, 53),
                 Cut(line, 54, 55), Cut(line, 117, 119), Cut(line, 120, 122)};
}

Nv3Athlete LoadNV3AthleteRec(std::string_view line, int date_order) {
  Nv3Athlete a;
  a.sex = Cut(line, 3, 3);
  a.athlete = Number(line, 4, 8);
  a.last = Cut(line, 9, 28);
  a.first = Cut(line, 29, 48);
  a.pref = Cut(line, 49, 68);
  a.initial = Cut(line, 69, 69);
  a.id_no = Cut(line, 70, 83);
  a.birth_text = Nv3Columns(line, 89, 96);
  a.birth = ParseNv3Date(a.birth_text, date_order);
  a.age = Cut(line, 97, 99);
  if (Val(a.age) == 0) a.age.clear();
  return a;
}

Nv3Entry LoadNV3EventRec(std::string_view line) {
  Nv3Entry e;
  e.sex = Cut(line, 3, 3);
  e.athlete = Number(line, 4, 8);
  e.last5 = Cut(line, 9, 13);
  e.sex2 = Cut(line, 14, 14);
  e.key = LoadEventKey(line);
  e.fee = static_cast<float>(Val(Nv3Columns(line, 33, 38)));
  e.exhibition = Cut(line, 81, 81);
  e.col92 = Cut(line, 92, 92);
  e.age = Number(line, 89, 91);
  if (e.age == 0) e.age = Number(line, 86, 88);
  e.lead_off = Cut(line, 95, 95);
  e.gs_mark = Cut(line, 96, 96);
  e.points_tenths = static_cast<int32_t>(RoundHalfEven(Val(Nv3Columns(line, 61, 68)) * 10));
  return e;
}

Nv3Result LoadNV3ResultRec(std::string_view line) {
  Nv3Result r;
  r.first = LoadSwim(line, 0);
  r.second = LoadSwim(line, 61);
  r.number = Number(line, 61, 63);
  return r;
}

Nv3Relay LoadNV3RelayRec(std::string_view line) {
  Nv3Relay r;
  r.team = Cut(line, 3, 7);
  r.relay_letter = Cut(line, 8, 8);
  r.col9 = Cut(line, 9, 12);
  r.col13 = Cut(line, 13, 13);
  r.col14 = Cut(line, 14, 14);
  r.key = LoadEventKey(line);
  return r;
}

Nv3Splits LoadNV3SplitRec(std::string_view line) {
  Nv3Splits out;
  for (std::size_t group = 0; group < 11; ++group) {
    const std::size_t at = 3 + group * 11;
    const int number = Number(line, at + 1, at + 2);
    if (number == 0) break;
    Nv3Split& split = out.splits[out.count++];
    split.f_p = Cut(line, at, at);
    split.number = number;
    split.value = Hundredths(Nv3Columns(line, at + 3, at + 10));
  }
  return out;
}

}  // namespace kvlr
