#include "Commands.h"

#include <charconv>
#include <filesystem>
#include <functional>
#include <iostream>

#include <fmt/format.h>

#include "Command.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "shell/Hooks.h"
#include "store/Database.h"
#include "store/DbVersion.h"
#include "workouts/WorkoutNotes.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace cli {

void Row(std::ostream& out, const std::vector<std::string>& columns) {
  for (size_t i = 0; i < columns.size(); ++i) {
    if (i > 0) out << '\t';
    // A tab or line break inside a name or comment would split the row.
    for (char ch : columns[i]) {
      switch (ch) {
        case '\\':
          out << "\\\\";
          break;
        case '\t':
          out << "\\t";
          break;
        case '\n':
          out << "\\n";
          break;
        case '\r':
          out << "\\r";
          break;
        default:
          out << ch;
      }
    }
  }
  out << "\n";
}

std::string OnePath(const Context& c) {
  if (c.args.positional.size() != 1) throw UsageError("expects one database PATH");
  return c.args.positional[0];
}

std::string Required(const Context& c, const std::string& option) {
  if (!c.args.values.count(option)) throw UsageError(option + " is required");
  return c.args.values.at(option);
}

int16_t StrokeOption(const Context& c, int low, int high) {
  const std::string text = c.args.Value("--stroke");
  if (text.empty()) return 0;
  for (int s = 1; s <= 5; ++s) {
    if (UCase(text) == UCase(StrokeText(s, ""))) return static_cast<int16_t>(s);
  }
  int value = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc() || end != text.data() + text.size() || value < low || value > high) {
    throw UsageError(fmt::format("--stroke expects {} to {} or a stroke name", low, high));
  }
  return static_cast<int16_t>(value);
}

void TakeAnswer(Context& c) {
  if (c.args.Has("--yes") && c.args.Has("--no")) {
    throw UsageError("--yes and --no exclude each other");
  }
  if (c.args.Has("--yes")) c.io.SetPreset(true);
  if (c.args.Has("--no")) c.io.SetPreset(false);
}

bool OpenAsAtStart(Context& c, const fs::path& file) {
  std::error_code ec;
  if (!fs::exists(file, ec)) {
    c.io.Tell("That file no longer exists.");
    return false;
  }
  c.state.gDatabaseName = fs::absolute(file).string();
  if (!OpenLocalDB(c.state)) return false;
  CheckDbVersion(c.state);
  ApplyDatabaseSettings(c.state);
  return true;
}

}  // namespace cli

namespace {

using namespace cli;

// Every command, in the order help lists them.
const std::vector<Command>& Commands() {
  static const std::vector<Command> commands = [] {
    std::vector<Command> all;
    for (auto list : {DatabaseCommands, AthleteCommands, BackupCommands, MeetCommands,
                      ResultCommands, StandardCommands, ConversionCommands, RankCommands,
                      BestCommands, CheckCommands, ImportCommands, EventCommands, DemoCommands,
                      ReportCommands,
                      HandheldCommands,
                      WorkoutCommands,
                      GraphCommands,
                      DailyCommands,
                      ExportCommands}) {
      for (auto& c : list()) all.push_back(std::move(c));
    }
    return all;
  }();
  return commands;
}

void MainHelp(std::ostream& out) {
  out << "kvlr: the KVL-R command-line tool\n\n"
         "Usage: kvlr [--home DIR] [--yes|--no] COMMAND [OPTIONS] [ARGS]\n\n"
         "  --home DIR   program home (default: $KVLR_HOME, else ~/.local/share/kvl-r)\n"
         "  --yes/--no   answer the program's questions\n\n"
         "Commands:\n";
  for (const auto& c : Commands()) {
    // The first sentence; the command's own --help gives the rest.
    std::string first = c.summary;
    for (const char* stop : {". ", "; ", ": ", " ("}) first = first.substr(0, first.find(stop));
    if (!first.empty() && first.back() == '.') first.pop_back();
    out << fmt::format("  {:<12} {}\n", c.name, first);
  }
  out << "\nkvlr COMMAND --help tells more. Output is tab-separated with one header line;\n"
         "within a value a backslash is written \\\\, a tab \\t, a line feed \\n and a carriage\n"
         "return \\r.\n";
}

}  // namespace

int RunCli(const std::vector<std::string>& args, const CliEnvironment& env) {
  // Global options stand before the command word.
  size_t command_at = 0;
  std::vector<std::string> globals;
  while (command_at < args.size() && !args[command_at].empty() && args[command_at][0] == '-') {
    globals.push_back(args[command_at]);
    if ((args[command_at] == "--home") && command_at + 1 < args.size()) {
      globals.push_back(args[++command_at]);
    }
    ++command_at;
  }
  ParsedArgs global;
  try {
    global = ParseArgs(globals, {"--home"}, {"--yes", "--no", "--help"});
  } catch (const UsageError& e) {
    env.err << "kvlr: " << e.what() << "\n";
    return kMisuse;
  }
  if (global.Has("--help") || command_at >= args.size()) {
    MainHelp(global.Has("--help") ? env.out : env.err);
    return global.Has("--help") ? kOk : kMisuse;
  }
  const Command* command = nullptr;
  for (const auto& c : Commands()) {
    if (c.name == args[command_at]) command = &c;
  }
  if (!command) {
    env.err << "kvlr: unknown command " << args[command_at] << "\n";
    return kMisuse;
  }

  std::optional<bool> preset;
  if (global.Has("--yes")) preset = true;
  if (global.Has("--no")) preset = false;
  ConsoleUserIo io(env.err, env.in, env.interactive, preset);
  const std::string home = global.Value("--home", env.home_from_environment);
  AppState state(ProgramHome(home), io, env.clock, env.disk);
  InstallHooks(state);
  InstallWorkoutHooks(state);
  state.locale_date_format = env.locale_date_format;

  try {
    std::set<std::string> flags = command->flag_options;
    flags.insert("--help");
    std::vector<std::string> rest(args.begin() + static_cast<long>(command_at) + 1, args.end());
    Context context{env, state, io, ParseArgs(rest, command->value_options, flags)};
    if (context.args.Has("--help")) {
      env.out << "Usage: " << command->usage << "\n\n" << command->summary << "\n";
      return kOk;
    }
    state.home.Ensure();
    return command->run(context);
  } catch (const UsageError& e) {
    env.err << "kvlr " << command->name << ": " << e.what() << "\nUsage: " << command->usage
            << "\n";
    return kMisuse;
  } catch (const QuestionUnanswered&) {
    return kRefused;
  } catch (const std::exception& e) {
    env.err << e.what() << "\n";
    return kRefused;
  }
}

}  // namespace kvlr
