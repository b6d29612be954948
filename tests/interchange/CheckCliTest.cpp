// kvlr check and kvlr import-events as a user runs them: the panel, counts and rows on
// stdout, the refusal's box on stderr.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "Commands.h"
#include "FileMaker.h"
#include "OnlineFixtures.h"
#include "interchange/MeetFileLines.h"
#include "store/ZipArchive.h"
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
    return Kvlr(path);
  }
  Outcome Kvlr(const fs::path& path) { return Run({"check", path.string()}); }
  Outcome Run(std::vector<std::string> args) {
    std::ostringstream out, err;
    std::istringstream in;
    CliEnvironment env{out, err, in, false, t.clock, t.disk, "%m/%d/%y", ""};
    args.insert(args.begin(), {"--home", t.Home().string()});
    const int code = RunCli(args, env);
    return {code, out.str(), err.str()};
  }
  test::TempHome t;
};

TEST_F(CheckCli, AGoodFilePrintsItsPanelCountsAndStatus) {
  testing::SdifFile file;
  file.Swim().Swim({{"swimmer_name", "ROE, ANN"}}).Relay();
  // Whatever follows the Z0 line is never read, not even for its length.
  const Outcome r = Kvlr("meet.cl2", file.Text() + "junk behind the end\r\n");
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out,
            "Statistic\tValue\n"
            "File Name:\tmeet.cl2\n"
            "Created by:\tNorvan, Ltd 1.0\n"
            "File Type:\tMeet Results\n"
            "Meet Name:\tAutumn Made-Up Invite\n"
            "Start Date:\t2026-11-01\n"
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
}

TEST_F(CheckCli, CutShortHugeAndCrOnlyFiles) {
  std::vector<std::string> lines = testing::SdifFile().Swim().Lines();
  lines.pop_back();  // a download cut short right before its Z0
  const Outcome cut = Kvlr("cut.cl2", testing::FileText(lines));
  EXPECT_EQ(cut.code, 1);
  EXPECT_NE(cut.out.find("Individual Results\t1\n"), std::string::npos) << cut.out;
  EXPECT_EQ(cut.err,
            "cut.cl2 has no end record (Z0): the file may be incomplete, for example a download "
            "cut short.\n");
  // Lines ended by a lone CR read as any others.
  std::string cr_only;
  for (const auto& line : testing::SdifFile().Swim().Lines()) cr_only += line + "\r";
  const Outcome cr = Kvlr("cr.cl2", cr_only);
  EXPECT_EQ(cr.code, 0) << cr.err;
  EXPECT_NE(cr.out.find("Individual Results\t1\n"), std::string::npos) << cr.out;
  // Refused by its size, unread (the sparse file takes no room on disk).
  const fs::path huge = t.Data() / "huge.cl2";
  std::ofstream(huge, std::ios::binary) << testing::SdifFile().Text();
  fs::resize_file(huge, kMaxMeetFileBytes + 1);
  const Outcome big = Kvlr(huge);
  EXPECT_EQ(big.code, 1);
  EXPECT_EQ(big.err,
            "huge.cl2 is larger than 100 MB; a meet file is never that large, so it was not "
            "read.\n");
}

TEST_F(CheckCli, ImportEventsTakesEveryEventFileOfAZipOnce) {
  fs::create_directories(t.Data());
  const std::string db = (t.Data() / "family.mdb").string();
  ASSERT_EQ(Run({"new-db", db}).code, 0);
  const fs::path a = t.Data() / "a.nvv";
  const fs::path b = t.Data() / "b.nvv";
  test::WriteLines(a, {test::NvvMeetLine("Alpha Meet", "12/05/2026"), "1;50;1;I;0;10;F"});
  test::WriteLines(
      b, {test::NvvMeetLine("Beta Meet", "12/12/2026"), "1;50;1;I;0;10;F", "2;50;2;I;0;10;F"});
  const fs::path zip = t.Data() / "events.zip";
  ZipArchive::Create(zip, {{"b.nvv", b}, {"a.nvv", a}}, "", 6);
  const Outcome first = Run({"import-events", "--db", db, zip.string()});
  EXPECT_EQ(first.code, 0) << first.err;
  EXPECT_EQ(first.out,
            "File\tMeet\tMName\tEvents\na.nvv\t1\tAlpha Meet\t1\nb.nvv\t2\tBeta Meet\t2\n");
  // Again: both are refused with the existing meet's words.
  const Outcome again = Run({"import-events", "--db", db, zip.string()});
  EXPECT_EQ(again.code, 1);
  EXPECT_NE(again.err.find("named: Beta Meet"), std::string::npos) << again.err;
  const Outcome wrong = Run({"import-events", "--db", db, (t.Data() / "a.nv3").string()});
  EXPECT_EQ(wrong.code, 1);
  EXPECT_NE(wrong.err.find("a.nv3Not a valid filename"), std::string::npos) << wrong.err;
}

}  // namespace
}  // namespace kvlr
