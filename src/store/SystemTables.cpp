#include "store/SystemTables.h"

namespace kvlr {

const std::vector<TableDef>& SystemTables() {
  static const std::vector<TableDef> tables = {
      {"Settings",
       "Settings",
       "basSetup.CreateSysSettingsTable",
       {Text("FullName", 80), Text("ShortName", 20), Text("StandardFile", 8), DateField("Date")},
       {}},
      {"Reminders", "Reminders", "basSetup.CreateSysReminderTable", {DateField("LastUpdate")}, {}},
  };
  return tables;
}

}  // namespace kvlr
