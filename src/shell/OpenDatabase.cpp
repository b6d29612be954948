#include "shell/OpenDatabase.h"

#include "core/DatabaseName.h"
#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "shell/ShellTexts.h"
#include "store/Database.h"
#include "store/DbVersion.h"
#include "store/LastDatabase.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

bool OpenChosen(AppState& state, const fs::path& file, std::vector<std::string>* last_files) {
  // A change of database goes through "no database".
  if (state.gDbOpen) {
    try {
      SaveLastDatabase(state);
    } catch (const std::exception& e) {
      ReportError(state, "frmMain.SaveLastDatabase", e, false);
    }
  }
  const std::string before = state.gDatabaseName;
  state.gDatabaseName = file.string();
  if (!OpenLocalDB(state)) {
    // A file in use elsewhere leaves the database that was open in use.
    if (state.gDbOpen) {
      state.gDatabaseName = before;
    } else {
      state.ClearAthlete();
      state.gTitle = std::string(kTitleNoDatabase);
    }
    return false;
  }
  state.ClearAthlete();
  CheckDbVersion(state);
  ApplyDatabaseSettings(state);
  try {
    SaveLastDatabase(state);
    std::vector<std::string> names = GetLastDatabase(state);
    state.gDatabaseName = file.string();
    if (last_files) *last_files = std::move(names);
  } catch (const std::exception& e) {
    ReportError(state, "frmMain.SaveLastDatabase", e);
  }
  return true;
}

}  // namespace

bool ChosenDatabaseNameOk(AppState& state, const fs::path& file) {
  const std::string name = file.filename().string();
  if (UCase(name.size() >= 3 ? name.substr(name.size() - 3) : name) != "MDB") {
    state.io->Tell(std::string(shell_text::kNotValidFilename) + name);
    return false;
  }
  if (name.find('.') == std::string::npos) {
    state.io->Tell(std::string(shell_text::kNotValidValidFilename) + name);
    return false;
  }
  return DatabaseNameOk(file.stem().string(), kMaxDatabaseName, *state.io);
}

fs::path WithDatabaseExtension(const fs::path& file) {
  if (file.filename().empty() || file.has_extension()) return file;
  fs::path named = file;
  named += ".mdb";
  return named;
}

bool OpenOrCreateDatabase(AppState& state, const fs::path& chosen,
                          std::vector<std::string>* last_files) {
  const fs::path file = WithDatabaseExtension(chosen);
  if (!ChosenDatabaseNameOk(state, file)) return false;
  std::error_code ec;
  if (!fs::exists(file, ec)) {
    if (!CreateNewDatabase(state, file)) {
      state.gTitle = std::string(kTitleNoDatabase);
      return false;
    }
  }
  return OpenChosen(state, file, last_files);
}

bool OpenLastFile(AppState& state, const fs::path& file, std::vector<std::string>* last_files) {
  std::error_code ec;
  if (!fs::exists(file, ec)) {
    state.io->Tell(shell_text::kFileGone);
    state.gDatabaseName.clear();
    state.gTitle = std::string(kTitleNoDatabase);
    return false;
  }
  return OpenChosen(state, file, last_files);
}

}  // namespace kvlr
