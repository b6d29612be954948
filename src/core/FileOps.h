#pragma once
// File steps that must not lose data: whole-file writes go to a temporary name and are
// renamed into place. Failures throw FileError with the errno mapped.

#include <filesystem>
#include <string>
#include <string_view>

namespace kvlr {

// Makes the folder and its parents if missing.
void MakeFolder(const std::filesystem::path& folder);

// Writes `contents` to "<target>.tmp", flushes it to disk, renames it over `target`.
void WriteFileAtomically(const std::filesystem::path& target, std::string_view contents);

// Moves `from` over `to`: a rename, or across file systems a copy beside `to` then a rename.
void ReplaceFile(const std::filesystem::path& from, const std::filesystem::path& to);

// Renames `from` to `to` unless `to` exists (then FileError with EEXIST's number).
void RenameNoReplace(const std::filesystem::path& from, const std::filesystem::path& to);

// Copies `from` to `to` (which must not exist yet) through a temporary name.
void CopyFileSafely(const std::filesystem::path& from, const std::filesystem::path& to);

// Deletes a file if it exists.
void RemoveIfExists(const std::filesystem::path& file);

// Whole text of a file; nullopt-like empty result is not used: throws FileError when unreadable.
std::string ReadWholeFile(const std::filesystem::path& file);

// Appends `text` to a file, creating it; false if it could not be written.
bool AppendToFile(const std::filesystem::path& file, std::string_view text);

}  // namespace kvlr
