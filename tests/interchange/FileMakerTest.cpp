#include "FileMaker.h"

#include <gtest/gtest.h>

#include "interchange/Cl2CheckSum.h"
#include "interchange/Nv3CheckSum.h"

namespace kvlr {
namespace {

using testing::Cl2;
using testing::Nv3;
using testing::Sdif;

// The fixtures' own arithmetic must agree with the worked examples and with the program;
// otherwise every test built on them proves nothing.
TEST(FileMakerTest, CheckSumsAgreeWithWorkedExamplesAndProgram) {
  EXPECT_EQ(testing::Cl2Sum(std::string(156, ' ')), "37");
  EXPECT_EQ(testing::Nv3Sum(std::string(128, ' ')), "79");
  const std::string b1 = Cl2(Sdif("B1", "meet_name=Autumn Invite|start=11012026"));
  EXPECT_EQ(CheckCL2Line(b1), Cl2Line::kGood);
  const std::string d1 = Nv3("D1", "sex=F|athlete=17|last=DOE");
  EXPECT_TRUE(CheckNV3Line(d1));
}

TEST(FileMakerTest, FieldsLandInTheirColumns) {
  const std::string d0 = Sdif("D0", "swimmer_name=DOE, JANE|distance=100|finals_time=1:05.32");
  ASSERT_EQ(d0.size(), 160u);
  EXPECT_EQ(d0.substr(0, 2), "D0");
  EXPECT_EQ(d0.substr(11, 9), "DOE, JANE");
  EXPECT_EQ(d0.substr(67, 4), " 100");  // right-aligned number
  EXPECT_EQ(d0.substr(115, 8), " 1:05.32");
  EXPECT_EQ(Nv3("E1", {{"athlete", "42"}}).substr(3, 5), "   42");
  EXPECT_THROW(Sdif("D0", {{"no_such_field", "x"}}), std::invalid_argument);
  EXPECT_THROW(Sdif("D0", {{"sex", "MF"}}), std::invalid_argument);
  EXPECT_THROW(Sdif("Q9", {}), std::invalid_argument);
}

TEST(FileMakerTest, WholeFileCountsWhatItHolds) {
  testing::SdifFile file;
  file.Swim().Swim({{"swimmer_name", "ROE, ANN"}}).Relay();
  const auto lines = file.Lines();
  ASSERT_EQ(lines.size(), 1u + 1 + 1 + 4 + 5 + 1);  // A0 B1 C1 2x(D0 D3) E0+4F0 Z0
  EXPECT_EQ(lines.back().substr(57, 6), "     2");
  EXPECT_EQ(lines.back().substr(74, 6), "     4");
  for (const auto& line : lines) EXPECT_EQ(CheckCL2Line(line), Cl2Line::kGood) << line;
  EXPECT_EQ(testing::FileText({"A", "B"}), "A\r\nB\r\n");
}

}  // namespace
}  // namespace kvlr
