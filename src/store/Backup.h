#pragma once
// Backups of the user database as zip archives (the database and its two workout-note files,
// no folders, a marked comment) and their restore. Questions and reports go through state.io.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

// Length of every archive comment, in characters.
inline constexpr int kBackupCommentLength = 160;
// Longest user comment kept in it.
inline constexpr int kBackupCommentText = 150;
// Slots of the silent archives of one database.
inline constexpr int kSilentSlots = 5;

struct BackupTarget {
  std::filesystem::path path;
  bool exists = false;  // true only when all 99 names are taken: "-01" is to be overwritten
};

// folder / "KVL-RBkup" + short name + "-NN.zip" with the first NN from 01 to 99 that is free;
// when none is, "-01" with `exists` set.
BackupTarget BackupName(const std::filesystem::path& folder, std::string_view short_name);

// "KVLR" + the first 150 characters of `text` + blanks: 160 characters (UTF-8 code points).
std::string BackupComment(std::string_view text);

// The names of the workout-note files that go with a database file.
std::filesystem::path WorkoutNotesFile(const std::filesystem::path& database);
std::filesystem::path WorkoutModelNotesFile(const std::filesystem::path& database);

// The backup of the open database (gDatabaseName) into `folder`, as the Backup button runs it:
// the overwrite question, the confirmation, the room check against state.disk (free Kbytes
// less the database's Kbytes must exceed 1000), the archive, the report. The archive path
// on success; nullopt when the user said No, room was short or writing failed (told).
std::optional<std::filesystem::path> BackupDatabase(AppState& state,
                                                    const std::filesystem::path& folder,
                                                    std::string_view comment);

// The archive SilentBackup writes for a database: the database's folder +
// "KVL-RArchive-" + name + "-0N.zip". N is 1 with no archive yet, the first free digit with
// fewer than five, else that of the oldest archive by file time (ties: the first by name).
std::filesystem::path SilentArchiveName(const std::filesystem::path& database);

// Archives `database` (and its notes) under SilentArchiveName with the comment
// "KVLR" + "Silent Backup", asking nothing. The database should not be open for writing.
// False (told and logged) on failure; an archive of that name stays as it was.
bool SilentBackup(AppState& state, const std::filesystem::path& database);

// What the restore screen shows of an archive, and what the restore needs of it.
struct BackupInfo {
  std::filesystem::path zip;
  std::string database_member;  // the first member ending "MDB" in any case, as stored
  DateTime created;             // that member's time
  std::uint64_t total_bytes = 0;

  std::string file_name_text;  // "Backup File Name": the archive's path, shortened
  std::string database_text;   // "Backed up Database Name"
  std::string created_text;    // "Long Date at Long Time"
  std::string size_text;       // "###.## megabytes"
  std::string comments;        // the comment from its fifth character, trimmed
};

// A path text as the screen shows it: over 60 characters, its first three + "..." + its
// last 60.
std::string ShortPathText(std::string_view text);
// Bytes as megabytes (2^20) in VB's "###.##": no leading zero, no trailing zeros in the
// decimals, the point always ("2." for 2, ".5" for a half, "." for nothing).
std::string MegabytesText(std::uint64_t bytes);

// Reads an archive chosen for restore. nullopt (the user told) when the name doesn't end
// "ZIP", the archive can't be read, its comment doesn't start "KVL", or no member is a
// database.
std::optional<BackupInfo> LoadBackupInfo(AppState& state, const std::filesystem::path& zip);

enum class RestoreOption { kReplaceOpen, kCurrentFolder, kSelectedFolder };

// True when the archived database has the open database's name.
bool SameAsOpenDatabase(const AppState& state, const BackupInfo& info);

// The file a restore writes: the open database for kReplaceOpen; else the folder (the open
// database's for kCurrentFolder) + the new name, or the archived name when that is empty, +
// ".MDB" (an existing file whose name differs only in case is that file). Empty when
// kReplaceOpen has no database open.
std::filesystem::path RestoreTargetPath(const AppState& state, const BackupInfo& info,
                                        RestoreOption option, const std::filesystem::path& folder,
                                        std::string_view new_name);

// Restores the archive: checks the choices, closes gDb, extracts into the program's temporary
// folder, checks that the file is a database of this system, asks before overwriting (and
// then archives the old file with SilentBackup), renames the new files into place, reports.
// `folder` is used by kSelectedFolder; `new_name` and `open_after` by the last two options.
// On success the restored file when it replaced the open one or `open_after` is set, else the
// database open before is open again; after a failure or a No, the database open before.
// The restored path on success, nullopt otherwise (told; an existing target is untouched).
std::optional<std::filesystem::path> RestoreDatabase(AppState& state,
                                                     const std::filesystem::path& zip,
                                                     const BackupInfo& info, RestoreOption option,
                                                     const std::filesystem::path& folder,
                                                     std::string_view new_name, bool open_after);

}  // namespace kvlr
