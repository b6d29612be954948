#include "workouts/WorkoutExchange.h"

#include <unistd.h>

#include <fstream>
#include <set>

#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include "core/FileOps.h"
#include "core/VbRules.h"
#include "store/ZipArchive.h"
#include "workouts/WorkoutLines.h"
#include "workouts/WorkoutNotes.h"
#include "workouts/WorkoutStore.h"
#include "workouts/WorkoutTexts.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view kWorkLetters = "123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kStrokeLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ123456789";

bool StartsWith(std::string_view text, std::string_view head) {
  return text.substr(0, head.size()) == head;
}

std::vector<std::string> FileLines(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw FileError(err::kFileNotFound, "cannot open " + file.string());
  std::vector<std::string> lines;
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
  }
  return lines;
}

std::string Field(const std::vector<std::string>& f, size_t k) {
  return k - 1 < f.size() ? f[k - 1] : std::string();
}

long Num(const std::vector<std::string>& f, size_t k) {
  return static_cast<long>(ToInt32(Val(Field(f, k))));
}

// Code tables as they stand, upper-cased code -> name.
std::map<std::string, std::string> Codes(SQLite::Database& db, const char* table) {
  std::map<std::string, std::string> out;
  SQLite::Statement q(db, std::string("SELECT stroke_abbr, stroke_name FROM ") + table);
  while (q.executeStep()) out[UCase(Trim(q.getColumn(0).getString()))] = q.getColumn(1).getString();
  return out;
}

// A category of the file: kept, mapped to a free code, and added when new here.
void TakeCategory(SQLite::Database& db, bool work, const std::string& file_code,
                  const std::string& name, std::map<std::string, std::string>& mapping) {
  const char* table = work ? "WorkCategory" : "StrokeCategory";
  auto codes = Codes(db, table);
  const std::string code = UCase(Trim(file_code));
  if (code.empty()) return;
  auto it = codes.find(code);
  if (it != codes.end() && it->second == name) return;
  std::string given = code;
  if (it != codes.end()) {
    given.clear();
    for (char ch : work ? kWorkLetters : kStrokeLetters) {
      std::string candidate = work ? std::string(1, ch) : std::string(1, ch) + code.substr(1);
      if (!codes.count(candidate)) {
        given = candidate;
        break;
      }
    }
    if (given.empty()) return;
  }
  mapping[code] = given;
  SQLite::Statement ins(db, std::string("INSERT INTO ") + table +
                                " (stroke_abbr, stroke_name) VALUES (?, ?)");
  ins.bind(1, given.substr(0, work ? 1 : 3));
  ins.bind(2, name.substr(0, 20));
  ins.exec();
}

std::string Mapped(const std::map<std::string, std::string>& m, const std::string& code) {
  auto it = m.find(UCase(Trim(code)));
  return it == m.end() ? code : it->second;
}

std::string MappedLetters(const std::map<std::string, std::string>& m, const std::string& type) {
  std::string out;
  for (char ch : type) out += ch == ' ' ? std::string(" ") : Mapped(m, std::string(1, ch));
  return out;
}

std::string Quoted(std::string text) {
  for (char& ch : text) {
    if (ch == '"') ch = '\'';
  }
  return "\"" + text + "\"";
}

}  // namespace

std::vector<std::string> SplitWk3Fields(std::string_view line) {
  std::vector<std::string> fields;
  std::string field;
  bool quoted = false;
  for (size_t i = 0; i < line.size(); ++i) {
    const char ch = line[i];
    if (quoted) {
      if (ch == '"' && i + 1 < line.size() && line[i + 1] == '"') {
        field += '"';
        ++i;
      } else if (ch == '"') {
        quoted = false;
      } else {
        field += ch;
      }
    } else if (ch == '"') {
      quoted = true;
    } else if (ch == ',') {
      fields.push_back(std::move(field));
      field.clear();
    } else {
      field += ch;
    }
  }
  fields.push_back(std::move(field));
  return fields;
}

std::string RefuseSiblingBackup(const fs::path& file) {
  const std::string name = UCase(file.filename().string());
  if (StartsWith(name, "SWGSBKUP")) return std::string(wk_text::kGalaBackup);
  if (StartsWith(name, "SWCSBKUP")) return std::string(wk_text::kClubBackup);
  return {};
}

