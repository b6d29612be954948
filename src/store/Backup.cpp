#include "store/Backup.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <tuple>
#include <vector>

#include <SQLiteCpp/Database.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include "core/DatabaseName.h"
#include "core/ErrorHandler.h"
#include "core/ErrorLog.h"
#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/RunFolder.h"
#include "core/VbRules.h"
#include "store/BackupTexts.h"
#include "store/Database.h"
#include "store/LastDatabase.h"
#include "store/Snapshot.h"
#include "store/StoreTexts.h"
#include "store/TableBuilder.h"
#include "store/ZipArchive.h"

namespace kvlr {
namespace fs = std::filesystem;
namespace text = backup_text;

namespace {

constexpr std::string_view kBackupSource = "frmBackup.BackupDatabase";
constexpr std::string_view kSilentSource = "frmRestore.SilentBackup";
constexpr std::string_view kInfoSource = "frmRestore.LoadBackupInfo";
constexpr std::string_view kRestoreSource = "frmRestore.RestoreCSDatabase";

// Deflate's higher levels make a database archive only a few percent smaller at about three
// times the time; the fast end keeps the backup of a large file short.
constexpr int kCompressionLevel = 1;
constexpr long long kRoomKb = 1000;
constexpr std::string_view kNotesSuffix = "-WKNotes.txt";
constexpr std::string_view kModelNotesSuffix = "-WKmodelNotes.txt";

bool EqualNoCase(std::string_view a, std::string_view b) {
  return UCase(a) == UCase(b);
}

DateTime LocalDateTime(std::time_t t) {
  std::tm local{};
  localtime_r(&t, &local);
  return DateTime{Date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}, local.tm_hour,
                  local.tm_min, local.tm_sec};
}

// The file's time; the epoch when it can't be read.
std::time_t FileTime(const fs::path& file) {
  std::error_code ec;
  const auto written = fs::last_write_time(file, ec);
  if (ec) return 0;
  const auto sys = std::chrono::file_clock::to_sys(written);
  return std::chrono::system_clock::to_time_t(
      std::chrono::time_point_cast<std::chrono::system_clock::duration>(sys));
}

std::string LongDateTimeText(const DateTime& when) {
  return LongDateText(when.date) + " at " + LongTimeText(when);
}

// "Error: " is followed by the number of the table and what went wrong.
std::string ErrorCode(const KvlError& e) {
  return fmt::format("{} - {}", e.Number(), e.what());
}

// True when both names lead to one file.
bool SameFile(const fs::path& a, const fs::path& b) {
  std::error_code ec;
  return fs::equivalent(a, b, ec);
}

// The notes files that exist beside a database, stored without folders.
void AddNotes(std::vector<ZipSource>& members, const fs::path& database) {
  for (const fs::path& notes : {WorkoutNotesFile(database), WorkoutModelNotesFile(database)}) {
    std::error_code ec;
    if (fs::is_regular_file(notes, ec)) members.push_back({notes.filename().string(), notes});
  }
}

// The members of an archive of `database`: a consistent copy of it made in `work`, stored
// under the database's name, and its notes. The copy is read through `source`, else through
// this run's open database when that is the file (a second connection would wait on our own
// lock), else through a connection that waits for other processes. Throws KvlError.
std::vector<ZipSource> BackupMembers(AppState& state, const fs::path& database,
                                     SQLite::Database* source, const fs::path& work) {
  std::unique_ptr<SQLite::Database> own;
  if (!source && state.gDb && SameFile(state.gDatabaseName, database)) source = state.gDb.get();
  if (!source) {
    own = OpenLocked(database, false);
    source = own.get();
  }
  const fs::path copy = work / database.filename();
  SnapshotDatabase(*source, copy);
  std::vector<ZipSource> members{{database.filename().string(), copy}};
  AddNotes(members, database);
  return members;
}

// The silent archive of `database`, its copy read through `source` when given.
bool ArchiveSilently(AppState& state, const fs::path& database, SQLite::Database* source) {
  try {
    const fs::path archive = SilentArchiveName(database);
    try {
      RunFolder work(state.home);
      ZipArchive::Create(archive, BackupMembers(state, database, source, work.Path()),
                         BackupComment(text::kSilentComment), kCompressionLevel);
    } catch (const KvlError& e) {
      ReportError(state, kSilentSource, e, false);
      state.io->Tell(std::string(text::kErrorCreatingSilent) + ErrorCode(e));
      return false;
    }
    return true;
  } catch (const std::exception& e) {
    ReportError(state, kSilentSource, e);
    return false;
  }
}

enum class BackupCheck { kGood, kNotOurs, kDamaged };

// A file of this system has a table ATHLETE with the field KVL2000, and its pages must read
// well; read only, nothing written.
BackupCheck CheckBackupDatabase(const fs::path& file) {
  try {
    SQLite::Database db(file.string(), SQLite::OPEN_READONLY);
    if (FieldNames(db, "ATHLETE").count("KVL2000") == 0) return BackupCheck::kNotOurs;
    return PagesOk(db) ? BackupCheck::kGood : BackupCheck::kDamaged;
  } catch (const SQLite::Exception& e) {
    return (e.getErrorCode() & 0xff) == SQLITE_CORRUPT ? BackupCheck::kDamaged
                                                       : BackupCheck::kNotOurs;
  }
}

// Puts a restored database where no database is yet. Companions left there by a database
// of that name that is gone would be read as this file's journal, so they go first.
void PlaceNewDatabase(const fs::path& restored, const fs::path& target) {
  for (const auto& companion : CompanionFiles(target)) RemoveIfExists(companion);
  ReplaceFile(restored, target);
}

// The name without its last four characters (".mdb"), as the archive names take it.
std::string NameWithoutExtension(const fs::path& file) {
  std::string name = file.filename().string();
  return name.size() > 4 ? name.substr(0, name.size() - 4) : std::string();
}

// Opens `file` as the current database again, with its settings; false (told) if refused.
bool OpenAgain(AppState& state, const std::string& file, bool remember) {
  if (file.empty()) return false;
  state.gDatabaseName = file;
  try {
    if (!OpenLocalDB(state)) return false;
    ApplyDatabaseSettings(state);
    if (remember) SaveLastDatabase(state);
    return true;
  } catch (const std::exception& e) {
    ReportError(state, kRestoreSource, e);
    return false;
  }
}

// The folder of the open database, else the data folder.
fs::path CurrentFolder(const AppState& state) {
  if (!state.gDatabaseName.empty()) return fs::path(state.gDatabaseName).parent_path();
  if (!state.gDataDir.empty()) return state.gDataDir;
  return ProgramHome::DefaultDataDir();
}

std::string MemberShortName(std::string_view member) {
  const auto base = SafeMemberBaseName(member);
  return fs::path(base ? *base : std::string(member)).stem().string();
}

struct PlacedFile {
  fs::path extracted;    // in the temporary folder
  fs::path destination;  // where the restore puts it
};

// Extracts the database member and its notes into `temp`, the database first in the list.
// nullopt (told) when a member's name or kind could put a file outside `temp`, or the
// database is missing. Engine failures throw.
std::optional<std::vector<PlacedFile>> ExtractBackup(UserIo& io, const fs::path& zip,
                                                     const BackupInfo& info, const fs::path& temp,
                                                     const fs::path& target) {
  ZipArchive archive(zip);
  const auto& members = archive.Members();
  std::vector<std::string> bases;
  for (const auto& m : members) {
    auto base = SafeMemberBaseName(m.name);
    if (!m.regular_file || !base) {
      io.Tell(fmt::format("{}\r\n{}{}", text::kNotValidBackup, text::kMemberLeavesFolder, m.name));
      return std::nullopt;
    }
    bases.push_back(std::move(*base));
  }
  auto index_of = [&](auto matches) -> std::optional<size_t> {
    for (size_t i = 0; i < bases.size(); ++i) {
      if (matches(bases[i])) return i;
    }
    return std::nullopt;
  };
  const auto wanted = SafeMemberBaseName(info.database_member);
  const auto database =
      wanted ? index_of([&](const std::string& base) { return base == *wanted; }) : std::nullopt;
  if (!database) {
    io.Tell(text::kNotValidBackup);
    return std::nullopt;
  }
  std::vector<PlacedFile> files{{temp / bases[*database], target}};
  archive.Extract(*database, files.front().extracted);

  const std::string archived_name = fs::path(bases[*database]).stem().string();
  const std::string target_name = target.stem().string();
  for (std::string_view suffix : {kNotesSuffix, kModelNotesSuffix}) {
    const std::string notes_name = archived_name + std::string(suffix);
    const auto notes =
        index_of([&](const std::string& base) { return EqualNoCase(base, notes_name); });
    if (!notes) continue;
    files.push_back(
        {temp / bases[*notes], target.parent_path() / (target_name + std::string(suffix))});
    archive.Extract(*notes, files.back().extracted);
  }
  return files;
}

}  // namespace

