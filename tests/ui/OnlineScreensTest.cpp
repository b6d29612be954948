// frmImpEv, frmUnZip and frmCSOInfo over a scripted user and a fake file dialog.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextBrowser>

#include "../interchange/OnlineFixtures.h"
#include "interchange/ImportEventsScreen.h"
#include "interchange/OnlineInfoScreen.h"
#include "interchange/UnZipScreen.h"
#include "store/ZipArchive.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::Child;
using test::Shoot;
using test::TempHome;

// A file dialog that answers `file` and remembers what it was asked.
struct FakePicker {
  QString file;
  std::vector<ImportFileAsk> asked;
  ImportFilePicker Picker() {
    return [this](QWidget*, const ImportFileAsk& ask) {
      asked.push_back(ask);
      return file;
    };
  }
};

TEST(frmImpEv, ChoosesANameAndImportsTheChosenEventFile) {
  test::QtApp();
  TempHome t;
  test::MakeOpenDatabase(t);
  frmImpEv screen(t.state);
  FakePicker picker;
  screen.SetFilePicker(picker.Picker());
  EXPECT_EQ(screen.windowTitle(), "Import Events");
  EXPECT_FALSE(Child<QPushButton>(screen, "cmdImport")->isEnabled());
  picker.file = QString::fromStdString((t.Data() / "meet.nv3").string());
  Child<QPushButton>(screen, "cmdBrowse")->click();
  ASSERT_EQ(picker.asked.size(), 1u);
  EXPECT_EQ(picker.asked[0].title, "Import Events");
  EXPECT_EQ(picker.asked[0].filter, "Event files (*.nvv *.zip)");
  EXPECT_TRUE(t.io.Saw((t.Data() / "meet.nv3").string() + "Not a valid filename"));
  EXPECT_FALSE(screen.Ready().has_value());
  const fs::path a = t.Data() / "a.nvv";
  const fs::path b = t.Data() / "b.nvv";
  test::WriteLines(a, {test::NvvMeetLine("Alpha Meet", "12/05/2026"), "1;50;1;I;0;10;F"});
  test::WriteLines(
      b, {test::NvvMeetLine("Beta Meet", "12/12/2026"), "1;50;1;I;0;10;F", "2;100;2;I;11;12;M"});
  const fs::path zip = t.Data() / "events.zip";
  ZipArchive::Create(zip, {{"a.nvv", a}, {"b.nvv", b}}, "", 6);
  ASSERT_TRUE(screen.ChooseFile(zip));
  auto* list = Child<QListWidget>(screen, "lstFiles");
  ASSERT_EQ(list->count(), 2);
  EXPECT_EQ(list->item(1)->text(), "b.nvv");
  list->setCurrentRow(1);
  ASSERT_TRUE(screen.Ready().has_value());
  const fs::path unzipped = *screen.Ready();
  EXPECT_EQ(unzipped.filename(), "b.nvv");
  EXPECT_EQ(unzipped.parent_path().parent_path(), t.state.home.TempDir());
  Shoot(screen, "frmImpEv");
  Child<QPushButton>(screen, "cmdImport")->click();
  ASSERT_TRUE(screen.Outcome().has_value());
  EXPECT_TRUE(screen.Outcome()->ok);
  EXPECT_TRUE(t.io.Saw("Events imported: 2"));
  EXPECT_EQ(Child<QLabel>(screen, "lblStatus")->text(), "Events imported: 2  (Beta Meet)");
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT COUNT(*) FROM MTEVENTE"), 2);
  Shoot(screen, "frmImpEv-imported");
  // A plain .nvv is ready at once and needs no list; the zip's folder is gone.
  EXPECT_TRUE(screen.ChooseFile(a));
  EXPECT_EQ(list->count(), 0);
  EXPECT_FALSE(list->isEnabled());
  EXPECT_FALSE(fs::exists(unzipped));
}

TEST(frmUnZip, UnzipsEveryFileIntoANewFolderInTheImportFolder) {
  test::QtApp();
  TempHome t;
  frmUnZip screen(t.state);
  EXPECT_EQ(screen.windowTitle(), "UnZIP File");
  EXPECT_EQ(frmUnZip::FileDialogFilter(), "ZIP files (*.zip)");
  EXPECT_EQ(screen.Folder(), t.Data()) << "no database: the data folder";
  EXPECT_EQ(Child<QLabel>(screen, "lblFolder")->text().toStdString(), t.Data().string());
  const fs::path a = t.Data() / "notes.txt";
  test::WriteLines(a, {"made up"});
  const fs::path zip = t.Data() / "any.zip";
  ZipArchive::Create(zip, {{"notes.txt", a}, {"deep/more.cl2", a}}, "", 6);
  screen.SetFile(QString::fromStdString(a.string()));
  EXPECT_FALSE(screen.UnZip());
  EXPECT_EQ(t.io.shown.back().text, "Not a valid filename");
  screen.SetFile(QString::fromStdString(zip.string()));
  Child<QPushButton>(screen, "cmdUnZip")->click();
  const fs::path folder = t.Data() / "any";
  EXPECT_EQ(screen.UnzippedFolder(), folder);
  EXPECT_EQ(t.io.shown.back().text, "Successfully Unzipped to " + folder.string() + ".");
  EXPECT_EQ(Child<QLabel>(screen, "lblFolder")->text().toStdString(), folder.string());
  EXPECT_TRUE(fs::exists(folder / "more.cl2"));
  EXPECT_EQ(Child<QListWidget>(screen, "lstFiles")->count(), 2);
  Shoot(screen, "frmUnZip");
}

TEST(frmCSOInfo, OnePanelOfNumberedConditionsAndOneButton) {
  test::QtApp();
  frmCSOInfo screen;
  const QString html = Child<QTextBrowser>(screen, "txtInfo")->toHtml();
  EXPECT_TRUE(Child<QTextBrowser>(screen, "txtInfo")->isReadOnly());
  EXPECT_GE(frmCSOInfo::InfoText().count("<li>"), 5);
  EXPECT_TRUE(html.contains(".psn"));
  EXPECT_EQ(screen.findChildren<QPushButton*>().size(), 1);
  Shoot(screen, "frmCSOInfo");
  Child<QPushButton>(screen, "cmdOK")->click();
  EXPECT_EQ(screen.result(), QDialog::Accepted);
}

}  // namespace
}  // namespace kvlr
