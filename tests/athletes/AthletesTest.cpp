// The athlete records without screens: the card's save and its words, the list, removal,
// merge, recruiting profile, team record, pictures and the card's typed times.

#include <gtest/gtest.h>

#include <filesystem>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "athletes/AthleteCard.h"
#include "athletes/AthleteList.h"
#include "athletes/AthleteRemoval.h"
#include "athletes/BackgroundPicture.h"
#include "athletes/CardTimes.h"
#include "athletes/CurrentAthlete.h"
#include "athletes/Recruiting.h"
#include "athletes/Siblings.h"
#include "athletes/Team.h"
#include "core/FileOps.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

class Athletes : public test::DbTest {
 protected:
  int32_t Insert(const std::string& last, const std::string& first, const std::string& sex,
                 const std::string& birth = "", int team = 0) {
    return test::AddAthlete(Db(), last, first, sex, birth, team);
  }
  void Result(int32_t athlete, const std::string& i_r, int meet = 1) {
    SQLite::Statement s(Db(),
                        "INSERT INTO RESULT (MEET, ATHLETE, I_R, MTEVENT, F_P, SCORE) "
                        "VALUES (?, ?, ?, 1, 'F', 6000)");
    SQLite::bind(s, meet, athlete, i_r);
    s.exec();
  }
  void Entry(int32_t athlete, const std::string& i_r) {
    SQLite::Statement s(Db(),
                        "INSERT INTO ENTRY (Meet, Athlete, I_R, MtEvent) VALUES (1, ?, ?, 1)");
    SQLite::bind(s, athlete, i_r);
    s.exec();
  }
  std::string Text(const std::string& sql, int32_t key) {
    SQLite::Statement s(Db(), sql);
    s.bind(1, key);
    if (!s.executeStep() || s.getColumn(0).isNull()) return "<null>";
    return s.getColumn(0).getString();
  }
  AthleteCard Card(const std::string& last, const std::string& first, const std::string& sex) {
    AthleteCard card = NewAthleteCard(t.state);
    card.last = last;
    card.first = first;
    card.sex = sex;
    return card;
  }
};

TEST_F(Athletes, SetCurrentAthleteFillsTheStateFromTheRow) {
  const int32_t ada = Insert(" Lane ", " Ada ", "F", "2012-11-23");
  // Blanks around the names and a blank initial leave no gap in the name.
  Db().exec(
      "UPDATE Athlete SET Pref = ' Addie ', Initial = ' ', StartMeet = '1899-12-30 07:00:00'");
  ASSERT_TRUE(SetCurrentAthlete(t.state, ada));
  const AppState& s = t.state;
  EXPECT_EQ(std::tie(s.gAthlete, s.gAthleteName, s.gAthleteFirst, s.gAthleteLast, s.gAthletePref,
                     s.gAthleteSex),
            std::make_tuple(ada, "Addie Lane", "ADA", "LANE", "ADDIE", "F"));
  // The birthday is tomorrow.
  EXPECT_EQ(std::tie(s.gAthleteBirth, s.gAthleteAge, s.gMeetBandStart, s.gMeetBandEnd),
            std::make_tuple(Date{2012, 11, 23}, 13, Date{1899, 12, 30}, kNullDate));
  EXPECT_FALSE(SetCurrentAthlete(t.state, 999));
  EXPECT_EQ(t.state.gAthlete, ada);
  // Born today is 0; without a birth date there is no age.
  for (const char* birth : {"2026-11-22", ""}) {
    ASSERT_TRUE(SetCurrentAthlete(t.state, Insert("Lane", "Bo", "F", birth)));
    EXPECT_EQ(t.state.gAthleteAge, 0) << birth;
  }
  EXPECT_EQ(t.state.gAthleteBirth, kNullDate);
}

