#pragma once
// The recruiting profile of a swimmer (`frmRecr`, table ATHRECR, one row a swimmer).

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "core/AppState.h"

namespace kvlr {

// The columns the screen writes, in the order it writes them.
inline constexpr std::array<std::string_view, 33> kRecruitingColumns = {
    "HS_Name",  "HS_Phone", "HS_Addr",   "HS_City",   "HS_ZIP",     "Grad",     "HS_GPA",
    "HS_Rank",  "HS_Num",   "HS_Coach",  "T1Name",    "T2Name",     "T3Name",   "T3SName1",
    "T3SName2", "T1Score",  "T2Score",   "T3Score1",  "T3Score2",   "HS_Study", "Awards",
    "Add_Info", "Oth_Team", "Oth_Coach", "Oth_Phone", "Activities", "Camps",    "Weight",
    "Comments", "HS_State", "Height",    "Picture",   "Video"};

inline constexpr size_t kRecruitingPictureLimit = 60;

struct RecruitingCard {
  int32_t athlete = 0;
  std::string heading;   // Last + ", " + First + " " + Initial
  bool on_file = false;  // the swimmer has a row already
  // By kRecruitingColumns, as the screen shows them: numbers as text ("" for 0), Video "1"/"0".
  std::map<std::string, std::string, std::less<>> values;

  std::string Value(std::string_view column) const;
};

// The profile of `athlete`; a swimmer without a row gets an empty card. nullopt, with
// "Athlete not found" told, when the swimmer doesn't exist or the store failed (reported).
std::optional<RecruitingCard> LoadRecruiting(AppState& state, int32_t athlete);

// Adds the row or edits it. Numbers are read as VB's Val reads them (empty is 0). False,
// nothing written, on a store failure (reported as frmRecr.SaveRecruiting), for instance a
// text over its field's size.
bool SaveRecruiting(AppState& state, RecruitingCard& card);

// The picture chosen in the "Import Picture" dialog: must end in ".BMP" (any case) and be at
// most kRecruitingPictureLimit characters with its path; otherwise false, words told.
bool RecruitingPictureOk(UserIo& io, std::string_view path);

}  // namespace kvlr
