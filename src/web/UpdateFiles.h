#pragma once
// The files the update and convert commands look for: a downloaded update, an update
// package (KVL-RUP.zip or a kvl-r Debian package), the converter program.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kvlr {

// KVL-RUP.zip in `folder` when it was written after `opened`; nullopt otherwise.
std::optional<std::filesystem::path> DownloadedUpdate(const std::filesystem::path& folder,
                                                      std::filesystem::file_time_type opened);

// The newest update package in `folders`: KVL-RUP.zip or kvl-r_*.deb. nullopt when none.
std::optional<std::filesystem::path> FindUpdatePackage(
    const std::vector<std::filesystem::path>& folders);

// The first executable KVL-RCONVERT (or KVL-RCONVERT.EXE) in `folders`.
std::optional<std::filesystem::path> FindConverter(
    const std::vector<std::filesystem::path>& folders);

// The kvl-r Debian package inside an update zip, extracted into `folder`; nullopt when the
// zip holds none. Throws UnzipError.
std::optional<std::filesystem::path> PackageInUpdateZip(const std::filesystem::path& zip,
                                                        const std::filesystem::path& folder);

// The folders joined for a message, one per line.
std::string FolderList(const std::vector<std::filesystem::path>& folders);

}  // namespace kvlr
