// kvlr export-entries and export-results: the zips the export screens write.

#include <ostream>

#include "Command.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "interchange/ExportRun.h"

namespace kvlr::cli {
namespace {

int32_t NumberOption(const Context& c, const std::string& option) {
  const std::string text = c.args.Value(option);
  if (text.empty() || text.size() > 9 ||
      text.find_first_not_of("0123456789") != std::string::npos || std::stoi(text) == 0) {
    throw UsageError(option + " expects a number, not \"" + text + "\"");
  }
  return std::stoi(text);
}

std::filesystem::path Folder(const Context& c) {
  return Required(c, "--to");
}

int Finish(Context& c, const ExportOutcome& out) {
  if (!out.ok) return kRefused;
  c.env.out << out.zip.string() << "\n";
  return kOk;
}

int ExportEntriesCommand(Context& c) {
  TakeAnswer(c);
  if (!c.args.positional.empty()) throw UsageError("takes no positional arguments");
  const std::string db = Required(c, "--db");
  EntryExportOptions options;
  Required(c, "--meet");
  options.meet = NumberOption(c, "--meet");
  options.actual = c.args.Has("--actual");
  options.folder = Folder(c);
  if (!OpenAsAtStart(c, db)) return kRefused;
  return Finish(c, ExportEntries(c.state, options));
}

int ExportResultsCommand(Context& c) {
  TakeAnswer(c);
  if (!c.args.positional.empty()) throw UsageError("takes no positional arguments");
  if (c.args.Has("--best") && c.args.Has("--proof")) {
    throw UsageError("--best and --proof exclude each other");
  }
  const std::string db = Required(c, "--db");
  ResultExportOptions options;
  Required(c, "--athlete");
  options.athlete = NumberOption(c, "--athlete");
  options.folder = Folder(c);
  if (c.args.values.count("--since")) {
    const std::string& text = c.args.values.at("--since");
    options.since = Date::FromIso(text);
    if (!options.since || text.size() != 10) throw UsageError("--since expects a date YYYY-MM-DD");
  }
  if (c.args.values.count("--meet")) options.meet = NumberOption(c, "--meet");
  if (c.args.values.count("--course")) {
    const std::string text = UCase(c.args.Value("--course"));
    if (text.size() != 1 || CourseLetters.find(text[0]) == std::string_view::npos) {
      throw UsageError("--course expects Y, S or L");
    }
    options.course = text[0];
  }
  options.splits = c.args.Has("--splits");
  options.all_family = c.args.Has("--all-family");
  options.lead_off = c.args.Has("--lead-off");
  if (c.args.Has("--best")) options.kind = ResultExportKind::kBestTimes;
  if (c.args.Has("--proof")) options.kind = ResultExportKind::kProof;
  if (!OpenAsAtStart(c, db)) return kRefused;
  return Finish(c, ExportResults(c.state, options));
}

}  // namespace

std::vector<Command> ExportCommands() {
  return {{"export-entries",
           "kvlr export-entries --db PATH --meet ID --to DIR [--actual] [--yes|--no]",
           "Export a meet's entries for the meet host: a Commlink (.cl2) and an NV3 file in a "
           "new zip KVL-REntNN.zip in DIR. Seed times are converted to the meet's course unless "
           "--actual keeps each in its own. When all 99 names are taken, --yes overwrites the "
           "first. Prints the zip's path.",
           {"--db", "--meet", "--to"},
           {"--actual", "--yes", "--no"},
           ExportEntriesCommand},
          {"export-results",
           "kvlr export-results --db PATH --athlete N --to DIR [--since DATE] [--meet ID] "
           "[--course C] [--splits] [--all-family] [--lead-off] [--best|--proof] [--yes|--no]",
           "Export results as a Commlink (.cl2), an NV3 and an online (KVLR_001.TXT) file in a "
           "new zip KVL-RResNN.zip in DIR: every result, or with --best the best times (rank 1; "
           "those of one --course stand under one made-up meet), with --proof the best times as "
           "proof of time. --meet keeps one meet, --since meets from that date, --course one "
           "course; --splits adds the splits, --all-family every swimmer, --lead-off relay "
           "lead-offs. When all 99 names are taken, "
           "--yes overwrites the first. Prints the zip's path.",
           {"--db", "--athlete", "--to", "--since", "--meet", "--course"},
           {"--splits", "--all-family", "--lead-off", "--best", "--proof", "--yes", "--no"},
           ExportResultsCommand}};
}

}  // namespace kvlr::cli
