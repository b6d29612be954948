#include "athletes/AthleteRemoval.h"

#include <optional>
#include <string>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include "athletes/AthleteTexts.h"
#include "athletes/CurrentAthlete.h"
#include "core/ErrorHandler.h"
#include "core/VbRules.h"

namespace kvlr {
namespace {

namespace txt = athlete_text;

struct Swimmer {
  std::string last, first, initial, sex, id_no;
};

std::optional<Swimmer> ReadSwimmer(SQLite::Database& db, int32_t athlete) {
  SQLite::Statement query(db,
                          "SELECT IFNULL(Last, ''), IFNULL(First, ''), IFNULL(Initial, ''), "
                          "IFNULL(Sex, ''), IFNULL(ID_NO, '') FROM Athlete WHERE Athlete = ?");
  query.bind(1, athlete);
  if (!query.executeStep()) return std::nullopt;
  return Swimmer{query.getColumn(0).getString(), query.getColumn(1).getString(),
                 query.getColumn(2).getString(), UCase(Trim(query.getColumn(3).getString())),
                 query.getColumn(4).getString()};
}

void Run(SQLite::Database& db, const char* sql, int32_t a) {
  SQLite::Statement statement(db, sql);
  statement.bind(1, a);
  statement.exec();
}

void Run(SQLite::Database& db, const char* sql, int32_t a, int32_t b) {
  SQLite::Statement statement(db, sql);
  statement.bind(1, a);
  statement.bind(2, b);
  statement.exec();
}

std::string MergeName(const Swimmer& s) {
  return fmt::format("{}, {} {} {}", Trim(s.last), Trim(s.first), Trim(s.initial), Trim(s.id_no));
}

}  // namespace

bool DeleteOneAthlete(AppState& state, int32_t athlete) {
  std::optional<Swimmer> swimmer;
  try {
    swimmer = ReadSwimmer(*state.gDb, athlete);
  } catch (const std::exception& e) {
    ReportError(state, txt::kRemoveSource, e);
    return false;
  }
  if (!swimmer) {
    state.io->Tell(txt::kNotFound);
    return false;
  }
  const std::string question =
      fmt::format("{0}{1}{1}{2}, {3} {4}?", txt::kRemoveQuestion, txt::kBreak, swimmer->last,
                  swimmer->first, swimmer->initial);
  if (!state.io->AskYesNo(question, txt::kRemoveTitle)) return false;
  if (!RemoveOneAthletesRecords(state, athlete)) return false;
  if (state.gAthlete == athlete) state.ClearAthlete();
  return true;
}

bool RemoveOneAthletesRecords(AppState& state, int32_t athlete) {
  SQLite::Database& db = *state.gDb;
  try {
    SQLite::Transaction transaction(db);
    // N legs and relay rows stay: they belong to the relay, not to this swimmer alone.
    Run(db, "DELETE FROM RESULT WHERE ATHLETE = ? AND (I_R = 'I' OR I_R = 'L')", athlete);
    Run(db, "DELETE FROM ENTRY WHERE ATHLETE = ? AND (I_R = 'I' OR I_R = 'E')", athlete);
    Run(db, "DELETE FROM ATHRECR WHERE ATHLETE = ?", athlete);
    Run(db, "DELETE FROM ATHINFO WHERE ATHLETE = ?", athlete);
    // A swimmer's own workouts are filed under the key as their group.
    SQLite::Statement lines(
        db,
        "DELETE FROM Workout WHERE wk_ptr IN (SELECT wk_ptr FROM WkParam WHERE group_abbr = ?)");
    lines.bind(1, std::to_string(athlete));
    lines.exec();
    SQLite::Statement headers(db, "DELETE FROM WkParam WHERE group_abbr = ?");
    headers.bind(1, std::to_string(athlete));
    headers.exec();
    Run(db, "DELETE FROM Athlete WHERE Athlete = ?", athlete);
    transaction.commit();
  } catch (const std::exception& e) {
    ReportError(state, txt::kRemoveSource, e);
    return false;
  }
  return true;
}

bool MergeAthlete(AppState& state, int32_t from, int32_t to) {
  SQLite::Database& db = *state.gDb;
  try {
    SQLite::Transaction transaction(db);
    Run(db, "UPDATE RESULT SET ATHLETE = ? WHERE ATHLETE = ? AND (I_R = 'I' OR I_R = 'L')", to,
        from);
    Run(db, "UPDATE ENTRY SET ATHLETE = ? WHERE ATHLETE = ? AND (I_R = 'I' OR I_R = 'E')", to,
        from);
    Run(db, "DELETE FROM ATHRECR WHERE ATHLETE = ?", from);
    Run(db, "DELETE FROM AthInfo WHERE Athlete = ?", from);
    Run(db, "DELETE FROM Athlete WHERE Athlete = ?", from);
    transaction.commit();
  } catch (const std::exception& e) {
    ReportError(state, txt::kMergeSource, e);
    return false;
  }
  try {
    if (!SetCurrentAthlete(state, to)) state.gAthlete = to;
  } catch (const std::exception& e) {
    // The merge stands; only the current swimmer's details could not be read.
    state.gAthlete = to;
    ReportError(state, txt::kMergeSource, e);
  }
  return true;
}

MergeOutcome MergeAthletes(AppState& state, int32_t from, int32_t to) {
  std::optional<Swimmer> source, destination;
  try {
    source = ReadSwimmer(*state.gDb, from);
    destination = ReadSwimmer(*state.gDb, to);
  } catch (const std::exception& e) {
    ReportError(state, txt::kMergeSource, e);
    return MergeOutcome::kFailed;
  }
  // A swimmer can't be merged into itself: that would only remove it.
  if (from == to) return MergeOutcome::kRefused;
  if (!source || !destination) {
    state.io->Tell(txt::kNotFound);
    return MergeOutcome::kRefused;
  }
  if (source->sex != destination->sex) {
    state.io->Tell(txt::kMergeOtherSex);
    return MergeOutcome::kRefused;
  }
  const std::string question =
      fmt::format("{0}{1}{2}{3}{1}{4}{5}", txt::kMergeWarning, txt::kBreak, txt::kMergeWhat,
                  MergeName(*source), txt::kMergeInto, MergeName(*destination));
  if (!state.io->AskYesNo(question)) return MergeOutcome::kDeclined;
  if (!MergeAthlete(state, from, to)) {
    state.io->Tell(txt::kMergeFailed);
    return MergeOutcome::kFailed;
  }
  return MergeOutcome::kMerged;
}

}  // namespace kvlr
