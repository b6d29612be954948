#include "reports/ReportFrame.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "reports/ReportFill.h"
#include "reports/ReportKinds.h"

namespace kvlr {

void SetReportParameters(AppState& state, std::string_view title, const ReportLines& lines,
                         std::string_view sort_by) {
  std::string line1, line2;
  SQLite::Statement options(*state.gDb, "SELECT Line1, Line2 FROM OPTIONS LIMIT 1");
  if (options.executeStep()) {
    line1 = TextOf(options.getColumn(0));
    line2 = TextOf(options.getColumn(1));
  }
  static constexpr const char* kOpenWords[] = {"", "Senior", "Open"};
  const std::string open_event = state.gNoAge >= 0 && state.gNoAge <= 2 ? kOpenWords[state.gNoAge]
                                                                         : "";
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM RPTWINCS");
  SQLite::Statement add(rdb,
                        "INSERT INTO RPTWINCS (rev_date, header1, header2, DateLine, Title, "
                        "GirlSex, BoySex, OpenEvent, SortBy, Language, Total1, Total2, TeamLine, "
                        "MeetLine, MiscLine) VALUES (?,?,?,?,?,?,?,?,?,'',0,0,?,?,?)");
  add.bind(1, state.clock->Today().Iso());
  add.bind(2, FitText(line1, 78));
  add.bind(3, FitText(line2, 78));
  add.bind(4, FitText(lines.date, 78));
  add.bind(5, FitText(title, 88));
  add.bind(6, FitText(GirlWord(state.gFavSex), 6));
  add.bind(7, FitText(BoyWord(state.gFavSex), 6));
  add.bind(8, open_event);
  add.bind(9, FitText(sort_by, 10));
  add.bind(10, FitText(lines.team, 78));
  add.bind(11, FitText(lines.meet, 78));
  add.bind(12, FitText(lines.misc, 78));
  add.exec();
  transaction.commit();
}

ReportParameters ReadReportParameters(SQLite::Database& report_db) {
  ReportParameters p;
  SQLite::Statement q(report_db,
                      "SELECT rev_date, header1, header2, DateLine, Title, GirlSex, BoySex, "
                      "OpenEvent, SortBy, TeamLine, MeetLine, MiscLine FROM RPTWINCS LIMIT 1");
  if (!q.executeStep()) return p;
  p.rev_date = DateOf(q.getColumn(0)).value_or(kNullDate);
  std::string* texts[] = {&p.header1,  &p.header2,    &p.date_line, &p.title,
                          &p.girl_sex, &p.boy_sex,    &p.open_event, &p.sort_by,
                          &p.team_line, &p.meet_line, &p.misc_line};
  for (int i = 0; i < 11; ++i) *texts[i] = TextOf(q.getColumn(i + 1));
  return p;
}

ReportDoc StartReportDoc(AppState& state, const ReportRequest& request) {
  const ReportParameters p = ReadReportParameters(*state.gReportDb);
  ReportDoc doc;
  doc.title = p.title;
  for (const std::string* line :
       {&p.header1, &p.header2, &p.team_line, &p.meet_line, &p.misc_line, &p.date_line}) {
    if (!Trim(*line).empty()) doc.head_lines.push_back(Trim(*line));
  }
  if (p.rev_date != kNullDate) doc.report_date = ShownDate(p.rev_date, state.gDateOrder);
  doc.landscape = request.landscape;
  doc.paper = request.paper;
  if (doc.paper == PaperChoice::kPreferences) {
    int paper_size = 0;
    SQLite::Statement q(*state.gDb, "SELECT PaperSize FROM OPTIONS LIMIT 1");
    if (q.executeStep() && !q.getColumn(0).isNull()) paper_size = q.getColumn(0).getInt();
    doc.paper = paper_size == 1 ? PaperChoice::kLegal : PaperChoice::kLetter;
  }
  return doc;
}

const ReportKind* ReportCatalog::Find(std::string_view name) const {
  for (const ReportKind& kind : kinds_) {
    if (kind.name == name) return &kind;
  }
  return nullptr;
}

ReportCatalog BuiltInReports() {
  ReportCatalog catalog;
  AddAthleteReports(catalog);
  AddMeetReports(catalog);
  AddImportReports(catalog);
  AddWorkoutReports(catalog);
  AddTopTimesReports(catalog);
  return catalog;
}

std::optional<ReportDoc> RunReport(AppState& state, const ReportKind& kind,
                                   const ReportRequest& request) {
  try {
    if (!state.gDb || !state.gReportDb) return std::nullopt;
    if (!kind.fill(state, request)) return std::nullopt;
    return kind.layout(state, request);
  } catch (const std::exception& e) {
    ReportError(state, "basReport." + kind.name, e);
    return std::nullopt;
  }
}

}  // namespace kvlr
