#include "store/ReportTables.h"

#include <fmt/format.h>

#include "store/UserTables.h"

namespace kvlr {
namespace {

// A table of the user database's layout, named for the report check.
TableDef UserLayout(std::string_view name, std::string word) {
  TableDef t = *FindTable(UserTables(), name);
  t.word = std::move(word);
  return t;
}

std::vector<FieldDef> MeetRowFields() {
  return {Text("MEET", 45),     DateField("MEETSTART"), Text("STROKE", 12), Text("DISTANCE", 12),
          Text("LAST", 20),     Text("FIRST", 20),      Text("INITIAL", 1), Text("COURSE", 2),
          Text("SCORE", 12),    Text("F_P", 1),         Long("SPLIT"),      Text("EX", 1),
          Int("LO_HI"),         Text("MTEV", 8),        Text("SEX", 1),     Int("AGE"),
          DateField("BIRTH"),   Int("PLACE"),           Single("POINTS"),   Text("MISC", 4),
          Single("IMPROV"),     DateField("MEETEND"),   Long("MEETID"),     Text("POTMEET", 45),
          DateField("POTDATE"), Text("I_R", 1),         Text("LETTER", 1),  Text("MEETCRS", 2),
          Long("CONVT"),        Int("INTSTROKE"),       Long("ATHLETE"),    Int("INTDIST"),
          Text("MEETTYPE", 3),  Int("SORTORDER"),       Text("NAME", 43),   Text("EVENTSEX", 1),
          Text("ID_NO", 17),    Text("COMMENT", 50)};
}

std::vector<TableDef> MakeReportTables() {
  std::vector<TableDef> t;
  t.push_back({"RATHINFO",
               "Report Athlete Information",
               "basSetup.CreateRAthInfoTable",
               {Text("NAME", 43),        Text("SEX", 1),
                DateField("BIRTH"),      Int("AGE"),
                Text("CLASS", 3),        Text("ID_NO", 17),
                Text("CITIZEN", 3),      Text("MAILTO", 40),
                Text("ADDR", 30),        Text("SECADDR", 30),
                Text("CITYSTZIP", 46),   Text("CNTRY", 20),
                Text("EMAIL", 36),       Text("MAILTO2", 40),
                Text("ADDR2", 30),       Text("SECADDR2", 30),
                Text("CITYSTZIP2", 46),  Text("CNTRY2", 20),
                Text("EMAIL2", 36),      Text("DAYP1", 20),
                Text("EVEP1", 20),       Text("FAXP1", 20),
                Text("DAYP2", 20),       Text("EVEP2", 20),
                Text("FAXP2", 20),       Text("MEDCONDITION", 120),
                Text("MEDICATION", 120), Text("DOCTORNAME", 30),
                Text("DOCTORPHONE", 20), Text("EMERCONTACT", 30),
                Text("EMERPHONE", 20),   Text("LAST", 20),
                Text("FIRST", 20),       Text("INITIAL", 1),
                Text("CITY", 30),        Text("STATE", 3),
                Text("ZIP", 10),         Text("PREF", 20)},
               {}});
  t.push_back(UserLayout("ATHRECR", "Report Athlete Recruiting"));
  t.push_back({"REVENT",
               "Report Event",
               "basSetup.CreateREventTable",
               {Long("Meet"), Text("MtEv", 8), Single("Fee"), Int("Lo_Hi"), Text("FastCut", 12),
                Text("SlowCut", 12), Text("Course", 1), Long("MtEvent"), Text("Fast_L", 12),
                Text("Slow_L", 12), Text("Fast_Y", 12), Text("Slow_Y", 12), Text("TstdFile", 8),
                Text("TstDesig", 4), Text("Distance", 12), Text("Stroke", 12), Text("Sex", 1),
                Text("I_R", 1)},
               {}});
  t.push_back({"RPTTSTD",
               "Report Standards",
               "basSetup.CreateRptTStdTable",
               {Text("STANDARD", 8), Text("COURSE", 1), Text("STROKE", 12), Text("DISTANCE", 12),
                Int("LO_AGE"), Int("HI_AGE"), Text("SEX", 1), Text("I_R", 1)},
               {}});
  t.push_back(
      {"RMEETI", "Report Individual Results", "basSetup.CreateRMeetITable", MeetRowFields(), {}});
  t.push_back({"RTT4ONE",
               "One Swimmer Results",
               "basSetup.CreateRTT4OneTable",
               {Text("MEET", 45),     DateField("MEETSTART"), Text("STROKE", 12),
                Text("DISTANCE", 12), Text("COURSE", 2),      Text("SCORE", 12),
                Text("F_P", 1),       Long("SPLIT"),          Text("EX", 1),
                Text("SCOREY", 12),   Text("SCORES", 12),     Text("SCOREL", 12),
                Text("I_R", 1),       DateField("BIRTH"),     Text("MISC", 4),
                Int("INTSTROKE"),     Long("INTDIST"),        Int("Age"),
                Long("Convt"),        Text("COMMENT", 50)},
               {}});
  t.push_back(UserLayout("MEET", "Report Meets"));
  t.push_back({"CALENDAR",
               "Report Calendar",
               "basSetup.CreateCalendarTable",
               {DateField("DATE"), Text("Type", 10), DateField("StartTime"), Text("Comment", 80),
                Text("Start", 11)},
               {}});
  t.push_back(UserLayout("TEAM", "Report Team"));
  t.push_back({"IMPRULES",
               "Report IMPRULES",
               "basSetup.CreateImpRulesTable",
               {Text("REASON", 1), Text("DESC", 50)},
               {}});

  TableDef splits{"RSPLITS",
                  "Report Splits",
                  "basSetup.CreateRSplitsTable",
                  {Long("SPLITID")},
                  {Primary("SPLITID", {"SPLITID"})}};
  for (int i = 0; i <= 32; ++i) splits.fields.push_back(Text(fmt::format("F({})", i), 8));
  for (int i = 0; i <= 32; ++i) splits.fields.push_back(Text(fmt::format("SR({})", i), 8));
  t.push_back(splits);

  TableDef spread{"RSPREAD",
                  "Report Spread Sheet",
                  "basSetup.CreateRSpreadTable",
                  {Int("AGE"), Text("LAST", 20), Text("FIRST", 20), Text("INITIAL", 1),
                   Text("SEX", 1), Bool("INACTIVE")},
                  {}};
  for (int i = 0; i <= 21; ++i) {
    spread.fields.push_back(Text(fmt::format("Dis{}", i), 12));
    spread.fields.push_back(Text(fmt::format("EV{}", i), 12));
    spread.fields.push_back(Text(fmt::format("F{}", i), 21));
  }
  spread.fields.push_back(Int("LO_HI"));
  spread.fields.push_back(Text("CLASS", 3));
  spread.fields.push_back(Text("NAME", 43));
  t.push_back(spread);

  t.push_back({"HEALTH",
               "Report Health",
               "basSetup.CreateRHealthTable",
               {Text("NAME", 44), DateField("DATE"), Single("HR"), Single("SLEEP"),
                Single("WEIGHT"), Int("WELLNESS"), Text("COMMENT", 80), Text("STARTTIME", 11)},
               {}});
  t.push_back({"RPTWINCS",
               "Report Parameters",
               "basSetup.CreateRptWincsTable",
               {DateField("rev_date"), Text("header1", 78), Text("header2", 78),
                Text("DateLine", 78), Text("Title", 88), Text("GirlSex", 6), Text("BoySex", 6),
                Text("OpenEvent", 6), Text("SortBy", 10), Text("Language", 8), Int("Total1"),
                Int("Total2"), Text("TeamLine", 78), Text("MeetLine", 78), Text("MiscLine", 78)},
               {}});
  t.push_back({"RPTISDIN",
               "Report SDIF",
               "basSetup.CreateRptIsdinTable",
               {Text("REASON", 1), Text("MEETNAME", 45), Text("MEETBEG", 10),  Text("MEETEND", 10),
                Text("LSC", 3),    Text("TEAMCODE", 5),  Text("TEAMNAME", 30), Text("EVSEX", 1),
                Text("DIST", 12),  Text("STROKE", 15),   Int("LO_HI"),         Text("P_TIME", 8),
                Text("P_CORS", 1), Text("F_TIME", 8),    Text("F_CORS", 1),    Text("AGE", 2),
                Text("SEX", 1),    Text("BIRTH", 10),    Text("LN", 20),       Text("FN", 20),
                Text("MI", 1),     Text("ID_NO", 17),    Int("IntSTROKE"),     Int("IntDIST"),
                Text("RELAY", 1),  Text("ONLY", 1),      Text("DIVING", 1)},
               {}});
  t.push_back(
      {"RMEETR", "Report Relay Results", "basSetup.CreateRMeetRTable", MeetRowFields(), {}});
  return t;
}

}  // namespace

const std::vector<TableDef>& ReportTables() {
  static const std::vector<TableDef> tables = MakeReportTables();
  return tables;
}

}  // namespace kvlr
