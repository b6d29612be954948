#include "core/FileOps.h"

#include <cerrno>
#include <cstdio>
#include <fstream>

#include <fcntl.h>
#include <unistd.h>

#include "core/Errors.h"

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

fs::path TempBeside(const fs::path& target) {
  fs::path tmp = target;
  tmp += ".tmp";
  return tmp;
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
  fs::path tmp = TempBeside(to);
  std::error_code ec;
  fs::copy_file(from, tmp, fs::copy_options::overwrite_existing, ec);
  if (ec) {
    fs::remove(tmp, ec);
    ThrowFileError(ec.value(), "Can't copy to", tmp.string());
  }
  if (std::rename(tmp.c_str(), to.c_str()) != 0) {
    int e = errno;
    fs::remove(tmp, ec);
    ThrowFileError(e, "Can't replace", to.string());
  }
  fs::remove(from, ec);
}

void CopyFileSafely(const fs::path& from, const fs::path& to) {
  fs::path tmp = TempBeside(to);
  std::error_code ec;
  fs::copy_file(from, tmp, fs::copy_options::overwrite_existing, ec);
  if (ec) {
    fs::remove(tmp, ec);
    ThrowFileError(ec.value(), "Can't copy to", to.string());
  }
  if (std::rename(tmp.c_str(), to.c_str()) != 0) {
    int e = errno;
    fs::remove(tmp, ec);
    ThrowFileError(e, "Can't copy to", to.string());
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
