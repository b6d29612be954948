// Entries by name: events offered by age and sex, the best time by the meet's course and
// since date, and the changes made on the grid.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/TimeText.h"
#include "meets/Entries.h"
#include "meets/EntryWriter.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

struct EventDef {
  int mt_ev;
  std::string mt_evx;
  int lo_hi;
  std::string sex;
  int distance = 100;
  int stroke = 1;
  std::string i_r = "I";
  int32_t meet = 0;  // 0: the test's meet
};

class Entries : public test::DbTest {
 protected:
  void SetUp() override {
    meet_ = AddMeet("Y", "2026-12-05", "2026-12-31", "");
    athlete_ = AddAthlete("Rivers", "Ada", "F", "2014-06-01", 9);
  }
  int32_t AddMeet(const std::string& course, const std::string& start, const std::string& age_up,
                  const std::string& since) {
    SQLite::Statement q(Db(),
                        "INSERT INTO MEET (MName, Start, End, AgeUp, Since, Course, Type) "
                        "VALUES (?, ?, ?, ?, ?, ?, 'USS')");
    SQLite::bind(q, "Harbor Winter Classic " + course + start, start, start, age_up, since, course);
    if (since.empty()) q.bind(5);
    q.exec();
    return static_cast<int32_t>(Db().getLastInsertRowid());
  }
  int32_t AddAthlete(const std::string& last, const std::string& first, const std::string& sex,
                     const std::string& birth, int age) {
    SQLite::Statement q(
        Db(), "INSERT INTO ATHLETE (Last, First, Sex, Birth, Age) VALUES (?, ?, ?, ?, ?)");
    SQLite::bind(q, last, first, sex, birth, age);
    if (birth.empty()) q.bind(4);
    q.exec();
    return static_cast<int32_t>(Db().getLastInsertRowid());
  }
  int32_t AddEvent(const EventDef& e) {
    SQLite::Statement q(Db(),
                        "INSERT INTO MTEVENTE (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, "
                        "Stroke, Sex, I_R) VALUES (?, ?, ?, ?, 'Y', ?, ?, ?, ?)");
    SQLite::bind(q, e.meet ? e.meet : meet_, e.mt_ev, e.mt_evx, e.lo_hi, e.distance, e.stroke,
                 e.sex, e.i_r);
    q.exec();
    return static_cast<int32_t>(Db().getLastInsertRowid());
  }
  // A rank-1 swim of the swimmer in a meet started on `start`.
  void AddSwim(int distance, int stroke, const std::string& course, int32_t score,
               const std::string& start) {
    const int32_t meet = AddMeet(course, start, "", "");
    SQLite::Statement q(Db(),
                        "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, "
                        "STROKE, MTEVENT, RANK, TRANK, COURSE) "
                        "VALUES (?, ?, 'I', ?, 'F', 0, ?, ?, ?, 1, 0, ?)");
    SQLite::bind(q, meet, athlete_, score, distance, stroke, 900 + meet, course);
    q.exec();
  }
  EntrySheet Sheet(int32_t meet = 0) {
    return EntrySheet(t.state, *ReadEntryMeet(Db(), meet ? meet : meet_));
  }
  EntrySwimmer Swimmer() {
    for (const EntrySwimmer& s : LoadEntrySwimmers(Db())) {
      if (s.athlete == athlete_) return s;
    }
    return {};
  }
  // Misc/Score/Ex/Course of the swimmer's entry in an event; "" when there is none.
  std::string Entry(int32_t mt_event) {
    SQLite::Statement q(
        Db(),
        "SELECT ifnull(Misc, '') || '/' || Score || '/' || ifnull(Ex, '') || '/' || "
        "Course FROM ENTRY WHERE MtEvent = ? AND Athlete = ? AND I_R = 'I'");
    SQLite::bind(q, mt_event, athlete_);
    return q.executeStep() ? q.getColumn(0).getString() : "";
  }
  int32_t meet_ = 0;
  int32_t athlete_ = 0;
};

