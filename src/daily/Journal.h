#pragma once
// The journal (JOURNAL): free diary entries of a date, a subject and a text. Rows are known
// by their rowid, the table having no key of its own.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

struct JournalEntry {
  int64_t row = 0;  // 0 for a new entry
  std::optional<Date> date;
  std::string subject;  // up to 20 characters
  std::string comment;  // up to 255
};

enum class JournalOrder { kDateDescending, kDateAscending, kSubject };

// The entries in the grid's order; `since` keeps entries on or after it. Store failures throw.
std::vector<JournalEntry> ListJournal(SQLite::Database& db, JournalOrder order,
                                      std::optional<Date> since = std::nullopt);
// The order after a click on column `column` (0 date, else subject): the date column turns
// descending into ascending and back; other columns sort by subject.
JournalOrder NextJournalOrder(JournalOrder now, int column);
// "MMM DD, YYYY".
std::string JournalDateText(const Date& date);

// The save's checks in order (told), then the row written; its rowid, or 0 when refused or
// failed.
int64_t SaveJournal(AppState& state, const JournalEntry& entry);
// `DeleteOneEntry`: asks (title "Remove Journal Entry"), removes. True when removed.
bool DeleteOneEntry(AppState& state, const JournalEntry& entry);

}  // namespace kvlr
