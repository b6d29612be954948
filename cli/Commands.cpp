#include "Commands.h"

#include <filesystem>
#include <functional>
#include <iostream>

#include <fmt/format.h>

#include "CliArgs.h"
#include "ConsoleUserIo.h"
#include "core/DatabaseName.h"
#include "core/Errors.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "store/Database.h"
#include "store/DbVersion.h"
#include "store/Repair.h"
#include "store/TableBuilder.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

constexpr int kOk = 0;
constexpr int kRefused = 1;
constexpr int kMisuse = 2;

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
void Row(std::ostream& out, const std::vector<std::string>& columns) {
  for (size_t i = 0; i < columns.size(); ++i) out << (i ? "\t" : "") << columns[i];
  out << "\n";
}

std::string OnePath(const Context& c) {
  if (c.args.positional.size() != 1) throw UsageError("expects one database PATH");
  return c.args.positional[0];
}

// The checks of the Open/New dialog on a chosen name.
bool DatabaseFileNameOk(Context& c, const fs::path& file) {
  const std::string name = file.filename().string();
  if (UCase(name.size() >= 3 ? name.substr(name.size() - 3) : name) != "MDB") {
    c.io.Tell("Not a valid filename: " + name);
    return false;
  }
  if (name.find('.') == std::string::npos) {
    c.io.Tell("Not a valid validfilename: " + name);
    return false;
  }
  return DatabaseNameOk(file.stem().string(), kMaxDatabaseName, c.io);
}

// What the first open of a database does: complete, upgrade, read its settings.
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

int NewDb(Context& c) {
  const fs::path file = OnePath(c);
  if (!DatabaseFileNameOk(c, file)) return kRefused;
  if (!CreateNewDatabase(c.state, fs::absolute(file))) return kRefused;
  if (!OpenAsAtStart(c, file)) return kRefused;
  Row(c.env.out, {"Database", "Tables"});
  Row(c.env.out, {c.state.gDatabaseName, std::to_string(TableNames(*c.state.gDb).size())});
  return kOk;
}

int CheckDb(Context& c) {
  if (!OpenAsAtStart(c, OnePath(c))) return kRefused;
  Row(c.env.out, {"Table", "Rows"});
  SQLite::Statement tables(*c.state.gDb,
                           "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT "
                           "LIKE 'sqlite_%' ORDER BY name COLLATE NOCASE");
  while (tables.executeStep()) {
    std::string name = tables.getColumn(0).getString();
    Row(c.env.out, {name, std::to_string(RowCount(*c.state.gDb, name))});
  }
  return kOk;
}

int Repair(Context& c) {
  const fs::path file = OnePath(c);
  if (!OpenAsAtStart(c, file)) return kRefused;
  std::error_code ec;
  const auto before = fs::file_size(file, ec);
  if (!RepairAndCompact(c.state)) return kRefused;
  Row(c.env.out, {"Database", "Bytes before", "Bytes after"});
  Row(c.env.out, {c.state.gDatabaseName, std::to_string(before),
                  std::to_string(fs::file_size(file, ec))});
  return kOk;
}

int Time(Context& c) {
  if (c.args.positional.empty()) throw UsageError("expects at least one TEXT");
  Row(c.env.out, {"Text", "Normalized", "Score", "Formatted", "Padded", "ScoreText"});
  for (const auto& text : c.args.positional) {
    std::string canonical = text;
    const int32_t score = TimeTextToScore(canonical);
    Row(c.env.out, {text, NormalizeTimeText(text), std::to_string(score),
                    FormatTime(score, false), FormatTime(score, true),
                    ScoreText(score, 1, "", 0)});
  }
  return kOk;
}

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands = {
      {"new-db", "kvlr new-db PATH",
       "Make a new database file (*.mdb) with every table, ready to use.", {}, {}, NewDb},
      {"check-db", "kvlr check-db PATH",
       "Open a database, complete missing tables, bring it to this version; list tables and "
       "row counts.",
       {}, {}, CheckDb},
      {"repair", "kvlr repair PATH",
       "Remove orphan rows, check and rebuild the file, compact it in place.", {}, {}, Repair},
      {"time", "kvlr time TEXT...",
       "Show how typed times are read: normalized text, score, printed forms.", {}, {}, Time},
  };
  return commands;
}

void MainHelp(std::ostream& out) {
  out << "kvlr: the KVL-R command-line tool\n\n"
         "Usage: kvlr [--home DIR] [--yes|--no] COMMAND [OPTIONS] [ARGS]\n\n"
         "  --home DIR   program home (default: $KVLR_HOME, else ~/.local/share/kvl-r)\n"
         "  --yes/--no   answer the program's questions\n\n"
         "Commands:\n";
  for (const auto& c : Commands()) out << fmt::format("  {:<10} {}\n", c.name, c.summary);
  out << "\nkvlr COMMAND --help tells more. Output is tab-separated with one header line.\n";
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
