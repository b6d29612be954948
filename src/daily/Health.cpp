#include "daily/Health.h"

#include <cmath>
#include <limits>

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "daily/DailyTexts.h"
#include "reports/ReportFrame.h"

namespace kvlr {

namespace {

using namespace dailytext;

constexpr const char* kHealthColumns =
    "tblEvents.ID, tblEvents.DATE, tblEvents.StartTime, tblEvents.EndTime, tblHealth.HR, "
    "tblHealth.SLEEP, tblHealth.WEIGHT, tblHealth.WELLNESS, tblEvents.Comment";

HealthRecord RecordOf(SQLite::Statement& q) {
  HealthRecord r;
  r.id = q.getColumn(0).getInt64();
  r.date = DateOf(q.getColumn(1)).value_or(kNullDate);
  r.start = StoredMinutes(TextOf(q.getColumn(2)));
  r.end = StoredMinutes(TextOf(q.getColumn(3)));
  r.hr = q.getColumn(4).getDouble();
  r.sleep = q.getColumn(5).getDouble();
  r.weight = q.getColumn(6).getDouble();
  r.wellness = q.getColumn(7).getInt();
  r.comment = TextOf(q.getColumn(8));
  return r;
}

std::string NumberText(double v) {
  return fmt::format("{:g}", v);
}

}  // namespace

std::vector<HealthRecord> ListHealth(SQLite::Database& db, int32_t athlete,
                                     std::optional<Date> since, std::optional<Date> until) {
  std::string sql = fmt::format(
      "SELECT {} FROM tblHealth INNER JOIN tblEvents ON tblEvents.ID = tblHealth.ID "
      "WHERE tblHealth.Athlete = ?",
      kHealthColumns);
  if (since) sql += " AND substr(tblEvents.DATE, 1, 10) >= ?";
  if (until) sql += " AND substr(tblEvents.DATE, 1, 10) <= ?";
  SQLite::Statement q(db, sql + " ORDER BY substr(tblEvents.DATE, 1, 10), StartTime");
  int n = 1;
  q.bind(n++, athlete);
  if (since) q.bind(n++, since->Iso());
  if (until) q.bind(n++, until->Iso());
  std::vector<HealthRecord> rows;
  while (q.executeStep()) rows.push_back(RecordOf(q));
  return rows;
}

std::optional<HealthRecord> ReadHealthValues(const HealthValues& values, std::string* refused) {
  HealthRecord r;
  const struct {
    const std::string& text;
    double* to;
    std::string_view name;
  } singles[] = {{values.hr, &r.hr, kHeartRate},
                 {values.sleep, &r.sleep, kSleep},
                 {values.weight, &r.weight, kWeight}};
  for (const auto& s : singles) {
    const double v = Val(s.text);
    if (!std::isfinite(v) || std::fabs(v) > std::numeric_limits<float>::max()) {
      if (refused) *refused = s.name;
      return std::nullopt;
    }
    *s.to = static_cast<float>(v);
  }
  const double w = Val(values.wellness);
  if (!std::isfinite(w) || w < -32768.5 || w >= 32767.5) {
    if (refused) *refused = kWellness;
    return std::nullopt;
  }
  r.wellness = static_cast<int>(RoundHalfEven(w));
  return r;
}

HealthForm HealthFormOf(const HealthRecord& r) {
  return {r.id,
          r.date,
          r.start ? ClockText(*r.start) : "",
          r.end ? ClockText(*r.end) : "",
          r.comment,
          {NumberText(r.hr), NumberText(r.sleep), NumberText(r.weight),
           std::to_string(r.wellness)}};
}

EventSaveResult SaveHealth(AppState& state, const HealthForm& form) {
  UserIo& io = *state.io;
  const auto start = TypedEventStart(io, form.start);
  if (!start) return {false, EventFocus::kStart, form.id};
  return RunTrapped(
      state, "frmKVLEVENTHealth.cmdSave_Click",
      [&]() -> EventSaveResult {
        SQLite::Database& db = *state.gDb;
        SQLite::Statement same(db,
                               "SELECT 1 FROM tblEvents WHERE substr(DATE, 1, 10) = ? AND "
                               "Type = 6 AND substr(StartTime, -8, 5) = ? AND ID <> ? AND "
                               "Athlete = ?");
        SQLite::bind(same, form.date.Iso(), StoredTime(*start).substr(11, 5), form.id,
                     state.gAthlete);
        if (same.executeStep()) {
          io.Tell(kTwoEvents);
          return {false, EventFocus::kStart, form.id};
        }
        const auto end = TypedEventEnd(io, form.end, *start);
        if (!end) return {false, EventFocus::kEnd, form.id};
        std::string refused;
        const auto values = ReadHealthValues(form.values, &refused);
        if (!values) {
          io.Tell("Invalid " + refused);
          return {false, EventFocus::kNone, form.id};
        }
        SQLite::Transaction transaction(db);
        int64_t id = form.id;
        const std::string comment = form.comment.substr(0, 80);
        if (id == 0) {
          SQLite::Statement ev(db,
                               "INSERT INTO tblEvents (DATE, Type, Athlete, StartTime, EndTime, "
                               "Comment) VALUES (?, 6, ?, ?, ?, ?)");
          SQLite::bind(ev, form.date.Iso(), state.gAthlete, StoredTime(*start), StoredTime(*end),
                       comment);
          ev.exec();
          id = db.getLastInsertRowid();
        } else {
          SQLite::Statement ev(db,
                               "UPDATE tblEvents SET DATE = ?, StartTime = ?, EndTime = ?, "
                               "Comment = ? WHERE ID = ?");
          SQLite::bind(ev, form.date.Iso(), StoredTime(*start), StoredTime(*end), comment, id);
          ev.exec();
        }
        SQLite::Statement h(db,
                            "INSERT OR REPLACE INTO tblHealth (ID, DATE, Athlete, HR, SLEEP, "
                            "WEIGHT, WELLNESS) VALUES (?, ?, ?, ?, ?, ?, ?)");
        SQLite::bind(h, id, form.date.Iso(), state.gAthlete, values->hr, values->sleep,
                     values->weight, values->wellness);
        h.exec();
        transaction.commit();
        return {true, EventFocus::kNone, id};
      },
      EventSaveResult{false, EventFocus::kNone, form.id});
}

bool DeleteHealth(AppState& state, const HealthRecord& record) {
  const std::string question =
      std::string(kNotReversible) + "\r\n" + std::string(kStillDeleteHealth) + "\r\n" +
      std::string(kDateWord) + ShownDate(record.date, state.gDateOrder) + "\r\n" +
      std::string(kStartTimeWord) + (record.start ? ClockText(*record.start) : "") + " ?";
  if (!state.io->AskYesNo(question)) return false;
  return RunTrapped(state, "frmHealth.DeleteHealth", [&] {
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    for (const char* sql : {"DELETE FROM tblHealth WHERE ID = ?", "DELETE FROM tblEvents WHERE ID = ?"}) {
      SQLite::Statement s(db, sql);
      s.bind(1, record.id);
      s.exec();
    }
    transaction.commit();
    return true;
  });
}

std::string HealthReportTitle(const HealthReportOptions& o, int date_order) {
  std::string title = std::string(kHealthTitle) +
                      std::string(o.ascending ? kByAscending : kByDescending);
  if (o.since) title += std::string(kSincePart) + ShownDate(*o.since, date_order);
  if (o.until) title += std::string(kUntilPart) + ShownDate(*o.until, date_order);
  return title;
}

bool FillHealthReport(AppState& state, const HealthReportOptions& o) {
  const std::string misnamed(kMisnamedHealthTable);
  std::string sql =
      "SELECT tblEvents.DATE, tblEvents.StartTime, tblEvents.Comment, tblHealth.HR, "
      "tblHealth.WEIGHT, tblHealth.SLEEP, tblHealth.WELLNESS FROM tblHealth INNER JOIN "
      "tblEvents ON tblHealth.ID = tblEvents.ID WHERE tblHealth.Athlete = ?";
  if (o.since) sql += " AND " + misnamed + ".DATE >= ?";
  if (o.until) sql += " AND substr(tblHealth.DATE, 1, 10) <= ?";
  sql += o.ascending ? " ORDER BY " + misnamed + ".DATE, StartTime"
                     : " ORDER BY tblHealth.DATE DESC, StartTime";
  SQLite::Statement q(*state.gDb, sql);
  int n = 1;
  q.bind(n++, o.athlete);
  if (o.since) q.bind(n++, o.since->Iso());
  if (o.until) q.bind(n++, o.until->Iso());
  std::string name;
  {
    SQLite::Statement who(*state.gDb, "SELECT First, Last FROM Athlete WHERE Athlete = ?");
    who.bind(1, o.athlete);
    if (who.executeStep()) name = Trim(TextOf(who.getColumn(0)) + " " + TextOf(who.getColumn(1)));
  }
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM HEALTH");
  SQLite::Statement add(rdb,
                        "INSERT INTO HEALTH (NAME, DATE, STARTTIME, COMMENT, HR, WEIGHT, SLEEP, "
                        "WELLNESS) VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
  int rows = 0;
  while (q.executeStep()) {
    add.reset();
    add.clearBindings();
    add.bind(1, name.substr(0, 44));
    add.bind(2, TextOf(q.getColumn(0)).substr(0, 10));
    const auto start = StoredMinutes(TextOf(q.getColumn(1)));
    add.bind(3, start ? ClockText(*start) : "");
    add.bind(4, TextOf(q.getColumn(2)).substr(0, 80));
    // Unchecked measures stay empty.
    if (o.hr) add.bind(5, q.getColumn(3).getDouble());
    if (o.weight) add.bind(6, q.getColumn(4).getDouble());
    if (o.sleep) add.bind(7, q.getColumn(5).getDouble());
    if (o.wellness) add.bind(8, q.getColumn(6).getInt());
    add.exec();
    ++rows;
  }
  if (rows == 0) {
    state.io->Tell(kNoHealthRecords);
    return false;
  }
  transaction.commit();
  SetReportParameters(state, HealthReportTitle(o, state.gDateOrder), {});
  return true;
}

}  // namespace kvlr
