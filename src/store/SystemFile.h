#pragma once
// The system file "KVL-Rsys.mdb": which databases this machine used, and reminders.

#include <memory>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"

namespace kvlr {

// Makes the file and its tables where missing; false (user told, with the store's text).
bool CheckSystemFile(AppState& state);

// Opens the system file (made complete if needed). Throws what the store throws.
std::unique_ptr<SQLite::Database> OpenSystemFile(const ProgramHome& home);

}  // namespace kvlr
