#include "interchange/ImportReportTable.h"

#include <SQLiteCpp/Statement.h>

#include "interchange/MeetText.h"

namespace kvlr {

void ClearIsdin(SQLite::Database& report_db) {
  report_db.exec("DELETE FROM RPTISDIN");
}

void AddIsdinRow(SQLite::Database& report_db, const IsdinRow& r) {
  SQLite::Statement insert(
      report_db,
      "INSERT INTO RPTISDIN (REASON, MEETNAME, MEETBEG, MEETEND, LSC, TEAMCODE, TEAMNAME, "
      "EVSEX, DIST, STROKE, LO_HI, P_TIME, P_CORS, F_TIME, F_CORS, AGE, SEX, BIRTH, LN, FN, MI, "
      "ID_NO, IntSTROKE, IntDIST, RELAY, ONLY, DIVING) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
      "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  // Field widths as the table declares them, in characters; the store refuses longer text.
  const std::pair<const std::string*, size_t> texts[] = {
      {&r.reason, 1},    {&r.meet_name, 45}, {&r.meet_beg, 10}, {&r.meet_end, 10}, {&r.lsc, 3},
      {&r.team_code, 5}, {&r.team_name, 30}, {&r.ev_sex, 1},    {&r.dist, 12},     {&r.stroke, 15}};
  int i = 1;
  for (const auto& [text, width] : texts) insert.bind(i++, Utf8Prefix(*text, width));
  insert.bind(i++, r.lo_hi);
  const std::pair<const std::string*, size_t> more[] = {
      {&r.p_time, 8}, {&r.p_cors, 1}, {&r.f_time, 8}, {&r.f_cors, 1}, {&r.age, 2},   {&r.sex, 1},
      {&r.birth, 10}, {&r.ln, 20},    {&r.fn, 20},    {&r.mi, 1},     {&r.id_no, 17}};
  for (const auto& [text, width] : more) insert.bind(i++, Utf8Prefix(*text, width));
  insert.bind(i++, r.int_stroke);
  insert.bind(i++, r.int_dist);
  for (const std::string* text : {&r.relay, &r.only, &r.diving})
    insert.bind(i++, text->substr(0, 1));
  insert.exec();
}

}  // namespace kvlr
