#include "meets/MeetTypes.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "meets/MeetTexts.h"

namespace kvlr {

using namespace meettxt;

std::vector<MeetType> ListMeetTypes(SQLite::Database& db, MeetTypeSort sort) {
  SQLite::Statement q(db, sort == MeetTypeSort::kDescription
                              ? "SELECT ABBR, \"DESC\" FROM CODE WHERE TYPE = ? "
                                "ORDER BY \"DESC\", ABBR"
                              : "SELECT ABBR, \"DESC\" FROM CODE WHERE TYPE = ? "
                                "ORDER BY ABBR, \"DESC\"");
  q.bind(1, kMeetTypeCode);
  std::vector<MeetType> rows;
  while (q.executeStep()) {
    const auto text = [&](int i) {
      return q.getColumn(i).isNull() ? std::string() : q.getColumn(i).getString();
    };
    rows.push_back({text(0), text(1)});
  }
  return rows;
}

std::vector<MeetType> LoadMeetTypeCombo(AppState& state) {
  try {
    return ListMeetTypes(*state.gDb, MeetTypeSort::kAbbr);
  } catch (const std::exception& e) {
    ReportError(state, "basUtil.LoadMeetTypeCombo", e);
    return {};
  }
}

void UpdateCodes(AppState& state, const std::string& old_code, const std::string& new_code) {
  SQLite::Database& db = *state.gDb;
  for (const char* sql : {"UPDATE MEET SET Type = ? WHERE Type = ?",
                          "UPDATE FAVORITES SET FavMeetType = ? WHERE FavMeetType = ?"}) {
    SQLite::Statement s(db, sql);
    SQLite::bind(s, new_code, old_code);
    s.exec();
  }
  if (UCase(state.gFavoriteMeetType) == UCase(old_code)) state.gFavoriteMeetType = new_code;
}

std::string CheckMeetType(SQLite::Database& db, const std::string& original,
                          const std::string& abbr, const std::string& desc) {
  const std::string code = Trim(abbr);
  if (code.empty()) return std::string(kMeetTypeRequired);
  if (Trim(desc).empty()) return std::string(kDescriptionRequired);
  if (UCase(code) != UCase(Trim(original))) {
    SQLite::Statement q(db, "SELECT 1 FROM CODE WHERE TYPE = ? AND ABBR = ?");
    SQLite::bind(q, kMeetTypeCode, code);
    if (q.executeStep()) return std::string(kMeetTypeExists);
  }
  return "";
}

std::string ChangedMeetTypeQuestion(const std::string& old_code, const std::string& new_code) {
  return "Warning: You have changed the original Meet Type from '" + old_code + "' to '" +
         new_code + "'." + std::string(kCrLf) +
         " All occurances of the old Meet Type will be changed to the new one." +
         std::string(kCrLf) + "Do you still want to change the Meet Type ?";
}

std::string RemoveMeetTypeQuestion(const MeetType& type) {
  return std::string("Warning: This action will remove the selected Meet Type") +
         " and clear that code from any Meet " + " or Favorite Filter" + " that is using it." +
         std::string(kCrLf) + "Do you still want to remove: " + type.abbr + " : " + type.desc +
         " ?";
}

bool SaveMeetType(AppState& state, const std::string& original, const std::string& abbr,
                  const std::string& desc) {
  const std::string code = Trim(abbr);
  const std::string old_code = Trim(original);
  return RunTrapped(state, ".SaveCode", [&] {
    SQLite::Database& db = *state.gDb;
    if (const std::string problem = CheckMeetType(db, old_code, code, desc); !problem.empty()) {
      state.io->Tell(problem);
      return false;
    }
    // Only a different spelling of the code touches the meets; a change of case does too.
    const bool changed = !old_code.empty() && code != old_code;
    if (changed &&
        !state.io->AskYesNo(ChangedMeetTypeQuestion(old_code, code), kChangedMeetTypeTitle))
      return false;
    SQLite::Transaction transaction(db);
    if (old_code.empty()) {
      SQLite::Statement add(db, "INSERT INTO CODE (ABBR, \"DESC\", TYPE) VALUES (?, ?, ?)");
      SQLite::bind(add, code, Trim(desc), kMeetTypeCode);
      add.exec();
    } else {
      SQLite::Statement edit(db,
                             "UPDATE CODE SET ABBR = ?, \"DESC\" = ? WHERE TYPE = ? AND ABBR = ?");
      SQLite::bind(edit, code, Trim(desc), kMeetTypeCode, old_code);
      edit.exec();
      if (changed) UpdateCodes(state, old_code, code);
    }
    transaction.commit();
    return true;
  });
}

bool DeleteMeetType(AppState& state, const MeetType& type) {
  if (!state.io->AskYesNo(RemoveMeetTypeQuestion(type), kRemoveMeetTypeTitle)) return false;
  return RunTrapped(state, ".DeleteOneCode", [&] {
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    UpdateCodes(state, type.abbr, "");
    SQLite::Statement drop(db, "DELETE FROM CODE WHERE TYPE = ? AND ABBR = ?");
    SQLite::bind(drop, kMeetTypeCode, type.abbr);
    drop.exec();
    transaction.commit();
    return true;
  });
}

}  // namespace kvlr
