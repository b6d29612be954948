#pragma once
// Made-up meets, events, results and entries for the meet list and event tests.

#include <cstdint>
#include <string>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

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
                           const std::string& i_r = "I") {
  SQLite::Statement q(db, "INSERT INTO " + table +
                              " (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, Stroke, Sex, I_R) "
                              "VALUES (?, ?, ?, ?, 'Y', ?, ?, ?, ?)");
  SQLite::bind(q, meet, mtev, mtevx, lo_hi, distance, stroke, sex, i_r);
  q.exec();
  return static_cast<int32_t>(db.getLastInsertRowid());
}

inline void AddResultRow(SQLite::Database& db, int32_t meet, int32_t mt_event,
                         const std::string& i_r = "I", int distance = 100, int stroke = 1,
                         int32_t athlete = 1, const std::string& course = "Y") {
  SQLite::Statement q(db,
                      "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, STROKE, "
                      "COURSE, MTEVENT, RANK, TRANK, PLACE, AGE) "
                      "VALUES (?, ?, ?, 6000, 'F', 0, ?, ?, ?, ?, 0, 0, 0, 12)");
  SQLite::bind(q, meet, athlete, i_r, distance, stroke, course, mt_event);
  q.exec();
}

inline void AddEntryRow(SQLite::Database& db, int32_t meet, int32_t mt_event,
                        const std::string& i_r = "I", int32_t athlete = 1) {
  SQLite::Statement q(db,
                      "INSERT INTO ENTRY (Meet, Athlete, I_R, Course, Score, MtEvent) "
                      "VALUES (?, ?, ?, 'Y', 6000, ?)");
  SQLite::bind(q, meet, athlete, i_r, mt_event);
  q.exec();
}

}  // namespace kvlr::test
