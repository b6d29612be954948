// Names the user gives: database names within their rules, and output files that are no
// database, no foreign kind and no silent replacement.

#include <gtest/gtest.h>

#include "core/DatabaseName.h"
#include "core/FileOps.h"
#include "core/OutputFile.h"
#include "support/ScriptedUserIo.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

TEST(OutputFileOk, RefusesDatabasesAndForeignFilesAndAsksBeforeReplacing) {
  test::TempHome t;
  const fs::path open_db = test::MakeOpenDatabase(t);
  const fs::path dir = t.Data();
  WriteFileAtomically(dir / "copy.csv", ReadWholeFile(open_db));  // a database by its bytes
  WriteFileAtomically(dir / "pack.csv", std::string("PK\x03\x04", 4) + "rest");
  WriteFileAtomically(dir / "notes.txt", "notes");
  WriteFileAtomically(dir / "old.CSV", "Sex\n");
  MakeFolder(dir / "folder.csv");
  struct Case {
    fs::path file;
    std::vector<Answer> answers;
    bool ok;
    std::string words;  // the one box shown; "" for none
  };
  const Case cases[] = {
      {open_db,
       {},
       false,
       open_db.string() + " is a database, not a CSV file; choose another name."},
      {dir / "copy.csv", {}, false, "copy.csv is a database, not a CSV file"},
      {dir / "pack.csv", {}, false, "pack.csv is a zip archive, not a CSV file"},
      {dir / "notes.txt", {}, false, "notes.txt is not a CSV file; choose another name."},
      {dir / "folder.csv", {}, false, "folder.csv is a folder"},
      {dir / "new.csv", {}, true, ""},
      {dir / "new.txt", {}, true, ""},
      {dir / "old.CSV", {Answer::kNo}, false, "old.CSV already exists. Do you want to replace it?"},
      {dir / "old.CSV", {Answer::kYes}, true, "old.CSV already exists. Do you want to replace it?"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file.string());
    t.io.shown.clear();
    for (Answer a : c.answers) t.io.Script({a});
    EXPECT_EQ(OutputFileOk(t.state, c.file, kCsvOutput), c.ok);
    ASSERT_EQ(t.io.shown.size(), c.words.empty() ? 0u : 1u);
    if (!c.words.empty()) {
      EXPECT_NE(t.io.shown[0].text.find(c.words), std::string::npos);
    }
  }
  // A file dialog that asked already: no second question, but a database is still refused.
  t.io.shown.clear();
  EXPECT_TRUE(OutputFileOk(t.state, dir / "old.CSV", kCsvOutput, true));
  EXPECT_FALSE(OutputFileOk(t.state, dir / "copy.csv", kCsvOutput, true));
  EXPECT_EQ(t.io.shown.size(), 1u);
}

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
