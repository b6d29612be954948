#include "handheld/HandheldFiles.h"

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "core/Columns.h"
#include "core/FileOps.h"
#include "core/VbRules.h"
#include "handheld/HandheldTexts.h"
#include "handheld/PdbRows.h"
#include "store/FieldType.h"

namespace kvlr {

namespace fs = std::filesystem;

namespace {

// The first `size` characters of UTF-8 text, as the field's check counts them.
std::string CutToSize(const std::string& text, int size) {
  size_t chars = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) == 0x80) continue;
    if (chars++ == static_cast<size_t>(size)) return text.substr(0, i);
  }
  return text;
}

}  // namespace

void InsertTextRow(SQLite::Database& db, const TableDef& table,
                   const std::vector<std::string>& values) {
  std::string names, marks;
  for (const FieldDef& f : table.fields) {
    names += (names.empty() ? "" : ", ") + Quoted(f.name);
    marks += marks.empty() ? "?" : ", ?";
  }
  SQLite::Statement q(db, "INSERT INTO " + Quoted(table.name) + " (" + names + ") VALUES (" +
                              marks + ")");
  for (size_t i = 0; i < table.fields.size(); ++i) {
    const FieldDef& f = table.fields[i];
    const std::string value = i < values.size() ? values[i] : "";
    const int n = static_cast<int>(i) + 1;
    if (f.type == FieldType::kBoolean) {
      q.bind(n, Val(value) != 0 ? 1 : 0);
    } else {
      q.bind(n, f.size > 0 ? CutToSize(value, f.size) : value);
    }
  }
  q.exec();
}

std::vector<std::vector<std::string>> TextRows(SQLite::Database& db, const TableDef& table) {
  std::string names;
  for (const FieldDef& f : table.fields) names += (names.empty() ? "" : ", ") + Quoted(f.name);
  SQLite::Statement q(db, "SELECT " + names + " FROM " + Quoted(table.name) + " ORDER BY rowid");
  std::vector<std::vector<std::string>> rows;
  while (q.executeStep()) {
    std::vector<std::string> row;
    for (int i = 0; i < q.getColumnCount(); ++i) row.push_back(TextOf(q.getColumn(i)));
    rows.push_back(std::move(row));
  }
  return rows;
}

PdbFile TableToPdb(SQLite::Database& db, const TableDef& table, const std::string& name,
                   const DateTime& now) {
  PdbFile file;
  file.name = name;
  file.created = file.modified = PalmSeconds(now);
  for (const auto& row : TextRows(db, table)) file.records.push_back({0, 0, EncodePdbRow(row)});
  return file;
}

void PdbToTable(SQLite::Database& db, const TableDef& table, const PdbFile& file) {
  for (const PdbRecord& r : file.records) InsertTextRow(db, table, DecodePdbRow(r.bytes));
}

fs::path HandheldStagingDir(const AppState& state) {
  return state.home.Root() / "NorvanHandHeld";
}

fs::path HandheldSyncDir(const AppState& state) {
  const fs::path kept = state.home.Root() / "KVL-Rsync.txt";
  std::error_code ec;
  if (fs::exists(kept, ec)) {
    std::string text = ReadWholeFile(kept);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    if (!text.empty()) return text;
  }
  return state.home.Root() / "HotSync";
}

bool SetHandheldSyncDir(AppState& state, const fs::path& folder) {
  const std::string path = folder.string();
  if (path.size() > 60) {
    state.io->Tell(fmt::format("{}{}", palm_text::kPathTooLong[0], palm_text::kPathTooLong[1]));
    return false;
  }
  WriteFileAtomically(state.home.Root() / "KVL-Rsync.txt", path + "\n");
  return true;
}

fs::path FindFileNoCase(const fs::path& folder, std::string_view name) {
  std::error_code ec;
  for (const auto& entry : fs::directory_iterator(folder, ec)) {
    if (UCase(entry.path().filename().string()) == UCase(name)) return entry.path();
  }
  return {};
}

}  // namespace kvlr