Wk3Summary ReadWk3Summary(const fs::path& file) {
  Wk3Summary s;
  std::vector<std::string> lines;
  try {
    lines = FileLines(file);
  } catch (const std::exception& e) {
    s.message = std::string(wk_text::kReadError) + e.what();
    return s;
  }
  if (lines.empty() || lines[0].find(wk_text::kWk3Tag) == std::string::npos) {
    s.message = std::string(wk_text::kNotWk3);
    return s;
  }
  const auto f = SplitWk3Fields(lines[0]);
  s.version = Field(f, 3);
  s.creator = Field(f, 4);
  s.created = Field(f, 5) + "/" + Field(f, 6) + "/" + Field(f, 7);
  for (const auto& l : lines) s.workouts += StartsWith(l, "<W>") ? 1 : 0;
  s.ok = true;
  return s;
}

Wk3Unzip UnzipWorkoutExport(const fs::path& zip, const fs::path& temp_folder) {
  Wk3Unzip out;
  try {
    std::error_code ec;
    fs::remove_all(temp_folder, ec);
    MakeFolder(temp_folder);
    ZipArchive archive(zip);
    for (size_t i = 0; i < archive.Members().size(); ++i) {
      const auto& m = archive.Members()[i];
      const auto base = SafeMemberBaseName(m.name);
      if (!m.regular_file || !base || UCase(fs::path(*base).extension().string()) != ".WK3") continue;
      archive.Extract(i, temp_folder / *base, 100ull << 20);
      out.files.push_back(temp_folder / *base);
    }
    if (out.files.empty()) out.message = std::string(wk_text::kNoWk3InZip);
  } catch (const std::exception& e) {
    out.files.clear();
    out.message = std::string(wk_text::kUnzipFailed) + e.what();
  }
  return out;
}

Wk3Import ImportWorkouts(AppState& state, const fs::path& file,
                         const std::function<void(const std::string&)>& progress) {
  Wk3Import out;
  const auto summary = ReadWk3Summary(file);
  if (!summary.ok) {
    out.message = summary.message;
    return out;
  }
  SQLite::Database& db = *state.gDb;
  const fs::path notes = WorkoutNotesFile(state);
  const std::string group = state.gAthlete > 0 ? std::to_string(state.gAthlete) : "---";
  size_t at = 0;
  try {
    const auto lines = FileLines(file);
    std::unique_ptr<SQLite::Transaction> tx;
    int32_t ptr = 0;
    std::vector<WkLine> rows;
    std::string note;
    for (at = 1; at < lines.size(); ++at) {
      const std::string& line = lines[at];
      if (StartsWith(line, "<N>")) {
        if (ptr == 0) continue;
        if (!note.empty()) note += "\r\n";
        note += line.size() > 4 ? line.substr(4) : std::string();
        continue;
      }
      const auto f = SplitWk3Fields(line);
      const std::string tag = f[0];
      if (tag == "<C>" || tag == "<T>") {
        TakeCategory(db, tag == "<T>", Field(f, 2), Field(f, 3), tag == "<T>" ? out.works : out.strokes);
      } else if (tag == "<W>") {
        tx = std::make_unique<SQLite::Transaction>(db);
        if (++out.imported % 100 == 0 && progress) {
          progress(std::string(wk_text::kImporting) + std::to_string(out.imported));
        }
        const auto date = Date::FromParts(static_cast<int>(Num(f, 5)), static_cast<int>(Num(f, 3)),
                                          static_cast<int>(Num(f, 4)));
        if (!date) throw FormatError(err::kDataError, "bad workout date");
        SQLite::Statement ins(db,
                              "INSERT INTO WkParam (wk_num, wk_date, start_time, rest_period, "
                              "group_abbr, subgroup_abbr, course_yls, tot_yards, tot_stress, "
                              "ck_selected) VALUES (?, ?, ?, ?, ?, ' ', ?, ?, ?, 0)");
        ins.bind(1, NextWorkoutNumber(db));
        ins.bind(2, date->Iso());
        ins.bind(3, static_cast<int64_t>(Num(f, 6)));
        ins.bind(4, static_cast<int64_t>(Num(f, 7)));
        ins.bind(5, group);
        ins.bind(6, Field(f, 10).substr(0, 1));
        ins.bind(7, static_cast<int64_t>(Num(f, 11)));
        ins.bind(8, static_cast<int64_t>(Num(f, 12)));
        ins.exec();
        ptr = static_cast<int32_t>(db.getLastInsertRowid());
        rows.clear();
        note.clear();
      } else if (tag == "<>" && ptr != 0) {
        WkLine l;
        l.wk_line = static_cast<int16_t>(Num(f, 2));
        l.wk_type = Field(f, 3).empty() ? "S" : Field(f, 3);
        l.circuit_line = static_cast<int16_t>(Num(f, 4));
        l.circuit_tot = static_cast<int16_t>(Num(f, 5));
        l.circuit_reps = static_cast<int16_t>(Num(f, 6));
        l.set_reps = static_cast<int32_t>(Num(f, 7));
        l.set_dist = static_cast<int32_t>(Num(f, 8));
        l.set_interval = static_cast<int32_t>(Num(f, 9));
        l.set_desc = Field(f, 10);
        l.set_note = Field(f, 11);
        l.set_energyno = static_cast<int16_t>(Num(f, 12));
        l.set_type = MappedLetters(out.works, Field(f, 13));
        l.set_categoryabbr = Mapped(out.strokes, Field(f, 14));
        l.tot_yards = static_cast<int32_t>(Num(f, 15));
        l.set_starttime = static_cast<int32_t>(Num(f, 16));
        l.set_finishtime = static_cast<int32_t>(Num(f, 17));
        rows.push_back(l);
      } else if (tag == "<Z>" && ptr != 0) {
        WriteWorkoutLines(db, ptr, rows);
        tx->commit();
        tx.reset();
        if (!Trim(note).empty()) AppendWorkoutNote(notes, ptr, note, state.clock->Now());
        ptr = 0;
      }
    }
    if (tx) tx->commit();  // a last workout without its end keeps what it read
    out.ok = true;
    out.message = std::string(wk_text::kImportCompleted);
  } catch (const std::exception& e) {
    out.message = fmt::format("{} (line {})", e.what(), at + 1);
  }
  return out;
}

