#include "web/UpdateFiles.h"

#include <unistd.h>

#include "interchange/UnZip.h"
#include "web/WebTexts.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {
bool IsDebPackage(const fs::path& file) {
  const std::string name = file.filename().string();
  return name.rfind("kvl-r_", 0) == 0 && HasExtension(file, ".deb");
}
}  // namespace

std::optional<fs::path> DownloadedUpdate(const fs::path& folder, fs::file_time_type opened) {
  std::error_code ec;
  const fs::path file = folder / web_text::kUpdateZip;
  const auto written = fs::last_write_time(file, ec);
  if (ec || !fs::is_regular_file(file, ec) || written <= opened) return std::nullopt;
  return file;
}

std::optional<fs::path> FindUpdatePackage(const std::vector<fs::path>& folders) {
  std::optional<fs::path> best;
  fs::file_time_type best_time{};
  for (const fs::path& folder : folders) {
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder, ec)) {
      const fs::path& file = entry.path();
      if (!entry.is_regular_file(ec)) continue;
      if (file.filename() != web_text::kUpdateZip && !IsDebPackage(file)) continue;
      const auto written = entry.last_write_time(ec);
      if (ec) continue;
      if (!best || written > best_time) {
        best = file;
        best_time = written;
      }
    }
  }
  return best;
}

std::optional<fs::path> FindConverter(const std::vector<fs::path>& folders) {
  const std::string name(web_text::kConverter);
  for (const fs::path& folder : folders) {
    for (const fs::path& file : {folder / name, folder / (name + ".EXE")}) {
      std::error_code ec;
      if (fs::is_regular_file(file, ec) && access(file.c_str(), X_OK) == 0) return file;
    }
  }
  return std::nullopt;
}

std::optional<fs::path> PackageInUpdateZip(const fs::path& zip, const fs::path& folder) {
  // Packages are large; the meet-file limit would refuse them.
  constexpr std::uint64_t kMaxPackageBytes = 512ull << 20;
  for (const fs::path& file : ExtractZipInto(zip, folder, {".deb"}, kMaxPackageBytes)) {
    if (IsDebPackage(file)) return file;
  }
  return std::nullopt;
}

std::string FolderList(const std::vector<fs::path>& folders) {
  std::string out;
  for (const fs::path& folder : folders) out += "\r\n" + folder.string();
  return out;
}

}  // namespace kvlr
