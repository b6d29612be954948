#include "interchange/SdifWriter.h"

#include <fmt/format.h>

#include "core/DateText.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "interchange/ExportLines.h"

namespace kvlr {
namespace {

constexpr std::size_t kWidth = 160;
constexpr std::string_view kMaker = "Norvan, Ltd";

bool Diving(int stroke) {
  return stroke == 6 || stroke == 7;
}

// The first letter, upper-cased; "" for none.
std::string Letter(std::string_view text) {
  const std::string t = Trim(text);
  return t.empty() ? "" : UCase(t.substr(0, 1));
}

std::string TimeText(int32_t score, int stroke, int nt) {
  if (nt != 0) return NtText(nt);
  return Trim(ScoreText(score, stroke, "", 0));
}

FixedLine Record(std::string_view head) {
  FixedLine line(kWidth);
  line.Put(1, head, head.size());
  line.Put(158, "N", 1);
  return line;
}

}  // namespace

std::string SdifSwimmerName(const ExportSwimmer& swimmer) {
  std::string name = Trim(swimmer.last) + ", " + Trim(swimmer.first);
  if (!Trim(swimmer.initial).empty()) name += " " + Trim(swimmer.initial);
  return name;
}

void SdifWriter::Write(const FixedLine& line) {
  text_ += CL2LineCheckSum(line.Text());
  ++records_;
}

void SdifWriter::A0Record(std::string_view file_code, std::string_view description,
                          std::string_view content_code) {
  FixedLine line = Record("A01V3");
  line.Put(12, file_code, 2).Put(14, description, 30).Put(44, kMaker, 20);
  line.PutRight(64, "      2.1Da", 10).Put(74, kMaker, 20).Put(94, kMakerPhone, 12);
  line.Put(106, FileDateText(today_), 8).Put(150, "PL", 2).Put(152, content_code, 2);
  Write(line);
}

void SdifWriter::B0Record(const ExportMeet& meet) {
  FixedLine line = Record("B11");
  line.Put(12, meet.name, 30).Put(86, meet.location, 20);
  line.Put(121, Letter(meet.type), 1);
  line.Put(122, FileDateText(meet.start), 8).Put(130, FileDateText(meet.end), 8);
  line.Put(150, Letter(meet.course), 1);
  Write(line);
  ++b1_;
  meets_.insert(meet.meet);
}

void SdifWriter::B0RecordBestTimes(char course, std::string_view name) {
  FixedLine line = Record("B11");
  line.Put(12, name, 30).Put(122, FileDateText(today_), 8).Put(130, FileDateText(today_), 8);
  line.Put(150, std::string(1, course), 1);
  Write(line);
  ++b1_;
  meets_.insert(0);
}

void SdifWriter::C1Record(const ExportTeam& team) {
  FixedLine line = Record("C11");
  const std::string code = Trim(team.code);
  line.Put(14, code, 4).Put(150, code.size() > 4 ? code.substr(4, 1) : "", 1);
  line.Put(18, team.name, 30).Put(48, code, 16);
  if (!Trim(team.lsc).empty()) line.Put(4, Trim(team.lsc), 2).Put(12, Trim(team.lsc), 2);
  Write(line);
  ++c1_;
  teams_.insert(code);
}

void SdifWriter::D0(const ExportSwimmer& swimmer, const ExportSwim& swim, const ExportMeet& meet,
                    bool entry) {
  FixedLine line = Record("D01");
  line.Put(12, SdifSwimmerName(swimmer), 28).Put(40, swimmer.id_no, 12);
  line.Put(53, Trim(swimmer.citizen), 3).Put(56, FileDateText(swimmer.birth), 8);
  int age = swim.age;
  if (age <= 0 && meet.age_up) age = AgeAtDate(swimmer.birth, meet.age_up);
  if (age <= 0) age = swimmer.age;
  if (age <= 0) age = AgeAtDate(swimmer.birth, meet.start);  // an Age never filled in
  if (age > 0) line.PutRight(64, fmt::format("{:02d}", age % 100), 2);
  line.Put(66, swimmer.sex, 1);
  line.Put(67, Trim(swim.event_sex).empty() ? swimmer.sex : swim.event_sex, 1);
  if (Diving(swim.stroke)) {
    line.Put(72, "H", 1).Put(150, std::to_string(swim.stroke), 1);
  } else {
    line.PutRight(68, std::to_string(swim.distance), 4).Put(72, std::to_string(swim.stroke), 1);
  }
  if (swim.mtev != 0) line.PutRight(73, std::to_string(swim.mtev), 3).Put(76, swim.mtevx, 1);
  line.Put(77, LoHiToSDIF(swim.lo_hi), 4).Put(81, FileDateText(meet.start), 8);
  const std::string course = swim.course.empty() ? Letter(meet.course) : swim.course;
  if (entry) {
    const std::string seed = swim.score > 0 ? TimeText(swim.score, swim.stroke, 0) : "NT";
    line.PutRight(89, seed, 8).Put(97, course, 1);
  } else {
    const std::string time = TimeText(swim.score, swim.stroke, swim.nt);
    if (swim.f_p == "P") {
      line.PutRight(98, time, 8).Put(106, course, 1);
    } else if (swim.f_p == "S") {
      line.PutRight(107, time, 8).Put(115, course, 1);
    } else {
      line.PutRight(116, time, 8).Put(124, course, 1);
    }
    if (swim.place > 0) line.PutRight(swim.f_p == "P" ? 133 : 136, std::to_string(swim.place), 3);
    if (Diving(swim.stroke))
      line.PutRight(126, fmt::format("{:02d}", std::abs(swim.score) % 100), 2);
  }
  if (Trim(swim.ex) == "X") line.Put(156, "X", 1);
  Write(line);
  ++d0_;
  swimmers_.insert(swimmer.athlete);
}

void SdifWriter::D0Record(const ExportSwimmer& swimmer, const ExportSwim& swim,
                          const ExportMeet& meet) {
  D0(swimmer, swim, meet, false);
}

void SdifWriter::D0RecordEntry(const ExportSwimmer& swimmer, const ExportSwim& swim,
                               const ExportMeet& meet) {
  D0(swimmer, swim, meet, true);
}

void SdifWriter::D3Record(const ExportSwimmer& swimmer) {
  FixedLine line = Record("D3");
  line.Put(3, swimmer.id_no, 14).Put(17, swimmer.pref, 15);
  // Only the first of several addresses.
  const std::string email = swimmer.Info("EMail");
  line.Put(58, Trim(email.substr(0, email.find_first_of(";, "))), 36);
  Write(line);
}

void SdifWriter::G0Record(const ExportSwimmer& swimmer, const ExportSwim& swim) {
  const std::size_t count = swim.splits.size();
  if (count == 0) return;
  const int step = swim.splits.front().first > 0 ? swim.splits.front().first : 1;
  for (std::size_t first = 0; first < count; first += 10) {
    FixedLine line = Record("G01");
    line.Put(16, SdifSwimmerName(swimmer), 28).Put(44, swimmer.id_no, 12);
    line.PutRight(56, std::to_string(first / 10 + 1), 1);
    line.PutRight(57, std::to_string(count % 100), 2).PutRight(59, std::to_string(step * 25), 4);
    line.Put(63, "C", 1);
    for (std::size_t k = first; k < count && k < first + 10; ++k) {
      line.PutRight(64 + static_cast<int>(k - first) * 8,
                    Trim(FormatTime(swim.splits[k].second, false)), 8);
    }
    line.Put(144, swim.f_p.empty() ? "F" : swim.f_p, 1);
    Write(line);
    ++g0_;
  }
}

void SdifWriter::Z0Record(std::string_view file_code) {
  FixedLine line = Record("Z0");
  line.Put(3, "1", 1).Put(12, file_code, 2);
  line.Put(14, "Successful Build on " + USDateText(today_), 30);
  line.PutRight(44, std::to_string(b1_), 3).PutRight(47, std::to_string(meets_.size()), 3);
  line.PutRight(50, std::to_string(c1_), 4).PutRight(54, std::to_string(teams_.size()), 4);
  line.PutRight(58, std::to_string(d0_), 6).PutRight(64, std::to_string(swimmers_.size()), 6);
  line.PutRight(70, "0", 5).PutRight(75, "0", 6).PutRight(81, std::to_string(g0_), 6);
  Write(line);
}

}  // namespace kvlr
