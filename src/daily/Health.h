#pragma once
// Health records: a tblHealth row and its tblEvents row (Type 6) under one ID. The list of
// frmHealth, the dialog's save, removal, and the health report's fill and rows.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "core/Date.h"
#include "daily/Calendar.h"

namespace kvlr {

struct HealthRecord {
  int64_t id = 0;
  Date date;
  std::optional<int> start;  // minutes
  std::optional<int> end;
  double hr = 0;
  double sleep = 0;
  double weight = 0;
  int wellness = 0;
  std::string comment;
};

// The swimmer's records from `since` to `until` (either open), by date and start time.
// Store failures throw.
std::vector<HealthRecord> ListHealth(SQLite::Database& db, int32_t athlete,
                                     std::optional<Date> since, std::optional<Date> until);

// The four boxes as typed; each is read as VB reads "" + text as a number, so an empty box
// or one without a number is 0.
struct HealthValues {
  std::string hr, sleep, weight, wellness;
};
// The stored values, or the name of the box whose value doesn't fit its field (Single, or a
// 16-bit Integer for wellness) in *refused.
std::optional<HealthRecord> ReadHealthValues(const HealthValues& values, std::string* refused);

struct HealthForm {
  int64_t id = 0;  // 0 for a new record
  Date date;
  std::string start, end, comment;
  HealthValues values;
};
// frmKVLEVENTHealth's Save, the checks in order (told), then the event row and the health row
// in one transaction for the current swimmer.
EventSaveResult SaveHealth(AppState& state, const HealthForm& form);
// The form of a stored record.
HealthForm HealthFormOf(const HealthRecord& record);

// `DeleteHealth`: asks, then removes both rows. True when removed.
bool DeleteHealth(AppState& state, const HealthRecord& record);

// The health report's options.
struct HealthReportOptions {
  int32_t athlete = 0;
  bool hr = true, sleep = true, weight = true, wellness = true;
  std::optional<Date> since, until;
  bool ascending = false;
};
// The report's title: "Health (by Dates Descending)  Until: <date>".
std::string HealthReportTitle(const HealthReportOptions& options, int date_order);
// Fills HEALTH in the report database. The since filter and the ascending order name the
// table "tbhHealth", which doesn't exist: those runs fail in the store (thrown) as the
// program always did. No rows: told, false.
bool FillHealthReport(AppState& state, const HealthReportOptions& options);

}  // namespace kvlr
