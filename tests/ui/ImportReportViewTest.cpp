// The grid that shows an import report's rows until the printed report exists.

#include <gtest/gtest.h>

#include <cstdlib>

#include <QAbstractItemModelTester>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>

#include "interchange/ImportReport.h"
#include "interchange/ImportReportModel.h"
#include "interchange/ImportReportTable.h"
#include "interchange/ImportReportView.h"
#include "store/ReportDatabase.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using Col = ImportReportModel::Column;

IsdinRow Swim(const char* ln, const char* fn, const char* reason = "Y") {
  IsdinRow r;
  r.reason = reason;
  r.meet_name = "Autumn Made-Up Invite";
  r.meet_beg = "11/01/2026";
  r.meet_end = "11/02/2026";
  r.lsc = "ZZ";
  r.team_code = "MUST";
  r.team_name = "Made Up Swim Team";
  r.ln = ln;
  r.fn = fn;
  r.mi = "A";
  r.sex = "F";
  r.age = "12";
  r.birth = "01/02/2014";
  r.id_no = "MADEUP000001";
  r.ev_sex = "F";
  r.dist = "100";
  r.int_dist = 100;
  r.stroke = "Free";
  r.int_stroke = 1;
  r.lo_hi = 1112;
  r.p_time = "1:06.01";
  r.p_cors = "Y";
  r.f_time = "1:05.32";
  r.f_cors = "Y";
  return r;
}

class ImportReportViewTest : public ::testing::Test {
 protected:
  ImportReportViewTest() {
    test::QtApp();
    CheckReportTables(t_.state);
  }
  SQLite::Database& Db() { return *t_.state.gReportDb; }
  test::TempHome t_;
};

QString Cell(const ImportReportModel& model, int row, int column) {
  return model.data(model.index(row, column)).toString();
}

TEST_F(ImportReportViewTest, ModelShowsTheRowsWithTheirReasonWords) {
  AddIsdinRow(Db(), Swim("DOE", "JANE"));
  AddIsdinRow(Db(), Swim("ROE", "ANN", "1"));
  IsdinRow unknown = Swim("POE", "EVE", "7");
  unknown.p_time.clear();
  unknown.meet_end = unknown.meet_beg;
  unknown.f_cors.clear();
  AddIsdinRow(Db(), unknown);
  IsdinRow relay = Swim("", "");
  relay.mi = "B";
  relay.relay = "Y";
  AddIsdinRow(Db(), relay);
  ImportReportModel model(t_.state, false);
  QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  model.Reload();
  ASSERT_EQ(model.rowCount(), 3);
  EXPECT_EQ(model.columnCount(), Col::kColumnCount);
  // Row 2's reason is one IMPRULES doesn't know.
  const std::tuple<int, int, const char*> cells[] = {
      {0, Col::kReason, "Result imported"},
      {1, Col::kReason, "Same result already on file - not imported"},
      {2, Col::kReason, "7"}, {0, Col::kName, "DOE, JANE A"}, {0, Col::kTeam, "Made Up Swim Team"},
      {0, Col::kDates, "11/01/2026 - 11/02/2026"}, {0, Col::kEvent, "Female 11-12 100 Free"},
      {0, Col::kPrelim, "1:06.01 Y"}, {2, Col::kPrelim, ""}, {2, Col::kFinals, "1:05.32"},
      {2, Col::kDates, "11/01/2026"}, {0, Col::kBirth, "01/02/2014"}};
  for (const auto& [row, column, text] : cells) EXPECT_EQ(Cell(model, row, column), text) << column;
  EXPECT_EQ(model.headerData(Col::kReason, Qt::Horizontal).toString(), "Reason");
  EXPECT_EQ(model.headerData(Col::kFinals, Qt::Horizontal).toString(), "Finals");
  ImportReportModel relays(t_.state, true);
  QAbstractItemModelTester relay_tester(&relays,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  relays.Reload();
  ASSERT_EQ(relays.rowCount(), 1);
  EXPECT_EQ(Cell(relays, 0, Col::kName), "Relay B");
  // Rows gone from the table are gone from the grid once it reads again.
  ClearIsdin(Db());
  model.Reload();
  EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(ImportReportViewTest, DialogCarriesTheTitleAPageForRelaysAndCloses) {
  AddIsdinRow(Db(), Swim("DOE", "JANE"));
  AddIsdinRow(Db(), Swim("ROE", "ANN"));
  ImportFile file;
  file.panel.file_type = "Meet Results";
  {
    ImportReportView view(t_.state, ReportTitle(file));
    EXPECT_EQ(view.windowTitle(), "Export/Import File Report - Meet Results");
    auto* pages = view.findChild<QTabWidget*>("tabReports");
    ASSERT_NE(pages, nullptr);
    EXPECT_EQ(pages->count(), 1);  // no relay lines, no relay page
    EXPECT_EQ(view.Individual()->rowCount(), 2);
  }
  IsdinRow relay = Swim("", "");
  relay.mi = "A";
  relay.relay = "Y";
  relay.stroke = "Free Relay";
  relay.dist = "200";
  AddIsdinRow(Db(), relay);
  IsdinRow leg = Swim("DOE", "JANE");
  leg.relay = "Y";
  leg.stroke = "Free Relay";
  leg.dist = "200";
  leg.p_time.clear();
  leg.f_time = "32.50";
  AddIsdinRow(Db(), leg);
  ImportReportView view(t_.state, ReportTitle(file));
  auto* pages = view.findChild<QTabWidget*>("tabReports");
  ASSERT_NE(pages, nullptr);
  EXPECT_EQ(pages->count(), 2);
  EXPECT_EQ(view.Relays()->rowCount(), 2);
  EXPECT_NE(view.findChild<QTableView*>("grdRelays"), nullptr);
  view.show();
  view.resize(1400, 420);  // the offscreen screen is narrower than the grid
  test::QtApp().processEvents();
  const QPixmap shot = view.grab();
  EXPECT_FALSE(shot.isNull());
  if (const char* folder = std::getenv("KVLR_SCREENSHOTS")) {
    shot.save(QString("%1/frmImportReport.png").arg(folder));
    pages->setCurrentIndex(1);
    test::QtApp().processEvents();
    view.grab().save(QString("%1/frmImportReport-relays.png").arg(folder));
    pages->setCurrentIndex(0);
  }
  auto* close = view.findChild<QPushButton*>("cmdClose");
  ASSERT_NE(close, nullptr);
  close->click();
  EXPECT_FALSE(view.isVisible());
  EXPECT_EQ(view.result(), QDialog::Rejected);
}

}  // namespace
}  // namespace kvlr
