#pragma once
// The kvlr command-line tool: its commands and how a run is dispatched.

#include <iosfwd>
#include <string>
#include <vector>

#include "core/Platform.h"

namespace kvlr {

struct CliEnvironment {
  std::ostream& out;
  std::ostream& err;
  std::istream& in;
  bool interactive = false;  // a terminal can answer questions
  const Clock& clock;
  const DiskInfo& disk;
  std::string locale_date_format = "%m/%d/%y";
  std::string home_from_environment;  // the resolved program home when --home is absent
};

// Runs one command line (without the program name). Exit codes: 0 done, 1 refused by the
// system (its words on stderr), 2 misuse.
int RunCli(const std::vector<std::string>& args, const CliEnvironment& env);

}  // namespace kvlr
