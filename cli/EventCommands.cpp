#include <algorithm>
#include <iostream>

#include "Command.h"
#include "interchange/EventFile.h"

namespace kvlr::cli {
namespace {

int ImportEventsCommand(Context& c) {
  const std::filesystem::path file = OnePath(c);
  const EventFileKind kind = EventFileKindOf(file);
  if (kind == EventFileKind::kInvalid) {
    c.io.Tell(NotValidEventFileText(file));
    return kRefused;
  }
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  std::vector<std::filesystem::path> files;
  EventZipFiles unzipped;  // its folder lives until the files are imported
  if (kind == EventFileKind::kZip) {
    unzipped = ExtractEventFiles(c.state, file);
    files = unzipped.files;
    if (files.empty()) return kRefused;
    std::sort(files.begin(), files.end());
  } else {
    files.push_back(file);
  }
  int code = kOk;
  Row(c.env.out, {"File", "Meet", "MName", "Events"});
  for (const auto& nvv : files) {
    const EventImportOutcome outcome = ImportEvents(c.state, nvv);
    if (!outcome.ok) {
      code = kRefused;
      continue;
    }
    Row(c.env.out, {nvv.filename().string(), std::to_string(outcome.meet), outcome.meet_name,
                    std::to_string(outcome.events)});
  }
  return code;
}

}  // namespace

std::vector<Command> EventCommands() {
  return {
      {"import-events",
       "kvlr import-events --db PATH FILE",
       "Add the meet and its entry events of the event file FILE (.nvv), or of every .nvv "
       "inside FILE (.zip), with the meet's calendar days. A file refused by its checks (one "
       "of a meet with the same start date on file included) adds nothing; the others still "
       "go. Prints one row per imported file: file, meet key, meet name, events added.",
       {"--db"},
       {},
       ImportEventsCommand},
  };
}

}  // namespace kvlr::cli