TEST_F(Athletes, FirstNameAndSexAreRequiredInThatOrderAndTextsFitTheirFields) {
  struct Case {
    const char *first, *sex;
    std::string_view words;
    CardField focus;
  };
  const Case cases[] = {
      {"  ", "", "You must enter a First Name.", CardField::kFirst},
      {"", "M", "You must enter a First Name.", CardField::kFirst},
      {"Ada", "", "You must select the gender of the athlete.", CardField::kSex},
      {"Ada", "X", "You must select the gender of the athlete.", CardField::kSex}};
  for (const auto& c : cases) {
    AthleteCard card = Card("Lane", c.first, c.sex);
    const SaveOutcome outcome = SaveAthlete(t.state, card);
    EXPECT_EQ(outcome.status, SaveStatus::kRefused);
    EXPECT_EQ(outcome.focus, c.focus);
    EXPECT_EQ(LastShown(), c.words);
  }
  EXPECT_EQ(AthleteRowCount(Db()), 0);
  t.io.shown.clear();
  AthleteCard card = Card("Lane", "Ada", "F");
  card.info["State"] = "ABCD";
  SaveOutcome outcome = SaveAthlete(t.state, card);
  EXPECT_EQ(outcome.status, SaveStatus::kRefused);
  EXPECT_EQ(card.athlete, 0);
  EXPECT_EQ(AthleteRowCount(Db()), 0);
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].text, "State can not be longer than 3 characters.");
  // Counted in characters as the store counts them, after the card trims the names.
  card.info["State"] = "";
  card.last = "  \xC3\x89" + std::string(19, 'e') + "  ";
  EXPECT_EQ(SaveAthlete(t.state, card).status, SaveStatus::kSaved);
  card = Card("Lane", "Ada", "F");
  card.last = std::string(21, 'e');
  outcome = SaveAthlete(t.state, card);
  EXPECT_EQ(outcome.status, SaveStatus::kRefused);
  EXPECT_EQ(outcome.focus, CardField::kLast);
  EXPECT_EQ(t.io.shown.back().text, "Last can not be longer than 20 characters.");
}

TEST_F(Athletes, SavingWritesTrimmedNamesBothRowsAndMakesTheSwimmerCurrent) {
  AthleteCard card = Card(" o'brien ", " Ada ", "f");
  card.initial = " q ";
  card.pref = "  ";
  card.id_no = "A12";
  card.birth = Date{2012, 3, 4};
  card.info["Addr"] = "12 Pool Road\r\n";
  card.info["MedCondition"] = "asthma\r\nmild";
  card.times["StartSwim"] = "07:30 PM";
  ASSERT_EQ(SaveAthlete(t.state, card).status, SaveStatus::kSaved);
  ASSERT_GT(card.athlete, 0);
  EXPECT_EQ(
      Text("SELECT Last || '|' || First || '|' || Initial || '|' || Pref || '|' || Sex || '|' "
           "|| ID_NO || '|' || Birth FROM Athlete WHERE Athlete = ?",
           card.athlete),
      "o'brien|Ada|q||F|A12|2012-03-04");
  EXPECT_EQ(Text("SELECT StartSwim FROM Athlete WHERE Athlete = ?", card.athlete),
            "1899-12-30 19:30:00");
  EXPECT_EQ(Text("SELECT Addr FROM AthInfo WHERE Athlete = ?", card.athlete), "12 Pool Road");
  EXPECT_EQ(Text("SELECT MedCondition FROM AthInfo WHERE Athlete = ?", card.athlete), "asthmamild");
  EXPECT_EQ(t.state.gAthlete, card.athlete);
  EXPECT_EQ(t.state.gAthleteName, "Ada q o'brien");
  // Edit: no birth date stores none; the AthInfo row is edited, not doubled.
  card.birth.reset();
  card.info["City"] = "Springfield";
  ASSERT_EQ(SaveAthlete(t.state, card).status, SaveStatus::kSaved);
  EXPECT_EQ(Text("SELECT Birth FROM Athlete WHERE Athlete = ?", card.athlete), "<null>");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM AthInfo"), 1);
  const auto loaded = LoadAthleteCard(t.state, card.athlete);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->Info("City"), "Springfield");
  EXPECT_EQ(loaded->times.at("StartSwim"), "19:30");
  EXPECT_EQ(loaded->times.at("StartTimeDay"), "07:00");  // the default range, saved
  EXPECT_FALSE(LoadAthleteCard(t.state, 999));
  // A swimmer without an AthInfo row still opens and gains the row.
  const int32_t bo = Insert("Lane", "Bo", "M");
  auto other = LoadAthleteCard(t.state, bo);
  ASSERT_TRUE(other);
  EXPECT_EQ(other->Info("Addr"), "");
  ASSERT_EQ(SaveAthlete(t.state, *other).status, SaveStatus::kSaved);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM AthInfo WHERE Athlete = ?", bo), 1);
}

