#include "handheld/HandheldTables.h"

namespace kvlr {

namespace {

TableDef Staging(std::string routine, std::vector<FieldDef> fields) {
  return {std::string(kStagingTable), std::string(kStagingTable), std::move(routine),
          std::move(fields), {}};
}

std::vector<FieldDef> AthleteFields() {
  return {Text("ATHLETEID", 6),    Text("LASTNAME", 20),   Text("FIRSTNAME", 20),
          Text("PREFERNAME", 20),  Text("SHOWNAME", 30),   Text("BIRTHDATE", 10),
          Text("AGE", 2),          Text("SEX", 1),         Text("TEAMCODE", 5),
          Text("GROUP", 3),        Text("SUBGROUP", 3),    Text("SCHOOLYR", 3),
          Text("CUSTOM1", 50),     Text("CUSTOM2", 50),    Text("CUSTOM3", 50),
          Text("CONTNAME", 30),    Text("CONTADDR1", 30),  Text("CONTCITY", 20),
          Text("CONTSTATE", 3),    Text("CONTPOSTAL", 10), Text("CONTDPHONE", 20),
          Text("CONTEPHONE", 20),  Text("CONTFAX", 20),    Text("CONTEMAIL", 30),
          Text("MEDDOCNAME", 30),  Text("MEDDOCPHON", 20), Text("MEDEMNAME", 30),
          Text("MEDEMPHONE", 20),  Text("MEDEMINFO", 150), Text("MEDICATION", 150)};
}

std::vector<FieldDef> MeetFields() {
  return {Text("MEETID", 6), Text("MEETNAME", 30), Text("MEETDATE", 10),
          Text("COURSE", 1), Text("MEETIDCS", 6),  Text("SOURCE", 1)};
}

std::vector<FieldDef> TimesFields() {
  return {Text("ATHLETEID", 6), Text("STROKE", 6),   Text("STROKECODE", 1), Text("DISTANCE", 5),
          Text("COURSE", 1),    Text("SWIM", 1),     Text("RESULTID", 6),   Text("SWIMTIME", 8),
          Text("ENTRYTIME", 8), Text("PLACE", 3),    Text("POINTS", 3),     Text("DQ", 2),
          Text("AGE", 2),       Text("SEX", 1),      Text("EVENTNUM", 4),   Bool("CHOSEN"),
          Text("TIMED", 1)};
}

std::vector<FieldDef> EventFields() {
  return {Text("MEETID", 6),   Text("EVENTID", 6),    Text("EVENTNUM", 4), Text("STROKE", 6),
          Text("STROKECODE", 1), Text("DISTANCE", 5), Text("AGEGROUP", 10), Text("SEX", 1)};
}

std::vector<FieldDef> SplitFields() {
  return {Text("RESULTID", 6), Text("SPLITNUM", 4), Text("SPLITTIME", 8), Text("SPLITLAP", 8),
          Text("MEETID", 6)};
}

TableDef Named(std::string name, std::vector<FieldDef> fields) {
  return {std::move(name), "", "", std::move(fields), {}};
}

}  // namespace

const std::vector<HandheldTable>& HandheldTables() {
  static const std::vector<HandheldTable> tables = [] {
    std::vector<HandheldTable> t;
    auto add = [&t](std::string base, std::string routine, std::vector<FieldDef> fields) {
      t.push_back({base + ".MDB", base, Staging(std::move(routine), std::move(fields))});
    };
    add("KVLATHLT", "frmPalm.ExportAthletes", AthleteFields());
    add("KVLMEET", "basSetup.CreatePalmMeetTable", MeetFields());
    add("KVLTIMES", "frmPalm.ExportEntries", TimesFields());
    add("KVLBEST", "frmPalm.ExportBestTimes",
        {Text("ATHLETEID", 6), Text("STROKE", 6), Text("STROKECODE", 1), Text("DISTANCE", 5),
         Text("COURSE", 1), Text("SWIMDATE", 10), Text("MEET", 6), Text("SWIMTIME", 8),
         Text("AGE", 2)});
    add("KVLEVENT", "frmPalm.ExportEvents", EventFields());
    add("KVLHIST", "frmPalm.ExportResults",
        {Text("ATHLETEID", 6), Text("MEETID", 6), Text("STROKE", 6), Text("STROKECODE", 1),
         Text("DISTANCE", 5), Text("COURSE", 1), Text("SWIM", 1), Text("SWIMTIME", 8),
         Text("PLACE", 3), Text("POINTS", 3), Text("DQ", 2), Text("AGE", 2), Text("SEX", 1),
         Text("SWIMDATE", 10), Text("RESULTID", 6)});
    add("KVLHISTM", "basSetup.CreatePalmMeetTable", MeetFields());
    add("KVLHISTS", "basSetup.CreatePalmSplitTable", SplitFields());
    add("KVLBESTS", "basSetup.CreatePalmBestSplitTable",
        {Text("ATHLETEID", 6), Text("STROKECODE", 1), Text("DISTANCE", 5), Text("COURSE", 1),
         Text("SPLITNUM", 4), Text("SPLITTIME", 8), Text("SPLITLAP", 8)});
    add("KVLBESTM", "basSetup.CreatePalmMeetTable", MeetFields());
    add("KVLAGEG", "basSetup.CreatePalmAgeGTable",
        {Text("AGELO", 3), Text("AGEHI", 3), Text("AGEDESC", 6)});
    return t;
  }();
  return tables;
}

const std::vector<CompanionFile>& CompanionFiles() {
  // The companion keeps the layouts it was given; its own two files hold what it says of
  // itself (the version in the control file).
  static const std::vector<CompanionFile> files = {
      {"ENV080200_KVLMEET.pdb", "MEET.MDB", Named("MEET", MeetFields())},
      {"ENV080200_KVLTIMES.pdb", "TIMES.MDB", Named("RESULTS", TimesFields())},
      {"ENV080200_KVLEVENT.pdb", "EVENTS.MDB", Named("EVENTS", EventFields())},
      {"ENV080200_KVLSPLIT.pdb", "SPLITS.MDB", Named("SPLITS", SplitFields())},
      {"ENV080200_KVLATHLT.pdb", "ATHLETES.MDB", Named("ATHLETES", AthleteFields())},
      {"ENV080200_KVLADMIN.pdb", "ADMIN.MDB", Named("ADMIN", {Text("ADMINTEXT", 255)})},
      {"ENV080200_KVLCONTROL.pdb", "CONTROLD.MDB", Named("CONTROL", {Text("VERSIONNUM", 10)})},
  };
  return files;
}

}  // namespace kvlr
