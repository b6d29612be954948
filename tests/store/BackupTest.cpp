// Backups as zip archives and their restore: names, comments, archive slots, refusals, and
// restores that never leave a half-written or foreign file behind.

#include <gtest/gtest.h>

#include <zip.h>
#include <chrono>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "core/FileOps.h"
#include "store/Backup.h"
#include "store/ZipArchive.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::MakeOpenDatabase;
using test::TempHome;

struct Member {
  std::string name;
  std::string bytes;
};

// An archive written straight through libzip, so tests can make ones this system never would.
void MakeZip(const fs::path& file, const std::vector<Member>& members, const std::string& comment) {
  int code = 0;
  zip_t* archive = zip_open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
  ASSERT_NE(archive, nullptr);
  for (const auto& m : members) {
    zip_source_t* source = zip_source_buffer(archive, m.bytes.data(), m.bytes.size(), 0);
    ASSERT_GE(zip_file_add(archive, m.name.c_str(), source, ZIP_FL_ENC_UTF_8), 0);
  }
  zip_set_archive_comment(archive, comment.data(), static_cast<zip_uint16_t>(comment.size()));
  ASSERT_EQ(zip_close(archive), 0);
}

long long Swimmers(SQLite::Database& db) {
  return test::QueryNumber(db, "SELECT count(*) FROM Athlete");
}
long long SwimmersIn(const fs::path& file) {
  SQLite::Database db(file.string(), SQLite::OPEN_READONLY);
  return Swimmers(db);
}

void SetAge(const fs::path& file, std::chrono::hours age) {
  fs::last_write_time(file, fs::file_time_type::clock::now() - age);
}

class Backups : public ::testing::Test {
 protected:
  void SetUp() override {
    database = MakeOpenDatabase(t);
    test::AddAthlete(*t.state.gDb, "Lane", "Ada");
    WriteFileAtomically(WorkoutNotesFile(database), "warm-up 400 easy");
    folder = t.Root() / "backups";
  }
  // A backup answered Yes throughout; its path.
  fs::path Backup(std::string_view comment = "") {
    auto made = BackupDatabase(t.state, folder, comment);
    EXPECT_TRUE(made.has_value());
    return made.value_or(fs::path());
  }
  TempHome t;
  fs::path database;
  fs::path folder;
};

TEST(BackupComment, IsTheMarkerAndUpTo150CharactersBlankFilledTo160) {
  struct Case {
    std::string text;
    std::string kept;
  };
  const Case cases[] = {
      {"", ""},
      {"Before the county meet", "Before the county meet"},
      {std::string(150, 'x'), std::string(150, 'x')},
      {std::string(151, 'x') + "tail", std::string(150, 'x')},
      {"Z\xC3\xBCrich " + std::string(150, 'y'), "Z\xC3\xBCrich " + std::string(143, 'y')},
  };
  for (const auto& c : cases) {
    const std::string comment = BackupComment(c.text);
    EXPECT_EQ(comment.substr(0, 4), "KVLR") << c.text;
    EXPECT_EQ(comment.substr(4, c.kept.size()), c.kept) << c.text;
    const std::string rest = comment.substr(4 + c.kept.size());
    EXPECT_EQ(rest, std::string(rest.size(), ' ')) << c.text;
    // One two-byte letter in the last case: 160 characters are 161 bytes.
    const size_t multibyte = c.kept.find('\xC3') != std::string::npos ? 1 : 0;
    EXPECT_EQ(comment.size(), 160 + multibyte) << c.text;
  }
  EXPECT_EQ(BackupComment("Silent Backup"), "KVLRSilent Backup" + std::string(143, ' '));
}

