#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>
#include <gtest/gtest.h>

#include "core/FileOps.h"
#include "handheld/HandheldFiles.h"
#include "handheld/HandheldTables.h"
#include "handheld/HandheldTexts.h"
#include "handheld/PalmExport.h"
#include "handheld/PalmImport.h"
#include "handheld/PdbMaker.h"
#include "handheld/PdbRows.h"
#include "store/Database.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

class Handheld : public test::DbTest {
 protected:
  Handheld() {
    pat_ = test::AddAthlete(Db(), "Sample", "Pat", "F", "2013-05-02");
    Exec("INSERT INTO MEET (Meet, MName, Start, AgeUp, Course) VALUES (1, 'Fall Dual', "
         "'2026-10-03', '2026-10-03', 'Y'), (2, 'Winter Champs', '2026-12-05', '2026-12-05', 'Y')");
    Exec("INSERT INTO MTEVENTE (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, Stroke, Sex, I_R) "
         "VALUES (2, 7, 'A', 1314, 'Y', 100, 2, 'F', 'I'), (2, 9, '', 1314, 'Y', 50, 1, 'F', 'I')");
    Exec("INSERT INTO ENTRY (Meet, Athlete, I_R, Course, Score, MtEvent) VALUES (2, ?, 'I', 'L', "
         "7000, 1), (2, ?, 'I', '', 0, 2)", pat_, pat_);
    Exec("INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, STROKE, COURSE, "
         "MTEVENT, RANK, PLACE, AGE) VALUES (1, ?, 'I', 2950, 'F', 0, 50, 1, 'Y', 1, 1, 2, 13), "
         "(1, ?, 'I', 0, 'F', 5, 100, 4, 'Y', 2, 999, 0, 13)", pat_, pat_);
    Exec("INSERT INTO SPLITS (SplitID, SplitIndex, Split) VALUES (1, 1, 1420), (1, 2, 2950)");
  }
  template <class... V>
  void Exec(const std::string& sql, V... values) {
    SQLite::Statement q(Db(), sql);
    if constexpr (sizeof...(values) > 0) SQLite::bind(q, values...);
    q.exec();
  }
  PalmExportChoice Choice() { return {{pat_}, 'Y', std::nullopt, {1}, 2}; }
  int pat_ = 0;
};

