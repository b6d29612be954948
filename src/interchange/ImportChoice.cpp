#include "interchange/ImportChoice.h"

#include <algorithm>

#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/VbRules.h"
#include "interchange/UnZip.h"

namespace kvlr {
namespace fs = std::filesystem;
namespace text = choose_text;

namespace {

std::vector<std::string_view> Split(std::string_view s, char at) {
  std::vector<std::string_view> parts;
  for (;;) {
    const size_t i = s.find(at);
    parts.push_back(s.substr(0, i));
    if (i == std::string_view::npos) return parts;
    s.remove_prefix(i + 1);
  }
}

bool EndsWith(std::string_view s, std::string_view end) {
  return s.size() >= end.size() && s.substr(s.size() - end.size()) == end;
}

// Whether a file name matches one "*.ext" style pattern of a filter, in any case.
bool MatchesPattern(std::string_view name, std::string_view pattern) {
  const std::string n = UCase(name);
  const std::string p = UCase(pattern);
  const size_t star = p.find('*');
  if (star == std::string::npos) return n == p;
  const std::string_view head = std::string_view(p).substr(0, star);
  const std::string_view tail = std::string_view(p).substr(star + 1);
  return n.size() >= head.size() + tail.size() && n.compare(0, head.size(), head) == 0 &&
         EndsWith(n, tail);
}

std::string ZipErrorText(const std::exception& e) {
  return std::string(text::kZipError) + e.what();
}

}  // namespace

std::string_view ImportDialogFilter(ImportMode mode) {
  switch (mode) {
    case ImportMode::kOnline:
      return text::kOnlineFilter;
    case ImportMode::kReport:
      return text::kReportFilter;
    case ImportMode::kImport:
      break;
  }
  return text::kImportFilter;
}

std::string QtFileFilter(std::string_view filter) {
  const std::vector<std::string_view> parts = Split(filter, '|');
  std::string out;
  for (size_t i = 0; i < parts.size(); i += 2) {
    const std::string_view description = parts[i];
    const std::string_view patterns = i + 1 < parts.size() ? parts[i + 1] : std::string_view();
    if (description.empty() && patterns.empty()) continue;
    std::vector<std::string> list;
    for (std::string_view p : Split(patterns, ';')) {
      if (p.empty()) continue;
      for (std::string form : {std::string(p), UCase(p)}) {
        if (std::find(list.begin(), list.end(), form) == list.end()) list.push_back(form);
      }
    }
    if (!out.empty()) out += ";;";
    out += description;
    out += " (";
    for (size_t k = 0; k < list.size(); ++k) {
      if (k > 0) out += ' ';
      out += list[k];
    }
    out += ')';
  }
  return out;
}

std::string ImportExtension(const fs::path& file) {
  const std::string name = file.filename().string();
  return UCase(name.size() > 4 ? std::string_view(name).substr(name.size() - 4) : name);
}

bool IsZipName(const fs::path& file) {
  return EndsWith(UCase(file.filename().string()), "ZIP");
}

std::optional<std::string> ZipRefusal(const fs::path& file) {
  if (!IsZipName(file)) return std::nullopt;
  const std::string name = UCase(file.filename().string());
  if (name.compare(0, 6, "SWGSBK") == 0) {
    std::string words;
    for (std::string_view line : text::kGalaStewardBackup) {
      if (!words.empty()) words += '\n';
      words += line;
    }
    return words;
  }
  if (name.compare(0, 6, "SWCSBK") == 0) return std::string(text::kCsBackup);
  if (name.compare(0, 8, "NVBACKUP") == 0) return std::string(text::kWinCsBackup);
  return std::nullopt;
}

bool AcceptsImportFile(ImportMode mode, const fs::path& file) {
  const std::string ext = ImportExtension(file);
  auto any = [&](std::initializer_list<std::string_view> list) {
    return std::find(list.begin(), list.end(), ext) != list.end();
  };
  switch (mode) {
    case ImportMode::kImport:
      return any({".CL2", ".SD3", ".NV3", ".PSN"});
    case ImportMode::kReport:
      return any({".CL2", ".SD3", ".NV3", ".TXT"});
    case ImportMode::kOnline:
      return any({".TXT", ".PSN"});
  }
  return false;
}

std::string UnzippedMessage(const fs::path& folder, bool report_mode, bool nv3_only) {
  std::string words(text::kUnzippedTo);
  words += folder.string();
  words += '\n';
  words += text::kListedAfterOk;
  words += '\n';
  words += text::kDoubleClick;
  words += report_mode ? text::kToReport : text::kToImport;
  words += "\n\n";
  words += nv3_only ? text::kNoteNv3Only : text::kNoteCl2Sd3;
  return words;
}

std::optional<UnzippedFiles> ExtractImportZip(AppState& state, const fs::path& zip,
                                              bool report_mode) {
  UnzippedFiles out;
  out.filter = report_mode ? text::kUnzippedReportFilter : text::kUnzippedImportFilter;
  try {
    // Another run (a second window, the command-line tool) may be unpacking at the same
    // time: each works in a folder of its own.
    out.owner = std::make_shared<RunFolder>(state.home);
    out.folder = out.owner->Path();
    // A member name that climbs out of the folder or is absolute is passed over.
    out.files = ExtractZipInto(zip, out.folder, {".cl2", ".nv3", ".sd3"});
  } catch (const KvlError& e) {
    state.io->Message(ZipErrorText(e), box::kOk + box::kExclamation, {});
    return std::nullopt;
  }
  if (out.files.empty()) {
    state.io->Message(text::kNoImportFilesInZip, box::kOk + box::kExclamation, {});
    return std::nullopt;
  }

  // The .nv3 carries more than the Commlink or SDIF copy of the same meet.
  const bool has_nv3 = std::any_of(out.files.begin(), out.files.end(),
                                   [](const fs::path& f) { return ImportExtension(f) == ".NV3"; });
  const bool nv3_only = has_nv3 && !report_mode;
  if (nv3_only) {
    std::vector<fs::path> kept;
    for (const fs::path& f : out.files) {
      if (ImportExtension(f) == ".NV3") {
        kept.push_back(f);
      } else {
        RemoveIfExists(f);
      }
    }
    out.files = std::move(kept);
  }
  std::sort(out.files.begin(), out.files.end());

  // The second dialog opens on the first of its lists that shows any of the files.
  const std::vector<std::string_view> parts = Split(out.filter, '|');
  for (size_t i = 0; i + 1 < parts.size() && out.selected_filter.empty(); i += 2) {
    for (const fs::path& f : out.files) {
      bool hit = false;
      for (std::string_view p : Split(parts[i + 1], ';')) {
        hit = hit || (!p.empty() && MatchesPattern(f.filename().string(), p));
      }
      if (hit) {
        out.selected_filter = std::string(parts[i]);
        break;
      }
    }
  }

  state.io->Message(UnzippedMessage(out.folder, report_mode, nv3_only),
                    box::kOk + box::kInformation, {});
  return out;
}

}  // namespace kvlr