BackupTarget BackupName(const fs::path& folder, std::string_view short_name) {
  auto name = [&](int n) { return folder / fmt::format("KVL-RBkup{}-{:02}.zip", short_name, n); };
  std::error_code ec;
  for (int n = 1; n <= 99; ++n) {
    fs::path candidate = name(n);
    if (!fs::exists(candidate, ec)) return {candidate, false};
  }
  return {name(1), true};
}

std::string BackupComment(std::string_view text) {
  std::string comment(text::kCommentMarker);
  int characters = 0;
  size_t end = 0;
  // Counted in characters, so a cut never splits a UTF-8 sequence.
  for (; end < text.size(); ++end) {
    const bool starts_character = (static_cast<unsigned char>(text[end]) & 0xC0) != 0x80;
    if (starts_character && characters++ == kBackupCommentText) break;
  }
  if (characters > kBackupCommentText) characters = kBackupCommentText;
  comment.append(text.substr(0, end));
  comment.append(static_cast<size_t>(kBackupCommentLength - 4 - characters), ' ');
  return comment;
}

fs::path WorkoutNotesFile(const fs::path& database) {
  return database.parent_path() / (NameWithoutExtension(database) + std::string(kNotesSuffix));
}

fs::path WorkoutModelNotesFile(const fs::path& database) {
  return database.parent_path() / (NameWithoutExtension(database) + std::string(kModelNotesSuffix));
}

