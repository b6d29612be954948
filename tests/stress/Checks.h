#pragma once
// What the stress runs look at after a kill or a race. Each check returns the words of
// what is wrong, empty when all is well; none of them throws.

#include <filesystem>
#include <string>
#include <vector>

namespace kvlr::stress {

// PRAGMA integrity_check of a database opened read-write, so a journal a killed run left
// is rolled back first, as the next real start would.
std::string IntegrityProblem(const std::filesystem::path& db);

// Row counts of every table, "ATHLETE 4, MEET 1, ..." by table name: two databases with
// the same text hold the same state as far as an all-or-nothing check can tell. The words
// of the error when the file can't be read.
std::string RowCounts(const std::filesystem::path& db);

// The first column of the first row of `sql`, as text; the error's words on failure.
std::string QueryText(const std::filesystem::path& db, const std::string& sql);

// A readable zip (consistent directory, every byte read with its CRC) with at least one
// *.mdb member, each passing IntegrityProblem once extracted to `scratch`.
std::string ZipProblem(const std::filesystem::path& zip, const std::filesystem::path& scratch);

// Files named KVL-RBkup*.zip or KVL-RArchive*.zip directly in `folders`.
std::vector<std::filesystem::path> Archives(const std::vector<std::filesystem::path>& folders);

// What a dead run must not leave: "*.part-*" files and KVLNEW.MDB in `folders` and the
// home, run-* folders in home/KVL-RTemp. The paths found.
std::vector<std::string> Leftovers(const std::filesystem::path& home,
                                   std::vector<std::filesystem::path> folders);

}  // namespace kvlr::stress
