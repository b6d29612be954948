#include <filesystem>
#include <iostream>

#include <SQLiteCpp/Statement.h>

#include "Command.h"
#include "core/DatabaseName.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "store/Database.h"
#include "store/Repair.h"
#include "store/TableBuilder.h"

namespace kvlr::cli {
namespace fs = std::filesystem;

namespace {

// The checks of the Open/New dialog on a chosen name.
bool DatabaseFileNameOk(Context& c, const fs::path& file) {
  const std::string name = file.filename().string();
  if (UCase(name.size() >= 3 ? name.substr(name.size() - 3) : name) != "MDB") {
    c.io.Tell("Not a valid filename: " + name);
    return false;
  }
  if (name.find('.') == std::string::npos) {
    c.io.Tell("Not a valid validfilename: " + name);
    return false;
  }
  return DatabaseNameOk(file.stem().string(), kMaxDatabaseName, c.io);
}

int NewDb(Context& c) {
  const fs::path file = OnePath(c);
  if (!DatabaseFileNameOk(c, file)) return kRefused;
  if (!CreateNewDatabase(c.state, fs::absolute(file))) return kRefused;
  if (!OpenAsAtStart(c, file)) return kRefused;
  Row(c.env.out, {"Database", "Tables"});
  Row(c.env.out, {c.state.gDatabaseName, std::to_string(TableNames(*c.state.gDb).size())});
  return kOk;
}

int CheckDb(Context& c) {
  if (!OpenAsAtStart(c, OnePath(c))) return kRefused;
  Row(c.env.out, {"Table", "Rows"});
  SQLite::Statement tables(*c.state.gDb,
                           "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT "
                           "LIKE 'sqlite_%' ORDER BY name COLLATE NOCASE");
  while (tables.executeStep()) {
    std::string name = tables.getColumn(0).getString();
    Row(c.env.out, {name, std::to_string(RowCount(*c.state.gDb, name))});
  }
  return kOk;
}

int Repair(Context& c) {
  const fs::path file = OnePath(c);
  if (!OpenAsAtStart(c, file)) return kRefused;
  std::error_code ec;
  const auto before = fs::file_size(file, ec);
  if (!RepairAndCompact(c.state)) return kRefused;
  Row(c.env.out, {"Database", "Bytes before", "Bytes after"});
  Row(c.env.out,
      {c.state.gDatabaseName, std::to_string(before), std::to_string(fs::file_size(file, ec))});
  return kOk;
}

int Time(Context& c) {
  if (c.args.positional.empty()) throw UsageError("expects at least one TEXT");
  Row(c.env.out, {"Text", "Normalized", "Score", "Formatted", "Padded", "ScoreText"});
  for (const auto& text : c.args.positional) {
    std::string canonical = text;
    const int32_t score = TimeTextToScore(canonical);
    Row(c.env.out, {text, NormalizeTimeText(text), std::to_string(score), FormatTime(score, false),
                    FormatTime(score, true), ScoreText(score, 1, "", 0)});
  }
  return kOk;
}

}  // namespace

std::vector<Command> DatabaseCommands() {
  return {
      {"new-db",
       "kvlr new-db PATH",
       "Make a new database file (*.mdb) with every table, ready to use. The name before "
       "\".mdb\" has 1 to 20 characters, does not start with a dot and holds no quotes, "
       "apostrophes, slashes, colons, bars or control characters.",
       {},
       {},
       NewDb},
      {"check-db",
       "kvlr check-db PATH",
       "Open a database, complete missing tables, bring it to this version; list tables and "
       "row counts.",
       {},
       {},
       CheckDb},
      {"repair",
       "kvlr repair PATH",
       "Remove orphan rows, check and rebuild the file, compact it in place.",
       {},
       {},
       Repair},
      {"time",
       "kvlr time TEXT...",
       "Show how typed times are read: normalized text, score, printed forms.",
       {},
       {},
       Time},
  };
}

}  // namespace kvlr::cli
