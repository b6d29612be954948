#pragma once
// Copying a brother's or sister's address onto the athlete card (`cmdSibling`).

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "athletes/AthleteCard.h"

namespace kvlr {

// The AthInfo columns a sibling's address gives the card.
inline constexpr std::array<std::string_view, 10> kSiblingColumns = {
    "Addr", "SecAddr", "City", "State", "Cntry", "ZIP", "EMail", "DayP1", "EveP1", "FaxP1"};

struct Sibling {
  int32_t athlete = 0;
  std::string name;  // display name
};

// The other swimmers (all but `except`) whose AthInfo holds an address, by name. Empty: the
// card hides the button. Store failures throw SQLite::Exception.
std::vector<Sibling> SiblingsWithAddress(SQLite::Database& db, int32_t except);

// Copies kSiblingColumns of `sibling` onto the card; false when it has no AthInfo row.
bool CopySiblingAddress(SQLite::Database& db, int32_t sibling, AthleteCard& card);

}  // namespace kvlr
