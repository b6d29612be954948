#pragma once
// Made-up interchange files for tests, built from the column layouts of the records and
// the check-sum arithmetic written out here again, independent of the program's readers
// and writers, so a fault in those cannot hide itself in the fixtures.
//
// Sdif("D0", {{"swimmer_name", "DOE, JANE A"}, {"distance", "100"}}) gives a 160-column
// line; Cl2(line) adds the Commlink check sum; Nv3("E1", {...}) gives a 130-column NV3
// line with its check sum; FileText(lines) joins lines with CR LF. Field names are the
// snake_case names of the record structs; an unknown name, or a value wider than its
// field, throws std::invalid_argument. Numbers are right-aligned, everything else left.

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "interchange/ImportTypes.h"

namespace kvlr::testing {

struct FieldSpot {
  int first;
  int last;
  bool right = false;  // right-aligned number
};

using FieldTable = std::map<std::string, FieldSpot, std::less<>>;
using FieldList = std::vector<std::pair<std::string, std::string>>;

// Fields by name: {{"name", "value"}, ...}, or "name=value|name=value" in one text.
class FieldValues {
 public:
  FieldValues() = default;
  FieldValues(std::initializer_list<std::pair<std::string_view, std::string_view>> list) {
    for (const auto& [name, value] : list) list_.emplace_back(name, value);
  }
  FieldValues(const FieldList& list) : list_(list) {}
  FieldValues(const char* written) {
    for (std::string_view text = written; !text.empty();) {
      const std::string_view item = text.substr(0, text.find('|'));
      const size_t eq = item.find('=');
      list_.emplace_back(item.substr(0, eq), item.substr(eq + 1));
      text.remove_prefix(std::min(text.size(), item.size() + 1));
    }
  }
  FieldList::const_iterator begin() const { return list_.begin(); }
  FieldList::const_iterator end() const { return list_.end(); }

