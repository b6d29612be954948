// Export: a made-up meet out through ExportResults and back in through the import into an
// empty database of the same family; lines checked with the fixtures' own arithmetic.

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>
#include <gtest/gtest.h>

#include "FileMaker.h"
#include "athletes/CurrentAthlete.h"
#include "core/FileOps.h"
#include "interchange/ExportLines.h"
#include "interchange/ExportRun.h"
#include "interchange/ImportPrepare.h"
#include "interchange/ImportRun.h"
#include "interchange/Nv3Writer.h"
#include "interchange/SdifWriter.h"
#include "meets/Ranking.h"
#include "store/ZipArchive.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::QueryRows;

constexpr const char* kResults =
    "SELECT A.First, R.DISTANCE, R.STROKE, R.F_P, R.SCORE, R.NT, R.PLACE, R.AGE, R.COURSE, "
    "R.EX, R.RANK, E.MtEv, E.Lo_Hi, E.Sex FROM RESULT R JOIN Athlete A ON A.Athlete = "
    "R.ATHLETE JOIN MTEVENT E ON E.MtEvent = R.MTEVENT ORDER BY 1, 2, 3, 4";
constexpr const char* kSplits =
    "SELECT A.First, R.DISTANCE, R.F_P, S.SplitIndex, S.Split FROM SPLITS S JOIN RESULT R ON "
    "R.RESULT = S.SplitID JOIN Athlete A ON A.Athlete = R.ATHLETE ORDER BY 1, 2, 3, 4";

void Exec(SQLite::Database& db, const std::string& sql) {
  db.exec(sql);
}

// Lines of a file cut at CR LF; false when a line break is missing or stray.
std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> out;
  for (size_t at = 0; at < text.size();) {
    const size_t end = text.find("\r\n", at);
    out.push_back(text.substr(at, end - at));
    at = end == std::string::npos ? text.size() : end + 2;
  }
  return out;
}

class ExportTest : public ::testing::Test {
 protected:
  ExportTest() {
    test::MakeOpenDatabase(a_);
    MakeFolder(out_);
    SQLite::Database& db = *a_.state.gDb;
    Family(a_);
    Exec(db, "INSERT INTO TEAM (TCode, TName, LSC) VALUES ('MUSTA', 'Made Up Swim Team', 'ZZ')");
    Exec(db,
         "INSERT INTO MEET (Meet, MName, Start, End, Course, Location, Type) VALUES "
         "(1, 'Autumn Made-Up Invite', '2026-11-01', '2026-11-02', 'Y', 'Springfield, ZZ', 'AG')");
    Exec(
        db,
        "INSERT INTO MTEVENT (Meet, MtEv, MtEvX, Lo_Hi, Course, MtEvent, Distance, Stroke, Sex, "
        "I_R) VALUES (1, 3, '', 1112, 'Y', 1, 100, 1, 'F', 'I'), (1, 5, 'A', 1112, 'Y', 2, 300, 1, "
        "'F', 'I'), (1, 8, '', 99, 'Y', 3, 50, 2, 'X', 'I'), (1, 9, '', 10, 'Y', 4, 50, 1, 'M', "
        "'I')");
    // Jane: prelim and final of the 100 (2 splits), a 300 with 12 splits, a DQ, an
    // exhibition; Tom: one swim.
    Exec(db,
         "INSERT INTO RESULT (RESULT, MEET, ATHLETE, I_R, SCORE, F_P, EX, NT, AGE, DISTANCE, "
         "STROKE, MTEVENT, PLACE, COURSE) VALUES "
         "(1, 1, 1, 'I', 6630, 'P', '', 0, 12, 100, 1, 1, 4, 'Y'),"
         "(2, 1, 1, 'I', 6532, 'F', '', 0, 12, 100, 1, 1, 2, 'Y'),"
         "(3, 1, 1, 'I', 21050, 'F', '', 0, 12, 300, 1, 2, 7, 'Y'),"
         "(4, 1, 1, 'I', 0, 'F', '', 5, 12, 50, 2, 3, 0, 'Y'),"
         "(5, 1, 2, 'I', 3420, 'F', 'X', 0, 10, 50, 1, 4, 0, 'Y')");
    Exec(db, "INSERT INTO SPLITS (SplitID, SplitIndex, Split) VALUES (1, 2, 3200), (1, 4, 6630)");
    for (int i = 1; i <= 12; ++i) {
      SQLite::Statement s(db, "INSERT INTO SPLITS (SplitID, SplitIndex, Split) VALUES (3, ?, ?)");
      SQLite::bind(s, i, 1600 * i + i);
      s.exec();
    }
    AddRank(a_.state);
  }
  static void Family(test::TempHome& t) {
    test::AddAthlete(*t.state.gDb, "Doe", "Jane", "F", "2014-01-02");
    test::AddAthlete(*t.state.gDb, "Doe", "Tom", "M", "2016-05-06");
  }
  ExportOutcome Export() {
    ResultExportOptions o;
    o.athlete = 1;
    o.meet = 1;
    o.splits = o.all_family = true;
    o.folder = out_;
    return ExportResults(a_.state, o);
  }
  // The zip's member `name`, extracted into b's data folder.
  fs::path Member(const fs::path& zip, const std::string& name) {
    ZipArchive archive(zip);
    for (size_t i = 0; i < archive.Members().size(); ++i) {
      if (archive.Members()[i].name == name) archive.Extract(i, b_.Data() / name);
    }
    return b_.Data() / name;
  }
  // Imports `file` into a fresh database of the same family; its results and splits.
  std::string ImportIntoEmpty(const fs::path& file) {
    test::MakeOpenDatabase(b_, "other.mdb");
    Family(b_);
    SetCurrentAthlete(b_.state, 1);
    ImportMonitor quiet;
    const ImportFile prepared = PrepareImportFile(b_.state, quiet, file, ImportMode::kImport);
    EXPECT_TRUE(prepared.ready) << prepared.status;
    ImportCriteria criteria;
    criteria.import_splits = criteria.all_family = true;
    EXPECT_TRUE(RunImportFile(b_.state, quiet, prepared, criteria).ok);
    return QueryRows(*b_.state.gDb, kResults) + QueryRows(*b_.state.gDb, kSplits) +
           QueryRows(*b_.state.gDb, "SELECT MName, Start, End, Course FROM MEET");
  }
  test::TempHome a_, b_;
  fs::path out_ = a_.Root() / "out";
};

