// A graph of 500 swims drawn to PNG: from the points alone, and from the database through
// GraphResults as `kvlr graph` does it.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <QApplication>

#include "BenchDatabase.h"
#include "SilentIo.h"
#include "reports/GraphChart.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

constexpr int kSwims = 500;
constexpr QSize kSize{1000, 600};

Date DayOf(int i) {
  return AddDays(Date{2010, 1, 2}, i * 9L);
}

GraphData Points() {
  GraphData d;
  d.times = true;
  d.title = "Ada Lane  100 Free  Yards";
  GraphSeries s{"Results", "", {}};
  for (int i = 0; i < kSwims; ++i) {
    s.points.push_back({i, DayOf(i), DayOf(i).Iso(), 7000.0 - i * 3 + (i % 7) * 40, "Meet"});
    d.slot_labels.push_back(DayOf(i).Iso());
  }
  d.series.push_back(std::move(s));
  return d;
}

fs::path Out() {
  return fs::temp_directory_path() / "kvlr-bench-graph.png";
}

void BM_GraphPointsToPng(benchmark::State& state) {
  const GraphData data = Points();
  const GraphLook look{state.range(0) ? GraphKind::kBar : GraphKind::kLine, false};
  for (auto _ : state) {
    if (!WriteGraph(data, look, kSize, Out(), GraphFormat::kPng, nullptr)) {
      state.SkipWithError("write failed");
    }
  }
  fs::remove(Out());
}
BENCHMARK(BM_GraphPointsToPng)->Arg(0)->Arg(1)->ArgNames({"bar"})->Unit(benchmark::kMillisecond);

void BM_GraphResultsToPng(benchmark::State& state) {
  bench::SilentIo io;
  bench::BenchDatabase base("graph", io);
  SQLite::Database& db = *base.state.gDb;
  {
    SQLite::Transaction transaction(db);
    db.exec("INSERT INTO Athlete (Athlete, First, Last, Sex) VALUES (1, 'Ada', 'Lane', 'F')");
    SQLite::Statement meet(db,
                           "INSERT INTO MEET (Meet, MName, Start, Type, Course) "
                           "VALUES (?, ?, ?, 'AG', 'Y')");
    SQLite::Statement result(db,
                             "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, "
                             "STROKE, COURSE, MTEVENT) VALUES (?, 1, 'I', ?, 'F', 0, 100, 1, "
                             "'Y', ?)");
    for (int i = 1; i <= kSwims; ++i) {
      meet.reset();
      SQLite::bind(meet, i, "Harbor Meet " + std::to_string(i), DayOf(i).Iso());
      meet.exec();
      result.reset();
      SQLite::bind(result, i, 7000 - i * 3 + (i % 7) * 40, i);
      result.exec();
    }
    transaction.commit();
  }
  const GraphResultsRequest request{.athlete = 1, .stroke = 1, .distance = 100, .course = "Y"};
  for (auto _ : state) {
    const GraphData data = GraphResults(db, request, 0);
    if (data.series.at(0).points.size() != kSwims ||
        !WriteGraph(data, {}, kSize, Out(), GraphFormat::kPng, nullptr)) {
      state.SkipWithError("graph failed");
    }
  }
  fs::remove(Out());
}
BENCHMARK(BM_GraphResultsToPng)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvlr

int main(int argc, char** argv) {
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  int qt_argc = 1;
  QApplication app(qt_argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