TEST_F(Athletes, SameNameInAnyCaseAsksTheThreeWayQuestion) {
  const int32_t on_file = Insert("O'Brien", "Ada", "F");
  Db().exec("INSERT INTO AthInfo (Athlete, City, Addr) VALUES (1, 'Springfield', 'Old Road')");
  t.io.Script({Answer::kCancel});
  AthleteCard card = Card(" O'BRIEN", "ada ", "F");
  EXPECT_EQ(SaveAthlete(t.state, card).status, SaveStatus::kRefused);
  const auto& asked = t.io.shown.back();
  EXPECT_EQ(asked.title, "Duplicate Name Found");
  EXPECT_EQ(box::Buttons(asked.style), box::kYesNoCancel);
  EXPECT_EQ(asked.text,
            "Warning: you already have a swimmer on file with that name.\r\n\r\n"
            "You have three options:\r\nSelect 'Yes' to save the record as entered.\r\n"
            "Select 'No' to merge with other swimmer on file.\r\n"
            "Select 'Cancel' to return to editing this record.\r\n\r\n"
            "Do you want to save this swimmer's record as entered?");
  EXPECT_EQ(AthleteRowCount(Db()), 1);
  // No: the card becomes the swimmer on file; what was typed wins, the rest is kept.
  t.io.Script({Answer::kNo});
  card.pref = "Addie";
  card.info["Addr"] = "New Road";
  ASSERT_EQ(SaveAthlete(t.state, card).status, SaveStatus::kSaved);
  EXPECT_EQ(card.athlete, on_file);
  EXPECT_EQ(AthleteRowCount(Db()), 1);
  EXPECT_EQ(Text("SELECT Pref FROM Athlete WHERE Athlete = ?", on_file), "Addie");
  EXPECT_EQ(Text("SELECT Addr FROM AthInfo WHERE Athlete = ?", on_file), "New Road");
  EXPECT_EQ(Text("SELECT City FROM AthInfo WHERE Athlete = ?", on_file), "Springfield");
  // Yes: saved as entered, a second swimmer of that name.
  t.io.Script({Answer::kYes});
  AthleteCard twin = Card("O'Brien", "Ada", "F");
  ASSERT_EQ(SaveAthlete(t.state, twin).status, SaveStatus::kSaved);
  EXPECT_NE(twin.athlete, on_file);
  EXPECT_EQ(AthleteRowCount(Db()), 2);
}

TEST_F(Athletes, SameNameRefusalsOtherwise) {
  Insert("Lane", "Ada", "F");
  Insert("Lane", "Cy", "M", "", 7);
  const int32_t bo = Insert("Lane", "Bo", "F");
  const std::string same = "An Athlete with the same name is on file.  \r\n";
  struct Case {
    const char* what;
    int32_t athlete;
    const char *first, *sex;
    std::string words;
  };
  const Case cases[] = {
      {"add, other sex", 0, "ADA", "M",
       same + "Duplicate Names with different sexes are not allowed."},
      {"add, other team", 0, "cy", "M", same + "Cannot add dupicate Athlete names."},
      {"edit onto another's name", bo, "Ada", "F", same + "Cannot add dupicate Athlete names."},
      {"edit onto another's name, other sex", bo, "Cy", "F",
       same + "Duplicate Names with different sexes are not allowed."},
  };
  for (const auto& c : cases) {
    AthleteCard card = Card("Lane", c.first, c.sex);
    card.athlete = c.athlete;
    const size_t before = t.io.shown.size();
    EXPECT_EQ(SaveAthlete(t.state, card).status, SaveStatus::kRefused) << c.what;
    ASSERT_EQ(t.io.shown.size(), before + 1) << c.what;
    EXPECT_EQ(LastShown(), c.words) << c.what;
  }
  // Saving a swimmer under its own name is no duplicate.
  AthleteCard own = *LoadAthleteCard(t.state, bo);
  EXPECT_EQ(SaveAthlete(t.state, own).status, SaveStatus::kSaved);
}

