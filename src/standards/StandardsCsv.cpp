#include "standards/StandardsCsv.h"

#include <charconv>
#include <fstream>
#include <limits>
#include <map>
#include <optional>
#include <sstream>
#include <tuple>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/FileOps.h"
#include "core/OutputFile.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "standards/StandardEditing.h"
#include "standards/StandardTexts.h"
#include "standards/Standards.h"
#include "store/Schema.h"
#include "store/TableBuilder.h"
#include "store/UserTables.h"

namespace kvlr {
namespace {

constexpr std::string_view kExportSource = "frmStan.ExportCsv";

constexpr std::string_view kKeyHeadings[] = {"Sex",    "I_R",      "Lo_Age",
                                             "Hi_Age", "Distance", "Stroke"};
constexpr size_t kKeyColumns = std::size(kKeyHeadings);
// Per designator: for each course two columns, Faster (slow limit) then Slower (fast limit).
constexpr size_t kColumnsPerDesignator = 6;

std::string CsvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string out = "\"";
  for (char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + "\"";
}

std::string CsvLine(const std::vector<std::string>& fields) {
  std::string line;
  for (size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) line += ',';
    line += CsvField(fields[i]);
  }
  return line + "\n";
}

// The fields of one line; false when a quote isn't closed.
bool SplitCsv(std::string_view line, std::vector<std::string>& fields) {
  fields.clear();
  std::string field;
  bool quoted = false;
  for (size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (quoted) {
      if (c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
        field += '"';
        ++i;
      } else if (c == '"') {
        quoted = false;
      } else {
        field += c;
      }
    } else if (c == '"') {
      quoted = true;
    } else if (c == ',') {
      fields.push_back(std::move(field));
      field.clear();
    } else {
      field += c;
    }
  }
  fields.push_back(std::move(field));
  return !quoted;
}

std::string Heading(std::string_view designator, char course, bool faster) {
  return fmt::format("{} {} {}", designator, course, faster ? "Faster" : "Slower");
}

bool WholeNumber(std::string_view text, int low, int high, int& value) {
  const std::string t = Trim(text);
  const auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), value);
  return !t.empty() && ec == std::errc() && end == t.data() + t.size() && value >= low &&
         value <= high;
}

// Digits only, as a number no larger than `high`.
std::optional<int64_t> Digits(std::string_view text, int64_t high) {
  int64_t value = 0;
  if (text.empty()) return std::nullopt;
  for (char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
    if (value > high) return std::nullopt;
  }
  return value;
}

// A cell's time: empty (no limit, 0), "m:ss.hh" with any number of minute digits, or "s.hh".
// Typed-time reading would take "1:05" as 1.05 s and cut long times, so a cell must spell out
// the seconds and both hundredths.
std::optional<int32_t> CellScore(std::string_view cell) {
  const std::string text = Trim(cell);
  if (text.empty()) return 0;
  constexpr int64_t kMax = std::numeric_limits<int32_t>::max();
  const size_t point = text.find('.');
  if (point == std::string::npos || text.size() - point != 3) return std::nullopt;
  const auto hundredths = Digits(std::string_view(text).substr(point + 1), 99);
  const size_t colon = text.find(':');
  std::optional<int64_t> minutes = 0;
  std::optional<int64_t> seconds;
  if (colon == std::string::npos) {
    seconds = Digits(std::string_view(text).substr(0, point), kMax / 100);
  } else {
    if (point - colon != 3) return std::nullopt;
    minutes = Digits(std::string_view(text).substr(0, colon), kMax / 6000);
    seconds = Digits(std::string_view(text).substr(colon + 1, 2), 59);
  }
  if (!hundredths || !minutes || !seconds) return std::nullopt;
  const int64_t score = *minutes * 6000 + *seconds * 100 + *hundredths;
  if (score > kMax) return std::nullopt;
  return static_cast<int32_t>(score);
}

CsvImportResult Refused(std::string message) {
  CsvImportResult result;
  result.message = std::move(message);
  return result;
}

