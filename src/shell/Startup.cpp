#include "shell/Startup.h"

#include <SQLiteCpp/Statement.h>

#include "core/ErrorHandler.h"
#include "core/FileOps.h"
#include "core/VbRules.h"
#include "shell/OpenDatabase.h"
#include "shell/ShellTexts.h"
#include "store/Backup.h"
#include "store/Database.h"
#include "store/DbVersion.h"
#include "store/LastDatabase.h"
#include "store/ReportDatabase.h"
#include "store/SystemFile.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

// A file named at start is opened as File, Open/New opens an existing file: the same checks
// and the same words when it is refused, but nothing is made.
void OpenStartFile(AppState& state, const fs::path& start_file, SetupOutcome& outcome) {
  std::error_code ec;
  fs::path file = fs::absolute(WithDatabaseExtension(start_file), ec);
  if (ec) file = WithDatabaseExtension(start_file);
  state.io->Progress(shell_text::kOpeningDatabase);
  state.gDatabaseName.clear();
  if (!ChosenDatabaseNameOk(state, file)) return;
  std::vector<std::string> files;
  if (OpenLastFile(state, file, &files)) {
    outcome.last_files = std::move(files);
  } else {
    state.gDatabaseName.clear();
  }
}

SetupOutcome SetupSteps(AppState& state, const fs::path& start_file) {
  SetupOutcome outcome;
  CheckSystemTables(state);
  try {
    outcome.last_files = GetLastDatabase(state);
  } catch (const std::exception& e) {
    ReportError(state, "frmSetup.GetLastDatabase", e);
  }
  std::error_code ec;
  if (!fs::is_directory(state.data_root, ec)) {
    outcome.first_run = true;
    try {
      MakeFolder(state.data_root);
    } catch (const std::exception& e) {
      ReportError(state, "frmSetup.Form_Load", e);
    }
    state.gDataDir = state.data_root;
    CheckSystemTables(state);
    if (!start_file.empty()) OpenStartFile(state, start_file, outcome);
    return outcome;
  }
  if (!start_file.empty()) {
    OpenStartFile(state, start_file, outcome);
  } else if (!state.gDatabaseName.empty()) {
    state.io->Progress(shell_text::kOpeningDatabase);
    if (OpenLocalDB(state)) {
      CheckDbVersion(state);
      state.io->Progress(shell_text::kApplyingFavorites);
      ApplyDatabaseSettings(state);
    } else {
      state.gDatabaseName.clear();
    }
  }
  return outcome;
}

}  // namespace

StartArguments ParseStartArguments(const std::vector<std::string>& args) {
  StartArguments out;
  auto refuse = [](std::string why) {
    StartArguments refused;
    refused.error = std::move(why);
    return refused;
  };
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (arg == "--home" || arg.starts_with("--home=")) {
      std::string value;
      if (arg == "--home") {
        if (i + 1 >= args.size()) return refuse("--home expects a folder");
        value = args[++i];
      } else {
        value = arg.substr(7);
      }
      if (value.empty()) return refuse("--home expects a folder");
      out.home = value;
    } else if (arg.starts_with("--") && arg.size() > 2) {
      return refuse("unknown option " + arg);
    } else if (!out.file.empty()) {
      return refuse("one database file at a time");
    } else {
      out.file = arg;
    }
  }
  return out;
}

SetupOutcome RunSetup(AppState& state, const fs::path& start_file) {
  SetupOutcome outcome = SetupSteps(state, start_file);
  if (!state.gDbOpen) state.gTitle = std::string(kTitleNoDatabase);
  return outcome;
}

bool BackupReminder(AppState& state) {
  const DateTime now = state.clock->Now();
  std::optional<Date> last;
  {
    SQLite::Statement read(*state.gDb, "SELECT LastBackup FROM OPTIONS LIMIT 1");
    if (read.executeStep() && !read.getColumn(0).isNull()) {
      last = Date::FromIso(read.getColumn(0).getString());
    }
  }
  auto set_last_backup = [&] {
    SQLite::Statement update(*state.gDb, "UPDATE OPTIONS SET LastBackup = ?");
    update.bind(1, now.date.Iso());
    update.exec();
  };
  if (!last) {
    set_last_backup();
    return false;
  }
  // 0 days backs up at every start.
  if (state.gBackupDays > 0 && DaysBetween(*last, now.date) <= state.gBackupDays) return false;

  set_last_backup();
  const std::string database = state.gDatabaseName;
  state.CloseCurrentDB();
  const bool done = SilentBackup(state, database);
  if (done) state.io->Tell(shell_text::kAutomaticBackupComplete);
  state.gDatabaseName = database;
  if (OpenLocalDB(state)) ApplyDatabaseSettings(state);
  return done;
}

bool UpdateReminderDue(AppState& state) {
  try {
    auto db = OpenSystemFile(state.home);
    const std::string now = state.clock->Now().Iso();
    SQLite::Statement read(*db, "SELECT LastUpdate FROM Reminders LIMIT 1");
    if (!read.executeStep()) {
      SQLite::Statement add(*db, "INSERT INTO Reminders (LastUpdate) VALUES (?)");
      add.bind(1, now);
      add.exec();
      return false;
    }
    auto last = DateTime::FromIso(read.getColumn(0).isNull() ? "" : read.getColumn(0).getString());
    read.reset();
    if (state.gUpdateDays == 0 || !last) return false;
    if (DaysBetween(last->date, state.clock->Today()) <= state.gUpdateDays) return false;
    SQLite::Statement update(*db, "UPDATE Reminders SET LastUpdate = ?");
    update.bind(1, now);
    update.exec();
    return true;
  } catch (const std::exception& e) {
    ReportError(state, "frmMain.UpdateReminder", e);
    return false;
  }
}

std::string MainTitle(const AppState& state) {
  // Without a database the last open, refusal or close has said what to show.
  if (!state.gDbOpen) return state.gTitle;
  if (state.gAthlete > 0) return std::string(shell_text::kTitleSwimmerPrefix) + state.gAthleteName;
  return "";  // login pending
}

std::optional<fs::path> BackgroundPicture(const AppState& state) {
  std::error_code ec;
  if (!state.gAthleteFirst.empty()) {
    fs::path own = state.home.Root() / (state.gAthleteFirst + ".bmp");
    if (fs::exists(own, ec)) return own;
    // Pictures saved from the card keep the name as typed; the state holds it upper-cased.
    for (const auto& entry : fs::directory_iterator(state.home.Root(), ec)) {
      const auto name = entry.path().filename().string();
      if (UCase(name) == UCase(state.gAthleteFirst + ".bmp")) return entry.path();
    }
  }
  fs::path fallback = state.home.Root() / "KVL-R.BMP";
  if (fs::exists(fallback, ec)) return fallback;
  return std::nullopt;
}

}  // namespace kvlr
