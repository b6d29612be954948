#pragma once
// The tables of the report database, which report screens fill and the layout step prints.

#include <vector>

#include "store/Schema.h"

namespace kvlr {

// In the order the report check makes the missing ones. RMEETR, the relay twin of RMEETI,
// comes last.
const std::vector<TableDef>& ReportTables();

}  // namespace kvlr