TEST_F(Athletes, SexChangeIsRefusedOnlyWithIndividualResults) {
  const int32_t solo = Insert("Lane", "Ada", "F");
  const int32_t relay = Insert("Lane", "Bo", "F");
  Result(solo, "I");
  Result(relay, "R");
  Result(relay, "N", 2);
  AthleteCard card = *LoadAthleteCard(t.state, solo);
  card.sex = "M";
  const SaveOutcome refused = SaveAthlete(t.state, card);
  EXPECT_EQ(refused.status, SaveStatus::kRefused);
  EXPECT_EQ(refused.focus, CardField::kSex);
  EXPECT_EQ(LastShown(),
            "This athlete has individual results on file.  \r\n"
            "This athlete's sex cannot be changed while this is true.");
  EXPECT_EQ(card.sex, "F");
  EXPECT_EQ(Text("SELECT Sex FROM Athlete WHERE Athlete = ?", solo), "F");
  AthleteCard other = *LoadAthleteCard(t.state, relay);
  other.sex = "M";
  EXPECT_EQ(SaveAthlete(t.state, other).status, SaveStatus::kSaved);
  EXPECT_EQ(Text("SELECT Sex FROM Athlete WHERE Athlete = ?", relay), "M");
}

TEST_F(Athletes, ListOrderAndColumns) {
  Insert("Lane", "Bo", "M", "2010-05-01");
  Insert("Abel", "Cy", "M", "2014-01-09");
  Insert("Lane", "Ada", "F");
  Db().exec("INSERT INTO Athlete (Athlete, Last, First) VALUES (0, 'Zero', 'Row')");
  Db().exec("UPDATE Athlete SET Inactive = 1 WHERE First = 'Bo'");
  auto names = [](const std::vector<AthleteListRow>& rows) {
    std::string out;
    for (const auto& r : rows) out += r.first + " ";
    return out;
  };
  EXPECT_EQ(names(ListAthletes(Db())), "Cy Ada Bo ");
  EXPECT_EQ(names(ListAthletes(Db(), ListColumn::kAge)), "Cy Bo Ada ");  // no birth last
  EXPECT_EQ(names(ListAthletes(Db(), ListColumn::kAge, true)), "Bo Cy Ada ");
  EXPECT_EQ(names(ListAthletes(Db(), ListColumn::kActive)), "Cy Ada Bo ");
  EXPECT_EQ(names(ListAthletes(Db(), ListColumn::kActive, true)), "Bo Cy Ada ");
  EXPECT_EQ(names(ListAthletes(Db(), ListColumn::kFirst, true)), "Cy Bo Ada ");
  const auto rows = ListAthletes(Db());
  EXPECT_FALSE(rows[2].active);
  EXPECT_EQ(ListAge(rows[0], t.clock.Today()), 12);
  EXPECT_EQ(ListAge(rows[1], t.clock.Today()), std::nullopt);
  EXPECT_EQ(ListName(rows[0]), "Abel, Cy ");
  SetAthleteActive(Db(), rows[2].athlete, true);
  EXPECT_TRUE(ListAthletes(Db())[2].active);
}

class Removal : public Athletes {
 protected:
  void SetUp() override {
    Athletes::SetUp();
    ada = Insert("Lane", "Ada", "F");
    bo = Insert("Lane", "Bo", "F");
    for (const char* i_r : {"I", "L", "N", "R"}) Result(ada, i_r);
    Result(bo, "I", 2);
    for (const char* i_r : {"I", "E", "R"}) Entry(ada, i_r);
    Db().exec("INSERT INTO ATHRECR (Athlete, HS_Name) VALUES (1, 'North High')");
    Db().exec("INSERT INTO AthInfo (Athlete, Addr) VALUES (1, 'Pool Road'), (2, 'Lane End')");
    Db().exec("INSERT INTO WkParam (group_abbr) VALUES ('1'), ('2')");
    Db().exec("INSERT INTO Workout (wk_ptr, wk_line) VALUES (1, 1), (1, 2), (2, 1)");
  }
  std::string IrOf(const std::string& table, int32_t athlete) {
    SQLite::Statement s(Db(), "SELECT I_R FROM " + table + " WHERE Athlete = ? ORDER BY I_R");
    s.bind(1, athlete);
    std::string out;
    while (s.executeStep()) out += s.getColumn(0).getString();
    return out;
  }
  int32_t ada = 0;
  int32_t bo = 0;
};

