#include "store/LastDatabase.h"

#include <filesystem>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "store/Database.h"
#include "store/SystemFile.h"

namespace kvlr {

std::vector<std::string> GetLastDatabase(AppState& state) {
  auto db = OpenSystemFile(state.home);
  SQLite::Statement query(
      *db, "SELECT FullName, StandardFile FROM Settings ORDER BY \"Date\" DESC, rowid DESC");
  std::vector<std::string> names;
  bool found = false;
  while (query.executeStep()) {
    std::string full = query.getColumn(0).getString();
    names.push_back(full);
    std::error_code ec;
    if (!found && !full.empty() && std::filesystem::exists(full, ec)) {
      found = true;
      state.gDatabaseName = full;
      state.gStandardFile = query.getColumn(1).getString();
    }
  }
  if (names.size() > static_cast<size_t>(kLastDatabaseCount)) names.resize(kLastDatabaseCount);
  return names;
}

void SaveLastDatabase(AppState& state) {
  if (state.gDatabaseName.empty()) return;
  auto db = OpenSystemFile(state.home);
  SQLite::Transaction transaction(*db);
  const std::string now = state.clock->Now().Iso();
  SQLite::Statement update(*db,
                           "UPDATE Settings SET StandardFile = ?, \"Date\" = ? WHERE FullName = ?");
  SQLite::bind(update, state.gStandardFile, now, state.gDatabaseName);
  if (update.exec() == 0) {
    SQLite::Statement insert(
        *db, "INSERT INTO Settings (FullName, ShortName, StandardFile, \"Date\") VALUES (?,?,?,?)");
    SQLite::bind(insert, state.gDatabaseName, ShortName(state.gDatabaseName), state.gStandardFile,
                 now);
    insert.exec();
  }
  SQLite::Statement trim(*db,
                         "DELETE FROM Settings WHERE rowid NOT IN "
                         "(SELECT rowid FROM Settings ORDER BY \"Date\" DESC, rowid DESC LIMIT ?)");
  trim.bind(1, kLastDatabaseCount);
  trim.exec();
  transaction.commit();
}

}  // namespace kvlr
