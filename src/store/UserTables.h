#pragma once
// The tables of a user database.

#include <string_view>
#include <vector>

#include "store/Schema.h"

namespace kvlr {

// Every table of a user database except the workout tables, in the order the completion
// of an opened file walks them.
const std::vector<TableDef>& UserTables();

// The tables a new file gets, in the order they are made.
const std::vector<std::string_view>& NewDatabaseTableOrder();

// The layout of a standards table of one standards file (made when that file is added).
TableDef StandardsTable(std::string table_name);

// Version of the table layout of this release.
inline constexpr std::string_view kDbVersion = "2.1Da";

}  // namespace kvlr
