#include "store/DbVersion.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "store/Database.h"
#include "store/UserTables.h"

namespace kvlr {

std::string ReadDbVersion(AppState& state) {
  SQLite::Statement query(*state.gDb, "SELECT DbVersion FROM OPTIONS");
  std::string old;
  if (query.executeStep() && !query.getColumn(0).isNull()) old = query.getColumn(0).getString();
  if (old != kDbVersion) {
    SQLite::Statement update(*state.gDb, "UPDATE OPTIONS SET DbVersion = ?");
    update.bind(1, std::string(kDbVersion));
    update.exec();
  }
  return old;
}

bool VersionIsOlder(std::string_view a, std::string_view b) {
  if (a.empty() || b.empty()) return true;
  if (Val(b.substr(0, 3)) > Val(a.substr(0, 3))) return true;
  auto letters = [](std::string_view v) {
    std::string rest = v.size() > 3 ? Trim(v.substr(3)) : "";
    int first = rest.size() > 0 ? static_cast<unsigned char>(rest[0]) : 0;
    int second = rest.size() > 1 ? static_cast<unsigned char>(rest[1]) : 0;
    return std::pair{first, second};
  };
  auto [a1, a2] = letters(a);
  auto [b1, b2] = letters(b);
  return !(a1 >= b1 && a2 >= b2);
}

void AddGoalFlyEvents(AppState& state) {
  SQLite::Database& db = *state.gDb;
  SQLite::Statement meets(db,
                          "SELECT Meet FROM MEET WHERE substr(MName, 1, 7) = 'Goals -' "
                          "AND Course = ?");
  SQLite::Statement has_fly(db,
                            "SELECT 1 FROM MTEVENT WHERE Meet = ? AND Distance = 200 AND "
                            "Stroke = 4 AND Course = ?");
  SQLite::Statement insert(db,
                           "INSERT INTO MTEVENT (Meet, MtEv, Lo_Hi, Course, Distance, Stroke, "
                           "Sex, I_R) VALUES (?, ?, 99, ?, 200, 4, ?, 'I')");
  for (const char* course : {"Y", "S"}) {
    meets.reset();
    meets.bind(1, course);
    if (!meets.executeStep()) continue;
    const int64_t meet = meets.getColumn(0).getInt64();
    has_fly.reset();
    SQLite::bind(has_fly, meet, course);
    if (has_fly.executeStep()) continue;
    for (auto [number, sex] : {std::pair{37, "M"}, std::pair{38, "F"}}) {
      insert.reset();
      SQLite::bind(insert, meet, number, course, sex);
      insert.exec();
    }
  }
}

int ClearRelayLegNt(AppState& state) {
  SQLite::Transaction transaction(*state.gDb);
  const int changed =
      state.gDb->exec("UPDATE RESULT SET NT = NULL WHERE (I_R = 'L' OR I_R = 'N') AND NT = 0");
  transaction.commit();
  return changed;
}

void CheckDbVersion(AppState& state) {
  try {
    AddFieldIfMissing(state, 0, "Options", FieldType::kText, "DbVersion", 5);
    if (VersionIsOlder(ReadDbVersion(state), "2.1Bc")) AddGoalFlyEvents(state);
    ClearRelayLegNt(state);
  } catch (const std::exception& e) {
    ReportError(state, "basSetup.CheckDbVersion", e);
  }
}

}  // namespace kvlr
