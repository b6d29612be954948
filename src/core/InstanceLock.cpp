#include "core/InstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace kvlr {

InstanceLock::InstanceLock(const std::filesystem::path& folder) {
  std::error_code ec;
  std::filesystem::create_directories(folder, ec);
  const auto file = folder / "kvl-r.lock";
  int fd = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (fd < 0) return;
  // The lock goes with the process, so a crashed run never blocks the next one.
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
    ::close(fd);
    return;
  }
  fd_ = fd;
}

InstanceLock::~InstanceLock() {
  if (fd_ >= 0) ::close(fd_);
}

}  // namespace kvlr
