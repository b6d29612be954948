// The kvlr tool as a user runs it: output, words on stderr, exit codes; the athlete commands
// with the card's words; import, check and import-events.

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <tuple>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "../interchange/FileMaker.h"
#include "../interchange/OnlineFixtures.h"
#include "Command.h"
#include "Commands.h"
#include "interchange/MeetFileLines.h"
#include "store/ZipArchive.h"
#include "core/FileOps.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int code;
  std::string out;
  std::string err;
};

class Cli : public ::testing::Test {
 protected:
  Outcome Kvlr(std::vector<std::string> args, const std::string& input = "",
               bool terminal = false) {
    std::ostringstream out, err;
    std::istringstream in(input);
    args.insert(args.begin(), {"--home", t.Home().string()});
    CliEnvironment env{out, err, in, terminal, t.clock, t.disk, "%m/%d/%y", ""};
    int code = RunCli(args, env);
    return {code, out.str(), err.str()};
  }
  std::string Db(const std::string& name) { return (t.Data() / name).string(); }
  test::TempHome t;
};

TEST_F(Cli, NewDbMakesACompleteFileThatCheckDbListsAndRepairCompactsOrAsks) {
  Outcome made = Kvlr({"new-db", Db("family.mdb")});
  ASSERT_EQ(made.code, 0) << made.err;
  EXPECT_EQ(made.out, "Database\tTables\n" + Db("family.mdb") + "\t31\n");
  Outcome checked = Kvlr({"check-db", Db("family.mdb")});
  ASSERT_EQ(checked.code, 0) << checked.err;
  EXPECT_EQ(checked.out.substr(0, checked.out.find('\n')), "Table\tRows");
  EXPECT_NE(checked.out.find("\nOPTIONS\t1\n"), std::string::npos);
  Outcome repaired = Kvlr({"repair", Db("family.mdb")});
  ASSERT_EQ(repaired.code, 0) << repaired.err;
  EXPECT_EQ(repaired.out.rfind("Database\tBytes before\tBytes after\n", 0), 0u);
  EXPECT_NE(repaired.err.find("Database Optimization Completed."), std::string::npos);
  // A damaged file: the question is answered by a flag or a terminal, else the command stops.
  fs::resize_file(Db("family.mdb"), fs::file_size(Db("family.mdb")) / 2);
  const std::string damaged = ReadWholeFile(Db("family.mdb"));
  Outcome unanswered = Kvlr({"check-db", Db("family.mdb")});
  EXPECT_EQ(unanswered.code, 1);
  EXPECT_NE(unanswered.err.find("Attempt to Repair it?"), std::string::npos);
  EXPECT_NE(unanswered.err.find("--yes"), std::string::npos);
  EXPECT_EQ(Kvlr({"check-db", Db("family.mdb")}, "n\n", true).code, 1);
  EXPECT_EQ(Kvlr({"--no", "check-db", Db("family.mdb")}).code, 1);
  EXPECT_EQ(ReadWholeFile(Db("family.mdb")), damaged);
  Outcome fixed = Kvlr({"--yes", "check-db", Db("family.mdb")});
  EXPECT_EQ(fixed.code, 0) << fixed.err;
  EXPECT_NE(fixed.out.find("\nAthlete\t0\n"), std::string::npos);
}

