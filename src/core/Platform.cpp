#include "core/Platform.h"

#include <ctime>

namespace kvlr {

DateTime SystemClock::Now() const {
  std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  return DateTime{Date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}, local.tm_hour,
                  local.tm_min, local.tm_sec};
}

std::uintmax_t SystemDiskInfo::FreeBytes(const std::filesystem::path& path) const {
  std::filesystem::path probe = path;
  std::error_code ec;
  while (!probe.empty() && !std::filesystem::exists(probe, ec)) probe = probe.parent_path();
  if (probe.empty()) probe = ".";
  auto space = std::filesystem::space(probe, ec);
  return ec ? 0 : space.available;
}

}  // namespace kvlr
