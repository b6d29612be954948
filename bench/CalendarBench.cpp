// The month view of a swimmer's year with 600 calendar rows: the marks loaded and the view
// drawn, as frmCalendar does on every change of month.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "BenchDatabase.h"
#include "SilentIo.h"
#include "daily/Calendar.h"
#include "daily/CalendarViews.h"

namespace {

void BM_MonthView(benchmark::State& bench) {
  kvlr::bench::SilentIo io;
  kvlr::bench::BenchDatabase db("calendar", io);
  SQLite::Database& sql = *db.state.gDb;
  {
    SQLite::Transaction t(sql);
    SQLite::Statement add(sql, "INSERT INTO tblEvents (Athlete, DATE, Type, StartTime, EndTime, "
                               "Comment) VALUES (?, ?, ?, ?, ?, ?)");
    for (int i = 0; i < 600; ++i) {
      const kvlr::Date day = kvlr::AddDays({2026, 1, 1}, i * 365 / 600);
      SQLite::bind(add, 1, day.Iso(), 2 + i % 6, kvlr::StoredTime(360 + 15 * (i % 40)),
                   kvlr::StoredTime(420 + 15 * (i % 40)), "Made-up event");
      add.exec();
      add.reset();
    }
    t.commit();
  }
  kvlr::MonthView view;
  view.resize(460, 330);
  QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
  int month = 0;
  for (auto _ : bench) {
    const int m = month++ % 12 + 1;
    const kvlr::Date first{2026, m, 1};
    view.SetMonth(2026, m, kvlr::LoadEventMarks(sql, 1, -1, first, kvlr::AddDays(first, 30)));
    view.render(&image);
    benchmark::DoNotOptimize(image.bits());
  }
}
BENCHMARK(BM_MonthView)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
