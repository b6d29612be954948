#pragma once
// The words of the shell: start-up, login, menus, the way out.

#include <string_view>

namespace kvlr::shell_text {

inline constexpr std::string_view kOpeningDatabase = "Opening Database...";
inline constexpr std::string_view kApplyingFavorites = "Applying Favorite Settings...";
inline constexpr std::string_view kWelcomeHead = "Setting Up Database for KVL-R";
inline constexpr std::string_view kWelcome = "Welcome to Norvan's KVL RENEWED";
inline constexpr std::string_view kWelcomeStep1 =
    "1. Click on 'File' then 'Open/New' Database and enter a Database name.";
inline constexpr std::string_view kWelcomeStep1More =
    "Then add the swimmers of the database, up to four.";
inline constexpr std::string_view kWelcomeStep2 =
    "2. Click on 'File' then 'Convert KVL Database to New KVL-R format' if you have the "
    "original version of KVL.";

inline constexpr std::string_view kTitleSwimmerPrefix = "KVL-R for ";
inline constexpr std::string_view kAutomaticBackupComplete = "Automatic Backup Complete";
inline constexpr std::string_view kUpdateQuestion = "Do you want to check for new KVL-R Updates.";
inline constexpr std::string_view kUpdateTitle = "Automatic Update Check";

inline constexpr std::string_view kSelectSwimmer = "Please select a swimmer.";
inline constexpr std::string_view kNoSwimmers =
    "There are no swimmers in this database yet. The Add Athlete screen opens next: add up to "
    "four swimmers there, or cancel it to convert a KVL database or open a different database.";

inline constexpr std::string_view kOpenNewTitle = "Open Existing or Create New Database";
inline constexpr std::string_view kOpenNewFilter = "KVL-R Database files (*.mdb)";
inline constexpr std::string_view kNotValidFilename = "Not a valid filename: ";
inline constexpr std::string_view kNotValidValidFilename = "Not a valid validfilename: ";
inline constexpr std::string_view kFileGone = "That file no longer exists.";

inline constexpr std::string_view kRepairWarning =
    "You should do a backup before the optimize/repair operation.";
inline constexpr std::string_view kRepairQuestion = "Do you still want to optimize/repair?";
inline constexpr std::string_view kRepairTitle = "Repair/Optimize Database";

inline constexpr std::string_view kExitQuestion = "Exit Norvan's KVL RENEWED?";
inline constexpr std::string_view kExitChoice = "Exit KVL-R";
inline constexpr std::string_view kSwitchChoice = "Switch User";

inline constexpr std::string_view kMobileMissing =
    "Installation file for KVL-R Mobile was not found.";
inline constexpr std::string_view kContactSupport = "Please contact Norvan support.";
inline constexpr std::string_view kInstallUpdateFirst =
    "You must Exit and Restart KVL-R before Installing the Maintenance Update.";
inline constexpr std::string_view kInstallUpdateQuestion = "Would you like to Exit KVL-R now ?";

// What a command whose screen isn't built yet answers.
inline constexpr std::string_view kNotAvailableYet = " is not available in this version yet.";

}  // namespace kvlr::shell_text
