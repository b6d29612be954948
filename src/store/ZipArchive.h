#pragma once
// Zip archives through libzip: reading members and the archive comment, extracting one member,
// and writing a new archive from files. Failures throw FileError (the file system refused:
// missing, unreadable, no room) or FormatError (not a zip, or damaged), with libzip's text.

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Errors.h"

struct zip;

namespace kvlr {

// No limit on what a member may unpack to.
inline constexpr std::uint64_t kNoUnpackLimit = UINT64_MAX;

// A member that would unpack to more than Extract's limit allows.
class ZipMemberTooLarge : public FormatError {
 public:
  ZipMemberTooLarge(std::string member, std::uint64_t limit);
  const std::string& Member() const { return member_; }
  std::uint64_t Limit() const { return limit_; }

 private:
  std::string member_;
  std::uint64_t limit_;
};

struct ZipMember {
  std::string name;          // as stored, folders included
  std::uint64_t size = 0;    // bytes once extracted
  std::time_t mtime = 0;     // the member's time as libzip reads it (seconds since the epoch)
  bool regular_file = true;  // false for folder entries, links and other special entries
};

// One file written into an archive: `name` is the member name, `file` where the bytes come from.
struct ZipSource {
  std::string name;
  std::filesystem::path file;
};

// An archive open for reading; closed when destroyed.
class ZipArchive {
 public:
  // Opens and reads the member list. Throws FileError when the file can't be read, FormatError
  // when it isn't a zip archive or its directory is damaged.
  explicit ZipArchive(const std::filesystem::path& file);
  ~ZipArchive();
  ZipArchive(const ZipArchive&) = delete;
  ZipArchive& operator=(const ZipArchive&) = delete;

  const std::filesystem::path& File() const { return file_; }
  // The archive comment as stored (its bytes unchanged); "" when there is none.
  std::string Comment() const;
  // Members in the order the archive lists them.
  const std::vector<ZipMember>& Members() const { return members_; }

  // Writes member `index` to `target`, replacing a file of that name. Damaged member data
  // (a bad checksum included) throws FormatError, a failed write FileError; either way no
  // partial file is left at `target`. A member whose declared size is above `max_bytes` is
  // refused before anything is written, and one that unpacks to more than it declared is
  // stopped once `max_bytes` are written: both throw ZipMemberTooLarge.
  void Extract(std::size_t index, const std::filesystem::path& target,
               std::uint64_t max_bytes = kNoUnpackLimit) const;

  // Writes a new archive of `members` with `comment`, compressed with deflate at `level`
  // (1 fastest .. 9 smallest), to "<target>.part-<pid>" and renames it over `target`. On failure
  // `target` is as it was and the temporary file is gone.
  static void Create(const std::filesystem::path& target, const std::vector<ZipSource>& members,
                     std::string_view comment, int level);

 private:
  struct Closer {
    void operator()(zip* archive) const;
  };
  std::filesystem::path file_;
  std::unique_ptr<zip, Closer> zip_;
  std::vector<ZipMember> members_;
};

// The file name a member may be extracted under: the part after its last '/' or '\'.
// nullopt for names that could leave the folder they are extracted into: absolute names,
// a drive letter, a ".." anywhere in the name, an empty or "." last part.
std::optional<std::string> SafeMemberBaseName(std::string_view name);

}  // namespace kvlr
