#pragma once
// Made-up meets, events, results and entries for the meet, ranking, writer and result tests.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "support/DbTest.h"

namespace kvlr::test {

inline int32_t AddMeetRow(SQLite::Database& db, const std::string& name, const std::string& start,
                          const std::string& course = "Y", const std::string& type = "",
                          const std::string& end = "") {
  SQLite::Statement q(db,
                      "INSERT INTO MEET (MName, Start, End, Course, Type) VALUES (?, ?, ?, ?, ?)");
  SQLite::bind(q, name, start, end.empty() ? start : end, course, type);
  q.exec();
  return static_cast<int32_t>(db.getLastInsertRowid());
}

// Adds to "MTEVENT" or "MTEVENTE"; the new key.
inline int32_t AddEventRow(SQLite::Database& db, const std::string& table, int32_t meet,
                           int mtev = 1, const std::string& mtevx = "", int lo_hi = 99,
                           int distance = 100, int stroke = 1, const std::string& sex = "F",
                           const std::string& i_r = "I", const std::string& course = "Y") {
  SQLite::Statement q(db, "INSERT INTO " + table +
                              " (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, Stroke, Sex, I_R) "
                              "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
  SQLite::bind(q, meet, mtev, mtevx, lo_hi, course, distance, stroke, sex, i_r);
  q.exec();
  return static_cast<int32_t>(db.getLastInsertRowid());
}

inline void AddEntryRow(SQLite::Database& db, int32_t meet, int32_t mt_event,
                        const std::string& i_r = "I", int32_t athlete = 1) {
  SQLite::Statement q(db,
                      "INSERT INTO ENTRY (Meet, Athlete, I_R, Course, Score, MtEvent) "
                      "VALUES (?, ?, ?, 'Y', 6000, ?)");
  SQLite::bind(q, meet, athlete, i_r, mt_event);
  q.exec();
}

// Makes and opens a new database as the fixture is built, forgetting what that showed.
struct OpenedDatabase {
  explicit OpenedDatabase(TempHome& t) {
    MakeOpenDatabase(t);
    t.io.shown.clear();
    t.io.progress.clear();
  }
};

// A new open database whose opening words are forgotten.
class QuietDbTest : public DbTest {
 protected:
  QuietDbTest() {
    t.io.shown.clear();
    t.io.progress.clear();
  }
};

class Season {
 public:
  explicit Season(SQLite::Database& db) : db_(db) {}
  void Athlete(int32_t id, const std::string& last, const std::string& sex,
               const std::string& birth = "", int age = 0, bool inactive = false) {
    SQLite::Statement q(db_,
                        "INSERT INTO ATHLETE (Athlete, Last, First, Sex, Birth, Age, Inactive) "
                        "VALUES (?, ?, 'Robin', ?, ?, ?, ?)");
    SQLite::bind(q, id, last, sex, birth, age, inactive ? 1 : 0);
    if (birth.empty()) q.bind(4);
    q.exec();
  }
  void Meet(int32_t id, const std::string& name, const std::string& start,
            const std::string& type = "AG", const std::string& course = "Y",
            const std::string& age_up = "") {
    SQLite::Statement q(db_,
                        "INSERT INTO MEET (Meet, MName, Start, Type, Course, AgeUp) "
                        "VALUES (?, ?, ?, ?, ?, ?)");
    SQLite::bind(q, id, name, start, type, course, age_up);
    if (age_up.empty()) q.bind(6);
    q.exec();
  }
  // An event of a meet; returns its key.
  int32_t Event(int32_t meet, int mt_ev, int distance, int stroke, const std::string& i_r = "I",
                const std::string& sex = "F", const std::string& course = "Y", int lo_hi = 1112) {
    return AddEventRow(db_, "MTEVENT", meet, mt_ev, "", lo_hi, distance, stroke, sex, i_r, course);
  }
  struct Swim {
    int32_t meet = 1;
    int32_t event = 0;
    int32_t athlete = 1;
    std::string i_r = "I";
    std::string f_p = "F";
    int distance = 100;
    int stroke = 1;
    std::string course = "Y";
    int32_t score = 6000;
    std::optional<int> nt = 0;  // nullopt stores Null
    int age = 12;
    std::optional<int> rank = 1;
    std::optional<int> trank{};
    int place = 0;
  };
  int64_t Result(const Swim& s) {
    SQLite::Statement q(db_,
                        "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, AGE, DISTANCE, "
                        "STROKE, MTEVENT, PLACE, RANK, TRANK, COURSE) "
                        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    SQLite::bind(q, s.meet, s.athlete, s.i_r, s.score, s.f_p, s.nt.value_or(0), s.age, s.distance, s.stroke,
                 s.event, s.place, s.rank.value_or(0), s.trank.value_or(0), s.course);
    if (!s.nt) q.bind(6);
    if (!s.rank) q.bind(12);
    if (!s.trank) q.bind(13);
    q.exec();
    return db_.getLastInsertRowid();
  }

 protected:
  SQLite::Database& db_;
};

inline void AddResultRow(SQLite::Database& db, int32_t meet, int32_t mt_event,
                         const std::string& i_r = "I", int distance = 100, int stroke = 1,
                         int32_t athlete = 1, const std::string& course = "Y") {
  Season(db).Result({.meet = meet, .event = mt_event, .athlete = athlete, .i_r = i_r,
                     .distance = distance, .stroke = stroke, .course = course, .rank = 0, .trank = 0});
}

// Results for the ranking and writer tests, each in an event of its own unless told.
struct ResultRow {
  int32_t athlete = 1;
  std::string i_r = "I";
  int distance = 100;
  int stroke = 1;
  std::string course = "Y";
  int32_t score = 6000;
  std::optional<int> nt = 0;  // nullopt stores Null
  std::string f_p = "F";
  int32_t meet = 1;
  std::optional<int> rank = 0;
  int32_t mt_event = 0;  // 0: a new event number for each row
};

class ResultTable : public Season {
 public:
  using Season::Season;
  int64_t Add(const ResultRow& r) {
    return Result({.meet = r.meet, .event = r.mt_event ? r.mt_event : ++next_event_,
                   .athlete = r.athlete, .i_r = r.i_r, .f_p = r.f_p, .distance = r.distance,
                   .stroke = r.stroke, .course = r.course, .score = r.score, .nt = r.nt,
                   .rank = r.rank, .trank = 77});  // a TRank left by an earlier selection
  }
  std::vector<int64_t> AddAll(const std::vector<ResultRow>& rows) {
    std::vector<int64_t> ids;
    SQLite::Transaction transaction(db_);
    for (const auto& r : rows) ids.push_back(Add(r));
    transaction.commit();
    return ids;
  }
  // Several fields of one row as text, "Null" for Null; `field` is a column name of this file.
  std::vector<std::string> Texts(int64_t id, std::initializer_list<std::string_view> fields) {
    std::vector<std::string> out;
    for (auto field : fields) {
      SQLite::Statement q(db_, "SELECT " + std::string(field) + " FROM RESULT WHERE RESULT = ?");
      q.bind(1, id);
      out.push_back(!q.executeStep()          ? "<no row>"
                    : q.getColumn(0).isNull() ? "Null"
                                              : q.getColumn(0).getString());
    }
    return out;
  }
  std::optional<int64_t> Int(int64_t id, std::string_view field) {
    const std::string text = Texts(id, {field})[0];
    return text == "Null" || text == "<no row>" ? std::nullopt : std::optional(std::stoll(text));
  }
  std::vector<std::optional<int64_t>> Ranks(const std::vector<int64_t>& ids,
                                            std::string_view field = "RANK") {
    std::vector<std::optional<int64_t>> out;
    for (int64_t id : ids) out.push_back(Int(id, field));
    return out;
  }
  void AddMeet(int32_t meet, std::string_view start, std::string_view type) {
    Meet(meet, "Lakeside Invitational " + std::to_string(meet), std::string(start),
         std::string(type));
  }
  void AddAthlete(int32_t athlete, std::string_view last) { Athlete(athlete, std::string(last), "F"); }
  int64_t Count() { return db_.execAndGet("SELECT count(*) FROM RESULT").getInt64(); }

 private:
  int32_t next_event_ = 100;
};

using Ranks = std::vector<std::optional<int64_t>>;
using Texts = std::vector<std::string>;

}  // namespace kvlr::test
