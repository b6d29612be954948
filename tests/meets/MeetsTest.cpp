// Meets and their events: the lists' filters and sorts, the cards' checks and saves, the
// calendar rows, removal, merging, copies of event lists, the default events, meet types.

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "meets/DefaultEvents.h"
#include "meets/MeetEvents.h"
#include "meets/ResultsFixture.h"
#include "meets/MeetTexts.h"
#include "meets/MeetTypes.h"
#include "meets/Meets.h"
#include "support/DbTest.h"

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

class MeetsTest : public test::DbTest {
 protected:
  static std::vector<std::string> Names(const std::vector<Meet>& rows) {
    std::vector<std::string> names;
    for (const auto& m : rows) names.push_back(m.mname);
    return names;
  }
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

TEST_F(MeetsTest, LetterJumpsToFirstNameNotBelowItAndFavoriteGivesStartFilter) {
  AddMeetRow(Db(), "alder Dual", "2026-01-01");
  AddMeetRow(Db(), "Cove Cup", "2026-01-02");
  AddMeetRow(Db(), "Elm Sprint", "2026-01-03");
  const auto rows = ListMeets(Db(), {0, {}, "", MeetSort::kName});
  EXPECT_EQ(FirstMeetFrom(rows, 'b'), 1);
  EXPECT_EQ(FirstMeetFrom(rows, 'C'), 1);
  EXPECT_EQ(FirstMeetFrom(rows, 'A'), 0);
  EXPECT_EQ(FirstMeetFrom(rows, 'Z'), -1);
  t.state.gFavoriteMeetType = "USS";
  t.state.gFavoriteCourse = "LCM";
  const MeetFilter f = FavoriteMeetFilter(t.state);
  EXPECT_EQ(std::tie(f.type, f.course), std::make_tuple("USS", 'L'));
  t.state.gFavoriteCourse = "";
  EXPECT_EQ(FavoriteMeetFilter(t.state).course, 0);
}

TEST_F(MeetsTest, CardChecksInOrder) {
  struct Case {
    MeetForm form;
    std::string_view words;
  };
  const std::vector<Case> cases = {
      {Card(" ", "", "", "x"), "Meet Name is required."},
      {Card("Bay", "", "", "x"), "Please select a course"},
      {Card("Bay", "Q", "", ""), "Please select a course"},
      {Card("Bay", "YO", "", "x"), "Start Date is required."},
      {Card("Bay", "YO", "02/30/2026", ""), "Start Date is required."},
      {Card("Bay", "L", "03/01/2026", "13/45/2026"), "Invalid Since Date"},
      {Card("Bay", "L", "03/01/2026", ""), ""},
      {Card("Bay", "S", "03/01/2026", "01/01/2025"), ""},
  };
  for (const auto& c : cases) EXPECT_EQ(CheckMeetForm(c.form, 0), c.words) << c.form.mname;
}

TEST_F(MeetsTest, SavedMeetGetsOneCalendarRowPerDay) {
  MeetForm form = Card("Harbor Winter Invitational Championships", "SO", "12/04/2026", "");
  form.end = "12/06/2026";
  form.remarks = "Warm-up 7:30, bring the blue caps";
  const MeetSaveOutcome saved = SaveMeet(t.state, form);
  ASSERT_EQ(saved.status, MeetSaveStatus::kSaved);
  const auto meet = LoadMeet(Db(), saved.meet);
  ASSERT_TRUE(meet);
  EXPECT_EQ(std::tie(meet->course, meet->end), std::make_tuple("SO", Date{2026, 12, 6}));
  std::string days;
  for (const char* day : {"2026-12-04", "2026-12-05", "2026-12-06"}) {
    days += std::string(day) + "|Warm-up 7:30, bring the blue caps|1899-12-30 05:00:00|" +
            "1899-12-30 21:00:00\n";
  }
  EXPECT_EQ(Rows("SELECT DATE, Comment, StartTime, EndTime FROM tblEvents "
                 "WHERE Type = 2 AND Athlete = ? ORDER BY DATE",
                 saved.meet),
            days);
  // A moved meet replaces its rows instead of adding to them.
  form.meet = saved.meet;
  form.start = form.end = "12/10/2026";
  ASSERT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kSaved);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblEvents WHERE Type = 2"), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblEvents WHERE DATE = '2026-12-10'"), 1);
}

