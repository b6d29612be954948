#pragma once
// The error log "KVLError.Log" in the program home: appended to, never trimmed.

#include <filesystem>
#include <string>
#include <string_view>

#include "core/Date.h"

namespace kvlr {

struct ErrorLogEntry {
  DateTime when;
  std::string description;
  std::string source;
  int number = 0;
  std::string database;  // short name of the current database
  int32_t athlete = 0;
  int32_t meet = 0;
};

// "Sunday, November 22, 2026" and "1:29:09 AM": the long date and long time of the log.
std::string LongDateText(const Date& date);
std::string LongTimeText(const DateTime& when);

// The entry's lines, each ending in a line break, closed by the row of "=".
std::string FormatLogEntry(const ErrorLogEntry& entry);

// Appends one entry; a log that can't be written is passed over silently (false comes back).
bool AppendErrorLog(const std::filesystem::path& log_file, const ErrorLogEntry& entry);

}  // namespace kvlr
