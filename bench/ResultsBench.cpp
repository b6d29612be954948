// The results browser of a swimmer with 10,000 results: the query and the texts of every
// row, as it opens, as a filter changes and as a heading re-sorts it.

#include <benchmark/benchmark.h>

#include "SilentIo.h"

#include <filesystem>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "meets/ResultsQuery.h"
#include "standards/Conversion.h"
#include "store/Database.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

struct Browser {
  Browser() : state(ProgramHome(Root() / "home"), io, clock, disk) {
    fs::remove_all(Root());
    fs::create_directories(Root() / "data");
    state.home.Ensure();
    const fs::path file = Root() / "data" / "family.mdb";
    CreateNewDatabase(state, file);
    state.gDatabaseName = file.string();
    OpenLocalDB(state);
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    db.exec("INSERT INTO Athlete (Athlete, First, Last, Sex) VALUES (1, 'Ada', 'Lane', 'F')");
    SQLite::Statement meet(db,
                           "INSERT INTO MEET (Meet, MName, Start, Type, Course) "
                           "VALUES (?, ?, ?, ?, ?)");
    SQLite::Statement event(db,
                            "INSERT INTO MTEVENT (MtEvent, Meet, MtEv, MtEvX, Lo_Hi, Course, "
                            "Distance, Stroke, Sex, I_R) VALUES (?, ?, ?, '', 1112, ?, ?, ?, "
                            "'F', 'I')");
    SQLite::Statement result(db,
                             "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, AGE, "
                             "DISTANCE, STROKE, COURSE, MTEVENT, RANK, PLACE) "
                             "VALUES (?, 1, ?, ?, 'F', 0, 12, ?, ?, ?, ?, ?, 0)");
    for (int m = 1; m <= 500; ++m) {
      meet.reset();
      SQLite::bind(meet, m, "Harbor Meet " + std::to_string(m),
                   fmt_date(2000 + m / 40, 1 + m % 12, 1 + m % 28), m % 2 ? "AG" : "HS",
                   std::string(1, "YSL"[m % 3]));
      meet.exec();
    }
    for (int i = 0; i < 10000; ++i) {
      const int m = 1 + i / 20;
      const int distance = 50 << (i % 4);
      const int stroke = 1 + i % 5;
      const std::string course(1, "YSL"[m % 3]);
      event.reset();
      SQLite::bind(event, i + 1, m, i % 20 + 1, course, distance, stroke);
      event.exec();
      result.reset();
      SQLite::bind(result, m, i % 7 == 0 ? "L" : "I", 3000 + (i * 37) % 9000, distance, stroke,
                   course, i + 1, 1 + i % 9);
      result.exec();
    }
    transaction.commit();
  }

  static std::string fmt_date(int y, int mo, int d) {
    char text[11];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", y, mo, d);
    return text;
  }
  static fs::path Root() { return fs::temp_directory_path() / "kvlr-bench-results"; }

  size_t Fill(const ResultFilter& filter) {
    const ResultsPlan plan = PlanResults(filter, true, Date{2026, 11, 22}, kNullDate);
    const auto records = RunResults(*state.gDb, plan);
    ResultCellOptions options;
    options.show_conversion = true;
    const auto cells = FillResultCells(records, options, nullptr,
                                       [this](int16_t d, int32_t s, int16_t st, char f, char t) {
                                         return ConvertTime(kSeedCvtFactors, d, s, st, f, t);
                                       });
    return cells.size();
  }

  bench::SilentIo io;
  SystemClock clock;
  SystemDiskInfo disk;
  AppState state;
};

Browser& TheBrowser() {
  static Browser browser;
  return browser;
}

void BM_ResultsOpen(benchmark::State& s) {
  Browser& b = TheBrowser();
  ResultFilter filter;
  filter.athlete = 1;
  for (auto _ : s) benchmark::DoNotOptimize(b.Fill(filter));
}
BENCHMARK(BM_ResultsOpen)->Unit(benchmark::kMillisecond);

void BM_ResultsFilterCourse(benchmark::State& s) {
  Browser& b = TheBrowser();
  ResultFilter filter;
  filter.athlete = 1;
  filter.course = "Y";
  filter.meet_type = "AG";
  for (auto _ : s) benchmark::DoNotOptimize(b.Fill(filter));
}
BENCHMARK(BM_ResultsFilterCourse)->Unit(benchmark::kMillisecond);

void BM_ResultsSortByMeet(benchmark::State& s) {
  Browser& b = TheBrowser();
  ResultFilter filter;
  filter.athlete = 1;
  filter.sort = ResultSort::kMeetName;
  filter.chronological = true;
  for (auto _ : s) benchmark::DoNotOptimize(b.Fill(filter));
}
BENCHMARK(BM_ResultsSortByMeet)->Unit(benchmark::kMillisecond);

void BM_ResultsFastest(benchmark::State& s) {
  Browser& b = TheBrowser();
  ResultFilter filter;
  filter.athlete = 1;
  filter.fastest = true;
  filter.fastest_text = "3";
  for (auto _ : s) benchmark::DoNotOptimize(b.Fill(filter));
}
BENCHMARK(BM_ResultsFastest)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
