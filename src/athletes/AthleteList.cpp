#include "athletes/AthleteList.h"

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "athletes/AthleteTexts.h"
#include "core/Columns.h"
#include "core/DateText.h"
#include "core/VbRules.h"

namespace kvlr {
namespace {

// The ORDER BY text of a column; names only, never values.
std::string OrderBy(std::optional<ListColumn> sort, bool descending) {
  if (!sort) return "Last, First";
  const char* way = descending ? " DESC" : "";
  const char* back = descending ? "" : " DESC";
  switch (*sort) {
    // Active swimmers come first in the ascending order, the way the list shows them.
    case ListColumn::kActive:
      return fmt::format("Inactive{}, Last, First", way);
    case ListColumn::kLast:
      return fmt::format("Last{0}, First{0}", way);
    case ListColumn::kFirst:
      return fmt::format("First{}, Last", way);
    case ListColumn::kInitial:
      return fmt::format("Initial{}, Last, First", way);
    case ListColumn::kSex:
      return fmt::format("Sex{}, Last, First", way);
    // Swimmers without a birth date come last either way.
    case ListColumn::kBirth:
      return fmt::format("Birth IS NULL, Birth{}, Last, First", way);
    case ListColumn::kAge:
      return fmt::format("Birth IS NULL, Birth{}, Last, First", back);
    case ListColumn::kPref:
      return fmt::format("Pref{}, Last, First", way);
    case ListColumn::kId:
      return fmt::format("ID_NO{}, Last, First", way);
  }
  return "Last, First";
}

}  // namespace

std::vector<AthleteListRow> ListAthletes(SQLite::Database& db, std::optional<ListColumn> sort,
                                         bool descending) {
  SQLite::Statement query(
      db,
      "SELECT Athlete, IFNULL(Inactive, 0), Last, First, Initial, Sex, Birth, Pref, ID_NO "
      "FROM Athlete WHERE Athlete <> 0 ORDER BY " +
          OrderBy(sort, descending));
  std::vector<AthleteListRow> rows;
  while (query.executeStep()) {
    AthleteListRow row;
    row.athlete = query.getColumn(0).getInt();
    row.active = query.getColumn(1).getInt() == 0;
    row.last = TextOf(query.getColumn(2));
    row.first = TextOf(query.getColumn(3));
    row.initial = TextOf(query.getColumn(4));
    row.sex = TextOf(query.getColumn(5));
    row.birth = Date::FromIso(TextOf(query.getColumn(6)));
    if (row.birth && *row.birth == kNullDate) row.birth.reset();
    row.pref = TextOf(query.getColumn(7));
    row.id_no = TextOf(query.getColumn(8));
    rows.push_back(std::move(row));
  }
  return rows;
}

int AthleteRowCount(SQLite::Database& db) {
  return db.execAndGet("SELECT COUNT(*) FROM Athlete").getInt();
}

bool MayAddAthlete(AppState& state) {
  if (AthleteRowCount(*state.gDb) < kMaxAthletes) return true;
  state.io->Tell(athlete_text::kMaximum);
  return false;
}

void SetAthleteActive(SQLite::Database& db, int32_t athlete, bool active) {
  SQLite::Statement update(db, "UPDATE Athlete SET Inactive = ? WHERE Athlete = ?");
  update.bind(1, active ? 0 : 1);
  update.bind(2, athlete);
  update.exec();
}

std::optional<int> ListAge(const AthleteListRow& row, const Date& today) {
  if (!row.birth) return std::nullopt;
  return AgeAtDate(row.birth, today);
}

std::string ListName(const AthleteListRow& row) {
  return fmt::format("{}, {} {}", Trim(row.last), Trim(row.first), Trim(row.initial));
}

}  // namespace kvlr