 private:
  FieldList list_;
};

// `base` with `change` put over it by name; a name `base` lacks goes last.
inline FieldList Merged(const FieldValues& base, const FieldValues& change) {
  FieldList fields(base.begin(), base.end());
  for (const auto& [name, value] : change) {
    const auto at = std::find_if(fields.begin(), fields.end(),
                                 [&name](const auto& field) { return field.first == name; });
    if (at == fields.end()) {
      fields.emplace_back(name, value);
    } else {
      at->second = value;
    }
  }
  return fields;
}

namespace file_maker_detail {

constexpr bool R = true;

inline void AddTimes(FieldTable& t, std::string_view stem, int count, int first) {
  for (int i = 0; i < count; ++i) {
    t[std::string(stem) + std::to_string(i + 1)] = {first + 8 * i, first + 8 * i + 7, R};
  }
}

// A layout as words "name:first-last", "r" behind a right-aligned number's columns.
inline FieldTable Layout(std::string_view words) {
  FieldTable t;
  std::istringstream in{std::string(words)};
  std::string word;
  while (in >> word) {
    const size_t colon = word.find(':');
    const bool right = word.back() == 'r';
    const std::string range = word.substr(colon + 1, word.size() - colon - 1 - (right ? 1 : 0));
    const size_t dash = range.find('-');
    const int first = std::stoi(range.substr(0, dash));
    const int last = dash == std::string::npos ? first : std::stoi(range.substr(dash + 1));
    t[word.substr(0, colon)] = {first, last, right};
  }
  return t;
}

// Only the fields some test sets are named.
inline const std::map<std::string, FieldTable, std::less<>>& SdifTables() {
  static const auto tables = [] {
    std::map<std::string, FieldTable, std::less<>> t;
    t["A0"] = Layout(
        "organization:3 version:4-11 file_code:12-13 software_name:44-63 software_version:64-73 "
        "contact_name:74-93 contact_phone:94-105 file_date:106-113 source_code:150-151 "
        "content_code:152-153 reserved:156-157 check_sum:159-160");
    t["B1"] = Layout(
        "organization:3 meet_name:12-41 location:86-120 meet_type:121 start:122-129 end:130-137 "
        "course:150");
    t["B2"] = Layout("host_name:12-41 location:86-120 phone:121-132");
    t["C1"] = Layout(
        "organization:3 lsc:12-13 team_code:14-17 team_name:18-47 short_name:48-63 "
        "city:108-127 state:128-129 country:140-142 region:143 team_code5:150");
    t["D0"] = Layout(
        "organization:3 swimmer_name:12-39 swimmer_number:40-51 attach:52 citizen:53-55 "
        "birth:56-63 age:64-65r sex:66 event_sex:67 distance:68-71r stroke:72 "
        "event_number:73-75r event_letter:76 event_age:77-80 swim_date:81-88 seed_time:89-96r "
        "seed_course:97 prelim_time:98-105r prelim_course:106 swim_off_time:107-114r "
        "swim_off_course:115 finals_time:116-123r finals_course:124 prelim_heat:125-126r "
        "prelim_lane:127-128r finals_heat:129-130r finals_lane:131-132r prelim_place:133-135r "
        "finals_place:136-138r points:139-142r lower_time_class:143 upper_time_class:144 "
        "private_stroke:150 exhibition:156");
    t["D1"] = Layout(
        "organization:3 lsc:12-13 team_code:14-17 team_code5:18 swimmer_name:19-46 "
        "swimmer_number:48-59 attach:60 citizen:61-63 birth:64-71 age:72-73r sex:74 "
        "day_phone:125-136 evening_phone:137-148 last_membership:149-156 member_code:157");
    t["D2"] = Layout(
        "organization:3 lsc:12-13 team_code:14-17 team_code5:18 swimmer_name:19-46 "
        "addressee:47-76 street:77-106 city:107-126 state:127-128 country:129-140 zip:141-150 "
        "region:154 answer:155 season:156");
    t["D3"] =
        Layout("new_swimmer_number:3-16 preferred_first_name:17-31 ethnicity:32-33 flags:34-41");
    t["E0"] = Layout(
        "organization:3 team_letter:12 lsc:13-14 team_code:15-18 f0_count:19-20r event_sex:21 "
        "distance:22-25r stroke:26 event_number:27-29r event_letter:30 event_age:31-34 "
        "swim_date:38-45 seed_time:46-53r seed_course:54 prelim_time:55-62r prelim_course:63 "
        "swim_off_time:64-71r swim_off_course:72 finals_time:73-80r finals_course:81 "
        "prelim_heat:82-83r prelim_lane:84-85r finals_heat:86-87r finals_lane:88-89r "
        "prelim_place:90-92r finals_place:93-95r points:96-99r lower_time_class:100 "
        "upper_time_class:101 private_stroke:150 exhibition:156");
    t["F0"] = Layout(
        "organization:3 lsc:16-17 team_code:18-21 team_code5:22 swimmer_name:23-45 "
        "swimmer_number:51-62 citizen:63-65 birth:66-73 age:74-75r sex:76 prelim_order:77 "
        "swim_off_order:78 finals_order:79 leg_time:80-87r leg_course:88 take_off:89-92r "
        "new_swimmer_number:93-106");
    t["G0"] = Layout(
        "organization:3 swimmer_name:16-43 swimmer_number:44-55 sequence:56r total_splits:57-58r "
        "split_distance:59-62r split_code:63 prelim_final:144");
    t["J0"] =
        Layout("meet_code:11 event_sex:17 distance:18-21r stroke:22 event_age:47-50 date:66-73");
    t["J2"] = Layout("event_sex:3 distance:4-7r stroke:8 color:9-12 date:66-73");
    t["Z0"] = Layout(
        "organization:3 file_code:12-13 notes:14-43 b1_count:44-46r meet_count:47-49r "
        "c1_count:50-53r team_count:54-57r d0_count:58-63r swimmer_count:64-69r e0_count:70-74r "
        "f0_count:75-80r g0_count:81-86r");
    AddTimes(t["G0"], "split", 10, 64);
    t["J1"] = t["J2"];  // a J1 line is cut like a J2
    return t;
  }();
  return tables;
}

inline const std::map<std::string, FieldTable, std::less<>>& Nv3Tables() {
  static const auto tables = [] {
    std::map<std::string, FieldTable, std::less<>> t;
    t["A1"] =
        Layout("file_code:3-4 kind:5-29 creator:30-44 version:45-58 date_time:59-75 name:76-120");
    t["B1"] = Layout("meet_name:3-47 location:48-92 start:93-100 end:101-108 age_up:109-116");
    t["B2"] = Layout("meet_type:97-98 course_letter:99 course:107-108");
    t["C1"] = Layout(
        "team_code:3-7 team_name:8-37 short_name:38-53 lsc:54-55 code1:117-119 code2:120-122");
    t["D1"] = Layout(
        "sex:3 athlete:4-8r last:9-28 first:29-48 pref:49-68 initial:69 id_no:70-83 birth:89-96 "
        "age:97-99r");
    t["E1"] = Layout(
        "sex:3 athlete:4-8r last5:9-13 sex2:14 event_sex:15 distance:16-21r stroke_letter:22 "
        "age_group:23-28 fee:33-38r event_number:39-41r event_letter:42 seed_time:52-59r "
        "seed_course:60 points:61-68r exhibition:81 col84:84 age:86-88r age2:89-91r col92:92 "
        "lead_off:95 gs_mark:96");
    t["E2"] = t["F2"] = Layout(
        "f_p:3 score:4-11r course:12 nt_letter:13 exhibition:16 place:30-33r number:61-63r "
        "f_p2:64 score2:65-72r course2:73 nt_letter2:74 place2:91-94r");
    t["F1"] = Layout(
        "team_code:3-7 relay_letter:8 col9:9-12 event_sex:15 distance:16-21r stroke_letter:22 "
        "age_group:23-28 event_number:39-41r event_letter:42 seed_time:52-59r seed_course:60");
    for (const char* code : {"C2", "D2", "D3", "D4", "E3"}) t[code] = {};  // only their code
    FieldTable& g1 = t["G1"];
    for (int i = 0; i < 11; ++i) {
      const int at = 3 + 11 * i;
      const std::string n = std::to_string(i + 1);
      g1["f_p" + n] = {at, at};
      g1["split_number" + n] = {at + 1, at + 2, R};
      g1["value" + n] = {at + 3, at + 10, R};
    }
    return t;
  }();
  return tables;
}

template <typename Fields>
std::string Place(const std::map<std::string, FieldTable, std::less<>>& tables,
                  std::string_view code, const Fields& fields, size_t width) {
  const auto table = tables.find(code);
  if (table == tables.end()) {
    throw std::invalid_argument("no record " + std::string(code));
  }
  std::string line(width, ' ');
  line.replace(0, 2, code.substr(0, 2));
  for (const auto& [name, value] : fields) {
    const auto spot = table->second.find(name);
    if (spot == table->second.end()) {
      throw std::invalid_argument("no field " + std::string(name) + " in " + std::string(code));
    }
    const std::string_view v = value;
    const size_t w = static_cast<size_t>(spot->second.last - spot->second.first + 1);
    if (v.size() > w) throw std::invalid_argument("value too wide for " + std::string(name));
    const size_t at =
        static_cast<size_t>(spot->second.first - 1) + (spot->second.right ? w - v.size() : 0);
    line.replace(at, v.size(), v);
  }
  return line;
}

// The two low digits of `sum` / `divisor` + `add`, the last one first. The fixtures' sums
// stay within 16 bits, where the program's arithmetic would wrap.
inline std::string SumDigits(long sum, long divisor, long add) {
  if (sum > 32767) throw std::invalid_argument("check sum passes 16 bits");
  const std::string digits = std::to_string(sum / divisor + add);
  return {digits.back(), digits[digits.size() - 2]};
}

}  // namespace file_maker_detail

inline constexpr size_t kSdifWidth = 160;
inline constexpr size_t kNv3Width = 130;

// A 160-column SDIF line: the record code in columns 1-2, the fields at their columns.
inline std::string Sdif(std::string_view code, FieldValues fields = {}) {
  return file_maker_detail::Place(file_maker_detail::SdifTables(), code, fields, kSdifWidth);
}

// A 160-column line of `code` with texts put at raw columns, "column=text|column=text",
// for cuts the field tables don't name (a field read across its neighbour, a column between
// fields).
inline std::string SdifLine(std::string_view code, std::string_view puts) {
  std::string line(kSdifWidth, ' ');
  line.replace(0, code.size(), code);
  while (!puts.empty()) {
    const std::string_view item = puts.substr(0, puts.find('|'));
    const size_t eq = item.find('=');
    const int col = std::stoi(std::string(item.substr(0, eq)));
    line.replace(static_cast<size_t>(col - 1), item.size() - eq - 1, item.substr(eq + 1));
    puts.remove_prefix(std::min(puts.size(), item.size() + 1));
  }
  return line;
}

// Sum of the bytes of columns 1-156, /19, +211, low digits reversed.
inline std::string Cl2Sum(std::string_view line) {
  long sum = 0;
  for (size_t i = 0; i < std::min<size_t>(156, line.size()); ++i) {
    sum += static_cast<unsigned char>(line[i]);
  }
  return file_maker_detail::SumDigits(sum, 19, 211);
}

// `line` (padded to 160 columns) with its Commlink check sum in columns 159-160.
inline std::string Cl2(std::string line) {
  line.resize(kSdifWidth, ' ');
  line.replace(158, 2, Cl2Sum(line));
  return line;
}

// Over columns 1-128: odd columns once, even twice; /21, +205, low digits reversed.
inline std::string Nv3Sum(std::string_view line) {
  long sum = 0;
  for (size_t col = 1; col <= 128; ++col) {
    const long c = col <= line.size() ? static_cast<unsigned char>(line[col - 1]) : ' ';
    sum += col % 2 == 1 ? c : 2 * c;
  }
  return file_maker_detail::SumDigits(sum, 21, 205);
}

// A 130-column NV3 line with its check sum in columns 129-130.
inline std::string Nv3(std::string_view code, FieldValues fields = {}) {
  std::string line =
      file_maker_detail::Place(file_maker_detail::Nv3Tables(), code, fields, kNv3Width);
  line.replace(128, 2, Nv3Sum(line));
  return line;
}

// Lines as a file: each ended by CR LF.
inline std::string FileText(const std::vector<std::string>& lines) {
  std::string out;
  for (const auto& line : lines) {
    out += line;
    out += "\r\n";
  }
  return out;
}

// A whole file of one meet: A0, B1, C1, the lines in the order added, Z0 with the counts
// of its lines. Defaults make a valid results file (file code "02", version 3, made-
// up people); every call's fields override the defaults by name.
class SdifFile {
 public:
  // `commlink`: a .cl2 (software "Norvan, Ltd", check sums); else a plain .sd3.
  explicit SdifFile(bool commlink = true)
      : commlink_(commlink),
        a0_(Merged("version=V3|file_code=02|software_version=1.0|contact_name=Pat Example|"
                   "contact_phone=555-0100|file_date=11222026",
                   {{"software_name", commlink ? "Norvan, Ltd" : "Made Up Meet Manager"}})) {}
  SdifFile& A0(FieldValues fields) {
    a0_ = Merged(a0_, fields);
    return *this;
  }
  // A B1 (meet); the first call replaces the default meet.
  SdifFile& Meet(FieldValues fields = {}) { return Add("B1", kMeet, fields); }
  SdifFile& Team(FieldValues fields = {}) { return Add("C1", kTeam, fields); }
  // A D0 and, with `with_d3`, the D3 behind it.
  SdifFile& Swim(FieldValues fields = {}, bool with_d3 = true) {
    Add("D0",
        "swimmer_name=DOE, JANE A|birth=01022014|age=12|sex=F|event_sex=F|distance=100|"
        "stroke=1|event_number=12|event_age=1112|swim_date=11012026|seed_time=1:07.00|"
        "seed_course=Y|finals_time=1:05.32|finals_course=Y|finals_place=3",
        fields);
    if (with_d3) Add("D3", "new_swimmer_number=MADEUP000001", {});
    return *this;
  }
  // An E0 with `legs` F0 lines.
  SdifFile& Relay(FieldValues fields = {}, int legs = 4) {
    Add("E0",
        Merged("team_letter=A|lsc=ZZ|team_code=MUST|event_sex=F|distance=200|stroke=6|"
               "event_number=20|event_age=1112|swim_date=11012026|finals_time=2:10.00|"
               "finals_course=Y",
               {{"f0_count", std::to_string(legs)}}),
        fields);
    static const char* const kNames[] = {"DOE, JANE A", "ROE, ANN", "POE, EVE", "LOE, MAY"};
    for (int i = 0; i < legs; ++i) {
      Add("F0",
          "team_code=MUST|birth=01022014|age=12|sex=F|prelim_order=0|swim_off_order=0|"
          "leg_time=32.50|leg_course=Y",
          {{"swimmer_name", kNames[i % 4]}, {"finals_order", std::to_string(i % 4 + 1)}});
    }
    return *this;
  }
  // Any record as it stands (no defaults).
  SdifFile& Line(std::string_view code, FieldValues fields = {}) { return Add(code, {}, fields); }
  // A prepared line as it stands (a damaged one, say): its check sum is not touched.
  SdifFile& Raw(std::string line) {
    body_.push_back({"", {}, std::move(line)});
    return *this;
  }
  // Z0 fields that override the counted ones.
  SdifFile& Z0(FieldValues fields) {
    z0_ = Merged(z0_, fields);
    return *this;
  }
  std::vector<std::string> Lines() const {
    std::vector<std::string> out = {Finish("A0", a0_)};
    const auto has = [&out](const char* code) {
      return std::any_of(out.begin(), out.end(),
                         [code](const auto& l) { return l.starts_with(code); });
    };
    if (std::none_of(body_.begin(), body_.end(), [](const Entry& e) { return e.code == "B1"; })) {
      out.push_back(Finish("B1", Merged(kMeet, {})));
    }
    for (const Entry& e : body_) {
      if ((e.code == "D0" || e.code == "D1" || e.code == "E0") && !has("C1")) {
        out.push_back(Finish("C1", Merged(kTeam, {})));
      }
      out.push_back(e.code.empty() ? e.raw : Finish(e.code, e.fields));
    }
    std::map<std::string, int, std::less<>> n;
    for (const auto& line : out) ++n[line.substr(0, 2)];
    const std::string meets = std::to_string(n["B1"] + n["B2"]);
    const std::string teams = std::to_string(n["C1"]);
    const auto file_code =
        std::find_if(a0_.begin(), a0_.end(), [](const auto& f) { return f.first == "file_code"; });
    const FieldList z0 = {{"file_code", file_code->second},
                          {"b1_count", meets},
                          {"meet_count", meets},
                          {"c1_count", teams},
                          {"team_count", teams},
                          {"d0_count", std::to_string(n["D0"])},
                          {"swimmer_count", std::to_string(n["D1"] > 0 ? n["D1"] : n["D0"])},
                          {"e0_count", std::to_string(n["E0"])},
                          {"f0_count", std::to_string(n["F0"])},
                          {"g0_count", std::to_string(n["G0"])}};
    out.push_back(Finish("Z0", Merged(z0, z0_)));
    return out;
  }
  std::string Text() const { return FileText(Lines()); }