TEST_F(Cli, RefusalsExitOneWithTheProgramsWordsMisuseExitsTwoAndHelpIsThere) {
  WriteFileAtomically(Db("junk.mdb"), std::string(3000, '?'));
  ASSERT_EQ(Kvlr({"new-db", Db("taken.mdb")}).code, 0);
  struct Case {
    std::vector<std::string> args;
    std::string words;
  };
  const Case cases[] = {
      {{"new-db", Db("family.txt")}, "Not a valid filename: family.txt"},
      {{"new-db", Db("O'Brien.mdb")}, "can not include quotes, apostrophes"},
      {{"new-db", Db("a-name-far-too-long-for-it.mdb")}, "can not be longer than 20 characters"},
      {{"new-db", Db("taken.mdb")}, "already exists"},
      {{"--no", "check-db", Db("junk.mdb")}, "Not a valid KVL-R Database."},
      {{"check-db", Db("gone.mdb")}, "That file no longer exists."},
      {{"new-db", Db(".mdb")}, "needs a name before \".mdb\""},
      {{"new-db", Db("tab\there.mdb")}, "can not hold tabs, line breaks"},
  };
  for (const auto& c : cases) {
    Outcome r = Kvlr(c.args);
    EXPECT_EQ(r.code, 1) << c.args[1];
    EXPECT_NE(r.err.find(c.words), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");
  }
  for (const char* command : {"new-db", "check-db", "repair", "time"}) {
    Outcome r = Kvlr({command, "--help"});
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out.rfind(std::string("Usage: kvlr ") + command, 0), 0u) << r.out;
  }
  EXPECT_NE(Kvlr({"--help"}).out.find("check-db"), std::string::npos);
  for (const auto& args : std::vector<std::vector<std::string>>{{},
                                                                {"fly"},
                                                                {"new-db"},
                                                                {"check-db", "a.mdb", "b.mdb"},
                                                                {"time"},
                                                                {"repair", "--fast", "x"}}) {
    EXPECT_EQ(Kvlr(args).code, 2) << (args.empty() ? "" : args[0]);
  }
}

TEST_F(Cli, TimeShowsEveryReadingInRowsThatEscapeWhatWouldBreakThem) {
  Outcome r = Kvlr({"time", "5123", "1:05.3", "X", "-", "7.99"});
  ASSERT_EQ(r.code, 0);
  EXPECT_EQ(r.out,
            "Text\tNormalized\tScore\tFormatted\tPadded\tScoreText\n"
            "5123\t00:51.23\t5123\t51.23\t   51.23\t   51.23\n"
            "1:05.3\t01:05.30\t6530\t1:05.30\t 1:05.30\t 1:05.30\n"
            "X\t\t0\t00.00\t   00.00\t\n"
            "-\t\t0\t00.00\t   00.00\t\n"
            "7.99\t00:07.99\t799\t07.99\t   07.99\tError\n");
  std::ostringstream out;
  cli::Row(out, {"a\tb", "c\\d", "e\r\nf", ""});
  EXPECT_EQ(out.str(), "a\\tb\tc\\\\d\te\\r\\nf\t\n");
  EXPECT_NE(Kvlr({"--help"}).out.find("a tab \\t"), std::string::npos);
}

// The athlete commands: a new database each, and a swimmer added with the card's checks.
class AthleteCommands : public Cli {
 protected:
  void SetUp() override { ASSERT_EQ(Kvlr({"new-db", db}).code, 0); }
  Outcome Add(const std::string& last, const std::string& first, const std::string& sex,
              std::vector<std::string> more = {}, const std::string& global = "") {
    std::vector<std::string> args = {"add-athlete", "--db", db,      "--last", last,
                                     "--first",     first,  "--sex", sex};
    args.insert(args.end(), more.begin(), more.end());
    if (!global.empty()) args.insert(args.begin(), global);
    return Kvlr(args);
  }
  std::string db = Db("family.mdb");
};

TEST_F(AthleteCommands, AddedSwimmersAreListedAndAFifthIsRefused) {
  Outcome added =
      Add("o'brien", "ADA", "f",
          {"--initial", "Q", "--pref", "Addie", "--birth", "2012-11-22", "--id", "A12"});
  ASSERT_EQ(added.code, 0) << added.err;
  EXPECT_EQ(added.out, "Athlete\n1\n");
  ASSERT_EQ(Add("Lane", "Bo", "M").code, 0);
  Outcome listed = Kvlr({"athletes", "--db", db});
  ASSERT_EQ(listed.code, 0) << listed.err;
  EXPECT_EQ(listed.out,
            "Athlete\tLast\tFirst\tInitial\tSex\tBirth\tAge\tPref\tID_NO\tActive\n"
            "2\tLane\tBo\t\tM\t\t\t\t\t1\n"
            "1\tO'Brien\tAda\tQ\tF\t2012-11-22\t14\tAddie\tA12\t1\n");
  for (const char* first : {"Cy", "Di"}) ASSERT_EQ(Add("Lane", first, "F").code, 0);
  Outcome fifth = Add("Lane", "Eve", "F");
  EXPECT_EQ(fifth.code, 1);
  EXPECT_EQ(fifth.err, "KVL-R allows a maximum of 4 Athletes.\n");
}

