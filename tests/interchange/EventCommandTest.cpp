// kvlr import-events as a user runs it.

#include <gtest/gtest.h>

#include <sstream>

#include "Commands.h"
#include "OnlineFixtures.h"
#include "store/ZipArchive.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

TEST(ImportEventsCommand, EveryEventFileOfAZipOnce) {
  test::TempHome t;
  const auto kvlr = [&t](std::vector<std::string> args) {
    std::ostringstream out, err;
    std::istringstream in;
    args.insert(args.begin(), {"--home", t.Home().string()});
    CliEnvironment env{out, err, in, false, t.clock, t.disk, "%m/%d/%y", ""};
    const int code = RunCli(args, env);
    return std::tuple{code, out.str(), err.str()};
  };
  const std::string db = (t.Data() / "family.mdb").string();
  ASSERT_EQ(std::get<0>(kvlr({"new-db", db})), 0);

  const fs::path a = t.Data() / "a.nvv";
  const fs::path b = t.Data() / "b.nvv";
  test::WriteLines(a, {test::NvvMeetLine("Alpha Meet", "12/05/2026"), "1;50;1;I;0;10;F"});
  test::WriteLines(
      b, {test::NvvMeetLine("Beta Meet", "12/12/2026"), "1;50;1;I;0;10;F", "2;50;2;I;0;10;F"});
  const fs::path zip = t.Data() / "events.zip";
  ZipArchive::Create(zip, {{"b.nvv", b}, {"a.nvv", a}}, "", 6);

  auto [code, out, err] = kvlr({"import-events", "--db", db, zip.string()});
  EXPECT_EQ(code, 0) << err;
  EXPECT_EQ(out, "File\tMeet\tMName\tEvents\na.nvv\t1\tAlpha Meet\t1\nb.nvv\t2\tBeta Meet\t2\n");

  // Again: both are refused with the existing meet's words.
  std::tie(code, out, err) = kvlr({"import-events", "--db", db, zip.string()});
  EXPECT_EQ(code, 1);
  EXPECT_NE(err.find("named: Beta Meet"), std::string::npos) << err;

  std::tie(code, out, err) = kvlr({"import-events", "--db", db, (t.Data() / "a.nv3").string()});
  EXPECT_EQ(code, 1);
  EXPECT_NE(err.find("a.nv3Not a valid filename"), std::string::npos) << err;
}

}  // namespace
}  // namespace kvlr
