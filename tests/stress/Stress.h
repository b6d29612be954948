#pragma once
// Runs of kvlr as child processes, made-up meet files to feed them and what is looked at
// after a kill or a race. The checks return the words of what is wrong, empty when all is
// well; none of them throws.

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kvlr::stress {

struct Exit {
  int code = -1;  // exit status; -1 when a signal ended the run
  bool killed = false;
  std::string err;  // what the run wrote to stderr
  double seconds = 0;
};

class Child {
 public:
  // Starts args[0] (a path) with the rest as its arguments; stderr goes to `err_file`.
  // Throws std::runtime_error when the process can't be started.
  Child(const std::vector<std::string>& args, std::filesystem::path err_file);
  // Kills a run that was never waited for, so no child outlives the program.
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  pid_t Pid() const { return pid_; }
  Exit Wait();
  // SIGKILL, then Wait(); a run that had already ended keeps its own status.
  Exit Kill();

 private:
  pid_t pid_ = -1;
  std::filesystem::path err_file_;
  std::chrono::steady_clock::time_point started_;
};

// Runs to the end.
Exit RunToEnd(const std::vector<std::string>& args, const std::filesystem::path& err_file);

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

// A Commlink results file of one meet starting on `start` (MMDDYYYY): `swims` events of
// the family's swimmer, each with a prelim and a final, among `strangers` swims of others.
std::string MeetText(std::string_view meet_name, std::string_view start, int swims, int strangers);

// Writes `text` to `file`; throws std::runtime_error when it can't.
void WriteFile(const std::filesystem::path& file, const std::string& text);

// A zip at `zip` holding `text` as its one member `member`; throws std::runtime_error
// with libzip's words when the archive can't be written.
void WriteZip(const std::filesystem::path& zip, const std::string& member, const std::string& text);

}  // namespace kvlr::stress
