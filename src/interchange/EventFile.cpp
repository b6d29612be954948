#include "interchange/EventFile.h"

#include <cerrno>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/VbRules.h"
#include "interchange/MeetFileLines.h"
#include "interchange/MeetText.h"
#include "interchange/UnZip.h"
#include "meets/Meets.h"

namespace kvlr {
namespace {

// Field sizes of MEET that the store enforces.
constexpr size_t kNameSize = 45;
constexpr size_t kLocationSize = 45;
constexpr size_t kCourseSize = 2;
constexpr size_t kTypeSize = 3;

void BindDate(SQLite::Statement& s, int index, const std::optional<Date>& date) {
  if (date)
    s.bind(index, date->Iso());
  else
    s.bind(index);
}

}  // namespace

std::vector<std::string> ReadEventFileLines(const std::filesystem::path& file) {
  MeetFileLines in(file);
  if (in.Size() > kMaxMeetFileBytes) {
    throw FormatError(err::kDataError, MeetFileTooLargeText(file));
  }
  std::vector<std::string> lines;
  std::string line;
  while (in.Next(line)) lines.push_back(line);
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
  std::error_code ec;
  if (const auto size = std::filesystem::file_size(nvv, ec); !ec && size > kMaxMeetFileBytes) {
    state.io->Tell(MeetFileTooLargeText(nvv));
    return {};
  }
  return RunTrapped(state, "frmImpEv.ImportEvents", [&]() -> EventImportOutcome {
    const auto file = CheckEventFile(state, ReadEventFileLines(nvv));
    if (!file) return {};
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    Meet meet;
    meet.mname = Utf8Prefix(file->meet.name, kNameSize);
    meet.start = file->meet.start;
    meet.end = file->meet.end.value_or(file->meet.start);
    meet.age_up = file->meet.age_up;
    meet.course = file->meet.course.substr(0, kCourseSize);
    meet.location = Utf8Prefix(file->meet.location, kLocationSize);
    SQLite::Statement add_meet(db,
                               "INSERT INTO MEET (MName, Start, End, AgeUp, Course, Location, "
                               "Type) VALUES (?, ?, ?, ?, ?, ?, ?)");
    add_meet.bind(1, meet.mname);
    BindDate(add_meet, 2, meet.start);
    BindDate(add_meet, 3, meet.end);
    BindDate(add_meet, 4, meet.age_up);
    add_meet.bind(5, meet.course);
    add_meet.bind(6, meet.location);
    if (const std::string type = Utf8Prefix(file->meet.meet_class, kTypeSize); !type.empty()) {
      add_meet.bind(7, type);
    } else {
      add_meet.bind(7);
    }
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

EventZipFiles ExtractEventFiles(AppState& state, const std::filesystem::path& zip) {
  EventZipFiles out;
  try {
    out.owner = std::make_shared<RunFolder>(state.home);
    out.files = ExtractZipInto(zip, out.owner->Path(), {".nvv"});
  } catch (const KvlError& e) {
    state.io->Tell(std::string(kZipExtractError) + e.what());
    return {};
  }
  if (out.files.empty()) {
    state.io->Tell(kNoEventFilesInZip);
    return {};
  }
  return out;
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
