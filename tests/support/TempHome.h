#pragma once
// A fresh program home and data folder for one test, removed afterwards, with a state
// object wired to a scripted user, a fixed clock and a disk of chosen room.

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "support/ScriptedUserIo.h"

namespace kvlr::test {

class FakeDisk final : public DiskInfo {
 public:
  std::uintmax_t FreeBytes(const std::filesystem::path&) const override { return free_bytes; }
  std::uintmax_t free_bytes = 1ull << 40;
};

class TempHome {
 public:
  TempHome();
  ~TempHome();
  TempHome(const TempHome&) = delete;
  TempHome& operator=(const TempHome&) = delete;
  const std::filesystem::path& Root() const { return root_; }
  std::filesystem::path Home() const { return root_ / "home"; }
  std::filesystem::path Data() const { return root_ / "data"; }
  ScriptedUserIo io;
  FixedClock clock{DateTime{Date{2026, 11, 22}, 10, 30, 0}};
  FakeDisk disk;
  AppState state;

 private:
  std::filesystem::path root_;
};

// The first column of the first row of a query, as a number.
long long QueryNumber(SQLite::Database& db, const std::string& sql);
// The same with one value bound to the query's "?".
long long QueryNumber(SQLite::Database& db, const std::string& sql, long long value);
// Every row of a query as "a|b|c", each ended by a line end; `value` bound to a "?" if given.
std::string QueryRows(SQLite::Database& db, const std::string& sql,
                      std::optional<long long> value = {});

// A swimmer added straight to the Athlete table (no birth date when `birth` is empty); its key.
int AddAthlete(SQLite::Database& db, const std::string& last, const std::string& first,
               const std::string& sex = "F", const std::string& birth = "", int team = 0);

// A new database file in the data folder, complete as after its first open, and open as gDb.
std::filesystem::path MakeOpenDatabase(TempHome& t, const std::string& name = "family.mdb");

}  // namespace kvlr::test
