#include "meets/BestTimes.h"

#include <algorithm>
#include <cctype>

#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "standards/Conversion.h"

namespace kvlr {
namespace {

constexpr std::string_view kSourceBest = "basUtil.GetBest";
constexpr std::string_view kSourceFastest = "basUtil.GetFastestByCourse";
constexpr std::string_view kSourceFastestSql = "basUtil.GetFastestByCourseSQL";

// Every column of the WHERE clause is a key of index `Fast`, in its order, so this is one
// index seek.
constexpr const char* kFastSql =
    "SELECT SCORE, MEET FROM RESULT WHERE ATHLETE = ?1 AND I_R = ?2 AND DISTANCE = ?3 "
    "AND STROKE = ?4 AND COURSE = ?5 AND RANK = 1 LIMIT 1";

// One statement for every combination of filters: an unset filter is bound as NULL, and so
// is the lead-off code when lead-off legs don't count (NULL is in no IN list). Written so
// that the swimmer's rows of the event are found by the leading keys of index `Fast`. A tie
// of times keeps the individual swim ('I' sorts before 'L').
constexpr const char* kFilteredSql =
    "SELECT RESULT.SCORE, RESULT.MEET FROM RESULT INNER JOIN MEET ON RESULT.MEET = MEET.MEET "
    "WHERE RESULT.ATHLETE = :athlete AND RESULT.I_R IN ('I', :lead_off) "
    "AND RESULT.DISTANCE = :distance AND RESULT.STROKE = :stroke AND RESULT.COURSE = :course "
    "AND RESULT.SCORE > 0 AND IFNULL(RESULT.NT, 0) = 0 "
    "AND (:since IS NULL OR MEET.START >= :since) "
    "AND (:until IS NULL OR MEET.START < :until) "
    "AND (:type IS NULL OR MEET.TYPE = :type) "
    "ORDER BY RESULT.SCORE, RESULT.I_R LIMIT 1";

char Upper(char c) {
  return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

bool NoMeetType(std::string_view meet_type) {
  return Trim(meet_type).empty();
}

// Leaves a kept statement ready for the next call and ends its read as soon as the row
// is taken.
class ResetOnExit {
 public:
  explicit ResetOnExit(SQLite::Statement& statement) : statement_(statement) {}
  ~ResetOnExit() { statement_.tryReset(); }
  ResetOnExit(const ResetOnExit&) = delete;
  ResetOnExit& operator=(const ResetOnExit&) = delete;

 private:
  SQLite::Statement& statement_;
};

// The trap of these routines: Retry runs the lookup again, any other answer gives the
// empty record. `forget` drops kept statements so that a retry prepares them anew.
template <typename Body, typename Forget>
BestTimeRec Trapped(AppState& state, std::string_view source, Body&& body, Forget&& forget) {
  return RunTrapped(state, source, [&]() -> BestTimeRec {
    try {
      return body();
    } catch (...) {
      forget();
      throw;
    }
  });
}

std::string TimeWithCourse(int32_t time, char course) {
  std::string text = FormatTime(time, true);
  text += course;
  return text;
}

}  // namespace

int16_t BestLookupDistance(int16_t distance, int16_t stroke, char course) {
  const bool yards = Upper(course) == 'Y';
  switch (distance) {
    case 400:
      return (yards && stroke == 1) ? 500 : 400;
    case 500:
      return yards ? 500 : 400;
    case 800:
    case 1000:
      return yards ? 1000 : 800;
    case 1500:
    case 1650:
      return yards ? 1650 : 1500;
    default:
      return distance;
  }
}

std::vector<SwumEvent> SwumEvents(SQLite::Database& db, int32_t athlete, char course) {
  SQLite::Statement q(db,
                      "SELECT DISTINCT DISTANCE, STROKE FROM RESULT WHERE ATHLETE = ? AND "
                      "I_R = 'I' ORDER BY STROKE, DISTANCE");
  q.bind(1, athlete);
  std::vector<SwumEvent> events;
  while (q.executeStep()) {
    const auto stroke = static_cast<int16_t>(q.getColumn(1).getInt());
    const auto distance =
        BestLookupDistance(static_cast<int16_t>(q.getColumn(0).getInt()), stroke, course);
    events.push_back({distance, stroke});
  }
  // Two courses' names of one race now read alike: keep one.
  std::stable_sort(events.begin(), events.end(), [](const SwumEvent& a, const SwumEvent& b) {
    return a.stroke != b.stroke ? a.stroke < b.stroke : a.distance < b.distance;
  });
  events.erase(std::unique(events.begin(), events.end()), events.end());
  return events;
}

BestTimeFinder::BestTimeFinder(AppState& state) : state_(state) {}

BestTimeFinder::~BestTimeFinder() = default;

SQLite::Database& BestTimeFinder::Db() {
  if (!state_.gDb) throw KvlError(err::kAppData, "No database is open.");
  return *state_.gDb;
}

bool BestTimeFinder::SeekRankOne(int32_t athlete, std::string_view i_r, int16_t distance,
                                 int16_t stroke, char course, int32_t& score, int32_t& meet) {
  if (!fast_) fast_ = std::make_unique<SQLite::Statement>(Db(), kFastSql);
  SQLite::Statement& q = *fast_;
  ResetOnExit reset(q);
  q.tryReset();
  q.bind(1, athlete);
  q.bind(2, std::string(i_r));
  q.bind(3, distance);
  q.bind(4, stroke);
  q.bind(5, std::string(1, course));
  if (!q.executeStep()) return false;
  score = q.getColumn(0).getInt();
  meet = q.getColumn(1).getInt();
  return true;
}

BestTimeRec BestTimeFinder::FastestByCourse(int32_t athlete, int16_t distance, int16_t stroke,
                                            char course) {
  course = Upper(course);
  return Trapped(
      state_, kSourceFastest,
      [&] {
        BestTimeRec rec;
        int32_t score = 0;
        int32_t meet = 0;
        const bool found = SeekRankOne(athlete, "I", distance, stroke, course, score, meet);
        if (found) rec = {score, score, std::string(1, course), "", meet};
        if (!state_.gUseLeadOff) return rec;
        // A lead-off leg takes the place of the individual swim only when strictly faster.
        if (SeekRankOne(athlete, "L", distance, stroke, course, score, meet) &&
            (!found || score < rec.score)) {
          rec = {score, score, std::string(1, course), "", meet};
        }
        return rec;
      },
      [&] { fast_.reset(); });
}

BestTimeRec BestTimeFinder::FastestByCourseSQL(int32_t athlete, int16_t distance, int16_t stroke,
                                               char course, const Date& since, const Date& until,
                                               std::string_view meet_type) {
  course = Upper(course);
  return Trapped(
      state_, kSourceFastestSql,
      [&] {
        if (!filtered_) filtered_ = std::make_unique<SQLite::Statement>(Db(), kFilteredSql);
        SQLite::Statement& q = *filtered_;
        ResetOnExit reset(q);
        q.tryReset();
        q.bind(":athlete", athlete);
        q.bind(":stroke", stroke);
        q.bind(":distance", distance);
        q.bind(":course", std::string(1, course));
        if (state_.gUseLeadOff) {
          q.bindNoCopy(":lead_off", "L");
        } else {
          q.bind(":lead_off");
        }
        if (since != state_.gNullDate) {
          q.bind(":since", since.Iso());
        } else {
          q.bind(":since");
        }
        if (until != state_.gNullDate) {
          q.bind(":until", until.Iso());
        } else {
          q.bind(":until");
        }
        if (!NoMeetType(meet_type)) {
          q.bind(":type", std::string(meet_type));
        } else {
          q.bind(":type");
        }
        BestTimeRec rec;
        if (q.executeStep()) {
          const int32_t score = q.getColumn(0).getInt();
          rec = {score, score, std::string(1, course), "", q.getColumn(1).getInt()};
        }
        return rec;
      },
      [&] { filtered_.reset(); });
}

BestTimeRec BestTimeFinder::Best(int32_t athlete, int16_t distance, int16_t stroke, char target,
                                 bool use_dates, const Date& since, const Date& until,
                                 std::string_view meet_type) {
  target = Upper(target);
  const bool unfiltered = !use_dates && NoMeetType(meet_type);
  const Date from = use_dates ? since : state_.gNullDate;
  const Date to = use_dates ? until : state_.gNullDate;
  return Trapped(
      state_, kSourceBest,
      [&] {
        BestTimeRec best;
        int32_t best_so_far = kBestSearchStart;
        for (const char c : CourseLetters) {
          const int16_t d = BestLookupDistance(distance, stroke, c);
          BestTimeRec rec = unfiltered
                                ? FastestByCourse(athlete, d, stroke, c)
                                : FastestByCourseSQL(athlete, d, stroke, c, from, to, meet_type);
          if (rec.score <= 0) continue;
          const int32_t converted = ConvertTime(state_, d, rec.score, stroke, c, target);
          // Strictly below: a tie stays with the course met first.
          if (converted < best_so_far) {
            best_so_far = converted;
            best = {rec.score, converted, std::string(1, c), "", rec.meet};
          }
        }
        return best_so_far == kBestSearchStart ? BestTimeRec{} : best;
      },
      [] {});
}

BestTimeRec BestTimeFinder::FastestText(int32_t athlete, int16_t distance, int16_t stroke,
                                        char course, bool use_dates, const Date& since,
                                        std::string_view meet_type) {
  course = Upper(course);
  BestTimeRec rec =
      (!use_dates && NoMeetType(meet_type))
          ? FastestByCourse(athlete, distance, stroke, course)
          : FastestByCourseSQL(athlete, distance, stroke, course,
                               use_dates ? since : state_.gNullDate, state_.gNullDate, meet_type);
  rec.text = rec.score < 1 ? "NT" : TimeWithCourse(rec.score, course);
  return rec;
}

BestTimeRec BestTimeFinder::BestText(int32_t athlete, int16_t distance, int16_t stroke, char target,
                                     bool use_dates, const Date& since, std::string_view meet_type,
                                     bool mark) {
  target = Upper(target);
  BestTimeRec rec =
      Best(athlete, distance, stroke, target, use_dates, since, state_.gNullDate, meet_type);
  if (rec.converted == 0) {
    rec.text = "NT";
  } else {
    rec.text = TimeWithCourse(rec.converted, target);
    if (mark && rec.course != std::string(1, target)) rec.text += '\'';
  }
  return rec;
}

BestTimeRec GetFastestByCourse(AppState& state, int32_t athlete, int16_t distance, int16_t stroke,
                               char course) {
  return BestTimeFinder(state).FastestByCourse(athlete, distance, stroke, course);
}

BestTimeRec GetFastestByCourseSQL(AppState& state, int32_t athlete, int16_t distance,
                                  int16_t stroke, char course, const Date& since, const Date& until,
                                  std::string_view meet_type) {
  return BestTimeFinder(state).FastestByCourseSQL(athlete, distance, stroke, course, since, until,
                                                  meet_type);
}

BestTimeRec GetBest(AppState& state, int32_t athlete, int16_t distance, int16_t stroke,
                    char target_course, bool use_dates, const Date& since, const Date& until,
                    std::string_view meet_type) {
  return BestTimeFinder(state).Best(athlete, distance, stroke, target_course, use_dates, since,
                                    until, meet_type);
}

BestTimeRec GetFastestText(AppState& state, int32_t athlete, int16_t distance, int16_t stroke,
                           char course, bool use_dates, const Date& since,
                           std::string_view meet_type) {
  return BestTimeFinder(state).FastestText(athlete, distance, stroke, course, use_dates, since,
                                           meet_type);
}

BestTimeRec GetBestText(AppState& state, int32_t athlete, int16_t distance, int16_t stroke,
                        char target_course, bool use_dates, const Date& since,
                        std::string_view meet_type, bool mark) {
  return BestTimeFinder(state).BestText(athlete, distance, stroke, target_course, use_dates, since,
                                        meet_type, mark);
}

}  // namespace kvlr
