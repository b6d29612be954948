#pragma once
// The main menu as data: every command, where it stands, and when it may be used.

#include <string>
#include <string_view>
#include <vector>

namespace kvlr {

enum class MenuCommand {
  kOpenNew,
  kConvertKvl,
  kInstallMobile,
  kBackup,
  kRestore,
  kUnzip,
  kRepair,
  kImportResults,
  kImportCsOnline,
  kImportMobile,
  kImportEvents,
  kImportWorkouts,
  kExportEntries,
  kExportResults,
  kExportBestTimes,
  kExportMobile,
  kInstallUpdate,
  kCreateUpdate,
  kJournal,
  kLogin,
  kExit,
  kAthletes,
  kTeam,
  kSystemPrefs,
  kReportPrefs,
  kDirectoryPrefs,
  kFavoriteFilters,
  kMeetTypes,
  kCourseConversion,
  kWkStartParameters,
  kWkDescriptions,
  kWkEnergy,
  kWkStroke,
  kWkWorkType,
  kCalendar,
  kResults,
  kMeets,
  kGoalsYards,
  kGoalsShort,
  kGoalsLong,
  kHealth,
  kStandardsEdit,
  kStandardsImport,
  kStandardsExport,
  kWorkouts,
  kReportMeets,
  kReportStandards,
  kReportTopTimes,
  kReportMeetResults,
  kReportMeetEntries,
  kReportGraphs,
  kReportLogBooks,
  kReportWorkoutStats,
  kReportMemorized,
  kReportImportExport,
  kWebBrowser,
  kHelpContents,
  kHelpReleaseNotes,
  kHelpAbout,
  kHelpTechSupport,
};

struct MenuEntry {
  std::string_view top;      // caption of the menu-bar entry
  std::string_view sub;      // caption of the submenu, "" if none
  std::string_view caption;  // caption of the command; "" when the top entry is the command
  MenuCommand command;
  bool separator_before = false;
};

// Every command of the main menu in its order. The five last-file entries follow Exit.
const std::vector<MenuEntry>& MainMenu();

// Whether a command may be used with or without an open database: the menu-bar entries
// other than File and Help need one; in File, the commands that work on a database do.
bool MenuEnabled(const MenuEntry& entry, bool database_open);

// The caption with its '&' marks taken out.
std::string PlainCaption(std::string_view caption);

}  // namespace kvlr
