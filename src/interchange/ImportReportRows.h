#pragma once
// The rows of RPTISDIN as a screen lists them, with the words of their reasons (IMPRULES)
// and the name and event of each row as one text.

#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "interchange/ImportReportTable.h"

namespace kvlr {

struct ReportRow {
  IsdinRow row;
  std::string reason_words;  // IMPRULES' Desc of the reason; the code itself when unknown
};

// Every row in the order written; `relay` picks the relay report's rows (RELAY set) or the
// others. Throws on a store failure.
std::vector<ReportRow> ReadIsdinRows(SQLite::Database& report_db, bool relay);

// "LAST, FIRST M"; a relay team's row (no swimmer) "Relay A"; "" for none.
std::string IsdinNameText(const IsdinRow& row);
// "Female 11-12 100 Free": sex word, age group (LoHiText), distance and stroke words of
// what the row has; "" for a row without an event.
std::string IsdinEventText(const IsdinRow& row);

}  // namespace kvlr
