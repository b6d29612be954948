#include "support/TempHome.h"

#include <cstdlib>
#include <stdexcept>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "store/Database.h"
#include "store/DbVersion.h"

namespace kvlr::test {
namespace fs = std::filesystem;

namespace {
fs::path MakeRoot() {
  std::string pattern = (fs::temp_directory_path() / "kvlr-test-XXXXXX").string();
  if (!::mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
  return pattern;
}
}  // namespace

TempHome::TempHome()
    : state(ProgramHome(MakeRoot() / "home"), io, clock, disk),
      root_(state.home.Root().parent_path()) {
  fs::create_directories(Data());
  state.data_root = Data();
  state.home.Ensure();
}

TempHome::~TempHome() {
  state.gDb.reset();
  state.gReportDb.reset();
  std::error_code ec;
  fs::remove_all(root_, ec);
}

long long QueryNumber(SQLite::Database& db, const std::string& sql) {
  SQLite::Statement q(db, sql);
  q.executeStep();
  return q.getColumn(0).getInt64();
}

long long QueryNumber(SQLite::Database& db, const std::string& sql, long long value) {
  SQLite::Statement q(db, sql);
  q.bind(1, static_cast<int64_t>(value));
  q.executeStep();
  return q.getColumn(0).getInt64();
}

std::string QueryRows(SQLite::Database& db, const std::string& sql,
                      std::optional<long long> value) {
  SQLite::Statement q(db, sql);
  if (value) q.bind(1, static_cast<int64_t>(*value));
  std::string out;
  while (q.executeStep()) {
    for (int i = 0; i < q.getColumnCount(); ++i) out += (i ? "|" : "") + q.getColumn(i).getString();
    out += "\n";
  }
  return out;
}

int AddAthlete(SQLite::Database& db, const std::string& last, const std::string& first,
               const std::string& sex, const std::string& birth, int team) {
  SQLite::Statement insert(db,
                           "INSERT INTO Athlete (Last, First, Sex, Birth, Team1) "
                           "VALUES (?, ?, ?, NULLIF(?, ''), ?)");
  SQLite::bind(insert, last, first, sex, birth, team);
  insert.exec();
  return static_cast<int>(db.getLastInsertRowid());
}

fs::path MakeOpenDatabase(TempHome& t, const std::string& name) {
  fs::path file = t.Data() / name;
  if (!CreateNewDatabase(t.state, file)) throw std::runtime_error("create failed");
  t.state.gDatabaseName = file.string();
  if (!OpenLocalDB(t.state)) throw std::runtime_error("open failed");
  CheckDbVersion(t.state);
  ApplyDatabaseSettings(t.state);
  return file;
}

}  // namespace kvlr::test