TEST_F(Handheld, EveryStagingTableTravelsAsItsPdbRows) {
  const fs::path staging = t.Root() / "staging";
  const PalmExportSummary summary = StagePalmExport(t.state, Choice(), staging);
  EXPECT_EQ(summary.entries, 2);
  // One row each, checked field by field where the text forms matter.
  const std::map<std::string, std::vector<std::string>> first_rows = {
      {"KVLBEST", {std::to_string(pat_), "Free", "1", "   50", "Y", "10/03/2026", "1", "29.50", "13"}},
      {"KVLHIST", {std::to_string(pat_), "1", "Free", "1", "   50", "Y", "F", "   29.50", "2",
                   "", "", "13", "F", "10/03/2026", "1"}},
      {"KVLHISTS", {"1", "25", "14.20", "14.20", "1"}},
      {"KVLBESTS", {std::to_string(pat_), "1", "   50", "Y", "25", "14.20", "14.20"}},
      {"KVLEVENT", {"2", "1", "  7A", "Back", "2", "  100", "13-14", "F"}},
      {"KVLMEET", {"2", "Winter Champs", "12/05/2026", "Y", "2", "A"}},
      {"KVLAGEG", {"13", "14", "13-14"}},
  };
  for (const HandheldTable& table : HandheldTables()) {
    SCOPED_TRACE(table.base);
    auto db = OpenStoreFile(staging / table.staging_file, OpenMode::kExisting, false);
    const auto rows = TextRows(*db, table.table);
    EXPECT_FALSE(rows.empty());
    const PdbFile pdb = ReadPdb(WritePdb(TableToPdb(*db, table.table, table.base, {})));
    ASSERT_EQ(pdb.records.size(), rows.size());
    for (size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(DecodePdbRow(pdb.records[i].bytes), rows[i]);
    if (auto hit = first_rows.find(table.base); hit != first_rows.end()) {
      EXPECT_EQ(rows[0], hit->second);
    }
  }
  // The long-course entry time goes out converted; the one without a time takes the best.
  auto times = OpenStoreFile(staging / "KVLTIMES.MDB", OpenMode::kExisting, false);
  const auto rows = TextRows(*times, HandheldTables()[kTimesFile].table);
  EXPECT_NE(rows[0][8], "1:10.00");
  EXPECT_EQ(rows[1][8], "29.50");
  EXPECT_EQ(rows[1][14], "  9 ");
}

TEST_F(Handheld, ExportLeavesElevenFilesInTheSyncFolderAndNoStaging) {
  PalmExportChoice choice = Choice();
  choice.meets = {};
  PalmExportSummary summary;
  ASSERT_TRUE(RunPalmExport(t.state, choice, t.Root() / "sync", &summary));
  EXPECT_EQ(summary.files.size(), 11u);
  EXPECT_TRUE(fs::exists(t.Root() / "sync" / "KVLHIST.pdb"));  // empty, but there
  EXPECT_EQ(ReadPdb(ReadWholeFile(t.Root() / "sync" / "KVLHIST.pdb")).records.size(), 0u);
  EXPECT_FALSE(fs::exists(HandheldStagingDir(t.state) / "KVLATHLT.MDB"));
  EXPECT_TRUE(t.io.Saw("Exported 2 Entries"));
  choice.meets = {1, 2, 3, 4, 5, 6};
  EXPECT_EQ(CheckPalmExport(choice), std::string(palm_text::kOnlyFive));
}

// The companion's files after a meet: two timed swims with splits, one untimed row.
class CompanionImport : public Handheld {
 protected:
  void WriteCompanion(const std::string& version) {
    folder_ = t.Root() / "Backup";
    fs::create_directories(folder_);
    using test::Row;
    const std::string id = std::to_string(pat_);
    auto put = [&](const std::string& name, const std::vector<std::string>& rows) {
      WriteFileAtomically(folder_ / name, test::MakePdb(name.substr(0, 20), rows));
    };
    put("ENV080200_KVLMEET.pdb", {Row({"2", "Winter Champs", "12/05/2026", "Y", "2", "A"})});
    put("ENV080200_KVLATHLT.pdb", {Row({id, "Sample", "Pat", "", "Sample, Pat"})});
    put("ENV080200_KVLEVENT.pdb", {Row({"2", "1", "  7A", "Back", "2", "  100", "13-14", "F"}),
                                   Row({"2", "2", "  9 ", "Free", "1", "   50", "13-14", "F"})});
    put("ENV080200_KVLTIMES.pdb",
        {Row({id, "Back", "2", "  100", "Y", "F", "31", " 1:04.50", "1:10.00", "3", "", "", "13",
              "F", "  7A", "1", "1"}),
         Row({id, "Free", "1", "   50", "Y", "P", "32", "   DQ", "29.50", "", "", "", "13", "F",
              "  9 ", "1", "1"}),
         Row({id, "Free", "1", "   50", "Y", "F", "33", "", "29.50", "", "", "", "13", "F",
              "  9 ", "0", ""})});
    put("ENV080200_KVLSPLIT.pdb", {Row({"31", "100", "", "32.10", "2"}),
                                   Row({"31", "50", "", "32.40", "2"})});
    put("ENV080200_KVLADMIN.pdb", {});
    put("ENV080200_KVLCONTROL.pdb", {Row({version})});
  }
  fs::path folder_;
};

TEST_F(CompanionImport, SavesTheTimedSwimsWithSplitsAndRanksThem) {
  WriteCompanion("2");
  auto opening = OpenPalmImport(t.state, folder_);
  ASSERT_TRUE(opening);
  EXPECT_EQ(opening->meet.course_word, "Yards");
  ASSERT_EQ(opening->rows.size(), 3u);
  const auto counts = ImportPalmRows(t.state, *opening->data, opening->meet, opening->rows, false);
  EXPECT_EQ(counts.added, 2);
  EXPECT_EQ(Rows("SELECT R.Distance, R.Stroke, R.Score, R.NT, R.F_P, R.Place, R.Age, R.Rank, "
                 "V.MtEv || V.MtEvX FROM RESULT R JOIN MTEVENT V ON V.MtEvent = R.MtEvent "
                 "WHERE R.Meet = 2 ORDER BY R.Result"),
            "100|2|6450|0|F|3|13|1|7A\n50|1|0|5|P|0|13|999|9\n");
  EXPECT_EQ(Rows("SELECT SplitIndex, Split FROM SPLITS WHERE SplitID = "
                 "(SELECT Result FROM RESULT WHERE Meet = 2 AND Distance = 100)"),
            "2|3240\n4|6450\n");
  // Again with replace off: nothing changes.
  auto again = OpenPalmImport(t.state, folder_);
  ImportPalmRows(t.state, *again->data, again->meet, again->rows, false);
  EXPECT_EQ(again->rows[0].state, palm_text::kDuplicate);
  EXPECT_EQ(again->rows[1].state, palm_text::kDuplicate);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM RESULT WHERE Meet = 2"), 2);
}

TEST_F(CompanionImport, RefusesOldCompanionsAndMissingFiles) {
  WriteCompanion("1.5");
  EXPECT_FALSE(OpenPalmImport(t.state, folder_));
  EXPECT_TRUE(t.io.Saw("version 2.0 or later"));
  fs::remove(folder_ / "ENV080200_KVLCONTROL.pdb");
  EXPECT_FALSE(OpenPalmImport(t.state, folder_));
  EXPECT_EQ(t.io.shown.back().title, palm_text::kNoControlTitle);
  EXPECT_FALSE(SetPalmDirectory(t.state, t.Root() / std::string(61, 'x')));
  EXPECT_TRUE(SetPalmDirectory(t.state, folder_));
  EXPECT_EQ(FindPalmFolder(t.state), folder_);
}

}  // namespace
}  // namespace kvlr
