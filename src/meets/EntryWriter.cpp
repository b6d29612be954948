#include "meets/EntryWriter.h"

#include <optional>
#include <string>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/ErrorHandler.h"

namespace kvlr {
namespace {

std::optional<int64_t> SeekEntry(SQLite::Database& db, int32_t meet, int32_t mt_event,
                                 int32_t athlete, std::string_view i_r) {
  SQLite::Statement q(
      db, "SELECT Entry FROM ENTRY WHERE Meet = ? AND MtEvent = ? AND Athlete = ? AND I_R = ?");
  SQLite::bind(q, meet, mt_event, athlete, std::string(i_r));
  if (!q.executeStep()) return std::nullopt;
  return q.getColumn(0).getInt64();
}

}  // namespace

bool AddNewEntry(AppState& state, int32_t score, std::string_view course, int32_t mt_event,
                 std::string_view i_r, bool no_time, std::string_view misc, std::string_view ex,
                 int32_t athlete) {
  return RunTrapped(state, "basUtil.AddNewEntry", [&] {
    SQLite::Statement add(*state.gDb,
                          "INSERT INTO ENTRY (Meet, Athlete, Course, MtEvent, I_R, Misc, Score, "
                          "Ex) VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
    SQLite::bind(add, state.gCurrentMeet, athlete, std::string(course), mt_event, std::string(i_r),
                 no_time ? std::string("N") : std::string(misc), no_time ? 0 : score,
                 std::string(ex));
    add.exec();
    return true;
  });
}

bool UpdateEntryScore(AppState& state, int32_t score, std::string_view course, int32_t mt_event,
                      std::string_view i_r, bool no_time, std::string_view misc,
                      std::string_view ex, int32_t athlete) {
  std::optional<int64_t> id;
  if (!RunTrapped(state, "basUtil.UpdateEntryScore", [&] {
        id = SeekEntry(*state.gDb, state.gCurrentMeet, mt_event, athlete, i_r);
        return true;
      })) {
    return false;
  }
  if (!id) {
    if (athlete == 0 || state.gCurrentMeet == 0 || mt_event == 0) {
      state.io->Tell(kCantAddEntry);
      return false;
    }
    // The new row already holds its I_R: nothing is left to edit after the add.
    if (!AddNewEntry(state, score, course, mt_event, i_r, no_time, misc, ex, athlete)) {
      state.io->Tell(kCouldNotAddEntry);
      return false;
    }
    return true;
  }
  return RunTrapped(state, "basUtil.UpdateEntryScore", [&] {
    // Ex is only ever set here; the exhibition tick of the screen clears it.
    SQLite::Statement edit(*state.gDb, ex == "X"
                                           ? "UPDATE ENTRY SET Misc = ?, Score = ?, Course = ?, "
                                             "Ex = 'X' WHERE Entry = ?"
                                           : "UPDATE ENTRY SET Misc = ?, Score = ?, Course = ? "
                                             "WHERE Entry = ?");
    SQLite::bind(edit, no_time ? "N" : "", no_time ? 0 : score, std::string(course), *id);
    edit.exec();
    return true;
  });
}

}  // namespace kvlr
