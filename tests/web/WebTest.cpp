#include <chrono>
#include <fstream>

#include <gtest/gtest.h>

#include "support/DbTest.h"
#include "web/KvlrWeb.h"
#include "web/UpdateFiles.h"
#include "web/WebPages.h"
#include "web/WebSettings.h"
#include "web/WebTexts.h"

namespace kvlr {
namespace {
namespace fs = std::filesystem;

class FavoritesTest : public test::DbTest {
 protected:
  FixedPages fixed = DefaultWebSettings().pages;
  std::string Pages() { return Rows("SELECT URL, Comment FROM tblWebPages ORDER BY URL"); }
};

TEST_F(FavoritesTest, AddKeepsOneRowAndRefusesToolbarPages) {
  EXPECT_TRUE(AddWebPage(t.state, fixed, "https://meets.example.org/o'hara", "O'Hara Meets"));
  EXPECT_FALSE(AddWebPage(t.state, fixed, "https://MEETS.example.org/o'hara", "Again"));
  EXPECT_EQ(LastShown(), web_text::kAlreadyFavorite);
  // A fixed page without its trailing slash is still that page.
  EXPECT_FALSE(AddWebPage(t.state, fixed, "https://swimswam.com", "News"));
  EXPECT_EQ(LastShown(), web_text::kOnToolbar);
  EXPECT_FALSE(AddWebPage(t.state, fixed, "https://x.example/" + std::string(90, 'a'), "Long"));
  // A blank title keeps the address, cut to the field.
  EXPECT_TRUE(AddWebPage(t.state, fixed, "file:///home/sam/" + std::string(40, 'p') + ".html", " "));
  EXPECT_EQ(Pages(), "file:///home/sam/" + std::string(40, 'p') + ".html|file:///home/sam/" +
                         std::string(33, 'p') + "\n"
                         "https://meets.example.org/o'hara|O'Hara Meets\n");
}

TEST_F(FavoritesTest, DeleteAsksAndOnlyYesDeletes) {
  ASSERT_TRUE(AddWebPage(t.state, fixed, "https://club.example/", "Club"));
  const WebPage page = LoadWebPages(Db()).at(0);
  t.io.Script({Answer::kNo, Answer::kYes});
  EXPECT_FALSE(DeleteWebPage(t.state, page));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblWebPages"), 1);
  EXPECT_TRUE(DeleteWebPage(t.state, page));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblWebPages"), 0);
  EXPECT_EQ(t.io.shown.back().text, "Delete Club at https://club.example/?");
  EXPECT_EQ(t.io.shown.back().title, web_text::kDeleteTitle);
}

TEST(UpdateFiles, DownloadCountsOnlyWhenWrittenAfterOpening) {
  test::TempHome t;
  const fs::path zip = t.Root() / "KVL-RUP.zip";
  const auto opened = fs::file_time_type::clock::now();
  EXPECT_FALSE(DownloadedUpdate(t.Root(), opened));
  std::ofstream(zip) << "zip";
  fs::last_write_time(zip, opened - std::chrono::minutes(5));
  EXPECT_FALSE(DownloadedUpdate(t.Root(), opened));
  fs::last_write_time(zip, opened + std::chrono::seconds(2));
  EXPECT_EQ(DownloadedUpdate(t.Root(), opened), zip);

  // The newest package wins across folders; other files are not packages.
  const fs::path deb = t.Home() / "kvl-r_2.2-1_amd64.deb";
  fs::create_directories(t.Home());
  std::ofstream(deb) << "deb";
  std::ofstream(t.Home() / "other_1.0_amd64.deb") << "deb";
  fs::last_write_time(deb, opened + std::chrono::seconds(1));
  EXPECT_EQ(FindUpdatePackage({t.Home(), t.Root()}), zip);
  fs::last_write_time(deb, opened + std::chrono::seconds(3));
  EXPECT_EQ(FindUpdatePackage({t.Home(), t.Root()}), deb);
}

TEST(WebSettingsText, LinesOverrideDefaults) {
  const WebSettings s = ParseWebSettings("Page2=https://lsc.example/\nPage2Name=LSC\nPage9=x\n"
                                         "Restricted = yes\nnonsense\n");
  EXPECT_TRUE(s.restricted);
  EXPECT_EQ(s.pages[1].url, "https://lsc.example/");
  EXPECT_EQ(s.pages[1].comment, "LSC");
  EXPECT_EQ(s.pages[0].url, DefaultWebSettings().pages[0].url);
}

TEST(KvlrWeb, SwimmerPageEscapesEveryText) {
  HomeTable bests;
  bests.title = "Best <Times>";
  bests.headers = {"Event", "Yards"};
  bests.rows = {{"50 Free", "26.31"}};
  HomeTable goals;
  goals.title = "Goals";
  goals.headers = {"Event"};
  goals.empty_text = "No goals";
  const std::string html = SwimmerPageHtml("KVL-R for Tess O'Hara", "As of 11/22/2026", {bests, goals});
  EXPECT_NE(html.find("<title>KVL-R for Tess O&#39;Hara</title>"), std::string::npos);
  EXPECT_NE(html.find("<tr><td valign=\"bottom\" colspan=\"32\" nowrap><font face=\"Times New "
                      "Roman\"><b><i>Best &lt;Times&gt;</i></b></font></td></tr>"),
            std::string::npos);
  EXPECT_NE(html.find("<tr><td align=\"left\" valign=\"bottom\"><strong>Event</strong></td>"
                      "<td align=\"right\" valign=\"bottom\"><strong>Yards</strong></td></tr>"),
            std::string::npos);
  EXPECT_NE(html.find("<td align=\"right\" valign=\"top\">26.31</td>"), std::string::npos);
  EXPECT_NE(html.find(">No goals<"), std::string::npos);
  EXPECT_EQ(html.find("O'Hara"), std::string::npos);
  EXPECT_EQ(html.find("<Times>"), std::string::npos);
}

}  // namespace
}  // namespace kvlr
