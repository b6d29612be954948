#include "store/UserTables.h"

#include <fmt/format.h>

namespace kvlr {
namespace {

std::vector<FieldDef> MeetEventFields() {
  return {Long("Meet"),       Int("MtEv"),     Text("MtEvX", 1), Int("Lo_Hi"),   Text("Course", 1),
          Counter("MtEvent"), Int("Distance"), Int("Stroke"),    Text("Sex", 1), Text("I_R", 1)};
}

std::vector<FieldDef> AthleteFields() {
  std::vector<FieldDef> f = {
      Counter("Athlete"),        Long("Team1"),          Text("Last", 20),   Text("First", 20),
      Text("Initial", 1),        Text("Sex", 1),         DateField("Birth"), Int("Age"),
      Text("ID_NO", 17),         Text("Citizen", 3),     Bool("Inactive"),   Text("Pref", 20),
      DateField("StartTimeDay"), DateField("EndTimeDay")};
  for (const char* band :
       {"Swim", "Dry", "Meet", "Goal", "Meeting", "Note", "Health", "Vacation"}) {
    f.push_back(DateField(fmt::format("Start{}", band)));
    f.push_back(DateField(fmt::format("End{}", band)));
  }
  f.push_back(Int("StartMonth"));
  f.push_back(Bool("KVL2000"));
  return f;
}

std::vector<TableDef> MakeUserTables() {
  std::vector<TableDef> t;

  t.push_back({"AthInfo",
               "Athlete Information",
               "basSetup.CreateAthInfoTable",
               {Long("Athlete"),
                Text("Addr", 30),
                Text("City", 30),
                Text("ZIP", 10),
                Text("Cntry", 20),
                Text("DayP1", 20),
                Text("EveP1", 20),
                Text("FaxP1", 20),
                Text("DayP2", 20),
                Text("EveP2", 20),
                Text("FaxP2", 20),
                Text("MailTo", 40),
                Text("MedCondition", 120),
                Text("Medication", 120),
                Text("DoctorName", 30),
                Text("DoctorPhone", 20),
                Text("EmerContact", 30),
                Text("EmerPhone", 20),
                Text("MailTo2", 40),
                Text("Addr2", 30),
                Text("City2", 30),
                Text("State2", 3),
                Text("ZIP2", 10),
                Text("Cntry2", 20),
                Text("EMail2", 36),
                Text("SecAddr", 30),
                Text("SecAddr2", 30),
                Text("PrimaryLast", 20),
                Text("PrimaryFirst1", 20),
                Text("PrimaryFirst2", 20),
                Text("SecondaryLast", 20),
                Text("SecondaryFirst1", 20),
                Text("SecondaryFirst2", 20),
                Text("State", 3),
                Text("EMail", 36),
                Text("CellP1", 20),
                Text("CellP2", 20)},
               {Primary("ZID", {"Athlete"})}});

  t.push_back({"Athlete",
               "Athlete",
               "basSetup.CreateAthleteTable",
               AthleteFields(),
               {Primary("ZID", {"Athlete"}), Plain("ID_NO", {"ID_NO"}),
                Plain("LastName", {"Last", "First", "Initial"})}});

  t.push_back(
      {"ATHRECR",
       "Athlete Recruiting",
       "basSetup.CreateAthRecrTable",
       {Long("Athlete"),        Int("Grad"),           Text("PicFile", 11),   Text("HS_Name", 30),
        Text("HS_Phone", 20),   Text("HS_Addr", 30),   Text("HS_City", 20),   Text("HS_State", 3),
        Text("HS_ZIP", 10),     Text("HS_Coach", 30),  Text("Oth_Team", 30),  Text("Oth_Coach", 30),
        Text("HS_Study", 20),   Int("HS_Rank"),        Int("HS_Num"),         Single("HS_GPA"),
        Text("Activities", 50), Text("Awards", 20),    Text("Add_Info", 50),  Text("Camps", 50),
        Int("T1Score"),         Text("Remarks", 50),   Int("T3Score1"),       Int("T2Score"),
        Int("Height"),          Int("Weight"),         Text("Oth_Phone", 20), Text("Picture", 60),
        Bool("Video"),          Text("Comments", 255), Text("T1Name", 8),     Text("T2Name", 8),
        Text("T3Name", 8),      Text("T3SName1", 8),   Text("T3SName2", 8),   Int("T3Score2")},
       {Primary("ZID", {"Athlete"})}});

  t.push_back({"CODE",
               "Code",
               "basSetup.CreateCodeTable",
               {Text("ABBR", 3), Text("DESC", 30), Counter("CODE"), Byte("TYPE")},
               {Primary("ZID", {"Abbr", "Type"})}});

  t.push_back({"CUSTOMAGEGROUP",
               "Age Group",
               "basSetup.CreateCustomAgeGroupTable",
               {Int("Lo_Hi"), Int("EventNum"), Int("Stroke"), Int("Distance")},
               {Primary("Lo_Hi", {"Lo_Hi", "Stroke", "Distance"})}});

  t.push_back(
      {"ENTRY",
       "Entry",
       "basSetup.CreateEntryTable",
       {Long("Meet"), Long("Athlete"), Text("I_R", 1), Text("Course", 2), Long("Score"),
        Text("Ex", 1), Long("MtEvent"), Text("Misc", 1), Counter("Entry")},
       {Primary("ZID", {"Entry"}), Unique("Athlete", {"Athlete", "Meet", "MtEvent", "I_R"}),
        Unique("Meet", {"Meet", "MtEvent", "Athlete", "I_R"}), Plain("MtEvent", {"MtEvent"})}});

  t.push_back({"JOURNAL",
               "Journal",
               "basSetup.CreateJournalTable",
               {DateField("JDate"), Text("Subject", 20), Text("Comment", 255)},
               {}});

  t.push_back(
      {"MEET",
       "Meet",
       "basSetup.CreateMeetTable",
       {Counter("Meet"), Text("MName", 45), DateField("Start"), DateField("End"),
        DateField("AgeUp"), DateField("Since"), Text("Course", 2), Text("Location", 45),
        Text("Remarks", 50), Text("Type", 3)},
       {Primary("ZID", {"Meet"}), Unique("Name", {"MName", "Start"}), Plain("Start", {"Start"})}});

  t.push_back({"MTEVENT",
               "Meet Event",
               "basSetup.CreateMtEventTable",
               MeetEventFields(),
               {Primary("ZID", {"MtEvent"}), Unique("MtEv", {"Meet", "MtEv", "MtEvX"})}});

  t.push_back({"MTEVENTE",
               "Meet Event E",
               "basSetup.CreateMtEventETable",
               MeetEventFields(),
               {Primary("ZID", {"MtEvent"}), Unique("MtEv", {"Meet", "MtEv", "MtEvX"})}});

  t.push_back({"OPTIONS",
               "Options",
               "basSetup.CreateOptionsTable",
               {Text("Standard", 8),
                WithDefault(Text("Course", 1), "'Y'"),
                Text("Line1", 40),
                Text("Line2", 40),
                WithDefault(Bool("RptUCase"), "0"),
                DateField("SysAgeUp"),
                Int("MtAgeUp"),
                DateField("MtDate"),
                Double("CvtFactor"),
                Byte("CvtType"),
                Double("Cvt500"),
                Double("Cvt1650"),
                Double("FreeTurn"),
                Double("BackTurn"),
                Double("BreastTurn"),
                Double("FlyTurn"),
                Double("IMTurn"),
                Double("Straight"),
                Bool("Y2L"),
                Text("Favorite", 8),
                Byte("PaperSize"),
                Bool("UseLeadOff"),
                Text("ImportDir", 60),
                Text("ExportDir", 60),
                Text("BackupDir", 60),
                Text("ReportDir", 60),
                WithDefault(Byte("NoAge"), "1"),
                Text("PalmImportDir", 60),
                Byte("FavSex"),
                WithDefault(Byte("BackupCheck"), "7"),
                WithDefault(Byte("UpdateCheck"), "7"),
                DateField("LastBackup"),
                Text("DbVersion", 5)},
               {}});

  t.push_back({"FAVORITES",
               "Favorites",
               "basSetup.CreateFavoritesTable",
               {Text("FavName", 8), Text("FavMeetType", 3), Text("FavCourse", 5)},
               {}});

  t.push_back({"TEAM",
               "Team",
               "basSetup.CreateTeamTable",
               {Text("TCode", 5), Text("TName", 30), Text("LSC", 3), Text("MailTo", 40),
                Text("TAddr", 30), Text("TCity", 30), Text("TState", 3), Text("TZip", 10),
                Text("Day", 20), Text("Eve", 20), Text("Fax", 20), Text("EMail", 36)},
               {}});

  t.push_back({"tblComments",
               "Comments",
               "basSetup.CreatetblComments",
               {Long("Athlete"), Long("ResultID"), Text("Comment", 50)},
               {Unique("ResultID", {"ResultID"})}});

  t.push_back({"tblEvents",
               "Calendar Events",
               "basSetup.CreatetblEvents",
               {Long("Athlete"), DateField("DATE"), Int("Type"), DateField("StartTime"),
                DateField("EndTime"), Text("Comment", 80), Counter("ID")},
               {Plain("BY_DATE", {"DATE"})}});

  t.push_back(
      {"tblHealth",
       "Health",
       "basSetup.CreatetblHealth",
       {Long("Athlete"), DateField("DATE"), Single("HR"), Single("SLEEP"), Single("WEIGHT"),
        Int("WELLNESS"), Int("CALORIES"), Int("BODYFAT"), Int("EXTRA1"), Int("EXTRA2"), Long("ID")},
       {Primary("PrimaryKey", {"ID"}), Plain("BY_DATE", {"DATE"})}});

  t.push_back({"RESULT",
               "Result",
               "basSetup.CreateResultTable",
               {Long("MEET"), Long("ATHLETE"), Text("I_R", 1), Long("SCORE"), Text("F_P", 1),
                Long("SPLIT"), Text("EX", 1), Text("ORIGIN", 4), Byte("NT"), Counter("RESULT"),
                Text("MISC", 1), Int("AGE"), Int("DISTANCE"), Int("STROKE"), Long("MTEVENT"),
                Int("PLACE"), Int("RANK"), Int("TRANK"), Text("COURSE", 1)},
               {Primary("ZID", {"Result"}), Plain("Athlete", {"Athlete"}),
                Plain("Fast", {"Athlete", "I_R", "Distance", "Stroke", "Course", "Rank"}),
                Unique("Meet", {"Meet", "Athlete", "I_R", "MtEvent", "F_P"})}});

  t.push_back({"SPLITS",
               "Splits",
               "basSetup.CreateSplitsTable",
               {Long("SplitID"), Byte("SplitIndex"), Long("Split")},
               {Primary("PrimaryKey", {"SplitID", "SplitIndex"})}});

  std::vector<FieldDef> stdname = {Text("StdFile", 8), Text("Year", 4), Text("Descript", 25)};
  for (int i = 1; i <= 12; ++i) stdname.push_back(Text(fmt::format("D{}", i), 4));
  for (int i = 1; i <= 12; ++i) stdname.push_back(Text(fmt::format("D{}Des", i), 15));
  t.push_back({"STDNAME", "Standard Name", "basSetup.CreateStdNameTable", stdname, {}});

  t.push_back({"CUSTOMRPTS",
               "Memorized Reports",
               "basSetup.CreateCustomRptsTable",
               {Text("Name", 30),       Int("Type"),
                Int("SortBy"),          Int("Sex"),
                Int("Prelim"),          Int("Splits"),
                Int("Stroke"),          Int("Distance"),
                Bool("chkIncRelayLO"),  Bool("chkStandards"),
                Bool("chkSince"),       DateField("SinceDate"),
                Int("chkImprove"),      Bool("chkUntil"),
                DateField("UntilDate"), Int("Grouping"),
                Text("MeetType", 3),    Int("TopN"),
                Int("Course"),          Bool("chkChronological"),
                Int("Orientation"),     Bool("chkActual"),
                Bool("chkNoTimes"),     Int("chkBest"),
                Text("StdName", 8),     Bool("chkComments"),
                Bool("chkGoals")},
               {}});

  t.push_back({"tblWebPages",
               "Web Pages",
               "basSetup.CreatetblWebPages",
               {Text("URL", 100), Text("Comment", 50)},
               {Primary("PrimaryKey", {"URL"})}});
  return t;
}

}  // namespace

const std::vector<TableDef>& UserTables() {
  static const std::vector<TableDef> tables = MakeUserTables();
  return tables;
}

const std::vector<std::string_view>& NewDatabaseTableOrder() {
  static const std::vector<std::string_view> order = {
      "CUSTOMAGEGROUP", "ATHINFO",  "ATHLETE", "ATHRECR", "CODE",   "ENTRY",   "JOURNAL",  "MEET",
      "MTEVENT",        "MTEVENTE", "OPTIONS", "RESULT",  "SPLITS", "STDNAME", "FAVORITES"};
  return order;
}

TableDef StandardsTable(std::string table_name) {
  TableDef t{std::move(table_name), "Standards", "basStd.CreateStandardsTable", {}, {}};
  t.fields = {Counter("Std"), Int("Lo_Age"), Int("Hi_age")};
  for (int i = 0; i <= 35; ++i) t.fields.push_back(Long(fmt::format("F({})", i)));
  for (int i = 0; i <= 35; ++i) t.fields.push_back(Long(fmt::format("S({})", i)));
  for (auto f : {Int("Distance"), Int("Stroke"), Text("Sex", 1), Text("I_R", 1)}) {
    t.fields.push_back(f);
  }
  IndexDef hi = Unique("Hi_Age", {"Distance", "Stroke", "Sex", "I_R", "Hi_Age", "Lo_Age"});
  hi.columns.back().descending = true;
  t.indexes = {Primary("ZID", {"STD"}), hi};
  return t;
}

}  // namespace kvlr
