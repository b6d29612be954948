#pragma once
// The rule for every file the user names as the output of an export or a report: never write
// over a database or a file of another kind, and replace one of the same kind only when the
// user agrees.

#include <filesystem>
#include <string_view>

#include "core/AppState.h"

namespace kvlr {

// What an export writes.
struct OutputKind {
  std::string_view extension;  // an existing file must end with it (any case), e.g. ".csv"
  std::string_view noun;       // the refusal's words for the kind, e.g. "a CSV file"
};

inline constexpr OutputKind kCsvOutput{".csv", "a CSV file"};

// True when `file` may be written as `kind`. A new file always may. Refused, the user told
// why and the file named: a folder, the open user or report database, any SQLite database or
// zip archive (known by their first bytes, whatever the name), an existing file whose name
// lacks the kind's extension. An existing file of the kind is replaced only after a Yes to
// "<file> already exists. Do you want to replace it?", which `already_asked` skips where a
// file dialog asked it. The caller then writes through a temporary name (WriteFileAtomically).
bool OutputFileOk(AppState& state, const std::filesystem::path& file, const OutputKind& kind,
                  bool already_asked = false);

}  // namespace kvlr
