#pragma once
// One running copy of the program per program home.

#include <filesystem>

namespace kvlr {

class InstanceLock {
 public:
  // Tries to take the lock file in `folder`; Held() tells whether this run got it.
  explicit InstanceLock(const std::filesystem::path& folder);
  ~InstanceLock();
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;

  bool Held() const { return fd_ >= 0; }

 private:
  int fd_ = -1;
};

inline constexpr const char* kAlreadyRunning = "KVL-R is already running.";

}  // namespace kvlr
