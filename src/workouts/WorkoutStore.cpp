#include "workouts/WorkoutStore.h"

#include <SQLiteCpp/Transaction.h>

#include "core/VbRules.h"
#include "workouts/WorkoutConvert.h"
#include "workouts/WorkoutLines.h"
#include "workouts/WorkoutNotes.h"
#include "workouts/WorkoutTexts.h"

namespace kvlr {
namespace {

constexpr const char* kHeaderColumns =
    "wk_ptr, wk_num, wk_date, start_time, rest_period, group_abbr, subgroup_abbr, course_yls, "
    "tot_yards, tot_stress, ck_selected";

WkHeader ReadHeader(SQLite::Statement& q) {
  WkHeader h;
  h.wk_ptr = q.getColumn(0).getInt();
  h.wk_num = q.getColumn(1).getInt();
  h.wk_date = Date::FromIso(q.getColumn(2).getString()).value_or(kNullDate);
  h.start_time = q.getColumn(3).getInt();
  h.rest_period = static_cast<int16_t>(q.getColumn(4).getInt());
  h.group_abbr = q.getColumn(5).getString();
  h.subgroup_abbr = q.getColumn(6).getString();
  h.course_yls = q.getColumn(7).getString();
  h.tot_yards = q.getColumn(8).getInt();
  h.tot_stress = q.getColumn(9).getInt();
  h.ck_selected = q.getColumn(10).getInt() != 0;
  return h;
}

// Only the list's own clauses reach the SQL text; they are constants of this file.
const char* const kOrders[] = {"wk_num",
                               "wk_num desc",
                               "wk_date, start_time",
                               "wk_date desc, start_time desc",
                               "group_abbr, wk_date",
                               "group_abbr desc, wk_date",
                               "tot_yards, wk_date",
                               "tot_yards desc, wk_date",
                               "tot_stress, wk_date",
                               "tot_stress desc, wk_date"};

std::string UserWhere(const std::string& user) {
  return user == "0" ? std::string() : " WHERE group_abbr = :user";
}

void BindUser(SQLite::Statement& q, const std::string& user) {
  if (user != "0") q.bind(":user", user);
}

}  // namespace

std::string WorkoutOrderClause(WorkoutSort column, bool descending) {
  return kOrders[static_cast<int>(column) * 2 + (descending ? 1 : 0)];
}

std::vector<WkHeader> ListWorkouts(SQLite::Database& db, const std::string& user,
                                   const std::string& order_clause) {
  std::string order = "wk_num";
  for (const char* o : kOrders) {
    if (order_clause == o) order = o;
  }
  SQLite::Statement q(db, std::string("SELECT ") + kHeaderColumns + " FROM WkParam" +
                              UserWhere(user) + " ORDER BY " + order + ", wk_ptr");
  BindUser(q, user);
  std::vector<WkHeader> out;
  while (q.executeStep()) out.push_back(ReadHeader(q));
  return out;
}

std::optional<WkHeader> ReadWorkout(SQLite::Database& db, int32_t wk_ptr) {
  SQLite::Statement q(db, std::string("SELECT ") + kHeaderColumns + " FROM WkParam WHERE wk_ptr = ?");
  q.bind(1, wk_ptr);
  if (!q.executeStep()) return std::nullopt;
  return ReadHeader(q);
}

int32_t NextWorkoutNumber(SQLite::Database& db) {
  SQLite::Statement q(db, "SELECT COALESCE(MAX(wk_num), 0) + 1 FROM WkParam");
  q.executeStep();
  return q.getColumn(0).getInt();
}

HeaderCheck CheckWorkoutHeader(SQLite::Database& db, const HeaderEntry& e) {
  SQLite::Statement q(db, "SELECT COUNT(*) FROM WkParam WHERE wk_num = ? AND wk_ptr <> ?");
  q.bind(1, e.wk_num);
  q.bind(2, e.wk_ptr);
  q.executeStep();
  if (q.getColumn(0).getInt() > 0) {
    return {std::string(wk_text::kNumberTaken) + "\rTry " + std::to_string(NextWorkoutNumber(db)) +
                " or higher.",
            1};
  }
  if (!gValidClock(e.start_text)) return {std::string(wk_text::kStartInvalid), 2};
  std::string rest = e.rest_text;
  if (!gValidRest(rest)) return {std::string(wk_text::kRestInvalid), 3};
  return {};
}

int32_t SaveWorkoutHeader(SQLite::Database& db, const HeaderEntry& e) {
  const std::string group = e.user == "0" ? "---" : e.user.substr(0, 5);
  const std::string course = e.yards ? "Y" : "M";
  const long start = gClockToMinutes(e.start_text);
  const long rest = gMMSSToSeconds(e.rest_text);
  if (e.wk_ptr == 0) {
    SQLite::Statement ins(db,
                          "INSERT INTO WkParam (wk_num, wk_date, start_time, rest_period, "
                          "group_abbr, subgroup_abbr, course_yls, tot_yards, tot_stress, "
                          "ck_selected) VALUES (?, ?, ?, ?, ?, ' ', ?, 0, 0, 0)");
    ins.bind(1, e.wk_num);
    ins.bind(2, e.wk_date.Iso());
    ins.bind(3, static_cast<int64_t>(start));
    ins.bind(4, static_cast<int64_t>(rest));
    ins.bind(5, group);
    ins.bind(6, course);
    ins.exec();
    return static_cast<int32_t>(db.getLastInsertRowid());
  }
  SQLite::Statement up(db,
                       "UPDATE WkParam SET wk_num = ?, wk_date = ?, start_time = ?, "
                       "rest_period = ?, group_abbr = ?, subgroup_abbr = ' ', course_yls = ? "
                       "WHERE wk_ptr = ?");
  up.bind(1, e.wk_num);
  up.bind(2, e.wk_date.Iso());
  up.bind(3, static_cast<int64_t>(start));
  up.bind(4, static_cast<int64_t>(rest));
  up.bind(5, group);
  up.bind(6, course);
  up.bind(7, e.wk_ptr);
  up.exec();
  return e.wk_ptr;
}

void DeleteWorkout(SQLite::Database& db, int32_t wk_ptr) {
  SQLite::Transaction tx(db);
  for (const char* sql : {"DELETE FROM Workout WHERE wk_ptr = ?", "DELETE FROM WkParam WHERE wk_ptr = ?"}) {
    SQLite::Statement del(db, sql);
    del.bind(1, wk_ptr);
    del.exec();
  }
  tx.commit();
}

std::string DeleteWorkoutQuestion(const WkHeader& h) {
  return "Delete Workout #" + std::to_string(h.wk_num) + " dated " + h.wk_date.Iso() + " ?";
}

int32_t SaveWorkoutAs(SQLite::Database& db, int32_t source, const HeaderEntry& entry,
                      const std::filesystem::path& notes_file, const DateTime& now) {
  SQLite::Transaction tx(db);
  HeaderEntry e = entry;
  e.wk_ptr = 0;
  const int32_t ptr = SaveWorkoutHeader(db, e);
  auto lines = ReadWorkoutLines(db, source);
  for (auto& l : lines) l.wk_ptr = ptr;
  WriteWorkoutLines(db, ptr, lines);
  tx.commit();
  const auto note = ReadWorkoutNote(notes_file, source);
  if (note.found && !Trim(note.text).empty()) AppendWorkoutNote(notes_file, ptr, note.text, now);
  return ptr;
}

std::optional<int32_t> FindWorkoutByDate(SQLite::Database& db, const Date& date, bool descending,
                                         const std::string& user) {
  const std::string where = user == "0" ? " WHERE " : " WHERE group_abbr = :user AND ";
  SQLite::Statement q(db, "SELECT wk_ptr FROM WkParam" + where +
                              (descending ? "wk_date <= :d ORDER BY wk_date DESC, start_time DESC"
                                          : "wk_date >= :d ORDER BY wk_date, start_time") +
                              " LIMIT 1");
  BindUser(q, user);
  q.bind(":d", date.Iso());
  if (!q.executeStep()) return std::nullopt;
  return q.getColumn(0).getInt();
}

std::optional<int32_t> FindWorkoutByNumber(SQLite::Database& db, int32_t number, bool descending,
                                           const std::string& user) {
  const std::string where = user == "0" ? " WHERE " : " WHERE group_abbr = :user AND ";
  SQLite::Statement q(db, "SELECT wk_ptr FROM WkParam" + where +
                              (descending ? "wk_num <= :n ORDER BY wk_num DESC"
                                          : "wk_num >= :n ORDER BY wk_num") +
                              " LIMIT 1");
  BindUser(q, user);
  q.bind(":n", number);
  if (!q.executeStep()) return std::nullopt;
  return q.getColumn(0).getInt();
}

void PurgeWorkouts(SQLite::Database& db) {
  SQLite::Transaction tx(db);
  db.exec("DELETE FROM WkParam");
  db.exec("DELETE FROM Workout");
  tx.commit();
}

}  // namespace kvlr
