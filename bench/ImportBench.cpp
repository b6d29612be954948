// The import of a big meet file for one family: the file read and certified, then the
// family's swims stored and everything ranked.

#include <benchmark/benchmark.h>

#include <SQLiteCpp/Statement.h>

#include "BenchDatabase.h"
#include "BigMeetFile.h"
#include "SilentIo.h"
#include "athletes/CurrentAthlete.h"
#include "interchange/ImportPrepare.h"
#include "interchange/ImportRun.h"
#include "store/ReportDatabase.h"

namespace kvlr::bench {
namespace {

// The 50 MB file, made once.
const std::filesystem::path& BigFile() {
  static const std::filesystem::path file = [] {
    const auto path = std::filesystem::temp_directory_path() / "kvlr-bench-bigmeet.cl2";
    BigMeetFile::Write(path, BigMeetFile::Lines(50));
    return path;
  }();
  return file;
}

struct Family {
  SilentIo io;
  BenchDatabase db{"import", io};
  Family() {
    db.state.gDb->exec("INSERT INTO ATHLETE (Last, First, Sex) VALUES ('Doe', 'Jane', 'F')");
    SetCurrentAthlete(db.state, static_cast<int32_t>(db.state.gDb->getLastInsertRowid()));
    CheckReportTables(db.state);
  }
};

ImportCriteria Everything() {
  ImportCriteria c;
  c.import_splits = true;
  c.lead_off = true;
  return c;
}

void BM_ImportPrepared(benchmark::State& st) {
  ImportMonitor quiet;
  ImportFile file;
  {
    Family f;
    file = PrepareImportFile(f.db.state, quiet, BigFile(), ImportMode::kImport);
  }
  if (!file.ready) {
    st.SkipWithError("the big file did not pass its checks");
    return;
  }
  for (auto _ : st) {
    st.PauseTiming();
    auto f = std::make_unique<Family>();
    st.ResumeTiming();
    const ImportOutcome out = RunImportFile(f->db.state, quiet, file, Everything());
    if (!out.ok) st.SkipWithError("import failed");
    st.counters["results"] = out.counts.Processed(ImportRow::kIndividual);
    st.counters["splits"] = out.counts.Processed(ImportRow::kSplits);
    st.PauseTiming();
    f.reset();
    st.ResumeTiming();
  }
  st.SetBytesProcessed(st.iterations() *
                       static_cast<int64_t>(std::filesystem::file_size(BigFile())));
}
BENCHMARK(BM_ImportPrepared)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ReadCheckAndImport(benchmark::State& st) {
  ImportMonitor quiet;
  for (auto _ : st) {
    st.PauseTiming();
    auto f = std::make_unique<Family>();
    st.ResumeTiming();
    const ImportFile file = PrepareImportFile(f->db.state, quiet, BigFile(), ImportMode::kImport);
    const ImportOutcome out = RunImportFile(f->db.state, quiet, file, Everything());
    if (!out.ok) st.SkipWithError("import failed");
    st.PauseTiming();
    f.reset();
    st.ResumeTiming();
  }
  st.SetBytesProcessed(st.iterations() *
                       static_cast<int64_t>(std::filesystem::file_size(BigFile())));
}
BENCHMARK(BM_ReadCheckAndImport)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kvlr::bench

BENCHMARK_MAIN();