void WriteWk3File(AppState& state, const std::vector<int32_t>& wk_ptrs, const fs::path& file,
                  const std::string& creator) {
  SQLite::Database& db = *state.gDb;
  const Date today = state.clock->Today();
  std::string text = fmt::format("{},{},{},{},{},{}\r\n", wk_text::kWk3Tag, "2.1", Quoted(creator),
                                  today.day, today.month, today.year);
  for (auto [tag, table] : {std::pair{"<C>", "StrokeCategory"}, std::pair{"<T>", "WorkCategory"}}) {
    SQLite::Statement q(db, std::string("SELECT stroke_abbr, stroke_name FROM ") + table +
                                " ORDER BY stroke_abbr");
    while (q.executeStep()) {
      text += fmt::format("{},{},{}\r\n", tag, Quoted(q.getColumn(0).getString()),
                          Quoted(q.getColumn(1).getString()));
    }
  }
  const fs::path notes = WorkoutNotesFile(state);
  for (int32_t ptr : wk_ptrs) {
    const auto h = ReadWorkout(db, ptr);
    if (!h) continue;
    text += fmt::format("<W>,{},{},{},{},{},{},{},{},{},{},{}\r\n", h->wk_num, h->wk_date.month,
                        h->wk_date.day, h->wk_date.year, h->start_time, h->rest_period,
                        Quoted(h->group_abbr), Quoted(h->subgroup_abbr), Quoted(h->course_yls),
                        h->tot_yards, h->tot_stress);
    for (const auto& l : ReadWorkoutLines(db, ptr)) {
      text += fmt::format("<>,{},{},{},{},{},{},{},{},{},{},{},{},{},{},{},{}\r\n", l.wk_line,
                          Quoted(l.wk_type), l.circuit_line, l.circuit_tot, l.circuit_reps,
                          l.set_reps, l.set_dist, l.set_interval, Quoted(l.set_desc),
                          Quoted(l.set_note), l.set_energyno, Quoted(l.set_type),
                          Quoted(l.set_categoryabbr), l.tot_yards, l.set_starttime,
                          l.set_finishtime);
    }
    const auto note = ReadWorkoutNote(notes, ptr);
    if (note.found && !Trim(note.text).empty()) {
      size_t start = 0;
      while (start <= note.text.size()) {
        const size_t end = note.text.find("\r\n", start);
        text += "<N>," + note.text.substr(start, end - start) + "\r\n";
        if (end == std::string::npos) break;
        start = end + 2;
      }
    }
    text += "<Z>\r\n";
  }
  WriteFileAtomically(file, text);
}

