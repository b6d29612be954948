#include <gtest/gtest.h>

#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/PrinterInfo.h"
#include "core/ProgramHome.h"
#include "core/RunFolder.h"
#include "core/ShippedFiles.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

TEST(ProgramHome, ResolvesFromTheEnvironment) {
  EXPECT_EQ(ProgramHome::Resolve("/x/home", "/xdg", "/u"), fs::path("/x/home"));
  EXPECT_EQ(ProgramHome::Resolve("", "/xdg", "/u"), fs::path("/xdg/kvl-r"));
  EXPECT_EQ(ProgramHome::Resolve(nullptr, nullptr, "/u"), fs::path("/u/.local/share/kvl-r"));
  EXPECT_EQ(ProgramHome::DefaultDataDir("/u"), fs::path("/u/KVL-R-Data"));
}

TEST(ProgramHome, AMissingHomeIsMadeWithTheShippedRulesAHomeInUseIsKept) {
  test::TempHome t;
  ProgramHome home(t.Root() / "new" / "deeper");
  home.Ensure();
  EXPECT_TRUE(fs::is_directory(home.ReportDir()));
  EXPECT_EQ(ReadWholeFile(home.ImportRules()), kDefaultImportRules);
  // A home in use keeps the user's choices: a removed rules file stays removed, so the check
  // can say so.
  WriteFileAtomically(home.SystemFile(), "in use");
  fs::remove(home.ImportRules());
  home.Ensure();
  EXPECT_FALSE(fs::exists(home.ImportRules()));
}

TEST(FileOps, AFailedWriteLeavesTheOldFile) {
  test::TempHome t;
  const fs::path file = t.Data() / "keep.txt";
  WriteFileAtomically(file, "old");
  EXPECT_THROW(WriteFileAtomically(t.Data() / "missing" / "x.txt", "new"), FileError);
  fs::create_directories(PartFileBeside(file));  // the temporary name is taken by a folder
  EXPECT_THROW(WriteFileAtomically(file, "new"), FileError);
  EXPECT_EQ(ReadWholeFile(file), "old");
}

TEST(PrinterInfo, WithoutAFileTheDefaultIsTakenAndKeptElseTrimmedLinesAreRead) {
  test::TempHome t;
  const PrinterNames office{"Office Laser", "cups", "ipp://office"};
  EXPECT_EQ(GetPrinterInfo(t.state.home, office), office);
  EXPECT_EQ(ReadWholeFile(t.state.home.PrintFile()), "Office Laser\ncups\nipp://office\n");
  // Later the file wins over another default.
  EXPECT_EQ(GetPrinterInfo(t.state.home, PrinterNames{"Other", "x", "y"}), office);
  WriteFileAtomically(t.state.home.PrintFile(), "  Den Inkjet \r\n lpd \r\n");
  PrinterNames names = GetPrinterInfo(t.state.home, {});
  EXPECT_EQ(names.device, "Den Inkjet");
  EXPECT_EQ(names.driver, "lpd");
  EXPECT_EQ(names.port, "");
}

}  // namespace
}  // namespace kvlr
