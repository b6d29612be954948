#include "demo/MeetFileWriter.h"

#include <set>
#include <string_view>

#include <fmt/format.h>

#include "core/TimeText.h"
#include "interchange/Cl2CheckSum.h"
#include "interchange/Nv3CheckSum.h"
#include "interchange/Nv3Texts.h"
#include "interchange/SdifTexts.h"

namespace kvlr::demo {
namespace {

// A record of blanks into which fields are put by their columns (counted from 1).
class Line {
 public:
  Line(std::string_view code, size_t width) : text_(width, ' ') { text_.replace(0, 2, code); }

  Line& Put(int first, int last, std::string_view value) {
    return Place(first, last, value, false);
  }
  Line& Right(int first, int last, std::string_view value) {
    return Place(first, last, value, true);
  }
  Line& Number(int first, int last, long value) {
    return Place(first, last, std::to_string(value), true);
  }
  const std::string& Text() const { return text_; }

 private:
  Line& Place(int first, int last, std::string_view value, bool right) {
    const size_t width = static_cast<size_t>(last - first + 1);
    value = value.substr(0, width);
    const size_t at = static_cast<size_t>(first - 1) + (right ? width - value.size() : 0);
    text_.replace(at, value.size(), value);
    return *this;
  }

  std::string text_;
};

std::string DateText(const Date& d) {
  return fmt::format("{:02}{:02}{:04}", d.month, d.day, d.year);
}

std::string SdifTime(int32_t score) {
  return score > 0 ? FormatTime(score, false) : "";
}

// NV3 writes seconds with two decimals, however long the swim.
std::string Nv3Time(int32_t score) {
  return fmt::format("{}.{:02}", score / 100, score % 100);
}

// "1112" for 11-12; "UN10" for 10 and under.
std::string SdifAges(int lo_hi) {
  const int lo = lo_hi / 100;
  const int hi = lo_hi % 100;
  return fmt::format("{}{:02}", lo == 0 ? "UN" : fmt::format("{:02}", lo), hi);
}

std::string Nv3Ages(int lo_hi) {
  const int lo = lo_hi / 100;
  return lo == 0 ? fmt::format("  0 {:02}", lo_hi % 100)
                 : fmt::format(" {:02} {:02}", lo, lo_hi % 100);
}

std::string SdifName(const Swimmer& s) {
  std::string name = s.last + ", " + s.first;
  if (!s.initial.empty()) name += " " + s.initial;
  for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return name;
}

// G0 lines of cumulative splits every 50, ten to a line.
void AddSplits(std::vector<std::string>& out, const Swimmer& s,
               const std::vector<int32_t>& splits) {
  const int total = static_cast<int>(splits.size());
  for (int first = 0; first < total; first += 10) {
    Line g0("G0", 160);
    g0.Put(3, 3, "1").Put(16, 43, SdifName(s)).Put(44, 55, s.id);
    g0.Number(56, 56, first / 10 + 1).Number(57, 58, total).Number(59, 62, 50).Put(63, 63, "C");
    for (int k = first; k < total && k < first + 10; ++k) {
      const int at = 64 + 8 * (k - first);
      g0.Right(at, at + 7, SdifTime(splits[static_cast<size_t>(k)]));
    }
    g0.Put(144, 144, "F");
    out.push_back(g0.Text());
  }
}

std::vector<std::string> SdifLines(const MeetFile& m) {
  const bool cl2 = m.format == FileFormat::kCl2;
  const std::string course(1, m.course);
  std::vector<std::string> out;
  Line a0("A0", 160);
  a0.Put(3, 3, "1").Put(4, 11, "V3").Put(12, 13, "02");
  a0.Put(44, 63, cl2 ? sdif::kNorvanSoftware : "Pretend Meet Desk").Put(64, 73, "1.0");
  a0.Put(74, 93, "Demo Meet Host").Put(94, 105, "555-0100").Put(106, 113, DateText(m.end));
  out.push_back(a0.Text());
  Line b1("B1", 160);
  b1.Put(3, 3, "1").Put(12, 41, m.name).Put(86, 120, m.location);
  b1.Put(122, 129, DateText(m.start)).Put(130, 137, DateText(m.end)).Put(150, 150, course);
  out.push_back(b1.Text());
  Line c1("C1", 160);
  c1.Put(3, 3, "1").Put(12, 13, m.lsc).Put(14, 17, m.team_code).Put(18, 47, m.team_name);
  out.push_back(c1.Text());

  std::set<int> swimmers;
  int g0_count = 0;
  for (const Swim& swim : m.swims) {
    const Swimmer& s = m.swimmers.at(static_cast<size_t>(swim.swimmer));
    swimmers.insert(swim.swimmer);
    Line d0("D0", 160);
    d0.Put(3, 3, "1").Put(12, 39, SdifName(s)).Put(40, 51, s.id).Put(56, 63, DateText(s.birth));
    d0.Number(64, 65, AgeOn(s.birth, m.start)).Put(66, 66, std::string(1, s.sex));
    d0.Put(67, 67, std::string(1, s.sex)).Number(68, 71, swim.distance);
    d0.Number(72, 72, swim.stroke)
        .Number(73, 75, swim.event_number)
        .Put(77, 80, SdifAges(swim.lo_hi));
    d0.Put(81, 88, DateText(m.start));
    if (swim.seed > 0) d0.Right(89, 96, SdifTime(swim.seed)).Put(97, 97, course);
    if (swim.prelim > 0) {
      d0.Right(98, 105, SdifTime(swim.prelim)).Put(106, 106, course);
      d0.Number(133, 135, swim.prelim_place);
    }
    if (swim.disqualified) {
      d0.Right(116, 123, "DQ");
    } else if (swim.finals > 0) {
      d0.Right(116, 123, SdifTime(swim.finals)).Put(124, 124, course);
      d0.Number(136, 138, swim.finals_place);
    }
    out.push_back(d0.Text());
    Line d3("D3", 160);
    d3.Put(3, 16, s.id).Put(17, 31, s.first);
    out.push_back(d3.Text());
    if (!swim.disqualified) {
      const size_t before = out.size();
      AddSplits(out, s, swim.splits);
      g0_count += static_cast<int>(out.size() - before);
    }
  }
  for (const Relay& relay : m.relays) {
    Line e0("E0", 160);
    e0.Put(3, 3, "1").Put(12, 12, "A").Put(13, 14, m.lsc).Put(15, 18, m.team_code);
    e0.Number(19, 20, 4).Put(21, 21, std::string(1, relay.sex)).Number(22, 25, relay.distance);
    e0.Put(26, 26, relay.medley ? "7" : "6").Number(27, 29, relay.event_number);
    e0.Put(31, 34, SdifAges(relay.lo_hi)).Put(38, 45, DateText(m.start));
    e0.Right(73, 80, SdifTime(relay.Time())).Put(81, 81, course).Number(93, 95, relay.finals_place);
    out.push_back(e0.Text());
    for (size_t leg = 0; leg < relay.legs.size(); ++leg) {
      const Swimmer& s = m.swimmers.at(static_cast<size_t>(relay.legs[leg].swimmer));
      Line f0("F0", 160);
      f0.Put(3, 3, "1").Put(16, 17, m.lsc).Put(18, 21, m.team_code).Put(23, 45, SdifName(s));
      f0.Put(51, 62, s.id).Put(66, 73, DateText(s.birth)).Number(74, 75, AgeOn(s.birth, m.start));
      f0.Put(76, 76, std::string(1, s.sex)).Put(77, 78, "00").Number(79, 79, leg + 1);
      f0.Right(80, 87, SdifTime(relay.legs[leg].time)).Put(88, 88, course);
      out.push_back(f0.Text());
      const size_t before = out.size();
      AddSplits(out, s, relay.legs[leg].splits);
      g0_count += static_cast<int>(out.size() - before);
    }
  }
  Line z0("Z0", 160);
  z0.Put(3, 3, "1").Put(12, 13, "02").Put(14, 43, "Made-up demo meet");
  z0.Number(44, 46, 1).Number(47, 49, 1).Number(50, 53, 1).Number(54, 57, 1);
  z0.Number(58, 63, static_cast<long>(m.swims.size()))
      .Number(64, 69, static_cast<long>(swimmers.size()));
  z0.Number(70, 74, static_cast<long>(m.relays.size()));
  z0.Number(75, 80, static_cast<long>(4 * m.relays.size())).Number(81, 86, g0_count);
  out.push_back(z0.Text());
  if (cl2) {
    for (std::string& line : out) line.replace(158, 2, CL2CheckSum(line).value_or("  "));
  }
  return out;
}

std::vector<std::string> Nv3Lines(const MeetFile& m) {
  const std::string course(1, m.course);
  std::vector<std::string> out;
  Line a1("A1", 130);
  a1.Put(3, 4, "09").Put(5, 29, "Exported Results").Put(30, 44, kNv3Creator).Put(45, 58, "2.1Da");
  a1.Put(59, 75, DateText(m.end) + " 18:00").Put(76, 120, m.team_name);
  out.push_back(a1.Text());
  Line b1("B1", 130);
  b1.Put(3, 47, m.name).Put(48, 92, m.location).Put(93, 100, DateText(m.start));
  b1.Put(101, 108, DateText(m.end)).Put(109, 116, DateText(m.start));
  out.push_back(b1.Text());
  Line b2("B2", 130);
  b2.Put(99, 99, course).Put(107, 108, course);
  out.push_back(b2.Text());
  Line c1("C1", 130);
  c1.Put(3, 7, m.team_code).Put(8, 37, m.team_name).Put(54, 55, m.lsc);
  out.push_back(c1.Text());
  for (size_t i = 0; i < m.swimmers.size(); ++i) {
    const Swimmer& s = m.swimmers[i];
    const std::string sex(1, s.sex);
    const int age = AgeOn(s.birth, m.start);
    bool any = false;
    for (const Swim& swim : m.swims) {
      if (static_cast<size_t>(swim.swimmer) != i) continue;
      if (!any) {
        Line d1("D1", 130);
        d1.Put(3, 3, sex).Number(4, 8, static_cast<long>(i + 1)).Put(9, 28, s.last);
        d1.Put(29, 48, s.first).Put(69, 69, s.initial).Put(70, 83, s.id);
        d1.Put(89, 96, DateText(s.birth)).Number(97, 99, age);
        out.push_back(d1.Text());
        out.push_back(Line("D2", 130).Text());
        out.push_back(Line("D3", 130).Text());
        any = true;
      }
      Line e1("E1", 130);
      e1.Put(3, 3, sex).Number(4, 8, static_cast<long>(i + 1)).Put(9, 13, s.last);
      e1.Put(14, 14, sex).Put(15, 15, sex).Number(16, 21, swim.distance);
      e1.Put(22, 22, std::string(1, static_cast<char>('A' + swim.stroke - 1)));
      e1.Put(23, 28, Nv3Ages(swim.lo_hi)).Number(39, 41, swim.event_number);
      e1.Right(52, 59, Nv3Time(swim.seed)).Put(60, 60, course).Number(89, 91, age);
      out.push_back(e1.Text());
      Line e2("E2", 130);
      e2.Put(3, 3, "F");
      if (swim.disqualified) {
        e2.Right(4, 11, Nv3Time(0)).Put(13, 13, "Q");
      } else {
        e2.Right(4, 11, Nv3Time(swim.finals)).Put(12, 12, course).Number(30, 33, swim.finals_place);
      }
      if (swim.prelim > 0) {
        e2.Put(64, 64, "P").Right(65, 72, Nv3Time(swim.prelim)).Put(73, 73, course);
        e2.Number(91, 94, swim.prelim_place);
      }
      out.push_back(e2.Text());
      // Eleven splits to a line, each numbered in lengths of 25.
      for (size_t first = 0; !swim.disqualified && first < swim.splits.size(); first += 11) {
        Line g1("G1", 130);
        for (size_t k = first; k < swim.splits.size() && k < first + 11; ++k) {
          const int at = 3 + 11 * static_cast<int>(k - first);
          g1.Put(at, at, "F").Number(at + 1, at + 2, static_cast<long>(2 * (k + 1)));
          g1.Right(at + 3, at + 10, Nv3Time(swim.splits[k]));
        }
        out.push_back(g1.Text());
      }
    }
  }
  for (std::string& line : out) line.replace(128, 2, NV3CheckSum(line));
  return out;
}

}  // namespace

int32_t Relay::Time() const {
  int32_t sum = 0;
  for (const Leg& leg : legs) sum += leg.time;
  return sum;
}

int AgeOn(const Date& birth, const Date& day) {
  int age = day.year - birth.year;
  if (day.month < birth.month || (day.month == birth.month && day.day < birth.day)) --age;
  return age;
}

const char* Extension(FileFormat format) {
  switch (format) {
    case FileFormat::kCl2:
      return ".cl2";
    case FileFormat::kSd3:
      return ".sd3";
    case FileFormat::kNv3:
      return ".nv3";
  }
  return "";
}

std::string MeetFileText(const MeetFile& meet) {
  std::string text;
  for (const std::string& line :
       meet.format == FileFormat::kNv3 ? Nv3Lines(meet) : SdifLines(meet)) {
    text += line;
    text += "\r\n";
  }
  return text;
}

}  // namespace kvlr::demo
