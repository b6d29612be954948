#pragma once
// Goals: a swimmer's target times, kept as RESULT rows with I_R "G" (Rank and TRank -1) in
// one goal meet for each course. Times are hundredths of a second; courses are 'Y', 'S',
// 'L'. A goal row is found by the result key (meet, athlete, "G", event, F_P "F").

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"
#include "meets/ResultWriter.h"

namespace kvlr {

namespace goaltxt {
inline constexpr std::string_view kYardName = "Goals - Yard Pools";
inline constexpr std::string_view kLongName = "Goals - Long Course Meter Pools";
inline constexpr std::string_view kShortName = "Goals - Short Course Meter Pools";
inline constexpr std::string_view kNamePrefix = "Goals";
inline constexpr std::string_view kGoalStart = "2000-01-01";
inline constexpr std::string_view kProblemGettingGoalMeet = "Problem getting Goal Meet";
inline constexpr std::string_view kAddGoalFirst =
    "You must add a Goal Time before adding a comment.";
inline constexpr std::string_view kCommentEvent = "Event: ";
inline constexpr std::string_view kCommentTime = " - Time: ";
inline constexpr std::string_view kGoalWord = "Goal";
inline constexpr std::string_view kColEvent = "Event";
inline constexpr std::string_view kColTime = "Time";
inline constexpr std::string_view kColComments = "Comments";
inline constexpr std::string_view kSplitsCommand = "Add/Edit Goal Splits";
inline constexpr std::string_view kCalcCommand = "Time Calculator";
inline constexpr std::string_view kRelayLegsCommand = "Relay Legs";
inline constexpr std::string_view kCommentCommand = "Add Comment";
}  // namespace goaltxt

// The goal meet's name for a course: 'Y' the yard name, 'L' the long-course name, any
// other letter the short-course name.
std::string_view GoalMeetName(char course);

// The goal meet of the course: the first meet of that course whose name begins with
// "Goals" (any case), else a new one (its name, Start and End 2000-01-01, Type "G"). A goal
// meet with no individual event gets the default events of its course.
// 0, after "Problem getting Goal Meet" is shown, when it can be neither found nor made.
int32_t GetGoalMeet(AppState& state, char course);

// One event of the goal meet with the swimmer's goal in it.
struct GoalRow {
  MtEventRec event;        // i_r is "G": the writers treat the row as a goal
  std::string event_text;  // "100 Free"
  int64_t result = 0;      // RESULT key of the goal; 0 when none stands
  int32_t score = 0;
  int nt = 0;
  bool has_comment = false;

  // "Time": the goal through ScoreText, "" with none.
  std::string TimeText() const;
  // The event as kept for the splits and comment screens: "100 Free Goal".
  std::string KeptText() const;
};

// The individual events of the goal meet for the swimmer's sex, by stroke and distance,
// each with the swimmer's goal. Failures are reported under "frmGoals.LoadGoals" and give
// an empty list.
std::vector<GoalRow> LoadGoals(AppState& state, int32_t meet, int32_t athlete,
                               std::string_view sex);

// A typed goal: CheckResultText (its message shown on refusal), then UpdateResultScore
// with state.gCurrentMeet set to the row's meet for the call. Ranks aren't touched.
// True if stored; the row is then read again.
bool WriteGoal(AppState& state, GoalRow& row, std::string_view text, int16_t age, int32_t athlete);

// The comment box's heading "Event: " + event + " - Time: " + time; "" after showing
// "You must add a Goal Time before adding a comment." when no goal stands.
std::string GoalCommentHeading(AppState& state, const GoalRow& row);

}  // namespace kvlr
