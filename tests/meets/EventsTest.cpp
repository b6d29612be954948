// Meet events: the number box, the card's checks and save rules, removal, the copies
// between the two lists and between meets, and the default events of a course.

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "meets/DefaultEvents.h"
#include "meets/MeetEvents.h"
#include "meets/MeetRows.h"
#include "meets/MeetTexts.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::AddEntryRow;
using test::AddEventRow;
using test::AddMeetRow;
using test::AddResultRow;

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

class EventsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    test::MakeOpenDatabase(t);
    meet = AddMeetRow(Db(), "Bay Open", "2026-03-01", "LO");
  }
  SQLite::Database& Db() { return *t.state.gDb; }
  long long Count(const std::string& sql) { return test::QueryNumber(Db(), sql); }
  long long Count(const std::string& sql, long long value) {
    return test::QueryNumber(Db(), sql, value);
  }
  std::string LastShown() const { return t.io.shown.empty() ? "" : t.io.shown.back().text; }
  EventForm Form(const std::string& number, int stroke = 1, int distance = 100,
                 const std::string& sex = "F") {
    return {0, number, 11, 12, distance, stroke, sex, "I"};
  }

  test::TempHome t;
  int32_t meet = 0;
};

TEST_F(EventsTest, NumbersWithAndWithoutLetterAreDifferentEvents) {
  const auto first = SaveEvent(t.state, EventList::kResults, meet, Form("5"));
  ASSERT_EQ(first.status, EventSaveStatus::kAdded);
  EXPECT_EQ(first.status_text, meettxt::kNewEventAdded);
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
  EXPECT_EQ(updated.status_text, meettxt::kEventUpdated);
  EXPECT_EQ(LoadEvent(Db(), EventList::kResults, first.mt_event)->stroke, 4);
}

TEST_F(EventsTest, SameRaceUnderAnotherNumberAsks) {
  ASSERT_EQ(SaveEvent(t.state, EventList::kEntries, meet, Form("1")).status,
            EventSaveStatus::kAdded);
  t.io.Script({Answer::kNo});
  EXPECT_EQ(SaveEvent(t.state, EventList::kEntries, meet, Form("2")).status,
            EventSaveStatus::kDeclined);
  EXPECT_EQ(LastShown(),
            "That event already exists as event number 1 .Do you still want to add this event?");
  EXPECT_EQ(SaveEvent(t.state, EventList::kEntries, meet, Form("2")).status,
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
  EXPECT_EQ(LastShown(), meettxt::kRemoveEntriesQuestion);
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
  EXPECT_EQ(LastShown(), meettxt::kEventHasResult);

  EventForm dive_edit = Form("2", 6, 11);
  dive_edit.mt_event = dive;
  EXPECT_EQ(SaveEvent(t.state, EventList::kResults, meet, dive_edit).status,
            EventSaveStatus::kUpdated);
  EXPECT_EQ(LoadEvent(Db(), EventList::kResults, dive)->distance, 11);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE STROKE = 6 AND MTEVENT = ?", dive), 1);

  for (EventForm bad : {Form("2", 6, 8), Form("2", 7, 6), Form("3", 6, 6), Form("2", 6, 6, "M")}) {
    bad.mt_event = dive;
    EXPECT_EQ(SaveEvent(t.state, EventList::kResults, meet, bad).status, EventSaveStatus::kRefused);
    EXPECT_EQ(LastShown(), meettxt::kDivingOnly);
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
  EXPECT_EQ(t.io.shown.back().title, meettxt::kRemoveEventTitle);
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
  EXPECT_EQ(EventNumberOf(rows[0]), "1A");
  EXPECT_EQ(rows[0].i_r, "R");
  EXPECT_EQ(rows[0].sex, "X");
  EXPECT_EQ(rows[1].lo_hi, 1599);
  EXPECT_EQ(rows[1].stroke, 5);
  EXPECT_EQ(rows[1].distance, 400);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT m JOIN MTEVENTE e ON m.MtEvent = e.MtEvent "
                  "AND m.Meet = e.Meet"),
            0);
}

TEST_F(EventsTest, FailedCopyToResultsLeavesResultListAlone) {
  AddEventRow(Db(), "MTEVENTE", meet, 1);
  AddEventRow(Db(), "MTEVENTE", meet, 2);
  AddEventRow(Db(), "MTEVENT", meet, 2);  // the second copy collides
  t.io.Script({Answer::kCancel});
  EXPECT_FALSE(CopyEntryEventsToResults(t.state, meet));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT"), 1);
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
  void SetUp() override {
    EventsTest::SetUp();
    source = AddMeetRow(Db(), "Cove Cup", "2025-03-01", "Y");
  }
  int32_t source = 0;
};

