#include "core/ProgramHome.h"

#include <cstdlib>

#include "core/FileOps.h"
#include "core/RunFolder.h"
#include "core/ShippedFiles.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {
bool Set(const char* value) {
  return value != nullptr && *value != '\0';
}
}  // namespace

fs::path ProgramHome::Resolve(const char* kvlr_home, const char* xdg_data_home, const char* home) {
  if (Set(kvlr_home)) return fs::path(kvlr_home);
  if (Set(xdg_data_home)) return fs::path(xdg_data_home) / "kvl-r";
  return fs::path(Set(home) ? home : ".") / ".local" / "share" / "kvl-r";
}

ProgramHome ProgramHome::FromEnvironment() {
  return ProgramHome(
      Resolve(std::getenv("KVLR_HOME"), std::getenv("XDG_DATA_HOME"), std::getenv("HOME")));
}

fs::path ProgramHome::DefaultDataDir(const char* home) {
  return fs::path(Set(home) ? home : ".") / "KVL-R-Data";
}

fs::path ProgramHome::DefaultDataDir() {
  return DefaultDataDir(std::getenv("HOME"));
}

void ProgramHome::Ensure() const {
  MakeFolder(root_);
  MakeFolder(ReportDir());
  RemoveLeftovers(*this, {});
  std::error_code ec;
  if (fs::exists(SystemFile(), ec)) return;
  if (!fs::exists(ImportRules(), ec)) WriteFileAtomically(ImportRules(), kDefaultImportRules);
}

}  // namespace kvlr
