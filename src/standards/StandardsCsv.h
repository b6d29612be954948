#pragma once
// A standard exchanged as CSV text. One header line:
//   Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke
// then, for each designator in use in order and each course Y, S, L in turn,
//   "<designator> <course> Faster" (the slow limit S(n)), "<designator> <course> Slower"
// (the fast limit F(n)); one line per line of the standard follows. Times are "m:ss.hh"
// texts ("ss.hh" under a minute, as FormatTime writes them); an empty cell is no limit. Fields
// holding ',' or '"' are quoted as usual. A reader takes a UTF-8 byte order mark and CRLF.

#include <filesystem>
#include <string>
#include <string_view>

#include "core/AppState.h"
#include "standards/StandardStore.h"

namespace kvlr {

// The CSV text of a standard's lines, ordered I_R, Hi_Age, Lo_Age, Stroke, Distance, Sex.
std::string StandardCsvText(SQLite::Database& db, const StandardDefinition& def);

struct CsvImportResult {
  bool ok = false;
  std::string message;   // why the text was refused, naming the line; "" when ok
  int lines = 0;         // lines stored
  bool created = false;  // the standard was new
};

// Stores the lines of `text` as the standard `name`: a new standard gets its STDNAME row and
// the header's designators (in header order); an existing one keeps its designators (the
// header must name only those) and has all its lines replaced. One transaction: a refused
// text changes nothing. The current standard is re-opened when it is the one imported.
// Store failures throw SQLite::Exception.
CsvImportResult ImportStandardCsv(AppState& state, std::string_view name, std::string_view text);

// The same from a file; a file that can't be read is refused with a message.
CsvImportResult ImportStandardCsvFile(AppState& state, std::string_view name,
                                      const std::filesystem::path& file);

// Writes the standard `name` to `file` when OutputFileOk allows it (`already_asked`: a file
// dialog asked about replacing), through a temporary name renamed into place. False when
// nothing was written: the user was told why, kept the file there, or a store or file failure
// was reported.
bool ExportStandardCsvFile(AppState& state, std::string_view name,
                           const std::filesystem::path& file, bool already_asked = false);

}  // namespace kvlr
