#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Options.h"
#include "core/SwimCodes.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::MakeOpenDatabase;
using test::TempHome;

TEST(GetOptions, EmptyTableGetsTheDefaultsWithTodayAsLastBackup) {
  TempHome t;
  MakeOpenDatabase(t);  // its first open read OPTIONS
  EXPECT_EQ(t.state.gDb
                ->execAndGet("SELECT count(*) || ' ' || LastBackup || ' ' || CvtFactor || ' ' || "
                             "Cvt500 || ' ' || Cvt1650 || ' ' || CvtType || ' ' || Y2L || ' ' || "
                             "BackupCheck || ' ' || UpdateCheck || ' ' || Course || ' ' || NoAge "
                             "FROM OPTIONS")
                .getString(),
            "1 2026-11-22 1.11 0.875 1.006 2 1 7 7 Y 1");
  EXPECT_TRUE(t.state.gY2L);
  EXPECT_EQ(t.state.gBackupDays, 7);
  EXPECT_EQ(t.state.gStroke, LoadStrokeArray());
}

TEST(GetOptions, ReadsAChangedRowAndDirectoriesFallBackToTheDataFolder) {
  TempHome t;
  MakeOpenDatabase(t);
  t.state.gDb->exec(
      "UPDATE OPTIONS SET Favorite = 'LCM', UseLeadOff = 1, RptUCase = 1, BackupCheck = 30, "
      "UpdateCheck = 0, CvtFactor = 1.2, FavSex = 2");
  GetOptions(t.state);
  EXPECT_EQ(t.state.gFavorite, "LCM");
  EXPECT_TRUE(t.state.gUseLeadOff);
  EXPECT_TRUE(t.state.gRptUCase);
  EXPECT_EQ(t.state.gBackupDays, 30);
  EXPECT_EQ(t.state.gUpdateDays, 0);
  EXPECT_DOUBLE_EQ(t.state.gCvtFactors[0], 1.2);
  EXPECT_EQ(t.state.gFavSex, 2);
  const fs::path imports = t.Root() / "imports";
  fs::create_directories(imports);
  SQLite::Statement set(*t.state.gDb, "UPDATE OPTIONS SET ImportDir = ?, ExportDir = ?");
  SQLite::bind(set, imports.string(), (t.Root() / "deleted since").string());
  set.exec();
  EXPECT_EQ(GetDirectories(t.state, DirectoryKind::kImport), imports);
  EXPECT_EQ(GetDirectories(t.state, DirectoryKind::kExport), t.Data());
  EXPECT_EQ(GetDirectories(t.state, DirectoryKind::kBackup), t.Data());
}

}  // namespace
}  // namespace kvlr
