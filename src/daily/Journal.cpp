#include "daily/Journal.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Columns.h"
#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "daily/DailyTexts.h"
#include "meets/Meets.h"

namespace kvlr {

using namespace dailytext;

std::vector<JournalEntry> ListJournal(SQLite::Database& db, JournalOrder order,
                                      std::optional<Date> since) {
  std::string sql = "SELECT rowid, JDate, Subject, Comment FROM JOURNAL";
  if (since) sql += " WHERE substr(JDate, 1, 10) >= ?";
  switch (order) {
    case JournalOrder::kDateDescending: sql += " ORDER BY JDate DESC"; break;
    case JournalOrder::kDateAscending: sql += " ORDER BY JDate"; break;
    case JournalOrder::kSubject: sql += " ORDER BY Subject"; break;
  }
  SQLite::Statement q(db, sql);
  if (since) q.bind(1, since->Iso());
  std::vector<JournalEntry> rows;
  while (q.executeStep()) {
    rows.push_back({q.getColumn(0).getInt64(), DateOf(q.getColumn(1)), TextOf(q.getColumn(2)),
                    TextOf(q.getColumn(3))});
  }
  return rows;
}

JournalOrder NextJournalOrder(JournalOrder now, int column) {
  if (column != 0) return JournalOrder::kSubject;
  return now == JournalOrder::kDateDescending ? JournalOrder::kDateAscending
                                              : JournalOrder::kDateDescending;
}

std::string JournalDateText(const Date& date) {
  return MeetLongDate(date);
}

int64_t SaveJournal(AppState& state, const JournalEntry& entry) {
  if (Trim(entry.subject).empty()) {
    state.io->Tell(kNeedSubject);
    return 0;
  }
  if (!entry.date) {
    state.io->Tell(kNeedDate);
    return 0;
  }
  return RunTrapped(state, "frmJourn.cmdSave_Click", [&]() -> int64_t {
    SQLite::Database& db = *state.gDb;
    const std::string subject = entry.subject.substr(0, 20);
    const std::string comment = entry.comment.substr(0, 255);
    if (entry.row != 0) {
      SQLite::Statement w(db,
                          "UPDATE JOURNAL SET JDate = ?, Subject = ?, Comment = ? WHERE rowid = ?");
      SQLite::bind(w, entry.date->Iso(), subject, comment, entry.row);
      w.exec();
      return entry.row;
    }
    SQLite::Statement w(db, "INSERT INTO JOURNAL (JDate, Subject, Comment) VALUES (?, ?, ?)");
    SQLite::bind(w, entry.date->Iso(), subject, comment);
    w.exec();
    return db.getLastInsertRowid();
  });
}

bool DeleteOneEntry(AppState& state, const JournalEntry& entry) {
  const std::string question = std::string(kRemoveJournalWarning) + "\r" +
                               std::string(kStillRemove) +
                               (entry.date ? JournalDateText(*entry.date) : "") + " - " +
                               entry.subject + " ?";
  if (!state.io->AskYesNo(question, kRemoveJournalTitle)) return false;
  return RunTrapped(state, "frmJourn.DeleteOneEntry", [&] {
    SQLite::Statement s(*state.gDb, "DELETE FROM JOURNAL WHERE rowid = ?");
    s.bind(1, entry.row);
    s.exec();
    return true;
  });
}

}  // namespace kvlr
