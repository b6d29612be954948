#pragma once
// A swimmer's best times: the fastest swim of one course, and the best of the three courses
// as one chosen course sees it.
//
// Times are whole hundredths (see core/TimeText.h). Courses are the letters 'Y', 'S', 'L'.
// Dates: a `Date` equal to state.gNullDate means "no date"; `since` is included, `until`
// excluded. An empty meet type means every type. Failures are reported through
// ReportError under "basUtil.GetFastestByCourse", "basUtil.GetFastestByCourseSQL" or
// "basUtil.GetBest" and give an empty record, which callers show as "NT".

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Statement.h>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

struct BestTimeRec {
  int32_t score = 0;      // the time as swum; 0 when nothing was found
  int32_t converted = 0;  // the time in the course asked for
  std::string course;     // course letter of the swim; "" when nothing was found
  std::string text;       // printable form, filled by the text lookups only
  int32_t meet = 0;       // MEET key of the swim
};

// The lookups on the database open in `state` (gDb), keeping their prepared statements
// between calls: hold one across a loop over events. A finder belongs to the database that
// was open when it was first used; destroy it before that database is closed. Uses
// state.gUseLeadOff and state.gCvtFactors as they stand at each call.
class BestTimeFinder {
 public:
  explicit BestTimeFinder(AppState& state);
  ~BestTimeFinder();
  BestTimeFinder(const BestTimeFinder&) = delete;
  BestTimeFinder& operator=(const BestTimeFinder&) = delete;

  // The swim of rank 1 of individual swims ('I') in `course`, by the index on RESULT.Rank
  // (no filter, trusts the stored ranks). With gUseLeadOff a lead-off leg ('L') of rank 1
  // replaces it only when strictly faster. converted == score.
  BestTimeRec FastestByCourse(int32_t athlete, int16_t distance, int16_t stroke, char course);

  // The fastest swim in `course` among swims with a time above 0 and no non-time code, of
  // meets starting in [since, until) and of `meet_type`; ranks aren't used. A tie keeps the
  // individual swim. converted == score.
  BestTimeRec FastestByCourseSQL(int32_t athlete, int16_t distance, int16_t stroke, char course,
                                 const Date& since, const Date& until, std::string_view meet_type);

  // The best over the courses Y, S, L in that order, each looked up at its own distance for
  // the long events (400/500, 800/1000, 1500/1650) and converted to `target`; a tie keeps
  // the earlier course. The filtered lookup serves when `use_dates` is set (the dates apply
  // only then) or a meet type is given.
  BestTimeRec Best(int32_t athlete, int16_t distance, int16_t stroke, char target, bool use_dates,
                   const Date& since, const Date& until, std::string_view meet_type);

  // FastestByCourse (or FastestByCourseSQL with no until date) with text: "NT", or the
  // padded time and the course letter. No conversion.
  BestTimeRec FastestText(int32_t athlete, int16_t distance, int16_t stroke, char course,
                          bool use_dates, const Date& since, std::string_view meet_type);

  // Best with no until date, with text: "NT" when nothing was found, else the padded
  // converted time and `target`, and with `mark` an apostrophe when the swim's course
  // isn't `target`.
  BestTimeRec BestText(int32_t athlete, int16_t distance, int16_t stroke, char target,
                       bool use_dates, const Date& since, std::string_view meet_type, bool mark);

 private:
  // One seek on the index `Fast`; false when no row.
  bool SeekRankOne(int32_t athlete, std::string_view i_r, int16_t distance, int16_t stroke,
                   char course, int32_t& score, int32_t& meet);
  SQLite::Database& Db();

  AppState& state_;
  std::unique_ptr<SQLite::Statement> fast_;
  std::unique_ptr<SQLite::Statement> filtered_;
};

// The distance looked up in `course` for an event of `distance` in GetBest: yards swim 500,
// 1000, 1650 where metres swim 400, 800, 1500; a 400 stays 400 in yards except freestyle.
int16_t BestLookupDistance(int16_t distance, int16_t stroke, char course);

// An individual event as best-time lists name it.
struct SwumEvent {
  int16_t distance = 0;
  int16_t stroke = 0;
  bool operator==(const SwumEvent&) const = default;
};

// The individual events the swimmer has swum in any course, each once, named by the
// distance `course` swims it (BestLookupDistance: a long-course 400 free is listed as the
// 500 free of yards), by stroke then distance. Store failures throw.
std::vector<SwumEvent> SwumEvents(SQLite::Database& db, int32_t athlete, char course);

// The same lookups with a finder made for the one call (its statements prepared each time).
BestTimeRec GetFastestByCourse(AppState& state, int32_t athlete, int16_t distance, int16_t stroke,
                               char course);
BestTimeRec GetFastestByCourseSQL(AppState& state, int32_t athlete, int16_t distance,
                                  int16_t stroke, char course, const Date& since, const Date& until,
                                  std::string_view meet_type);
BestTimeRec GetBest(AppState& state, int32_t athlete, int16_t distance, int16_t stroke,
                    char target_course, bool use_dates, const Date& since, const Date& until,
                    std::string_view meet_type);
BestTimeRec GetFastestText(AppState& state, int32_t athlete, int16_t distance, int16_t stroke,
                           char course, bool use_dates, const Date& since,
                           std::string_view meet_type);
BestTimeRec GetBestText(AppState& state, int32_t athlete, int16_t distance, int16_t stroke,
                        char target_course, bool use_dates, const Date& since,
                        std::string_view meet_type, bool mark);

}  // namespace kvlr
