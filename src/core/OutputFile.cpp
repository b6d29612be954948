#include "core/OutputFile.h"

#include <fstream>
#include <string>

#include <fmt/format.h>

#include "core/VbRules.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

bool SameFile(const fs::path& a, const std::string& b) {
  if (b.empty()) return false;
  std::error_code ec;
  return fs::equivalent(a, b, ec);
}

// The first bytes of a file; fewer when it is short or can't be read.
std::string Opening(const fs::path& file, size_t count) {
  std::ifstream in(file, std::ios::binary);
  std::string bytes(count, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<size_t>(in.gcount()));
  return bytes;
}

bool Refuse(AppState& state, const fs::path& file, std::string_view what, const OutputKind& kind) {
  state.io->Tell(
      fmt::format("{} is {}, not {}; choose another name.", file.string(), what, kind.noun));
  return false;
}

}  // namespace

bool OutputFileOk(AppState& state, const fs::path& file, const OutputKind& kind,
                  bool already_asked) {
  std::error_code ec;
  const fs::file_status status = fs::status(file, ec);
  if (!fs::exists(status)) return true;
  if (fs::is_directory(status)) return Refuse(state, file, "a folder", kind);
  const std::string report_db = state.gReportDb ? state.gReportDb->getFilename() : "";
  const std::string opening = Opening(file, 16);
  if (SameFile(file, state.gDatabaseName) || SameFile(file, report_db) ||
      opening == std::string_view("SQLite format 3\0", 16)) {
    return Refuse(state, file, "a database", kind);
  }
  if (opening.rfind("PK\x03\x04", 0) == 0 || opening.rfind("PK\x05\x06", 0) == 0) {
    return Refuse(state, file, "a zip archive", kind);
  }
  const std::string name = UCase(file.filename().string());
  const std::string extension = UCase(kind.extension);
  if (name.size() <= extension.size() ||
      name.compare(name.size() - extension.size(), extension.size(), extension) != 0) {
    state.io->Tell(fmt::format("{} is not {}; choose another name.", file.string(), kind.noun));
    return false;
  }
  return already_asked || state.io->AskYesNo(fmt::format(
                              "{} already exists. Do you want to replace it?", file.string()));
}

}  // namespace kvlr
