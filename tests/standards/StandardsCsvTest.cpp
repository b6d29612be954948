#include <cstring>
#include <fstream>
#include <sstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "StandardFixture.h"
#include "standards/StandardsCsv.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

using test::MakeStandard;

constexpr const char* kHeader =
    "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke,"
    "AA Y Faster,AA Y Slower,AA S Faster,AA S Slower,AA L Faster,AA L Slower,"
    "A Y Faster,A Y Slower,A S Faster,A S Slower,A L Faster,A L Slower\n";

class StandardsCsv : public test::DbTest {
 protected:
  StandardsCsv() {
    MakeStandard(Db(), "JO", {"AA", "A"});
    test::AddLine(Db(), "JO", "M", "I", 11, 12, 100, 1, {{'Y', 0, 5500, 5000}, {'L', 1, 6532}});
    test::AddLine(Db(), "JO", "F", "R", 0, 99, 200, 5, {{'S', 1, 13000}});
  }
  std::string Export(const char* name) {
    return StandardCsvText(Db(), *ReadStandardDefinition(Db(), name));
  }
};

TEST_F(StandardsCsv, ExportHasOneHeaderAndOneLinePerLine) {
  EXPECT_EQ(Export("JO"), std::string(kHeader) +
                              "M,I,11,12,100,1,55.00,50.00,,,,,,,,,1:05.32,\n"
                              "F,R,0,99,200,5,,,,,,,,,2:10.00,,,\n");
}

// Imported into the current standard, the lines are judged at once.
TEST_F(StandardsCsv, RoundTripIntoANewStandard) {
  InstallStandardHooks(t.state);
  t.state.gStandardName = "Copy";
  OpenCurrentStandard(t.state);
  const std::string text = Export("JO");
  const CsvImportResult result = ImportStandardCsv(t.state, "Copy", text);
  ASSERT_TRUE(result.ok) << result.message;
  EXPECT_TRUE(result.created);
  EXPECT_EQ(result.lines, 2);
  EXPECT_EQ(Export("Copy"), text);
  EXPECT_EQ(ReadStandardDefinition(Db(), "Copy")->designators[1], "A");
  int16_t designator = 0;
  EXPECT_EQ(GetStandard(t.state, designator, 5400, "M", 100, 1, 12, "Y", false), "AA");
}

TEST_F(StandardsCsv, ImportReplacesTheLinesOfAnExistingStandard) {
  // Only designator A, given with other case: AA keeps no limits.
  const std::string text =
      "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke,"
      "a Y Faster,a Y Slower,a S Faster,a S Slower,a L Faster,a L Slower\r\n"
      "F,I,13,14,50,2,31.50,,,,,\r\n";
  const CsvImportResult result = ImportStandardCsv(t.state, "jo", text);
  ASSERT_TRUE(result.ok) << result.message;
  EXPECT_FALSE(result.created);
  EXPECT_EQ(Count("SELECT count(*) FROM JO"), 1);
  EXPECT_EQ(Count("SELECT \"S(25)\" FROM JO"), 3150);
  EXPECT_EQ(Count("SELECT count(*) FROM STDNAME"), 1);
}

