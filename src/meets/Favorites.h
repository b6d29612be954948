#pragma once
// Favourite filters: named pairs of a meet type and a course kept in FAVORITES. The
// default's name stands in OPTIONS.Favorite and state.gFavorite; its values in
// state.gFavoriteMeetType and state.gFavoriteCourse ("" means no filter).
//
// A favourite's course is the course word of the screens' lists ("Yards", "SCM", "LCM",
// core/SwimCodes.h CourseList), its meet type a CODE abbreviation of type 3; "" for none.
// Store failures are reported through ReportError under the routine's name given below.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/AppState.h"

namespace kvlr {

struct Favorite {
  int64_t row = 0;  // the row's id; 0 for one not stored yet
  std::string name;
  std::string meet_type;
  std::string course;
};

// Loads the values of the favourite named by state.gFavorite into gFavoriteMeetType and
// gFavoriteCourse; both are "" when it isn't there. Failures: "basUtil.GetFavorites".
void GetFavorites(AppState& state);

// Makes ApplyDatabaseSettings load the default favourite's values, or clear them when
// gFavorite is empty.
void InstallFavoriteHooks(AppState& state);

// Every favourite by name. Failures ("frmFav.LoadFavorites") give an empty list.
std::vector<Favorite> LoadFavorites(AppState& state);

// The meet types a favourite may take: (abbreviation, description) of CODE rows of type 3
// by abbreviation. Failures ("frmFav.LoadMeetTypes") give an empty list.
std::vector<std::pair<std::string, std::string>> FavoriteMeetTypes(AppState& state);

// Checks and stores the favourite: a new one (row 0) or the row it names. Refusals are
// told ("You must enter a name for this Favorite", "No quote marks are allowed in the
// Favorite Name", "This Filter name already exists.  Please choose another." for a new
// name equal to a stored one but for case and outer blanks). The name is stored trimmed
// and cut to 8 characters. The row's id comes back, nullopt when refused or failed
// ("frmFav.SaveFavorite").
std::optional<int64_t> SaveFavorite(AppState& state, const Favorite& favorite);

// Asks "Remove Favorite"; on yes removes the row, and empties gFavorite and
// OPTIONS.Favorite when it was the default. True if removed.
bool DeleteFavorite(AppState& state, const Favorite& favorite);

// Makes `name` the default (OPTIONS.Favorite and gFavorite) and reloads its values;
// an empty name clears the default. True if stored ("frmFav.SetDefault").
bool SetDefaultFavorite(AppState& state, std::string_view name);

// Leaving the screen: with favourites on file but no default, one box explains and asks
// whether to set one first. True when the screen may close.
bool MayLeaveFavorites(AppState& state);

}  // namespace kvlr