TEST(BackupInfoTexts, MegabytesLongPathsAndMemberNamesThatMayNotClimb) {
  const std::pair<std::uint64_t, std::string> sizes[] = {{0, "."},
                                                         {1 << 19, ".5"},
                                                         {2 << 20, "2."},
                                                         {(1 << 20) + 5243, "1.01"},
                                                         {(12 << 20) + (1 << 20) / 4, "12.25"},
                                                         {(1 << 20) - 1, "1."}};
  for (const auto& [bytes, shown] : sizes) EXPECT_EQ(MegabytesText(bytes), shown) << bytes;
  const std::string sixty(60, 'p');
  EXPECT_EQ(ShortPathText(sixty), sixty);
  EXPECT_EQ(ShortPathText("/home/" + sixty), "/ho..." + sixty);
  EXPECT_EQ(SafeMemberBaseName("family.mdb"), "family.mdb");
  EXPECT_EQ(SafeMemberBaseName("old/family.mdb"), "family.mdb");
  EXPECT_EQ(SafeMemberBaseName("old\\family.mdb"), "family.mdb");
  for (const char* name : {"../evil.mdb", "/abs.mdb", "\\abs.mdb", "C:evil.mdb", "a/../../b.mdb",
                           "folder/", "", "x/."}) {
    EXPECT_EQ(SafeMemberBaseName(name), std::nullopt) << name;
  }
}

TEST_F(Backups, NumbersRunFrom01AndAfter99TheFirstIsOverwrittenOnlyOnYesWithEverything) {
  EXPECT_EQ(Backup().filename(), "KVL-RBkupfamily-01.zip");
  EXPECT_EQ(Backup().filename(), "KVL-RBkupfamily-02.zip");
  fs::remove(folder / "KVL-RBkupfamily-01.zip");
  EXPECT_EQ(Backup().filename(), "KVL-RBkupfamily-01.zip") << "the first free number";
  EXPECT_TRUE(t.io.Saw("Backup family to:\r\n" + (folder / "KVL-RBkupfamily-01.zip").string()));
  EXPECT_TRUE(t.io.Saw("Backup Completed Successfully...\r\nBackup file: KVL-RBkupfamily-01.zip"));
  for (int n = 3; n <= 99; ++n) {
    WriteFileAtomically(folder / fmt::format("KVL-RBkupfamily-{:02}.zip", n), "older");
  }
  const fs::path first = folder / "KVL-RBkupfamily-01.zip";
  WriteFileAtomically(first, "the oldest");
  t.io.shown.clear();
  t.io.Script({Answer::kNo});
  EXPECT_EQ(BackupDatabase(t.state, folder, ""), std::nullopt);
  ASSERT_FALSE(t.io.shown.empty());
  EXPECT_EQ(t.io.shown[0].title, "KVL-R");
  EXPECT_NE(t.io.shown[0].text.find("There is already a backup file named: KVL-RBkupfamily-01.zip"
                                    "\r\nin " +
                                    folder.string()),
            std::string::npos);
  EXPECT_NE(t.io.shown[0].text.find("Do you want to continue and overwrite it?"),
            std::string::npos);
  EXPECT_TRUE(t.io.Saw("Backup cancelled."));
  EXPECT_EQ(ReadWholeFile(first), "the oldest");
  // Yes: the archive holds the database and its notes without folders, and the comment.
  WriteFileAtomically(WorkoutModelNotesFile(database), "model set");
  EXPECT_EQ(Backup("Before the county meet"), first);
  ZipArchive archive(first);
  EXPECT_EQ(archive.Comment(), BackupComment("Before the county meet"));
  std::vector<std::string> names;
  for (const auto& m : archive.Members()) names.push_back(m.name);
  EXPECT_EQ(names, (std::vector<std::string>{"family.mdb", "family-WKNotes.txt",
                                             "family-WKmodelNotes.txt"}));
  archive.Extract(0, t.Root() / "copy.mdb");
  EXPECT_EQ(SwimmersIn(t.Root() / "copy.mdb"), 1);
  EXPECT_FALSE(fs::exists(first.string() + ".tmp"));
}

TEST_F(Backups, NoOrShortRoomOrAnUnwritableFolderCancelsAndWritesNothing) {
  t.io.Script({Answer::kNo});
  EXPECT_EQ(BackupDatabase(t.state, folder, ""), std::nullopt);
  EXPECT_TRUE(t.io.Saw("Backup cancelled."));
  // Free Kbytes less the database's Kbytes must be above 1000.
  const auto size_kb = fs::file_size(database) / 1024;
  t.disk.free_bytes = (size_kb + 1000) * 1024 + 1023;
  EXPECT_EQ(BackupDatabase(t.state, folder, ""), std::nullopt);
  EXPECT_TRUE(t.io.Saw("Backup can not be executed as specified.  Not Enough disk space on: " +
                       folder.string()));
  EXPECT_FALSE(fs::exists(folder));
  t.disk.free_bytes = (size_kb + 1001) * 1024;
  EXPECT_TRUE(BackupDatabase(t.state, folder, "").has_value());
  const fs::path blocked = t.Root() / "a-file";
  WriteFileAtomically(blocked, "");
  EXPECT_EQ(BackupDatabase(t.state, blocked / "sub", ""), std::nullopt);
  EXPECT_TRUE(t.io.Saw("There was an error creating the backup file.  Error: "));
  EXPECT_NE(ReadWholeFile(t.state.home.Log()).find("frmBackup.BackupDatabase"), std::string::npos);
}

