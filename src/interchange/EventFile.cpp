#include "interchange/EventFile.h"

#include <algorithm>
#include <cctype>
#include <fstream>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/VbRules.h"
#include "interchange/UnZip.h"
#include "meets/Meets.h"

namespace kvlr {
namespace {

constexpr size_t kMeetFields = 12;
// Field sizes of MEET and MTEVENTE that the store enforces.
constexpr size_t kNameSize = 45;
constexpr size_t kLocationSize = 45;
constexpr size_t kCourseSize = 2;

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

void BindDate(SQLite::Statement& s, int index, const std::optional<Date>& date) {
  if (date)
    s.bind(index, date->Iso());
  else
    s.bind(index);
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
  file.meet.name = Trim(name_field);
  const auto start = EventDate(FieldAt(f, 1));
  if (!start) {
    out.error = std::string(kEvNoStartDate) + file.meet.name;
    return out;
  }
  file.meet.start = *start;
  file.meet.end = EventDate(FieldAt(f, 2));
  file.meet.age_up = EventDate(FieldAt(f, 3));
  file.meet.course = EventCourse(FieldAt(f, 4));
  file.meet.location = Trim(FieldAt(f, 5));
  file.meet.meet_class = Trim(FieldAt(f, 9));
  for (size_t i = 1; i < lines.size(); ++i) {
    if (auto ev = ParseEventLine(lines[i])) file.events.push_back(std::move(*ev));
  }
  out.file = std::move(file);
  return out;
}

std::vector<std::string> ReadEventFileLines(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) ThrowFileError(errno, "Could not open", file.string());
  std::vector<std::string> lines;
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
  }
  return lines;
}

std::optional<EventFile> CheckEventFile(AppState& state, const std::vector<std::string>& lines) {
  EventFileParse parse = ParseEventFile(lines);
  if (!parse.file) {
    state.io->Tell(parse.error);
    return std::nullopt;
  }
  SQLite::Statement same(*state.gDb, "SELECT MName FROM MEET WHERE Start = ? LIMIT 1");
  same.bind(1, parse.file->meet.start.Iso());
  if (same.executeStep()) {
    state.io->Tell(std::string(kEvExistingMeet) +
                   MeetShortDate(parse.file->meet.start, state.gDateOrder) +
                   std::string(kEvExistingNamed) + same.getColumn(0).getString() + "\n" +
                   std::string(kEvRemoveMeetFirst));
    return std::nullopt;
  }
  return std::move(parse.file);
}

EventImportOutcome ImportEvents(AppState& state, const std::filesystem::path& nvv) {
  return RunTrapped(state, "frmImpEv.ImportEvents", [&]() -> EventImportOutcome {
    const auto file = CheckEventFile(state, ReadEventFileLines(nvv));
    if (!file) return {};
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    Meet meet;
    meet.mname = file->meet.name.substr(0, kNameSize);
    meet.start = file->meet.start;
    meet.end = file->meet.end.value_or(file->meet.start);
    meet.age_up = file->meet.age_up;
    meet.course = file->meet.course.substr(0, kCourseSize);
    meet.location = file->meet.location.substr(0, kLocationSize);
    SQLite::Statement add_meet(
        db, "INSERT INTO MEET (MName, Start, End, AgeUp, Course, Location) "
            "VALUES (?, ?, ?, ?, ?, ?)");
    add_meet.bind(1, meet.mname);
    BindDate(add_meet, 2, meet.start);
    BindDate(add_meet, 3, meet.end);
    BindDate(add_meet, 4, meet.age_up);
    add_meet.bind(5, meet.course);
    add_meet.bind(6, meet.location);
    add_meet.exec();
    meet.meet = static_cast<int32_t>(db.getLastInsertRowid());
    WriteMeetCalendar(state, meet);

    const std::string course = meet.course.substr(0, 1);
    SQLite::Statement seek(db, "SELECT 1 FROM MTEVENTE WHERE Meet = ? AND MtEv = ? AND MtEvX = ?");
    SQLite::Statement add_event(db,
                                "INSERT INTO MTEVENTE (Meet, MtEv, MtEvX, Lo_Hi, Course, "
                                "Distance, Stroke, Sex, I_R) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    int count = 0;
    for (const EventFileEvent& ev : file->events) {
      seek.reset();
      SQLite::bind(seek, meet.meet, ev.number, ev.letter);
      if (seek.executeStep()) continue;
      add_event.reset();
      SQLite::bind(add_event, meet.meet, ev.number, ev.letter, ev.lo_hi, course, ev.distance,
                   ev.stroke, ev.sex, ev.i_r);
      add_event.exec();
      ++count;
    }
    transaction.commit();
    state.io->Message(std::string(kEventsImported) + std::to_string(count),
                      box::kOk + box::kInformation, kImportEventsTitle);
    return {true, meet.meet, meet.mname, count};
  });
}

std::vector<std::filesystem::path> ExtractEventFiles(AppState& state,
                                                     const std::filesystem::path& zip) {
  std::vector<std::filesystem::path> files;
  try {
    files = ExtractZipInto(zip, state.home.TempDir(), {".nvv"});
  } catch (const KvlError& e) {
    state.io->Tell(std::string(kZipExtractError) + e.what());
    return {};
  }
  if (files.empty()) state.io->Tell(kNoEventFilesInZip);
  return files;
}

EventFileKind EventFileKindOf(const std::filesystem::path& file) {
  if (HasExtension(file, ".nvv")) return EventFileKind::kNvv;
  if (HasExtension(file, ".zip")) return EventFileKind::kZip;
  return EventFileKind::kInvalid;
}

std::string NotValidEventFileText(const std::filesystem::path& file) {
  return file.string() + std::string(kNotValidFilename);
}

}  // namespace kvlr
