#include "interchange/ImportRun.h"

#include <system_error>

#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "interchange/ImportFlows.h"
#include "interchange/ImportReportTable.h"
#include "interchange/Psn.h"

namespace kvlr {

namespace {

inline constexpr std::string_view kNotAllRecordsImported = "Not all records were imported.";

// The two-part box of a line the import could not process.
std::string ProcessingErrorText(const ImportFile& file, const ImportLineError& error) {
  const std::string& line = error.line_number >= 1 && error.line_number <= file.lines.size()
                                ? file.lines[error.line_number - 1]
                                : std::string();
  return fmt::format(
      "File processing error for file: {}\r\nThe error is on line: {}\r\nThe problem line is "
      "listed below in two parts: \r\n>>{}<<\r\n>>{}<<\r\nProblem: {}",
      file.path.filename().string(), error.line_number, line.substr(0, 80),
      line.size() > 80 ? line.substr(80) : std::string(), error.problem);
}

bool AnyResults(const ImportCounts& counts) {
  return counts.Processed(ImportRow::kIndividual) > 0 || counts.Processed(ImportRow::kRelay) > 0;
}

bool AnythingCounted(const ImportCounts& counts) {
  for (int n : counts.processed) {
    if (n > 0) return true;
  }
  return false;
}

}  // namespace

bool OffersAllFamily(AppState& state) {
  if (!state.gDb) return false;
  SQLite::Statement q(*state.gDb, "SELECT COUNT(*) FROM ATHLETE");
  return q.executeStep() && q.getColumn(0).getInt() >= 2;
}

ImportOutcome RunImportFile(AppState& state, ImportMonitor& monitor, const ImportFile& file,
                            const ImportCriteria& criteria) {
  ImportOutcome out;
  out.status = std::string(kImportIncomplete);
  if (!file.ready || !state.gDb) return out;
  const char* routine = "basImpCL.SDIFImport";
  try {
    const bool roster = file.roster && (file.extension == ".CL2" || file.extension == ".SD3");
    ImportSession session(state, criteria, monitor, roster);
    session.Counts().checked = file.counts.checked;
    if (state.gReportDb) ClearIsdin(*state.gReportDb);
    WalkEnd end = WalkEnd::kDone;
    bool nv3 = false;
    int psn_results = -1;
    try {
      if (file.extension == ".CL2" || file.extension == ".SD3") {
        end = SDIFImport(session, file.lines);
      } else if (file.extension == ".NV3" || file.extension == ".TXT") {
        routine = "basImpCL.NV3Import";
        nv3 = true;
        end = NV3Import(session, file.lines);
      } else if (file.extension == ".PSN") {
        routine = "basImpCL.PSNImport";
        psn_results = PSNImport(session, file.lines);
        session.Counts().Processed(ImportRow::kIndividual) = psn_results;
      }
    } catch (const ImportLineError& error) {
      // What the run stored before the bad line stays, as with a stop.
      session.Commit();
      out.counts = session.Counts();
      state.io->Message(ProcessingErrorText(file, error), box::kOk + box::kStop, "error");
      if (AnyResults(out.counts)) session.UpdateResultRankings();
      monitor.Status(out.status);
      out.not_all_imported = session.NotAllImported();
      return out;
    }
    session.Commit();
    out.counts = session.Counts();
    out.not_all_imported = session.NotAllImported();
    if (AnyResults(out.counts) && !roster) session.UpdateResultRankings();
    monitor.Percent(-1);
    if (end == WalkEnd::kCancelled) {
      out.cancelled = true;
      out.status = std::string(kImportAborted);
    } else {
      out.ok = true;
      out.status = std::string(AnythingCounted(out.counts) ? kImportSuccessful : kNoDataImported);
      if (roster) {
        state.io->Tell(std::to_string(out.counts.Processed(ImportRow::kIndividual)) +
                       std::string(kAthletesImported));
      }
      if (psn_results >= 0) state.io->Tell(ResultsProcessedText(psn_results));
      if (nv3 && !session.Matcher().AnyMatch()) {
        state.io->Tell(NoResultsText(session.Matcher()));
        if (const std::string others = OthersFoundText(session.Matcher()); !others.empty()) {
          state.io->Tell(others);
        }
      }
    }
    monitor.Status(out.status);
    return out;
  } catch (const std::exception& e) {
    // The session is gone and with it everything the run wrote. Failures other than the
    // store's and the file system's (a question nobody answered) go to the caller.
    if (!dynamic_cast<const SQLite::Exception*>(&e) && !dynamic_cast<const KvlError*>(&e) &&
        !dynamic_cast<const std::system_error*>(&e)) {
      throw;
    }
    ReportError(state, routine, e);
    state.io->Tell(kNotAllRecordsImported);
    out = ImportOutcome{};
    out.status = std::string(kImportIncomplete);
    monitor.Status(out.status);
    return out;
  }
}

}  // namespace kvlr
