#include "interchange/EventFile.h"

#include <algorithm>
#include <cctype>

#include <fmt/format.h>

#include "core/DateText.h"
#include "core/VbRules.h"
#include "interchange/MeetText.h"

namespace kvlr {
namespace {

constexpr size_t kMeetFields = 12;
constexpr size_t kCourseSize = 2;  // MEET.Course

std::string FieldAt(const std::vector<std::string>& fields, size_t i) {
  return i < fields.size() ? fields[i] : std::string();
}

// A whole number of a field, held to 16 bits as the store's Int fields are.
int FieldInt(std::string_view text) {
  return std::clamp(ToInt32(Val(text)), -32768, 32767);
}

// Dates of the file are month first; an ISO date is taken too.
std::optional<Date> EventDate(std::string_view text) {
  const std::string t = Trim(text);
  if (t.empty()) return std::nullopt;
  if (auto date = RegionalTextToDate(t, 0)) return date;
  return Date::FromIso(t);
}

std::optional<EventFileEvent> ParseEventLine(std::string_view line) {
  const std::vector<std::string> f = SplitEventFields(line);
  std::string number = UCase(Trim(FieldAt(f, 0)));
  EventFileEvent ev;
  if (!number.empty() && std::isalpha(static_cast<unsigned char>(number.back()))) {
    ev.letter = number.substr(number.size() - 1);
    number.pop_back();
  }
  ev.number = FieldInt(number);
  if (ev.number <= 0) return std::nullopt;
  ev.distance = FieldInt(FieldAt(f, 1));
  ev.stroke = FieldInt(FieldAt(f, 2));
  ev.i_r = UCase(Trim(FieldAt(f, 3))).substr(0, 1);
  if (ev.i_r.empty()) ev.i_r = "I";
  const int low = FieldInt(FieldAt(f, 4));
  int high = FieldInt(FieldAt(f, 5));
  if (high == 0) high = 99;
  ev.lo_hi = low * 100 + high;
  if (ev.lo_hi == 0) ev.lo_hi = 99;
  ev.sex = UCase(Trim(FieldAt(f, 6))).substr(0, 1);
  return ev;
}

}  // namespace

std::vector<std::string> SplitEventFields(std::string_view line, size_t whole_last) {
  std::vector<std::string> fields;
  size_t pos = 0;
  while (pos < line.size()) {
    if (whole_last > 0 && fields.size() + 1 == whole_last) {
      std::string_view rest = line.substr(pos);
      if (!rest.empty() && rest.back() == ';') rest.remove_suffix(1);
      fields.emplace_back(rest);
      break;
    }
    const size_t semi = line.find(';', pos);
    if (semi == std::string_view::npos) {
      fields.emplace_back(line.substr(pos));
      break;
    }
    fields.emplace_back(line.substr(pos, semi - pos));
    pos = semi + 1;
  }
  return fields;
}

std::string EventFileCheckValue(std::string_view line, std::string_view name_field) {
  long long sum = 0;
  if (line.size() > 5) {
    for (unsigned char c : line.substr(0, line.size() - 5)) sum += c;
  }
  const std::string number = fmt::format("{:>4}", sum / 7 + 121);
  std::string check;
  check += number.back();
  check += number.front();
  check += number.substr(1, 2);
  if (name_field.size() >= 3) check += name_field[2];
  return check;
}

std::string EventCourse(std::string_view course_word) {
  const std::string word = UCase(Trim(course_word));
  if (word.size() >= 2 && word.front() == 'B' && word.back() == 'N') {
    return word.substr(1, std::min(kCourseSize, word.size() - 2));
  }
  return word.substr(0, 1);
}

EventFileParse ParseEventFile(const std::vector<std::string>& lines) {
  EventFileParse out;
  if (lines.empty() || Trim(lines[0]).empty()) {
    out.error = kEvInvalidFormat;
    return out;
  }
  const std::string& head = lines[0];
  const std::vector<std::string> f = SplitEventFields(head, kMeetFields);
  const std::string name_field = FieldAt(f, 0);
  if (EventFileCheckValue(head, name_field) != FieldAt(f, 10)) {
    out.error = kEvFailedIntegrity;
    return out;
  }
  if (Trim(FieldAt(f, 7)) != kEventFileCreator) {
    out.error = kEvNotNorvan;
    return out;
  }
  EventFile file;
  file.meet.name = MeetText(Trim(name_field));
  const auto start = EventDate(FieldAt(f, 1));
  if (!start) {
    out.error = std::string(kEvNoStartDate) + file.meet.name;
    return out;
  }
  file.meet.start = *start;
  file.meet.end = EventDate(FieldAt(f, 2));
  file.meet.age_up = EventDate(FieldAt(f, 3));
  file.meet.course = EventCourse(FieldAt(f, 4));
  file.meet.location = MeetText(Trim(FieldAt(f, 5)));
  file.meet.meet_class = MeetText(Trim(FieldAt(f, 9)));
  for (size_t i = 1; i < lines.size(); ++i) {
    if (auto ev = ParseEventLine(lines[i])) file.events.push_back(std::move(*ev));
  }
  out.file = std::move(file);
  return out;
}

}  // namespace kvlr
