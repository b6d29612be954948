#pragma once
// The numbering rules of the rankings as pure passes over rows given in the order of their
// query. Each Next() returns the value to store for that row. Courses and I_R codes are
// compared as given: callers hand them in one case (the store compares them without case).

#include <cstdint>
#include <string>

namespace kvlr {

// Rank of a swim that has a non-time code.
inline constexpr int kNonTimeRank = 999;

// The fields of a RESULT row that a ranking looks at.
struct RankedSwim {
  int32_t athlete = 0;
  int32_t distance = 0;
  int32_t stroke = 0;
  std::string course;
  std::string i_r;
  bool timed = true;  // Val("" & NT) is 0: a Null NT counts as a time
  int32_t score = 0;
};

// The pass of a whole ranking (AddRank, AddTRank) over rows ordered by swimmer, [I_R,]
// distance, stroke, NT, course, score. Ties share a rank and skip the next; a non-time gets
// 999 and changes nothing.
class TableRankPass {
 public:
  // How the first row is met. kWhole (AddRank): the first row opens a group by the group
  // test. kSelection (AddTRank): the first row's group is taken before the loop and the
  // last I_R starts empty, so it gets its number by the I_R or the score test (a first
  // row of score 0 with UseLeadOff on gets 0).
  enum class Start { kWhole, kSelection };

  TableRankPass(bool use_lead_off, Start start, const RankedSwim& first)
      : use_lead_off_(use_lead_off),
        athlete_(first.athlete),
        distance_(start == Start::kSelection ? first.distance : 0),
        stroke_(start == Start::kSelection ? first.stroke : 0),
        course_(first.course),
        i_r_(start == Start::kSelection ? std::string() : first.i_r) {}

  int Next(const RankedSwim& s) {
    if (!s.timed) return kNonTimeRank;
    if (s.athlete != athlete_ || s.distance != distance_ || s.stroke != stroke_ ||
        s.course != course_) {
      athlete_ = s.athlete;
      distance_ = s.distance;
      stroke_ = s.stroke;
      course_ = s.course;
      i_r_ = s.i_r;
      score_ = s.score;
      rank_ = 1;
      ties_ = 0;
    } else if (!use_lead_off_ && s.i_r != i_r_) {
      i_r_ = s.i_r;
      score_ = s.score;
      rank_ = 1;
      ties_ = 0;
    } else if (s.score != score_) {
      rank_ += 1 + ties_;
      score_ = s.score;
      ties_ = 0;
    } else {
      ++ties_;
    }
    return rank_;
  }

 private:
  bool use_lead_off_;
  int32_t athlete_;
  int32_t distance_;
  int32_t stroke_;
  std::string course_;
  std::string i_r_;
  int32_t score_ = 0;
  int rank_ = 0;
  int ties_ = 0;
};

// The pass of one group (AddRankForOne) over rows ordered by [I_R,] NT, score. The last
// score starts at 0 and isn't reset when the I_R changes: a first row of score 0, or a first
// 'L' row as fast as the last 'I' row, counts as a tie of nothing and gets 0.
class GroupRankPass {
 public:
  GroupRankPass(bool use_lead_off, const RankedSwim& first)
      : use_lead_off_(use_lead_off), i_r_(first.i_r) {}

  int Next(const RankedSwim& s) {
    if (!s.timed) return kNonTimeRank;
    if (!use_lead_off_ && s.i_r != i_r_) {
      rank_ = 0;
      ties_ = 0;
      i_r_ = s.i_r;
    }
    if (s.score != score_) {
      rank_ += 1 + ties_;
      score_ = s.score;
      ties_ = 0;
    } else {
      ++ties_;
    }
    return rank_;
  }

 private:
  bool use_lead_off_;
  std::string i_r_;
  int32_t score_ = 0;
  int rank_ = 0;
  int ties_ = 0;
};

// Non-lead relay legs of the whole table (AddRankIndividualRelayLeg), ordered by swimmer,
// distance, stroke, NT, course, score: 1, 2, 3 within each swimmer, distance, stroke and
// course, whatever the times or NT.
class LegNumberPass {
 public:
  explicit LegNumberPass(const RankedSwim& first)
      : athlete_(first.athlete), course_(first.course) {}

  int Next(const RankedSwim& s) {
    if (s.athlete != athlete_ || s.distance != distance_ || s.stroke != stroke_ ||
        s.course != course_) {
      athlete_ = s.athlete;
      distance_ = s.distance;
      stroke_ = s.stroke;
      course_ = s.course;
      rank_ = 1;
    } else {
      ++rank_;
    }
    return rank_;
  }

 private:
  int32_t athlete_;
  int32_t distance_ = 0;
  int32_t stroke_ = 0;
  std::string course_;
  int rank_ = 0;
};

// Non-lead legs of one group (AddRankForOneRelayLeg): 1, 2, 3 in query order.
class LegCountPass {
 public:
  int Next(const RankedSwim&) { return ++rank_; }

 private:
  int rank_ = 0;
};

}  // namespace kvlr
