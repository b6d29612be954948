#pragma once
// The clock and the disk as core code sees them, so tests can fix both.

#include <cstdint>
#include <filesystem>

#include "core/Date.h"

namespace kvlr {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime Now() const = 0;
  Date Today() const { return Now().date; }
};

// Local time of the machine.
class SystemClock final : public Clock {
 public:
  DateTime Now() const override;
};

// A clock that stands still until moved; for tests and repeatable runs.
class FixedClock final : public Clock {
 public:
  explicit FixedClock(DateTime now) : now_(now) {}
  DateTime Now() const override { return now_; }
  void Set(DateTime now) { now_ = now; }

 private:
  DateTime now_;
};

class DiskInfo {
 public:
  virtual ~DiskInfo() = default;
  // Bytes free for this user on the file system holding `path` (or its nearest existing parent).
  virtual std::uintmax_t FreeBytes(const std::filesystem::path& path) const = 0;
};

class SystemDiskInfo final : public DiskInfo {
 public:
  std::uintmax_t FreeBytes(const std::filesystem::path& path) const override;
};

}  // namespace kvlr