TEST_F(AthleteCommands, RefusalsUseTheCardsWordsAndMisuseExitsTwo) {
  ASSERT_EQ(Add("Lane", "Ada", "F").code, 0);
  struct Case {
    std::vector<std::string> args;
    std::string words;
  };
  const Case cases[] = {
      {{"LANE", "ada", "M"}, "Duplicate Names with different sexes are not allowed."},
      {{"Lane", "Ada", "F"}, "Do you want to save this swimmer's record as entered?"},
      {{"Lane", "Bo", "M", "--initial", "AB"}, "Initial can not be longer than 1 character.\n"},
      {{std::string(40, 'x'), "Bo", "M"}, "Last can not be longer than 20 characters.\n"},
      {{"Lane", "Bo", "M", "--birth", "1929-12-31"},
       "Please use the drop-down calendar to enter dates before 1930."},
      {{"Lane", "Bo", "M", "--birth", "2026-11-23"}, "The birth date can not be later than today."},
  };
  for (const auto& c : cases) {
    Outcome r = Add(c.args[0], c.args[1], c.args[2],
                    std::vector<std::string>(c.args.begin() + 3, c.args.end()));
    EXPECT_EQ(r.code, 1) << c.words;
    EXPECT_NE(r.err.find(c.words), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");
  }
  EXPECT_EQ(Add("Lane", "Ada", "F", {"--birth", "2012-13-01"}).code, 2);
  EXPECT_EQ(Add("Lane", "Ada", "F", {"--birth", "12/01/2012"}).code, 2);
  EXPECT_EQ(Add("Lane", "Ada", "X").code, 2);
  EXPECT_EQ(Kvlr({"add-athlete", "--db", db, "--first", "Ada", "--sex", "F"}).code, 2);
  EXPECT_EQ(Kvlr({"athletes"}).code, 2);
  EXPECT_EQ(Kvlr({"athletes", "--db", db, db}).code, 2);
  EXPECT_EQ(Kvlr({"athletes", "--db", (t.Data() / "gone.mdb").string()}).code, 1);
}

TEST_F(AthleteCommands, TheDuplicateQuestionIsAnsweredByYesOrNo) {
  ASSERT_EQ(Add("Lane", "Ada", "F").code, 0);
  EXPECT_EQ(Add("Lane", "Ada", "F", {}, "--yes").out, "Athlete\n2\n");
  // No merges into the swimmer on file: its key comes back, nothing is added.
  EXPECT_EQ(Add("Lane", "Ada", "F", {"--pref", "Addie"}, "--no").out, "Athlete\n1\n");
  Outcome listed = Kvlr({"athletes", "--db", db});
  EXPECT_NE(listed.out.find("\tAddie\t"), std::string::npos);
  EXPECT_EQ(std::count(listed.out.begin(), listed.out.end(), '\n'), 3);
}

// A family's season through the tool: swimmers, a meet and its swims, best times, a standard.
TEST_F(Cli, ASeasonThroughTheTool) {
  const std::string db = Db("family.mdb");
  ASSERT_EQ(Kvlr({"new-db", db}).code, 0);
  Outcome added = Kvlr({"add-athlete", "--db", db, "--last", "O'Brien", "--first", "Maeve", "--sex",
                        "F", "--birth", "2014-03-09"});
  ASSERT_EQ(added.code, 0) << added.err;
  ASSERT_EQ(added.out.rfind("Athlete\n", 0), 0u) << added.out;
  const std::string athlete = added.out.substr(8, added.out.size() - 9);
  {
    SQLite::Database file(db, SQLite::OPEN_READWRITE);
    // A back race swum twice, and one long free race in two courses: 500 yards, 400 metres.
    file.exec(
        "INSERT INTO MEET (Meet, MName, Start, \"End\", Course, Type) VALUES "
        "(1, 'Harbor Winter Classic', '2026-12-05', '2026-12-06', 'Y', 'AG'), "
        "(2, 'Lakeside Long Course', '2027-01-09', '2027-01-10', 'L', 'AG')");
    file.exec(
        "INSERT INTO MTEVENT (Meet, MtEv, Lo_Hi, Course, MtEvent, Distance, Stroke, Sex, "
        "I_R) VALUES (1, 3, 1112, 'Y', 30, 100, 2, 'F', 'I')");
    SQLite::Statement swim(file,
                           "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, MTEVENT, "
                           "DISTANCE, STROKE, COURSE, AGE) VALUES (?, ?, 'I', ?, ?, 0, ?, ?, ?, "
                           "?, 12)");
    for (const auto& [meet, score, round, event, distance, stroke, course] :
         {std::tuple{1, 6512, "P", 30, 100, 2, "Y"}, std::tuple{1, 6398, "F", 30, 100, 2, "Y"},
          std::tuple{1, 33000, "F", 31, 500, 1, "Y"}, std::tuple{2, 28000, "F", 40, 400, 1, "L"}}) {
      swim.reset();
      SQLite::bind(swim, meet, std::stoi(athlete), score, round, event, distance, stroke, course);
      swim.exec();
    }
  }
  EXPECT_EQ(Kvlr({"rank", "--db", db}).code, 0);
  Outcome meets = Kvlr({"meets", "--db", db});
  ASSERT_EQ(meets.code, 0) << meets.err;
  EXPECT_NE(meets.out.find("Harbor Winter Classic\t2026-12-05\t2026-12-06\tY\tAG"),
            std::string::npos)
      << meets.out;
  Outcome results = Kvlr({"results", "--db", db, "--athlete", athlete, "--convert", "L"});
  ASSERT_EQ(results.code, 0) << results.err;
  EXPECT_NE(results.out.find("1:03.98"), std::string::npos) << results.out;
  EXPECT_NE(results.out.find("1:05.12"), std::string::npos) << results.out;
  EXPECT_NE(results.out.find("\t2026-12-05\t"), std::string::npos) << results.out;
  // Each event once, under the distance of the course asked for.
  for (auto [course, listed, other] : {std::tuple{"Y", "500\tFree\t", "400\tFree\t"},
                                       std::tuple{"L", "400\tFree\t", "500\tFree\t"}}) {
    Outcome best = Kvlr({"best", "--db", db, "--athlete", athlete, "--course", course});
    ASSERT_EQ(best.code, 0) << best.err;
    EXPECT_NE(best.out.find(std::string("\n") + listed), std::string::npos) << best.out;
    EXPECT_EQ(best.out.find(std::string("\n") + listed), best.out.rfind(std::string("\n") + listed))
        << best.out;
    EXPECT_EQ(best.out.find(std::string("\n") + other), std::string::npos) << best.out;
    if (std::string(course) == "Y") {
      EXPECT_NE(best.out.find("100\tBack\t1:03.98Y\tY\tHarbor Winter Classic"), std::string::npos)
          << best.out;
    }
  }
  Outcome by_word = Kvlr(
      {"convert", "--distance", "100", "--stroke", "back", "--from", "Y", "--to", "L", "1:03.98"});
  ASSERT_EQ(by_word.code, 0) << by_word.err;
  EXPECT_EQ(by_word.out, Kvlr({"convert", "--distance", "100", "--stroke", "2", "--from", "Y",
                               "--to", "L", "1:03.98"})
                             .out);
  // Headers name each column once; dates read YYYY-MM-DD.
  const Outcome backup = Kvlr({"--yes", "backup", "--db", db, "--to", t.Data().string()});
  ASSERT_EQ(backup.code, 0) << backup.err;
  const fs::path zip = [&] {
    for (const auto& e : fs::directory_iterator(t.Data())) {
      if (e.path().extension() == ".zip") return e.path();
    }
    return fs::path();
  }();
  fs::create_directory(t.Data() / "restored");
  const Outcome restored =
      Kvlr({"--yes", "restore", zip.string(), "--to", (t.Data() / "restored").string()});
  ASSERT_EQ(restored.code, 0) << restored.err;
  EXPECT_TRUE(
      std::regex_search(restored.out, std::regex("\t\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\t")))
      << restored.out;
  for (const Outcome& o : {results, restored, Kvlr({"athletes", "--db", db})}) {
    const std::string head = o.out.substr(0, o.out.find('\n'));
    std::set<std::string> names;
    size_t count = 0;
    for (size_t at = 0; at <= head.size(); ++count) {
      const size_t tab = std::min(head.find('\t', at), head.size());
      names.insert(head.substr(at, tab - at));
      at = tab + 1;
    }
    EXPECT_EQ(names.size(), count) << head;
  }
  // A standard goes out and comes back the same. An export never writes over a database or
  // a foreign file, and replaces its own kind only when told to.
  const std::string csv = Db("girls.csv"), again = Db("again.csv");
  WriteFileAtomically(csv,
                      "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke,A Y Faster,A Y Slower,A S Faster,"
                      "A S Slower,A L Faster,A L Slower\n"
                      "F,I,11,12,100,2,1:10.00,1:04.00,,,,\n");
  Outcome imported = Kvlr({"standard-import", "--db", db, "GIRLS", csv});
  ASSERT_EQ(imported.code, 0) << imported.err;
  ASSERT_EQ(Kvlr({"standard-export", "--db", db, "GIRLS", again}).code, 0);
  EXPECT_NE(ReadWholeFile(again).find("F,I,11,12,100,2,1:10.00,1:04.00"), std::string::npos)
      << ReadWholeFile(again);
  const std::string database = ReadWholeFile(db);
  Outcome over_db = Kvlr({"--yes", "standard-export", "--db", db, "GIRLS", db});
  EXPECT_EQ(over_db.code, 1);
  EXPECT_EQ(over_db.err, db + " is a database, not a CSV file; choose another name.\n");
  EXPECT_EQ(ReadWholeFile(db), database);
  WriteFileAtomically(Db("notes.txt"), "notes");
  EXPECT_EQ(Kvlr({"standard-export", "--db", db, "GIRLS", Db("notes.txt"), "--yes"}).code, 1);
  EXPECT_EQ(ReadWholeFile(Db("notes.txt")), "notes");
  WriteFileAtomically(again, "old");
  Outcome unanswered = Kvlr({"standard-export", "--db", db, "GIRLS", again});
  EXPECT_EQ(unanswered.code, 1);
  EXPECT_NE(unanswered.err.find(again + " already exists. Do you want to replace it?"),
            std::string::npos);
  EXPECT_EQ(Kvlr({"standard-export", "--db", db, "GIRLS", again, "--no"}).code, 1);
  EXPECT_EQ(ReadWholeFile(again), "old");
  EXPECT_EQ(Kvlr({"standard-export", "--db", db, "GIRLS", again, "--yes"}).code, 0);
  EXPECT_NE(ReadWholeFile(again).find("F,I,11,12,100,2,1:10.00"), std::string::npos);
  WriteFileAtomically(csv, "Sex,I_R\nF\n");
  EXPECT_EQ(Kvlr({"standard-import", "--db", db, "BAD", csv}).code, 1);
}

// kvlr import, check and import-events on made-up files: what the tool adds to the import,
// the certification and the event files, which have tests of their own.
class FileCommands : public Cli {
 protected:
  std::string File(const std::string& name, const std::string& text) {
    const auto path = t.Data() / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
  }
  Outcome Check(const std::string& name, const std::string& text) {
    return Kvlr({"check", File(name, text)});
  }
  long long Results() {
    return SQLite::Database(db).execAndGet("SELECT COUNT(*) FROM RESULT").getInt64();
  }
  std::string db = Db("family.mdb");
};

class ImportCli : public FileCommands {
 protected:
  void SetUp() override {
    ASSERT_EQ(Kvlr({"new-db", db}).code, 0);
    ASSERT_EQ(
        Kvlr({"add-athlete", "--db", db, "--last", "Doe", "--first", "Jane", "--sex", "F"}).code,
        0);
  }
};

TEST_F(ImportCli, ImportsOnceThenListsTheRefusedLines) {
  testing::SdifFile meet;
  meet.Swim().Swim({{"swimmer_name", "ROE, ANN"}});
  const std::string file = File("meet.cl2", meet.Text());
  const Outcome first = Kvlr({"import", file, "--db", db});
  ASSERT_EQ(first.code, 0) << first.err;
  EXPECT_NE(first.out.find("Individual Results\t2\t1\n"), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("\nImport Successful\n"), std::string::npos);
  EXPECT_EQ(first.out.find("Not all data was imported."), std::string::npos);
  const Outcome again = Kvlr({"import", file, "--db", db});
  EXPECT_NE(again.out.find("Not all data was imported.\nReason"), std::string::npos) << again.out;
  EXPECT_NE(again.out.find("\n1\tAutumn Made-Up Invite\tDOE\tJANE\t"), std::string::npos);
}

TEST_F(ImportCli, ARosterFileFillsTheSwimmersCardAndSaysHowMany) {
  testing::SdifFile roster;
  roster.A0("file_code=20|source_code=CS|software_version=2.0|content_code=43");
  roster.Line("D1", "swimmer_name=DOE, JANE A|sex=F|birth=01022014|day_phone=555-0101");
  const Outcome out = Kvlr({"import", File("roster.cl2", roster.Text()), "--db", db});
  ASSERT_EQ(out.code, 0) << out.err;
  EXPECT_NE(out.err.find("1 Athletes Imported\n"), std::string::npos) << out.err;
}

TEST_F(ImportCli, QuestionsNeedAnAnswerAndSeveralSwimmersAName) {
  testing::SdifFile meet;
  meet.Swim();
  ASSERT_EQ(Kvlr({"import", File("a.cl2", meet.Text()), "--db", db}).code, 0);
  testing::SdifFile renamed;
  renamed.Meet({{"meet_name", "Made-Up Other Name"}}).Swim();
  const std::string other = File("b.cl2", renamed.Text());
  const Outcome unanswered = Kvlr({"import", other, "--db", db});
  EXPECT_EQ(unanswered.code, 1);
  EXPECT_NE(unanswered.err.find("as the same meet?"), std::string::npos) << unanswered.err;
  EXPECT_EQ(Kvlr({"import", other, "--db", db, "--no"}).code, 0);
  ASSERT_EQ(
      Kvlr({"add-athlete", "--db", db, "--last", "Doe", "--first", "Ann", "--sex", "F"}).code, 0);
  const Outcome unnamed = Kvlr({"import", other, "--db", db, "--yes"});
  EXPECT_EQ(unnamed.code, 1);
  EXPECT_NE(unnamed.err.find("name one with --athlete"), std::string::npos);
  EXPECT_EQ(Kvlr({"import", other, "--db", db, "--athlete", "2", "--yes"}).code, 0);
}

TEST_F(ImportCli, AFileWithoutItsEndRecordIsImportedOnlyWhenTheUserSaysSo) {
  std::vector<std::string> lines = testing::SdifFile(false).Swim().Lines();
  lines.pop_back();  // the Z0
  const std::string file = File("cut.sd3", testing::FileText(lines));
  const std::string warning =
      "cut.sd3 has no end record (Z0): the file may be incomplete, for example a download cut "
      "short.";
  const Outcome unanswered = Kvlr({"import", file, "--db", db});
  EXPECT_EQ(unanswered.code, 1);
  EXPECT_NE(unanswered.err.find(warning + "\nDo you want to import what it holds?\n"),
            std::string::npos)
      << unanswered.err;
  const Outcome no = Kvlr({"import", file, "--db", db, "--no"});
  EXPECT_EQ(no.code, 1);
  EXPECT_EQ(no.err, warning + "\n");
  EXPECT_EQ(Results(), 0);
  const Outcome yes = Kvlr({"import", file, "--db", db, "--yes"});
  EXPECT_EQ(yes.code, 0) << yes.err;
  EXPECT_NE(yes.out.find("\nImport Successful\n"), std::string::npos);
  EXPECT_EQ(Results(), 1);
}

TEST_F(ImportCli, Latin1TextIsStoredAsUtf8) {
  testing::SdifFile meet;
  meet.Meet({{"meet_name", "Zo\xEB's Made-Up Cup"}}).Swim();
  const Outcome r = Kvlr({"import", File("meet.cl2", meet.Text()), "--db", db});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(SQLite::Database(db).execAndGet("SELECT MName FROM MEET").getString(),
            "Zo\xC3\xAB's Made-Up Cup");
}

TEST_F(FileCommands, AGoodFilePrintsItsPanelCountsAndStatus) {
  testing::SdifFile file;
  file.Swim().Swim({{"swimmer_name", "ROE, ANN"}}).Relay();
  // Whatever follows the Z0 line is never read, not even for its length.
  const Outcome r = Check("meet.cl2", file.Text() + "junk behind the end\r\n");
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out,
            "Statistic\tValue\n"
            "File Name:\tmeet.cl2\n"
            "Created by:\tNorvan, Ltd 1.0\n"
            "File Type:\tMeet Results\n"
            "Meet Name:\tAutumn Made-Up Invite\n"
            "Start Date:\t2026-11-01\n"
            "Meets\t1\n"
            "Teams\t1\n"
            "Individual Results\t2\n"
            "Relay Results\t1\n"
            "Splits\t0\n"
            "Import File Checked - Click OK to Format Report   A Relay Report will also be "
            "Printed.\n");
  EXPECT_EQ(r.err, "");
}

