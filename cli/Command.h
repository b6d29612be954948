#pragma once
// What every kvlr command is given and the small helpers they share.

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

#include "CliArgs.h"
#include "Commands.h"
#include "ConsoleUserIo.h"
#include "core/AppState.h"

namespace kvlr::cli {

inline constexpr int kOk = 0;
inline constexpr int kRefused = 1;
inline constexpr int kMisuse = 2;

struct Context {
  const CliEnvironment& env;
  AppState& state;
  ConsoleUserIo& io;
  ParsedArgs args;
};

struct Command {
  std::string name;
  std::string usage;
  std::string summary;
  std::set<std::string> value_options;
  std::set<std::string> flag_options;
  std::function<int(Context&)> run;
};

// A line of tab-separated columns.
void Row(std::ostream& out, const std::vector<std::string>& columns);

// The one positional PATH of a command; UsageError otherwise.
std::string OnePath(const Context& c);

// The value of a required option; UsageError when absent.
std::string Required(const Context& c, const std::string& option);

// The --stroke option: a stroke's word ("Free", "Back", "Breast", "Fly", "IM", any case)
// or a code from `low` to `high`; 0 when absent. UsageError otherwise.
int16_t StrokeOption(const Context& c, int low, int high);

// --yes / --no given behind the command word answer its questions.
void TakeAnswer(Context& c);

// What the first open of a database does at start: open, complete, upgrade, read settings.
// False (the user told) when the file is missing or refused.
bool OpenAsAtStart(Context& c, const std::filesystem::path& file);

// The commands of each subsystem.
std::vector<Command> DatabaseCommands();
std::vector<Command> ConversionCommands();
std::vector<Command> RankCommands();
std::vector<Command> BestCommands();
std::vector<Command> BackupCommands();
std::vector<Command> AthleteCommands();
std::vector<Command> MeetCommands();
std::vector<Command> ResultCommands();
std::vector<Command> StandardCommands();
std::vector<Command> CheckCommands();
std::vector<Command> ImportCommands();
std::vector<Command> EventCommands();
std::vector<Command> DemoCommands();
std::vector<Command> ReportCommands();
std::vector<Command> GraphCommands();
std::vector<Command> WorkoutCommands();
std::vector<Command> HandheldCommands();
std::vector<Command> ExportCommands();
std::vector<Command> DailyCommands();

}  // namespace kvlr::cli
