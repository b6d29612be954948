#include "Stress.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

extern char** environ;

namespace kvlr::stress {

Child::Child(const std::vector<std::string>& args, std::filesystem::path err_file)
    : err_file_(std::move(err_file)), started_(std::chrono::steady_clock::now()) {
  std::vector<char*> argv;
  for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, err_file_.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   0644);
  const int rc = posix_spawn(&pid_, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) {
    pid_ = -1;
    throw std::runtime_error("can't start " + args[0] + ": " + std::strerror(rc));
  }
}

Child::~Child() {
  if (pid_ > 0) Kill();
}

Exit Child::Wait() {
  Exit out;
  int status = 0;
  while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  out.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started_).count();
  if (WIFEXITED(status)) out.code = WEXITSTATUS(status);
  out.killed = WIFSIGNALED(status);
  std::ifstream in(err_file_, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  out.err = text.str();
  return out;
}

Exit Child::Kill() {
  kill(pid_, SIGKILL);
  return Wait();
}

Exit RunToEnd(const std::vector<std::string>& args, const std::filesystem::path& err_file) {
  return Child(args, err_file).Wait();
}

}  // namespace kvlr::stress
