#include <gtest/gtest.h>
#include <QPrintPreviewWidget>
#include <QPushButton>

#include "meets/ResultsFixture.h"
#include "reports/ReportLayout.h"
#include "reports/ReportPreview.h"
#include "reports/ReportScreens.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

TEST(ReportScreens, OptionsBecomeTheRequestAndThePreviewShowsThePdfsPages) {
  test::QtApp();
  test::TempHome t;
  test::OpenedDatabase opened{t};
  test::Season s{*t.state.gDb};
  s.Meet(1, "Autumn Open", "2026-10-03");
  s.Meet(2, "Winter Champs", "2026-02-14");
  frmRptMeet screen(t.state, "meet-results");
  auto* meet = test::Child<QComboBox>(screen, "cboMeet");
  meet->setCurrentIndex(meet->findData(2));
  test::Child<QComboBox>(screen, "SSOSplits")->setCurrentIndex(2);
  test::Child<QComboBox>(screen, "SSOCourse")->setCurrentIndex(3);
  test::Child<QComboBox>(screen, "cboOrientation")->setCurrentIndex(1);
  const ReportRequest r = screen.Request();
  EXPECT_EQ(r.meet, 2);
  EXPECT_EQ(r.athlete, 0);
  EXPECT_EQ(r.split_mode, 3);
  EXPECT_EQ(r.course, 'L');
  EXPECT_TRUE(r.landscape);
  EXPECT_FALSE(r.since);
  test::Shoot(screen, "frmRptMeet");
  // Only the kinds a memorized row can run offer to be memorized.
  EXPECT_TRUE(screen.findChild<QPushButton*>("cmdSaveRpt"));
  EXPECT_TRUE(frmRptMeet(t.state, "meet-entries").findChild<QPushButton*>("cmdSaveRpt"));
  EXPECT_FALSE(frmRptMeet(t.state, "meets").findChild<QPushButton*>("cmdSaveRpt"));

  ReportDoc doc;
  doc.title = "Long Report";
  ReportSection section;
  section.columns = {{"Name", 30}, {"Time", 10, ReportColumn::Align::kRight}};
  for (int i = 0; i < 150; ++i) section.Row({"Swimmer " + std::to_string(i), "1:00.00"});
  doc.sections.push_back(section);
  const int pages = WriteReportPdf(doc, t.Data() / "long.pdf");
  ReportPreviewDialog preview(t.state, doc);
  preview.show();
  test::QtApp().processEvents();
  EXPECT_EQ(preview.findChild<QPrintPreviewWidget*>()->pageCount(), pages);
  EXPECT_GT(pages, 1);
  test::Shoot(preview, "frmReportPreview");
}

}  // namespace
}  // namespace kvlr