std::optional<fs::path> BackupDatabase(AppState& state, const fs::path& folder,
                                       std::string_view comment) {
  UserIo& io = *state.io;
  if (state.gDatabaseName.empty()) {
    io.Tell(kTitleNoDatabase);
    return std::nullopt;
  }
  const fs::path database = state.gDatabaseName;
  auto cancelled = [&] {
    io.Tell(text::kBackupCancelled);
    return std::nullopt;
  };
  // Drives A: and B: (the disk-in-drive check, spanning disks, clearing them) have no
  // counterpart on this platform; those steps are left out.
  const BackupTarget target = BackupName(folder, state.gShortDbName);
  const std::string name = target.path.filename().string();
  // The questions stand outside the traps: what a user interface throws passes through.
  if (target.exists) {
    const std::string question = fmt::format(
        "There is already a backup file named: {}\r\nin {}\r\nIt was created: {}\r\n"
        "This operation will delete that file.\r\nDo you want to continue and overwrite it?",
        name, folder.string(), LongDateTimeText(LocalDateTime(FileTime(target.path))));
    if (!io.AskYesNo(question, text::kOverwriteTitle)) return cancelled();
  }
  if (!io.AskYesNo(fmt::format("Backup {} to:\r\n{}", state.gShortDbName, target.path.string()))) {
    return cancelled();
  }
  const std::string marked = BackupComment(comment);

  try {
    const auto free_kb = static_cast<long long>(state.disk->FreeBytes(folder) / 1024);
    const auto size_kb = static_cast<long long>(fs::file_size(database) / 1024);
    if (free_kb - size_kb <= kRoomKb) {
      io.Tell(std::string(text::kNotEnoughSpace) + folder.string());
      return cancelled();
    }
    MakeFolder(folder);
    RemoveLeftovers(state.home, {folder});
    RunFolder work(state.home);
    ZipArchive::Create(target.path, BackupMembers(state, database, nullptr, work.Path()), marked,
                       kCompressionLevel);
  } catch (const KvlError& e) {
    ReportError(state, kBackupSource, e, false);
    io.Tell(std::string(text::kErrorCreatingBackup) + ErrorCode(e));
    return std::nullopt;
  } catch (const std::exception& e) {
    ReportError(state, kBackupSource, e);
    return std::nullopt;
  }
  io.Message(fmt::format("{}\r\nBackup file: {}\r\nLocation: {}", text::kBackupCompleted, name,
                         folder.string()),
             box::kInformation, {});
  return target.path;
}