TEST_F(MeetsTest, SameNameAndStartIsRefusedOtherDateAllowedVanishedMeetTold) {
  AddMeetRow(Db(), "Bay Open", "2026-11-02");
  MeetForm form = Card("bay open", "Y", "11/02/2026", "");
  EXPECT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kRefused);
  EXPECT_EQ(LastShown(),
            "There is already a meet named 'bay open' with a start date of Nov 02, 2026\r\n"
            "Duplicates are not allowed so please change the meet name or start date.");
  form.start = "11/03/2026";
  EXPECT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kSaved);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET"), 2);
  form.meet = 42;  // an edit of a meet that is gone
  form.start = "11/04/2026";
  EXPECT_EQ(SaveMeet(t.state, form).status, MeetSaveStatus::kMissing);
  EXPECT_EQ(LastShown(), "Error trying to find Meet record.");
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
  EXPECT_EQ(t.io.shown.back().title, "Remove Meet");
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
      {"Y", Date{2026, 3, 3}, "You can't merge meets that are more than one day apart."},
      {"S", Date{2026, 3, 1}, "You can't merge meets for different courses."},
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
  Db().exec(
      "CREATE TRIGGER no_meet_delete BEFORE DELETE ON MEET "
      "BEGIN SELECT RAISE(ABORT, 'locked'); END");
  EXPECT_FALSE(MergeMeet(t.state, from, to));
  EXPECT_EQ(LastShown(), "Merge Failed.");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE MEET = ?", from), 2);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT WHERE Meet = ?", from), 2);
  Db().exec("DROP TRIGGER no_meet_delete");
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(MergeMeetsAsked(t.state, *LoadMeet(Db(), from), *LoadMeet(Db(), to)));
  EXPECT_TRUE(t.io.Saw("Operation is not reversible!  Backup is recommended first."));
  EXPECT_TRUE(LoadMeet(Db(), from));
  ASSERT_TRUE(MergeMeetsAsked(t.state, *LoadMeet(Db(), from), *LoadMeet(Db(), to)));
  EXPECT_FALSE(LoadMeet(Db(), from));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE I_R = 'I' AND MEET = ?", to), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE I_R = 'R' AND MEET = ?", from), 1);
  EXPECT_EQ(Count("SELECT (SELECT COUNT(*) FROM MTEVENT WHERE Meet = ?1) + (SELECT COUNT(*) "
                  "FROM MTEVENTE WHERE Meet = ?1) + (SELECT COUNT(*) FROM ENTRY WHERE Meet = ?1)",
                  from),
            0);
}

TEST_F(MeetsTest, MeetArrayListsNewestFirstWithAllMeetsOnTop) {
  EXPECT_EQ(LoadMeetArray(t.state, 0).front().text, "No Meets Available");
  AddMeetRow(Db(), "Bay Open", "2026-03-01", "Y");
  const int32_t cove = AddMeetRow(Db(), "Cove Cup", "2026-05-09", "LO");
  AddMeetRow(Db(), "Goal", "2026-06-01", "L", "G");
  const auto all = LoadMeetArray(t.state, 0);
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(all[0].text, "All Meets");
  EXPECT_EQ(all[1].meet, cove);
  EXPECT_EQ(all[1].text, "05/09/2026  Cove Cup");
  // A course list keeps goal meets, as its query has no type term.
  const auto lc = LoadMeetArray(t.state, 3);
  EXPECT_EQ(lc.size(), 3u);
  EXPECT_EQ(LoadMeetArray(t.state, 2).front().text, "No Meets Available");
}

TEST_F(MeetsTest, OpeningEntriesAndResultsNeedsEvents) {
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01");
  EXPECT_EQ(CheckOpenEntries(t.state, meet), MeetOpen::kRefused);
  EXPECT_TRUE(t.io.Saw("You must have at least one event defined before you can do entries."));
  EXPECT_EQ(CheckOpenResults(t.state, meet), MeetOpen::kRefused);
  EXPECT_TRUE(t.io.Saw("You must have at least one event defined before you can enter Results."));
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
  MeetTypesTest() {
    Db().exec("DELETE FROM CODE");
    Db().exec(
        "INSERT INTO CODE (ABBR, \"DESC\", TYPE) VALUES ('USS', 'Club', 3), "
        "('HS', 'High School', 3), ('HS', 'High School', 0)");
    Db().exec(
        "INSERT INTO FAVORITES (FavName, FavMeetType, FavCourse) VALUES ('Club', 'USS', 'Y')");
  }
};

