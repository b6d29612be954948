// kvlr import as a user runs it on a made-up meet file.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include <SQLiteCpp/Database.h>

#include "../interchange/FileMaker.h"
#include "Commands.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

class ImportCli : public ::testing::Test {
 protected:
  ImportCli() {
    EXPECT_EQ(Kvlr({"new-db", db_}).code, 0);
    EXPECT_EQ(
        Kvlr({"add-athlete", "--db", db_, "--last", "Doe", "--first", "Jane", "--sex", "F"}).code,
        0);
  }
  struct Outcome {
    int code;
    std::string out, err;
  };
  Outcome Kvlr(std::vector<std::string> args) {
    std::ostringstream out, err;
    std::istringstream in;
    args.insert(args.begin(), {"--home", t_.Home().string()});
    CliEnvironment env{out, err, in, false, t_.clock, t_.disk, "%m/%d/%y", ""};
    const int code = RunCli(args, env);
    return {code, out.str(), err.str()};
  }
  std::string File(const std::string& name, const std::string& text) {
    const auto path = t_.Data() / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
  }
  long long Results() {
    SQLite::Database db(db_);
    return db.execAndGet("SELECT COUNT(*) FROM RESULT").getInt64();
  }
  test::TempHome t_;
  std::string db_ = (t_.Data() / "family.mdb").string();
};

TEST_F(ImportCli, ImportsOnceThenListsTheRefusedLines) {
  testing::SdifFile meet;
  meet.Swim().Swim({{"swimmer_name", "ROE, ANN"}});
  const std::string file = File("meet.cl2", meet.Text());
  const Outcome first = Kvlr({"import", file, "--db", db_});
  ASSERT_EQ(first.code, 0) << first.err;
  EXPECT_NE(first.out.find("Individual Results\t2\t1\n"), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("\nImport Successful\n"), std::string::npos);
  EXPECT_EQ(first.out.find("Not all data was imported."), std::string::npos);
  const Outcome again = Kvlr({"import", file, "--db", db_});
  EXPECT_NE(again.out.find("Not all data was imported.\nReason"), std::string::npos) << again.out;
  EXPECT_NE(again.out.find("\n1\tAutumn Made-Up Invite\tDOE\tJANE\t"), std::string::npos);
}

TEST_F(ImportCli, ARosterFileFillsTheSwimmersCardAndSaysHowMany) {
  testing::SdifFile roster;
  roster.A0("file_code=20|source_code=CS|software_version=2.0|content_code=43");
  roster.Line("D1", "swimmer_name=DOE, JANE A|sex=F|birth=01022014|day_phone=555-0101");
  const Outcome out = Kvlr({"import", File("roster.cl2", roster.Text()), "--db", db_});
  ASSERT_EQ(out.code, 0) << out.err;
  EXPECT_NE(out.err.find("1 Athletes Imported\n"), std::string::npos) << out.err;
  SQLite::Database db(db_);
  EXPECT_EQ(db.execAndGet("SELECT DayP1 FROM AthInfo").getString(), "555-0101");
}

TEST_F(ImportCli, QuestionsNeedAnAnswerAndSeveralSwimmersAName) {
  testing::SdifFile meet;
  meet.Swim();
  ASSERT_EQ(Kvlr({"import", File("a.cl2", meet.Text()), "--db", db_}).code, 0);
  testing::SdifFile renamed;
  renamed.Meet({{"meet_name", "Made-Up Other Name"}}).Swim();
  const std::string other = File("b.cl2", renamed.Text());
  const Outcome unanswered = Kvlr({"import", other, "--db", db_});
  EXPECT_EQ(unanswered.code, 1);
  EXPECT_NE(unanswered.err.find("as the same meet?"), std::string::npos) << unanswered.err;
  EXPECT_EQ(Kvlr({"import", other, "--db", db_, "--no"}).code, 0);
  ASSERT_EQ(
      Kvlr({"add-athlete", "--db", db_, "--last", "Doe", "--first", "Ann", "--sex", "F"}).code, 0);
  const Outcome unnamed = Kvlr({"import", other, "--db", db_, "--yes"});
  EXPECT_EQ(unnamed.code, 1);
  EXPECT_NE(unnamed.err.find("name one with --athlete"), std::string::npos);
  EXPECT_EQ(Kvlr({"import", other, "--db", db_, "--athlete", "2", "--yes"}).code, 0);
}

TEST_F(ImportCli, AFileWithoutItsEndRecordIsImportedOnlyWhenTheUserSaysSo) {
  std::vector<std::string> lines = testing::SdifFile(false).Swim().Lines();
  lines.pop_back();  // the Z0
  const std::string file = File("cut.sd3", testing::FileText(lines));
  const std::string warning =
      "cut.sd3 has no end record (Z0): the file may be incomplete, for example a download cut "
      "short.";
  const Outcome unanswered = Kvlr({"import", file, "--db", db_});
  EXPECT_EQ(unanswered.code, 1);
  EXPECT_NE(unanswered.err.find(warning + "\nDo you want to import what it holds?\n"),
            std::string::npos)
      << unanswered.err;
  const Outcome no = Kvlr({"import", file, "--db", db_, "--no"});
  EXPECT_EQ(no.code, 1);
  EXPECT_EQ(no.err, warning + "\n");
  EXPECT_EQ(Results(), 0);
  const Outcome yes = Kvlr({"import", file, "--db", db_, "--yes"});
  EXPECT_EQ(yes.code, 0) << yes.err;
  EXPECT_NE(yes.out.find("\nImport Successful\n"), std::string::npos);
  EXPECT_EQ(Results(), 1);
}

TEST_F(ImportCli, Latin1TextIsStoredAsUtf8) {
  testing::SdifFile meet;
  meet.Meet({{"meet_name", "Zo\xEB's Made-Up Cup"}}).Swim();
  const Outcome r = Kvlr({"import", File("meet.cl2", meet.Text()), "--db", db_});
  ASSERT_EQ(r.code, 0) << r.err;
  SQLite::Database db(db_);
  EXPECT_EQ(db.execAndGet("SELECT MName FROM MEET").getString(), "Zo\xC3\xAB's Made-Up Cup");
}

}  // namespace
}  // namespace kvlr
