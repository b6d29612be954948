// frmWorkout over a real database: lines added through the line dialog, a drag, the End row;
// and the logbook printed to PDF and read back.

#include <cstdio>

#include <QDialogButtonBox>
#include <QMimeData>
#include <QPushButton>

#include "reports/ReportFrame.h"
#include "reports/ReportLayout.h"
#include "store/ReportDatabase.h"
#include "support/QtApp.h"
#include "support/TempHome.h"
#include "workouts/WorkoutDialogs.h"
#include "workouts/WorkoutScreen.h"

namespace kvlr {
namespace {

int32_t AddHeader(AppState& state, int32_t number) {
  HeaderEntry e;
  e.wk_num = number;
  e.wk_date = Date{2026, 5, 4};
  return SaveWorkoutHeader(*state.gDb, e);
}

// Answers each line dialog with the next reps x dist on interval and description.
struct Sets {
  std::vector<std::tuple<int, int, const char*, const char*>> next;
  int operator()(QDialog& d) {
    auto* line = qobject_cast<frmWorkoutLineAddEdit*>(&d);
    if (!line || next.empty()) return QDialog::Rejected;
    const auto [reps, dist, interval, desc] = next.front();
    next.erase(next.begin());
    line->reps_->setText(QString::number(reps));
    line->dist_->setText(QString::number(dist));
    line->interval_->setText(interval);
    line->desc_->setEditText(desc);
    line->accept();
    return line->result();
  }
};

std::string Descriptions(const std::vector<WkLine>& lines) {
  std::string s;
  for (const WkLine& l : lines) s += l.set_desc + "|";
  return s;
}

TEST(WorkoutScreen, AddedSetsDragAndTheEndRowTotal) {
  test::QtApp();
  test::TempHome t;
  test::MakeOpenDatabase(t);
  const int32_t ptr = AddHeader(t.state, 1);
  frmWorkout screen(t.state);
  ASSERT_EQ(screen.CurrentPtr(), ptr);
  auto sets = std::make_shared<Sets>();
  screen.SetDialogRunner([sets](QDialog& d) { return (*sets)(d); });
  sets->next = {{1, 400, "06:00", "Warm"}, {8, 50, "00:40", "Kick"}, {4, 100, "01:30", "Pull"}};
  for (int i = 0; i < 3; ++i) {
    screen.SelectLine(i + 1);  // the End row: each set goes behind the last
    screen.AddSingle();
  }
  EXPECT_EQ(Descriptions(ReadWorkoutLines(*t.state.gDb, ptr)), "Warm|Kick|Pull|");
  const WkTable& rows = screen.LinesModel().Rows();
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows.back()[wkcol::kText], " 1,200 Yards");

  // Pull dragged onto the first row goes in front of it.
  WorkoutLinesModel& model = screen.LinesModel();
  std::unique_ptr<QMimeData> drag(model.mimeData({model.index(2, 0)}));
  model.dropMimeData(drag.get(), Qt::MoveAction, -1, -1, model.index(0, 0));
  test::QtApp().processEvents();
  EXPECT_EQ(Descriptions(ReadWorkoutLines(*t.state.gDb, ptr)), "Pull|Warm|Kick|");

  // A set refused by the dialog's checks leaves the workout as it was.
  sets->next = {{0, 0, "00:40", "Nothing"}};
  screen.AddSingle();
  EXPECT_EQ(t.io.shown.back().text, "Reps and Distance cannot both be zero !");
  EXPECT_EQ(ReadWorkoutLines(*t.state.gDb, ptr).size(), 3u);
  test::Shoot(screen, "frmWorkout");
}

TEST(WorkoutLineDialog, CategoriesListedByNameAndCircuitTitleRequired) {
  test::QtApp();
  test::TempHome t;
  const std::vector<WorkStrokeEntry> ws = {
      {"S", "Swim", 1}, {"K", "Kick", 1}, {"FR", "Free", 2}, {"BK", "Back", 2}};
  frmWorkoutLineAddEdit::Setup setup;
  setup.values.type = "SK";
  setup.values.category = "BK";
  frmWorkoutLineAddEdit d(setup, EnergyArray{}, ws, {"Warm"}, t.io);
  EXPECT_FALSE(d.stroke_->isEditable());
  EXPECT_EQ(d.stroke_->currentText(), "BK  Back");
  EXPECT_EQ(d.Values().type, "SK");  // letters combined by typing stay as typed
  d.type_->setCurrentIndex(1);
  d.stroke_->setCurrentIndex(0);
  EXPECT_EQ(d.Values().type, "K");
  EXPECT_EQ(d.Values().category, "");
  test::Shoot(d, "frmWorkoutLineAddEdit");

  frmWorkoutInsertMemCirName title({});
  QPushButton* ok = title.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
  EXPECT_FALSE(ok->isEnabled());
  title.title_->setText("  Sprint ladder ");
  EXPECT_TRUE(ok->isEnabled());
  EXPECT_EQ(title.Title(), "Sprint ladder");
  test::Shoot(title, "frmWorkoutInsertMemCirName");
}

TEST(WorkoutLogbook, PdfHoldsTheBlockOfEachWorkout) {
  test::QtApp();
  test::TempHome t;
  test::MakeOpenDatabase(t);
  ASSERT_TRUE(CheckReportTables(t.state));
  for (int n : {1, 2}) {
    const int32_t ptr = AddHeader(t.state, n);
    WkLine l;
    l.wk_line = 1;
    l.set_reps = 10 * n;
    l.set_dist = 100;
    l.set_interval = 90;
    l.set_desc = "Main set";
    WriteWorkoutLines(*t.state.gDb, ptr, {l});
  }
  ReportRequest r;
  r.workouts.columns = 2;
  r.workouts.one_per_page = true;
  const ReportCatalog catalog = BuiltInReports();
  const auto doc = RunReport(t.state, *catalog.Find("logbook"), r);
  ASSERT_TRUE(doc);
  const auto pdf = t.Root() / "logbook.pdf";
  EXPECT_EQ(WriteReportPdf(*doc, pdf), 2);  // a page per workout
  std::string text;
  if (FILE* p = popen(("pdftotext -layout '" + pdf.string() + "' -").c_str(), "r")) {
    char buf[4096];
    for (size_t n; (n = fread(buf, 1, sizeof buf, p)) > 0;) text.append(buf, n);
    pclose(p);
  }
  for (const char* expected : {"Workout #1 - Monday, 04 May", "Workout #2", "10 x 100 on 1:30 Main set",
                               "20 x 100 on 1:30", "2,000 Yards", "rest between sets"}) {
    EXPECT_NE(text.find(expected), std::string::npos) << expected << "\n" << text;
  }
}

}  // namespace
}  // namespace kvlr