struct ParsedHeader {
  std::vector<std::string> designators;
  std::string problem;
};

// Checks the header against the layout; designators in header order.
ParsedHeader ParseHeader(const std::vector<std::string>& fields) {
  ParsedHeader header;
  if (fields.size() < kKeyColumns) {
    header.problem =
        fmt::format("Line 1: the header must start with {}.", fmt::join(kKeyHeadings, ","));
    return header;
  }
  for (size_t i = 0; i < kKeyColumns; ++i) {
    if (!SameName(Trim(fields[i]), kKeyHeadings[i])) {
      header.problem = fmt::format("Line 1: column {} should be \"{}\", not \"{}\".", i + 1,
                                   kKeyHeadings[i], fields[i]);
      return header;
    }
  }
  const size_t rest = fields.size() - kKeyColumns;
  if (rest == 0 || rest % kColumnsPerDesignator != 0 ||
      rest / kColumnsPerDesignator > static_cast<size_t>(kDesignatorCount)) {
    header.problem = fmt::format(
        "Line 1: after the first six columns the header must have six time columns for each "
        "of 1 to {} designators; it has {}.",
        kDesignatorCount, rest);
    return header;
  }
  for (size_t at = kKeyColumns; at < fields.size(); ++at) {
    const std::string text = Trim(fields[at]);
    const size_t last_blank = text.rfind(' ');
    const size_t course_blank = last_blank == std::string::npos || last_blank == 0
                                    ? std::string::npos
                                    : text.rfind(' ', last_blank - 1);
    if (course_blank == std::string::npos || course_blank == 0) {
      header.problem = fmt::format(
          "Line 1: column {} \"{}\" is not \"<designator> <course> Faster\" or \"... Slower\".",
          at + 1, fields[at]);
      return header;
    }
    const std::string course = text.substr(course_blank + 1, last_blank - course_blank - 1);
    if (course != "Y" && course != "S" && course != "L") {
      header.problem = fmt::format("Line 1: unknown course \"{}\" in column {} \"{}\".", course,
                                   at + 1, fields[at]);
      return header;
    }
    const size_t in_group = (at - kKeyColumns) % kColumnsPerDesignator;
    if (in_group == 0) header.designators.push_back(Trim(text.substr(0, course_blank)));
    const std::string& designator = header.designators.back();
    const std::string expected =
        Heading(designator, CourseLetters[in_group / 2], in_group % 2 == 0);
    if (text != expected) {
      header.problem = fmt::format("Line 1: column {} should be \"{}\", not \"{}\".", at + 1,
                                   expected, fields[at]);
      return header;
    }
  }
  for (size_t i = 0; i < header.designators.size(); ++i) {
    const std::string& d = header.designators[i];
    if (d.size() > 4) {
      header.problem = fmt::format("Line 1: the designator \"{}\" is longer than 4 characters.", d);
      return header;
    }
    for (size_t j = 0; j < i; ++j) {
      if (SameName(d, header.designators[j])) {
        header.problem = fmt::format("Line 1: the designator \"{}\" appears twice.", d);
        return header;
      }
    }
  }
  return header;
}

}  // namespace

std::string StandardCsvText(SQLite::Database& db, const StandardDefinition& def) {
  std::vector<int> in_use;
  for (int i = 0; i < kDesignatorCount; ++i) {
    if (!def.designators[static_cast<size_t>(i)].empty()) in_use.push_back(i);
  }
  std::vector<std::string> fields(std::begin(kKeyHeadings), std::end(kKeyHeadings));
  for (int i : in_use) {
    for (char course : CourseLetters) {
      fields.push_back(Heading(def.designators[static_cast<size_t>(i)], course, true));
      fields.push_back(Heading(def.designators[static_cast<size_t>(i)], course, false));
    }
  }
  std::string text = CsvLine(fields);
  const std::string table = StandardTableName(def.name);
  if (!TableExists(db, table)) return text;
  auto time = [](int32_t score) { return score == 0 ? std::string() : FormatTime(score, false); };
  for (StandardLine& line :
       ReadStandardLines(db, table, StandardFilter{}, StandardSort::kRelaysLast)) {
    fields = {line.sex,
              line.i_r,
              std::to_string(line.lo_age),
              std::to_string(line.hi_age),
              std::to_string(line.distance),
              std::to_string(line.stroke)};
    for (int i : in_use) {
      for (char course : CourseLetters) {
        fields.push_back(time(line.Slow(course, i)));
        fields.push_back(time(line.Fast(course, i)));
      }
    }
    text += CsvLine(fields);
  }
  return text;
}

