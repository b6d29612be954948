#include "core/Errors.h"

#include <cerrno>
#include <cstring>

#include <SQLiteCpp/Exception.h>
#include <fmt/format.h>
#include <sqlite3.h>

namespace kvlr {

int FileErrorNumber(int errno_value) {
  switch (errno_value) {
    case ENOENT:
      return err::kFileNotFound;
    case ENOTDIR:
      return err::kPathNotFound;
    case ENOSPC:
    case EDQUOT:
      return err::kDiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
      return err::kPermissionDenied;
    case ENAMETOOLONG:
      return err::kBadFileName;
    case EBUSY:
    case ETXTBSY:
      return err::kFileAlreadyOpen;
    case EIO:
      return err::kDiskIo;
    default:
      return err::kPathAccess;
  }
}

int StoreErrorNumber(int sqlite_code) {
  switch (sqlite_code & 0xff) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return err::kDamagedFile;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return err::kFileInUse;
    case SQLITE_FULL:
      return err::kDiskFull;
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return err::kPermissionDenied;
    case SQLITE_CANTOPEN:
      return err::kPathNotFound;
    case SQLITE_IOERR:
      return err::kDiskIo;
    case SQLITE_CONSTRAINT:
      if (sqlite_code == SQLITE_CONSTRAINT_CHECK) return err::kFieldTooLong;
      return err::kDuplicateKey;
    case SQLITE_MISMATCH:
      return err::kDataError;
    default:
      return err::kStoreOther;
  }
}

int ErrorNumberOf(const std::exception& e) {
  if (auto k = dynamic_cast<const KvlError*>(&e)) return k->Number();
  if (auto s = dynamic_cast<const SQLite::Exception*>(&e)) {
    return StoreErrorNumber(s->getExtendedErrorCode());
  }
  return 0;
}

void ThrowFileError(int errno_value, const std::string& what, const std::string& path) {
  if (errno_value == ENOSPC || errno_value == EDQUOT) {
    throw FileError(
        err::kDiskFull,
        fmt::format("{} {}: the disk is full. Free some space and try again.", what, path));
  }
  throw FileError(FileErrorNumber(errno_value),
                  fmt::format("{} {}: {}", what, path, std::strerror(errno_value)));
}

}  // namespace kvlr
