#pragma once
// Program start: the start-up panel's steps, the reminders, title and background.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/AppState.h"

namespace kvlr {

struct SetupOutcome {
  bool first_run = false;               // the data folder was missing and has been made
  std::vector<std::string> last_files;  // newest first, for the File menu
};

// The desktop program's command line: `kvl-r [--home DIR] [FILE]`, FILE as a file manager
// passes it. `error` is set (and the rest unset) for anything else.
struct StartArguments {
  std::string home;  // empty: the program home of the environment
  std::filesystem::path file;
  std::string error;
};
StartArguments ParseStartArguments(const std::vector<std::string>& args);

// The start-up panel: system tables, the last database, first run, open, version, settings.
// Progress lines go to state.io. A `start_file` is opened instead of the last database,
// checked and refused with the words of File, Open/New. A database that fails to open
// leaves gDatabaseName empty; with none open the title is "No Database Open".
SetupOutcome RunSetup(AppState& state, const std::filesystem::path& start_file = {});

// Backs the database up silently when strictly more days than gBackupDays have passed since
// OPTIONS.LastBackup (at every call with gBackupDays 0), then opens it again. True when a
// backup ran.
bool BackupReminder(AppState& state);

// True when the user should be asked about updates now (strictly more days than
// gUpdateDays since the last reminder; never with gUpdateDays 0). Records the reminder.
bool UpdateReminderDue(AppState& state);

// The main window's title: "KVL-R for " + the swimmer, empty while the login is pending,
// and with no database the title its refusal or close left in gTitle.
std::string MainTitle(const AppState& state);

// The background of the current swimmer: <home>/<first>.bmp, else <home>/KVL-R.BMP, else none.
std::optional<std::filesystem::path> BackgroundPicture(const AppState& state);

}  // namespace kvlr