TEST_F(MeetTypesTest, ListsSortByDescriptionOrCodeAndCardChecksInOrder) {
  auto by_desc = ListMeetTypes(Db(), MeetTypeSort::kDescription);
  ASSERT_EQ(by_desc.size(), 2u);
  EXPECT_EQ(by_desc[0].abbr, "USS");
  EXPECT_EQ(LoadMeetTypeCombo(t.state)[0].abbr, "HS");
  EXPECT_EQ(CheckMeetType(Db(), "", " ", ""), "You must enter a Meet Type");
  EXPECT_EQ(CheckMeetType(Db(), "", "JV", " "), "You must enter a Description");
  EXPECT_EQ(CheckMeetType(Db(), "", "uss", "Other"), "That Meet Type already exists.");
  EXPECT_EQ(CheckMeetType(Db(), "USS", "USS", "Renamed"), "");
  EXPECT_EQ(CheckMeetType(Db(), "", "JV", "Junior Varsity"), "");
}

TEST_F(MeetTypesTest, ChangedCodeAsksAndFollowsEverywhere) {
  const int32_t meet = AddMeetRow(Db(), "Bay Open", "2026-03-01", "Y", "USS");
  t.state.gFavoriteMeetType = "USS";
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(SaveMeetType(t.state, "USS", "CLB", "Club"));
  EXPECT_EQ(t.io.shown.back().title, "Changed Meet Type");
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

TEST(EventNumber, BoxRules) {
  struct Case {
    std::string_view text;
    int number;
    std::string letter;
    std::string_view words;
  };
  const std::vector<Case> cases = {
      {"5", 5, "", ""},
      {" 12a ", 12, "A", ""},
      {"999Z", 999, "Z", ""},
      {"", 0, "", meettxt::kEventNumberRequired},
      {"   ", 0, "", meettxt::kEventNumberRequired},
      {"5-", 0, "", meettxt::kInvalidEventNumber},
      {"5 A", 0, "", meettxt::kInvalidEventNumber},
      {"1234", 0, "", meettxt::kEventNumberShape},
      {"5AB", 0, "", meettxt::kEventNumberShape},
      {"A5", 0, "", meettxt::kEventNumberShape},
      {"B", 0, "", meettxt::kBadEventNumber},
      {"0", 0, "", meettxt::kEventNumberRange},
      {"000A", 0, "", meettxt::kEventNumberRange},
  };
  for (const auto& c : cases) {
    const EventNumberCheck check = ParseEventNumber(c.text);
    EXPECT_EQ(check.message, c.words) << c.text;
    if (c.words.empty()) {
      EXPECT_EQ(check.number, c.number) << c.text;
      EXPECT_EQ(check.letter, c.letter) << c.text;
    }
  }
}

TEST(EventCard, ChecksInOrder) {
  struct Case {
    EventForm form;
    std::string_view words;
  };
  const std::vector<Case> cases = {
      {{0, "0", 0, 0, 0, 0, "", "I"}, meettxt::kEventNumberPositive},
      {{0, "3", 0, 0, 0, 0, "", "I"}, meettxt::kSetAgeRange},
      {{0, "3", 11, 12, 0, 0, "", "I"}, meettxt::kSelectDistance},
      {{0, "3", 11, 12, 100, 0, "", "I"}, meettxt::kSelectStroke},
      {{0, "3", 11, 12, 100, 1, " ", "I"}, meettxt::kSelectSex},
      {{0, "3", 12, 11, 100, 1, "F", "I"}, meettxt::kHighAboveLow},
      {{0, "3", 12, 12, 100, 1, "F", "I"}, meettxt::kHighAboveLow},
      {{0, "3", 0, 10, 100, 1, "F", "I"}, ""},
      {{0, "3A", 15, 99, 100, 1, "X", "R"}, ""},
  };
  for (const auto& c : cases) EXPECT_EQ(CheckEventForm(c.form), c.words) << c.form.number;
}

TEST(EventWords, AgeGroupsAndDescriptions) {
  EXPECT_EQ(AgeGroupWord(99), "Open");
  EXPECT_EQ(AgeGroupWord(10), "10 & Under");
  EXPECT_EQ(AgeGroupWord(1599), "15 & Over");
  EXPECT_EQ(AgeGroupWord(1112), "11 - 12");
  MeetEvent e;
  e.mtev = 7;
  e.mtevx = "B";
  e.lo_hi = 1112;
  e.distance = 200;
  e.stroke = 5;
  e.sex = "X";
  e.i_r = "R";
  EXPECT_EQ(RemoveEventQuestion(e),
            "Remove Event for:\r\nEvent Number: 7B\r\nSex: Mixed\r\nAge Group: 11 - 12\r\n"
            "Event: 200 Medley Relay");
}

class EventsTest : public MeetsTest {
 protected:
  EventsTest() { meet = AddMeetRow(Db(), "Bay Open", "2026-03-01", "LO"); }
  EventForm Form(const std::string& number, int stroke = 1, int distance = 100,
                 const std::string& sex = "F") {
    return {0, number, 11, 12, distance, stroke, sex, "I"};
  }
  int32_t meet = 0;
};

TEST_F(EventsTest, NumbersWithAndWithoutLetterAreDifferentEvents) {
  const auto first = SaveEvent(t.state, EventList::kResults, meet, Form("5"));
  ASSERT_EQ(first.status, EventSaveStatus::kAdded);
  EXPECT_EQ(first.status_text, "New Event Added");
  EXPECT_EQ(LoadEvent(Db(), EventList::kResults, first.mt_event)->course, "L");
  EXPECT_EQ(SaveEvent(t.state, EventList::kResults, meet, Form("5a", 2)).status,
            EventSaveStatus::kAdded);
  EXPECT_EQ(SaveEvent(t.state, EventList::kResults, meet, Form("5", 3)).status,
            EventSaveStatus::kRefused);
  EXPECT_EQ(LastShown(), "Event Number: 5 already exists for:\r\nFemale 11 - 12 100 Free");
  EXPECT_EQ(SaveEvent(t.state, EventList::kResults, meet, Form("5A", 3)).status,
            EventSaveStatus::kRefused);
  // The other list and other meets have numbers of their own.
  EXPECT_EQ(SaveEvent(t.state, EventList::kEntries, meet, Form("5", 3)).status,
            EventSaveStatus::kAdded);
  EventForm edit = Form("5", 4);
  edit.mt_event = first.mt_event;
  const auto updated = SaveEvent(t.state, EventList::kResults, meet, edit);
  EXPECT_EQ(updated.status, EventSaveStatus::kUpdated);
  EXPECT_EQ(updated.status_text, "Event Updated");
  EXPECT_EQ(LoadEvent(Db(), EventList::kResults, first.mt_event)->stroke, 4);
  // The same race under another number asks first.
  ASSERT_EQ(SaveEvent(t.state, EventList::kEntries, meet, Form("11")).status,
            EventSaveStatus::kAdded);
  t.io.Script({Answer::kNo});
  EXPECT_EQ(SaveEvent(t.state, EventList::kEntries, meet, Form("12")).status,
            EventSaveStatus::kDeclined);
  EXPECT_EQ(LastShown(),
            "That event already exists as event number 11 .Do you still want to add this event?");
  EXPECT_EQ(SaveEvent(t.state, EventList::kEntries, meet, Form("12")).status,
            EventSaveStatus::kAdded);
}

TEST_F(EventsTest, EditOfEnteredRaceRemovesEntriesOnlyWhenAllowed) {
  const int32_t ev = AddEventRow(Db(), "MTEVENTE", meet, 1, "", 1112, 100, 1);
  AddEntryRow(Db(), meet, ev);
  EventForm renumber = Form("9");
  renumber.mt_event = ev;
  EXPECT_EQ(SaveEvent(t.state, EventList::kEntries, meet, renumber).status,
            EventSaveStatus::kUpdated);
  EXPECT_TRUE(t.io.shown.empty());  // only the number changed: entries stay
  EventForm other = Form("9", 2);
  other.mt_event = ev;
  t.io.Script({Answer::kNo});
  EXPECT_EQ(SaveEvent(t.state, EventList::kEntries, meet, other).status,
            EventSaveStatus::kDeclined);
  EXPECT_EQ(LastShown(),
            "This will remove any entries you have for this event.Do you still want to continue?");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM ENTRY"), 1);
  EXPECT_EQ(SaveEvent(t.state, EventList::kEntries, meet, other).status, EventSaveStatus::kUpdated);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM ENTRY"), 0);
}

TEST_F(EventsTest, ResultEventWithResultsChangesOnlyDiveCount) {
  const int32_t swim = AddEventRow(Db(), "MTEVENT", meet, 1, "", 1112, 100, 1);
  const int32_t dive = AddEventRow(Db(), "MTEVENT", meet, 2, "", 1112, 6, 6);
  AddResultRow(Db(), meet, swim);
  AddResultRow(Db(), meet, dive, "I", 6, 6);
  EventForm swim_edit = Form("1", 2);
  swim_edit.mt_event = swim;
  EXPECT_EQ(SaveEvent(t.state, EventList::kResults, meet, swim_edit).status,
            EventSaveStatus::kRefused);
  EXPECT_EQ(LastShown(), "This event has at least one Result linked to it so it can't be changed.");
  EventForm dive_edit = Form("2", 6, 11);
  dive_edit.mt_event = dive;
  EXPECT_EQ(SaveEvent(t.state, EventList::kResults, meet, dive_edit).status,
            EventSaveStatus::kUpdated);
  EXPECT_EQ(LoadEvent(Db(), EventList::kResults, dive)->distance, 11);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE STROKE = 6 AND MTEVENT = ?", dive), 1);
  for (EventForm bad : {Form("2", 6, 8), Form("2", 7, 6), Form("3", 6, 6), Form("2", 6, 6, "M")}) {
    bad.mt_event = dive;
    EXPECT_EQ(SaveEvent(t.state, EventList::kResults, meet, bad).status, EventSaveStatus::kRefused);
    EXPECT_EQ(LastShown(),
              "Changes are allowed only for Diving Events to change between 6 and 11 dives.");
  }
}

TEST_F(EventsTest, DeleteRefusedWhileInUse) {
  const int32_t result_ev = AddEventRow(Db(), "MTEVENT", meet, 1);
  const int32_t entry_ev = AddEventRow(Db(), "MTEVENTE", meet, 1);
  AddResultRow(Db(), meet, result_ev);
  AddEntryRow(Db(), meet, entry_ev);
  EXPECT_FALSE(DeleteOneEvent(t.state, EventList::kResults,
                              *LoadEvent(Db(), EventList::kResults, result_ev)));
  EXPECT_EQ(LastShown(), "That event has at least one Result linked to it.  Can't delete.");
  EXPECT_FALSE(DeleteOneEvent(t.state, EventList::kEntries,
                              *LoadEvent(Db(), EventList::kEntries, entry_ev)));
  EXPECT_EQ(LastShown(), "That event has at least one Entry linked to it.  Can't delete.");
  Db().exec("DELETE FROM RESULT");
  t.io.Script({Answer::kNo});
  const MeetEvent e = *LoadEvent(Db(), EventList::kResults, result_ev);
  EXPECT_FALSE(DeleteOneEvent(t.state, EventList::kResults, e));
  EXPECT_EQ(t.io.shown.back().title, "Remove Event");
  EXPECT_TRUE(DeleteOneEvent(t.state, EventList::kResults, e));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT"), 0);
}

TEST_F(EventsTest, EntryEventsCopiedToResultsWithNewKeysSkippingUnnumbered) {
  Db().exec("INSERT INTO MTEVENTE (MtEvent, Meet, MtEv) VALUES (500, 98, 1)");
  AddEventRow(Db(), "MTEVENTE", meet, 0);
  AddEventRow(Db(), "MTEVENTE", meet, 2, "", 1599, 400, 5, "M");
  AddEventRow(Db(), "MTEVENTE", meet, 1, "A", 1112, 200, 1, "X", "R");
  Db().exec("INSERT INTO MTEVENT (Meet, MtEv) VALUES (99, 1)");  // keys move on
  ASSERT_TRUE(CopyEntryEventsToResults(t.state, meet));
  const auto rows = ListEvents(Db(), EventList::kResults, meet, {});
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(std::tie(rows[0].i_r, rows[0].sex, rows[1].lo_hi, rows[1].stroke, rows[1].distance),
            std::make_tuple("R", "X", 1599, 5, 400));
  EXPECT_EQ(EventNumberOf(rows[0]), "1A");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT m JOIN MTEVENTE e ON m.MtEvent = e.MtEvent "
                  "AND m.Meet = e.Meet"),
            0);
  // A failed copy leaves the result list alone: the second copy collides here.
  const int32_t other = AddMeetRow(Db(), "Cove Cup", "2026-04-01");
  AddEventRow(Db(), "MTEVENTE", other, 1);
  AddEventRow(Db(), "MTEVENTE", other, 2);
  AddEventRow(Db(), "MTEVENT", other, 2);
  t.io.Script({Answer::kCancel});
  EXPECT_FALSE(CopyEntryEventsToResults(t.state, other));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT WHERE Meet = ?", other), 1);
}

