#include "core/RunFolder.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include "core/Errors.h"
#include "core/FileOps.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view kRunPrefix = "run-";
constexpr std::string_view kPartMark = ".part-";

// Digits at `at` in `name` as a number; 0 when there are none.
long DigitsAt(const std::string& name, size_t at) {
  long value = 0;
  size_t i = at;
  for (; i < name.size() && name[i] >= '0' && name[i] <= '9' && i - at < 10; ++i) {
    value = value * 10 + (name[i] - '0');
  }
  return i == at ? 0 : value;
}

}  // namespace

RunFolder::RunFolder(const ProgramHome& home) {
  MakeFolder(home.TempDir());
  static std::atomic<int> next{0};
  for (int attempt = 0;; ++attempt) {
    fs::path candidate =
        home.TempDir() / fmt::format("{}{}-{}", kRunPrefix, static_cast<long>(::getpid()), ++next);
    if (::mkdir(candidate.c_str(), 0700) == 0) {
      path_ = std::move(candidate);
      return;
    }
    // A folder of that name left by an earlier process with the same pid is taken over.
    if (errno != EEXIST || attempt > 100) {
      ThrowFileError(errno, "Can't make the folder", candidate.string());
    }
  }
}

RunFolder::~RunFolder() {
  std::error_code ec;
  fs::remove_all(path_, ec);
}

fs::path PartFileBeside(const fs::path& target) {
  fs::path part = target;
  part += fmt::format("{}{}", kPartMark, static_cast<long>(::getpid()));
  return part;
}

bool ProcessAlive(long pid) {
  if (pid <= 0) return false;
  return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
}

long LeftoverOwner(const std::string& name) {
  if (name.rfind(kRunPrefix, 0) == 0) return DigitsAt(name, kRunPrefix.size());
  const size_t mark = name.rfind(kPartMark);
  if (mark == std::string::npos) return 0;
  return DigitsAt(name, mark + kPartMark.size());
}

int RemoveLeftovers(const ProgramHome& home, const std::vector<fs::path>& folders) {
  int removed = 0;
  auto sweep = [&](const fs::path& folder, bool run_folders) {
    std::error_code ec;
    for (auto it = fs::directory_iterator(folder, ec); !ec && it != fs::directory_iterator();
         it.increment(ec)) {
      const std::string name = it->path().filename().string();
      const bool is_run = name.rfind(kRunPrefix, 0) == 0;
      if (run_folders != is_run) continue;
      const long owner = LeftoverOwner(name);
      if (owner == 0 || owner == static_cast<long>(::getpid()) || ProcessAlive(owner)) continue;
      std::error_code gone;
      if (fs::remove_all(it->path(), gone) > 0 && !gone) ++removed;
    }
  };
  sweep(home.TempDir(), true);
  sweep(home.Root(), false);
  for (const auto& folder : folders) {
    if (!folder.empty()) sweep(folder, false);
  }
  return removed;
}

}  // namespace kvlr
