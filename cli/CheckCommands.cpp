// kvlr check: the opening checks of an import file, as a report would run them. Needs no
// database.

#include <ostream>

#include "Command.h"
#include "core/DateText.h"
#include "core/VbRules.h"
#include "interchange/ImportPrepare.h"

namespace kvlr::cli {
namespace {

int Check(Context& c) {
  if (c.args.positional.size() != 1) throw UsageError("expects one FILE");
  const std::filesystem::path file = c.args.positional[0];
  c.state.gDateOrder = DetectDateOrder(c.state.locale_date_format);
  ImportMonitor quiet;
  const ImportFile prepared = PrepareImportFile(c.state, quiet, file, ImportMode::kReport);
  if (!prepared.lines.empty()) {
    const FilePanel& p = prepared.panel;
    Row(c.env.out, {"Statistic", "Value"});
    Row(c.env.out, {"File Name:", p.file_name});
    Row(c.env.out, {"Created by:", p.created_by});
    Row(c.env.out, {"File Type:", p.file_type});
    Row(c.env.out, {"Meet Name:", p.meet_name});
    Row(c.env.out, {"Start Date:", p.start ? p.start->Iso() : p.start_date});
    for (size_t r = 0; r < kImportRowNames.size(); ++r) {
      Row(c.env.out, {std::string(kImportRowNames[r]), std::to_string(prepared.counts.checked[r])});
    }
  }
  // The boxes of a refusal went to stderr already; past the reading the status says where
  // the check stopped.
  if (!prepared.ready) {
    if (!prepared.lines.empty() && !Trim(prepared.status).empty()) {
      c.env.err << Trim(prepared.status) << "\n";
    }
    return kRefused;
  }
  c.env.out << Trim(prepared.status) << "\n";
  // The warning that the file may be cut short went to stderr.
  return prepared.no_end_record ? kRefused : kOk;
}

}  // namespace

std::vector<Command> CheckCommands() {
  return {{"check",
           "kvlr check FILE",
           "Read and certify a meet file (.cl2, .sd3, .nv3, .txt) as the Import/Export Files "
           "Report does, without a database: prints the file panel and the records checked, "
           "then what comes next, or the reason the file is refused (exit 1). A .cl2 or .sd3 "
           "without its end record (Z0) may be cut short: it is checked, with a warning, and "
           "exits 1.",
           {},
           {},
           Check}};
}

}  // namespace kvlr::cli