TEST_F(Entries, EventsOfferedHoldTheAgeAndTheSexOrMixed) {
  // Age 12, female.
  struct Case {
    EventDef event;
    bool offered;
  };
  const std::vector<Case> cases = {
      {{5, "", 1112, "F"}, true},
      {{3, "B", 1112, "X"}, true},               // mixed is offered to everyone
      {{3, "A", 1112, "F"}, true},               // letters order within a number
      {{1, "", 99, "F"}, true},                  // open: 0 to 99
      {{2, "", 1299, "F"}, true},                // 12 and over
      {{4, "", 12, "F"}, true},                  // 12 and under
      {{6, "", 1314, "F"}, false},               // too young
      {{7, "", 1011, "F"}, false},               // too old
      {{8, "", 1112, "M"}, false},               // other sex
      {{9, "", 1112, "F", 200, 1, "R"}, false},  // relays aren't entered here
  };
  for (const Case& c : cases) AddEvent(c.event);
  const int32_t other_meet = AddMeet("Y", "2026-12-06", "", "");
  AddEvent({10, "", 1112, "F", 100, 1, "I", other_meet});
  std::vector<std::string> got;
  for (const OfferedEvent& e : EventsOffered(Db(), meet_, 12, "F"))
    got.push_back(std::to_string(e.mt_ev) + e.mt_evx);
  EXPECT_EQ(got, (std::vector<std::string>{"1", "2", "3A", "3B", "4", "5"}));
  // A swimmer with no sex sees the mixed events only.
  ASSERT_EQ(EventsOffered(Db(), meet_, 12, "").size(), 1u);
}

TEST_F(Entries, TheAgeIsTakenAtTheAgeUpDateElseFromTheAgeField) {
  struct Case {
    std::string birth;
    std::string age_up;
    int16_t age_field;
    int16_t expected;
  };
  const std::vector<Case> cases = {
      {"2014-06-01", "2026-12-31", 9, 12},
      {"2014-06-01", "2026-05-31", 9, 11},   // birthday not yet reached
      {"2014-06-01", "2026-06-01", 9, 12},   // birthday on the day counts
      {"2014-06-01", "", 9, 9},              // no age-up date
      {"", "2026-12-31", 10, 10},            // no birth date
      {"1900-01-01", "2026-12-31", 10, 10},  // the null date is no birth date
      {"2027-01-01", "2026-12-31", 7, 7},    // an age of 0 falls back
  };
  for (const Case& c : cases) {
    EntrySwimmer s;
    s.birth = Date::FromIso(c.birth);
    s.age = c.age_field;
    EntryMeet m;
    m.age_up = Date::FromIso(c.age_up);
    EXPECT_EQ(EntryAge(s, m, t.state.gNullDate), c.expected) << c.birth << " " << c.age_up;
  }
}

TEST_F(Entries, BestTimeFollowsTheCourseRuleAndTheSinceDate) {
  AddEvent({1, "", 1112, "F", 100, 2});
  AddSwim(100, 2, "L", 7000, "2026-06-10");  // long course only
  const int32_t convert = AddMeet("Y", "2026-12-07", "2026-12-31", "");
  const int32_t one_course = AddMeet("YO", "2026-12-08", "2026-12-31", "");
  const int32_t since_later = AddMeet("Y", "2026-12-09", "2026-12-31", "2026-07-01");
  for (int32_t m : {convert, one_course, since_later}) AddEvent({1, "", 1112, "F", 100, 2, "I", m});
  EntrySheet converted = Sheet(convert);
  ASSERT_TRUE(converted.Load(Swimmer()));
  ASSERT_EQ(converted.Rows().size(), 1u);
  const EntryRow& row = converted.Rows()[0];
  EXPECT_GT(row.best_score, 0);
  EXPECT_LT(row.best_score, 7000);  // yards are faster than long course
  EXPECT_EQ(row.best_text, FormatTime(row.best_score, false) + "Y'");
  // "YO" never shows a converted time; a later since date hides the swim.
  for (int32_t m : {one_course, since_later}) {
    EntrySheet sheet = Sheet(m);
    ASSERT_TRUE(sheet.Load(Swimmer()));
    EXPECT_EQ(sheet.Rows()[0].best_text, "NT") << m;
    EXPECT_EQ(sheet.Rows()[0].best_score, 0) << m;
  }
  AddSwim(100, 2, "Y", 6512, "2026-08-01");
  EntrySheet sheet = Sheet(one_course);
  ASSERT_TRUE(sheet.Load(Swimmer()));
  EXPECT_EQ(sheet.Rows()[0].best_text, "1:05.12Y");
}

