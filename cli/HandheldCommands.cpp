// kvlr handheld-export and handheld-import: what frmPalm and frmPalmImport do.

#include <ostream>

#include <SQLiteCpp/Statement.h>

#include "Command.h"
#include "handheld/PalmExport.h"
#include "handheld/PalmImport.h"

namespace kvlr::cli {
namespace {

int32_t Number(const std::string& option, const std::string& text) {
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos ||
      std::stoi(text) == 0) {
    throw UsageError(option + " expects a number, not \"" + text + "\"");
  }
  return std::stoi(text);
}

std::vector<int32_t> AllSwimmers(SQLite::Database& db) {
  std::vector<int32_t> all;
  SQLite::Statement q(db, "SELECT Athlete FROM Athlete ORDER BY Athlete");
  while (q.executeStep()) all.push_back(q.getColumn(0).getInt());
  return all;
}

int Export(Context& c) {
  TakeAnswer(c);
  if (!c.args.positional.empty()) throw UsageError("takes no positional arguments");
  const std::string db = Required(c, "--db");
  const std::filesystem::path to = Required(c, "--to");
  if (c.args.Has("--all") == (c.args.values.count("--athlete") > 0)) {
    throw UsageError("give either --athlete N or --all");
  }
  PalmExportChoice choice;
  const std::string course = c.args.Value("--course", "Y");
  if (course != "Y" && course != "S" && course != "L") throw UsageError("--course expects Y, S or L");
  choice.course = course[0];
  std::string meets = c.args.Value("--meets");
  while (!meets.empty()) {
    const size_t comma = std::min(meets.find(','), meets.size());
    choice.meets.push_back(Number("--meets", meets.substr(0, comma)));
    meets.erase(0, std::min(comma + 1, meets.size()));
  }
  if (c.args.values.count("--entry-meet")) {
    choice.entry_meet = Number("--entry-meet", c.args.values.at("--entry-meet"));
  }
  if (!OpenAsAtStart(c, db)) return kRefused;
  choice.athletes = c.args.Has("--all")
                        ? AllSwimmers(*c.state.gDb)
                        : std::vector<int32_t>{Number("--athlete", c.args.Value("--athlete"))};
  if (const auto refusal = CheckPalmExport(choice)) {
    c.io.Tell(refusal->empty() ? "No swimmer to export." : *refusal);
    return kRefused;
  }
  PalmExportSummary summary;
  if (!RunPalmExport(c.state, choice, to, &summary)) return kRefused;
  for (const auto& file : summary.files) c.env.out << file.string() << "\n";
  return kOk;
}

int Import(Context& c) {
  TakeAnswer(c);
  if (!c.args.positional.empty()) throw UsageError("takes no positional arguments");
  const std::string db = Required(c, "--db");
  const std::filesystem::path from = Required(c, "--from");
  if (!OpenAsAtStart(c, db)) return kRefused;
  auto opening = OpenPalmImport(c.state, from);
  if (!opening) return kRefused;
  const PalmImportCounts counts =
      ImportPalmRows(c.state, *opening->data, opening->meet, opening->rows, c.args.Has("--replace"));
  Row(c.env.out, {"Imp", "Name", "Gen", "Ev#", "Age", "Distance", "Stroke", "Rnd", "Time"});
  for (const PalmRow& r : opening->rows) {
    Row(c.env.out, {r.chosen ? r.state : "", r.show_name, r.sex, r.event_num, r.age_group,
                    r.distance, r.stroke, r.swim, r.swim_time});
  }
  c.env.out << PalmImportStatus(counts) << "\n";
  return kOk;
}

}  // namespace

std::vector<Command> HandheldCommands() {
  return {
      {"handheld-export",
       "kvlr handheld-export --db PATH (--athlete N|--all) [--course C] [--meets ID,...] "
       "[--entry-meet ID] --to DIR",
       "Write the Palm databases for KVL-R Mobile (swimmers, best times, results of up to 5 "
       "meets, entries of one meet) into DIR. Prints the files written.",
       {"--db", "--athlete", "--course", "--meets", "--entry-meet", "--to"},
       {"--all", "--yes", "--no"},
       Export},
      {"handheld-import",
       "kvlr handheld-import --db PATH --from DIR [--replace]",
       "Import the timed swims and splits of KVL-R Mobile's files in DIR (the handheld's "
       "backup folder) into their meet; --replace overwrites results already there. Prints "
       "each row with what became of it.",
       {"--db", "--from"},
       {"--replace", "--yes", "--no"},
       Import},
  };
}

}  // namespace kvlr::cli
