#include <filesystem>
#include <iostream>

#include "Command.h"
#include "core/Options.h"
#include "store/Backup.h"

namespace kvlr::cli {
namespace fs = std::filesystem;

namespace {

int Backup(Context& c) {
  if (!c.args.positional.empty()) throw UsageError("takes no positional words");
  const fs::path database = Required(c, "--db");
  TakeAnswer(c);
  if (c.args.Has("--silent")) {
    if (c.args.values.count("--to") || c.args.values.count("--comment")) {
      throw UsageError("--silent archives beside the database, with its own comment");
    }
    std::error_code ec;
    if (!fs::exists(database, ec)) {
      c.io.Tell("That file no longer exists.");
      return kRefused;
    }
    const fs::path file = fs::absolute(database);
    const fs::path archive = SilentArchiveName(file);
    if (!SilentBackup(c.state, file)) return kRefused;
    Row(c.env.out, {"Database", "Archive"});
    Row(c.env.out, {file.string(), archive.string()});
    return kOk;
  }
  if (!OpenAsAtStart(c, database)) return kRefused;
  fs::path folder = c.args.Value("--to");
  folder = folder.empty() ? GetDirectories(c.state, DirectoryKind::kBackup) : fs::absolute(folder);
  const auto made = BackupDatabase(c.state, folder, c.args.Value("--comment"));
  if (!made) return kRefused;
  Row(c.env.out, {"Database", "Backup"});
  Row(c.env.out, {c.state.gDatabaseName, made->string()});
  return kOk;
}

int Restore(Context& c) {
  if (c.args.positional.size() != 1) throw UsageError("expects one backup ZIP");
  const fs::path zip = fs::absolute(c.args.positional[0]);
  const fs::path folder = fs::absolute(Required(c, "--to"));
  TakeAnswer(c);
  const auto info = LoadBackupInfo(c.state, zip);
  if (!info) return kRefused;
  const auto restored = RestoreDatabase(c.state, zip, *info, RestoreOption::kSelectedFolder, folder,
                                        c.args.Value("--name"), false);
  if (!restored) return kRefused;
  Row(c.env.out, {"Database", "Backed up Database Name", "Backup was Created", "Backup Comments"});
  Row(c.env.out, {restored->string(), info->database_member, info->created.Iso(), info->comments});
  return kOk;
}

}  // namespace

std::vector<Command> BackupCommands() {
  return {
      {"backup",
       "kvlr backup --db PATH [--to DIR] [--comment TEXT] [--silent] [--yes|--no]",
       "Zip a database and its workout notes into DIR as KVL-RBkup<name>-NN.zip (default: the "
       "favourite backup folder); --silent writes the next of five KVL-RArchive slots beside it.",
       {"--db", "--to", "--comment"},
       {"--silent", "--yes", "--no"},
       Backup},
      {"restore",
       "kvlr restore ZIP --to DIR [--name NAME] [--yes|--no]",
       "Restore the database of a backup into DIR, renamed to NAME if given; an existing file "
       "is archived first.",
       {"--to", "--name"},
       {"--yes", "--no"},
       Restore},
  };
}

}  // namespace kvlr::cli