TEST_F(Entries, TickingStoresTheBestTimeOrNoTimeExhibitionMarksAndUntickingRemoves) {
  const int32_t with_best = AddEvent({1, "", 1112, "F", 50, 1});
  const int32_t without = AddEvent({2, "", 1112, "F", 200, 4});
  AddSwim(50, 1, "Y", 3011, "2026-03-01");
  t.state.gCurrentMeet = 77;
  EntrySheet sheet = Sheet();
  ASSERT_TRUE(sheet.Load(Swimmer()));
  ASSERT_TRUE(sheet.SetEntered(0, true));
  ASSERT_TRUE(sheet.SetEntered(1, true));
  EXPECT_EQ(t.state.gCurrentMeet, 77);
  EXPECT_EQ(Entry(with_best), "/3011//Y");
  EXPECT_EQ(Entry(without), "N/0//Y");
  EXPECT_EQ(sheet.Rows()[0].CustomText(), "30.11");
  EXPECT_EQ(sheet.Rows()[1].CustomText(), "NT");
  ASSERT_TRUE(sheet.SetEntered(0, true));  // ticking an entered row again adds nothing
  EXPECT_EQ(Count("SELECT count(*) FROM ENTRY"), 2);
  ASSERT_TRUE(sheet.SetEntered(0, false));
  EXPECT_EQ(Entry(with_best), "");
  EXPECT_FALSE(sheet.Rows()[0].entered);
  EXPECT_EQ(sheet.Rows()[0].CustomText(), "");
  ASSERT_TRUE(sheet.SetExhib(0, true));  // adds the entry, marked
  EXPECT_EQ(Entry(with_best), "/3011/X/Y");
  EXPECT_TRUE(sheet.Rows()[0].exhib);
  ASSERT_TRUE(sheet.SetExhib(0, false));
  EXPECT_EQ(Entry(with_best), "/3011//Y");
}

TEST_F(Entries, TypedTimes) {
  const std::vector<std::tuple<std::string, std::string, std::vector<std::string>>> cases = {
      {"1:02.34", "/6234//Y", {}},
      {"5912", "/5912//Y", {}},
      {"59.12L", "/5912//Y", {}},  // stored in the meet's course all the same
      {"NT", "N/0//Y", {}},
      {"", "N/0//Y", {}},
      {"X1:10.00", "/7000/X/Y", {}},
      {"X", "N/0/X/Y", {}},
      {"7.99", "", {"Time entered is too low.", "Invalid Entry"}},
      {"1:0a", "", {"Invalid Entry"}},
  };
  const int32_t ev = AddEvent({1, "", 1112, "F"});
  for (const auto& [text, stored, messages] : cases) {
    SCOPED_TRACE(text);
    Db().exec("DELETE FROM ENTRY");
    t.io.shown.clear();
    EntrySheet sheet = Sheet();
    ASSERT_TRUE(sheet.Load(Swimmer()));
    EXPECT_EQ(sheet.TypeTime(0, text), !stored.empty());
    std::vector<std::string> shown;
    for (const auto& s : t.io.shown) shown.push_back(s.text);
    EXPECT_EQ(shown, messages);
    EXPECT_EQ(Entry(ev), stored);
  }
  // Over a stored time a refusal changes nothing and no time keeps the row and its mark.
  EntrySheet sheet = Sheet();
  ASSERT_TRUE(sheet.Load(Swimmer()));
  ASSERT_TRUE(sheet.TypeTime(0, "X58.00"));
  ASSERT_FALSE(sheet.TypeTime(0, "abc"));
  EXPECT_EQ(Entry(ev), "/5800/X/Y");
  ASSERT_TRUE(sheet.TypeTime(0, "nt"));
  EXPECT_EQ(Entry(ev), "N/0/X/Y");  // only an "X" writes the mark
  EXPECT_EQ(sheet.Rows()[0].CustomText(), "NT");
  EXPECT_EQ(Count("SELECT count(*) FROM ENTRY"), 1);
}

TEST_F(Entries, MeetsWithoutEntryEventsAreToldApart) {
  EXPECT_FALSE(HasEntryEvents(Db(), meet_));
  AddEvent({1, "", 1112, "M", 100, 1, "R"});
  EXPECT_TRUE(HasEntryEvents(Db(), meet_));
  EXPECT_FALSE(ReadEntryMeet(Db(), 9999).has_value());
  EXPECT_EQ(ReadEntryMeet(Db(), meet_)->CourseLetter(), 'Y');
}

}  // namespace
}  // namespace kvlr
