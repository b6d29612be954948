// Meets: the list's filters and sorts, the card's checks and save with its calendar rows,
// removal, merging, the meet choice list, the doors to entries and results, meet types.

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "meets/MeetRows.h"
#include "meets/MeetTexts.h"
#include "meets/MeetTypes.h"
#include "meets/Meets.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::AddEntryRow;
using test::AddEventRow;
using test::AddMeetRow;
using test::AddResultRow;

MeetForm Card(const std::string& name, const std::string& course, const std::string& start,
              const std::string& since) {
  MeetForm form;
  form.mname = name;
  form.course = course;
  form.start = start;
  form.since = since;
  return form;
}

Meet MeetOn(int32_t key, const std::string& course, const Date& start) {
  Meet m;
  m.meet = key;
  m.mname = "M" + std::to_string(key);
  m.course = course;
  m.start = start;
  return m;
}

class MeetsTest : public ::testing::Test {
 protected:
  void SetUp() override { test::MakeOpenDatabase(t); }
  SQLite::Database& Db() { return *t.state.gDb; }
  long long Count(const std::string& sql) { return test::QueryNumber(Db(), sql); }
  long long Count(const std::string& sql, long long value) {
    return test::QueryNumber(Db(), sql, value);
  }
  std::string LastShown() const { return t.io.shown.empty() ? "" : t.io.shown.back().text; }
  static std::vector<std::string> Names(const std::vector<Meet>& rows) {
    std::vector<std::string> names;
    for (const auto& m : rows) names.push_back(m.mname);
    return names;
  }

  test::TempHome t;
};

TEST_F(MeetsTest, ListLeavesOutGoalsAndPseudoMeetsAndFilters) {
  AddMeetRow(Db(), "Bay Open", "2026-03-01", "YO", "USS");
  AddMeetRow(Db(), "Cove Cup", "2026-05-10", "L", "HS");
  AddMeetRow(Db(), "Alder Dual", "2025-12-01", "S");
  AddMeetRow(Db(), "Goal", "2026-06-01", "Y", "G");
  AddMeetRow(Db(), "Old Times", "1990-01-01", "Y");
  AddMeetRow(Db(), "Dune Relays", "2026-03-01", "y", "uss");

  struct Case {
    MeetFilter filter;
    std::vector<std::string> names;
  };
  const std::vector<Case> cases = {
      {{}, {"Cove Cup", "Bay Open", "Dune Relays", "Alder Dual"}},
      {{0, {}, "", MeetSort::kStartOldest}, {"Alder Dual", "Bay Open", "Dune Relays", "Cove Cup"}},
      {{0, {}, "", MeetSort::kName}, {"Alder Dual", "Bay Open", "Cove Cup", "Dune Relays"}},
      {{0, {}, "", MeetSort::kCourseNewest}, {"Cove Cup", "Alder Dual", "Dune Relays", "Bay Open"}},
      {{'Y', {}, "", MeetSort::kName}, {"Bay Open", "Dune Relays"}},
      {{0, Date{2026, 3, 1}, "", MeetSort::kName}, {"Bay Open", "Cove Cup", "Dune Relays"}},
      {{0, {}, "USS", MeetSort::kName}, {"Bay Open", "Dune Relays"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Names(ListMeets(Db(), c.filter)), c.names) << SortCaption(c.filter.sort);
  }
}

TEST_F(MeetsTest, LetterJumpsToFirstNameNotBelowIt) {
  AddMeetRow(Db(), "alder Dual", "2026-01-01");
  AddMeetRow(Db(), "Cove Cup", "2026-01-02");
  AddMeetRow(Db(), "Elm Sprint", "2026-01-03");
  const auto rows = ListMeets(Db(), {0, {}, "", MeetSort::kName});
  EXPECT_EQ(FirstMeetFrom(rows, 'b'), 1);
  EXPECT_EQ(FirstMeetFrom(rows, 'C'), 1);
  EXPECT_EQ(FirstMeetFrom(rows, 'A'), 0);
  EXPECT_EQ(FirstMeetFrom(rows, 'Z'), -1);
}

TEST_F(MeetsTest, FavoriteGivesStartFilter) {
  t.state.gFavoriteMeetType = "USS";
  t.state.gFavoriteCourse = "LCM";
  const MeetFilter f = FavoriteMeetFilter(t.state);
  EXPECT_EQ(f.type, "USS");
  EXPECT_EQ(f.course, 'L');
  t.state.gFavoriteCourse = "";
  EXPECT_EQ(FavoriteMeetFilter(t.state).course, 0);
}

TEST_F(MeetsTest, CardChecksInOrder) {
  struct Case {
    MeetForm form;
    std::string_view words;
  };
  const std::vector<Case> cases = {
      {Card(" ", "", "", "x"), meettxt::kMeetNameRequired},
      {Card("Bay", "", "", "x"), meettxt::kSelectCourse},
      {Card("Bay", "Q", "", ""), meettxt::kSelectCourse},
      {Card("Bay", "YO", "", "x"), meettxt::kStartRequired},
      {Card("Bay", "YO", "02/30/2026", ""), meettxt::kStartRequired},
      {Card("Bay", "L", "03/01/2026", "13/45/2026"), meettxt::kInvalidSince},
      {Card("Bay", "L", "03/01/2026", ""), ""},
      {Card("Bay", "S", "03/01/2026", "01/01/2025"), ""},
  };
  for (const auto& c : cases) EXPECT_EQ(CheckMeetForm(c.form, 0), c.words) << c.form.mname;
}

TEST_F(MeetsTest, SavedMeetGetsOneCalendarRowPerDay) {
  MeetForm form;
  form.mname = "Harbor Winter Invitational Championships";
  form.course = "SO";
  form.start = "12/04/2026";
  form.end = "12/06/2026";
  form.remarks = "Warm-up 7:30, bring the blue caps";
  const MeetSaveOutcome saved = SaveMeet(t.state, form);
  ASSERT_EQ(saved.status, MeetSaveStatus::kSaved);
  const auto meet = LoadMeet(Db(), saved.meet);
  ASSERT_TRUE(meet);
  EXPECT_EQ(meet->course, "SO");
  EXPECT_EQ(meet->end, (Date{2026, 12, 6}));

  SQLite::Statement q(Db(),
                      "SELECT DATE, Comment, StartTime, EndTime FROM tblEvents "
                      "WHERE Type = 2 AND Athlete = ? ORDER BY DATE");
  q.bind(1, saved.meet);
  std::vector<std::string> days;
  while (q.executeStep()) {
    days.push_back(q.getColumn(0).getString());
    EXPECT_EQ(q.getColumn(1).getString(), "Warm-up 7:30, bring the blue caps");
    EXPECT_EQ(q.getColumn(2).getString(), "1899-12-30 05:00:00");
    EXPECT_EQ(q.getColumn(3).getString(), "1899-12-30 21:00:00");
  }
  EXPECT_EQ(days, (std::vector<std::string>{"2026-12-04", "2026-12-05", "2026-12-06"}));

  // A moved meet replaces its rows instead of adding to them.
  form.meet = saved.meet;
  form.start = form.end = "12/10/2026";
  ASSERT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kSaved);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblEvents WHERE Type = 2"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblEvents WHERE DATE = '2026-12-10'"), 1);
}

