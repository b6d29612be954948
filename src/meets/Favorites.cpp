#include "meets/Favorites.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include <fmt/format.h>

#include "core/Columns.h"
#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "meets/EntryTexts.h"

namespace kvlr {
namespace {

constexpr size_t kNameSize = 8;

std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string out;
  for (std::string_view p : parts) {
    if (!out.empty()) out += entrytxt::kLineBreak;
    out += p;
  }
  return out;
}

bool SameName(std::string_view a, std::string_view b) {
  return UCase(Trim(a)) == UCase(Trim(b));
}

void WriteOptionsFavorite(AppState& state, const std::string& name) {
  SQLite::Statement edit(*state.gDb, "UPDATE OPTIONS SET Favorite = ?");
  edit.bind(1, name);
  edit.exec();
}

}  // namespace

void GetFavorites(AppState& state) {
  state.gFavoriteMeetType.clear();
  state.gFavoriteCourse.clear();
  RunTrapped(state, "basUtil.GetFavorites", [&] {
    // FavName compares without case, as the stored name was found before.
    SQLite::Statement q(*state.gDb,
                        "SELECT FavMeetType, FavCourse FROM FAVORITES WHERE FavName = ? "
                        "ORDER BY FavName LIMIT 1");
    q.bind(1, state.gFavorite);
    if (q.executeStep()) {
      state.gFavoriteMeetType = TextOf(q.getColumn(0));
      state.gFavoriteCourse = TextOf(q.getColumn(1));
    }
    return true;
  });
}

void InstallFavoriteHooks(AppState& state) {
  state.hooks.get_favorites = [](AppState& s) {
    if (s.gFavorite.empty()) {
      s.gFavoriteMeetType.clear();
      s.gFavoriteCourse.clear();
    } else {
      GetFavorites(s);
    }
  };
}

std::vector<Favorite> LoadFavorites(AppState& state) {
  std::vector<Favorite> out;
  RunTrapped(state, "frmFav.LoadFavorites", [&] {
    out.clear();
    SQLite::Statement q(*state.gDb,
                        "SELECT rowid, FavName, FavMeetType, FavCourse FROM FAVORITES "
                        "ORDER BY FavName");
    while (q.executeStep()) {
      out.push_back({q.getColumn(0).getInt64(), TextOf(q.getColumn(1)), TextOf(q.getColumn(2)),
                     TextOf(q.getColumn(3))});
    }
    return true;
  });
  return out;
}

std::vector<std::pair<std::string, std::string>> FavoriteMeetTypes(AppState& state) {
  std::vector<std::pair<std::string, std::string>> out;
  RunTrapped(state, "frmFav.LoadMeetTypes", [&] {
    out.clear();
    SQLite::Statement q(*state.gDb, "SELECT ABBR, DESC FROM CODE WHERE TYPE = ? ORDER BY ABBR");
    q.bind(1, 3);
    while (q.executeStep()) out.emplace_back(TextOf(q.getColumn(0)), TextOf(q.getColumn(1)));
    return true;
  });
  return out;
}

std::optional<int64_t> SaveFavorite(AppState& state, const Favorite& favorite) {
  const std::string name = Trim(favorite.name).substr(0, kNameSize);
  if (name.empty()) {
    state.io->Tell(entrytxt::kNameRequired);
    return std::nullopt;
  }
  if (name.find_first_of("'\"") != std::string::npos) {
    state.io->Tell(entrytxt::kNoQuoteMarks);
    return std::nullopt;
  }
  return RunTrapped(
      state, "frmFav.SaveFavorite",
      [&]() -> std::optional<int64_t> {
        SQLite::Database& db = *state.gDb;
        if (favorite.row != 0) {
          SQLite::Statement edit(db,
                                 "UPDATE FAVORITES SET FavName = ?, FavMeetType = ?, "
                                 "FavCourse = ? WHERE rowid = ?");
          SQLite::bind(edit, name, favorite.meet_type, favorite.course, favorite.row);
          edit.exec();
          return favorite.row;
        }
        SQLite::Statement find(db, "SELECT 1 FROM FAVORITES WHERE upper(trim(FavName)) = ?");
        find.bind(1, UCase(name));
        if (find.executeStep()) {
          state.io->Tell(entrytxt::kNameExists);
          return std::nullopt;
        }
        SQLite::Statement add(
            db, "INSERT INTO FAVORITES (FavName, FavMeetType, FavCourse) VALUES (?, ?, ?)");
        SQLite::bind(add, name, favorite.meet_type, favorite.course);
        add.exec();
        return db.getLastInsertRowid();
      },
      std::optional<int64_t>());
}

bool DeleteFavorite(AppState& state, const Favorite& favorite) {
  if (!state.io->AskYesNo(Joined({entrytxt::kRemoveWarning, entrytxt::kRemoveQuestion}),
                          entrytxt::kRemoveTitle)) {
    return false;
  }
  return RunTrapped(state, "frmFav.DeleteFavorite", [&] {
    SQLite::Statement del(*state.gDb, "DELETE FROM FAVORITES WHERE rowid = ?");
    del.bind(1, favorite.row);
    del.exec();
    if (!state.gFavorite.empty() && SameName(state.gFavorite, favorite.name)) {
      WriteOptionsFavorite(state, "");
      state.gFavorite.clear();
      state.gFavoriteMeetType.clear();
      state.gFavoriteCourse.clear();
    }
    return true;
  });
}

bool SetDefaultFavorite(AppState& state, std::string_view name) {
  const bool stored = RunTrapped(state, "frmFav.SetDefault", [&] {
    WriteOptionsFavorite(state, std::string(name));
    state.gFavorite = std::string(name);
    return true;
  });
  if (stored) GetFavorites(state);
  return stored;
}

bool MayLeaveFavorites(AppState& state) {
  if (!Trim(state.gFavorite).empty()) return true;
  // With no favourite there is nothing to make the default.
  if (LoadFavorites(state).empty()) return true;
  // One question; the second half of the "how" sentence continues on its line.
  const std::string how = fmt::format("{} {}", entrytxt::kNoDefaultHow, entrytxt::kNoDefaultWhere);
  return !state.io->AskYesNo(
      Joined({entrytxt::kNoDefaultSet, how, "", Trim(entrytxt::kSetDefaultQuestion)}));
}

}  // namespace kvlr
