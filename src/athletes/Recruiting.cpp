#include "athletes/Recruiting.h"

#include <cmath>

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "athletes/AthleteTexts.h"
#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "store/UserTables.h"

namespace kvlr {
namespace {

namespace txt = athlete_text;

FieldType TypeOf(std::string_view column) {
  return FindTable(UserTables(), "ATHRECR")->Field(column)->type;
}

std::string Shown(const SQLite::Column& column, FieldType type) {
  if (column.isNull()) return "";
  switch (type) {
    case FieldType::kBoolean:
      return column.getInt() != 0 ? "1" : "0";
    case FieldType::kInteger:
      return column.getInt() == 0 ? "" : std::to_string(column.getInt());
    case FieldType::kSingle:
      return column.getDouble() == 0 ? ""
                                     : fmt::format("{}", static_cast<float>(column.getDouble()));
    default:
      return column.getString();
  }
}

void BindValue(SQLite::Statement& s, int index, std::string_view column, const std::string& text) {
  switch (TypeOf(column)) {
    case FieldType::kBoolean:
      s.bind(index, Val(text) != 0 ? 1 : 0);
      break;
    case FieldType::kInteger: {
      const double value = Val(text);
      // Whole numbers go in as such; anything beyond is left for the field's range check.
      if (std::isfinite(value) && std::fabs(value) < 1e15) {
        s.bind(index, static_cast<int64_t>(RoundHalfEven(value)));
      } else {
        s.bind(index, value);
      }
      break;
    }
    case FieldType::kSingle:
      s.bind(index, static_cast<double>(static_cast<float>(Val(text))));
      break;
    default:
      s.bind(index, text);
  }
}

}  // namespace

std::string RecruitingCard::Value(std::string_view column) const {
  const auto it = values.find(column);
  return it == values.end() ? std::string() : it->second;
}

std::optional<RecruitingCard> LoadRecruiting(AppState& state, int32_t athlete) {
  try {
    SQLite::Database& db = *state.gDb;
    SQLite::Statement who(db,
                          "SELECT IFNULL(Last, ''), IFNULL(First, ''), IFNULL(Initial, '') "
                          "FROM Athlete WHERE Athlete = ?");
    who.bind(1, athlete);
    if (!who.executeStep()) {
      state.io->Tell(txt::kNotFound);
      return std::nullopt;
    }
    RecruitingCard card;
    card.athlete = athlete;
    card.heading = fmt::format("{}, {} {}", who.getColumn(0).getString(),
                               who.getColumn(1).getString(), who.getColumn(2).getString());
    std::string columns;
    for (auto c : kRecruitingColumns)
      columns += fmt::format("{}{}", columns.empty() ? "" : ", ", c);
    SQLite::Statement row(db, fmt::format("SELECT {} FROM ATHRECR WHERE Athlete = ?", columns));
    row.bind(1, athlete);
    card.on_file = row.executeStep();
    int i = 0;
    for (auto c : kRecruitingColumns) {
      card.values[std::string(c)] = card.on_file ? Shown(row.getColumn(i), TypeOf(c))
                                                 : (TypeOf(c) == FieldType::kBoolean ? "0" : "");
      ++i;
    }
    return card;
  } catch (const std::exception& e) {
    ReportError(state, txt::kRecruitingLoadSource, e);
    return std::nullopt;
  }
}

bool SaveRecruiting(AppState& state, RecruitingCard& card) {
  try {
    SQLite::Database& db = *state.gDb;
    SQLite::Statement seek(db, "SELECT 1 FROM ATHRECR WHERE Athlete = ?");
    seek.bind(1, card.athlete);
    const bool found = seek.executeStep();
    std::string names;
    std::string marks;
    std::string sets;
    for (auto c : kRecruitingColumns) {
      names += fmt::format("{}{}", names.empty() ? "" : ", ", c);
      marks += marks.empty() ? "?" : ", ?";
      sets += fmt::format("{}{} = ?", sets.empty() ? "" : ", ", c);
    }
    const std::string sql =
        found ? fmt::format("UPDATE ATHRECR SET {} WHERE Athlete = ?", sets)
              : fmt::format("INSERT INTO ATHRECR ({}, Athlete) VALUES ({}, ?)", names, marks);
    SQLite::Statement write(db, sql);
    int i = 1;
    for (auto c : kRecruitingColumns) BindValue(write, i++, c, card.Value(c));
    write.bind(i, card.athlete);
    write.exec();
    card.on_file = true;
  } catch (const std::exception& e) {
    ReportError(state, txt::kRecruitingSaveSource, e);
    return false;
  }
  return true;
}

bool RecruitingPictureOk(UserIo& io, std::string_view path) {
  if (path.size() < 4 || UCase(path.substr(path.size() - 4)) != ".BMP") {
    io.Tell(txt::kNoBmpSelected);
    return false;
  }
  if (path.size() > kRecruitingPictureLimit) {
    io.Tell(txt::kPictureTooLong);
    return false;
  }
  return true;
}

}  // namespace kvlr
