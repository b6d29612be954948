#include "meets/ResultsByName.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "meets/ResultTexts.h"

namespace kvlr {
namespace {}  // namespace

std::vector<ResNaSwimmer> ActiveSwimmers(SQLite::Database& db) {
  SQLite::Statement q(
      db,
      "SELECT Athlete, Last, First, Sex, Birth, Age FROM ATHLETE WHERE Athlete <> 0 "
      "AND NOT IFNULL(Inactive, 0) ORDER BY Last, First");
  std::vector<ResNaSwimmer> out;
  while (q.executeStep()) {
    ResNaSwimmer s;
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

std::vector<ResNaEvent> IndividualEvents(SQLite::Database& db, int32_t meet, std::string_view sex) {
  SQLite::Statement q(db,
                      "SELECT MtEvent, MtEv, MtEvX, Lo_Hi, Sex, Distance, Stroke, Course FROM "
                      "MTEVENT WHERE I_R = 'I' AND Meet = ? AND (Sex = ? OR Sex = 'X') "
                      "ORDER BY MtEv, MtEvX");
  SQLite::bind(q, meet, std::string(sex));
  std::vector<ResNaEvent> out;
  while (q.executeStep()) {
    ResNaEvent e;
    e.meet = meet;
    e.mt_event = q.getColumn(0).getInt();
    e.mt_ev = TextOf(q.getColumn(1)) + Trim(TextOf(q.getColumn(2)));
    e.lo_hi = q.getColumn(3).getInt();
    e.sex = TextOf(q.getColumn(4));
    e.distance = static_cast<int16_t>(q.getColumn(5).getInt());
    e.stroke = static_cast<int16_t>(q.getColumn(6).getInt());
    e.course = Trim(TextOf(q.getColumn(7)));
    out.push_back(std::move(e));
  }
  return out;
}

ResNaCell FetchResNaCell(SQLite::Database& db, int32_t meet, int32_t athlete, int32_t mt_event,
                         std::string_view f_p) {
  SQLite::Statement q(db,
                      "SELECT RESULT, SCORE, NT, EX, COURSE, PLACE, SPLIT FROM RESULT WHERE "
                      "MEET = ? AND ATHLETE = ? AND I_R = 'I' AND MTEVENT = ? AND F_P = ?");
  SQLite::bind(q, meet, athlete, mt_event, std::string(f_p));
  ResNaCell cell;
  if (!q.executeStep()) return cell;
  cell.exists = true;
  cell.result = q.getColumn(0).getInt64();
  cell.score = q.getColumn(1).getInt();
  cell.nt = q.getColumn(2).getInt();
  cell.ex = Trim(TextOf(q.getColumn(3)));
  cell.course = Trim(TextOf(q.getColumn(4)));
  cell.place = static_cast<int16_t>(q.getColumn(5).getInt());
  cell.split = q.getColumn(6).getInt();
  return cell;
}

std::string TimeCellText(const ResNaCell& cell, int stroke) {
  if (!cell.exists || (cell.score == 0 && cell.nt <= 0)) return "";
  return cell.ex + ScoreText(cell.score, stroke, cell.course, cell.nt);
}

std::optional<Date> MeetAgeUp(SQLite::Database& db, int32_t meet) {
  SQLite::Statement q(db, "SELECT AgeUp FROM MEET WHERE Meet = ?");
  q.bind(1, meet);
  return q.executeStep() ? DateOf(q.getColumn(0)) : std::nullopt;
}

std::optional<Date> SystemAgeUp(SQLite::Database& db) {
  SQLite::Statement q(db, "SELECT SysAgeUp FROM OPTIONS");
  return q.executeStep() ? DateOf(q.getColumn(0)) : std::nullopt;
}

int16_t ResultAge(const std::optional<Date>& birth, int16_t stored_age,
                  const std::optional<Date>& meet_age_up,
                  const std::optional<Date>& system_age_up) {
  if (birth && *birth != kNullDate) {
    return AgeAtDate(birth, meet_age_up ? meet_age_up : system_age_up);
  }
  return stored_age > 0 ? stored_age : int16_t{0};
}

bool HasRelayEvents(SQLite::Database& db, int32_t meet, std::string_view sex) {
  SQLite::Statement q(db,
                      "SELECT 1 FROM MTEVENT WHERE Meet = ? AND I_R = 'R' AND (Sex = ? OR "
                      "Sex = 'X') LIMIT 1");
  SQLite::bind(q, meet, std::string(sex));
  return q.executeStep();
}

TimeCellEdit EnterResultTime(AppState& state, const ResNaEvent& event, std::string_view f_p,
                             int32_t athlete, int16_t age, std::string_view old_text,
                             std::string_view new_text) {
  TimeCellEdit edit{false, std::string(old_text)};
  const std::string typed = Trim(new_text);
  if (typed.empty()) {
    if (!Trim(old_text).empty()) {
      state.io->Tell(kUseBrowserToDelete);
      return edit;
    }
    edit.accepted = true;
    edit.text.clear();
    return edit;
  }
  TimeInput checked;
  std::string message;
  if (!CheckResultText(typed, checked, event.stroke, &message)) {
    if (!message.empty()) state.io->Tell(message);
    return edit;
  }
  if (!UpdateResultScore(state, checked.score, checked.course, static_cast<uint8_t>(checked.nt),
                         checked.exhibition, f_p, event.Rec(), "I", age, athlete)) {
    return edit;
  }
  edit.accepted = true;
  edit.text = UCase(typed);
  return edit;
}

}  // namespace kvlr
