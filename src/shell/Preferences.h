#pragma once
// The three preference screens' data: what they show, check and write.

#include <filesystem>
#include <optional>
#include <string>

#include "core/AppState.h"
#include "core/Options.h"

namespace kvlr {

namespace pref_text {
inline constexpr std::string_view kUpdateRange = "Range for Update Check is 0 to 60.";
inline constexpr std::string_view kBackupRange = "Range for Backup Check is 1 to 60.";
inline constexpr std::string_view kAgeUpDate = "You must enter a valid Age-Up Date.";
inline constexpr std::string_view kCancelWarning = "Warning: Cancel selected so defaults used.";
inline constexpr std::string_view kRemindersHelp =
    "KVL-R will automatically remind you to backup and check for updates based on the days you "
    "enter here.  The range is 1 to 60 days.  You can enter 0 for the Update Check to disable "
    "automatic Update checking (for users without Internet access, for example).";
inline constexpr std::string_view kDirectoriesHelp =
    "First select the drive and directory.  Then, use 'Set Directory' buttons to set the "
    "Favorite Directory for each area.  You can set them all to the same directory.";
inline constexpr std::string_view kPathTooLong =
    "Total path length can not exceed 60 characters.  Please select a shorter path.";
}  // namespace pref_text

// Which date is a meet's age-up date.
enum class AgeUpChoice { kMeetStart = 0, kMeetEnd = 1, kDate = 2, kNotApplicable = 3 };

struct SystemPreferences {
  int fav_sex = 0;  // 0 M/W, 1 M/F, 2 B/G
  bool use_lead_off = false;
  int backup_days = 7;
  int update_days = 7;
  AgeUpChoice age_up = AgeUpChoice::kMeetStart;
  std::optional<Date> age_up_date;
};

SystemPreferences LoadSystemPreferences(AppState& state);
// The first refusal in the screen's order, or nullopt when all is well.
std::optional<std::string> CheckSystemPreferences(const SystemPreferences& prefs);
// Writes OPTIONS and the globals; a change of the lead-off rule re-ranks everything.
void SaveSystemPreferences(AppState& state, const SystemPreferences& prefs);

struct ReportPreferences {
  int output_case = 0;  // 0 as keyed, 1 upper case only, 2 upper/lower case
  int open_events = 1;  // 0 no designation, 1 "Senior", 2 "Open"
  std::string header1;
  std::string header2;
  int paper_size = 0;  // 0 letter, 1 legal
  PrinterNames printer;
};

ReportPreferences LoadReportPreferences(AppState& state);
void SaveReportPreferences(AppState& state, const ReportPreferences& prefs);

// "Import Directory" and the others: the words the screen and its message use.
std::string DirectoryWord(DirectoryKind kind);
// Saves a favourite folder at once; refuses paths over 60 characters. The user is told.
bool SetFavoriteDirectory(AppState& state, DirectoryKind kind, const std::filesystem::path& folder);

}  // namespace kvlr
