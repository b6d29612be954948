#include "core/DatabaseName.h"

#include <algorithm>

#include <fmt/format.h>

#include "core/VbRules.h"

namespace kvlr {

bool DatabaseNameOk(std::string_view name, int max_length, UserIo& io) {
  std::string trimmed = Trim(name);
  // A leading dot hides the file, and is what an empty name before ".mdb" leaves.
  if (trimmed.empty() || trimmed[0] == '.') {
    io.Tell("The database needs a name before \".mdb\" that does not start with a dot.");
    return false;
  }
  if (std::any_of(trimmed.begin(), trimmed.end(),
                  [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; })) {
    io.Tell("The database name can not hold tabs, line breaks or other control characters.");
    return false;
  }
  bool ok = static_cast<int>(trimmed.size()) <= max_length &&
            trimmed.find_first_of("\"'/\\:|") == std::string::npos;
  if (!ok) {
    io.Tell(
        fmt::format("The database name can not be longer than {} characters\rand can not "
                    "include quotes, apostrophes, slashes or colons.",
                    max_length));
  }
  return ok;
}

}  // namespace kvlr