void gZipWKExportFiles(const std::vector<fs::path>& files, const fs::path& zip) {
  std::vector<ZipSource> members;
  for (const auto& f : files) members.push_back({f.filename().string(), f});
  ZipArchive::Create(zip, members, "", 6);
}

Wk3Export ExportWorkouts(AppState& state, const fs::path& folder, const Date& from,
                         const Date& to) {
  Wk3Export out;
  std::vector<int32_t> ptrs;
  SQLite::Statement q(*state.gDb,
                      "SELECT wk_ptr FROM WkParam WHERE (? = 0 OR wk_date >= ?) AND "
                      "(? = 0 OR wk_date <= ?) ORDER BY wk_date, start_time, wk_ptr");
  q.bind(1, from == kNullDate ? 0 : 1);
  q.bind(2, from.Iso());
  q.bind(3, to == kNullDate ? 0 : 1);
  q.bind(4, to.Iso());
  while (q.executeStep()) ptrs.push_back(q.getColumn(0).getInt());
  out.workouts = static_cast<int>(ptrs.size());
  if (ptrs.empty()) return out;
  const std::string name = fs::path(state.gDatabaseName).stem().string() + "-" +
                           std::string(wk_text::kExportName);
  const fs::path temp = state.home.TempDir() / fmt::format("wkexport-{}", getpid());
  MakeFolder(temp);
  MakeFolder(folder);
  const fs::path wk3 = temp / (name + ".wk3");
  try {
    WriteWk3File(state, ptrs, wk3);
    const Date today = state.clock->Today();
    out.zip = folder / fmt::format("{}-{:04}{:02}{:02}.zip", name, today.year, today.month, today.day);
    gZipWKExportFiles({wk3}, out.zip);
  } catch (...) {
    std::error_code ec;
    fs::remove_all(temp, ec);
    throw;
  }
  std::error_code ec;
  fs::remove_all(temp, ec);
  return out;
}

std::string CopyWorkoutFile(const fs::path& file, const fs::path& folder) {
  try {
    MakeFolder(folder);
    const fs::path target = folder / file.filename();
    RemoveIfExists(target);
    CopyFileSafely(file, target);
    return "File copied to " + folder.string() + "\rFile is named: " + file.filename().string();
  } catch (const std::exception&) {
    return "Failed to access " + folder.string() + ". Quiting.";
  }
}

fs::path GroupSelectionFile(const fs::path& program_home, const std::string& report,
                            bool subgroups) {
  return program_home / ((subgroups ? "WK-SubgroupSel" : "WK-GroupSel") + report + ".txt");
}

std::vector<std::string> ReadGroupSelection(const fs::path& file) {
  std::vector<std::string> codes;
  std::error_code ec;
  if (!fs::exists(file, ec)) return codes;
  for (auto& line : FileLines(file)) {
    if (!Trim(line).empty()) codes.push_back(Trim(line));
  }
  return codes;
}

void SaveGroupSelection(const fs::path& file, const std::vector<std::string>& codes) {
  if (codes.empty()) {
    RemoveIfExists(file);
    return;
  }
  std::string text;
  for (const auto& c : codes) text += c + "\r\n";
  WriteFileAtomically(file, text);
}

std::vector<bool> gApplyWKFavoriteGroups(const std::vector<std::string>& codes,
                                         const std::vector<std::string>& saved) {
  const std::set<std::string> marks(saved.begin(), saved.end());
  std::vector<bool> out;
  for (const auto& c : codes) out.push_back(marks.count(Trim(c)) > 0);
  return out;
}

}  // namespace kvlr
