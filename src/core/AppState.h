#pragma once
// The process-wide state of a run: the open files, the current swimmer and the values
// read from OPTIONS. One object, handed to whoever needs it; names as the shell knows them.

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/Date.h"
#include "core/Platform.h"
#include "core/ProgramHome.h"
#include "core/UserIo.h"

namespace kvlr {

// The three names a printer is kept by.
struct PrinterNames {
  std::string device;
  std::string driver;
  std::string port;
  bool operator==(const PrinterNames&) const = default;
};

// Main window titles of the shell's states.
inline constexpr std::string_view kTitleNoDatabase = "No Database Open";
inline constexpr std::string_view kTitleInvalidDatabase =
    "Norvan's KVL RENEWED - Database: No Database Open";
inline constexpr std::string_view kTitleDatabasePrefix = "Norvan's KVL RENEWED - Database:";

struct AppState;

// Steps other subsystems add to shared flows; an empty hook is skipped.
struct StateHooks {
  std::function<void(AppState&)> load_standard;          // after OPTIONS is read
  std::function<void(AppState&)> get_favorites;          // loads, or clears when none is set
  std::function<void(AppState&)> compact_workout_notes;  // database maintenance
  std::function<void(AppState&)> rerank_all;             // every rank rebuilt
};

struct AppState {
  AppState(ProgramHome home, UserIo& io, const Clock& clock, const DiskInfo& disk)
      : home(std::move(home)), io(&io), clock(&clock), disk(&disk) {}

  ProgramHome home;
  UserIo* io;
  const Clock* clock;
  const DiskInfo* disk;
  // The machine's date pattern (nl_langinfo(D_FMT)); read by the app, never by core routines.
  std::string locale_date_format = "%m/%d/%y";
  // Where user data go by default; a missing folder marks a first run.
  std::filesystem::path data_root = ProgramHome::DefaultDataDir();

  std::unique_ptr<SQLite::Database> gDb;
  std::unique_ptr<SQLite::Database> gReportDb;
  std::string gDatabaseName;
  std::string gShortDbName;
  std::filesystem::path gDataDir;
  bool gDbOpen = false;
  std::string gTitle = std::string(kProgramTitle);

  int gDateOrder = 0;
  Date gNullDate = kNullDate;
  bool g12Hour = false;
  std::vector<std::string> gStroke;
  std::vector<std::string> gDistance;
  std::vector<std::string> gCourse;

  int16_t gAthleteCount = 0;
  int32_t gAthlete = 0;
  std::string gAthleteName;
  std::string gAthleteFirst;
  std::string gAthleteLast;
  std::string gAthletePref;
  Date gAthleteBirth = kNullDate;
  std::string gAthleteSex;
  int16_t gAthleteAge = 0;
  Date gMeetBandStart = kNullDate;
  Date gMeetBandEnd = kNullDate;
  int32_t gCurrentMeet = 0;

  std::string gStandardFile;
  std::string gFavorite;
  // Values of the default favourite filter; empty means no filter.
  std::string gFavoriteMeetType;
  std::string gFavoriteCourse;
  // The current standard: designators (row 0 short names D1..D12, row 1 long names), name,
  // year and description.
  std::array<std::array<std::string, 13>, 3> gDesignators{};
  std::string gStandardName;
  std::string gStandardYear;
  std::string gStandardDescript;
  uint8_t gBackupDays = 7;
  uint8_t gUpdateDays = 7;
  bool gUseLeadOff = false;
  bool gRptUCase = false;
  bool gY2L = true;
  int gFavSex = 0;
  int gNoAge = 1;
  // Course conversion factors: OPTIONS fields in slots 0 to 8, 2.0 in slot 9, 0 in slot 10.
  std::array<double, 11> gCvtFactors{};

  std::string gDefaultPrinter;
  PrinterNames gPrinter;

  StateHooks hooks;

  std::string gErrorSource;
  int gErrorAction = 0;

  // Closes the user database and resets what belongs to it; nothing happens with none open.
  void CloseCurrentDB();
  // Clears the current swimmer.
  void ClearAthlete();
};

}  // namespace kvlr
