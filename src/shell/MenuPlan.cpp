#include "shell/MenuPlan.h"

namespace kvlr {

const std::vector<MenuEntry>& MainMenu() {
  using C = MenuCommand;
  static const std::vector<MenuEntry> menu = {
      {"&File", "", "&Open/New", C::kOpenNew},
      {"&File", "", "&Convert KVL Database to New KVL-R format", C::kConvertKvl},
      {"&File", "", "&Install KVL-R Mobile", C::kInstallMobile},
      {"&File", "", "&Backup", C::kBackup, true},
      {"&File", "", "&Restore", C::kRestore},
      {"&File", "", "&Unzip File", C::kUnzip},
      {"&File", "", "Repair/&Compact Database", C::kRepair},
      {"&File", "&Import", "Meet &Results", C::kImportResults, true},
      {"&File", "&Import", "Meet Results from &CS Online", C::kImportCsOnline},
      {"&File", "&Import", "Meet Results from &KVL-R Mobile", C::kImportMobile},
      {"&File", "&Import", "&Meet Events", C::kImportEvents},
      {"&File", "&Import", "&Workouts", C::kImportWorkouts},
      {"&File", "&Export", "Meet &Entries", C::kExportEntries},
      {"&File", "&Export", "&Meet Results", C::kExportResults},
      {"&File", "&Export", "&Best Times", C::kExportBestTimes},
      {"&File", "&Export", "Export / Hot Sync to &KVL-R Mobile", C::kExportMobile},
      {"&File", "", "Install &Update", C::kInstallUpdate, true},
      {"&File", "", "Crea&te Update", C::kCreateUpdate},
      {"&File", "", "&Journal", C::kJournal, true},
      {"&File", "", "&Login", C::kLogin},
      {"&File", "", "E&xit", C::kExit, true},
      {"Set-up", "", "&Athletes ", C::kAthletes},
      {"Set-up", "", "&Team", C::kTeam},
      {"Set-up", "", "&System Preferences", C::kSystemPrefs, true},
      {"Set-up", "", "Report &Preferences", C::kReportPrefs},
      {"Set-up", "", "&Directory Preferences", C::kDirectoryPrefs},
      {"Set-up", "", "&Favorite Filters", C::kFavoriteFilters, true},
      {"Set-up", "", "&Meet Types", C::kMeetTypes},
      {"Set-up", "", "&Course Conversion", C::kCourseConversion},
      {"Set-up", "&Workouts", "&Start Parameters", C::kWkStartParameters, true},
      {"Set-up", "&Workouts", "Set &Descriptions", C::kWkDescriptions},
      {"Set-up", "&Workouts", "&Energy Categories", C::kWkEnergy},
      {"Set-up", "&Workouts", "S&troke Categories", C::kWkStroke},
      {"Set-up", "&Workouts", "&Work Type Categories", C::kWkWorkType},
      {"&Calendar", "", "", C::kCalendar},
      {"&Results", "", "", C::kResults},
      {"&Meets", "", "", C::kMeets},
      {"&Goals", "", "&Yards", C::kGoalsYards},
      {"&Goals", "", "&Short Course Meters", C::kGoalsShort},
      {"&Goals", "", "&Long Course Meters", C::kGoalsLong},
      {"&Health", "", "", C::kHealth},
      {"&Standards", "", "&Add/Edit Standards", C::kStandardsEdit},
      {"&Standards", "", "&Import Standards", C::kStandardsImport},
      {"&Standards", "", "&Export Standards", C::kStandardsExport},
      {"Wor&kouts", "", "", C::kWorkouts},
      {"Rep&orts", "", "&Meets", C::kReportMeets},
      {"Rep&orts", "", "Time &Standards", C::kReportStandards},
      {"Rep&orts", "", "&Top Times", C::kReportTopTimes, true},
      {"Rep&orts", "", "Meet Res&ults", C::kReportMeetResults},
      {"Rep&orts", "", "Meet &Entries", C::kReportMeetEntries},
      {"Rep&orts", "", "&Graphs", C::kReportGraphs},
      {"Rep&orts", "", "&LogBooks", C::kReportLogBooks, true},
      {"Rep&orts", "", "&Workout Statistics", C::kReportWorkoutStats},
      {"Rep&orts", "", "&Memorized Reports", C::kReportMemorized, true},
      {"Rep&orts", "", "&Import/Export Files", C::kReportImportExport},
      {"&Web Browser", "", "", C::kWebBrowser},
      {"&Help", "", "&Contents", C::kHelpContents},
      {"&Help", "", "&Release Notes", C::kHelpReleaseNotes},
      {"&Help", "", "&About", C::kHelpAbout},
      {"&Help", "", "&Tech Support", C::kHelpTechSupport},
  };
  return menu;
}

bool MenuEnabled(const MenuEntry& entry, bool database_open) {
  using C = MenuCommand;
  if (entry.top == "&Help") return true;
  if (entry.top != "&File") return database_open;
  switch (entry.command) {
    case C::kOpenNew:
    case C::kConvertKvl:
    case C::kInstallMobile:
    case C::kInstallUpdate:
    case C::kCreateUpdate:
    case C::kExit:
      return true;
    default:
      return database_open;
  }
}

std::string PlainCaption(std::string_view caption) {
  std::string out;
  for (char c : caption) {
    if (c != '&') out += c;
  }
  while (!out.empty() && out.back() == ' ') out.pop_back();
  return out;
}

}  // namespace kvlr