TEST_F(FileCommands, ARefusedFileShowsTheBoxAndExitsOne) {
  const Outcome r = Check("meet.sd3", testing::SdifFile(false).Swim({{"sex", "Q"}}).Text());
  EXPECT_EQ(r.code, 1);
  EXPECT_NE(r.out.find("Individual Results\t0\n"), std::string::npos) << r.out;
  EXPECT_NE(r.err.find("error: This file did not pass the initial SDIF certification check"),
            std::string::npos)
      << r.err;
  EXPECT_NE(r.err.find("Error Checking Import File"), std::string::npos);
}

TEST_F(FileCommands, CutShortHugeAndCrOnlyFiles) {
  std::vector<std::string> lines = testing::SdifFile().Swim().Lines();
  lines.pop_back();  // a download cut short right before its Z0
  const Outcome cut = Check("cut.cl2", testing::FileText(lines));
  EXPECT_EQ(cut.code, 1);
  EXPECT_NE(cut.out.find("Individual Results\t1\n"), std::string::npos) << cut.out;
  EXPECT_EQ(cut.err,
            "cut.cl2 has no end record (Z0): the file may be incomplete, for example a download "
            "cut short.\n");
  // Lines ended by a lone CR read as any others.
  std::string cr_only;
  for (const auto& line : testing::SdifFile().Swim().Lines()) cr_only += line + "\r";
  const Outcome cr = Check("cr.cl2", cr_only);
  EXPECT_EQ(cr.code, 0) << cr.err;
  EXPECT_NE(cr.out.find("Individual Results\t1\n"), std::string::npos) << cr.out;
  // Refused by its size, unread (the sparse file takes no room on disk).
  const fs::path huge = t.Data() / "huge.cl2";
  std::ofstream(huge, std::ios::binary) << testing::SdifFile().Text();
  fs::resize_file(huge, kMaxMeetFileBytes + 1);
  const Outcome big = Kvlr({"check", huge.string()});
  EXPECT_EQ(big.code, 1);
  EXPECT_EQ(big.err,
            "huge.cl2 is larger than 100 MB; a meet file is never that large, so it was not "
            "read.\n");
}