// Removal keeps relay rows, touches nobody else and clears the current swimmer.
TEST_F(Removal, DeleteAsksThenRemovesOnlyTheSwimmersOwnRows) {
  Db().exec("UPDATE Athlete SET Initial = 'Q' WHERE Athlete = 1");
  ASSERT_TRUE(SetCurrentAthlete(t.state, ada));
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(DeleteOneAthlete(t.state, ada));
  EXPECT_EQ(t.io.shown.back().title, "Remove Athlete");
  EXPECT_EQ(LastShown(), "Do you still want to remove: \r\n\r\nLane, Ada Q?");
  EXPECT_EQ(AthleteRowCount(Db()), 2);
  EXPECT_TRUE(DeleteOneAthlete(t.state, bo));
  EXPECT_EQ(t.state.gAthlete, ada);
  EXPECT_EQ(IrOf("RESULT", bo), "");
  EXPECT_EQ(IrOf("RESULT", ada), "ILNR");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM AthInfo WHERE Athlete = ?", ada), 1);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM Workout"), 2);
  EXPECT_TRUE(DeleteOneAthlete(t.state, ada));
  EXPECT_EQ(t.state.gAthlete, 0);
  EXPECT_EQ(t.state.gAthleteName, "");
  EXPECT_EQ(AthleteRowCount(Db()), 0);
  EXPECT_EQ(IrOf("RESULT", ada), "NR");
  EXPECT_EQ(IrOf("ENTRY", ada), "R");
  EXPECT_EQ(Count("SELECT (SELECT COUNT(*) FROM ATHRECR) + (SELECT COUNT(*) FROM AthInfo) + "
                  "(SELECT COUNT(*) FROM WkParam) + (SELECT COUNT(*) FROM Workout)"),
            0);
}

TEST_F(Removal, MergeMovesResultsAndEntriesThenRemovesTheSource) {
  ASSERT_TRUE(MergeAthlete(t.state, ada, bo));
  EXPECT_EQ(std::make_tuple(IrOf("RESULT", bo), IrOf("RESULT", ada), IrOf("ENTRY", bo),
                            IrOf("ENTRY", ada)),
            std::make_tuple("IIL", "NR", "EI", "R"));
  EXPECT_EQ(Count("SELECT (SELECT COUNT(*) FROM ATHRECR) + (SELECT COUNT(*) FROM AthInfo WHERE "
                  "Athlete = ?1) + (SELECT COUNT(*) FROM Athlete WHERE Athlete = ?1)",
                  ada),
            0);
  EXPECT_EQ(std::tie(t.state.gAthlete, t.state.gAthleteName), std::make_tuple(bo, "Bo Lane"));
}

TEST_F(Removal, AFailingMergeLeavesEverythingAsItWas) {
  // Entries move after results: an entry of both in the same event fails the second step.
  Entry(bo, "I");
  ASSERT_FALSE(MergeAthlete(t.state, ada, bo));
  EXPECT_EQ(IrOf("RESULT", ada), "ILNR");
  EXPECT_EQ(IrOf("RESULT", bo), "I");
  EXPECT_EQ(IrOf("ENTRY", bo), "I");
  EXPECT_EQ(Count("SELECT COUNT(*) FROM ATHRECR"), 1);
  EXPECT_EQ(AthleteRowCount(Db()), 2);
  EXPECT_TRUE(t.io.Saw("Error Source: basUtil.MergeAthlete"));
  EXPECT_NE(ReadWholeFile(t.state.home.Log()).find("basUtil.MergeAthlete"), std::string::npos);
}

TEST_F(Removal, TheMergeCommandChecksSexAndAsks) {
  const int32_t cy = Insert("Lane", "Cy", "M");
  EXPECT_EQ(MergeAthletes(t.state, ada, cy), MergeOutcome::kRefused);
  EXPECT_EQ(LastShown(), "Can't merge with swimmer of a different sex.");
  t.io.Script({Answer::kNo});
  EXPECT_EQ(MergeAthletes(t.state, ada, bo), MergeOutcome::kDeclined);
  EXPECT_EQ(LastShown(),
            "Operation is not reversible!  Backup is recommended first.\r\n"
            "Merge all Athlete info, results and entries for : Lane, Ada  "
            "\r\ninto : Lane, Bo  ");
  EXPECT_EQ(AthleteRowCount(Db()), 3);
  Result(bo, "I");
  EXPECT_EQ(MergeAthletes(t.state, ada, bo), MergeOutcome::kFailed);
  EXPECT_EQ(LastShown(), "Merge Failed.");
}

