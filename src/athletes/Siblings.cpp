#include "athletes/Siblings.h"

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "athletes/CurrentAthlete.h"

namespace kvlr {

std::vector<Sibling> SiblingsWithAddress(SQLite::Database& db, int32_t except) {
  SQLite::Statement query(
      db,
      "SELECT a.Athlete, IFNULL(a.Pref, ''), IFNULL(a.First, ''), IFNULL(a.Initial, ''), "
      "IFNULL(a.Last, '') FROM Athlete a INNER JOIN AthInfo i ON i.Athlete = a.Athlete "
      "WHERE TRIM(IFNULL(i.Addr, '')) <> '' AND a.Athlete <> ? AND a.Athlete <> 0 "
      "ORDER BY a.Last, a.First");
  query.bind(1, except);
  std::vector<Sibling> siblings;
  while (query.executeStep()) {
    siblings.push_back(
        {query.getColumn(0).getInt(),
         AthleteDisplayName(query.getColumn(1).getString(), query.getColumn(2).getString(),
                            query.getColumn(3).getString(), query.getColumn(4).getString())});
  }
  return siblings;
}

bool CopySiblingAddress(SQLite::Database& db, int32_t sibling, AthleteCard& card) {
  std::string columns;
  for (auto c : kSiblingColumns)
    columns += fmt::format("{}IFNULL({}, '')", columns.empty() ? "" : ", ", c);
  SQLite::Statement query(db, fmt::format("SELECT {} FROM AthInfo WHERE Athlete = ?", columns));
  query.bind(1, sibling);
  if (!query.executeStep()) return false;
  int i = 0;
  for (auto c : kSiblingColumns) card.info[std::string(c)] = query.getColumn(i++).getString();
  return true;
}

}  // namespace kvlr