fs::path SilentArchiveName(const fs::path& database) {
  const fs::path folder = database.parent_path();
  const std::string prefix = "KVL-RArchive-" + NameWithoutExtension(database) + "-0";
  auto slot = [&](int digit) { return folder / fmt::format("{}{}.zip", prefix, digit); };

  struct Found {
    fs::file_time_type time;
    std::string name;
  };
  std::vector<Found> found;
  std::error_code ec;
  const fs::path listed = folder.empty() ? fs::path(".") : folder;
  for (auto it = fs::directory_iterator(listed, ec); !ec && it != fs::directory_iterator();
       it.increment(ec)) {
    const std::string name = it->path().filename().string();
    if (name.size() < prefix.size() + 4 || !EqualNoCase(name.substr(0, prefix.size()), prefix) ||
        !EqualNoCase(name.substr(name.size() - 4), ".zip")) {
      continue;
    }
    std::error_code time_ec;
    found.push_back({fs::last_write_time(it->path(), time_ec), name});
  }
  if (found.empty()) return slot(1);
  if (found.size() < static_cast<size_t>(kSilentSlots)) {
    for (int digit = 1; digit <= 9; ++digit) {
      const std::string candidate = fmt::format("{}{}.zip", prefix, digit);
      const bool taken = std::any_of(found.begin(), found.end(), [&](const Found& f) {
        return EqualNoCase(f.name, candidate);
      });
      if (!taken) return slot(digit);
    }
  }
  // The sort key is to the second, as file dates are shown.
  auto key = [](const Found& f) {
    return std::make_tuple(std::chrono::floor<std::chrono::seconds>(f.time), f.name);
  };
  const auto oldest = std::min_element(
      found.begin(), found.end(), [&](const Found& a, const Found& b) { return key(a) < key(b); });
  return folder / oldest->name;
}

bool SilentBackup(AppState& state, const fs::path& database) {
  return ArchiveSilently(state, database, nullptr);
}

std::string ShortPathText(std::string_view path) {
  if (path.size() <= 60) return std::string(path);
  return fmt::format("{}...{}", path.substr(0, 3), path.substr(path.size() - 60));
}

std::string MegabytesText(std::uint64_t bytes) {
  constexpr std::uint64_t kMegabyte = 1 << 20;
  // Hundredths, halves up (the value is never negative).
  const std::uint64_t hundredths = (bytes * 100 + kMegabyte / 2) / kMegabyte;
  const std::uint64_t whole = hundredths / 100;
  const std::uint64_t decimals = hundredths % 100;
  std::string out = whole ? std::to_string(whole) : std::string();
  out += '.';
  if (decimals % 10 != 0) {
    out += fmt::format("{:02}", decimals);
  } else if (decimals != 0) {
    out += std::to_string(decimals / 10);
  }
  return out;
}

std::optional<BackupInfo> LoadBackupInfo(AppState& state, const fs::path& zip) {
  UserIo& io = *state.io;
  const std::string name = zip.filename().string();
  if (name.size() < 3 || UCase(name.substr(name.size() - 3)) != "ZIP") {
    io.Tell(std::string(text::kNotValidFilename) + name);
    return std::nullopt;
  }
  try {
    ZipArchive archive(zip);
    const std::string comment = archive.Comment();
    if (comment.compare(0, 3, "KVL") != 0) {
      io.Tell(text::kNotOurBackup);
      return std::nullopt;
    }
    const auto& members = archive.Members();
    const auto database = std::find_if(members.begin(), members.end(), [](const ZipMember& m) {
      return m.name.size() >= 3 && UCase(m.name.substr(m.name.size() - 3)) == "MDB";
    });
    if (database == members.end()) {
      io.Tell(text::kNotValidBackup);
      return std::nullopt;
    }
    BackupInfo info;
    info.zip = zip;
    info.database_member = database->name;
    info.created = LocalDateTime(database->mtime);
    for (const auto& m : members) info.total_bytes += m.size;
    info.file_name_text = ShortPathText(zip.string());
    info.database_text = ShortPathText(database->name);
    info.created_text = LongDateTimeText(info.created);
    info.size_text = MegabytesText(info.total_bytes) + " megabytes";
    info.comments = Trim(comment.size() > 4 ? std::string_view(comment).substr(4) : "");
    return info;
  } catch (const std::exception& e) {
    ReportError(state, kInfoSource, e);
    return std::nullopt;
  }
}

bool SameAsOpenDatabase(const AppState& state, const BackupInfo& info) {
  return !state.gShortDbName.empty() &&
         EqualNoCase(MemberShortName(info.database_member), state.gShortDbName);
}

