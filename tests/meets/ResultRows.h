#pragma once
// Made-up RESULT, MEET and ATHLETE rows for the ranking and writer tests.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

namespace kvlr::test {

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

class ResultTable {
 public:
  explicit ResultTable(SQLite::Database& db) : db_(db) {}
  int64_t Add(const ResultRow& r) {
    SQLite::Statement q(db_,
                        "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, STROKE, "
                        "COURSE, MTEVENT, RANK, TRANK, PLACE, AGE) "
                        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, 12)");
    SQLite::bind(q, r.meet, r.athlete, r.i_r, r.score, r.f_p, r.nt.value_or(0), r.distance,
                 r.stroke, r.course, r.mt_event ? r.mt_event : ++next_event_, r.rank.value_or(0),
                 77);  // a TRank left by an earlier selection
    if (!r.nt) q.bind(6);
    if (!r.rank) q.bind(11);
    q.exec();
    return db_.getLastInsertRowid();
  }
  std::vector<int64_t> AddAll(const std::vector<ResultRow>& rows) {
    std::vector<int64_t> ids;
    SQLite::Transaction transaction(db_);
    for (const auto& r : rows) ids.push_back(Add(r));
    transaction.commit();
    return ids;
  }
  // One field of one row; nullopt for Null. `field` is a column name of this file.
  std::optional<int64_t> Int(int64_t id, std::string_view field) {
    SQLite::Statement q(db_, "SELECT " + std::string(field) + " FROM RESULT WHERE RESULT = ?");
    q.bind(1, id);
    if (!q.executeStep() || q.getColumn(0).isNull()) return std::nullopt;
    return q.getColumn(0).getInt64();
  }
  // Several fields of one row as text; "Null" for Null.
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
  std::vector<std::optional<int64_t>> Ranks(const std::vector<int64_t>& ids,
                                            std::string_view field = "RANK") {
    std::vector<std::optional<int64_t>> out;
    for (int64_t id : ids) out.push_back(Int(id, field));
    return out;
  }
  void AddMeet(int32_t meet, std::string_view start, std::string_view type) {
    SQLite::Statement q(db_, "INSERT INTO MEET (Meet, MName, Start, Type) VALUES (?, ?, ?, ?)");
    SQLite::bind(q, meet, "Lakeside Invitational " + std::to_string(meet), std::string(start),
                 std::string(type));
    q.exec();
  }
  void AddAthlete(int32_t athlete, std::string_view last) {
    SQLite::Statement q(db_, "INSERT INTO ATHLETE (Athlete, Last, First) VALUES (?, ?, 'Pat')");
    SQLite::bind(q, athlete, std::string(last));
    q.exec();
  }
  int64_t Count() { return db_.execAndGet("SELECT count(*) FROM RESULT").getInt64(); }

 private:
  SQLite::Database& db_;
  int32_t next_event_ = 100;
};

using Ranks = std::vector<std::optional<int64_t>>;
using Texts = std::vector<std::string>;

}  // namespace kvlr::test