TEST_F(Backups, SilentArchivesFillFiveSlotsThenReplaceTheOldest) {
  t.state.CloseCurrentDB();
  const fs::path data = database.parent_path();
  auto slot = [&](int n) { return data / fmt::format("KVL-RArchive-family-0{}.zip", n); };
  for (int n = 1; n <= 5; ++n) {
    EXPECT_EQ(SilentArchiveName(database), slot(n));
    ASSERT_TRUE(SilentBackup(t.state, database));
    SetAge(slot(n), std::chrono::hours(100 - n));
  }
  EXPECT_EQ(ZipArchive(slot(1)).Comment(), BackupComment("Silent Backup"));
  SetAge(slot(3), std::chrono::hours(500));
  EXPECT_EQ(SilentArchiveName(database), slot(3)) << "the oldest by file time, not by number";
  ASSERT_TRUE(SilentBackup(t.state, database));
  EXPECT_GT(fs::last_write_time(slot(3)), fs::last_write_time(slot(5)));
  EXPECT_EQ(SilentArchiveName(database), slot(1));
  fs::remove(slot(2));
  EXPECT_EQ(SilentArchiveName(database), slot(2)) << "with fewer than five, the free digit";
  EXPECT_FALSE(SilentBackup(t.state, t.Data() / "gone.mdb"));
  EXPECT_TRUE(t.io.Saw("There was an error creating silent backup file.  Error: "));
  EXPECT_FALSE(fs::exists(t.Data() / "KVL-RArchive-gone-01.zip"));
}

// The first database of a backup of ours and its fields; anything else is refused.
TEST_F(Backups, LoadBackupInfoTakesTheFirstDatabaseAndRefusesWhatIsNotOurs) {
  const fs::path zip = t.Root() / "KVL-RBkuptwo-01.zip";
  MakeZip(zip,
          {{"notes.txt", std::string(1 << 19, 'n')},
           {"first.MDB", std::string(1 << 20, 'a')},
           {"second.mdb", "b"}},
          BackupComment("  two databases  "));
  std::tm when{};  // 22 November 2026, 1:05:08 PM
  when.tm_sec = 8;
  when.tm_min = 5;
  when.tm_hour = 13;
  when.tm_mday = 22;
  when.tm_mon = 10;
  when.tm_year = 2026 - 1900;
  when.tm_isdst = -1;
  {
    zip_t* archive = zip_open(zip.c_str(), 0, nullptr);
    zip_file_set_mtime(archive, 1, std::mktime(&when), 0);
    zip_close(archive);
  }
  const auto info = LoadBackupInfo(t.state, zip);
  ASSERT_TRUE(info.has_value());
  EXPECT_EQ(info->database_member, "first.MDB");
  EXPECT_EQ(info->created_text, "Sunday, November 22, 2026 at 1:05:08 PM");
  EXPECT_EQ(info->size_text, "1.5 megabytes");
  EXPECT_EQ(info->comments, "two databases");
  EXPECT_EQ(info->file_name_text, ShortPathText(zip.string()));
  const fs::path made = Backup();
  const std::string bytes = ReadWholeFile(made);
  const fs::path truncated = t.Root() / "KVL-RBkupcut-01.zip";
  WriteFileAtomically(truncated, bytes.substr(0, bytes.size() / 2));
  MakeZip(t.Root() / "other.zip", {{"family.mdb", "x"}}, "Made by a zip tool");
  MakeZip(t.Root() / "empty.zip", {{"readme.txt", "x"}}, BackupComment(""));
  MakeZip(t.Root() / "none.zip", {{"family.mdb", "x"}}, "");
  struct Case {
    fs::path zip;
    std::string_view words;
  };
  const Case cases[] = {
      {t.Root() / "backup.rar", "Not a valid filename: backup.rar"},
      {t.Root() / "other.zip", "This is not a KVL-R backup."},
      {t.Root() / "none.zip", "This is not a KVL-R backup."},
      {t.Root() / "empty.zip", "Not a valid KVL-R backup."},
      {truncated, "Error Source: frmRestore.LoadBackupInfo"},
      {t.Root() / "missing.zip", "Error Source: frmRestore.LoadBackupInfo"},
  };
  for (const auto& c : cases) {
    t.io.shown.clear();
    EXPECT_EQ(LoadBackupInfo(t.state, c.zip), std::nullopt) << c.zip;
    EXPECT_TRUE(t.io.Saw(c.words)) << c.zip;
  }
}