TEST_F(MeetsTest, SameNameAndStartIsRefusedOtherDateAllowed) {
  AddMeetRow(Db(), "Bay Open", "2026-11-02");
  MeetForm form;
  form.mname = "bay open";
  form.course = "Y";
  form.start = "11/02/2026";
  EXPECT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kRefused);
  EXPECT_EQ(LastShown(),
            "There is already a meet named 'bay open' with a start date of Nov 02, 2026\r\n"
            "Duplicates are not allowed so please change the meet name or start date.");
  form.start = "11/03/2026";
  EXPECT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kSaved);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET"), 2);
}

TEST_F(MeetsTest, CourseChangeAsksAndRewritesResultCoursesOnly) {
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01", "Y");
  AddResultRow(Db(), meet, 7, "I", 500);
  MeetForm form = MeetFormOf(*LoadMeet(Db(), meet), 0);

  form.course = "YO";  // same first letter: no question
  ASSERT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kSaved);
  EXPECT_TRUE(t.io.shown.empty());

  form.course = "L";
  t.io.Script({Answer::kNo});
  EXPECT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kDeclined);
  EXPECT_TRUE(t.io.Saw("  For example, a 500 Yard result would become 500 Meters."));
  EXPECT_EQ(LoadMeet(Db(), meet)->course, "YO");

  t.io.Script({Answer::kYes});
  ASSERT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kSaved);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE COURSE = 'L' AND DISTANCE = 500"), 1);
}

TEST_F(MeetsTest, EditOfVanishedMeetIsTold) {
  MeetForm form;
  form.meet = 42;
  form.mname = "Gone";
  form.course = "Y";
  form.start = "01/01/2026";
  EXPECT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kMissing);
  EXPECT_EQ(LastShown(), meettxt::kMeetRecordMissing);
}

