#pragma once
// Typed failures of the store, of files and of formats. Each carries the run-time
// error number that the message table and the log speak of.

#include <stdexcept>
#include <string>

namespace kvlr {

// Error numbers the message table knows, named by what they mean here.
namespace err {
inline constexpr int kDataError = 13;
inline constexpr int kFileNotFound = 53;
inline constexpr int kFileAlreadyOpen = 55;
inline constexpr int kDiskIo = 57;
inline constexpr int kDiskFull = 61;
inline constexpr int kBadFileName = 64;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kAppData = 91;
inline constexpr int kDuplicateKey = 3022;
inline constexpr int kFileInUse = 3045;
inline constexpr int kDamagedFile = 3049;
inline constexpr int kFieldTooLong = 3163;
inline constexpr int kStoreOther = 3146;
}  // namespace err

class KvlError : public std::runtime_error {
 public:
  KvlError(int number, const std::string& text) : std::runtime_error(text), number_(number) {}
  int Number() const { return number_; }

 private:
  int number_;
};

// The store refused or failed (SQLite codes mapped onto the table's numbers).
class StoreError : public KvlError {
 public:
  using KvlError::KvlError;
};

// A file or folder could not be read, written, renamed or made.
class FileError : public KvlError {
 public:
  using KvlError::KvlError;
};

// A file's contents are not what its format says.
class FormatError : public KvlError {
 public:
  using KvlError::KvlError;
};

// Maps an errno value onto the table's file numbers.
int FileErrorNumber(int errno_value);
// Maps an SQLite result code (primary or extended) onto the table's numbers.
int StoreErrorNumber(int sqlite_code);

// The number of any exception: KvlError's own; SQLite's mapped; else 0.
int ErrorNumberOf(const std::exception& e);

// Throws FileError for errno `errno_value`, naming the file in the text.
[[noreturn]] void ThrowFileError(int errno_value, const std::string& what, const std::string& path);

}  // namespace kvlr
