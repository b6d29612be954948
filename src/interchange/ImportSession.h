#pragma once
// One import run over the open database: the state the record routines share (criteria,
// the swimmer match, counters, the current meet and relay) and the routines that write
// meets, events, results and splits. Every write of a run goes into one transaction that
// Commit() ends (at the end of the run, or when the user stops it: what was stored stays);
// a session destroyed without Commit() rolls everything back, so a crash or a store
// failure leaves the database as it was.
//
// Store failures throw (SQLite::Exception / StoreError); the flows catch them, report them
// under the routine's name and roll back.

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "core/AppState.h"
#include "interchange/ImportTypes.h"
#include "interchange/SdifFields.h"
#include "interchange/SwimmerMatch.h"

namespace SQLite {
class Transaction;
}

namespace kvlr {

inline constexpr std::string_view kImportErrorLog = "IMPERR.LOG";

// The words of the import routines.
inline constexpr std::string_view kNoMeetName =
    "There is no name for one of the meets you are trying to import.";
inline constexpr std::string_view kGivenNameMeet = "It will be given the name MEET";
inline constexpr std::string_view kNoStartDateFor = "There is no start date found for meet: ";
inline constexpr std::string_view kGivenDate2003 =
    "It will be given the date of 01/01/2003. You will need to edit the start date.";
inline constexpr std::string_view kSameMeetTitle = "Same Meet";
inline constexpr std::string_view kUpdatingResultRankings = " Updating Result Rankings... ";

// NT of a result from its time text, by substring in this order: "DQ" 5, "SCR" 1, "NS" 2,
// "DNF" 3, "NT" 4, else 0.
uint8_t NtFromTimeText(std::string_view time_text);
// A course code of a file as the store keeps it: blank or 0 "Y", 1 "S", 2 "L", another
// number "", a letter as it stands.
std::string ImportCourseLetter(std::string_view course_code);
// The private event number of a swim whose number collides: base by distance + stroke,
// and the letter by the high age ("" for Lo_Hi 99).
int PrivateEventNumber(int distance, int stroke);
std::string PrivateEventLetter(int lo_hi);

class ImportSession {
 public:
  // Starts the transaction, reads FamilyList (with all_family), creates IMPERR.LOG empty
  // in the program home. `roster_mode`: athlete data only, no results.
  ImportSession(AppState& state, const ImportCriteria& criteria, ImportMonitor& monitor,
                bool roster_mode = false);
  ~ImportSession();
  ImportSession(const ImportSession&) = delete;
  ImportSession& operator=(const ImportSession&) = delete;

  AppState& State() { return state_; }
  ImportMonitor& Monitor() { return monitor_; }
  const ImportCriteria& Criteria() const { return criteria_; }
  SwimmerMatcher& Matcher() { return matcher_; }
  ImportCounts& Counts() { return counts_; }
  bool RosterMode() const { return roster_mode_; }

  // `ProcessMeetRec`: finds or adds the meet (with the "Same Meet" question and the
  // calendar rows) and makes it current. False on a failure that was reported.
  bool ProcessMeetRec(std::string_view name, const FileDate& start, const FileDate& end,
                      const FileDate& age_up, std::string_view course_code,
                      std::string_view location);
  // `ProcessB2Rec`: a meet taken as the same meet under another name gets the host's
  // location.
  void ProcessB2Rec(std::string_view b1_name, std::string_view location);
  int32_t CurrentMeet() const { return meet_; }
  const std::string& MeetCourse() const { return meet_course_; }  // "Y", "S", "L"
  const std::string& MeetName() const { return meet_name_; }
  std::optional<Date> MeetStart() const { return meet_start_; }

  // `GetMeetEvent` of the current meet: the MTEVENT key, found or added.
  int32_t GetMeetEvent(int distance, int stroke, int lo_hi, std::string_view sex, int number,
                       std::string_view letter, std::string_view course, std::string_view i_r);

  // `SaveResult` for Matcher().CurrentAthlete() in the current meet. A blank time text
  // does nothing. A result on file is overwritten only with overlay on, else
  // DuplicateSkipped() is set and it stays. LastResult() is then the row's key.
  bool SaveResult(std::string_view time_text, int distance, int stroke, std::string_view f_p,
                  std::string_view course, int32_t score, std::string_view i_r, int place,
                  int32_t mt_event, int age, std::string_view ex);
  bool DuplicateSkipped() const { return duplicate_skipped_; }
  int32_t LastResult() const { return last_result_; }
  // The key of an existing result (Meet, athlete, I_R, MtEvent, F_P); 0 when none.
  int32_t FindResult(int32_t athlete, std::string_view i_r, int32_t mt_event, std::string_view f_p);

  // One split of a result. An existing (SplitID, SplitIndex) is overwritten only with
  // overlay on (false then means it was left alone).
  bool SaveSplit(int32_t result, int split_index, int32_t split, bool overlay);

  // Appends lines of 78 columns to IMPERR.LOG and marks the run as having exceptions.
  void LogException(const std::vector<std::string>& lines);
  bool NotAllImported() const { return not_all_imported_; }
  void SetNotAllImported() { not_all_imported_ = true; }

  // Ends the transaction, keeping what was stored.
  void Commit();
  // `UpdateResultRankings`: AddRank over the whole database, after Commit().
  void UpdateResultRankings();

 private:
  int32_t FindOrAddEvent(int distance, int stroke, int lo_hi, std::string_view sex, int number,
                         std::string_view letter, std::string_view course, std::string_view i_r);

  AppState& state_;
  ImportMonitor& monitor_;
  ImportCriteria criteria_;
  SwimmerMatcher matcher_;
  ImportCounts counts_;
  bool roster_mode_;
  std::unique_ptr<SQLite::Transaction> transaction_;
  std::filesystem::path log_path_;
  int no_meet_counter_ = 1;
  int32_t meet_ = 0;
  std::string meet_name_, meet_course_;
  std::optional<Date> meet_start_;
  bool duplicate_skipped_ = false;
  int32_t last_result_ = 0;
  bool not_all_imported_ = false;
  // Events found or made by this run: a big meet asks for the same ones thousands of times.
  using EventKey =
      std::tuple<int32_t, int, int, int, std::string, int, std::string, std::string, std::string>;
  std::map<EventKey, int32_t> events_;
};

}  // namespace kvlr