TEST_F(EventsTest, ListSkipsUnnumberedEntryEventsAndSortsAndFilters) {
  AddEventRow(Db(), "MTEVENTE", meet, 0);
  AddEventRow(Db(), "MTEVENTE", meet, 3, "", 1112, 50, 2, "M");
  AddEventRow(Db(), "MTEVENTE", meet, 1, "", 1314, 200, 1, "F");
  AddEventRow(Db(), "MTEVENTE", meet, 2, "", 1112, 100, 1, "M");
  const auto numbers = [&](const EventFilter& f) {
    std::string out;
    for (const auto& e : ListEvents(Db(), EventList::kEntries, meet, f)) out += EventNumberOf(e);
    return out;
  };
  EXPECT_EQ(numbers({}), "123");
  EXPECT_EQ(numbers({"", {}, 0, 0, EventSort::kSexMenFirst}), "231");
  EXPECT_EQ(numbers({"", {}, 0, 0, EventSort::kSexWomenLast}), "123");
  EXPECT_EQ(numbers({"", {}, 0, 0, EventSort::kDistance}), "321");
  EXPECT_EQ(numbers({"", {}, 0, 0, EventSort::kStroke}), "213");
  EXPECT_EQ(numbers({"", {}, 0, 0, EventSort::kAge}), "231");
  EXPECT_EQ(numbers({"M", 1112, 1, 0, EventSort::kNumber}), "2");
  EXPECT_EQ(LoadAgeGroups(Db(), meet), (std::vector<int>{99, 1112, 1314}));
}

