// A top times report over 10,000 results: filled into the report database and written to
// PDF (the issue asks for under a second).

#include <cstdlib>

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <QGuiApplication>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "BenchDatabase.h"
#include "SilentIo.h"
#include "reports/ReportLayout.h"
#include "reports/TopTimes.h"
#include "store/ReportDatabase.h"

namespace kvlr {
namespace {

// One swimmer, 100 meets in the three courses, 100 swims at each across 20 events.
void AddSeason(SQLite::Database& db) {
  SQLite::Transaction transaction(db);
  db.exec("INSERT INTO ATHLETE (Athlete, Last, First, Sex, Birth) "
          "VALUES (1, 'Sampleton', 'Mira', 'F', '2012-03-14')");
  SQLite::Statement meet(db, "INSERT INTO MEET (Meet, MName, Start, End, Course, Type) "
                             "VALUES (?, ?, ?, ?, ?, 'AG')");
  SQLite::Statement event(db, "INSERT INTO MTEVENT (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, "
                              "Stroke, Sex, I_R) VALUES (?, ?, '', 1314, ?, ?, ?, 'F', 'I')");
  SQLite::Statement result(db, "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, AGE, "
                               "DISTANCE, STROKE, MTEVENT, PLACE, RANK, TRANK, COURSE) "
                               "VALUES (?, 1, 'I', ?, ?, 0, 13, ?, ?, ?, ?, 0, 0, ?)");
  const int distances[] = {50, 100, 200, 400, 500};
  for (int m = 1; m <= 100; ++m) {
    const std::string course(1, "YSL"[m % 3]);
    const std::string start =
        fmt::format("20{:02d}-{:02d}-{:02d}", 16 + m / 12, 1 + m % 12, 1 + m % 28);
    SQLite::bind(meet, m, fmt::format("Invented Invitational {}", m), start, start, course);
    meet.exec();
    meet.reset();
    for (int i = 0; i < 100; ++i) {
      const int stroke = 1 + i % 4;
      const int distance = distances[(i / 4) % 5];
      SQLite::bind(event, m, i + 1, course, distance, stroke);
      event.exec();
      event.reset();
      const int32_t score = distance * (60 + stroke * 4) + (m * 37 + i * 11) % 900;
      SQLite::bind(result, m, score, i % 3 == 0 ? "P" : "F", distance, stroke,
                   static_cast<int64_t>(db.getLastInsertRowid()), 1 + i % 8, course);
      result.exec();
      result.reset();
    }
  }
  transaction.commit();
}

void BM_TopTimesToPdf(benchmark::State& st) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  static int argc = 1;
  static char arg0[] = "bench_toptimes";
  static char* argv[] = {arg0, nullptr};
  static QGuiApplication app(argc, argv);
  bench::SilentIo io;
  bench::BenchDatabase db("toptimes", io);
  CheckReportTables(db.state);
  AddSeason(*db.state.gDb);
  ReportRequest r;
  r.athlete = 1;
  SetTopTimesCourse(r, 5);  // every course converted to LC
  r.top.improve = TopTimesOptions::Improve::kEachMeet;
  r.top.top_n = static_cast<int>(st.range(0));
  const std::filesystem::path pdf = std::filesystem::temp_directory_path() / "bench_toptimes.pdf";
  int pages = 0;
  const bool fill_only = st.range(1) != 0;
  for (auto _ : st) {
    if (!PrintTTReport(db.state, r)) st.SkipWithError("nothing filled");
    if (!fill_only) pages = WriteReportPdf(LayoutTopTimes(db.state, r), pdf);
  }
  st.counters["pages"] = pages;
  std::filesystem::remove(pdf);
}
// Args: top N (0 all), fill only (1) or fill and PDF (0).
BENCHMARK(BM_TopTimesToPdf)->Args({0, 0})->Args({0, 1})->Args({5, 0})->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
