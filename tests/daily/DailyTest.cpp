// Calendar rows of meets on their days, delete cascades, the end-before-start repair, health
// values and their limits, and the iCalendar file read back by a real parser.

#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "daily/Calendar.h"
#include "daily/CalendarIcs.h"
#include "daily/DailyTexts.h"
#include "daily/Health.h"
#include "meets/Meets.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

class DailyTest : public test::DbTest {
 protected:
  DailyTest() {
    swimmer = test::AddAthlete(Db(), "Lane", "Robin");
    other = test::AddAthlete(Db(), "Lane", "Casey");
    t.state.gAthlete = swimmer;
  }
  int64_t AddEvent(int athlete, const char* date, int type, const char* start, const char* end,
                   const char* comment = "") {
    SQLite::Statement q(Db(), "INSERT INTO tblEvents (Athlete, DATE, Type, StartTime, EndTime, "
                              "Comment) VALUES (?, ?, ?, ?, ?, ?)");
    SQLite::bind(q, athlete, date, type, start, end, comment);
    q.exec();
    return Db().getLastInsertRowid();
  }
  int32_t SaveTwoDayMeet() {
    MeetForm form;
    form.mname = "Autumn Invite";
    form.course = "Y";
    form.start = "10/03/2026";
    form.end = "10/04/2026";
    form.remarks = "Bring fins";
    return SaveMeet(t.state, form).meet;
  }
  int swimmer = 0, other = 0;
};

TEST_F(DailyTest, MeetRowsShowOnTheirDaysForEverySwimmerAndMixedDaysAreMulti) {
  const int32_t meet = SaveTwoDayMeet();
  ASSERT_GT(meet, 0);
  AddEvent(swimmer, "2026-10-04", kEventNote, "1899-12-30 07:00:00", "1899-12-30 07:15:00");
  AddEvent(other, "2026-10-05", kEventNote, "1899-12-30 07:00:00", "1899-12-30 07:15:00");
  const auto marks = LoadEventMarks(Db(), other, -1, {2026, 10, 1}, {2026, 10, 31});
  EXPECT_EQ(marks, (std::map<Date, int>{{{2026, 10, 3}, kEventMeet},
                                        {{2026, 10, 4}, kEventMeet},
                                        {{2026, 10, 5}, kEventNote}}));
  const auto own = LoadEventMarks(Db(), swimmer, -1, {2026, 10, 1}, {2026, 10, 31});
  EXPECT_EQ(own.at(Date{2026, 10, 4}), kEventMultiple);
  EXPECT_EQ(LoadEventMarks(Db(), other, kEventNote, {2026, 10, 1}, {2026, 10, 31}).size(), 1u);
}

TEST_F(DailyTest, DeletesTakeWhatHangsOnTheEvent) {
  const int32_t meet = SaveTwoDayMeet();
  Db().exec("INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE) VALUES (" + std::to_string(meet) +
            ", 1, 'I', 6000)");
  HealthForm health;
  health.date = {2026, 10, 3};
  health.start = "6am";
  health.values = {"58", "8", "120", "4"};
  const int64_t health_id = SaveHealth(t.state, health).id;
  ASSERT_GT(health_id, 0);
  auto day = LoadDay(t.state, swimmer, {2026, 10, 3});
  ASSERT_EQ(day.size(), 2u);
  for (const CalendarEvent& e : day) ASSERT_TRUE(DeleteEvent(t.state, e)) << e.type;
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblHealth"), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET"), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT"), 0);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblEvents"), 0);  // the meet's second day too

  // A No to the meet's second question keeps everything.
  const int32_t again = SaveTwoDayMeet();
  t.io.Script({Answer::kYes, Answer::kNo});
  EXPECT_FALSE(DeleteEvent(t.state, LoadDay(t.state, swimmer, {2026, 10, 3}).front()));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM MEET WHERE Meet = ?", again), 1);
}

TEST_F(DailyTest, EndNotAfterStartIsToldAndWrittenBackAnHourLong) {
  const int64_t id =
      AddEvent(swimmer, "2026-11-02", kEventGoal, "1899-12-30 09:00:00", "1899-12-30 08:00:00");
  const auto day = LoadDay(t.state, swimmer, {2026, 11, 2});
  ASSERT_EQ(day.size(), 1u);
  EXPECT_EQ(*day[0].end, 10 * 60);
  EXPECT_TRUE(t.io.Saw(dailytext::kAdjustingHour));
  EXPECT_EQ(Rows("SELECT EndTime FROM tblEvents WHERE ID = ?", id), "1899-12-30 10:00:00\n");
}

