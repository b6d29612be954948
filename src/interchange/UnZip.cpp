#include "interchange/UnZip.h"

#include <algorithm>
#include <system_error>

#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/VbRules.h"
#include "store/ZipArchive.h"

namespace kvlr {
namespace {

bool EndsWithNoCase(std::string_view text, std::string_view tail) {
  if (tail.size() > text.size()) return false;
  return UCase(text.substr(text.size() - tail.size())) == UCase(tail);
}

void EmptyFolder(const std::filesystem::path& folder) {
  MakeFolder(folder);
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ec)) {
    std::filesystem::remove_all(entry.path(), ec);
    if (ec) ThrowFileError(ec.value(), "Could not delete", entry.path().string());
  }
  if (ec) ThrowFileError(ec.value(), "Could not read", folder.string());
}

}  // namespace

bool HasExtension(const std::filesystem::path& file, std::string_view extension) {
  return EndsWithNoCase(file.filename().string(), extension);
}

std::string UnZipWarningText(const std::filesystem::path& folder) {
  return std::string(kUnZipDeleteWarning) + folder.string() + std::string(kUnZipDirectory) + "\n" +
         std::string(kUnZipContinueAsk);
}

std::vector<std::filesystem::path> ExtractZipInto(const std::filesystem::path& zip,
                                                  const std::filesystem::path& folder,
                                                  const std::vector<std::string>& extensions) {
  // Open first: a file that isn't a zip must not cost the folder its contents.
  ZipArchive archive(zip);
  EmptyFolder(folder);
  std::vector<std::filesystem::path> written;
  const auto& members = archive.Members();
  for (size_t i = 0; i < members.size(); ++i) {
    const ZipMember& member = members[i];
    if (!member.regular_file) continue;
    const auto base = SafeMemberBaseName(member.name);
    if (!base) continue;
    if (!extensions.empty() &&
        std::none_of(extensions.begin(), extensions.end(),
                     [&](const std::string& ext) { return EndsWithNoCase(*base, ext); })) {
      continue;
    }
    const std::filesystem::path target = folder / *base;
    archive.Extract(i, target);
    if (std::find(written.begin(), written.end(), target) == written.end()) {
      written.push_back(target);
    }
  }
  return written;
}

UnZipOutcome UnZipFile(const std::filesystem::path& zip, const std::filesystem::path& folder) {
  UnZipOutcome out;
  try {
    out.files = ExtractZipInto(zip, folder, {});
    out.ok = true;
    out.message = std::string(kUnZipSuccess) + folder.string() + ".";
  } catch (const KvlError& e) {
    out.message = std::string(kUnZipError) + e.what();
  }
  return out;
}

}  // namespace kvlr