TEST_F(Removal, SiblingsAreOtherSwimmersWithAnAddress) {
  const int32_t cy = Insert("Lane", "Cy", "M");
  Db().exec(
      "INSERT INTO AthInfo (Athlete, Addr, MailTo, DayP1, FaxP1) VALUES (3, '  ', '', '', '')");
  Db().exec(
      "UPDATE AthInfo SET SecAddr = 'Flat 2', FaxP1 = '555', MailTo = 'The Lanes' "
      "WHERE Athlete = 1");
  const auto siblings = SiblingsWithAddress(Db(), bo);
  ASSERT_EQ(siblings.size(), 1u);
  EXPECT_EQ(siblings[0].athlete, ada);
  EXPECT_EQ(SiblingsWithAddress(Db(), 0).size(), 2u);
  AthleteCard card = *LoadAthleteCard(t.state, cy);
  ASSERT_TRUE(CopySiblingAddress(Db(), ada, card));
  EXPECT_EQ(card.Info("Addr"), "Pool Road");
  EXPECT_EQ(card.Info("SecAddr"), "Flat 2");
  EXPECT_EQ(card.Info("FaxP1"), "555");
  EXPECT_EQ(card.Info("MailTo"), "");  // not part of the address copied
}

TEST_F(Athletes, BackgroundPicture) {
  const fs::path home = t.state.home.Root();
  const fs::path chosen = t.Data() / "beach.Bmp";
  WriteFileAtomically(chosen, "BM picture");
  EXPECT_FALSE(ImportBackgroundPicture(t.state, "  ", chosen));
  EXPECT_EQ(LastShown(), "You must enter a First Name to assign the Picture to.");
  EXPECT_FALSE(ImportBackgroundPicture(t.state, "Ada", t.Data() / "beach.png"));
  EXPECT_EQ(LastShown(), "Background picture must be a .bmp file.");
  const size_t shown = t.io.shown.size();
  EXPECT_FALSE(ImportBackgroundPicture(t.state, "Ada", t.Data() / "gone.bmp"));
  EXPECT_EQ(t.io.shown.size(), shown);
  fs::create_directory(t.Data() / "folder.bmp");
  EXPECT_FALSE(ImportBackgroundPicture(t.state, "Ada", t.Data() / "folder.bmp"));
  EXPECT_EQ(LastShown(), "Cannot open " + (t.Data() / "folder.bmp").string());
  EXPECT_EQ(CardPicture(t.state.home, "Ada"), std::nullopt);
  WriteFileAtomically(home / "KVL-R.BMP", "BM default");
  EXPECT_EQ(CardPicture(t.state.home, "Ada"), home / "KVL-R.BMP");
  ASSERT_TRUE(ImportBackgroundPicture(t.state, " Ada ", chosen));
  EXPECT_EQ(ReadWholeFile(home / "ADA.bmp"), "BM picture");
  EXPECT_EQ(CardPicture(t.state.home, "ada"), home / "ADA.bmp");
}

