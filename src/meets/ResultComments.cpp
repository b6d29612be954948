#include "meets/ResultComments.h"

#include <SQLiteCpp/Statement.h>

namespace kvlr {

std::optional<std::string> LoadComment(SQLite::Database& db, int64_t result_id) {
  SQLite::Statement q(db, "SELECT Comment FROM tblComments WHERE ResultID = ?");
  q.bind(1, result_id);
  if (!q.executeStep()) return std::nullopt;
  return q.getColumn(0).isNull() ? std::string() : q.getColumn(0).getString();
}

void SaveComment(SQLite::Database& db, int64_t result_id, std::string_view text) {
  const std::string comment(text.substr(0, kCommentSize));
  if (LoadComment(db, result_id)) {
    SQLite::Statement u(db, "UPDATE tblComments SET Comment = ?, ResultID = ? WHERE ResultID = ?");
    u.bind(1, comment);
    u.bind(2, result_id);
    u.bind(3, result_id);
    u.exec();
  } else {
    SQLite::Statement a(db, "INSERT INTO tblComments (Comment, ResultID) VALUES (?, ?)");
    a.bind(1, comment);
    a.bind(2, result_id);
    a.exec();
  }
}

}  // namespace kvlr
