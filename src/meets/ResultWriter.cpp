#include "meets/ResultWriter.h"

#include <optional>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "meets/Ranking.h"

namespace kvlr {
namespace {

std::optional<int64_t> SeekResult(SQLite::Database& db, int32_t meet, int32_t athlete,
                                  std::string_view i_r, int32_t mt_event, std::string_view f_p) {
  SQLite::Statement q(db,
                      "SELECT RESULT FROM RESULT WHERE MEET = ? AND ATHLETE = ? AND I_R = ? AND "
                      "MTEVENT = ? AND F_P = ?");
  SQLite::bind(q, meet, athlete, std::string(i_r), mt_event, std::string(f_p));
  if (!q.executeStep()) return std::nullopt;
  return q.getColumn(0).getInt64();
}

bool MayAdd(const AppState& state, int32_t athlete, const MtEventRec& event) {
  return athlete != 0 && state.gCurrentMeet != 0 && event.mt_event != 0;
}

std::string CourseToUse(std::string_view typed_course, const MtEventRec& event) {
  return typed_course.empty() ? event.course : std::string(typed_course);
}

bool IsGoal(const MtEventRec& event) {
  return UCase(event.i_r) == "G";
}

}  // namespace

bool UpdateResultScore(AppState& state, int32_t score, std::string_view typed_course, uint8_t nt,
                       std::string_view ex, std::string_view f_p, const MtEventRec& event,
                       std::string_view i_r, int16_t age, int32_t athlete) {
  const std::string course = CourseToUse(typed_course, event);
  const bool non_time = nt > 0;
  const int32_t stored_score = non_time ? 0 : score;
  const bool written = RunTrapped(state, "basUtil.UpdateResultScore", [&] {
    SQLite::Database& db = *state.gDb;
    const auto id = SeekResult(db, state.gCurrentMeet, athlete, i_r, event.mt_event, f_p);
    if (!id) {
      if (!MayAdd(state, athlete, event)) {
        state.io->Tell(kCantAddResult);
        return false;
      }
      SQLite::Statement add(
          db, IsGoal(event) ? "INSERT INTO RESULT (MEET, ATHLETE, AGE, NT, SCORE, MTEVENT, STROKE, "
                              "DISTANCE, COURSE, F_P, PLACE, I_R, EX, RANK, TRANK) "
                              "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, ?, ?, -1, -1)"
                            : "INSERT INTO RESULT (MEET, ATHLETE, AGE, NT, SCORE, MTEVENT, STROKE, "
                              "DISTANCE, COURSE, F_P, PLACE, I_R, EX) "
                              "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, ?, ?)");
      SQLite::bind(add, event.meet, athlete, age, static_cast<int>(nt), stored_score,
                   event.mt_event, event.stroke, event.distance, course, std::string(f_p),
                   std::string(i_r), std::string(ex));
      add.exec();
    } else if (non_time) {
      // A non-time keeps the course the row has.
      SQLite::Statement edit(db, "UPDATE RESULT SET NT = ?, SCORE = 0, EX = ? WHERE RESULT = ?");
      SQLite::bind(edit, static_cast<int>(nt), std::string(ex), *id);
      edit.exec();
    } else {
      SQLite::Statement edit(
          db, "UPDATE RESULT SET SCORE = ?, NT = 0, COURSE = ?, EX = ? WHERE RESULT = ?");
      SQLite::bind(edit, score, course, std::string(ex), *id);
      edit.exec();
    }
    return true;
  });
  if (!written) return false;
  if (!IsGoal(event)) AddRankForOne(state, athlete, event.stroke, event.distance, course);
  return true;
}

bool UpdateResultDQ(AppState& state, std::string_view typed_course, bool dq, std::string_view f_p,
                    const MtEventRec& event, int16_t age, int32_t athlete) {
  return RunTrapped(state, "basUtil.UpdateResultDQ", [&] {
    SQLite::Database& db = *state.gDb;
    const auto id = SeekResult(db, state.gCurrentMeet, athlete, "I", event.mt_event, f_p);
    if (id) {
      SQLite::Statement edit(db, "UPDATE RESULT SET NT = ? WHERE RESULT = ?");
      SQLite::bind(edit, dq ? 5 : 0, *id);
      edit.exec();
      return true;
    }
    if (!MayAdd(state, athlete, event)) {
      state.io->Tell(kCantAddResult);
      return false;
    }
    // Without the tick NT and Score are left as the table makes them.
    SQLite::Statement add(
        db, dq ? "INSERT INTO RESULT (MEET, ATHLETE, AGE, MTEVENT, STROKE, DISTANCE, COURSE, "
                 "F_P, PLACE, I_R, NT, SCORE) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0, ?, 5, 0)"
               : "INSERT INTO RESULT (MEET, ATHLETE, AGE, MTEVENT, STROKE, DISTANCE, COURSE, "
                 "F_P, PLACE, I_R) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0, ?)");
    SQLite::bind(add, event.meet, athlete, age, event.mt_event, event.stroke, event.distance,
                 CourseToUse(typed_course, event), std::string(f_p), event.i_r);
    add.exec();
    return true;
  });
}

void UpdateResultPlace(AppState& state, int16_t place, std::string_view f_p,
                       const MtEventRec& event, int32_t athlete) {
  RunTrapped(state, "basUtil.UpdateResultPlace", [&] {
    SQLite::Database& db = *state.gDb;
    const auto id = SeekResult(db, state.gCurrentMeet, athlete, "I", event.mt_event, f_p);
    if (!id) {
      state.io->Tell(kEnterResultBeforePlace);
      return false;
    }
    SQLite::Statement edit(db, "UPDATE RESULT SET PLACE = ? WHERE RESULT = ?");
    SQLite::bind(edit, place, *id);
    edit.exec();
    return true;
  });
}

}  // namespace kvlr
