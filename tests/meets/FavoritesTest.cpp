// Favourite filters: saving with its refusals, removing with its question, the default and
// the values loaded from it.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <SQLiteCpp/Statement.h>

#include "meets/Favorites.h"
#include "store/Database.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

class Favorites : public test::DbTest {
 protected:
  void SetUp() override { t.io.shown.clear(); }
  int64_t Add(const std::string& name, const std::string& type, const std::string& course) {
    return SaveFavorite(t.state, {0, name, type, course}).value_or(0);
  }
  std::vector<std::string> Names() {
    std::vector<std::string> out;
    for (const Favorite& f : LoadFavorites(t.state)) out.push_back(f.name);
    return out;
  }
  std::string OptionsFavorite() {
    return Db().execAndGet("SELECT ifnull(Favorite, '') FROM OPTIONS").getString();
  }
};

TEST_F(Favorites, NamesAreCheckedBeforeAnyRowIsWritten) {
  ASSERT_NE(Add("Summer", "AG", "LCM"), 0);
  const std::string_view kRequired = "You must enter a name for this Favorite";
  const std::string_view kNoQuotes = "No quote marks are allowed in the Favorite Name";
  const std::string_view kExists = "This Filter name already exists.  Please choose another.";
  struct Case {
    std::string name;
    std::string_view message;
  };
  const std::vector<Case> cases = {
      {"", kRequired},     {"   ", kRequired},  {"Kid's", kNoQuotes},
      {"A\"B", kNoQuotes}, {"summer", kExists}, {"  SUMMER ", kExists},
  };
  for (const Case& c : cases) {
    t.io.shown.clear();
    EXPECT_FALSE(SaveFavorite(t.state, {0, c.name, "HS", "Yards"}).has_value()) << c.name;
    ASSERT_EQ(t.io.shown.size(), 1u) << c.name;
    EXPECT_EQ(t.io.shown[0].text, c.message);
  }
  EXPECT_EQ(Names(), std::vector<std::string>{"Summer"});
}

TEST_F(Favorites, AddingAndEditingKeepTheValuesByName) {
  Add("Varsity", "HS", "Yards");
  const int64_t row = Add(" Club ", "", "SCM");
  Add("LongNameXYZ", "AG", "");  // cut to eight characters
  EXPECT_EQ(Names(), (std::vector<std::string>{"Club", "LongName", "Varsity"}));
  // Editing may keep its own name; only adding looks for a twin.
  ASSERT_TRUE(SaveFavorite(t.state, {row, "club", "AG", "LCM"}).has_value());
  const std::vector<Favorite> all = LoadFavorites(t.state);
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(all[0].name, "club");
  EXPECT_EQ(all[0].meet_type, "AG");
  EXPECT_EQ(all[0].course, "LCM");
  // The meet types offered come from the codes of meets.
  std::vector<std::string> abbrs;
  for (const auto& [abbr, desc] : FavoriteMeetTypes(t.state)) abbrs.push_back(abbr);
  // A new database holds two meet types and two codes of another kind.
  EXPECT_EQ(abbrs, (std::vector<std::string>{"AG", "HS"}));
}

TEST_F(Favorites, RemovingAsksAndEmptiesTheDefaultItWas) {
  Add("Summer", "AG", "LCM");
  Add("Winter", "HS", "Yards");
  ASSERT_TRUE(SetDefaultFavorite(t.state, "Summer"));
  const std::vector<Favorite> all = LoadFavorites(t.state);
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(DeleteFavorite(t.state, all[0]));
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].title, "Remove Favorite");
  EXPECT_TRUE(t.io.Saw("Warning: This action will remove the selected favorite."));
  EXPECT_NE(t.io.shown[0].text.find("Do you still want to remove it?"), std::string::npos);
  EXPECT_EQ(Names().size(), 2u);
  // Another one goes; the default stays.
  EXPECT_TRUE(DeleteFavorite(t.state, all[1]));
  EXPECT_EQ(t.state.gFavorite, "Summer");
  EXPECT_EQ(OptionsFavorite(), "Summer");
  EXPECT_TRUE(DeleteFavorite(t.state, all[0]));
  EXPECT_TRUE(Names().empty());
  EXPECT_EQ(t.state.gFavorite, "");
  EXPECT_EQ(OptionsFavorite(), "");
  EXPECT_EQ(t.state.gFavoriteCourse, "");
}

TEST_F(Favorites, TheDefaultLoadsItsValuesAndEmptyFieldsGiveEmptyTexts) {
  Add("Summer", "AG", "LCM");
  Add("Plain", "", "");
  ASSERT_TRUE(SetDefaultFavorite(t.state, "Summer"));
  EXPECT_EQ(OptionsFavorite(), "Summer");
  EXPECT_EQ(t.state.gFavoriteMeetType, "AG");
  EXPECT_EQ(t.state.gFavoriteCourse, "LCM");
  ASSERT_TRUE(SetDefaultFavorite(t.state, "Plain"));
  EXPECT_EQ(t.state.gFavoriteMeetType, "");
  EXPECT_EQ(t.state.gFavoriteCourse, "");
  // A name that no row has leaves no filter behind.
  t.state.gFavorite = "Summer";
  GetFavorites(t.state);
  t.state.gFavorite = "Gone";
  GetFavorites(t.state);
  EXPECT_EQ(t.state.gFavoriteMeetType, "");
  EXPECT_EQ(t.state.gFavoriteCourse, "");
  // Opening a database applies the default through the hook.
  InstallFavoriteHooks(t.state);
  Db().exec("UPDATE OPTIONS SET Favorite = 'summer'");
  ApplyDatabaseSettings(t.state);
  EXPECT_EQ(t.state.gFavoriteMeetType, "AG");
  EXPECT_EQ(t.state.gFavoriteCourse, "LCM");
  Db().exec("UPDATE OPTIONS SET Favorite = NULL");
  ApplyDatabaseSettings(t.state);
  EXPECT_EQ(t.state.gFavoriteMeetType, "");
  EXPECT_EQ(t.state.gFavoriteCourse, "");
}

TEST_F(Favorites, LeavingWithoutADefaultAsksFirst) {
  t.state.gFavorite = "";
  EXPECT_TRUE(MayLeaveFavorites(t.state)) << "an empty list has nothing to make the default";
  EXPECT_TRUE(t.io.shown.empty());
  Add("Summer", "HS", "Yards");
  t.io.shown.clear();
  t.io.Script({Answer::kYes});
  EXPECT_FALSE(MayLeaveFavorites(t.state));
  ASSERT_EQ(t.io.shown.size(), 1u) << "one box explains and asks";
  EXPECT_NE(t.io.shown[0].text.find("click on the Heart at the top of the form."),
            std::string::npos);
  t.io.Script({Answer::kNo});
  EXPECT_TRUE(MayLeaveFavorites(t.state));
  t.io.shown.clear();
  t.state.gFavorite = "Summer";
  EXPECT_TRUE(MayLeaveFavorites(t.state));
  EXPECT_TRUE(t.io.shown.empty());
}

}  // namespace
}  // namespace kvlr
