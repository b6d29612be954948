#include "core/DatabaseName.h"

#include <fmt/format.h>

#include "core/VbRules.h"

namespace kvlr {

bool DatabaseNameOk(std::string_view name, int max_length, UserIo& io) {
  std::string trimmed = Trim(name);
  bool ok = !trimmed.empty() && static_cast<int>(trimmed.size()) <= max_length &&
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
