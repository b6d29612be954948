// The logbook of a year: 300 workouts of twelve lines (sets, a circuit, a note), filled into
// WKLOGBOOK and written to PDF, a page per workout.

#include <cstdlib>

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include "BenchDatabase.h"
#include "SilentIo.h"
#include "reports/ReportFrame.h"
#include "reports/ReportLayout.h"
#include "store/ReportDatabase.h"
#include "workouts/WorkoutLines.h"
#include "workouts/WorkoutStore.h"

namespace kvlr {
namespace {

void AddYear(SQLite::Database& db) {
  for (int w = 0; w < 300; ++w) {
    HeaderEntry e;
    e.wk_num = w + 1;
    e.wk_date = AddDays(Date{2025, 9, 1}, w + w / 6);
    const int32_t ptr = SaveWorkoutHeader(db, e);
    std::vector<WkLine> lines;
    for (int i = 0; i < 12; ++i) {
      WkLine l;
      l.wk_line = static_cast<int16_t>(i + 1);
      l.set_reps = 4 + i % 5;
      l.set_dist = 50 * (1 + i % 4);
      l.set_interval = 40 + 5 * (i % 7);
      l.set_desc = "Freestyle descend";
      l.set_energyno = static_cast<int16_t>(1 + i % 5);
      l.set_type = i % 3 ? "S" : "SK";
      l.set_categoryabbr = "FR";
      if (i >= 5 && i <= 7) {
        l.wk_type = "C";
        l.circuit_line = static_cast<int16_t>(i - 4);
        l.circuit_tot = 3;
        l.circuit_reps = 3;
      }
      if (i == 10) {
        l.set_reps = l.set_dist = 0;
        l.set_note = "Easy between";
      }
      lines.push_back(l);
    }
    WriteWorkoutLines(db, ptr, lines);
  }
}

void BM_LogbookYearToPdf(benchmark::State& st) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  static int argc = 1;
  static char arg0[] = "bench_logbook";
  static char* argv[] = {arg0, nullptr};
  static QGuiApplication app(argc, argv);
  bench::SilentIo io;
  bench::BenchDatabase db("logbook", io);
  CheckReportTables(db.state);
  AddYear(*db.state.gDb);
  ReportRequest r;
  r.workouts.one_per_page = true;
  r.workouts.analysis = true;
  const ReportCatalog catalog = BuiltInReports();
  const ReportKind& kind = *catalog.Find("logbook");
  const std::filesystem::path pdf = std::filesystem::temp_directory_path() / "bench_logbook.pdf";
  int pages = 0;
  for (auto _ : st) {
    const auto doc = RunReport(db.state, kind, r);
    pages = doc ? WriteReportPdf(*doc, pdf) : 0;
  }
  st.counters["pages"] = pages;
  std::filesystem::remove(pdf);
}
BENCHMARK(BM_LogbookYearToPdf)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
