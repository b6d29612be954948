#pragma once
// A temporary program home with one new, complete database open as state.gDb; both are
// removed when the benchmark's data goes.

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "core/AppState.h"
#include "store/Database.h"

namespace kvlr::bench {

class UnlimitedDisk final : public DiskInfo {
 public:
  std::uintmax_t FreeBytes(const std::filesystem::path&) const override { return 1ull << 40; }
};

class BenchDatabase {
 public:
  // `tag` names the temporary folder; `io` answers the program's boxes.
  BenchDatabase(const char* tag, UserIo& io)
      : root_(MakeRoot(tag)), state(ProgramHome(root_ / "home"), io, clock_, disk_) {
    state.home.Ensure();
    const std::filesystem::path file = root_ / "bench.mdb";
    if (!CreateNewDatabase(state, file)) throw std::runtime_error("create failed");
    state.gDatabaseName = file.string();
    if (!OpenLocalDB(state)) throw std::runtime_error("open failed");
    ApplyDatabaseSettings(state);
  }
  ~BenchDatabase() {
    state.CloseCurrentDB();
    std::error_code ec;
    std::filesystem::remove_all(root_, ec);
  }
  BenchDatabase(const BenchDatabase&) = delete;
  BenchDatabase& operator=(const BenchDatabase&) = delete;

 private:
  static std::filesystem::path MakeRoot(const char* tag) {
    std::string pattern =
        (std::filesystem::temp_directory_path() / (std::string("kvlr-bench-") + tag + "-XXXXXX"))
            .string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    return pattern;
  }

  std::filesystem::path root_;
  SystemClock clock_;
  UnlimitedDisk disk_;

 public:
  AppState state;
};

}  // namespace kvlr::bench
