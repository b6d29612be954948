#pragma once
// Unpacking a zip into a working folder: the folder is emptied first, then the chosen
// members are written under their base names (members whose names could leave the folder
// are passed over). Used by the event import and by frmUnZip.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kvlr {

inline constexpr std::string_view kUnZipTitle = "UnZIP File";
inline constexpr std::string_view kNotValidFilename = "Not a valid filename";
inline constexpr std::string_view kUnZipDeleteWarning = "This will delete everything in the ";
inline constexpr std::string_view kUnZipDirectory = " directory.";
inline constexpr std::string_view kUnZipContinueAsk = "Do you still wish to continue?";
inline constexpr std::string_view kUnZipError = "There was an error Unzipping the file.  Error: ";
inline constexpr std::string_view kUnZipSuccess = "Successfully Unzipped to ";

// True when `file`'s name ends in `extension` (".zip", case ignored).
bool HasExtension(const std::filesystem::path& file, std::string_view extension);

// The question frmUnZip asks before it empties `folder`.
std::string UnZipWarningText(const std::filesystem::path& folder);

// Empties `folder` (made when missing), then extracts each regular member whose name ends
// in one of `extensions` (case ignored; an empty list takes every member). Returns the
// files written, in archive order. Throws FileError or FormatError (ZipArchive's texts).
std::vector<std::filesystem::path> ExtractZipInto(const std::filesystem::path& zip,
                                                  const std::filesystem::path& folder,
                                                  const std::vector<std::string>& extensions);

struct UnZipOutcome {
  bool ok = false;
  std::string message;  // the box: success or the error with its text
  std::vector<std::filesystem::path> files;
};

// frmUnZip's work after its question: every member ("*.*") into `folder`.
UnZipOutcome UnZipFile(const std::filesystem::path& zip, const std::filesystem::path& folder);

}  // namespace kvlr