CsvImportResult ImportStandardCsv(AppState& state, std::string_view name, std::string_view text) {
  SQLite::Database& db = *state.gDb;
  const std::string std_name = Trim(name);
  if (std_name.empty() || StandardTableName(std_name).empty()) {
    return Refused(std::string(stdtext::kNeedName));
  }
  if (std_name.size() > 8) {
    return Refused(fmt::format("The name \"{}\" is longer than 8 characters.", std_name));
  }
  const std::string table = StandardTableName(std_name);
  const auto existing = ReadStandardDefinition(db, std_name);
  if (!existing && TableExists(db, table)) {
    return Refused(std_name + std::string(stdtext::kAlreadyExists));
  }

  // Spreadsheets put a byte order mark in front of UTF-8.
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  // Physical lines, numbered from 1; blank lines are skipped.
  std::vector<std::pair<int, std::string>> lines;
  {
    int number = 0;
    size_t start = 0;
    while (start <= text.size()) {
      size_t end = text.find('\n', start);
      if (end == std::string_view::npos) end = text.size();
      std::string line(text.substr(start, end - start));
      if (!line.empty() && line.back() == '\r') line.pop_back();
      ++number;
      if (!Trim(line).empty()) lines.emplace_back(number, std::move(line));
      start = end + 1;
    }
  }
  if (lines.empty() || lines.front().first != 1) return Refused(std::string(stdtext::kCsvEmpty));

  std::vector<std::string> fields;
  if (!SplitCsv(lines.front().second, fields)) {
    return Refused("Line 1: a quoted field is not closed.");
  }
  const ParsedHeader header = ParseHeader(fields);
  if (!header.problem.empty()) return Refused(header.problem);
  const std::vector<std::string> headings = fields;

  // Where each header designator goes: its position in the standard.
  std::vector<int> slot;
  StandardDefinition def;
  if (existing) {
    def = *existing;
    for (const std::string& d : header.designators) {
      int found = -1;
      for (int i = 0; i < kDesignatorCount && found < 0; ++i) {
        const std::string& have = def.designators[static_cast<size_t>(i)];
        if (!have.empty() && SameName(have, d)) found = i;
      }
      if (found < 0) {
        return Refused(
            fmt::format("Line 1: \"{}\" is not a designator of the standard {}.", d, def.name));
      }
      slot.push_back(found);
    }
  } else {
    def.name = std_name;
    for (size_t i = 0; i < header.designators.size(); ++i) {
      def.designators[i] = header.designators[i];
      slot.push_back(static_cast<int>(i));
    }
  }

  std::vector<StandardLine> parsed;
  std::map<std::tuple<int, int, std::string, int, int, std::string>, int> seen;
  for (size_t n = 1; n < lines.size(); ++n) {
    const int number = lines[n].first;
    if (!SplitCsv(lines[n].second, fields)) {
      return Refused(fmt::format("Line {}: a quoted field is not closed.", number));
    }
    if (fields.size() != headings.size()) {
      return Refused(fmt::format("Line {}: {} columns where the header has {}.", number,
                                 fields.size(), headings.size()));
    }
    StandardLine line;
    line.sex = UCase(Trim(fields[0]));
    line.i_r = UCase(Trim(fields[1]));
    if (line.sex != "M" && line.sex != "F") {
      return Refused(fmt::format("Line {}: Sex must be M or F, not \"{}\".", number, fields[0]));
    }
    if (line.i_r != "I" && line.i_r != "R") {
      return Refused(fmt::format("Line {}: I_R must be I or R, not \"{}\".", number, fields[1]));
    }
    int lo = 0, hi = 0, distance = 0, stroke = 0;
    if (!WholeNumber(fields[2], 0, 99, lo) || !WholeNumber(fields[3], 0, 99, hi) || hi < lo) {
      return Refused(fmt::format(
          "Line {}: the ages \"{}\" to \"{}\" are not a range from 0 (under) to 99 (over).", number,
          fields[2], fields[3]));
    }
    if (!WholeNumber(fields[4], 1, 32767, distance)) {
      return Refused(fmt::format("Line {}: \"{}\" is not a distance.", number, fields[4]));
    }
    if (!WholeNumber(fields[5], 1, 7, stroke)) {
      return Refused(
          fmt::format("Line {}: \"{}\" is not a stroke code (1 to 7).", number, fields[5]));
    }
    line.lo_age = static_cast<int16_t>(lo);
    line.hi_age = static_cast<int16_t>(hi);
    line.distance = static_cast<int16_t>(distance);
    line.stroke = static_cast<int16_t>(stroke);
    for (size_t at = kKeyColumns; at < fields.size(); ++at) {
      const auto score = CellScore(fields[at]);
      if (!score) {
        return Refused(fmt::format("Line {}, column \"{}\": \"{}\" is not a time (m:ss.hh).",
                                   number, Trim(headings[at]), fields[at]));
      }
      const size_t in_group = (at - kKeyColumns) % kColumnsPerDesignator;
      const int index = slot[(at - kKeyColumns) / kColumnsPerDesignator];
      const char course = CourseLetters[in_group / 2];
      (in_group % 2 == 0 ? line.Slow(course, index) : line.Fast(course, index)) = *score;
    }
    const auto key = std::make_tuple(lo, hi, line.sex, stroke, distance, line.i_r);
    if (auto [it, added] = seen.emplace(key, number); !added) {
      return Refused(fmt::format(
          "Line {}: the same ages, sex, distance, stroke and I_R as line {}.", number, it->second));
    }
    parsed.push_back(std::move(line));
  }

  {
    SQLite::Transaction transaction(db);
    if (!TableExists(db, table)) CreateTable(db, StandardsTable(table));
    if (!existing) WriteStandardDefinition(db, def);
    DeleteAllStandardLines(db, table);
    for (const StandardLine& line : parsed) InsertStandardLine(db, table, line);
    transaction.commit();
  }
  if (SameName(StandardTableName(state.gStandardName), table)) OpenCurrentStandard(state);
  CsvImportResult result;
  result.ok = true;
  result.lines = static_cast<int>(parsed.size());
  result.created = !existing;
  return result;
}

CsvImportResult ImportStandardCsvFile(AppState& state, std::string_view name,
                                      const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return Refused(fmt::format("The file {} can't be read.", file.string()));
  std::ostringstream text;
  text << in.rdbuf();
  return ImportStandardCsv(state, name, text.str());
}

bool ExportStandardCsvFile(AppState& state, std::string_view name,
                           const std::filesystem::path& file, bool already_asked) {
  const std::string std_name = Trim(name);
  std::optional<StandardDefinition> def;
  try {
    def = ReadStandardDefinition(*state.gDb, std_name);
  } catch (const std::exception& e) {
    ReportError(state, kExportSource, e);
    return false;
  }
  if (!def) {
    state.io->Tell(fmt::format("There is no standard named {}.", std_name));
    return false;
  }
  // The question stays outside the traps: an unanswered question is not a failure.
  if (!OutputFileOk(state, file, kCsvOutput, already_asked)) return false;
  return RunTrapped(
      state, kExportSource,
      [&] {
        WriteFileAtomically(file, StandardCsvText(*state.gDb, *def));
        return true;
      },
      false);
}

}  // namespace kvlr
