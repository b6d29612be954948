#include "store/ZipArchive.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zip.h>

#include <fmt/format.h>

#include "core/Errors.h"
#include "core/RunFolder.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

// Owns a zip_error_t for the length of one report.
class ZipErrorText {
 public:
  explicit ZipErrorText(int code) { zip_error_init_with_code(&error_, code); }
  explicit ZipErrorText(const zip_error_t* error) {
    zip_error_init(&error_);
    zip_error_set(&error_, zip_error_code_zip(error), zip_error_code_system(error));
  }
  ~ZipErrorText() { zip_error_fini(&error_); }
  ZipErrorText(const ZipErrorText&) = delete;
  ZipErrorText& operator=(const ZipErrorText&) = delete;

  // Failures of the file system become FileError, everything else FormatError.
  [[noreturn]] void Throw(std::string_view what, const fs::path& file) {
    const std::string text =
        fmt::format("{} {}: {}", what, file.string(), zip_error_strerror(&error_));
    if (zip_error_system_type(&error_) == ZIP_ET_SYS && zip_error_code_system(&error_) != 0) {
      throw FileError(FileErrorNumber(zip_error_code_system(&error_)), text);
    }
    if (zip_error_code_zip(&error_) == ZIP_ER_NOENT) throw FileError(err::kFileNotFound, text);
    throw FormatError(err::kDataError, text);
  }

 private:
  zip_error_t error_;
};

struct FileCloser {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};

// A member is a plain file unless its name ends in a folder mark or its attributes say
// folder, link or device.
bool IsRegularFile(zip_t* archive, zip_uint64_t index, std::string_view name) {
  if (!name.empty() && (name.back() == '/' || name.back() == '\\')) return false;
  zip_uint8_t opsys = 0;
  zip_uint32_t attributes = 0;
  if (zip_file_get_external_attributes(archive, index, 0, &opsys, &attributes) != 0) return true;
  if (opsys == ZIP_OPSYS_UNIX) {
    const mode_t mode = attributes >> 16;
    return (mode & S_IFMT) == 0 || S_ISREG(mode);
  }
  constexpr zip_uint32_t kDosFolder = 0x10;
  return (attributes & kDosFolder) == 0;
}

fs::path Beside(const fs::path& target, const char* suffix) {
  fs::path tmp = target;
  tmp += suffix;
  return tmp;
}

}  // namespace

ZipMemberTooLarge::ZipMemberTooLarge(std::string member, std::uint64_t limit)
    : FormatError(err::kDataError,
                  fmt::format("{} would unpack to more than {} bytes", member, limit)),
      member_(std::move(member)),
      limit_(limit) {}

void ZipArchive::Closer::operator()(zip* archive) const {
  zip_discard(archive);
}

ZipArchive::ZipArchive(const fs::path& file) : file_(file) {
  int code = 0;
  zip_t* archive = zip_open(file.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &code);
  if (!archive) {
    // libzip reports a missing file without the errno behind it.
    std::error_code ec;
    if (!fs::exists(file, ec)) {
      throw FileError(err::kFileNotFound,
                      fmt::format("Can't read {}: No such file", file.string()));
    }
    ZipErrorText(code).Throw("Can't read the archive", file);
  }
  zip_.reset(archive);
  const zip_int64_t count = zip_get_num_entries(archive, 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    const auto index = static_cast<zip_uint64_t>(i);
    zip_stat_t st;
    zip_stat_init(&st);
    if (zip_stat_index(archive, index, 0, &st) != 0) {
      ZipErrorText(zip_get_error(archive)).Throw("Can't list the archive", file);
    }
    ZipMember member;
    member.name = (st.valid & ZIP_STAT_NAME) ? st.name : "";
    member.size = (st.valid & ZIP_STAT_SIZE) ? st.size : 0;
    member.mtime = (st.valid & ZIP_STAT_MTIME) ? st.mtime : 0;
    member.regular_file = IsRegularFile(archive, index, member.name);
    members_.push_back(std::move(member));
  }
}

ZipArchive::~ZipArchive() = default;

std::string ZipArchive::Comment() const {
  int length = 0;
  const char* comment = zip_get_archive_comment(zip_.get(), &length, ZIP_FL_ENC_RAW);
  return comment ? std::string(comment, static_cast<size_t>(length)) : std::string();
}

