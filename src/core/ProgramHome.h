#pragma once
// The program home: every file the program keeps beside itself (system file, log,
// report database, printer file, import rules, temporary folders).

#include <filesystem>

namespace kvlr {

class ProgramHome {
 public:
  using path = std::filesystem::path;

  explicit ProgramHome(path root) : root_(std::move(root)) {}

  // $KVLR_HOME if set and not empty, else $XDG_DATA_HOME/kvl-r, else $HOME/.local/share/kvl-r.
  static path Resolve(const char* kvlr_home, const char* xdg_data_home, const char* home);
  // The same from this process's environment.
  static ProgramHome FromEnvironment();
  // Where user data go by default: $HOME/KVL-R-Data.
  static path DefaultDataDir(const char* home);
  static path DefaultDataDir();

  // Makes the folder and Reports/ if missing and removes what runs that died left in it
  // (see RunFolder). In a home that has no system file yet the
  // shipped files that are missing are written. Throws FileError when the folder can't be made.
  void Ensure() const;

  const path& Root() const { return root_; }
  path SystemFile() const { return root_ / "KVL-Rsys.mdb"; }
  path ReportDir() const { return root_ / "Reports"; }
  path ReportDb() const { return ReportDir() / "KVLReports.MDB"; }
  path NewReportDb() const { return ReportDir() / "KVLNEWRPT.MDB"; }
  path PrintFile() const { return root_ / "KVL-Rprint.mem"; }
  path Log() const { return root_ / "KVLError.Log"; }
  path ImportRules() const { return root_ / "KVL-Rimprul.txt"; }
  path TempDir() const { return root_ / "KVL-RTemp"; }

 private:
  path root_;
};

}  // namespace kvlr