class Restores : public Backups {
 protected:
  void SetUp() override {
    Backups::SetUp();
    zip = Backup("to restore");
    info = *LoadBackupInfo(t.state, zip);
    test::AddAthlete(*t.state.gDb, "Lane", "Bea");
    target_folder = t.Root() / "restored";
    fs::create_directories(target_folder);
    t.io.shown.clear();
  }
  std::optional<fs::path> Restore(std::string_view name = "", bool open_after = false) {
    return RestoreDatabase(t.state, zip, info, RestoreOption::kSelectedFolder, target_folder, name,
                           open_after);
  }
  void ExpectPreviousOpen() {
    ASSERT_TRUE(t.state.gDb != nullptr);
    EXPECT_EQ(t.state.gDatabaseName, database.string());
    EXPECT_EQ(Swimmers(*t.state.gDb), 2);
  }
  bool TempEmpty() { return fs::is_empty(t.state.home.TempDir()); }
  fs::path zip;
  BackupInfo info;
  fs::path target_folder;
};

TEST_F(Restores, IntoAFolderWithItsNotesUnderTheArchivedOrTheNewName) {
  const auto restored = Restore();
  ASSERT_TRUE(restored.has_value());
  EXPECT_EQ(*restored, target_folder / "family.MDB");
  EXPECT_EQ(SwimmersIn(*restored), 1);
  EXPECT_EQ(ReadWholeFile(target_folder / "family-WKNotes.txt"), "warm-up 400 easy");
  EXPECT_TRUE(t.io.Saw("Restore completed successfully..."));
  EXPECT_EQ(t.io.progress.back(), "Extracting database to temporary directory");
  EXPECT_TRUE(TempEmpty());
  ExpectPreviousOpen();
  const auto renamed = Restore("relay", true);
  ASSERT_TRUE(renamed.has_value());
  EXPECT_EQ(*renamed, target_folder / "relay.MDB");
  EXPECT_TRUE(fs::exists(target_folder / "relay-WKNotes.txt"));
  EXPECT_EQ(t.state.gDatabaseName, renamed->string()) << "opened after restore";
}

TEST_F(Restores, RefusesANameWithAColonAndAMissingFolder) {
  EXPECT_EQ(Restore("a:b"), std::nullopt);
  EXPECT_TRUE(t.io.Saw("can not include quotes, apostrophes, slashes or colons."));
  EXPECT_EQ(RestoreDatabase(t.state, zip, info, RestoreOption::kSelectedFolder, {}, "", false),
            std::nullopt);
  EXPECT_TRUE(t.io.Saw("Please select a directory to restore to."));
  EXPECT_TRUE(fs::is_empty(target_folder));
  ExpectPreviousOpen();
}

TEST_F(Restores, OverwriteAsksArchivesTheOldFileAndNoLeavesItAlone) {
  const fs::path existing = target_folder / "family.mdb";
  fs::copy_file(database, existing);
  WriteFileAtomically(target_folder / "family-WKNotes.txt", "old notes");
  t.io.Script({Answer::kNo});
  EXPECT_EQ(Restore(), std::nullopt);
  EXPECT_TRUE(t.io.Saw("Overwrite existing database: " + existing.string() + " ?"));
  EXPECT_TRUE(t.io.Saw("Restore Canceled."));
  EXPECT_EQ(SwimmersIn(existing), 2);
  ExpectPreviousOpen();
  EXPECT_EQ(Restore(), existing) << "the file whose name differs only in case";
  EXPECT_EQ(SwimmersIn(existing), 1);
  EXPECT_EQ(ReadWholeFile(target_folder / "family-WKNotes.txt"), "warm-up 400 easy");
  EXPECT_TRUE(
      t.io.Saw("Restore completed successfully and your previous database has been archived."));
  ZipArchive archived(target_folder / "KVL-RArchive-family-01.zip");
  EXPECT_EQ(archived.Members().size(), 2u);
}