TEST_F(FileCommands, ImportEventsTakesEveryEventFileOfAZipOnce) {
  ASSERT_EQ(Kvlr({"new-db", db}).code, 0);
  const fs::path a = t.Data() / "a.nvv";
  const fs::path b = t.Data() / "b.nvv";
  test::WriteLines(a, {test::NvvMeetLine("Alpha Meet", "12/05/2026"), "1;50;1;I;0;10;F"});
  test::WriteLines(
      b, {test::NvvMeetLine("Beta Meet", "12/12/2026"), "1;50;1;I;0;10;F", "2;50;2;I;0;10;F"});
  const fs::path zip = t.Data() / "events.zip";
  ZipArchive::Create(zip, {{"b.nvv", b}, {"a.nvv", a}}, "", 6);
  const Outcome first = Kvlr({"import-events", "--db", db, zip.string()});
  EXPECT_EQ(first.code, 0) << first.err;
  EXPECT_EQ(first.out,
            "File\tMeet\tMName\tEvents\na.nvv\t1\tAlpha Meet\t1\nb.nvv\t2\tBeta Meet\t2\n");
  // Again: both are refused with the existing meet's words.
  const Outcome again = Kvlr({"import-events", "--db", db, zip.string()});
  EXPECT_EQ(again.code, 1);
  EXPECT_NE(again.err.find("named: Beta Meet"), std::string::npos) << again.err;
  const Outcome wrong = Kvlr({"import-events", "--db", db, (t.Data() / "a.nv3").string()});
  EXPECT_EQ(wrong.code, 1);
  EXPECT_NE(wrong.err.find("a.nv3Not a valid filename"), std::string::npos) << wrong.err;
}

}  // namespace
}  // namespace kvlr
