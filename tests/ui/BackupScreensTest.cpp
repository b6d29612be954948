// frmBackup and frmRestore over a scripted user: start folder, enable rules, and the two
// buttons doing their work.

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "core/FileOps.h"
#include "store/Backup.h"
#include "store/BackupScreen.h"
#include "store/RestoreScreen.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::Child;
using test::MakeOpenDatabase;
using test::Shoot;
using test::TempHome;

TEST(frmBackup, StartsOnTheDataFolderAndWritesTheArchiveOnBackup) {
  test::QtApp();
  TempHome t;
  MakeOpenDatabase(t);
  frmBackup screen(t.state);
  EXPECT_EQ(screen.windowTitle(), "Backup Current KVL-R Database");
  EXPECT_EQ(screen.Folder().toStdString(), t.Data().string());
  EXPECT_EQ(Child<QLineEdit>(screen, "txtComments")->maxLength(), 150);
  Shoot(screen, "frmBackup");

  const fs::path folder = t.Root() / "backups";
  screen.SetFolder(QString::fromStdString(folder.string()));
  screen.SetComment("Before the county meet");
  Child<QPushButton>(screen, "cmdBackup")->click();
  ASSERT_TRUE(screen.Made().has_value());
  EXPECT_EQ(*screen.Made(), folder / "KVL-RBkupfamily-01.zip");
  EXPECT_EQ(screen.result(), QDialog::Accepted);
}

TEST(frmRestore, ShowsTheBackupAndFollowsTheOptionRules) {
  test::QtApp();
  TempHome t;
  const fs::path database = MakeOpenDatabase(t);
  const auto zip = BackupDatabase(t.state, t.Root() / "backups", "  weekly  ");
  ASSERT_TRUE(zip.has_value());

  frmRestore screen(t.state);
  EXPECT_EQ(screen.windowTitle(), "Restore a KVL-R database");
  EXPECT_FALSE(Child<QPushButton>(screen, "cmdRestore")->isEnabled()) << "nothing chosen yet";
  ASSERT_TRUE(screen.LoadBackup(*zip));
  EXPECT_EQ(Child<QLabel>(screen, "lblDbName")->text(), "family.mdb");
  EXPECT_EQ(Child<QLabel>(screen, "lblComments")->text(), "weekly");
  EXPECT_TRUE(Child<QLabel>(screen, "lblSize")->text().endsWith(" megabytes"));
  EXPECT_FALSE(Child<QLabel>(screen, "lblSameName")->isHidden()) << "same name as the open one";
  Shoot(screen, "frmRestore");

  auto* name = Child<QLineEdit>(screen, "txtDBName");
  auto* open_after = Child<QCheckBox>(screen, "chkOpenAfter");
  auto* change = Child<QPushButton>(screen, "cmdChangeFolder");
  EXPECT_EQ(screen.Option(), RestoreOption::kReplaceOpen);
  EXPECT_FALSE(name->isEnabled());
  EXPECT_FALSE(open_after->isEnabled());
  Child<QRadioButton>(screen, "optCurrentFolder")->setChecked(true);
  EXPECT_TRUE(name->isEnabled());
  EXPECT_FALSE(change->isEnabled());
  Child<QRadioButton>(screen, "optSelectedFolder")->setChecked(true);
  EXPECT_TRUE(change->isEnabled());

  Child<QPushButton>(screen, "cmdRestore")->click();
  EXPECT_TRUE(t.io.Saw("Please select a directory to restore to."));
  EXPECT_FALSE(screen.Restored().has_value());

  const fs::path folder = t.Root() / "restored";
  fs::create_directories(folder);
  screen.SetFolder(folder);
  name->setText("copy");
  open_after->setChecked(true);
  Child<QPushButton>(screen, "cmdRestore")->click();
  ASSERT_TRUE(screen.Restored().has_value());
  EXPECT_EQ(*screen.Restored(), folder / "copy.MDB");
  EXPECT_EQ(t.state.gDatabaseName, (folder / "copy.MDB").string());
  EXPECT_TRUE(fs::exists(database)) << "the other database is untouched";
}

TEST(frmRestore, WithoutAnOpenDatabaseOnlyTheFolderChoicesAreOffered) {
  EXPECT_EQ(frmRestore::FileDialogFilter().toStdString(),
            "KVL-R Backup files (KVL-RBkup*.zip KVL-RArchive*.zip);;"
            "Backup files (KVL-RBkup*.zip);;Archived files (KVL-RArchive*.zip)");
  test::QtApp();
  TempHome t;
  frmRestore screen(t.state);
  EXPECT_FALSE(Child<QRadioButton>(screen, "optReplace")->isEnabled());
  EXPECT_EQ(screen.Option(), RestoreOption::kSelectedFolder);
  WriteFileAtomically(t.Root() / "notes.txt", "");
  EXPECT_FALSE(screen.LoadBackup(t.Root() / "notes.txt"));
  EXPECT_TRUE(t.io.Saw("Not a valid filename: notes.txt"));
}

}  // namespace
}  // namespace kvlr