fs::path RestoreTargetPath(const AppState& state, const BackupInfo& info, RestoreOption option,
                           const fs::path& folder, std::string_view new_name) {
  if (option == RestoreOption::kReplaceOpen) return fs::path(state.gDatabaseName);
  const fs::path dir = option == RestoreOption::kCurrentFolder ? CurrentFolder(state) : folder;
  std::string name = Trim(new_name);
  if (name.empty()) name = MemberShortName(info.database_member);
  const std::string file = name + ".MDB";
  // Names that differ only in case are one file where these databases come from.
  std::error_code ec;
  for (auto it = fs::directory_iterator(dir, ec); !ec && it != fs::directory_iterator();
       it.increment(ec)) {
    if (EqualNoCase(it->path().filename().string(), file)) return it->path();
  }
  return dir / file;
}

std::optional<fs::path> RestoreDatabase(AppState& state, const fs::path& zip,
                                        const BackupInfo& info, RestoreOption option,
                                        const fs::path& folder, std::string_view new_name,
                                        bool open_after) {
  UserIo& io = *state.io;
  if (option == RestoreOption::kSelectedFolder && folder.empty()) {
    io.Tell(text::kSelectDirectory);
    return std::nullopt;
  }
  if (option != RestoreOption::kReplaceOpen && !Trim(new_name).empty() &&
      !DatabaseNameOk(new_name, kMaxDatabaseName, io)) {
    return std::nullopt;
  }
  const fs::path target = RestoreTargetPath(state, info, option, folder, new_name);
  if (target.empty()) {
    io.Tell(kTitleNoDatabase);
    return std::nullopt;
  }

  const std::string previous = state.gDb ? state.gDatabaseName : std::string();
  state.CloseCurrentDB();
  std::unique_ptr<SQLite::Database> held;
  auto failed = [&] {
    held.reset();
    OpenAgain(state, previous, false);
    return std::nullopt;
  };

  std::optional<RunFolder> work;
  std::vector<PlacedFile> files;
  try {
    io.Progress(text::kExtracting);
    work.emplace(state.home);
    auto extracted = ExtractBackup(io, zip, info, work->Path(), target);
    if (!extracted) return failed();
    files = std::move(*extracted);
  } catch (const KvlError& e) {
    ReportError(state, kRestoreSource, e, false);
    io.Tell(std::string(text::kErrorExtracting) + ErrorCode(e));
    return failed();
  } catch (const std::exception& e) {
    ReportError(state, kRestoreSource, e);
    return failed();
  }
  switch (CheckBackupDatabase(files.front().extracted)) {
    case BackupCheck::kGood:
      break;
    case BackupCheck::kNotOurs:
      io.Tell(store_text::kNotValidDatabase);
      return failed();
    case BackupCheck::kDamaged:
      io.Tell(text::kBackupDamaged);
      return failed();
  }

  // An existing database is replaced inside one transaction of its own, under its write
  // lock: a process still writing it is waited for, a journal a killed writer left is rolled
  // back before the archive copy is taken, and a crash or a full disk leaves the old file.
  bool archived = false;
  std::error_code ec;
  try {
    if (fs::exists(target, ec)) {
      const std::string question =
          option == RestoreOption::kReplaceOpen
              ? fmt::format("Overwrite {} with {} ?", target.string(), info.database_member)
              : fmt::format("Overwrite existing database: {} ?", target.string());
      if (!io.AskYesNo(question)) {
        io.Tell(text::kRestoreCanceled);
        return failed();
      }
      held = OpenLocked(target, true);
      if (!ArchiveSilently(state, target, held.get())) return failed();
      archived = true;
      ReplaceDatabaseContents(*held, files.front().extracted);
      held.reset();
    } else {
      MakeFolder(target.parent_path());
      PlaceNewDatabase(files.front().extracted, target);
    }
    for (size_t i = 1; i < files.size(); ++i) ReplaceFile(files[i].extracted, files[i].destination);
  } catch (const KvlError& e) {
    ReportError(state, kRestoreSource, e, false);
    io.Tell(std::string(text::kNothingRestored) + e.what());
    return failed();
  } catch (const std::exception& e) {
    ReportError(state, kRestoreSource, e);
    return failed();
  }
  work.reset();

  io.Message(archived ? text::kRestoredArchived : text::kRestored, box::kInformation, {});
  if (open_after || option == RestoreOption::kReplaceOpen) {
    OpenAgain(state, target.string(), true);
  } else {
    OpenAgain(state, previous, false);
  }
  return target;
}

}  // namespace kvlr