TEST_F(MeetsTest, DeleteRemovesEverythingOfTheMeetOnly) {
  const int32_t gone = AddMeetRow(Db(), "Bay Open", "2026-03-01");
  const int32_t kept = AddMeetRow(Db(), "Cove Cup", "2026-04-01");
  for (int32_t m : {gone, kept}) {
    const int32_t ev = AddEventRow(Db(), "MTEVENT", m);
    const int32_t eve = AddEventRow(Db(), "MTEVENTE", m);
    AddResultRow(Db(), m, ev);
    AddEntryRow(Db(), m, eve);
    WriteMeetCalendar(t.state, *LoadMeet(Db(), m));
  }
  const Meet meet = *LoadMeet(Db(), gone);
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(DeleteOneMeet(t.state, meet));
  EXPECT_EQ(t.io.shown.back().title, meettxt::kRemoveMeetTitle);
  EXPECT_EQ(LastShown(),
            "Warning: This action will remove the selected Meet and ALL of the results and "
            "entries.\r\n\r\nDo you still want to remove: Bay Open on 03/01/2026?");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET"), 2);

  EXPECT_TRUE(DeleteOneMeet(t.state, meet));
  for (const char* table : {"RESULT", "ENTRY", "MTEVENT", "MTEVENTE", "MEET"}) {
    EXPECT_EQ(Count(std::string("SELECT COUNT(*) FROM ") + table + " WHERE Meet = ?", gone), 0)
        << table;
    EXPECT_EQ(Count(std::string("SELECT COUNT(*) FROM ") + table + " WHERE Meet = ?", kept), 1)
        << table;
  }
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblEvents"), 1);
}

TEST_F(MeetsTest, MergeChecksCourseAndDistanceInDays) {
  const Meet base = MeetOn(1, "Y", Date{2026, 3, 1});
  struct Case {
    std::string course;
    Date start;
    std::string_view words;
  };
  const std::vector<Case> cases = {
      {"YO", Date{2026, 3, 1}, ""},
      {"Y", Date{2026, 3, 2}, ""},
      {"Y", Date{2026, 2, 28}, ""},
      {"Y", Date{2026, 3, 3}, meettxt::kMergeTooFarApart},
      {"S", Date{2026, 3, 1}, meettxt::kMergeDifferentCourses},
  };
  for (const auto& c : cases) {
    const Meet other = MeetOn(2, c.course, c.start);
    EXPECT_EQ(CheckMerge(base, other), c.words) << c.course << " " << c.start.Iso();
  }
}

TEST_F(MeetsTest, MergeMovesIndividualRowsAndLeavesRelaysBehind) {
  const int32_t from = AddMeetRow(Db(), "Bay Open", "2026-03-01");
  const int32_t to = AddMeetRow(Db(), "Bay Open Day 2", "2026-03-02");
  const int32_t ev = AddEventRow(Db(), "MTEVENT", from, 1);
  const int32_t relay = AddEventRow(Db(), "MTEVENT", from, 2, "", 99, 200, 1, "F", "R");
  const int32_t eve = AddEventRow(Db(), "MTEVENTE", from, 1);
  AddResultRow(Db(), from, ev);
  AddResultRow(Db(), from, relay, "R");
  AddEntryRow(Db(), from, eve);

  t.io.Script({Answer::kNo});
  EXPECT_FALSE(MergeMeetsAsked(t.state, *LoadMeet(Db(), from), *LoadMeet(Db(), to)));
  EXPECT_TRUE(t.io.Saw(meettxt::kMergeNotReversible));
  EXPECT_TRUE(LoadMeet(Db(), from));

  ASSERT_TRUE(MergeMeetsAsked(t.state, *LoadMeet(Db(), from), *LoadMeet(Db(), to)));
  EXPECT_FALSE(LoadMeet(Db(), from));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE I_R = 'I' AND MEET = ?", to), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE I_R = 'R' AND MEET = ?", from), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT WHERE Meet = ?", from), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENTE WHERE Meet = ?", from), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM ENTRY WHERE Meet = ?", from), 0);
}

TEST_F(MeetsTest, FailedMergeChangesNothing) {
  const int32_t from = AddMeetRow(Db(), "Bay Open", "2026-03-01");
  const int32_t to = AddMeetRow(Db(), "Cove Cup", "2026-03-01");
  AddResultRow(Db(), from, AddEventRow(Db(), "MTEVENT", from));
  Db().exec(
      "CREATE TRIGGER no_meet_delete BEFORE DELETE ON MEET "
      "BEGIN SELECT RAISE(ABORT, 'locked'); END");
  EXPECT_FALSE(MergeMeet(t.state, from, to));
  EXPECT_EQ(LastShown(), meettxt::kMergeFailed);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE MEET = ?", from), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT WHERE Meet = ?", from), 1);
}

TEST_F(MeetsTest, MeetArrayListsNewestFirstWithAllMeetsOnTop) {
  EXPECT_EQ(LoadMeetArray(t.state, 0).front().text, meettxt::kNoMeetsAvailable);
  AddMeetRow(Db(), "Bay Open", "2026-03-01", "Y");
  const int32_t cove = AddMeetRow(Db(), "Cove Cup", "2026-05-09", "LO");
  AddMeetRow(Db(), "Goal", "2026-06-01", "L", "G");
  const auto all = LoadMeetArray(t.state, 0);
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(all[0].text, meettxt::kAllMeets);
  EXPECT_EQ(all[1].meet, cove);
  EXPECT_EQ(all[1].text, "09-May-26  Cove Cup");
  // A course list keeps goal meets, as its query has no type term.
  const auto lc = LoadMeetArray(t.state, 3);
  EXPECT_EQ(lc.size(), 3u);
  EXPECT_EQ(LoadMeetArray(t.state, 2).front().text, meettxt::kNoMeetsAvailable);
}