void ZipArchive::Extract(std::size_t index, const fs::path& target,
                         std::uint64_t max_bytes) const {
  if (index >= members_.size()) throw std::out_of_range("no such member");
  if (members_[index].size > max_bytes) throw ZipMemberTooLarge(members_[index].name, max_bytes);
  std::unique_ptr<zip_file_t, FileCloser> member(zip_fopen_index(zip_.get(), index, 0));
  if (!member) ZipErrorText(zip_get_error(zip_.get())).Throw("Can't extract from", file_);

  const fs::path tmp = Beside(target, ".tmp");
  const int fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) ThrowFileError(errno, "Can't write", tmp.string());
  auto fail_write = [&](int error) {
    ::close(fd);
    ::unlink(tmp.c_str());
    ThrowFileError(error, "Can't write", tmp.string());
  };

  std::array<char, 1 << 16> buffer;
  std::uint64_t written = 0;
  for (;;) {
    const zip_int64_t got = zip_fread(member.get(), buffer.data(), buffer.size());
    if (got < 0) {
      ::close(fd);
      ::unlink(tmp.c_str());
      ZipErrorText(zip_file_get_error(member.get()))
          .Throw(fmt::format("Can't extract {} from", members_[index].name), file_);
    }
    if (got == 0) break;
    // The declared size may lie: what is written is counted, not trusted.
    if (static_cast<std::uint64_t>(got) > max_bytes - written) {
      ::close(fd);
      ::unlink(tmp.c_str());
      throw ZipMemberTooLarge(members_[index].name, max_bytes);
    }
    written += static_cast<std::uint64_t>(got);
    const char* p = buffer.data();
    auto left = static_cast<size_t>(got);
    while (left > 0) {
      const ssize_t n = ::write(fd, p, left);
      if (n < 0) {
        if (errno == EINTR) continue;
        fail_write(errno);
      }
      p += n;
      left -= static_cast<size_t>(n);
    }
  }
  // The file is renamed over older ones later on; its bytes must be on disk first.
  if (::fsync(fd) != 0) fail_write(errno);
  if (::close(fd) != 0) {
    const int error = errno;
    ::unlink(tmp.c_str());
    ThrowFileError(error, "Can't write", tmp.string());
  }
  if (std::rename(tmp.c_str(), target.c_str()) != 0) {
    const int error = errno;
    ::unlink(tmp.c_str());
    ThrowFileError(error, "Can't replace", target.string());
  }
}

void ZipArchive::Create(const fs::path& target, const std::vector<ZipSource>& members,
                        std::string_view comment, int level) {
  // libzip deletes an archive closed with no members instead of writing it.
  if (members.empty()) throw std::invalid_argument("an archive needs at least one member");
  const fs::path tmp = PartFileBeside(target);
  std::error_code ec;
  fs::remove(tmp, ec);

  int code = 0;
  zip_t* archive = zip_open(tmp.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
  if (!archive) ZipErrorText(code).Throw("Can't create the archive", tmp);
  auto give_up = [&](std::string_view what, const fs::path& file) {
    ZipErrorText error(zip_get_error(archive));
    zip_discard(archive);
    fs::remove(tmp, ec);
    error.Throw(what, file);
  };

  for (const auto& m : members) {
    zip_source_t* source = zip_source_file(archive, m.file.c_str(), 0, 0);
    if (!source) give_up("Can't read", m.file);
    const zip_int64_t index = zip_file_add(archive, m.name.c_str(), source, ZIP_FL_ENC_GUESS);
    if (index < 0) {
      zip_source_free(source);
      give_up("Can't add", m.file);
    }
    if (zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE,
                                 static_cast<zip_uint32_t>(level)) != 0) {
      give_up("Can't compress", m.file);
    }
  }
  if (zip_set_archive_comment(archive, comment.data(), static_cast<zip_uint16_t>(comment.size())) !=
      0) {
    give_up("Can't write the comment of", tmp);
  }
  // The members are read and compressed here.
  if (zip_close(archive) != 0) give_up("Can't write the archive", tmp);
  if (std::rename(tmp.c_str(), target.c_str()) != 0) {
    const int error = errno;
    fs::remove(tmp, ec);
    ThrowFileError(error, "Can't replace", target.string());
  }
}

std::optional<std::string> SafeMemberBaseName(std::string_view name) {
  if (name.empty() || name.front() == '/' || name.front() == '\\') return std::nullopt;
  if (name.size() >= 2 && name[1] == ':') return std::nullopt;
  if (name.find("..") != std::string_view::npos) return std::nullopt;
  const size_t slash = name.find_last_of("/\\");
  std::string_view base = slash == std::string_view::npos ? name : name.substr(slash + 1);
  if (base.empty() || base == ".") return std::nullopt;
  return std::string(base);
}

}  // namespace kvlr
