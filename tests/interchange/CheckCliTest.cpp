// kvlr check as a user runs it: no database, the panel and counts on stdout, the refusal's
// box on stderr.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "Commands.h"
#include "FileMaker.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int code;
  std::string out, err;
};

class CheckCli : public ::testing::Test {
 protected:
  Outcome Kvlr(const std::string& name, const std::string& text) {
    fs::create_directories(t.Data());
    const fs::path path = t.Data() / name;
    std::ofstream(path, std::ios::binary) << text;
    std::ostringstream out, err;
    std::istringstream in;
    CliEnvironment env{out, err, in, false, t.clock, t.disk, "%m/%d/%y", ""};
    const int code = RunCli({"--home", t.Home().string(), "check", path.string()}, env);
    return {code, out.str(), err.str()};
  }
  test::TempHome t;
};

TEST_F(CheckCli, AGoodFilePrintsItsPanelCountsAndStatus) {
  testing::SdifFile file;
  file.Swim().Swim({{"swimmer_name", "ROE, ANN"}}).Relay();
  const Outcome r = Kvlr("meet.cl2", file.Text());
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out,
            "Statistic\tValue\n"
            "File Name:\tmeet.cl2\n"
            "Created by:\tNorvan, Ltd 1.0\n"
            "File Type:\tMeet Results\n"
            "Meet Name:\tAutumn Made-Up Invite\n"
            "Start Date:\t11/01/2026\n"
            "Meets\t1\n"
            "Teams\t1\n"
            "Individual Results\t2\n"
            "Relay Results\t1\n"
            "Splits\t0\n"
            "Import File Checked - Click OK to Format Report   A Relay Report will also be "
            "Printed.\n");
  EXPECT_EQ(r.err, "");
}

TEST_F(CheckCli, ARefusedFileShowsTheBoxAndExitsOne) {
  const Outcome r = Kvlr("meet.sd3", testing::SdifFile(false).Swim({{"sex", "Q"}}).Text());
  EXPECT_EQ(r.code, 1);
  EXPECT_NE(r.out.find("Individual Results\t0\n"), std::string::npos) << r.out;
  EXPECT_NE(r.err.find("error: This file did not pass the initial SDIF certification check"),
            std::string::npos)
      << r.err;
  EXPECT_NE(r.err.find("The error is on line: 4\n"), std::string::npos);
  EXPECT_NE(r.err.find("Problem: Sex Code"), std::string::npos);
  EXPECT_NE(r.err.find("Error Checking Import File"), std::string::npos);

  const Outcome cut = Kvlr("cut.cl2", testing::SdifFile().Text().substr(0, 400));
  EXPECT_EQ(cut.code, 1);
  EXPECT_EQ(cut.out, "");
  EXPECT_NE(cut.err.find("Line length should be 160. Found 76"), std::string::npos) << cut.err;
}

}  // namespace
}  // namespace kvlr
