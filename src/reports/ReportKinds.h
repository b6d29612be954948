#pragma once
// The kinds of this folder, each file adding its own, and the small reading helpers their
// layouts share. Internal to src/reports.

#include <cstdint>
#include <string>

#include <SQLiteCpp/Database.h>

#include "reports/ReportFrame.h"

namespace kvlr {

void AddAthleteReports(ReportCatalog& catalog);  // recruiting, goals
void AddMeetReports(ReportCatalog& catalog);     // meets, results, entries, standards
void AddImportReports(ReportCatalog& catalog);   // exception report, file report
void AddWorkoutReports(ReportCatalog& catalog);  // logbook, workout statistics
void AddTopTimesReports(ReportCatalog& catalog);  // top times, of all meets or one

// The RSPLITS row `split_id` as one line: "29.80  1:01.20", with the laps in brackets
// where the row has them; "" when there is none.
std::string SplitsText(SQLite::Database& report_db, int64_t split_id);

// An age group for a report: the OpenEvent word of RPTWINCS for 99, else LoHiText.
std::string ReportAgeText(int lo_hi, const ReportParameters& p);
// The GirlSex or BoySex word of RPTWINCS for "F" or "M", "Mixed" for "X".
std::string ReportSexWord(std::string_view sex, const ReportParameters& p);

// The swimmer a report is for: the request's, else the current one.
int32_t RequestedAthlete(const AppState& state, const ReportRequest& request);

}  // namespace kvlr
