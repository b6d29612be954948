#pragma once
// Unpacking a zip into a folder of its own: the chosen members are written under their base
// names (members whose names could leave the folder are passed over) and nothing that was
// in the folder before is touched. No member may unpack to more than a meet file ever holds.
// Used by the result and event imports (into a private RunFolder) and by frmUnZip.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/Errors.h"
#include "interchange/MeetFileLines.h"

namespace kvlr {

inline constexpr std::string_view kUnZipTitle = "UnZIP File";
inline constexpr std::string_view kNotValidFilename = "Not a valid filename";
inline constexpr std::string_view kUnZipError = "There was an error Unzipping the file.  Error: ";
inline constexpr std::string_view kUnZipSuccess = "Successfully Unzipped to ";

// A zip that could not be unpacked. what() holds words for the user: what happened, to
// which file, and what to do about it.
class UnzipError : public KvlError {
 public:
  using KvlError::KvlError;
};

// True when `file`'s name ends in `extension` (".zip", case ignored).
bool HasExtension(const std::filesystem::path& file, std::string_view extension);

// Extracts into `folder` (made when missing) each regular member whose name ends in one of
// `extensions` (case ignored; an empty list takes every member). Returns the files written,
// in archive order. A member that declares more than `max_member_bytes` refuses the whole
// zip before anything is written; one that unpacks to more than it declared is stopped at
// the limit. Throws UnzipError (files written before a failure stay; the caller owns the
// folder).
std::vector<std::filesystem::path> ExtractZipInto(
    const std::filesystem::path& zip, const std::filesystem::path& folder,
    const std::vector<std::string>& extensions, std::uint64_t max_member_bytes = kMaxMeetFileBytes);

struct UnZipOutcome {
  bool ok = false;
  std::string message;           // the box: success or the error with its words
  std::filesystem::path folder;  // where the files went (the folder is gone on failure)
  std::vector<std::filesystem::path> files;
};

// frmUnZip's work: every member ("*.*") into a new folder made for this zip alone inside
// `parent`, named after the zip ("county" for county.zip, then "county-2", ...), so that
// the user can browse the files later and no other run's files are ever touched.
UnZipOutcome UnZipFile(const std::filesystem::path& zip, const std::filesystem::path& parent);

}  // namespace kvlr