TEST(CardTimes, TypedTimesFollowTheMachinesClockAndBirthDatesRunFrom1930ToToday) {
  struct Case {
    const char* typed;
    bool twelve;
    bool accepted;
    const char* shown;
    std::string_view message;
  };
  const Case cases[] = {
      {"930", false, true, "09:30", ""},
      {"930", true, true, "09:30 AM", ""},
      {"9:30 pm", true, true, "09:30 PM", ""},
      {"9pm", false, true, "21:00", ""},
      {"12am", true, true, "12:00 AM", ""},
      {"2400", false, true, "00:00", ""},
      {"", true, true, "", ""},
      {"7:10", false, false, "", "Time must be in 15 minute intervals."},
      {"2500", false, false, "", ""},
      {"abc", false, false, "", "Invalid Time format"},
  };
  for (const auto& c : cases) {
    const CardTime time = TypedCardTime(c.typed, c.twelve);
    EXPECT_EQ(time.accepted, c.accepted) << c.typed;
    EXPECT_EQ(time.shown, c.shown) << c.typed;
    EXPECT_EQ(time.message, c.message) << c.typed;
  }
  EXPECT_EQ(StoredTime("12:15 PM"), "1899-12-30 12:15:00");
  EXPECT_EQ(StoredTime("12:00 AM"), "1899-12-30 00:00:00");
  EXPECT_EQ(StoredTime("7:60"), std::nullopt);
  EXPECT_EQ(ShownTime("1899-12-30 00:05:00", true), "12:05 AM");
  EXPECT_EQ(ShownTime("2001-02-03", false), "");
  struct Birth {
    const char* typed;
    int order;
    bool accepted;
    std::optional<Date> date;
    std::string_view message;
  };
  const Birth births[] = {
      {"12/31/1929", 0, false, std::nullopt,
       "Please use the drop-down calendar to enter dates before 1930."},
      {"01/01/1930", 0, true, Date{1930, 1, 1}, ""},
      {"31.12.2012", 1, true, Date{2012, 12, 31}, ""},
      {"3/4/12", 0, true, Date{2012, 3, 4}, ""},
      {"13/45/2000", 0, false, std::nullopt,
       "\"13/45/2000\" is not a date. Type the birth date as MM/DD/YYYY or YYYY-MM-DD."},
      {"2010-07-02", 0, true, Date{2010, 7, 2}, ""},
      {"2010-07-02", 1, true, Date{2010, 7, 2}, ""},
      {" ", 0, true, std::nullopt, ""},
      {"05/01/2026", 0, true, Date{2026, 5, 1}, ""},
      {"05/02/2026", 0, false, std::nullopt, "The birth date can not be later than today."},
  };
  for (const auto& c : births) {
    const BirthEntry entry = TypedBirthDate(c.typed, c.order, Date{2026, 5, 1});
    EXPECT_EQ(entry.accepted, c.accepted) << c.typed;
    EXPECT_EQ(entry.date, c.date) << c.typed;
    EXPECT_EQ(entry.message, c.message) << c.typed;
  }
}

TEST_F(Athletes, RecruitingCardIsAddedOnFirstSaveAndEditedAfter) {
  const int32_t ada = Insert("Lane", "Ada", "F");
  auto card = LoadRecruiting(t.state, ada);
  ASSERT_TRUE(card);
  EXPECT_FALSE(card->on_file);
  EXPECT_EQ(card->heading, "Lane, Ada ");
  EXPECT_EQ(card->Value("HS_Name"), "");
  card->values["HS_Name"] = "North High";
  card->values["Grad"] = "2030";
  card->values["HS_GPA"] = "3.75";
  card->values["Video"] = "1";
  ASSERT_TRUE(SaveRecruiting(t.state, *card));
  card->values["Height"] = "170";
  ASSERT_TRUE(SaveRecruiting(t.state, *card));
  EXPECT_EQ(Count("SELECT COUNT(*) FROM ATHRECR"), 1);
  const auto again = LoadRecruiting(t.state, ada);
  EXPECT_TRUE(again->on_file);
  for (const auto& [field, value] : {std::pair{"HS_Name", "North High"}, {"Grad", "2030"},
                                     {"HS_GPA", "3.75"}, {"Height", "170"}, {"Video", "1"},
                                     {"Weight", ""}}) {
    EXPECT_EQ(again->Value(field), value) << field;
  }
  card->values["HS_State"] = "ABCD";
  EXPECT_FALSE(SaveRecruiting(t.state, *card));
  EXPECT_TRUE(t.io.Saw("Error Source: frmRecr.SaveRecruiting"));
  EXPECT_EQ(Text("SELECT HS_State FROM ATHRECR WHERE Athlete = ?", ada), "");
  EXPECT_FALSE(LoadRecruiting(t.state, 999));
  EXPECT_EQ(LastShown(), "Athlete not found");
  EXPECT_TRUE(RecruitingPictureOk(t.io, "/pics/ada.BMP"));
  EXPECT_FALSE(RecruitingPictureOk(t.io, "/pics/ada.jpg"));
  EXPECT_EQ(LastShown(), "No BMP file selected");
}

TEST(Team, TextsAreKeptOnOneLine) {
  EXPECT_EQ(OneLine("a\r\n\r\nb\r"), "a  b ");
  EXPECT_EQ(OneLine("Spring\nfield"), "Spring field");
}

}  // namespace
}  // namespace kvlr
