#include "handheld/PalmImport.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "handheld/HandheldFiles.h"
#include "handheld/HandheldTables.h"
#include "handheld/HandheldTexts.h"
#include "handheld/PalmText.h"
#include "handheld/Pdb.h"
#include "interchange/ImportSession.h"
#include "meets/Ranking.h"
#include "store/TableBuilder.h"

namespace kvlr {

namespace fs = std::filesystem;
using namespace palm_text;

namespace {

constexpr int kKnownVersions[] = {2, 3};

std::string Lines(std::initializer_list<std::string_view> lines) {
  std::string text;
  for (auto line : lines) text += (text.empty() ? "" : "\r\n") + std::string(line);
  return text;
}

template <size_t N>
std::string Lines(const std::string_view (&lines)[N]) {
  std::string text;
  for (auto line : lines) text += (text.empty() ? "" : "\r\n") + std::string(line);
  return text;
}

int32_t ScoreOf(const std::string& time_text) {
  std::string text = time_text;
  return NtFromTimeText(text) > 0 ? 0 : TimeTextToScore(text);
}

std::string CourseWord(std::string_view course) {
  if (course == "Y") return "Yards";
  if (course == "S") return "SCM";
  if (course == "L") return "LCM";
  return "";
}

}  // namespace

bool PalmRow::NoTime() const {
  return ScoreOf(swim_time) == 0;
}

fs::path GetPalmDirectory(AppState& state) {
  SQLite::Statement q(*state.gDb, "SELECT PalmImportDir FROM OPTIONS LIMIT 1");
  if (q.executeStep() && !Trim(TextOf(q.getColumn(0))).empty()) {
    return Trim(TextOf(q.getColumn(0)));
  }
  // The user's home: the default data folder sits right below it.
  return state.data_root.parent_path() / "Palm";
}

fs::path FindPalmFolder(AppState& state) {
  SQLite::Statement q(*state.gDb, "SELECT PalmImportDir FROM OPTIONS LIMIT 1");
  const bool kept = q.executeStep() && !Trim(TextOf(q.getColumn(0))).empty();
  const fs::path folder = kept ? GetPalmDirectory(state) : GetPalmDirectory(state) / "Backup";
  return FindFileNoCase(folder, kTimesPdb).empty() ? fs::path() : folder;
}

bool SetPalmDirectory(AppState& state, const fs::path& folder) {
  const std::string path = folder.string();
  if (path.size() > 60) {
    state.io->Tell(std::string(kPathTooLong[0]) + std::string(kPathTooLong[1]));
    return false;
  }
  if (FindFileNoCase(folder, kTimesPdb).empty()) {
    state.io->Tell(Lines(kFilesNotInFolder));
    return false;
  }
  SQLite::Statement update(*state.gDb, "UPDATE OPTIONS SET PalmImportDir = ?");
  update.bind(1, path);
  update.exec();
  state.io->Message(fmt::format("Set {} to: {}", kBackupDirectoryWord, path), box::kInformation,
                    "");
  return true;
}

PalmImportData::PalmImportData(const fs::path& folder)
    : db_(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE) {
  for (const CompanionFile& f : CompanionFiles()) {
    CreateTable(db_, f.table);
    const fs::path file = FindFileNoCase(folder, f.pdb);
    if (file.empty()) continue;  // the opening names the two it can't go without
    try {
      PdbToTable(db_, f.table, ReadPdb(ReadWholeFile(file)));
    } catch (const FormatError& e) {
      throw FormatError(err::kDataError, f.pdb + ": " + e.what());
    }
  }
}

int PalmImportData::Version() {
  SQLite::Statement q(db_, "SELECT VERSIONNUM FROM CONTROL ORDER BY rowid LIMIT 1");
  return q.executeStep() ? static_cast<int>(Val(TextOf(q.getColumn(0)))) : 0;
}

std::optional<PalmMeet> PalmImportData::FileMeet() {
  SQLite::Statement q(db_,
                      "SELECT MEETID, MEETNAME, MEETDATE, COURSE FROM MEET ORDER BY rowid LIMIT 1");
  if (!q.executeStep()) return std::nullopt;
  PalmMeet m;
  m.meet = static_cast<int32_t>(Val(TextOf(q.getColumn(0))));
  m.name = TextOf(q.getColumn(1));
  m.date = TextOf(q.getColumn(2));
  m.course = UCase(Trim(TextOf(q.getColumn(3))));
  m.course_word = CourseWord(m.course);
  return m;
}

std::vector<PalmRow> PalmImportData::Rows(int column) {
  static constexpr const char* kOrder[] = {
      "ATHLETES.SHOWNAME", "ATHLETES.SHOWNAME", "RESULTS.SEX",    "RESULTS.EVENTNUM",
      "EVENTS.AGEGROUP",   "RESULTS.DISTANCE",  "RESULTS.STROKE", "RESULTS.SWIM",
      "RESULTS.SWIMTIME"};
  const char* order = kOrder[column >= 0 && column <= 8 ? column : 1];
  SQLite::Statement q(
      db_,
      std::string("SELECT RESULTS.ATHLETEID, ATHLETES.SHOWNAME, RESULTS.SEX, RESULTS.EVENTNUM, "
                  "EVENTS.AGEGROUP, RESULTS.DISTANCE, RESULTS.STROKE, RESULTS.SWIM, "
                  "RESULTS.SWIMTIME, RESULTS.RESULTID, RESULTS.COURSE, RESULTS.PLACE, "
                  "RESULTS.AGE, EVENTS.SEX, RESULTS.STROKECODE FROM RESULTS "
                  "INNER JOIN ATHLETES ON RESULTS.ATHLETEID = ATHLETES.ATHLETEID "
                  "LEFT JOIN EVENTS ON RESULTS.EVENTNUM = EVENTS.EVENTNUM ORDER BY ") +
          order + ", RESULTS.rowid");
  std::vector<PalmRow> rows;
  while (q.executeStep()) {
    auto t = [&q](int i) { return TextOf(q.getColumn(i)); };
    PalmRow r{t(0), t(1), t(2),  t(3),  t(4),  t(5),  t(6), t(7),
              t(8), t(9), t(10), t(11), t(12), t(13), t(14), false, ""};
    r.chosen = !Trim(r.swim_time).empty();
    rows.push_back(std::move(r));
  }
  return rows;
}

std::optional<PalmOpening> OpenPalmImport(AppState& state, const fs::path& folder) {
  if (FindFileNoCase(folder, kTimesPdb).empty()) {
    state.io->Message(Lines(kNoResults), box::kExclamation, kNoResultsTitle);
    return std::nullopt;
  }
  if (FindFileNoCase(folder, kControlPdb).empty()) {
    state.io->Message(Lines(kNoControl), box::kExclamation, kNoControlTitle);
    return std::nullopt;
  }
  PalmOpening opening;
  try {
    opening.data = std::make_unique<PalmImportData>(folder);
  } catch (const FormatError& e) {
    state.io->Message(Lines({kNoData, e.what()}), box::kExclamation, kNoDataTitle);
    return std::nullopt;
  } catch (const std::exception& e) {
    state.io->Message(Lines({kCopyError, e.what()}), box::kExclamation, kCopyErrorTitle);
    return std::nullopt;
  }
  const int version = opening.data->Version();
  if (version < 2) {
    state.io->Tell(Lines(kOldVersion));
    return std::nullopt;
  }
  if (std::find(std::begin(kKnownVersions), std::end(kKnownVersions), version) ==
      std::end(kKnownVersions)) {
    state.io->Tell(Lines(kIncompatible));
    return std::nullopt;
  }
  const auto meet = opening.data->FileMeet();
  std::optional<std::pair<std::optional<Date>, std::optional<Date>>> dates;
  if (meet) {
    SQLite::Statement q(*state.gDb, "SELECT Start, AgeUp FROM MEET WHERE Meet = ?");
    q.bind(1, meet->meet);
    if (q.executeStep()) dates.emplace(DateOf(q.getColumn(0)), DateOf(q.getColumn(1)));
  }
  if (!dates) {
    state.io->Tell(Lines(kMeetNotFound));
    return std::nullopt;
  }
  opening.meet = *meet;
  opening.meet.start = dates->first;
  opening.meet.age_up = dates->second;
  opening.rows = opening.data->Rows();
  if (opening.rows.empty()) state.io->Tell(kNoTimedRows);
  return opening;
}

int32_t MatchPalmEvent(AppState& state, const PalmMeet& meet, const PalmRow& row,
                       std::string& problem) {
  SQLite::Database& db = *state.gDb;
  problem.clear();
  const int stroke = static_cast<int>(Val(row.stroke_code));
  const int distance = static_cast<int>(Val(row.distance));
  const std::string sex = Trim(row.event_sex).empty() ? Trim(row.sex) : Trim(row.event_sex);
  const int lo_hi = PalmLoHi(row.age_group).value_or(99);
  const PalmEventNumber number = ParsePalmEventNum(row.event_num);
  struct Found {
    int mt_ev = 0;
    std::string letter;
    int lo_hi = 99;
    std::string sex;
  };
  std::optional<Found> found;
  if (number.number != 0) {
    SQLite::Statement q(db,
                        "SELECT Stroke, Distance, Sex, Lo_Hi FROM MTEVENTE WHERE Meet = ? AND "
                        "MtEv = ? AND IFNULL(MtEvX, '') = ?");
    SQLite::bind(q, meet.meet, number.number, number.letter);
    if (q.executeStep()) {
      if (q.getColumn(0).getInt() != stroke || q.getColumn(1).getInt() != distance ||
          UCase(TextOf(q.getColumn(2))) != UCase(sex) || q.getColumn(3).getInt() != lo_hi) {
        problem = kEventMismatch;
        return 0;
      }
      found = Found{number.number, number.letter, lo_hi, sex};
    }
  }
  if (!found) {
    SQLite::Statement q(db,
                        "SELECT MtEv, IFNULL(MtEvX, '') FROM MTEVENTE WHERE Meet = ? AND "
                        "Stroke = ? AND Distance = ? AND Sex = ? AND Lo_Hi = ? ORDER BY MtEvent");
    SQLite::bind(q, meet.meet, stroke, distance, sex, lo_hi);
    if (q.executeStep()) {
      found = Found{q.getColumn(0).getInt(), TextOf(q.getColumn(1)), lo_hi, sex};
    } else {
      problem = kNoEvent;
      found = Found{number.number, number.letter, lo_hi, sex};
    }
  }
  // The result side keeps its own list: the same event there, made when missing.
  SQLite::Statement q(db,
                      "SELECT MtEvent FROM MTEVENT WHERE Meet = ? AND Stroke = ? AND "
                      "Distance = ? AND Sex = ? AND Lo_Hi = ? AND I_R = 'I' "
                      "ORDER BY (MtEv = ? AND IFNULL(MtEvX, '') = ?) DESC, MtEvent");
  SQLite::bind(q, meet.meet, stroke, distance, found->sex, found->lo_hi, found->mt_ev,
               found->letter);
  if (q.executeStep()) return q.getColumn(0).getInt();
  int mt_ev = found->mt_ev;
  std::string letter = found->letter;
  SQLite::Statement taken(db,
                          "SELECT COUNT(*) FROM MTEVENT WHERE Meet = ? AND MtEv = ? AND "
                          "IFNULL(MtEvX, '') = ?");
  SQLite::bind(taken, meet.meet, mt_ev, letter);
  taken.executeStep();
  if (mt_ev == 0 || taken.getColumn(0).getInt() > 0) {
    SQLite::Statement next(db, "SELECT IFNULL(MAX(MtEv), 0) + 1 FROM MTEVENT WHERE Meet = ?");
    next.bind(1, meet.meet);
    next.executeStep();
    mt_ev = next.getColumn(0).getInt();
    letter.clear();
  }
  SQLite::Statement add(db,
                        "INSERT INTO MTEVENT (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, "
                        "Stroke, Sex, I_R) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 'I')");
  SQLite::bind(add, meet.meet, mt_ev, letter, found->lo_hi, meet.course.substr(0, 1), distance,
               stroke, found->sex);
  add.exec();
  return static_cast<int32_t>(db.getLastInsertRowid());
}

namespace {

struct AthleteFacts {
  std::optional<Date> birth;
};

// `SavePalmResult`: the state word of the row, and the key of the written result (0 when
// nothing was written).
std::string SavePalmResult(AppState& state, const PalmMeet& meet, const PalmRow& row,
                           int32_t athlete, int32_t mt_event, int age, bool replace,
                           int32_t& result) {
  SQLite::Database& db = *state.gDb;
  const std::string f_p = Trim(row.swim).empty() ? "F" : UCase(Trim(row.swim)).substr(0, 1);
  result = 0;
  SQLite::Statement seek(db,
                         "SELECT Result FROM RESULT WHERE Meet = ? AND Athlete = ? AND I_R = 'I' "
                         "AND MtEvent = ? AND F_P = ?");
  SQLite::bind(seek, meet.meet, athlete, mt_event, f_p);
  const int32_t existing = seek.executeStep() ? seek.getColumn(0).getInt() : 0;
  if (existing != 0 && !replace) return std::string(kDuplicate);
  const uint8_t nt = NtFromTimeText(row.swim_time);
  const int32_t score = nt > 0 ? 0 : ScoreOf(row.swim_time);
  const std::string course =
      Trim(row.course).empty() ? meet.course.substr(0, 1) : UCase(Trim(row.course)).substr(0, 1);
  SQLite::Statement write(
      db, existing == 0
              ? "INSERT INTO RESULT (Distance, Stroke, Course, Score, F_P, Place, Age, Ex, NT, "
                "Meet, Athlete, I_R, MtEvent) VALUES (?, ?, ?, ?, ?, ?, ?, '', ?, ?, ?, 'I', ?)"
              : "UPDATE RESULT SET Distance = ?, Stroke = ?, Course = ?, Score = ?, F_P = ?, "
                "Place = ?, Age = ?, Ex = '', NT = ? WHERE Result = ?");
  SQLite::bind(write, static_cast<int>(Val(row.distance)), static_cast<int>(Val(row.stroke_code)),
               course, score, f_p, static_cast<int>(Val(row.place)), age, static_cast<int>(nt));
  if (existing == 0) {
    write.bind(9, meet.meet);
    write.bind(10, athlete);
    write.bind(11, mt_event);
  } else {
    write.bind(9, existing);
  }
  write.exec();
  result = existing != 0 ? existing : static_cast<int32_t>(db.getLastInsertRowid());
  return std::string(existing != 0 ? kUpdated : kAdded);
}

// `SavePalmSplits`: each split at SPLITNUM / 25, the running time or the sum of the laps.
void SavePalmSplits(AppState& state, PalmImportData& data, const PalmRow& row, int32_t result) {
  SQLite::Statement q(data.Db(),
                      "SELECT SPLITNUM, SPLITTIME, SPLITLAP FROM SPLITS WHERE RESULTID = ? "
                      "ORDER BY CAST(SPLITNUM AS INTEGER)");
  q.bind(1, row.result_id);
  SQLite::Statement put(*state.gDb,
                        "INSERT OR REPLACE INTO SPLITS (SplitID, SplitIndex, Split) "
                        "VALUES (?, ?, ?)");
  int32_t running = 0;
  while (q.executeStep()) {
    const int index = static_cast<int>(Val(TextOf(q.getColumn(0)))) / 25;
    const std::string time = Trim(TextOf(q.getColumn(1)));
    running += ScoreOf(TextOf(q.getColumn(2)));
    const int32_t split = time.empty() ? running : ScoreOf(time);
    if (index <= 0 || index > 255 || split <= 0) continue;
    put.reset();
    SQLite::bind(put, result, index, split);
    put.exec();
  }
}

}  // namespace

PalmImportCounts ImportPalmRows(AppState& state, PalmImportData& data, const PalmMeet& meet,
                                std::vector<PalmRow>& rows, bool replace) {
  PalmImportCounts counts;
  SQLite::Database& db = *state.gDb;
  SQLite::Transaction transaction(db);
  const std::optional<Date> age_date = meet.age_up ? meet.age_up : meet.start;
  for (PalmRow& row : rows) {
    if (!row.chosen) continue;
    try {
      const auto athlete = static_cast<int32_t>(Val(row.athlete_id));
      SQLite::Statement a(db, "SELECT Birth FROM Athlete WHERE Athlete = ?");
      a.bind(1, athlete);
      if (athlete == 0 || !a.executeStep()) {
        row.state = kNotSelected;
        ++counts.skipped;
        continue;
      }
      const auto birth = DateOf(a.getColumn(0));
      const int age = birth && *birth != kNullDate && age_date ? AgeAtDate(birth, age_date)
                                                                : static_cast<int>(Val(row.age));
      std::string problem;
      const int32_t mt_event = MatchPalmEvent(state, meet, row, problem);
      if (mt_event == 0) {
        row.state = problem;
        ++counts.skipped;
        continue;
      }
      int32_t result = 0;
      row.state = SavePalmResult(state, meet, row, athlete, mt_event, age, replace, result);
      if (result == 0) {
        ++counts.duplicates;
        continue;
      }
      (row.state == kAdded ? counts.added : counts.updated)++;
      SavePalmSplits(state, data, row, result);
    } catch (const std::exception& e) {
      ReportError(state, "frmPalmImport.SavePalmResult", e);
      ++counts.skipped;
    }
  }
  state.io->Progress(kUpdatingRankings);
  AddRank(state);
  transaction.commit();
  return counts;
}

std::string PalmImportStatus(const PalmImportCounts& counts) {
  return fmt::format("{} results added, {} updated.", counts.added, counts.updated);
}

}  // namespace kvlr
