// `kvlr check` of a big meet file: the file read, each line measured and its check sum
// tested, then the certification pass, as the Import/Export Files Report runs it (no
// database). Also the pass over lines already read, and an SDIF file whose fields are all
// tested.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "BigMeetFile.h"
#include "SilentIo.h"
#include "core/AppState.h"
#include "interchange/ImportPrepare.h"
#include "interchange/SdifCertify.h"

namespace kvlr::bench {
namespace {

namespace fs = std::filesystem;

class RoomyDisk final : public DiskInfo {
 public:
  std::uintmax_t FreeBytes(const fs::path&) const override { return 1ull << 40; }
};

struct TempFolder {
  fs::path root = fs::temp_directory_path() / "kvlr-bench-check";
  TempFolder() { fs::create_directories(root); }
  ~TempFolder() {
    std::error_code ec;
    fs::remove_all(root, ec);
  }
};

// The 50 MB Commlink file, and an 8 MB plain SDIF file (no check sums): the Z0's counts
// are 16-bit numbers, so an SDIF file beyond 32767 swims cannot pass.
struct Files {
  TempFolder folder;
  fs::path cl2 = folder.root / "bigmeet.cl2";
  fs::path sd3 = folder.root / "bigmeet.sd3";
  std::uintmax_t cl2_bytes = 0, sd3_bytes = 0;
  std::vector<std::string> lines = BigMeetFile::Lines(50);
  Files() {
    BigMeetFile::Write(cl2, lines);
    std::vector<std::string> plain = BigMeetFile::Lines(8);
    for (std::string& line : plain) line.replace(158, 2, "  ");
    BigMeetFile::Write(sd3, plain);
    cl2_bytes = fs::file_size(cl2);
    sd3_bytes = fs::file_size(sd3);
  }
};

Files& TheFiles() {
  static Files files;
  return files;
}

struct Program {
  SilentIo io;
  SystemClock clock;
  RoomyDisk disk;
  AppState state{ProgramHome(TheFiles().folder.root / "home"), io, clock, disk};
};

void Prepare(benchmark::State& bench, const fs::path& file, std::uintmax_t bytes) {
  Program program;
  ImportMonitor quiet;
  for (auto _ : bench) {
    const ImportFile prepared = PrepareImportFile(program.state, quiet, file, ImportMode::kReport);
    if (!prepared.ready) bench.SkipWithError("the file did not pass");
    benchmark::DoNotOptimize(prepared.lines.data());
  }
  bench.SetBytesProcessed(static_cast<int64_t>(bench.iterations() * bytes));
}

void BM_CheckCommlinkFile(benchmark::State& bench) {
  Prepare(bench, TheFiles().cl2, TheFiles().cl2_bytes);
}
BENCHMARK(BM_CheckCommlinkFile)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_CheckSdifFile(benchmark::State& bench) {
  Prepare(bench, TheFiles().sd3, TheFiles().sd3_bytes);
}
BENCHMARK(BM_CheckSdifFile)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_SdifCheckPassOnly(benchmark::State& bench) {
  SilentIo io;
  ImportMonitor quiet;
  const auto& lines = TheFiles().lines;
  for (auto _ : bench) {
    const SdifCheckResult r = SDIFCheck(lines, false, ".CL2", true, 0, nullptr, quiet, io);
    if (!r.ok) bench.SkipWithError("the pass failed");
  }
  bench.SetBytesProcessed(static_cast<int64_t>(bench.iterations() * TheFiles().cl2_bytes));
}
BENCHMARK(BM_SdifCheckPassOnly)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kvlr::bench

BENCHMARK_MAIN();