class CopyEventsTest : public EventsTest {
 protected:
  int32_t source = AddMeetRow(Db(), "Cove Cup", "2025-03-01", "Y");
};

TEST_F(CopyEventsTest, RefusalsBeforeAnyChange) {
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kEntries, meet, meet, CopyWhich::kAll));
  EXPECT_EQ(LastShown(), "You are trying to copy events from the current meet to itself.");
  AddEventRow(Db(), "MTEVENTE", source, 1);
  const int32_t mine = AddEventRow(Db(), "MTEVENTE", meet, 4);
  AddEntryRow(Db(), meet, mine);
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kEntries, meet, source, CopyWhich::kAll));
  EXPECT_EQ(LastShown(), "This meet already has entries.  You can't copy new events.");
  AddResultRow(Db(), meet, 77);
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kResults, meet, source, CopyWhich::kAll));
  EXPECT_EQ(LastShown(), "This meet already has results.  You can't copy new events.");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENTE WHERE Meet = ?", meet), 1);
  // A source without events keeps the target's.
  Db().exec("DELETE FROM RESULT");
  const int32_t empty = AddMeetRow(Db(), "Dune Dual", "2025-04-01");
  AddEventRow(Db(), "MTEVENT", meet, 5);
  t.io.shown.clear();
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kResults, meet, empty, CopyWhich::kAll));
  EXPECT_EQ(t.io.shown[0].title, "Overwrite Exiting Events");
  EXPECT_EQ(LastShown(), "You selected meet does not have any Events defined.");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT WHERE Meet = ?", meet), 1);
}

