#pragma once
// The tables of the system file "KVL-Rsys.mdb": the databases used on this machine and the
// date of the last update reminder.

#include <vector>

#include "store/Schema.h"

namespace kvlr {

const std::vector<TableDef>& SystemTables();  // Settings, Reminders

}  // namespace kvlr
