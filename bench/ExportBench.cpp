// The export of a swimmer's whole career: 2,000 results with splits as Commlink, NV3 and
// the online form, packed into the zip.

#include <benchmark/benchmark.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "BenchDatabase.h"
#include "SilentIo.h"
#include "interchange/ExportRun.h"
#include "meets/Ranking.h"

namespace kvlr::bench {
namespace {

struct Career {
  SilentIo io;
  BenchDatabase db{"export", io};
  std::filesystem::path out = db.state.home.Root() / "out";
  Career() {
    SQLite::Database& d = *db.state.gDb;
    std::filesystem::create_directories(out);
    SQLite::Transaction t(d);
    d.exec(
        "INSERT INTO ATHLETE (Athlete, Last, First, Sex, Birth) VALUES "
        "(1, 'Doe', 'Jane', 'F', '2010-04-05')");
    d.exec("INSERT INTO TEAM (TCode, TName, LSC) VALUES ('MUSTA', 'Made Up Swim Team', 'ZZ')");
    SQLite::Statement meet(d,
                           "INSERT INTO MEET (Meet, MName, Start, End, Course) "
                           "VALUES (?, ?, ?, ?, ?)");
    SQLite::Statement event(
        d,
        "INSERT INTO MTEVENT (MtEvent, Meet, MtEv, MtEvX, Lo_Hi, Course, "
        "Distance, Stroke, Sex, I_R) VALUES (?, ?, ?, '', 1314, ?, ?, ?, 'F', 'I')");
    SQLite::Statement result(d,
                             "INSERT INTO RESULT (RESULT, MEET, ATHLETE, I_R, SCORE, F_P, NT, "
                             "AGE, DISTANCE, STROKE, MTEVENT, PLACE, COURSE) "
                             "VALUES (?, ?, 1, 'I', ?, ?, 0, 13, ?, ?, ?, ?, ?)");
    SQLite::Statement split(d, "INSERT INTO SPLITS (SplitID, SplitIndex, Split) VALUES (?, ?, ?)");
    const char* courses[] = {"Y", "S", "L"};
    int key = 0;
    for (int m = 1; m <= 40; ++m) {
      const std::string course = courses[m % 3];
      const std::string day = fmt::format("20{:02d}-{:02d}-15", 14 + m / 12, m % 12 + 1);
      SQLite::bind(meet, m, fmt::format("Made-Up Meet {}", m), day, day, course);
      meet.exec();
      meet.reset();
      for (int e = 1; e <= 50; ++e) {
        ++key;
        const int stroke = e % 5 + 1, distance = 200;
        SQLite::bind(event, key, m, e, course, distance, stroke);
        event.exec();
        event.reset();
        SQLite::bind(result, key, m, 14000 + (key * 37) % 3000, e % 2 ? "F" : "P", distance, stroke,
                     key, e % 8 + 1, course);
        result.exec();
        result.reset();
        for (int s = 1; s <= 8; ++s) {
          SQLite::bind(split, key, s, 1700 * s + key % 90);
          split.exec();
          split.reset();
        }
      }
    }
    t.commit();
    AddRank(db.state);
  }
};

void BM_ExportCareer(benchmark::State& st) {
  Career c;
  ResultExportOptions o;
  o.athlete = 1;
  o.splits = true;
  o.folder = c.out;
  for (auto _ : st) {
    const ExportOutcome out = ExportResults(c.db.state, o);
    if (!out.ok || out.count != 2000) {
      st.SkipWithError("the export failed");
      return;
    }
    st.PauseTiming();
    std::filesystem::remove(out.zip);
    st.ResumeTiming();
  }
}
BENCHMARK(BM_ExportCareer)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvlr::bench
BENCHMARK_MAIN();
