#include "athletes/AthleteCard.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include "athletes/AthleteTexts.h"
#include "athletes/CardTimes.h"
#include "athletes/CurrentAthlete.h"
#include "athletes/FieldSize.h"
#include "core/Columns.h"
#include "core/ErrorHandler.h"
#include "core/VbRules.h"

namespace kvlr {
namespace {

namespace txt = athlete_text;

// Column names joined as "a, b, c" or, with a suffix, "a = ?, b = ?".
template <size_t N>
std::string ColumnList(const std::array<std::string_view, N>& columns, std::string_view suffix,
                       std::string_view prefix = "") {
  std::string out;
  for (auto c : columns) out += fmt::format("{}{}{}{}", out.empty() ? "" : ", ", prefix, c, suffix);
  return out;
}

std::string Placeholders(size_t count) {
  std::string out;
  for (size_t i = 0; i < count; ++i) out += i ? ", ?" : "?";
  return out;
}

std::string WithoutLineBreaks(std::string_view text) {
  std::string out;
  for (char c : text) {
    if (c != '\r' && c != '\n') out += c;
  }
  return out;
}

// Characters as the store counts them: UTF-8 continuation bytes are not counted.
size_t CharacterCount(std::string_view text) {
  size_t count = 0;
  for (char c : text) count += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  return count;
}

struct TooLong {
  std::string message;
  CardField focus = CardField::kNone;
};

// The first value that would not fit its field, as it will be written, in the words of the
// field's constraint; the store would refuse it with a bare "CHECK constraint failed".
std::optional<TooLong> FindTooLong(const AthleteCard& card) {
  const std::pair<std::string_view, std::string> athlete[] = {{"Last", Trim(card.last)},
                                                              {"First", Trim(card.first)},
                                                              {"Initial", Trim(card.initial)},
                                                              {"Pref", Trim(card.pref)},
                                                              {"ID_NO", card.id_no}};
  auto check = [](std::string_view table, std::string_view field,
                  std::string_view value) -> std::optional<std::string> {
    const int size = FieldSize(table, field);
    if (size <= 0 || CharacterCount(value) <= static_cast<size_t>(size)) return std::nullopt;
    return fmt::format("{} can not be longer than {} character{}.", field, size,
                       size == 1 ? "" : "s");
  };
  for (const auto& [field, value] : athlete) {
    if (auto message = check("Athlete", field, value)) {
      const CardField focus = field == "Last"    ? CardField::kLast
                              : field == "First" ? CardField::kFirst
                                                 : CardField::kNone;
      return TooLong{std::move(*message), focus};
    }
  }
  for (auto column : kInfoColumns) {
    if (auto message = check("AthInfo", column, WithoutLineBreaks(card.Info(column)))) {
      return TooLong{std::move(*message)};
    }
  }
  return std::nullopt;
}

struct SameName {
  int32_t athlete;
  int32_t team1;
  std::string sex;
};

// The first other swimmer whose Last, First and Initial match the card's, trimmed and
// upper-cased.
std::optional<SameName> FindSameName(SQLite::Database& db, const AthleteCard& card) {
  SQLite::Statement query(db,
                          "SELECT Athlete, IFNULL(Team1, 0), IFNULL(Sex, '') FROM Athlete "
                          "WHERE UPPER(TRIM(IFNULL(Last, ''))) = ? "
                          "AND UPPER(TRIM(IFNULL(First, ''))) = ? "
                          "AND UPPER(TRIM(IFNULL(Initial, ''))) = ? ORDER BY Athlete");
  query.bind(1, UCase(Trim(card.last)));
  query.bind(2, UCase(Trim(card.first)));
  query.bind(3, UCase(Trim(card.initial)));
  while (query.executeStep()) {
    const int32_t key = query.getColumn(0).getInt();
    if (key == card.athlete) continue;
    return SameName{key, query.getColumn(1).getInt(), UCase(Trim(query.getColumn(2).getString()))};
  }
  return std::nullopt;
}

std::string DuplicateQuestion() {
  return fmt::format("{1}{0}{0}{2}{0}{3}{0}{4}{0}{5}{0}{0}{6}", txt::kBreak, txt::kDuplicateWarning,
                     txt::kDuplicateOptions, txt::kDuplicateYes, txt::kDuplicateNo,
                     txt::kDuplicateCancel, txt::kDuplicateQuestion);
}

// The "No" of the same-name question: the card becomes the swimmer on file, keeping what was
// typed and taking that swimmer's data where the card is empty.
void TakeSwimmerOnFile(AppState& state, AthleteCard& card, int32_t other) {
  const auto on_file = LoadAthleteCard(state, other);
  if (!on_file) return;
  auto fill = [](std::string& mine, const std::string& theirs) {
    if (Trim(mine).empty()) mine = theirs;
  };
  fill(card.last, on_file->last);
  fill(card.first, on_file->first);
  fill(card.initial, on_file->initial);
  fill(card.pref, on_file->pref);
  fill(card.id_no, on_file->id_no);
  if (!card.birth) card.birth = on_file->birth;
  for (const auto& [column, value] : on_file->info) fill(card.info[column], value);
  for (const auto& [column, value] : on_file->times) fill(card.times[column], value);
  card.athlete = other;
}

std::optional<std::string> StoredSex(SQLite::Database& db, int32_t athlete) {
  SQLite::Statement query(db, "SELECT IFNULL(Sex, '') FROM Athlete WHERE Athlete = ?");
  query.bind(1, athlete);
  if (!query.executeStep()) return std::nullopt;
  return UCase(Trim(query.getColumn(0).getString()));
}

bool HasIndividualResults(SQLite::Database& db, int32_t athlete) {
  SQLite::Statement query(db, "SELECT 1 FROM RESULT WHERE ATHLETE = ? AND I_R = 'I' LIMIT 1");
  query.bind(1, athlete);
  return query.executeStep();
}

// Binds the Athlete values in the order of the column lists below, from `first_index`.
int BindAthleteValues(SQLite::Statement& s, const AthleteCard& card, int i) {
  s.bind(i++, Trim(card.last));
  s.bind(i++, Trim(card.first));
  s.bind(i++, Trim(card.initial));
  s.bind(i++, Trim(card.pref));
  s.bind(i++, card.sex);
  s.bind(i++, card.id_no);
  if (card.birth) {
    s.bind(i++, card.birth->Iso());
  } else {
    s.bind(i++);
  }
  for (auto column : kTimeColumns) {
    const auto it = card.times.find(column);
    const auto stored = it == card.times.end() ? std::nullopt : StoredTime(it->second);
    if (stored) {
      s.bind(i++, *stored);
    } else {
      s.bind(i++);
    }
  }
  return i;
}

constexpr std::string_view kAthleteColumns = "Last, First, Initial, Pref, Sex, ID_NO, Birth";
constexpr size_t kAthleteColumnCount = 7;

int32_t WriteAthleteRow(SQLite::Database& db, const AthleteCard& card) {
  if (card.AddMode()) {
    SQLite::Statement insert(
        db, fmt::format("INSERT INTO Athlete ({}, {}) VALUES ({})", kAthleteColumns,
                        ColumnList(kTimeColumns, ""),
                        Placeholders(kAthleteColumnCount + kTimeColumns.size())));
    BindAthleteValues(insert, card, 1);
    insert.exec();
    return static_cast<int32_t>(db.getLastInsertRowid());
  }
  SQLite::Statement update(
      db, fmt::format("UPDATE Athlete SET Last = ?, First = ?, Initial = ?, Pref = ?, Sex = ?, "
                      "ID_NO = ?, Birth = ?, {} WHERE Athlete = ?",
                      ColumnList(kTimeColumns, " = ?")));
  const int next = BindAthleteValues(update, card, 1);
  update.bind(next, card.athlete);
  update.exec();
  return card.athlete;
}

void WriteInfoRow(SQLite::Database& db, int32_t athlete, const AthleteCard& card) {
  SQLite::Statement seek(db, "SELECT 1 FROM AthInfo WHERE Athlete = ?");
  seek.bind(1, athlete);
  const bool found = seek.executeStep();
  const std::string sql =
      found
          ? fmt::format("UPDATE AthInfo SET {} WHERE Athlete = ?", ColumnList(kInfoColumns, " = ?"))
          : fmt::format("INSERT INTO AthInfo ({}, Athlete) VALUES ({})",
                        ColumnList(kInfoColumns, ""), Placeholders(kInfoColumns.size() + 1));
  SQLite::Statement write(db, sql);
  int i = 1;
  for (auto column : kInfoColumns) write.bind(i++, WithoutLineBreaks(card.Info(column)));
  write.bind(i, athlete);
  write.exec();
}

}  // namespace

std::string AthleteCard::Info(std::string_view column) const {
  const auto it = info.find(column);
  return it == info.end() ? std::string() : it->second;
}

AthleteCard NewAthleteCard(const AppState& state) {
  AthleteCard card;
  card.times["StartTimeDay"] = DefaultRangeStart(state.g12Hour);
  card.times["EndTimeDay"] = DefaultRangeEnd(state.g12Hour);
  return card;
}

std::optional<AthleteCard> LoadAthleteCard(AppState& state, int32_t athlete) {
  SQLite::Statement query(
      *state.gDb,
      fmt::format("SELECT a.Last, a.First, a.Initial, a.Pref, a.Sex, a.ID_NO, a.Birth, {}, {} "
                  "FROM Athlete a LEFT JOIN AthInfo i ON i.Athlete = a.Athlete "
                  "WHERE a.Athlete = ?",
                  ColumnList(kTimeColumns, "", "a."), ColumnList(kInfoColumns, "", "i.")));
  query.bind(1, athlete);
  if (!query.executeStep()) return std::nullopt;
  AthleteCard card;
  card.athlete = athlete;
  card.last = TextOf(query.getColumn(0));
  card.first = TextOf(query.getColumn(1));
  card.initial = TextOf(query.getColumn(2));
  card.pref = TextOf(query.getColumn(3));
  card.sex = UCase(Trim(TextOf(query.getColumn(4))));
  card.id_no = TextOf(query.getColumn(5));
  card.birth = Date::FromIso(TextOf(query.getColumn(6)));
  if (card.birth && *card.birth == state.gNullDate) card.birth.reset();
  int i = 7;
  for (auto column : kTimeColumns) {
    card.times[std::string(column)] = ShownTime(TextOf(query.getColumn(i++)), state.g12Hour);
  }
  for (auto column : kInfoColumns) card.info[std::string(column)] = TextOf(query.getColumn(i++));
  if (card.times["StartTimeDay"].empty())
    card.times["StartTimeDay"] = DefaultRangeStart(state.g12Hour);
  if (card.times["EndTimeDay"].empty()) card.times["EndTimeDay"] = DefaultRangeEnd(state.g12Hour);
  return card;
}

SaveOutcome SaveAthlete(AppState& state, AthleteCard& card) {
  UserIo& io = *state.io;
  if (Trim(card.first).empty()) {
    io.Tell(txt::kFirstNameMissing);
    return {SaveStatus::kRefused, CardField::kFirst};
  }
  const std::string sex = UCase(Trim(card.sex));
  if (sex != "M" && sex != "F") {
    io.Tell(txt::kSexMissing);
    return {SaveStatus::kRefused, CardField::kSex};
  }
  card.sex = sex;
  if (const auto too_long = FindTooLong(card)) {
    io.Tell(too_long->message);
    return {SaveStatus::kRefused, too_long->focus};
  }

  SQLite::Database& db = *state.gDb;
  // The question stays outside the traps: an unanswered question is not a store failure.
  std::optional<SameName> hit;
  try {
    hit = FindSameName(db, card);
  } catch (const std::exception& e) {
    ReportError(state, txt::kSaveAthleteSource, e);
    return {SaveStatus::kFailed, CardField::kNone};
  }
  bool take_swimmer_on_file = false;
  if (hit) {
    // A new row has no team yet, so "the same team" is a swimmer on file without one.
    if (card.AddMode() && hit->team1 == 0 && hit->sex == sex) {
      const Answer answer =
          io.Message(DuplicateQuestion(), box::kYesNoCancel + box::kQuestion, txt::kDuplicateTitle);
      if (answer != Answer::kYes && answer != Answer::kNo) {
        return {SaveStatus::kRefused, CardField::kLast};
      }
      take_swimmer_on_file = answer == Answer::kNo;
    } else {
      io.Tell(fmt::format("{}{}{}", txt::kSameNameOnFile, txt::kBreak,
                          hit->sex != sex ? txt::kDuplicateOtherSex : txt::kDuplicateName));
      return {SaveStatus::kRefused, CardField::kLast};
    }
  }

  try {
    if (take_swimmer_on_file) TakeSwimmerOnFile(state, card, hit->athlete);
    if (!card.AddMode()) {
      const auto old_sex = StoredSex(db, card.athlete);
      if (!old_sex) {
        io.Tell(txt::kNotFound);
        return {SaveStatus::kRefused, CardField::kNone};
      }
      if (*old_sex != card.sex && HasIndividualResults(db, card.athlete)) {
        io.Tell(fmt::format("{}{}{}", txt::kHasIndividualResults, txt::kBreak, txt::kSexLocked));
        card.sex = *old_sex;
        return {SaveStatus::kRefused, CardField::kSex};
      }
    }

    SQLite::Transaction transaction(db);
    const int32_t key = WriteAthleteRow(db, card);
    WriteInfoRow(db, key, card);
    transaction.commit();
    card.athlete = key;
    SetCurrentAthlete(state, key);
  } catch (const std::exception& e) {
    // The user saves again when the cause is gone; the card keeps what was typed.
    ReportError(state, txt::kSaveAthleteSource, e);
    return {SaveStatus::kFailed, CardField::kNone};
  }
  return {SaveStatus::kSaved, CardField::kNone};
}

}  // namespace kvlr
