#include "meets/Entries.h"

#include <fmt/format.h>

#include <SQLiteCpp/VariadicBind.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "meets/EntryWriter.h"

namespace kvlr {
namespace {

// The writers work on state.gCurrentMeet; the sheet's meet stands there for one call.
class CurrentMeetScope {
 public:
  CurrentMeetScope(AppState& state, int32_t meet) : state_(state), saved_(state.gCurrentMeet) {
    state_.gCurrentMeet = meet;
  }
  ~CurrentMeetScope() { state_.gCurrentMeet = saved_; }
  CurrentMeetScope(const CurrentMeetScope&) = delete;
  CurrentMeetScope& operator=(const CurrentMeetScope&) = delete;

 private:
  AppState& state_;
  int32_t saved_;
};

}  // namespace

char EntryMeet::CourseLetter() const {
  const std::string c = UCase(Trim(course));
  return c.empty() ? 'Y' : c.front();
}

bool EntryMeet::OneCourseOnly() const {
  const std::string c = UCase(Trim(course));
  return !c.empty() && c.back() == 'O';
}

std::optional<EntryMeet> ReadEntryMeet(SQLite::Database& db, int32_t meet) {
  SQLite::Statement q(db,
                      "SELECT Meet, MName, Start, AgeUp, Since, Course FROM MEET WHERE Meet = ?");
  q.bind(1, meet);
  if (!q.executeStep()) return std::nullopt;
  EntryMeet m;
  m.meet = q.getColumn(0).getInt();
  m.name = TextOf(q.getColumn(1));
  m.start = DateOf(q.getColumn(2));
  m.age_up = DateOf(q.getColumn(3));
  m.since = DateOf(q.getColumn(4));
  m.course = TextOf(q.getColumn(5));
  return m;
}

std::vector<EntrySwimmer> LoadEntrySwimmers(SQLite::Database& db) {
  SQLite::Statement q(db,
                      "SELECT Athlete, Last, First, Sex, Birth, Age FROM ATHLETE "
                      "ORDER BY Last, First");
  std::vector<EntrySwimmer> out;
  while (q.executeStep()) {
    EntrySwimmer s;
    s.athlete = q.getColumn(0).getInt();
    s.last = TextOf(q.getColumn(1));
    s.first = TextOf(q.getColumn(2));
    s.sex = TextOf(q.getColumn(3));
    s.birth = DateOf(q.getColumn(4));
    s.age = static_cast<int16_t>(q.getColumn(5).getInt());
    out.push_back(std::move(s));
  }
  return out;
}

int16_t EntryAge(const EntrySwimmer& swimmer, const EntryMeet& meet, const Date& null_date) {
  if (meet.age_up && *meet.age_up != null_date && swimmer.birth && *swimmer.birth != null_date) {
    const int16_t age = AgeAtDate(swimmer.birth, meet.age_up);
    if (age > 0) return age;
  }
  return swimmer.age;
}

bool HasEntryEvents(SQLite::Database& db, int32_t meet) {
  SQLite::Statement q(db, "SELECT 1 FROM MTEVENTE WHERE Meet = ? LIMIT 1");
  q.bind(1, meet);
  return q.executeStep();
}

std::vector<OfferedEvent> EventsOffered(SQLite::Database& db, int32_t meet, int age,
                                        std::string_view sex) {
  SQLite::Statement q(db,
                      "SELECT MtEvent, MtEv, MtEvX, Lo_Hi, Distance, Stroke, Sex FROM MTEVENTE "
                      "WHERE Meet = ? AND I_R = ? AND Lo_Hi / 100 <= ? AND Lo_Hi % 100 >= ? "
                      "AND (Sex = ? OR Sex = ?) ORDER BY MtEv, MtEvX");
  SQLite::bind(q, meet, "I", age, age, std::string(sex), "X");
  std::vector<OfferedEvent> out;
  while (q.executeStep()) {
    OfferedEvent e;
    e.mt_event = q.getColumn(0).getInt();
    e.mt_ev = static_cast<int16_t>(q.getColumn(1).getInt());
    e.mt_evx = TextOf(q.getColumn(2));
    e.lo_hi = static_cast<int16_t>(q.getColumn(3).getInt());
    e.distance = static_cast<int16_t>(q.getColumn(4).getInt());
    e.stroke = static_cast<int16_t>(q.getColumn(5).getInt());
    e.sex = TextOf(q.getColumn(6));
    out.push_back(std::move(e));
  }
  return out;
}

std::string EntryEventText(const OfferedEvent& event) {
  return fmt::format(
      "{} {} {} {} {}", EventNumberText(fmt::format("{}{}", event.mt_ev, event.mt_evx)),
      SexWord(event.sex), LoHiText(event.lo_hi), event.distance, StrokeText(event.stroke, "I"));
}

std::string EntryRow::CustomText() const {
  if (!entered) return "";
  if (no_time) return "NT";
  return Trim(ScoreText(score, event.stroke, "", 0));
}

EntrySheet::EntrySheet(AppState& state, EntryMeet meet)
    : state_(state), meet_(std::move(meet)), finder_(state) {}

EntrySheet::~EntrySheet() = default;

bool EntrySheet::Load(const EntrySwimmer& swimmer) {
  swimmer_ = swimmer;
  rows_.clear();
  const bool loaded = RunTrapped(state_, "frmEntNa.LoadEntries", [&] {
    rows_.clear();
    const int16_t age = EntryAge(swimmer_, meet_, state_.gNullDate);
    const bool use_dates = meet_.since && *meet_.since != state_.gNullDate;
    const Date since = use_dates ? *meet_.since : state_.gNullDate;
    const char course = meet_.CourseLetter();
    for (OfferedEvent& e : EventsOffered(*state_.gDb, meet_.meet, age, swimmer_.sex)) {
      EntryRow row;
      row.event = std::move(e);
      const BestTimeRec best =
          meet_.OneCourseOnly()
              ? finder_.FastestText(swimmer_.athlete, row.event.distance, row.event.stroke, course,
                                    use_dates, since, "")
              : finder_.BestText(swimmer_.athlete, row.event.distance, row.event.stroke, course,
                                 use_dates, since, "", true);
      row.best_text = Trim(best.text);
      row.best_score = best.converted > 0 ? best.converted : 0;
      ReadEntry(row);
      rows_.push_back(std::move(row));
    }
    return true;
  });
  if (!loaded) rows_.clear();
  return loaded;
}

void EntrySheet::ReadEntry(EntryRow& row) {
  if (!entry_) {
    entry_ = std::make_unique<SQLite::Statement>(
        *state_.gDb,
        "SELECT Misc, Score, Ex FROM ENTRY WHERE Meet = ? AND MtEvent = ? AND Athlete = ? AND "
        "I_R = ?");
  }
  SQLite::Statement& q = *entry_;
  q.reset();
  SQLite::bind(q, meet_.meet, row.event.mt_event, swimmer_.athlete, "I");
  row.entered = q.executeStep();
  row.no_time = row.entered && UCase(TextOf(q.getColumn(0))) == "N";
  row.score = row.entered ? q.getColumn(1).getInt() : 0;
  row.exhib = row.entered && UCase(TextOf(q.getColumn(2))) == "X";
  q.reset();
}

bool EntrySheet::Add(EntryRow& row, std::string_view ex) {
  const bool no_time = row.best_score < 1;
  bool added = false;
  {
    CurrentMeetScope scope(state_, meet_.meet);
    added = AddNewEntry(state_, row.best_score, std::string(1, meet_.CourseLetter()),
                        row.event.mt_event, "I", no_time, "", ex, swimmer_.athlete);
  }
  if (!added) state_.io->Tell(kCouldNotAddEntryDot);
  return added;
}

bool EntrySheet::SetEntered(size_t row_index, bool on) {
  if (row_index >= rows_.size()) return false;
  EntryRow& row = rows_[row_index];
  bool stored = false;
  if (on) {
    stored = row.entered || Add(row, "");
  } else {
    stored = RunTrapped(state_, "frmEntNa.RemoveEntry", [&] {
      SQLite::Statement del(*state_.gDb,
                            "DELETE FROM ENTRY WHERE Meet = ? AND MtEvent = ? AND Athlete = ? AND "
                            "I_R = ?");
      SQLite::bind(del, meet_.meet, row.event.mt_event, swimmer_.athlete, "I");
      del.exec();
      return true;
    });
  }
  RunTrapped(state_, "frmEntNa.LoadEntries", [&] {
    ReadEntry(row);
    return true;
  });
  return stored;
}

bool EntrySheet::SetExhib(size_t row_index, bool on) {
  if (row_index >= rows_.size()) return false;
  EntryRow& row = rows_[row_index];
  bool stored = false;
  if (!row.entered) {
    stored = !on || Add(row, "X");
  } else {
    stored = RunTrapped(state_, "frmEntNa.SetExhibition", [&] {
      SQLite::Statement edit(*state_.gDb,
                             "UPDATE ENTRY SET Ex = ? WHERE Meet = ? AND MtEvent = ? AND "
                             "Athlete = ? AND I_R = ?");
      SQLite::bind(edit, on ? "X" : "", meet_.meet, row.event.mt_event, swimmer_.athlete, "I");
      edit.exec();
      return true;
    });
  }
  RunTrapped(state_, "frmEntNa.LoadEntries", [&] {
    ReadEntry(row);
    return true;
  });
  return stored;
}

bool EntrySheet::TypeTime(size_t row_index, std::string_view text) {
  if (row_index >= rows_.size()) return false;
  EntryRow& row = rows_[row_index];
  TimeInput in;
  std::string message;
  if (!CheckEntryText(text, in, row.event.stroke, &message)) {
    if (!message.empty()) state_.io->Tell(message);
    state_.io->Tell(kInvalidEntry);
    return false;
  }
  // A bare "X" leaves no time either: it is stored as an exhibition with no time.
  const bool no_time = Trim(text).empty() || in.nt != 0 || in.score == 0;
  bool stored = false;
  {
    CurrentMeetScope scope(state_, meet_.meet);
    stored =
        UpdateEntryScore(state_, no_time ? 0 : in.score, std::string(1, meet_.CourseLetter()),
                         row.event.mt_event, "I", no_time, "", in.exhibition, swimmer_.athlete);
  }
  RunTrapped(state_, "frmEntNa.LoadEntries", [&] {
    ReadEntry(row);
    return true;
  });
  return stored;
}

}  // namespace kvlr
