#pragma once
// Meet types: rows of CODE with TYPE 3, a code of up to three characters (ABBR) and its
// description. A code in use stands in MEET.Type and FAVORITES.FavMeetType; changing or
// removing a code changes it there too. Texts are compared without case, as the store does.

#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"

namespace kvlr {

inline constexpr int kMeetTypeCode = 3;

struct MeetType {
  std::string abbr;
  std::string desc;
};

enum class MeetTypeSort { kDescription, kAbbr };

// The rows of frmCodes: by description then code, or by code then description. Store
// failures throw.
std::vector<MeetType> ListMeetTypes(SQLite::Database& db, MeetTypeSort sort);

// `LoadMeetTypeCombo`: the rows of the meet type lists, by code. A failure is reported
// ("basUtil.LoadMeetTypeCombo") and gives an empty list.
std::vector<MeetType> LoadMeetTypeCombo(AppState& state);

// `UpdateCodes`: every MEET.Type and FAVORITES.FavMeetType equal to `old_code` becomes
// `new_code` (also state.gFavoriteMeetType). Store failures throw.
void UpdateCodes(AppState& state, const std::string& old_code, const std::string& new_code);

// frmCodMt's checks in order; "" when the card passes. `original` is the code being edited,
// "" for a new one.
std::string CheckMeetType(SQLite::Database& db, const std::string& original,
                          const std::string& abbr, const std::string& desc);

// The question when an edit changes the code.
std::string ChangedMeetTypeQuestion(const std::string& old_code, const std::string& new_code);
// The question before removing a code.
std::string RemoveMeetTypeQuestion(const MeetType& type);

// Saves the card: the checks (told), on a changed code the question (No: nothing saved),
// then the row and UpdateCodes in one transaction. True when saved; a store failure is
// reported (".SaveCode") and gives false.
bool SaveMeetType(AppState& state, const std::string& original, const std::string& abbr,
                  const std::string& desc);

// Asks, then clears the code from meets and favourites and removes the row, in one
// transaction. True when removed; failures are reported (".DeleteOneCode").
bool DeleteMeetType(AppState& state, const MeetType& type);

}  // namespace kvlr