TEST_F(StandardsCsv, BadFilesAreRefusedNamingTheLineAndChangeNothing) {
  const std::string good_line = "M,I,11,12,100,1,55.00,,,,,,,,,,,\n";
  struct Case {
    const char* what;
    std::string text;
    std::string part;  // of the message
    bool refused_when_new = true;
  };
  const Case cases[] = {
      {"empty", "", "no header"},
      {"wrong first columns", "Sex,IR,Lo_Age,Hi_Age,Distance,Stroke,AA Y Faster\n", "Line 1"},
      {"no time columns", "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke\n", "Line 1"},
      {"columns out of order",
       "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke,AA Y Slower,AA Y Faster,AA S Faster,AA S Slower,"
       "AA L Faster,AA L Slower\n",
       "Line 1: column 7 should be \"AA Y Faster\""},
      {"unknown course",
       "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke,AA Y Faster,AA Y Slower,AA X Faster,AA X Slower,"
       "AA L Faster,AA L Slower\n",
       "Line 1: unknown course \"X\""},
      {"designator not in the standard",
       "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke,B Y Faster,B Y Slower,B S Faster,B S Slower,"
       "B L Faster,B L Slower\n",
       "Line 1: \"B\"", false},
      {"bad time", std::string(kHeader) + good_line + "M,I,13,14,100,1,5x.00,,,,,,,,,,,\n",
       "Line 3, column \"AA Y Faster\": \"5x.00\" is not a time (m:ss.hh)."},
      {"too few columns", std::string(kHeader) + "M,I,13,14,100,1,55.00\n", "Line 2: 7 columns"},
      {"bad sex", std::string(kHeader) + "X,I,13,14,100,1,,,,,,,,,,,,\n", "Line 2: Sex"},
      {"high age under low", std::string(kHeader) + "M,I,14,13,100,1,,,,,,,,,,,,\n", "Line 2"},
      {"bad stroke", std::string(kHeader) + "M,I,13,14,100,9,,,,,,,,,,,,\n", "Line 2"},
      {"same line twice", std::string(kHeader) + good_line + "\n" + good_line, "Line 4"},
  };
  const std::string before = Export("JO");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const CsvImportResult result = ImportStandardCsv(t.state, "JO", c.text);
    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.message.find(c.part), std::string::npos) << result.message;
    EXPECT_EQ(Export("JO"), before);
    if (c.refused_when_new) {
      EXPECT_FALSE(ImportStandardCsv(t.state, "Fresh", c.text).ok);
    }
  }
  EXPECT_EQ(Count("SELECT count(*) FROM STDNAME"), 1);
  EXPECT_FALSE(TableExists(Db(), "FRESH"));
  // Names that cannot be a standard.
  EXPECT_FALSE(ImportStandardCsv(t.state, "", before).ok);
  EXPECT_FALSE(ImportStandardCsv(t.state, "Ninechars", before).ok);
  EXPECT_EQ(ImportStandardCsv(t.state, "Meet", before).message, "Meet already exists.");
}

TEST_F(StandardsCsv, CellsAreReadExactlyAsWrittenAndOnlyAsTimes) {
  // A spreadsheet's byte order mark and CRLF; long, short and minute-less times.
  const std::string text = "\xEF\xBB\xBF" +
                           std::string(kHeader).insert(std::strlen(kHeader) - 1, "\r") +
                           "M,I,11,12,1650,1,99999:59.99,05.23,,,,,1:05.32,0:59.00,,,,\r\n";
  const CsvImportResult result = ImportStandardCsv(t.state, "Long", text);
  ASSERT_TRUE(result.ok) << result.message;
  EXPECT_EQ(Count("SELECT \"S(24)\" FROM LONG"), 599999999);
  EXPECT_EQ(Export("Long"),
            std::string(kHeader) + "M,I,11,12,1650,1,99999:59.99,05.23,,,,,1:05.32,59.00,,,,\n");
  for (const char* cell :
       {"1:75.00", "1:05", "65", "1.5", "1:5.00", ":05.00", "-5.00", "99999999:00.00", "1:05.3x"}) {
    const std::string bad = std::string(kHeader) + "M,I,11,12,100,1,,,,,,,,,,,,\n" +
                            "F,I,11,12,100,1,,," + cell + ",,,,,,,,,\n";
    const CsvImportResult refused = ImportStandardCsv(t.state, "JO", bad);
    EXPECT_EQ(refused.message, fmt::format("Line 3, column \"AA S Faster\": \"{}\" is not a time "
                                           "(m:ss.hh).",
                                           cell));
  }
  EXPECT_EQ(Count("SELECT count(*) FROM JO"), 2);
}

TEST_F(StandardsCsv, FilesAreWrittenAndRead) {
  const auto file = t.Data() / "jo.csv";
  std::filesystem::create_directories(t.Data());
  EXPECT_TRUE(ExportStandardCsvFile(t.state, "JO", file));
  EXPECT_FALSE(std::filesystem::exists(file.string() + ".tmp"));
  std::ifstream in(file);
  std::stringstream text;
  text << in.rdbuf();
  EXPECT_EQ(text.str(), Export("JO"));
  EXPECT_TRUE(ImportStandardCsvFile(t.state, "Back", file).ok);
  EXPECT_EQ(Export("Back"), Export("JO"));
  EXPECT_FALSE(ExportStandardCsvFile(t.state, "Nowhere", file));
  EXPECT_TRUE(t.io.Saw("There is no standard named Nowhere."));
  EXPECT_FALSE(ImportStandardCsvFile(t.state, "Back", t.Data() / "missing.csv").ok);
}

}  // namespace
}  // namespace kvlr