TEST_F(CopyEventsTest, RefusalsBeforeAnyChange) {
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kEntries, meet, meet, CopyWhich::kAll));
  EXPECT_EQ(LastShown(), meettxt::kCopyToItself);

  AddEventRow(Db(), "MTEVENTE", source, 1);
  const int32_t mine = AddEventRow(Db(), "MTEVENTE", meet, 4);
  AddEntryRow(Db(), meet, mine);
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kEntries, meet, source, CopyWhich::kAll));
  EXPECT_EQ(LastShown(), meettxt::kMeetHasEntries);
  AddResultRow(Db(), meet, 77);
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kResults, meet, source, CopyWhich::kAll));
  EXPECT_EQ(LastShown(), meettxt::kMeetHasResults);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENTE WHERE Meet = ?", meet), 1);
}

TEST_F(CopyEventsTest, OverwriteAskedAndSourceKindChosen) {
  AddEventRow(Db(), "MTEVENTE", source, 1, "", 99, 100, 1, "F", "I");
  AddEventRow(Db(), "MTEVENTE", source, 2, "", 99, 200, 1, "F", "R");
  AddEventRow(Db(), "MTEVENTE", meet, 9);

  t.io.Script({Answer::kNo});
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kEntries, meet, source, CopyWhich::kAll));
  EXPECT_EQ(t.io.shown.back().title, meettxt::kOverwriteEntryEventsTitle);
  EXPECT_EQ(Count("SELECT MtEv FROM MTEVENTE WHERE Meet = ?", meet), 9);

  ASSERT_TRUE(CopyEventsFromMeet(t.state, EventList::kEntries, meet, source, CopyWhich::kRelay));
  const auto rows = ListEvents(Db(), EventList::kEntries, meet, {});
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].i_r, "R");
  EXPECT_EQ(rows[0].course, "L");  // the course of the meet copied onto
}

TEST_F(CopyEventsTest, ResultEventsOfSourceTakenAfterMessage) {
  AddEventRow(Db(), "MTEVENT", source, 3);
  ASSERT_TRUE(CopyEventsFromMeet(t.state, EventList::kResults, meet, source, CopyWhich::kAll));
  EXPECT_TRUE(t.io.Saw(meettxt::kNoEntryEventsFound));
  EXPECT_EQ(Count("SELECT MtEv FROM MTEVENT WHERE Meet = ?", meet), 3);
}

TEST_F(CopyEventsTest, EmptySourceKeepsTargetEvents) {
  AddEventRow(Db(), "MTEVENT", meet, 5);
  EXPECT_FALSE(CopyEventsFromMeet(t.state, EventList::kResults, meet, source, CopyWhich::kAll));
  EXPECT_EQ(t.io.shown[0].title, meettxt::kOverwriteEventsTitle);
  EXPECT_EQ(LastShown(), meettxt::kSourceHasNoEvents);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MTEVENT WHERE Meet = ?", meet), 1);
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
  EXPECT_TRUE(has('Y', 1650, 1));
  EXPECT_FALSE(has('Y', 1500, 1));
  EXPECT_FALSE(has('Y', 50, 2));
  EXPECT_TRUE(has('S', 100, 5));
  EXPECT_FALSE(has('L', 100, 5));
  EXPECT_TRUE(has('L', 50, 4));
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
  EXPECT_EQ(rows[1].mtev, 5);
  EXPECT_EQ(rows[1].sex, "M");
  EXPECT_EQ(rows[2].mtev, 6);
  EXPECT_EQ(rows[2].sex, "F");
  EXPECT_EQ(rows[2].distance, rows[1].distance);
  EXPECT_EQ(rows[1].lo_hi, kDefaultEventLoHi);
  EXPECT_EQ(rows[1].course, "L");
  EXPECT_EQ(rows[1].i_r, "I");
  const size_t shown = t.io.shown.size();
  EXPECT_TRUE(OfferDefaultEvents(t.state, EventList::kEntries, meet));
  EXPECT_EQ(t.io.shown.size(), shown);  // has events: no question
}

}  // namespace
}  // namespace kvlr
