#include "meets/Goals.h"

#include <optional>

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Columns.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "meets/DefaultEvents.h"

namespace kvlr {
namespace {

constexpr std::string_view kGoalFp = "F";

std::optional<int32_t> FindGoalMeet(SQLite::Database& db, char course) {
  // Only the first five letters count, so any "Goals..." meet of the course is taken.
  SQLite::Statement q(db,
                      "SELECT Meet FROM MEET WHERE substr(MName, 1, 5) = ? COLLATE NOCASE AND "
                      "Course = ? ORDER BY Meet LIMIT 1");
  SQLite::bind(q, std::string(goaltxt::kNamePrefix), std::string(1, course));
  if (!q.executeStep()) return std::nullopt;
  return q.getColumn(0).getInt();
}

void ReadGoal(SQLite::Database& db, int32_t athlete, GoalRow& row) {
  SQLite::Statement q(db,
                      "SELECT RESULT, SCORE, NT FROM RESULT WHERE MEET = ? AND ATHLETE = ? AND "
                      "I_R = ? AND MTEVENT = ? AND F_P = ?");
  SQLite::bind(q, row.event.meet, athlete, "G", row.event.mt_event, std::string(kGoalFp));
  row.result = 0;
  row.score = 0;
  row.nt = 0;
  row.has_comment = false;
  if (!q.executeStep()) return;
  row.result = q.getColumn(0).getInt64();
  row.score = q.getColumn(1).getInt();
  row.nt = q.getColumn(2).getInt();
  SQLite::Statement c(db, "SELECT 1 FROM tblComments WHERE ResultID = ?");
  c.bind(1, row.result);
  row.has_comment = c.executeStep();
}

}  // namespace

std::string_view GoalMeetName(char course) {
  switch (course) {
    case 'Y':
      return goaltxt::kYardName;
    case 'L':
      return goaltxt::kLongName;
    default:
      return goaltxt::kShortName;
  }
}

int32_t GetGoalMeet(AppState& state, char course) {
  const int32_t meet = RunTrapped(state, "frmGoals.GetGoalMeet", [&]() -> int32_t {
    SQLite::Database& db = *state.gDb;
    int32_t found = FindGoalMeet(db, course).value_or(0);
    if (found == 0) {
      SQLite::Statement add(db,
                            "INSERT INTO MEET (MName, Start, End, Course, Type) "
                            "VALUES (?, ?, ?, ?, ?)");
      SQLite::bind(add, std::string(GoalMeetName(course)), std::string(goaltxt::kGoalStart),
                   std::string(goaltxt::kGoalStart), std::string(1, course), "G");
      add.exec();
      found = static_cast<int32_t>(db.getLastInsertRowid());
    }
    // The goal grid lists only the meet's events and offers no way to add one, so a goal
    // meet without events would leave the screen empty for good.
    if (!HasIndividualEvents(db, EventList::kResults, found)) {
      LoadDefaultEvents(state, EventList::kResults, found);
    }
    return found;
  });
  if (meet == 0) state.io->Tell(goaltxt::kProblemGettingGoalMeet);
  return meet;
}

std::string GoalRow::TimeText() const {
  return Trim(ScoreText(score, event.stroke, "", nt));
}

std::string GoalRow::KeptText() const {
  return fmt::format("{} {}", event_text, goaltxt::kGoalWord);
}

std::vector<GoalRow> LoadGoals(AppState& state, int32_t meet, int32_t athlete,
                               std::string_view sex) {
  std::vector<GoalRow> rows;
  const bool loaded = RunTrapped(state, "frmGoals.LoadGoals", [&] {
    rows.clear();
    SQLite::Database& db = *state.gDb;
    SQLite::Statement q(db,
                        "SELECT Meet, Course, Distance, Stroke, MtEvent FROM MTEVENT "
                        "WHERE I_R = ? AND Sex = ? AND Meet = ? ORDER BY Stroke, Distance");
    SQLite::bind(q, "I", std::string(sex), meet);
    while (q.executeStep()) {
      GoalRow row;
      row.event.meet = q.getColumn(0).getInt();
      row.event.course = TextOf(q.getColumn(1));
      row.event.distance = static_cast<int16_t>(q.getColumn(2).getInt());
      row.event.stroke = static_cast<int16_t>(q.getColumn(3).getInt());
      row.event.mt_event = q.getColumn(4).getInt();
      row.event.i_r.assign(1, 'G');
      row.event_text = fmt::format("{} {}", row.event.distance, StrokeText(row.event.stroke, "I"));
      ReadGoal(db, athlete, row);
      rows.push_back(std::move(row));
    }
    return true;
  });
  if (!loaded) rows.clear();
  return rows;
}

bool WriteGoal(AppState& state, GoalRow& row, std::string_view text, int16_t age, int32_t athlete) {
  TimeInput in;
  std::string message;
  if (!CheckResultText(text, in, row.event.stroke, &message)) {
    if (!message.empty()) state.io->Tell(message);
    return false;
  }
  const int32_t saved_meet = state.gCurrentMeet;
  state.gCurrentMeet = row.event.meet;
  const bool stored = UpdateResultScore(state, in.score, in.course, static_cast<uint8_t>(in.nt),
                                        in.exhibition, kGoalFp, row.event, "G", age, athlete);
  state.gCurrentMeet = saved_meet;
  RunTrapped(state, "frmGoals.LoadGoals", [&] {
    ReadGoal(*state.gDb, athlete, row);
    return true;
  });
  return stored;
}

std::string GoalCommentHeading(AppState& state, const GoalRow& row) {
  if (row.result == 0) {
    state.io->Tell(goaltxt::kAddGoalFirst);
    return "";
  }
  return fmt::format("{}{}{}{}", goaltxt::kCommentEvent, row.KeptText(), goaltxt::kCommentTime,
                     row.TimeText());
}

}  // namespace kvlr
