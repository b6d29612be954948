#include "core/FileOps.h"

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "core/Errors.h"
#include "core/RunFolder.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

// Writes all bytes to a fresh file and syncs it; the errno of a failure is thrown.
void WriteAndSync(const fs::path& file, std::string_view contents) {
  int fd = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) ThrowFileError(errno, "Can't write", file.string());
  const char* p = contents.data();
  size_t left = contents.size();
  while (left > 0) {
    ssize_t n = ::write(fd, p, left);
    if (n < 0) {
      if (errno == EINTR) continue;
      int e = errno;
      ::close(fd);
      ::unlink(file.c_str());
      ThrowFileError(e, "Can't write", file.string());
    }
    p += n;
    left -= static_cast<size_t>(n);
  }
  if (::fsync(fd) != 0 || ::close(fd) != 0) {
    int e = errno;
    ::unlink(file.c_str());
    ThrowFileError(e, "Can't write", file.string());
  }
}

// Named by this run, so what a killed run leaves is known for a leftover.
fs::path TempBeside(const fs::path& target) {
  return PartFileBeside(target);
}

// Copies the bytes of `from` into the new file `to` and syncs it; FileError with the errno of
// the failing step (a full disk included), `to` removed.
void CopyAndSync(const fs::path& from, const fs::path& to) {
  const int in = ::open(from.c_str(), O_RDONLY | O_CLOEXEC);
  if (in < 0) ThrowFileError(errno, "Can't read", from.string());
  const int out = ::open(to.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (out < 0) {
    const int e = errno;
    ::close(in);
    ThrowFileError(e, "Can't write", to.string());
  }
  auto fail = [&](int e, const char* what, const fs::path& file) {
    ::close(in);
    ::close(out);
    ::unlink(to.c_str());
    ThrowFileError(e, what, file.string());
  };
  std::vector<char> buffer(1 << 16);
  for (;;) {
    const ssize_t got = ::read(in, buffer.data(), buffer.size());
    if (got < 0) {
      if (errno == EINTR) continue;
      fail(errno, "Can't read", from);
    }
    if (got == 0) break;
    const char* p = buffer.data();
    auto left = static_cast<size_t>(got);
    while (left > 0) {
      const ssize_t n = ::write(out, p, left);
      if (n < 0) {
        if (errno == EINTR) continue;
        fail(errno, "Can't write", to);
      }
      p += n;
      left -= static_cast<size_t>(n);
    }
  }
  if (::fsync(out) != 0) fail(errno, "Can't write", to);
  ::close(in);
  if (::close(out) != 0) {
    const int e = errno;
    ::unlink(to.c_str());
    ThrowFileError(e, "Can't write", to.string());
  }
}

}  // namespace

void MakeFolder(const fs::path& folder) {
  std::error_code ec;
  if (fs::is_directory(folder, ec)) return;
  fs::create_directories(folder, ec);
  if (ec) ThrowFileError(ec.value(), "Can't make the folder", folder.string());
}

void WriteFileAtomically(const fs::path& target, std::string_view contents) {
  fs::path tmp = TempBeside(target);
  WriteAndSync(tmp, contents);
  if (std::rename(tmp.c_str(), target.c_str()) != 0) {
    int e = errno;
    ::unlink(tmp.c_str());
    ThrowFileError(e, "Can't replace", target.string());
  }
}

void ReplaceFile(const fs::path& from, const fs::path& to) {
  if (std::rename(from.c_str(), to.c_str()) == 0) return;
  if (errno != EXDEV) ThrowFileError(errno, "Can't replace", to.string());
  CopyFileSafely(from, to);
  std::error_code ec;
  fs::remove(from, ec);
}

void RenameNoReplace(const fs::path& from, const fs::path& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
  if (errno != EINVAL && errno != ENOSYS) ThrowFileError(errno, "Can't rename to", to.string());
  // File systems without the flag: a link fails the same way on an existing name.
  if (::link(from.c_str(), to.c_str()) != 0) ThrowFileError(errno, "Can't rename to", to.string());
  ::unlink(from.c_str());
}

void CopyFileSafely(const fs::path& from, const fs::path& to) {
  const fs::path tmp = TempBeside(to);
  CopyAndSync(from, tmp);
  if (std::rename(tmp.c_str(), to.c_str()) != 0) {
    const int e = errno;
    ::unlink(tmp.c_str());
    ThrowFileError(e, "Can't replace", to.string());
  }
}

void RemoveIfExists(const fs::path& file) {
  std::error_code ec;
  fs::remove(file, ec);
  if (ec) ThrowFileError(ec.value(), "Can't delete", file.string());
}

std::string ReadWholeFile(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) ThrowFileError(errno ? errno : ENOENT, "Can't read", file.string());
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool AppendToFile(const fs::path& file, std::string_view text) {
  std::ofstream out(file, std::ios::app | std::ios::binary);
  if (!out) return false;
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  return !out.fail();
}

}  // namespace kvlr
