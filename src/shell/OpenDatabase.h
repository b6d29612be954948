#pragma once
// File, Open/New and the last-file entries.

#include <filesystem>
#include <string>
#include <vector>

#include "core/AppState.h"

namespace kvlr {

// The checks on a chosen name: ".mdb" at the end, a "." in it, a good name of up to 20.
bool ChosenDatabaseNameOk(AppState& state, const std::filesystem::path& file);

// `file` with ".mdb" added when its name has no extension at all ("Jones" is Jones.mdb).
std::filesystem::path WithDatabaseExtension(const std::filesystem::path& file);

// A name without an extension is taken as WithDatabaseExtension gives it. Makes the file if
// it doesn't exist, then opens it and applies its settings, and puts it
// at the top of the last-file list (returned, newest first). False when refused or failed;
// the title then says no database is open.
bool OpenOrCreateDatabase(AppState& state, const std::filesystem::path& file,
                          std::vector<std::string>* last_files);

// A last-file entry: the same as opening an existing file, or "That file no longer exists."
bool OpenLastFile(AppState& state, const std::filesystem::path& file,
                  std::vector<std::string>* last_files);

}  // namespace kvlr