TEST_F(MeetsTest, OpeningEntriesAndResultsNeedsEvents) {
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01");
  EXPECT_EQ(CheckOpenEntries(t.state, meet), MeetOpen::kRefused);
  EXPECT_TRUE(t.io.Saw(meettxt::kNeedEventForEntries));
  EXPECT_EQ(CheckOpenResults(t.state, meet), MeetOpen::kRefused);
  EXPECT_TRUE(t.io.Saw(meettxt::kNeedEventForResults));

  AddEventRow(Db(), "MTEVENTE", meet, 1);
  AddEventRow(Db(), "MTEVENTE", meet, 2, "", 99, 0, 1);  // no distance: not copied
  EXPECT_EQ(CheckOpenEntries(t.state, meet), MeetOpen::kOpen);
  t.io.Script({Answer::kNo});
  EXPECT_EQ(CheckOpenResults(t.state, meet), MeetOpen::kOpenEvents);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT"), 0);
  EXPECT_EQ(CheckOpenResults(t.state, meet), MeetOpen::kOpen);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT WHERE Distance = 100"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT"), 1);
}

class MeetTypesTest : public MeetsTest {
 protected:
  void SetUp() override {
    MeetsTest::SetUp();
    Db().exec("DELETE FROM CODE");
    Db().exec(
        "INSERT INTO CODE (ABBR, \"DESC\", TYPE) VALUES ('USS', 'Club', 3), "
        "('HS', 'High School', 3), ('HS', 'High School', 0)");
    Db().exec(
        "INSERT INTO FAVORITES (FavName, FavMeetType, FavCourse) VALUES ('Club', 'USS', 'Y')");
  }
};

TEST_F(MeetTypesTest, ListsSortByDescriptionOrCode) {
  auto by_desc = ListMeetTypes(Db(), MeetTypeSort::kDescription);
  ASSERT_EQ(by_desc.size(), 2u);
  EXPECT_EQ(by_desc[0].abbr, "USS");
  EXPECT_EQ(LoadMeetTypeCombo(t.state)[0].abbr, "HS");
}

TEST_F(MeetTypesTest, CardChecksInOrder) {
  EXPECT_EQ(CheckMeetType(Db(), "", " ", ""), meettxt::kMeetTypeRequired);
  EXPECT_EQ(CheckMeetType(Db(), "", "JV", " "), meettxt::kDescriptionRequired);
  EXPECT_EQ(CheckMeetType(Db(), "", "uss", "Other"), meettxt::kMeetTypeExists);
  EXPECT_EQ(CheckMeetType(Db(), "USS", "USS", "Renamed"), "");
  EXPECT_EQ(CheckMeetType(Db(), "", "JV", "Junior Varsity"), "");
}

TEST_F(MeetTypesTest, ChangedCodeAsksAndFollowsEverywhere) {
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01", "Y", "USS");
  t.state.gFavoriteMeetType = "USS";
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(SaveMeetType(t.state, "USS", "CLB", "Club"));
  EXPECT_EQ(t.io.shown.back().title, meettxt::kChangedMeetTypeTitle);
  EXPECT_EQ(LoadMeet(Db(), meet)->type, "USS");

  EXPECT_TRUE(SaveMeetType(t.state, "USS", "CLB", "Club"));
  EXPECT_EQ(LoadMeet(Db(), meet)->type, "CLB");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM FAVORITES WHERE FavMeetType = 'CLB'"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM CODE WHERE TYPE = 3 AND ABBR = 'CLB'"), 1);
  EXPECT_EQ(t.state.gFavoriteMeetType, "CLB");
}

TEST_F(MeetTypesTest, RemovingTypeClearsMeetsAndFavourites) {
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01", "Y", "USS");
  EXPECT_TRUE(DeleteMeetType(t.state, {"USS", "Club"}));
  EXPECT_EQ(LastShown(),
            "Warning: This action will remove the selected Meet Type and clear that code from "
            "any Meet  or Favorite Filter that is using it.\r\nDo you still want to remove: USS "
            ": Club ?");
  EXPECT_EQ(LoadMeet(Db(), meet)->type, "");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM FAVORITES WHERE FavMeetType = ''"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM CODE WHERE TYPE = 3"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM CODE WHERE TYPE = 0"), 1);
}

}  // namespace
}  // namespace kvlr
