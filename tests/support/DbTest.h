#pragma once
// A test with a fresh home and a new open database, and the queries most tests ask of it.

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "support/TempHome.h"

namespace kvlr::test {

class DbTest : public ::testing::Test {
 protected:
  DbTest() { MakeOpenDatabase(t); }
  SQLite::Database& Db() { return *t.state.gDb; }
  long long Count(const std::string& sql) { return QueryNumber(Db(), sql); }
  long long Count(const std::string& sql, long long value) { return QueryNumber(Db(), sql, value); }
  std::string Rows(const std::string& sql, std::optional<long long> value = {}) {
    return QueryRows(Db(), sql, value);
  }
  std::string LastShown() const { return t.io.shown.empty() ? "" : t.io.shown.back().text; }
  TempHome t;
};

}  // namespace kvlr::test
