#pragma once
// Reading a meet file line by line, so that the lines the caller keeps are its only copy.
// LF, CR LF and a lone CR each end a line (files pass through programs of every platform);
// the end of the file ends the last line. A meet file is never large: one above
// kMaxMeetFileBytes is refused before it is read or unpacked.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvlr {

inline constexpr std::uint64_t kMaxMeetFileBytes = 100'000'000;

// "100 MB", "1000 bytes": a size limit in words.
std::string SizeLimitWords(std::uint64_t bytes);

// The refusal of a file above kMaxMeetFileBytes, named by its file name.
std::string MeetFileTooLargeText(const std::filesystem::path& file);

class MeetFileLines {
 public:
  // Opens `file`; throws FileError when it can't. Reading stops with FormatError once more
  // than `max_bytes` were read (a file that grows while it is read).
  explicit MeetFileLines(const std::filesystem::path& file,
                         std::uint64_t max_bytes = kMaxMeetFileBytes);
  MeetFileLines(const MeetFileLines&) = delete;
  MeetFileLines& operator=(const MeetFileLines&) = delete;

  // The file's size when it was opened, in bytes.
  std::uint64_t Size() const { return size_; }

  // The next line into `line`, without its end; false after the last line. Throws FileError
  // when the file can't be read.
  bool Next(std::string& line);

 private:
  struct Closer {
    void operator()(std::FILE* f) const { std::fclose(f); }
  };
  bool Fill();

  std::filesystem::path path_;
  std::unique_ptr<std::FILE, Closer> in_;
  std::uint64_t size_ = 0;
  std::uint64_t max_bytes_;
  std::uint64_t read_ = 0;
  std::vector<char> buffer_;
  size_t pos_ = 0, end_ = 0;
  bool skip_lf_ = false;  // the last line ended with CR: an LF right behind it belongs to it
};

}  // namespace kvlr
