#include "interchange/ImportPrepare.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "FileMaker.h"
#include "interchange/Nv3Texts.h"
#include "interchange/Psn.h"
#include "interchange/Scramble.h"
#include "interchange/SdifCertify.h"
#include "interchange/SdifTexts.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using testing::Cl2;
using testing::Nv3;
using testing::Sdif;
using testing::SdifFile;

class PrepareTest : public ::testing::Test {
 protected:
  PrepareTest() {
    fs::create_directories(t_.Data());
    t_.state.gAthlete = 1;
    t_.state.gAthleteFirst = "Jane";
    t_.state.gAthleteLast = "Doe";
    t_.state.gAthleteSex = "F";
  }

  fs::path Write(const std::string& name, const std::string& text) {
    const fs::path path = t_.Data() / name;
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
  ImportFile Prepare(const std::string& name, const std::string& text,
                     ImportMode mode = ImportMode::kReport) {
    return PrepareImportFile(t_.state, monitor_, Write(name, text), mode);
  }
  // The one box shown, or "" with none; a second box fails the test.
  std::string OnlyBox() {
    EXPECT_LE(t_.io.shown.size(), 1u);
    return t_.io.shown.empty() ? "" : t_.io.shown.back().text;
  }

  test::TempHome t_;
  testing::Monitor monitor_;
};

TEST_F(PrepareTest, ReadingRefusalsHaveTheirWords) {
  std::string bad_sum = SdifFile().Swim().Lines()[3];
  bad_sum[20] = 'Z';
  std::string not_norvan = Sdif("D0", "swimmer_name=DOE, JANE|seed_time=  :31.00");
  struct Case {
    std::string name;
    std::string file_name;
    std::string text;
    std::string box;
  };
  const std::string integrity(
      "This file failed the SDIF integrity test - please request another copy of the file.");
  const Case cases[] = {
      {"159 columns in a good .cl2", "a.cl2",
       SdifFile().Raw(Cl2(Sdif("C1", {{"team_code", "MUST"}})).substr(0, 159)).Text(),
       "Line length error. Line length should be 160. Found 159"},
      {"bad check sum", "b.cl2", SdifFile().Raw(bad_sum).Text(), integrity},
      {"first line's check sum", "c.cl2",
       testing::FileText({Sdif("A0", {{"software_name", "Norvan, Ltd"}})}), integrity},
      {"not Norvan's D0", "d.cl2", SdifFile().Raw(Cl2(not_norvan)).Text(),
       "This .cl2 file was not created by Norvan software !\r\n\r\nContact the source and ask "
       "them to generate an SDIF .sd3 file if their software is not Norvan.\r\nOnly Norvan "
       "software is authorized to generate a .cl2 file."},
      {"other software", "e.cl2", SdifFile().A0({{"software_name", "Made Up Meet Co"}}).Text(),
       std::string("The Proprietary LUSKUGE File format was not produced by Norvan")},
      {"sd3 not results", "g.sd3", SdifFile(false).A0({{"file_code", "01"}}).Text(),
       std::string(
           "Selected SD3 file does not contain Results and is not a candidate for import.")},
      {"sd3 not A0", "h.SD3", SdifFile(false).Text().substr(162),
       std::string("Invalid format.  First line is not an A0 record.")},
      {"nv3 129 columns", "i.nv3",
       testing::FileText({Nv3("A1", "file_code=09|creator=Norvan, Ltd"),
                          Nv3("B1", {{"meet_name", "Made Up"}}).substr(0, 129)}),
       "Line length error. Line length should be 130. Found 129"},
      {"nv3 check sum", "j.nv3",
       testing::FileText({Nv3("A1", "file_code=09|creator=Norvan, Ltd"),
                          Nv3("B1", {{"meet_name", "Made Up"}}).substr(0, 128) + "00"}),
       std::string("This file's Integrity has been compromised - please request another copy of "
                   "the file.")},
      {"nv3 creator", "k.nv3", testing::FileText({Nv3("A1", {{"file_code", "09"}})}),
       std::string("Not a Norvan created .NV3 file !")},
      {"psn header", "l.psn", "too short\r\n",
       std::string("Error in import file.  The file is corrupted or was not produced by Norvan's "
                   "CLUB STEWARD")},
      {"empty file", "m.cl2", "",
       "m.cl2 is empty: there is nothing in it to read. Download it again or ask for another "
       "copy."},
  };
  for (const Case& c : cases) {
    t_.io.shown.clear();
    const ImportFile f = Prepare(c.file_name, c.text);
    EXPECT_FALSE(f.ready) << c.name;
    EXPECT_TRUE(f.lines.empty()) << c.name;
    ASSERT_FALSE(t_.io.shown.empty()) << c.name;
    EXPECT_NE(t_.io.shown.back().text.find(c.box), std::string::npos)
        << c.name << ": " << t_.io.shown.back().text;
  }
}

TEST_F(PrepareTest, AMissingFileIsReportedNotThrown) {
  const ImportFile f =
      PrepareImportFile(t_.state, monitor_, t_.Data() / "gone.cl2", ImportMode::kReport);
  EXPECT_FALSE(f.ready);
  EXPECT_FALSE(t_.io.shown.empty());
}

TEST_F(PrepareTest, EntriesAreReportedButNotImported) {
  const std::string text = SdifFile().A0({{"content_code", "41"}}).Swim().Text();
  EXPECT_TRUE(Prepare("e.cl2", text, ImportMode::kReport).ready) << OnlyBox();
  EXPECT_FALSE(Prepare("e.cl2", text, ImportMode::kImport).ready);
  EXPECT_EQ(OnlyBox(), "This file contains Meet Entries and is not a candidate for import.");
}

TEST_F(PrepareTest, AForeignRosterIsNotForThisImport) {
  const ImportFile f =
      Prepare("r.cl2", SdifFile().A0("file_code=20|content_code=43").Text(), ImportMode::kImport);
  EXPECT_FALSE(f.ready);
  EXPECT_EQ(f.panel.file_type, "No Valid for Import");
  EXPECT_EQ(OnlyBox(),
            "This file is an Athlete Roster file.\r\nUse the Import Athlete Roster Menu Option "
            "for this file.");
}

TEST_F(PrepareTest, ImportModeTellsWhenTheSwimmerIsNotInTheFile) {
  const std::string text = SdifFile().Swim({{"swimmer_name", "ROE, ANN"}}).Text();
  const ImportFile f = Prepare("o.cl2", text, ImportMode::kImport);
  EXPECT_TRUE(f.ready);
  EXPECT_EQ(f.status, " Import File Checked - Click OK to Import ");
  EXPECT_NE(OnlyBox().find("This file did not contain any results for Jane Doe"),
            std::string::npos);
  t_.io.shown.clear();
  EXPECT_TRUE(Prepare("p.cl2", SdifFile().Swim().Text(), ImportMode::kImport).ready);
  EXPECT_TRUE(t_.io.shown.empty());
}

std::vector<std::string> Nv3File() {
  return {Nv3("A1", "file_code=09|kind=Exported Results|creator=Norvan, Ltd|version=2.1Da"),
          Nv3("B1", "meet_name=Made Up Winter Meet|start=12052026"),
          Nv3("D1", "sex=F|athlete=1|last=DOE|first=JANE|birth=01022014")};
}

TEST_F(PrepareTest, AnNv3FillsThePanelFromItsFirstTwoLines) {
  const ImportFile report = Prepare("w.nv3", testing::FileText(Nv3File()));
  ASSERT_TRUE(report.ready) << OnlyBox();
  EXPECT_EQ(monitor_.statuses.front(), "Initial File Check... ");
  EXPECT_EQ(report.panel.created_by, "Norvan, Ltd 2.1Da");
  EXPECT_EQ(report.panel.file_type, "Exported Results");
  EXPECT_EQ(report.panel.meet_name, "Made Up Winter Meet");
  EXPECT_EQ(report.panel.start_date, "12/05/2026");
  EXPECT_EQ(report.status, " Import File Checked - Click OK to Print");
  const ImportFile import = Prepare("w.nv3", testing::FileText(Nv3File()), ImportMode::kImport);
  ASSERT_TRUE(import.ready) << OnlyBox();
  EXPECT_EQ(import.status, " Import File Checked - Click OK to Import");
}

TEST_F(PrepareTest, ATextFileIsUnscrambledIntoNv3Lines) {
  std::string text;
  for (const std::string& line : Nv3File()) {
    // Not every key can carry every character; the service picks one that can.
    std::optional<std::string> scrambled;
    for (int key = 1; key <= 5 && !scrambled; ++key) scrambled = ScrambleLine(line, key);
    ASSERT_TRUE(scrambled) << line;
    text += *scrambled + "\r\n";
  }
  const ImportFile f = Prepare("KVLR_1.txt", text, ImportMode::kOnline);
  ASSERT_TRUE(f.ready) << OnlyBox();
  EXPECT_EQ(f.lines, Nv3File());
  // A key digit outside the table stops the reading.
  const ImportFile bad = Prepare("KVLR_2.txt", "9" + Nv3File()[0] + "\r\n", ImportMode::kOnline);
  EXPECT_FALSE(bad.ready);
}

TEST_F(PrepareTest, APsnFileNamesTheOnlineProgram) {
  std::string header(81, ' ');
  header.replace(0, 4, "Jane");
  header.replace(20, 3, "Doe");
  header.replace(61, 11, "Norvan, Ltd");
  const ImportFile f = Prepare("jane.psn", header + "\r\nanything at all\r\n", ImportMode::kOnline);
  ASSERT_TRUE(f.ready) << OnlyBox();
  EXPECT_EQ(f.panel.created_by, "Norvan's CLUB STEWARD II");
  EXPECT_EQ(f.panel.file_type, "Individual Results");
  EXPECT_EQ(f.lines.size(), 2u);
}

}  // namespace
}  // namespace kvlr
