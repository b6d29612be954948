#include "home/HomePage.h"

#include <cctype>

#include <SQLiteCpp/Statement.h>

#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "meets/BestTimes.h"
#include "standards/Standards.h"

namespace kvlr {
namespace {

constexpr std::string_view kSource = "frmHome.Fill";

std::string Text(SQLite::Statement& q, int i) {
  return q.getColumn(i).isNull() ? std::string() : q.getColumn(i).getString();
}
int Number(SQLite::Statement& q, int i) {
  return q.getColumn(i).isNull() ? 0 : q.getColumn(i).getInt();
}

HomeMeet ReadMeet(SQLite::Statement& q) {
  return {Number(q, 0), Text(q, 1), Date::FromIso(Text(q, 2)).value_or(kNullDate), Text(q, 3),
          Text(q, 4)};
}

// Goal meets and pseudo-meets are not meets a swimmer swam or will swim.
constexpr const char* kRealMeet =
    "(M.Type IS NULL OR M.Type <> 'G') AND M.Start IS NOT NULL AND M.Start <> ? ";

void FillBests(AppState& state, BestTimeFinder& finder, HomePage& page) {
  const int32_t athlete = page.athlete;
  for (const SwumEvent& event : SwumEvents(*state.gDb, athlete, 'L')) {
    HomeBestRow row{event.distance, event.stroke, {}, 0, ""};
    for (size_t c = 0; c < kHomeCourses.size(); ++c) {
      const char course = kHomeCourses[c];
      HomeBestCell& cell = row.cells[c];
      cell.distance = BestLookupDistance(event.distance, event.stroke, course);
      const BestTimeRec best = finder.FastestByCourse(athlete, cell.distance, event.stroke, course);
      cell.score = best.score;
      cell.meet = best.meet;
      if (best.score > 0) {
        int16_t designator = 0;
        cell.level = Trim(GetStandard(state, designator, best.score, state.gAthleteSex,
                                      cell.distance, event.stroke, state.gAthleteAge,
                                      std::string(1, course), false));
      }
      const StandardCut next = NextStandardCut(state, best.score, state.gAthleteSex, cell.distance,
                                               event.stroke, state.gAthleteAge, course);
      cell.next_level = next.level;
      cell.next_cut = next.score;
    }
    const BestTimeRec best = finder.Best(athlete, event.distance, event.stroke, page.target, false,
                                         state.gNullDate, state.gNullDate, "");
    row.converted = best.converted;
    row.converted_from = best.course;
    page.bests.push_back(std::move(row));
  }
}

void FillLastMeet(AppState& state, BestTimeFinder& finder, const Date& today, HomePage& page) {
  SQLite::Database& db = *state.gDb;
  SQLite::Statement meet(db, std::string("SELECT M.Meet, M.MName, M.Start, M.Course, M.Location "
                                         "FROM MEET M WHERE ") +
                                 kRealMeet +
                                 "AND M.Start <= ? AND EXISTS (SELECT 1 FROM RESULT R WHERE "
                                 "R.MEET = M.Meet AND R.ATHLETE = ? AND R.I_R = 'I') "
                                 "ORDER BY M.Start DESC, M.Meet DESC LIMIT 1");
  meet.bind(1, kPseudoMeetStart.Iso());
  meet.bind(2, today.Iso());
  meet.bind(3, page.athlete);
  if (!meet.executeStep()) return;
  page.last_meet = ReadMeet(meet);
  SQLite::Statement swims(db,
                          "SELECT RESULT, DISTANCE, STROKE, F_P, SCORE, NT, PLACE, COURSE "
                          "FROM RESULT WHERE MEET = ? AND ATHLETE = ? AND I_R = 'I' "
                          "ORDER BY MTEVENT, F_P DESC");
  swims.bind(1, page.last_meet->meet);
  swims.bind(2, page.athlete);
  while (swims.executeStep()) {
    HomeSwim swim;
    swim.result = swims.getColumn(0).getInt64();
    swim.distance = static_cast<int16_t>(Number(swims, 1));
    swim.stroke = static_cast<int16_t>(Number(swims, 2));
    swim.f_p = Text(swims, 3);
    swim.score = Number(swims, 4);
    swim.nt = Number(swims, 5);
    swim.place = static_cast<int16_t>(Number(swims, 6));
    const std::string course = Text(swims, 7);
    if (!course.empty() && swim.score > 0) {
      swim.before = finder
                        .FastestByCourseSQL(page.athlete, swim.distance, swim.stroke, course[0],
                                            state.gNullDate, page.last_meet->start, "")
                        .score;
      int16_t designator = 0;
      swim.level = Trim(GetStandard(state, designator, swim.score, state.gAthleteSex,
                                    swim.distance, swim.stroke, state.gAthleteAge, course, false));
    }
    page.last_swims.push_back(std::move(swim));
  }
}

void FillNextMeet(AppState& state, const Date& today, HomePage& page) {
  SQLite::Database& db = *state.gDb;
  SQLite::Statement meet(db, std::string("SELECT M.Meet, M.MName, M.Start, M.Course, M.Location "
                                         "FROM MEET M WHERE ") +
                                 kRealMeet + "AND M.Start >= ? ORDER BY M.Start, M.Meet LIMIT 1");
  meet.bind(1, kPseudoMeetStart.Iso());
  meet.bind(2, today.Iso());
  if (!meet.executeStep()) return;
  page.next_meet = ReadMeet(meet);
  SQLite::Statement entries(db,
                            "SELECT V.MtEv, V.MtEvX, V.Distance, V.Stroke, E.Score, E.Ex "
                            "FROM ENTRY E JOIN MTEVENTE V ON V.MtEvent = E.MtEvent "
                            "WHERE E.Meet = ? AND E.Athlete = ? AND E.I_R = 'I' "
                            "ORDER BY V.MtEv, V.MtEvX");
  entries.bind(1, page.next_meet->meet);
  entries.bind(2, page.athlete);
  while (entries.executeStep()) {
    page.next_entries.push_back({std::to_string(Number(entries, 0)) + Trim(Text(entries, 1)),
                                 static_cast<int16_t>(Number(entries, 2)),
                                 static_cast<int16_t>(Number(entries, 3)), Number(entries, 4),
                                 UCase(Text(entries, 5)) == "X"});
  }
}

void FillGoals(AppState& state, BestTimeFinder& finder, HomePage& page) {
  SQLite::Statement goals(*state.gDb,
                          "SELECT R.MEET, R.COURSE, R.DISTANCE, R.STROKE, R.SCORE FROM RESULT R "
                          "WHERE R.ATHLETE = ? AND R.I_R = 'G' AND R.SCORE > 0 "
                          "AND R.COURSE IN ('Y', 'S', 'L') "
                          "ORDER BY instr('YSL', upper(R.COURSE)), R.STROKE, R.DISTANCE");
  goals.bind(1, page.athlete);
  while (goals.executeStep()) {
    HomeGoal goal;
    goal.meet = Number(goals, 0);
    goal.course = static_cast<char>(std::toupper(static_cast<unsigned char>(Text(goals, 1)[0])));
    goal.distance = static_cast<int16_t>(Number(goals, 2));
    goal.stroke = static_cast<int16_t>(Number(goals, 3));
    goal.goal = Number(goals, 4);
    goal.best = finder.FastestByCourse(page.athlete, goal.distance, goal.stroke, goal.course).score;
    page.goals.push_back(goal);
  }
}

}  // namespace

int32_t HomeSwim::Improvement() const {
  return before > 0 && score > 0 && nt == 0 ? before - score : 0;
}

int32_t HomeGoal::ToTakeOff() const {
  if (best <= 0) return -1;
  return best > goal ? best - goal : 0;
}

HomePage FillHomePage(AppState& state, const Date& today, char target) {
  HomePage page;
  page.athlete = state.gAthlete;
  page.target = target;
  if (!state.gDb || page.athlete <= 0) return page;
  RunTrapped(state, kSource, [&] {
    // A retry starts again from nothing, so no row is listed twice.
    page = HomePage{state.gAthlete, target, {}, {}, {}, {}, {}, {}};
    BestTimeFinder finder(state);
    FillBests(state, finder, page);
    FillLastMeet(state, finder, today, page);
    FillNextMeet(state, today, page);
    FillGoals(state, finder, page);
    return 0;
  });
  return page;
}

}  // namespace kvlr
