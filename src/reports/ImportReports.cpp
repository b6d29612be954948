// The printed forms of RPTISDIN: an import's exception report and the report of a file,
// whose relay lines make a report of their own.

#include <SQLiteCpp/Statement.h>

#include "core/VbRules.h"
#include "interchange/ImportPrepare.h"
#include "interchange/ImportReport.h"
#include "interchange/ImportReportRows.h"
#include "reports/ReportFill.h"
#include "reports/ReportKinds.h"

namespace kvlr {
namespace {

constexpr std::string_view kNoRows = "There are no import lines to report.";

std::string TimeWithCourse(const std::string& time, const std::string& course) {
  const std::string t = Trim(time);
  return t.empty() ? "" : t + " " + Trim(course);
}

ReportSection IsdinSection(SQLite::Database& rdb, bool relay) {
  ReportSection s;
  s.columns = {{"Reason", 20}, {"Name", 26}, {"Age", 5, ReportColumn::Align::kRight},
               {"Event", 28},  {"Finals", 11, ReportColumn::Align::kRight},
               {"Prelims", 11, ReportColumn::Align::kRight}};
  std::string meet, team;
  for (const ReportRow& r : ReadIsdinRows(rdb, relay)) {
    const IsdinRow& row = r.row;
    const std::string m = Trim(row.meet_name);
    if (!m.empty() && m != meet) {
      meet = m;
      team.clear();
      std::string dates = Trim(row.meet_beg);
      if (!Trim(row.meet_end).empty() && Trim(row.meet_end) != dates) {
        dates += " - " + Trim(row.meet_end);
      }
      s.Group(dates.empty() ? m : m + "  " + dates);
    }
    const std::string t = Trim(Trim(row.team_code) + "  " + Trim(row.team_name));
    if (!t.empty() && t != team) s.SubGroup(team = t);
    const std::string name = IsdinNameText(row);
    const std::string event = IsdinEventText(row);
    if (name.empty() && event.empty()) continue;
    s.Row({r.reason_words, name, Trim(row.age), event, TimeWithCourse(row.f_time, row.f_cors),
           TimeWithCourse(row.p_time, row.p_cors)});
  }
  return s;
}

bool IsdinRowsExist(AppState& state) {
  SQLite::Statement q(*state.gReportDb, "SELECT 1 FROM RPTISDIN LIMIT 1");
  if (q.executeStep()) return true;
  state.io->Tell(kNoRows);
  return false;
}

// The rows are those the last import or file report left; the import screen names the file
// report's title.
bool FillExceptions(AppState& state, const ReportRequest& request) {
  if (!IsdinRowsExist(state)) return false;
  SetReportParameters(state, request.title.empty() ? rpttxt::kExceptionTitle : request.title, {});
  return true;
}

ReportDoc LayoutIsdin(AppState& state, const ReportRequest& request) {
  ReportDoc doc = StartReportDoc(state, request);
  doc.sections.push_back(IsdinSection(*state.gReportDb, false));
  ReportSection relays = IsdinSection(*state.gReportDb, true);
  bool any = false;
  for (const ReportLine& line : relays.lines) any = any || line.kind == ReportLine::Kind::kRow;
  if (any) {
    relays.heading = "Relays";
    relays.new_page = true;
    doc.sections.push_back(std::move(relays));
  }
  return doc;
}

// The file is read as the report mode of the import screen reads it.
bool FillFileReport(AppState& state, const ReportRequest& request) {
  ImportMonitor quiet;
  const ImportFile file = PrepareImportFile(state, quiet, request.file, ImportMode::kReport);
  if (!file.ready) return false;
  const ImportOutcome outcome = RunFileReport(state, quiet, file);
  if (!outcome.ok) return false;
  SetReportParameters(state, ReportTitle(file), {});
  return IsdinRowsExist(state);
}

}  // namespace

void AddImportReports(ReportCatalog& catalog) {
  catalog.Add({"import-exceptions", "the lines the last import of this run refused (printed by the import screen)", FillExceptions,
               LayoutIsdin});
  catalog.Add({"import-file", "what an import file holds (--file F), relays on their own pages",
               FillFileReport, LayoutIsdin});
}

}  // namespace kvlr
