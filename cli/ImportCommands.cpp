// kvlr import: a meet file (or a zip holding one) into a database, for one family.

#include <ostream>

#include <SQLiteCpp/Statement.h>

#include "Command.h"
#include "athletes/CurrentAthlete.h"
#include "core/Columns.h"
#include "core/VbRules.h"
#include "interchange/ImportChoice.h"
#include "interchange/ImportPrepare.h"
#include "interchange/ImportRun.h"
#include "store/ReportDatabase.h"

namespace kvlr::cli {
namespace {

// The swimmer the import is for: --athlete, or the only one.
bool ChooseSwimmer(Context& c) {
  const std::string text = c.args.Value("--athlete");
  int32_t athlete = 0;
  if (!text.empty()) {
    if (text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos) {
      throw UsageError("--athlete expects a number, not \"" + text + "\"");
    }
    athlete = std::stoi(text);
  } else {
    SQLite::Statement q(*c.state.gDb, "SELECT Athlete FROM ATHLETE ORDER BY Athlete LIMIT 2");
    std::vector<int32_t> found;
    while (q.executeStep()) found.push_back(q.getColumn(0).getInt());
    if (found.size() != 1) {
      c.io.Tell(found.empty() ? "There are no swimmers in this database."
                              : "This database has several swimmers: name one with --athlete.");
      return false;
    }
    athlete = found.front();
  }
  if (!SetCurrentAthlete(c.state, athlete)) {
    c.io.Tell("No swimmer numbered " + std::to_string(athlete) + " in this database.");
    return false;
  }
  return true;
}

// The file to import: FILE itself, or the one import file a zip holds (--member names one
// of several). The files of a zip stay in `unzipped` until it goes.
std::optional<std::filesystem::path> ChooseFile(Context& c, const std::filesystem::path& file,
                                                std::optional<UnzippedFiles>& unzipped) {
  if (!IsZipName(file)) return file;
  if (auto refusal = ZipRefusal(file)) {
    c.io.Tell(*refusal);
    return std::nullopt;
  }
  unzipped = ExtractImportZip(c.state, file, false);
  if (!unzipped) return std::nullopt;
  const std::string member = c.args.Value("--member");
  for (const auto& f : unzipped->files) {
    if (unzipped->files.size() == 1 || f.filename() == member) return f;
  }
  c.env.err << "The zip holds several import files; name one with --member:\n";
  for (const auto& f : unzipped->files) c.env.err << "  " << f.filename().string() << "\n";
  return std::nullopt;
}

void PrintCounts(Context& c, const ImportCounts& counts) {
  Row(c.env.out, {"Statistic", std::string(Trim(kRecordsCheckedColumn)),
                  std::string(kRecordsProcessedColumn)});
  for (size_t r = 0; r < kImportRowNames.size(); ++r) {
    Row(c.env.out, {std::string(kImportRowNames[r]), std::to_string(counts.checked[r]),
                    std::to_string(counts.processed[r])});
  }
}

void PrintExceptions(Context& c) {
  if (!c.state.gReportDb) return;
  c.env.out << "Not all data was imported.\n";
  SQLite::Statement q(*c.state.gReportDb,
                      "SELECT Reason, MeetName, LN, FN, Dist, Stroke, F_Time, P_Time FROM "
                      "RPTISDIN ORDER BY rowid");
  Row(c.env.out, {"Reason", "Meet", "Last", "First", "Distance", "Stroke", "Finals", "Prelim"});
  while (q.executeStep()) {
    std::vector<std::string> row;
    for (int i = 0; i < 8; ++i) row.push_back(Trim(TextOf(q.getColumn(i))));
    Row(c.env.out, row);
  }
}

int Import(Context& c) {
  TakeAnswer(c);
  if (c.args.positional.size() != 1) throw UsageError("expects one FILE");
  const std::filesystem::path file = c.args.positional[0];
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  if (!ChooseSwimmer(c)) return kRefused;
  CheckReportTables(c.state);             // RPTISDIN takes the lines that were refused
  std::optional<UnzippedFiles> unzipped;  // kept until the run is over
  const auto chosen = ChooseFile(c, file, unzipped);
  if (!chosen) return kRefused;
  ImportMonitor quiet;
  const ImportFile prepared = PrepareImportFile(c.state, quiet, *chosen, ImportMode::kImport);
  if (!prepared.ready) {
    // A file refused while it was read was told in its box; the status would only say
    // where the check stood.
    if (!prepared.lines.empty() && !Trim(prepared.status).empty()) {
      c.env.err << Trim(prepared.status) << "\n";
    }
    return kRefused;
  }
  ImportCriteria criteria;
  criteria.overlay_results = c.args.Has("--overlay");
  criteria.import_splits = c.args.Has("--splits");
  criteria.lead_off = c.args.Has("--lead-off");
  criteria.all_family = c.args.Has("--all-family");
  const ImportOutcome out = RunImportFile(c.state, quiet, prepared, criteria);
  PrintCounts(c, out.counts);
  c.env.out << Trim(out.status) << "\n";
  if (out.not_all_imported) PrintExceptions(c);
  return out.ok ? kOk : kRefused;
}

}  // namespace

std::vector<Command> ImportCommands() {
  return {{"import",
           "kvlr import FILE --db PATH [--athlete N] [--all-family] [--overlay] [--splits] "
           "[--lead-off] [--member NAME] [--yes|--no]",
           "Import the results of a meet file (.cl2, .sd3, .nv3, .psn, or a zip holding them) "
           "for the swimmer --athlete (needed when the database has several) or, with "
           "--all-family, every swimmer of the family. --overlay replaces results already on "
           "file, --splits stores individual splits, --lead-off stores relay lead-offs as "
           "results. Questions (\"Same Meet\", whether to import a file that has no end record) "
           "are answered by --yes or --no. Prints the import "
           "statistics and, when lines were refused, the exception rows.",
           {"--db", "--athlete", "--member"},
           {"--all-family", "--overlay", "--splits", "--lead-off", "--yes", "--no"},
           Import}};
}

}  // namespace kvlr::cli