 private:
  static constexpr const char* kMeet =
      "meet_name=Autumn Made-Up Invite|location=Springfield|start=11012026|end=11022026|course=Y";
  static constexpr const char* kTeam = "lsc=ZZ|team_code=MUST|team_name=Made Up Swim Team";
  struct Entry {
    std::string code;
    FieldList fields;
    std::string raw;
  };
  SdifFile& Add(std::string_view code, const FieldValues& defaults, const FieldValues& fields) {
    body_.push_back({std::string(code), Merged(defaults, fields), {}});
    return *this;
  }
  std::string Finish(std::string_view code, const FieldList& fields) const {
    const std::string line = Sdif(code, fields);
    return commlink_ ? Cl2(line) : line;
  }
  bool commlink_;
  FieldList a0_;
  FieldList z0_;
  std::vector<Entry> body_;
};

// Records what a pass reports; answers "stop" from the question after `cancel_after`.
class Monitor : public ImportMonitor {
 public:
  void Status(std::string_view s) override { statuses.emplace_back(s); }
  void Counts(const ImportCounts& c) override { last = c; }
  bool Cancelled() override { return ++asked > cancel_after; }
  std::vector<std::string> statuses;
  ImportCounts last;
  int asked = 0;
  int cancel_after = 1 << 30;
};

}  // namespace kvlr::testing
