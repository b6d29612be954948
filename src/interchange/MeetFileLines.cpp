#include "interchange/MeetFileLines.h"

#include <cerrno>
#include <cstring>

#include <fmt/format.h>

#include "core/Errors.h"

namespace kvlr {

std::string SizeLimitWords(std::uint64_t bytes) {
  constexpr std::uint64_t kMb = 1'000'000;
  if (bytes >= kMb && bytes % kMb == 0) return fmt::format("{} MB", bytes / kMb);
  return fmt::format("{} bytes", bytes);
}

std::string MeetFileTooLargeText(const std::filesystem::path& file) {
  return fmt::format("{} is larger than {}; a meet file is never that large, so it was not read.",
                     file.filename().string(), SizeLimitWords(kMaxMeetFileBytes));
}

MeetFileLines::MeetFileLines(const std::filesystem::path& file, std::uint64_t max_bytes)
    : path_(file), max_bytes_(max_bytes), buffer_(1 << 16) {
  errno = 0;
  in_.reset(std::fopen(file.c_str(), "rb"));
  if (!in_) ThrowFileError(errno ? errno : ENOENT, "Could not open", file.string());
  std::error_code ec;
  const std::uintmax_t size = std::filesystem::file_size(file, ec);
  size_ = ec ? 0 : static_cast<std::uint64_t>(size);
}

bool MeetFileLines::Fill() {
  pos_ = end_ = 0;
  const size_t got = std::fread(buffer_.data(), 1, buffer_.size(), in_.get());
  if (got == 0) {
    if (std::ferror(in_.get()))
      ThrowFileError(errno ? errno : EIO, "Could not read", path_.string());
    return false;
  }
  read_ += got;
  if (read_ > max_bytes_) {
    throw FormatError(err::kDataError,
                      fmt::format("{} grew past {} while it was read", path_.filename().string(),
                                  SizeLimitWords(max_bytes_)));
  }
  end_ = got;
  return true;
}

bool MeetFileLines::Next(std::string& line) {
  line.clear();
  if (skip_lf_) {
    skip_lf_ = false;
    if (pos_ == end_ && !Fill()) return false;
    if (buffer_[pos_] == '\n') ++pos_;
  }
  bool any = false;
  for (;;) {
    if (pos_ == end_ && !Fill()) return any;
    any = true;
    const char* from = buffer_.data() + pos_;
    const size_t left = end_ - pos_;
    const char* stop = from;
    const char* const last = from + left;
    while (stop != last && *stop != '\n' && *stop != '\r') ++stop;
    line.append(from, static_cast<size_t>(stop - from));
    pos_ += static_cast<size_t>(stop - from);
    if (stop == last) continue;
    skip_lf_ = *stop == '\r';
    ++pos_;
    return true;
  }
}

}  // namespace kvlr
