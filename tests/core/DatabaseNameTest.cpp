#include <gtest/gtest.h>

#include "core/DatabaseName.h"
#include "support/ScriptedUserIo.h"

namespace kvlr {
namespace {

TEST(DatabaseNameOk, RefusesEmptyLongPathAndControlCharactersAndLeadingDots) {
  struct Case {
    const char* name;
    bool ok;
  };
  const Case cases[] = {
      {"Family", true},
      {"  Family  ", true},
      {"12345678901234567890", true},
      {"123456789012345678901", false},
      {"", false},
      {"   ", false},
      {"O'Brien", false},
      {"Say \"hi\"", false},
      {"a/b", false},
      {"a\\b", false},
      {"C:", false},
      {"a|b", false},
      {"Swim-Team 2026", true},
      {".mdb", false},  // what ".mdb" alone leaves as its stem
      {".hidden", false},
      {"tab\there", false},
      {"line\nbreak", false},
      {"del\x7f", false},
  };
  for (const auto& c : cases) {
    test::ScriptedUserIo io;
    EXPECT_EQ(DatabaseNameOk(c.name, kMaxDatabaseName, io), c.ok) << c.name;
    EXPECT_EQ(io.shown.empty(), c.ok) << c.name;
  }
  test::ScriptedUserIo io;
  DatabaseNameOk("a:b", 20, io);
  EXPECT_EQ(io.shown[0].text,
            "The database name can not be longer than 20 characters\rand can not include "
            "quotes, apostrophes, slashes or colons.");
}

}  // namespace
}  // namespace kvlr
