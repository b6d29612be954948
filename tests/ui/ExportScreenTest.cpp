// The export screens: what their fields hand to the export runs, and their captions.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "interchange/ExportResultsScreen.h"
#include "interchange/ExportTexts.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

TEST(ExportScreens, FieldsBecomeTheRunsOptionsAndProofChangesTheCaption) {
  test::QtApp();
  test::TempHome t;
  test::MakeOpenDatabase(t);
  SQLite::Database& db = *t.state.gDb;
  test::AddAthlete(db, "Doe", "Jane");
  t.state.gAthlete = 1;
  db.exec(
      "INSERT INTO MEET (Meet, MName, Start, Course) VALUES (4, 'Older', '2026-01-10', 'Y'), "
      "(9, 'Newer', '2026-10-10', 'L')");
  db.exec(
      "INSERT INTO RESULT (RESULT, MEET, ATHLETE, I_R, SCORE, F_P) VALUES "
      "(1, 4, 1, 'I', 3000, 'F'), (2, 9, 1, 'I', 3100, 'F')");
  frmExpRes screen(t.state, ResultExportKind::kBestTimes);
  test::Child<QComboBox>(screen, "cboCourse")->setCurrentIndex(2);
  test::Child<QComboBox>(screen, "cboMeet")->setCurrentIndex(2);
  ResultExportOptions o = screen.Options();
  EXPECT_EQ(o.course, 'S');
  EXPECT_EQ(o.meet, 4);  // the list is latest first, behind a blank for every meet
  EXPECT_EQ(o.athlete, 1);
  EXPECT_EQ(o.kind, ResultExportKind::kBestTimes);
  EXPECT_EQ(screen.windowTitle().toStdString(), kExportBestTimesTitle);
  EXPECT_EQ(test::Child<QLabel>(screen, "lblHeading")->text().toStdString(), "Best Times SCM");
  test::Child<QCheckBox>(screen, "chkProof")->setChecked(true);
  EXPECT_EQ(screen.Options().kind, ResultExportKind::kProof);
  EXPECT_EQ(screen.windowTitle().toStdString(), kExportProofTitle);
  EXPECT_EQ(test::Child<QLabel>(screen, "lblHeading")->text().toStdString(),
            "Best Times for Proof");
}

}  // namespace
}  // namespace kvlr
