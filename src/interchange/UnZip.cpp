#include "interchange/UnZip.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <system_error>

#include <sys/stat.h>

#include <fmt/format.h>

#include "core/FileOps.h"
#include "core/VbRules.h"
#include "store/ZipArchive.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

bool EndsWithNoCase(std::string_view text, std::string_view tail) {
  if (tail.size() > text.size()) return false;
  return UCase(text.substr(text.size() - tail.size())) == UCase(tail);
}

std::string TooLargeWords(std::string_view member, const fs::path& zip, std::uint64_t limit) {
  return fmt::format(
      "{} in {} would unpack to more than {}; a meet file is never that large, so it was not "
      "unpacked.",
      member, zip.filename().string(), SizeLimitWords(limit));
}

std::string DamagedWords(const fs::path& zip) {
  return fmt::format(
      "{} could not be read as a zip archive: it is damaged or not a zip file. Download it "
      "again.",
      zip.filename().string());
}

// The archive couldn't be opened: missing, or the file system refused.
[[noreturn]] void ThrowOpenFailure(const fs::path& zip, const FileError& e) {
  if (e.Number() == err::kFileNotFound) {
    throw UnzipError(e.Number(),
                     fmt::format("{} was not found. Choose the file again.", zip.string()));
  }
  throw UnzipError(e.Number(),
                   fmt::format("{} could not be read ({}). Check that the file can be read.",
                               zip.filename().string(), e.what()));
}

// A new folder `parent`/`stem`, or `stem`-2, -3 ... when taken; made here, so no one else's.
fs::path NewFolderIn(const fs::path& parent, const std::string& stem) {
  MakeFolder(parent);
  for (int n = 1; n < 1000; ++n) {
    const fs::path candidate = parent / (n == 1 ? stem : fmt::format("{}-{}", stem, n));
    if (::mkdir(candidate.c_str(), 0755) == 0) return candidate;
    if (errno != EEXIST) ThrowFileError(errno, "Can't make the folder", candidate.string());
  }
  ThrowFileError(EEXIST, "Can't make the folder", (parent / stem).string());
}

}  // namespace

bool HasExtension(const fs::path& file, std::string_view extension) {
  return EndsWithNoCase(file.filename().string(), extension);
}

std::vector<fs::path> ExtractZipInto(const fs::path& zip, const fs::path& folder,
                                     const std::vector<std::string>& extensions,
                                     std::uint64_t max_member_bytes) {
  std::optional<ZipArchive> archive;
  try {
    archive.emplace(zip);
  } catch (const FileError& e) {
    ThrowOpenFailure(zip, e);
  } catch (const FormatError& e) {
    throw UnzipError(e.Number(), DamagedWords(zip));
  }
  const auto& members = archive->Members();
  std::vector<std::pair<size_t, fs::path>> chosen;
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
    // Refused by what it declares before anything at all is written.
    if (member.size > max_member_bytes) {
      throw UnzipError(err::kDataError, TooLargeWords(member.name, zip, max_member_bytes));
    }
    chosen.emplace_back(i, folder / *base);
  }

  std::vector<fs::path> written;
  try {
    if (!chosen.empty()) MakeFolder(folder);
    for (const auto& [index, target] : chosen) {
      archive->Extract(index, target, max_member_bytes);
      if (std::find(written.begin(), written.end(), target) == written.end()) {
        written.push_back(target);
      }
    }
  } catch (const ZipMemberTooLarge& e) {
    throw UnzipError(e.Number(), TooLargeWords(e.Member(), zip, e.Limit()));
  } catch (const FormatError& e) {
    throw UnzipError(e.Number(), DamagedWords(zip));
  } catch (const FileError& e) {
    throw UnzipError(e.Number(),
                     fmt::format("The files of {} could not be written into {} ({}). Check that "
                                 "the disk has room and the folder can be written.",
                                 zip.filename().string(), folder.string(), e.what()));
  }
  return written;
}

UnZipOutcome UnZipFile(const fs::path& zip, const fs::path& parent) {
  UnZipOutcome out;
  std::string stem = zip.stem().string();
  if (stem.empty() || stem == "." || stem == "..") stem = "unzipped";
  try {
    out.folder = NewFolderIn(parent, stem);
    out.files = ExtractZipInto(zip, out.folder, {});
    out.ok = true;
    out.message = std::string(kUnZipSuccess) + out.folder.string() + ".";
  } catch (const KvlError& e) {
    // The folder was made for this zip alone; what a failed unzip left in it goes with it.
    if (!out.folder.empty()) {
      std::error_code ec;
      fs::remove_all(out.folder, ec);
    }
    out.files.clear();
    out.message = std::string(kUnZipError) + e.what();
  }
  return out;
}

}  // namespace kvlr
