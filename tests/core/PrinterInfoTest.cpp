#include <gtest/gtest.h>

#include "core/FileOps.h"
#include "core/PrinterInfo.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

TEST(PrinterInfo, WithoutAFileTheDefaultIsTakenAndKept) {
  test::TempHome t;
  const PrinterNames office{"Office Laser", "cups", "ipp://office"};
  EXPECT_EQ(GetPrinterInfo(t.state.home, office), office);
  EXPECT_EQ(ReadWholeFile(t.state.home.PrintFile()), "Office Laser\ncups\nipp://office\n");
  // Later the file wins over another default.
  EXPECT_EQ(GetPrinterInfo(t.state.home, PrinterNames{"Other", "x", "y"}), office);
}

TEST(PrinterInfo, LinesAreTrimmedAndMissingLinesStayEmpty) {
  test::TempHome t;
  WriteFileAtomically(t.state.home.PrintFile(), "  Den Inkjet \r\n lpd \r\n");
  PrinterNames names = GetPrinterInfo(t.state.home, {});
  EXPECT_EQ(names.device, "Den Inkjet");
  EXPECT_EQ(names.driver, "lpd");
  EXPECT_EQ(names.port, "");
}

}  // namespace
}  // namespace kvlr
