#include "CliArgs.h"

namespace kvlr {

std::string ParsedArgs::Value(const std::string& option, const std::string& fallback) const {
  auto it = values.find(option);
  return it == values.end() ? fallback : it->second;
}

ParsedArgs ParseArgs(const std::vector<std::string>& words, const std::set<std::string>& with_value,
                     const std::set<std::string>& flags) {
  ParsedArgs parsed;
  bool options_done = false;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& w = words[i];
    if (options_done || w.size() < 2 || w[0] != '-' || w == "-") {
      parsed.positional.push_back(w);
      continue;
    }
    if (w == "--") {
      options_done = true;
      continue;
    }
    std::string name = w;
    std::string value;
    bool has_inline = false;
    if (auto eq = w.find('='); eq != std::string::npos && w.rfind("--", 0) == 0) {
      name = w.substr(0, eq);
      value = w.substr(eq + 1);
      has_inline = true;
    }
    if (name == "-h") name = "--help";
    if (with_value.count(name)) {
      if (!has_inline) {
        if (i + 1 >= words.size()) throw UsageError(name + " needs a value");
        value = words[++i];
      }
      parsed.values[name] = value;
    } else if (flags.count(name) && !has_inline) {
      parsed.flags.insert(name);
    } else {
      throw UsageError("unknown option " + w);
    }
  }
  return parsed;
}

}  // namespace kvlr
