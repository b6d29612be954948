#include "athletes/Team.h"

#include <optional>

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "athletes/AthleteTexts.h"
#include "core/ErrorHandler.h"

namespace kvlr {
namespace {

std::string Names(std::string_view suffix) {
  std::string out;
  for (auto c : kTeamColumns) out += fmt::format("{}{}{}", out.empty() ? "" : ", ", c, suffix);
  return out;
}

std::optional<int64_t> TeamRow(SQLite::Database& db) {
  SQLite::Statement query(db, "SELECT rowid FROM TEAM ORDER BY rowid LIMIT 1");
  if (!query.executeStep()) return std::nullopt;
  return query.getColumn(0).getInt64();
}

}  // namespace

std::string TeamCard::Value(std::string_view column) const {
  const auto it = values.find(column);
  return it == values.end() ? std::string() : it->second;
}

std::string OneLine(std::string_view text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    out += (text[i] == '\r' || text[i] == '\n') ? ' ' : text[i];
  }
  return out;
}

TeamCard LoadTeam(SQLite::Database& db) {
  TeamCard card;
  SQLite::Statement query(db, fmt::format("SELECT {} FROM TEAM ORDER BY rowid LIMIT 1", Names("")));
  card.on_file = query.executeStep();
  int i = 0;
  for (auto c : kTeamColumns) {
    std::string& value = card.values[std::string(c)];
    if (card.on_file) {
      const SQLite::Column column = query.getColumn(i++);
      if (!column.isNull()) value = column.getString();
    }
  }
  return card;
}

bool SaveTeam(AppState& state, TeamCard& card) {
  try {
    SQLite::Database& db = *state.gDb;
    const auto row = TeamRow(db);
    std::string marks;
    for (size_t i = 0; i < kTeamColumns.size(); ++i) marks += i ? ", ?" : "?";
    SQLite::Statement write(
        db, row ? fmt::format("UPDATE TEAM SET {} WHERE rowid = ?", Names(" = ?"))
                : fmt::format("INSERT INTO TEAM ({}) VALUES ({})", Names(""), marks));
    int i = 1;
    for (auto c : kTeamColumns) write.bind(i++, OneLine(card.Value(c)));
    if (row) write.bind(i, *row);
    write.exec();
    card.on_file = true;
  } catch (const std::exception& e) {
    ReportError(state, athlete_text::kTeamSaveSource, e);
    return false;
  }
  return true;
}

}  // namespace kvlr
