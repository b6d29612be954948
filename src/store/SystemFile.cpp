#include "store/SystemFile.h"

#include "core/FileOps.h"
#include "store/Database.h"
#include "store/SystemTables.h"
#include "store/TableBuilder.h"

namespace kvlr {

std::unique_ptr<SQLite::Database> OpenSystemFile(const ProgramHome& home) {
  MakeFolder(home.Root());
  auto db = OpenStoreFile(home.SystemFile(), OpenMode::kCreate, false);
  const auto existing = TableNames(*db);
  for (const auto& table : SystemTables()) {
    if (!existing.count(UpperName(table.name))) CreateTable(*db, table);
  }
  return db;
}

bool CheckSystemFile(AppState& state) {
  try {
    OpenSystemFile(state.home);
    return true;
  } catch (const std::exception& e) {
    state.io->Tell(e.what());
    return false;
  }
}

}  // namespace kvlr