TEST_F(DailyTest, AddingOverAnEventAsksAndYesLandsAQuarterLater) {
  AddEvent(swimmer, "2026-11-02", kEventNote, "1899-12-30 08:00:00", "1899-12-30 08:15:00");
  const TimeSpan eight{8 * 60, 8 * 60 + 15};
  t.io.Script({Answer::kYes});
  AddStart add = StartAdd(t.state, kEventNote, {2026, 11, 2}, eight);
  EXPECT_EQ(add.form.start, "08:15AM");
  ASSERT_TRUE(SaveEvent(t.state, add.form).saved);
  t.io.Script({Answer::kNo});
  EXPECT_EQ(StartAdd(t.state, kEventNote, {2026, 11, 2}, eight).choice, AddChoice::kEditExisting);
  // A second event at the same start is refused.
  EXPECT_FALSE(SaveEvent(t.state, {0, kEventNote, {2026, 11, 2}, "8:15am", "9am", ""}).saved);
  EXPECT_TRUE(t.io.Saw(dailytext::kTwoEvents));
}

TEST_F(DailyTest, HealthValuesAndTheirLimits) {
  struct Case {
    HealthValues in;
    bool ok;
    double hr;
    int wellness;
  } cases[] = {
      {{"", "", "", ""}, true, 0, 0},
      {{"62 bpm", "7.5", "130", "4"}, true, 62, 4},
      {{"abc", "", "", "2.5"}, true, 0, 2},  // wellness rounds half to even
      {{"", "", "", "32767"}, true, 0, 32767},
      {{"", "", "", "32768"}, false, 0, 0},
      {{"1e39", "", "", ""}, false, 0, 0},
  };
  for (const Case& c : cases) {
    std::string refused;
    const auto r = ReadHealthValues(c.in, &refused);
    ASSERT_EQ(r.has_value(), c.ok) << c.in.hr << "/" << c.in.wellness;
    if (!r) continue;
    EXPECT_EQ(r->hr, c.hr);
    EXPECT_EQ(r->wellness, c.wellness);
  }
  HealthForm form;
  form.date = {2026, 11, 3};
  ASSERT_TRUE(SaveHealth(t.state, form).saved);  // empty boxes: 8:00am, zeros
  EXPECT_EQ(Rows("SELECT HR, WELLNESS FROM tblHealth"), "0.0|0\n");
  EXPECT_FALSE(SaveHealth(t.state, form).saved);  // the same start again
}

TEST_F(DailyTest, IcsFileParsesBackWithEveryEvent) {
  SaveTwoDayMeet();
  AddEvent(swimmer, "2026-11-02", kEventSwim, "1899-12-30 06:00:00", "1899-12-30 07:30:00",
           "Morning; \"aerobic\", set");
  AddEvent(other, "2026-11-02", kEventNote, "1899-12-30 06:00:00", "1899-12-30 07:30:00");
  const auto file = t.Root() / "robin.ics";
  ASSERT_EQ(WriteCalendarIcs(t.state, swimmer, file), 3);
  const std::string script =
      "import sys, icalendar\n"
      "c = icalendar.Calendar.from_ical(open(sys.argv[1], 'rb').read())\n"
      "for e in c.walk('VEVENT'):\n"
      "    print(e.decoded('dtstart').isoformat(), e.decoded('dtend').isoformat(), "
      "str(e.get('summary')))\n";
  const auto py = t.Root() / "read.py";
  std::ofstream(py) << script;
  const auto out = t.Root() / "out.txt";
  ASSERT_EQ(std::system(("/usr/bin/python3 " + py.string() + " " + file.string() + " > " +
                         out.string()).c_str()),
            0);
  std::ifstream in(out);
  const std::string text((std::istreambuf_iterator<char>(in)), {});
  EXPECT_EQ(text,
            "2026-10-03T05:00:00 2026-10-03T21:00:00 Meet: Bring fins\n"
            "2026-10-04T05:00:00 2026-10-04T21:00:00 Meet: Bring fins\n"
            "2026-11-02T06:00:00 2026-11-02T07:30:00 Swim: Morning; \"aerobic\", set\n");
}

}  // namespace
}  // namespace kvlr