TEST_F(CopyEventsTest, OverwriteAskedAndSourceKindChosen) {
  AddEventRow(Db(), "MTEVENTE", source, 1, "", 99, 100, 1, "F", "I");
  AddEventRow(Db(), "MTEVENTE", source, 2, "", 99, 200, 1, "F", "R");
  AddEventRow(Db(), "MTEVENTE", meet, 9);
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kEntries, meet, source, CopyWhich::kAll));
  EXPECT_EQ(t.io.shown.back().title, "Overwrite Exiting Entry Events");
  EXPECT_EQ(Count("SELECT MtEv FROM MTEVENTE WHERE Meet = ?", meet), 9);
  ASSERT_TRUE(CopyEventsFromMeet(t.state, EventList::kEntries, meet, source, CopyWhich::kRelay));
  const auto rows = ListEvents(Db(), EventList::kEntries, meet, {});
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].i_r, "R");
  EXPECT_EQ(rows[0].course, "L");  // the course of the meet copied onto
  // Without entry events the source's result events are taken.
  const int32_t results_only = AddMeetRow(Db(), "Elm Sprint", "2025-05-01");
  AddEventRow(Db(), "MTEVENT", results_only, 3);
  ASSERT_TRUE(
      CopyEventsFromMeet(t.state, EventList::kResults, meet, results_only, CopyWhich::kAll));
  EXPECT_TRUE(t.io.Saw("No Entry Events found.  Will try to copy Result Events."));
  EXPECT_EQ(Count("SELECT MtEv FROM MTEVENT WHERE Meet = ?", meet), 3);
}