TEST_F(Restores, ReplacingTheOpenDatabaseBringsBackTheBackupAndOpensIt) {
  const auto restored =
      RestoreDatabase(t.state, zip, info, RestoreOption::kReplaceOpen, {}, "ignored", false);
  ASSERT_EQ(restored, database);
  EXPECT_TRUE(t.io.Saw("Overwrite " + database.string() + " with family.mdb ?"));
  ASSERT_TRUE(t.state.gDb != nullptr);
  EXPECT_EQ(t.state.gDatabaseName, database.string());
  EXPECT_EQ(Swimmers(*t.state.gDb), 1);
  EXPECT_TRUE(fs::exists(database.parent_path() / "KVL-RArchive-family-01.zip"));
}

TEST_F(Restores, MembersThatClimbOutAreRefusedAndNothingIsWritten) {
  const std::string bytes = ReadWholeFile(database);
  for (const char* name : {"../evil.mdb", "/abs.mdb", "sub/../../evil.mdb"}) {
    const fs::path bad = t.Root() / "KVL-RBkupbad-01.zip";
    MakeZip(bad, {{name, bytes}}, BackupComment(""));
    auto bad_info = LoadBackupInfo(t.state, bad);
    ASSERT_TRUE(bad_info.has_value()) << name;
    t.io.shown.clear();
    EXPECT_EQ(RestoreDatabase(t.state, bad, *bad_info, RestoreOption::kSelectedFolder,
                              target_folder, "", false),
              std::nullopt);
    EXPECT_TRUE(t.io.Saw(
        "A file in this backup is named so that it would be written outside the restore folder: "))
        << name;
    EXPECT_FALSE(fs::exists(t.state.home.Root() / "evil.mdb"));
    EXPECT_FALSE(fs::exists(t.state.home.Root().parent_path() / "evil.mdb"));
    EXPECT_FALSE(fs::exists("/abs.mdb"));
    EXPECT_TRUE(fs::is_empty(target_folder));
    EXPECT_TRUE(TempEmpty());
    ExpectPreviousOpen();
  }
}

TEST_F(Restores, DamagedOrForeignDatabasesLeaveTheOldTargetUntouched) {
  const fs::path existing = target_folder / "family.MDB";
  fs::copy_file(database, existing);
  const std::string before = ReadWholeFile(existing);
  // The member's data broken after the archive was chosen: the checksum fails on extraction.
  std::string bytes = ReadWholeFile(zip);
  for (size_t i = 200; i < 400; ++i) bytes[i] = static_cast<char>(bytes[i] ^ 0x5A);
  WriteFileAtomically(zip, bytes);
  EXPECT_EQ(Restore(), std::nullopt);
  EXPECT_TRUE(t.io.Saw("There was an error extracting the backup file.  Error: "));
  // An archive of ours whose database is not a file of this system.
  const fs::path foreign = t.Root() / "KVL-RBkupfamily-02.zip";
  MakeZip(foreign, {{"family.mdb", "not a database at all"}}, BackupComment(""));
  auto foreign_info = LoadBackupInfo(t.state, foreign);
  ASSERT_TRUE(foreign_info.has_value());
  EXPECT_EQ(RestoreDatabase(t.state, foreign, *foreign_info, RestoreOption::kSelectedFolder,
                            target_folder, "", false),
            std::nullopt);
  EXPECT_TRUE(t.io.Saw("Not a valid KVL-R Database."));
  EXPECT_EQ(ReadWholeFile(existing), before);
  EXPECT_FALSE(fs::exists(target_folder / "KVL-RArchive-family-01.zip"));
  EXPECT_TRUE(TempEmpty());
  ExpectPreviousOpen();
}

}  // namespace
}  // namespace kvlr