TEST_F(ExportTest, CommlinkAndNv3ComeBackTheSame) {
  const ExportOutcome out = Export();
  ASSERT_TRUE(out.ok);
  EXPECT_EQ(out.count, 5);
  EXPECT_EQ(out.zip, out_ / "KVL-RRes01.zip");
  EXPECT_TRUE(a_.io.Saw("5 Individual Results exported to "));
  const std::string want = QueryRows(*a_.state.gDb, kResults) + QueryRows(*a_.state.gDb, kSplits) +
                           QueryRows(*a_.state.gDb, "SELECT MName, Start, End, Course FROM MEET");
  ASSERT_NE(want.find("Jane|300|F|12|19212"), std::string::npos);
  const fs::path cl2 = Member(out.zip, "CFILE01.CL2");
  const std::string cl2_text = ReadWholeFile(cl2);
  EXPECT_EQ(ImportIntoEmpty(cl2), want);
  // Twelve splits: sequence 1 with ten values, sequence 2 with two.
  std::vector<std::string> g0;
  for (const auto& line : Lines(cl2_text)) {
    if (line.starts_with("G0") && line.substr(56, 2) == "12") g0.push_back(line);
  }
  ASSERT_EQ(g0.size(), 2u);
  EXPECT_EQ(g0[0].substr(55, 1) + g0[1].substr(55, 1), "12");
  EXPECT_EQ(g0[1].substr(63, 17), " 2:56.11 3:12.12 ");
  b_.state.CloseCurrentDB();
  fs::remove(b_.Data() / "other.mdb");
  EXPECT_EQ(ImportIntoEmpty(Member(out.zip, "HFILE001.NV3")), want);
}

TEST_F(ExportTest, EveryLineHasItsLengthAndCheckSum) {
  const ExportOutcome out = Export();
  ASSERT_TRUE(out.ok);
  struct Format {
    const char* member;
    size_t width;
    std::string (*sum)(std::string_view);
    size_t sum_at;
  };
  const Format formats[] = {{"CFILE01.CL2", 160, testing::Cl2Sum, 158},
                            {"HFILE001.NV3", 130, testing::Nv3Sum, 128},
                            {"KVLR_001.TXT", 131, nullptr, 0}};
  for (const Format& f : formats) {
    const std::string text = ReadWholeFile(Member(out.zip, f.member));
    const std::vector<std::string> lines = Lines(text);
    ASSERT_GT(lines.size(), 10u) << f.member;
    EXPECT_EQ(text.size(), lines.size() * (f.width + 2)) << f.member;
    for (const std::string& line : lines) {
      ASSERT_EQ(line.size(), f.width) << f.member << ": " << line;
      if (f.sum) {
        EXPECT_EQ(line.substr(f.sum_at, 2), f.sum(line)) << f.member << ": " << line;
      }
    }
  }
}