TEST(DefaultEventLists, StandardEventsOfEachCourse) {
  const auto has = [](char course, int distance, int stroke) {
    for (const auto& e : DefaultEvents(course))
      if (e.distance == distance && e.stroke == stroke) return true;
    return false;
  };
  EXPECT_EQ(DefaultEvents('Y').size(), 14u);
  EXPECT_EQ(DefaultEvents('s').size(), 18u);
  EXPECT_EQ(DefaultEvents('L').size(), 17u);
  EXPECT_TRUE(DefaultEvents('X').empty());
  for (const auto& [course, distance, stroke, there] :
       std::vector<std::tuple<char, int, int, bool>>{{'Y', 1650, 1, true},
                                                     {'Y', 1500, 1, false},
                                                     {'Y', 50, 2, false},
                                                     {'S', 100, 5, true},
                                                     {'L', 100, 5, false},
                                                     {'L', 50, 4, true}}) {
    EXPECT_EQ(has(course, distance, stroke), there) << course << distance << " " << stroke;
  }
  for (char course : {'Y', 'S', 'L'}) {
    const auto& list = DefaultEvents(course);
    for (size_t i = 1; i < list.size(); ++i) {
      const bool ordered =
          list[i - 1].stroke < list[i].stroke ||
          (list[i - 1].stroke == list[i].stroke && list[i - 1].distance < list[i].distance);
      EXPECT_TRUE(ordered) << course << i;
    }
  }
}

TEST_F(EventsTest, DefaultEventsComeInPairsNumberedOn) {
  AddEventRow(Db(), "MTEVENTE", meet, 4, "", 99, 400, 1, "F", "R");
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(OfferDefaultEvents(t.state, EventList::kEntries, meet));
  EXPECT_EQ(LastShown(),
            "No events have been setup for the selected Meet.\rDo you want KVL-R to "
            "automatically load the default events ?");
  ASSERT_TRUE(OfferDefaultEvents(t.state, EventList::kEntries, meet));
  const auto rows = ListEvents(Db(), EventList::kEntries, meet, {});
  ASSERT_EQ(rows.size(), 1u + 2 * DefaultEvents('L').size());
  EXPECT_EQ(std::tie(rows[1].mtev, rows[1].sex, rows[1].lo_hi, rows[1].course, rows[1].i_r),
            std::make_tuple(5, "M", kDefaultEventLoHi, "L", "I"));
  EXPECT_EQ(std::tie(rows[2].mtev, rows[2].sex, rows[2].distance),
            std::make_tuple(6, "F", rows[1].distance));
  const size_t shown = t.io.shown.size();
  EXPECT_TRUE(OfferDefaultEvents(t.state, EventList::kEntries, meet));
  EXPECT_EQ(t.io.shown.size(), shown);  // has events: no question
}

}  // namespace
}  // namespace kvlr
