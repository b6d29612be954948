#pragma once
// RPTISDIN, the report table of an import file: one row for each line reported (the
// report mode) or refused (an import's exception rows). Reason "Y" is a line that was
// taken, "1" one refused because the same result is on file (words in IMPRULES).

#include <string>

#include <SQLiteCpp/Database.h>

namespace kvlr {

struct IsdinRow {
  std::string reason;
  std::string meet_name, meet_beg, meet_end;
  std::string lsc, team_code, team_name;
  std::string ev_sex, dist, stroke;
  int lo_hi = 0;
  std::string p_time, p_cors, f_time, f_cors;
  std::string age, sex, birth, ln, fn, mi, id_no;
  int int_stroke = 0, int_dist = 0;
  std::string relay, only, diving;  // relay rows
};

// "DELETE * FROM RPTISDIN".
void ClearIsdin(SQLite::Database& report_db);
// Appends a row; texts longer than their fields are cut to fit.
void AddIsdinRow(SQLite::Database& report_db, const IsdinRow& row);

}  // namespace kvlr
