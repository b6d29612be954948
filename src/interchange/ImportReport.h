#pragma once
// The report mode of the import screen: `SDIFReport` and `NV3Report` walk a prepared file
// and fill RPTISDIN (report database) with a row for every meet, team, swimmer, swim and
// relay line, values in their text forms. The database is only read (`GetCurrentAth`).

#include <cstdint>
#include <string>
#include <string_view>

#include "core/AppState.h"
#include "interchange/ImportReportTable.h"
#include "interchange/ImportTypes.h"
#include "interchange/Nv3Records.h"
#include "interchange/SdifRecords.h"

namespace kvlr {

inline constexpr std::string_view kReportBuildSuccessful = " Report Build Successful ";
inline constexpr std::string_view kReportAborted = "Report aborted by user.";
inline constexpr std::string_view kErrorCreatingReport = "Error creating report.";

// Fills RPTISDIN from `file` (ready, .CL2/.SD3/.NV3/.TXT). outcome.status is one of the
// words above; the title of the printed report is ReportTitle(file).
ImportOutcome RunFileReport(AppState& state, ImportMonitor& monitor, const ImportFile& file);

// The swimmer and event of a swim line in their report forms, as the report and an
// import's exception rows show them. `line` is the D0 the record was cut from.
void PutSdifSwim(IsdinRow& row, const SdifD0& d0, std::string_view line, int date_order);
void PutNv3Event(IsdinRow& row, const Nv3EventKey& key, std::string_view i_r);

// "Export/Import File Report - " + the file kind.
std::string ReportTitle(const ImportFile& file);

// `GetCurrentAth`: the Athlete key of a file's swimmer in the open database, 0 when none.
int32_t GetCurrentAth(AppState& state, std::string_view id_no, std::string_view last,
                      std::string_view first, std::string_view initial, std::string_view birth_iso);

}  // namespace kvlr
