#include "interchange/Nv3Writer.h"

#include <algorithm>

#include <fmt/format.h>

#include "core/DateText.h"
#include "core/VbRules.h"
#include "interchange/ExportLines.h"
#include "interchange/Nv3Records.h"

namespace kvlr {
namespace {

constexpr std::size_t kWidth = 128;  // the check sum and line end are added on writing

FixedLine Record(std::string_view code) {
  FixedLine line(kWidth);
  line.Put(1, code, 2);
  return line;
}

bool AnyValue(const ExportSwimmer& s, std::initializer_list<std::string_view> fields) {
  return std::any_of(fields.begin(), fields.end(),
                     [&s](std::string_view f) { return !Trim(s.Info(f)).empty(); });
}

std::string First(std::string_view text) {
  const std::string t = Trim(text);
  return t.substr(0, 1);
}

}  // namespace

std::string ExportSwimmer::Info(std::string_view field) const {
  for (const auto& [name, value] : info) {
    if (UCase(name) == UCase(field)) return value;
  }
  return "";
}

int Nv3Distance(int distance, int stroke) {
  if (stroke != 6 && stroke != 7) return distance;
  if (distance >= 9991 && distance <= 9993) return distance;
  return distance == 10 ? 9993 : distance == 3 ? 9992 : 9991;
}

void Nv3Writer::Write(const FixedLine& line) {
  std::string text = Nv3LineCheckSum(line.Text());
  text_ += text;
  text.resize(text.size() - 2);
  lines_.push_back(std::move(text));
}

void Nv3Writer::NV3A1Record(std::string_view code, std::string_view name) {
  FixedLine line = Record("A1");
  line.Put(3, code, 2).Put(5, code == "02" ? "Meet Entries" : "Exported Results", 25);
  line.Put(30, "Norvan, Ltd", 15).Put(45, "2.1DaKVL-R  ", 14);
  line.Put(59,
           fmt::format("{} {:02d}:{:02d}:{:02d}", FileDateText(now_.date), now_.hour, now_.minute,
                       now_.second),
           17);
  line.Put(76, name, 45);
  Write(line);
}

void Nv3Writer::NV3B1Record(const ExportMeet& meet) {
  FixedLine line = Record("B1");
  line.Put(3, meet.name, 45).Put(48, meet.location, 45);
  line.Put(93, FileDateText(meet.start), 8)
      .Put(101, FileDateText(meet.end ? meet.end : meet.start), 8);
  line.Put(109, FileDateText(meet.age_up), 8);
  Write(line);
}

void Nv3Writer::NV3B1RecordBestTimes(char course, std::string_view course_word) {
  const std::string today = FileDateText(now_.date);
  FixedLine line = Record("B1");
  line.Put(3, "Best Times " + std::string(course_word), 45);
  line.Put(93, today, 8).Put(101, today, 8).Put(109, today, 8);
  Write(line);
  FixedLine b2 = Record("B2");
  b2.Put(99, std::string(1, course), 1);
  Write(b2);
}

void Nv3Writer::NV3B2Record(const ExportMeet& meet) {
  FixedLine line = Record("B2");
  line.Put(97, Trim(meet.type), 2).Put(99, UCase(First(meet.course)), 1).Put(107, meet.course, 2);
  Write(line);
}

void Nv3Writer::NV3C1Record(const ExportTeam& team) {
  FixedLine line = Record("C1");
  line.Put(3, Trim(team.code), 5).Put(8, team.name, 30);
  if (!Trim(team.lsc).empty()) line.Put(54, Trim(team.lsc), 2);
  Write(line);
}

void Nv3Writer::NV3C2Record() {
  Write(Record("C2"));
}

void Nv3Writer::NV3C3Record(std::string_view text) {
  FixedLine line = Record("C3");
  line.Put(3, text, 30);
  Write(line);
}

void Nv3Writer::NV3AthDetailRecords(const ExportSwimmer& s) {
  auto v = [&s](std::string_view field) { return Trim(s.Info(field)); };
  FixedLine d1 = Record("D1");
  d1.Put(3, s.sex, 1).PutRight(4, std::to_string(s.athlete), 5).Put(9, s.last, 20);
  d1.Put(29, s.first, 20).Put(49, s.pref, 20).Put(69, s.initial, 1).Put(70, s.id_no, 14);
  d1.Put(89, FileDateText(s.birth), 8);
  const int age = s.birth ? AgeAtDate(s.birth, now_.date) : s.age;
  if (age > 0) d1.PutRight(97, std::to_string(age), 3);
  Write(d1);
  FixedLine d2 = Record("D2");
  d2.Put(3, v("Addr"), 30).Put(33, v("SecAddr"), 30).Put(63, v("City"), 30);
  d2.Put(93, v("State"), 2).Put(95, v("ZIP"), 10).Put(105, v("Cntry"), 3);
  d2.Put(108, First(v("State")), 1);
  Write(d2);
  FixedLine d3 = Record("D3");
  d3.Put(33, v("DayP1"), 20).Put(53, v("EveP1"), 20).Put(73, v("FaxP1"), 20);
  d3.Put(93, v("EMail"), 36);
  Write(d3);
  if (AnyValue(s, {"MailTo2", "Addr2", "City2", "State2", "Zip2", "Cntry2"})) {
    FixedLine d4 = Record("D4");
    d4.Put(3, v("MailTo2"), 40).Put(43, v("Addr2"), 30).Put(73, v("City2"), 30);
    d4.Put(103, v("State2"), 2).Put(105, v("Zip2"), 10).Put(115, v("Cntry2"), 3);
    d4.Put(118, First(v("State2")), 1);
    Write(d4);
  }
  if (AnyValue(s, {"Mailto", "SecAddr2"})) {
    FixedLine d5 = Record("D5");
    d5.Put(3, v("Mailto"), 40).Put(43, v("SecAddr2"), 30);
    Write(d5);
  }
  if (AnyValue(s, {"DoctorName", "DoctorPhone", "EmerContact", "EmerPhone", "EveP2"})) {
    FixedLine d6 = Record("D6");
    d6.Put(3, v("DoctorName"), 30).Put(33, v("DoctorPhone"), 20);
    d6.Put(53, v("EmerContact"), 30).Put(83, v("EmerPhone"), 20);
    Write(d6);
  }
  if (AnyValue(s, {"DayP2", "EveP2", "FaxP2", "Email2"})) {
    FixedLine d7 = Record("D7");
    d7.Put(3, v("DayP2"), 20).Put(23, v("EveP2"), 20).Put(43, v("FaxP2"), 20);
    d7.Put(63, v("Email2"), 36);
    Write(d7);
  }
  if (AnyValue(s, {"MedCondition"})) Write(Record("D8").Put(3, v("MedCondition"), 120));
  if (AnyValue(s, {"Medication"})) Write(Record("D9").Put(3, v("Medication"), 120));
  static constexpr std::string_view kParents[] = {"PrimaryLast",     "PrimaryFirst1",
                                                  "PrimaryFirst2",   "SecondaryLast",
                                                  "SecondaryFirst1", "SecondaryFirst2"};
  if (AnyValue(s, {kParents[0], kParents[1], kParents[2], kParents[3], kParents[4], kParents[5]})) {
    FixedLine db = Record("DB");
    for (int i = 0; i < 6; ++i) db.Put(3 + 20 * i, v(kParents[i]), 20);
    Write(db);
  }
}

FixedLine Nv3Writer::E1(const ExportSwimmer& s, const ExportSwim& swim) const {
  FixedLine line = Record("E1");
  line.Put(3, s.sex, 1).PutRight(4, std::to_string(s.athlete), 5).Put(9, s.last, 5);
  line.Put(14, s.sex, 1).Put(15, Trim(swim.event_sex).empty() ? s.sex : swim.event_sex, 1);
  line.PutRight(16, std::to_string(Nv3Distance(swim.distance, swim.stroke)), 6);
  line.Put(22, NV3StrokeLetter(swim.stroke, Nv3Distance(swim.distance, swim.stroke)), 1);
  line.Put(23, NV3AgeText(swim.lo_hi), 6);
  if (swim.mtev != 0) line.PutRight(39, std::to_string(swim.mtev), 3);
  line.Put(42, swim.mtevx, 1);
  if (swim.age > 0) line.PutRight(86, std::to_string(swim.age), 3);
  return line;
}

void Nv3Writer::NV3E1RecordResults(const ExportSwimmer& swimmer, const ExportSwim& swim) {
  FixedLine line = E1(swimmer, swim);
  if (swim.i_r == "L") line.Put(42, "L", 1).Put(95, "L", 1);
  Write(line);
}

void Nv3Writer::NV3E1RecordEntries(const ExportSwimmer& swimmer, const ExportSwim& swim) {
  FixedLine line = E1(swimmer, swim);
  line.PutRight(43, "0", 8).PutRight(52, Nv3Number(std::max(swim.score, 0)), 8);
  line.Put(60, swim.course, 1).Put(92, "C", 1);
  if (Trim(swim.ex) == "X") line.Put(81, "Y", 1);
  Write(line);
}

void Nv3Writer::NV3E2RecordResults(const ExportSwim& swim) {
  FixedLine line = Record("E2");
  line.Put(3, swim.f_p, 1).PutRight(4, Nv3Number(swim.score), 8).Put(12, swim.course, 1);
  line.Put(13, NV3NTLetter(swim.nt), 1).Put(16, Trim(swim.ex), 1);
  if (swim.place != 0) line.PutRight(30, std::to_string(swim.place), 4);
  Write(line);
}

void Nv3Writer::NV3E3RecordResults(const Nv3BestTimes& best) {
  FixedLine line = Record("E3");
  line.PutRight(3, Nv3Number(best.l), 8).Put(11, "L", 1);
  line.PutRight(12, Nv3Number(best.s), 8).Put(20, "S", 1);
  line.PutRight(21, Nv3Number(best.y), 8).Put(29, "Y", 1);
  Write(line);
}

void Nv3Writer::NV3G1RecordResults(const ExportSwim& swim) {
  for (std::size_t first = 0; first < swim.splits.size(); first += 11) {
    FixedLine line = Record("G1");
    for (std::size_t k = first; k < swim.splits.size() && k < first + 11; ++k) {
      const int at = 3 + static_cast<int>(k - first) * 11;
      line.Put(at, swim.f_p, 1).PutRight(at + 1, std::to_string(swim.splits[k].first % 100), 2);
      line.PutRight(at + 3, Nv3Number(swim.splits[k].second), 8);
    }
    Write(line);
  }
}

}  // namespace kvlr
