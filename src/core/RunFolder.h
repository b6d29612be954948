#pragma once
// Private working files of one run. Two runs (two processes, or a crash and the next start)
// never share a temporary file: each run works in a fresh folder "run-<pid>-<n>" inside the
// program home's KVL-RTemp, and a temporary file beside a target carries the owner's pid
// ("<target>.part-<pid>"). What a killed run left is recognised by those names and removed
// by RemoveLeftovers once its process is gone.

#include <filesystem>
#include <string>
#include <vector>

#include "core/ProgramHome.h"

namespace kvlr {

class RunFolder {
 public:
  // Makes a fresh folder inside home.TempDir(); throws FileError when it can't.
  explicit RunFolder(const ProgramHome& home);
  // Removes the folder with everything in it.
  ~RunFolder();
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// "<target>.part-<pid>": a temporary name beside `target` on the same file system, so the
// finished file reaches `target` by a rename.
std::filesystem::path PartFileBeside(const std::filesystem::path& target);

// True while a process with this id exists.
bool ProcessAlive(long pid);

// The pid a leftover name carries ("run-<pid>-<n>" or "...part-<pid>..."); 0 for other names.
long LeftoverOwner(const std::string& file_name);

// Removes run folders of KVL-RTemp and part files in `folders` (not their sub-folders) whose
// owner is gone; missing folders are skipped and nothing is ever thrown. The number removed.
int RemoveLeftovers(const ProgramHome& home, const std::vector<std::filesystem::path>& folders);

}  // namespace kvlr
