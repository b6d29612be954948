#pragma once
// One run of a program as a child process: stdin and stdout on /dev/null, stderr kept in
// a file so a failure report can quote it.

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
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

}  // namespace kvlr::stress
