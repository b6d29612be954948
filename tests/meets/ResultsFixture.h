#pragma once
// A made-up swimmer's season for the result screen tests: meets, events, results.

#include <cstdint>
#include <optional>
#include <string>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "support/TempHome.h"

namespace kvlr::test {

// Makes and opens a new database as the fixture is built, forgetting what that showed.
struct OpenedDatabase {
  explicit OpenedDatabase(TempHome& t) {
    MakeOpenDatabase(t);
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
    SQLite::Statement q(db_,
                        "INSERT INTO MTEVENT (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, Stroke, "
                        "Sex, I_R) VALUES (?, ?, '', ?, ?, ?, ?, ?, ?)");
    SQLite::bind(q, meet, mt_ev, lo_hi, course, distance, stroke, sex, i_r);
    q.exec();
    return static_cast<int32_t>(db_.getLastInsertRowid());
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
    int nt = 0;
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
    SQLite::bind(q, s.meet, s.athlete, s.i_r, s.score, s.f_p, s.nt, s.age, s.distance, s.stroke,
                 s.event, s.place, s.rank.value_or(0), s.trank.value_or(0), s.course);
    if (!s.rank) q.bind(12);
    if (!s.trank) q.bind(13);
    q.exec();
    return db_.getLastInsertRowid();
  }

 private:
  SQLite::Database& db_;
};

}  // namespace kvlr::test
