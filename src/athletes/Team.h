#pragma once
// The club record of a database (`frmTeamMaint`, table TEAM, one row at most).

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "core/AppState.h"

namespace kvlr {

// The fields of the screen: code, name, then the mailing and telephone information.
inline constexpr std::array<std::string_view, 12> kTeamColumns = {
    "TCode", "TName", "MailTo", "TAddr", "TCity", "TState",
    "TZip",  "LSC",   "Day",    "Eve",   "Fax",   "EMail"};

struct TeamCard {
  bool on_file = false;                                    // the table has its row
  std::map<std::string, std::string, std::less<>> values;  // by kTeamColumns; nulls as ""

  std::string Value(std::string_view column) const;
};

// The row, or an empty card when the table has none. Store failures throw SQLite::Exception.
TeamCard LoadTeam(SQLite::Database& db);

// Adds the row or edits the one there, each text on one line (line breaks become blanks).
// False, nothing written, on a store failure (reported as frmTeamMaint.SaveTeam).
bool SaveTeam(AppState& state, TeamCard& card);

// `text` with every line break ("\r\n", and a lone "\r" or "\n") replaced by a blank.
std::string OneLine(std::string_view text);

}  // namespace kvlr
