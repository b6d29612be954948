#include "interchange/ImportReportRows.h"

#include <SQLiteCpp/Statement.h>

#include "core/SwimCodes.h"

namespace kvlr {

std::vector<ReportRow> ReadIsdinRows(SQLite::Database& report_db, bool relay) {
  SQLite::Statement q(
      report_db,
      "SELECT IFNULL(R.REASON, ''), IFNULL(R.MEETNAME, ''), IFNULL(R.MEETBEG, ''), "
      "IFNULL(R.MEETEND, ''), IFNULL(R.LSC, ''), IFNULL(R.TEAMCODE, ''), IFNULL(R.TEAMNAME, ''), "
      "IFNULL(R.EVSEX, ''), IFNULL(R.DIST, ''), IFNULL(R.STROKE, ''), IFNULL(R.LO_HI, 0), "
      "IFNULL(R.P_TIME, ''), IFNULL(R.P_CORS, ''), IFNULL(R.F_TIME, ''), IFNULL(R.F_CORS, ''), "
      "IFNULL(R.AGE, ''), IFNULL(R.SEX, ''), IFNULL(R.BIRTH, ''), IFNULL(R.LN, ''), "
      "IFNULL(R.FN, ''), IFNULL(R.MI, ''), IFNULL(R.ID_NO, ''), IFNULL(R.IntSTROKE, 0), "
      "IFNULL(R.IntDIST, 0), IFNULL(R.RELAY, ''), IFNULL(R.ONLY, ''), IFNULL(R.DIVING, ''), "
      "(SELECT I.\"DESC\" FROM IMPRULES I WHERE I.REASON = R.REASON LIMIT 1) "
      "FROM RPTISDIN R WHERE (IFNULL(R.RELAY, '') <> '') = ? ORDER BY R.rowid");
  q.bind(1, relay ? 1 : 0);
  std::vector<ReportRow> rows;
  while (q.executeStep()) {
    ReportRow out;
    IsdinRow& r = out.row;
    int i = 0;
    auto text = [&] { return q.getColumn(i++).getString(); };
    auto number = [&] { return q.getColumn(i++).getInt(); };
    r.reason = text();
    r.meet_name = text();
    r.meet_beg = text();
    r.meet_end = text();
    r.lsc = text();
    r.team_code = text();
    r.team_name = text();
    r.ev_sex = text();
    r.dist = text();
    r.stroke = text();
    r.lo_hi = number();
    r.p_time = text();
    r.p_cors = text();
    r.f_time = text();
    r.f_cors = text();
    r.age = text();
    r.sex = text();
    r.birth = text();
    r.ln = text();
    r.fn = text();
    r.mi = text();
    r.id_no = text();
    r.int_stroke = number();
    r.int_dist = number();
    r.relay = text();
    r.only = text();
    r.diving = text();
    out.reason_words = q.getColumn(i).isNull() ? r.reason : q.getColumn(i).getString();
    rows.push_back(std::move(out));
  }
  return rows;
}

std::string IsdinNameText(const IsdinRow& row) {
  if (row.ln.empty() && row.fn.empty()) {
    return !row.relay.empty() && !row.mi.empty() ? "Relay " + row.mi : "";
  }
  std::string name = row.ln;
  if (!row.fn.empty()) name += ", " + row.fn;
  if (!row.mi.empty()) name += " " + row.mi;
  return name;
}

std::string IsdinEventText(const IsdinRow& row) {
  if (row.dist.empty() && row.stroke.empty()) return "";
  std::string text = SexWord(row.ev_sex);
  auto add = [&text](const std::string& part) {
    if (part.empty()) return;
    if (!text.empty()) text += ' ';
    text += part;
  };
  if (row.lo_hi > 0) add(LoHiText(row.lo_hi));
  add(row.dist);
  add(row.stroke);
  return text;
}

}  // namespace kvlr
