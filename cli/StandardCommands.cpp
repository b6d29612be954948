#include <iostream>

#include "Command.h"
#include "core/ErrorHandler.h"
#include "standards/StandardTexts.h"
#include "standards/StandardsCsv.h"

namespace kvlr::cli {
namespace {

// NAME and FILE, the two positional arguments of both commands.
std::pair<std::string, std::string> NameAndFile(const Context& c) {
  if (c.args.positional.size() != 2) throw UsageError("expects NAME and FILE.csv");
  return {c.args.positional[0], c.args.positional[1]};
}

int Import(Context& c) {
  const auto [name, file] = NameAndFile(c);
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  CsvImportResult failed;
  const CsvImportResult result = RunTrapped(
      c.state, "kvlr.standard-import", [&] { return ImportStandardCsvFile(c.state, name, file); },
      failed);
  if (!result.ok) {
    if (!result.message.empty()) c.io.Tell(result.message);
    return kRefused;
  }
  Row(c.env.out, {"Standard", "Lines", "Created"});
  Row(c.env.out, {name, std::to_string(result.lines), result.created ? "yes" : "no"});
  return kOk;
}

int Export(Context& c) {
  const auto [name, file] = NameAndFile(c);
  TakeAnswer(c);
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  if (!ExportStandardCsvFile(c.state, name, file)) return kRefused;
  Row(c.env.out, {"Standard", "File"});
  Row(c.env.out, {name, file});
  return kOk;
}

}  // namespace

std::vector<Command> StandardCommands() {
  return {
      {"standard-import",
       "kvlr standard-import --db PATH NAME FILE.csv",
       "Store the time standard NAME from FILE.csv (header Sex,I_R,Lo_Age,Hi_Age,Distance,"
       "Stroke then \"<designator> <Y|S|L> Faster\" and \"... Slower\" for each designator and "
       "course; times as m:ss.hh, empty for none). A new NAME is created with the header's "
       "designators; an existing one has all its lines replaced. A bad file changes nothing.",
       {"--db"},
       {},
       Import},
      {"standard-export",
       "kvlr standard-export --db PATH NAME FILE.csv [--yes|--no]",
       "Write the time standard NAME of the database PATH to FILE.csv in the layout "
       "standard-import reads. A database, zip or other non-CSV file is never written over; "
       "an existing CSV file is replaced only with --yes (or a yes on a terminal).",
       {"--db"},
       {"--yes", "--no"},
       Export},
  };
}

}  // namespace kvlr::cli