TEST_F(ExportTest, RefusalsLeaveNothingInTheFolder) {
  Exec(*a_.state.gDb, "UPDATE TEAM SET TCode = ''");
  EXPECT_FALSE(Export().ok);
  EXPECT_TRUE(a_.io.Saw("enter your Team information."));
  Exec(*a_.state.gDb, "UPDATE TEAM SET TCode = 'MUSTA'");
  EntryExportOptions entries{1, false, out_};
  EXPECT_FALSE(ExportEntries(a_.state, entries).ok);
  EXPECT_TRUE(a_.io.Saw("No entries available."));
  a_.disk.free_bytes = 100;
  EXPECT_FALSE(Export().ok);
  EXPECT_TRUE(a_.io.Saw("Can not create ZIP file.  Not Enough disk space on: "));
  // Another kind of file under the first name is never replaced.
  a_.disk.free_bytes = 1ull << 40;
  for (int n = 1; n <= 99; ++n) {
    WriteFileAtomically(out_ / fmt::format("KVL-RRes{:02d}.zip", n), n == 1 ? "text" : "PK");
  }
  a_.io.Script({Answer::kNo, Answer::kYes});
  EXPECT_FALSE(Export().ok);
  EXPECT_TRUE(
      a_.io.Saw("All 99 KVL-RRes... file names have been used.\r\nDo you wish to "
                "overwrite the first one, "));
  EXPECT_FALSE(Export().ok);
  EXPECT_TRUE(a_.io.Saw("KVL-RRes01.zip is not a zip file and is left as it is."));
  EXPECT_EQ(ReadWholeFile(out_ / "KVL-RRes01.zip"), "text");
  size_t files = 0;
  for ([[maybe_unused]] const auto& f : fs::directory_iterator(out_)) ++files;
  EXPECT_EQ(files, 99u);  // no temporary file
}

TEST(ExportRecords, EdgeCases) {
  ExportSwimmer zoe;
  zoe.athlete = 7;
  zoe.last = "Doé";
  zoe.first = "Zoë";
  zoe.sex = "F";
  zoe.birth = Date{2014, 11, 22};
  ExportSwim dive;
  dive.stroke = 6;
  dive.distance = 1;
  dive.lo_hi = 1099;
  dive.score = 31050;
  ExportSwim scratch = dive;
  scratch.stroke = 1;
  scratch.distance = 100;
  scratch.nt = 1;
  scratch.f_p = "F";
  scratch.course = "Y";
  SdifWriter cl2(Date{2026, 11, 22});
  cl2.D0RecordEntry(zoe, dive, ExportMeet{});
  cl2.D0Record(zoe, scratch, ExportMeet{});
  Nv3Writer nv3(DateTime{Date{2026, 11, 22}, 10, 0, 0});
  nv3.NV3AthDetailRecords(zoe);  // no AthInfo row
  ExportSwim no_time = scratch;
  no_time.nt = 4;
  no_time.score = 0;
  nv3.NV3E2RecordResults(no_time);
  const std::vector<std::string> c = Lines(cl2.Text()), n = Lines(nv3.Text());
  ASSERT_EQ(c.size(), 2u);
  ASSERT_EQ(n.size(), 4u);  // D1, D2, D3 and the E2
  struct Case {
    const char* what;
    const std::string& line;
    size_t column, width;
    std::string want;
  };
  const Case cases[] = {
      {"diver: H, distance blank, stroke at 150", c[0], 68, 5, "    H"},
      {"diver's stroke", c[0], 150, 1, "6"},
      {"diver's age range", c[0], 77, 4, "10OV"},
      {"name in one byte a letter", c[0], 12, 9, "Do\xe9, Zo\xeb "},
      {"SCR in the finals time", c[1], 116, 9, "     SCRY"},
      {"age from Birth in the D1", n[0], 97, 3, " 12"},
      {"empty AthInfo: blank D2", n[1], 3, 126, std::string(126, ' ')},
      {"empty AthInfo: blank D3", n[2], 3, 126, std::string(126, ' ')},
      {"NT 4: no letter, 0.00", n[3], 4, 10, "    0.00Y "},
  };
  for (const Case& k : cases) EXPECT_EQ(k.line.substr(k.column - 1, k.width), k.want) << k.what;
  const std::pair<int, const char*> ranges[] = {
      {99, "UNOV"}, {1011, "1011"}, {1099, "10OV"}, {11, "UN11"}};
  for (const auto& [lo_hi, text] : ranges) EXPECT_EQ(LoHiToSDIF(lo_hi), text);
  EXPECT_EQ(NV3NTLetter(1) + NV3NTLetter(2) + NV3NTLetter(3) + NV3NTLetter(4) + NV3NTLetter(5),
            "SRDQ");
}

}  // namespace
}  // namespace kvlr
