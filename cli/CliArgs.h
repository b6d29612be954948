#pragma once
// Reading of command-line words: options with values, flags, and positional words.

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace kvlr {

// Misuse of the command line (exit 2).
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct ParsedArgs {
  std::map<std::string, std::string> values;  // "--home" -> "DIR"
  std::set<std::string> flags;                // "--yes"
  std::vector<std::string> positional;

  bool Has(const std::string& flag) const { return flags.count(flag) > 0; }
  // The value of an option, or `fallback` when absent.
  std::string Value(const std::string& option, const std::string& fallback = "") const;
};

// Options in `with_value` take the next word ("--home DIR" or "--home=DIR"); those in
// `flags` take none. Anything else starting with "--" is a UsageError. "--" ends options.
ParsedArgs ParseArgs(const std::vector<std::string>& words, const std::set<std::string>& with_value,
                     const std::set<std::string>& flags);

}  // namespace kvlr
