#include "handheld/PalmExport.h"

#include <set>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/FileOps.h"
#include "handheld/HandheldFiles.h"
#include "handheld/HandheldTables.h"
#include "handheld/HandheldTexts.h"
#include "handheld/PalmText.h"
#include "meets/BestTimes.h"
#include "meets/Ranking.h"
#include "standards/Conversion.h"
#include "store/Database.h"
#include "store/TableBuilder.h"

namespace kvlr {

namespace fs = std::filesystem;

namespace {

std::vector<PalmMeetChoice> MeetChoices(SQLite::Statement& q) {
  std::vector<PalmMeetChoice> out;
  while (q.executeStep()) {
    out.push_back({q.getColumn(0).getInt(), TextOf(q.getColumn(1)), DateOf(q.getColumn(2))});
  }
  return out;
}

std::string Str(int64_t n) {
  return std::to_string(n);
}

// One staging file of the export, open while its table is filled.
class Staging {
 public:
  Staging(const fs::path& folder, HandheldIndex index)
      : def_(HandheldTables()[index]), db_(OpenStoreFile(folder / def_.staging_file, OpenMode::kCreate, false)) {
    CreateTable(*db_, def_.table);
  }
  void Add(const std::vector<std::string>& row) { InsertTextRow(*db_, def_.table, row); }

 private:
  const HandheldTable& def_;
  std::unique_ptr<SQLite::Database> db_;
};

struct MeetRow {
  std::string name, course;
  std::optional<Date> start, age_up, since;
};

std::optional<MeetRow> ReadMeet(SQLite::Database& db, int32_t meet) {
  SQLite::Statement q(db, "SELECT MName, Start, Course, AgeUp, Since FROM MEET WHERE Meet = ?");
  q.bind(1, meet);
  if (!q.executeStep()) return std::nullopt;
  return MeetRow{TextOf(q.getColumn(0)), TextOf(q.getColumn(2)).substr(0, 1),
                 DateOf(q.getColumn(1)), DateOf(q.getColumn(3)), DateOf(q.getColumn(4))};
}

void AddMeetRow(Staging& file, SQLite::Database& db, int32_t meet) {
  const auto m = ReadMeet(db, meet);
  if (!m) return;
  file.Add({Str(meet), m->name.substr(0, 30), PalmDate(m->start), m->course, Str(meet),
            meet > 0 ? "A" : ""});
}

// Rows of the splits of one result: running time and lap.
template <class Emit>
void EachSplit(SQLite::Database& db, int32_t result, Emit emit) {
  SQLite::Statement q(db,
                      "SELECT SplitIndex, Split FROM SPLITS WHERE SplitID = ? ORDER BY SplitIndex");
  q.bind(1, result);
  int32_t before = 0;
  while (q.executeStep()) {
    const int index = q.getColumn(0).getInt();
    const int32_t split = q.getColumn(1).getInt();
    emit(Str(index * 25), PalmTime(split), PalmTime(split - before));
    before = split;
  }
}

void ExportAthletes(AppState& state, const PalmExportChoice& choice, const fs::path& folder) {
  Staging file(folder, kAthleteFile);
  SQLite::Database& db = *state.gDb;
  std::string team;
  {
    SQLite::Statement t(db, "SELECT TCode FROM TEAM ORDER BY rowid LIMIT 1");
    if (t.executeStep()) team = TextOf(t.getColumn(0));
  }
  SQLite::Statement q(
      db,
      "SELECT A.Athlete, A.Last, A.First, A.Pref, A.Birth, A.Sex, I.MailTo, I.Addr, I.City, "
      "I.ZIP, I.DayP1, I.EveP1, I.FaxP1, I.EMail2, I.DoctorName, I.DoctorPhone, I.EmerContact, "
      "I.EmerPhone, I.MedCondition, I.Medication FROM Athlete A "
      "LEFT JOIN AthInfo I ON I.Athlete = A.Athlete WHERE A.Athlete = ?");
  for (int32_t athlete : choice.athletes) {
    q.reset();
    q.bind(1, athlete);
    if (!q.executeStep()) continue;
    auto t = [&q](int i) { return TextOf(q.getColumn(i)); };
    const auto birth = DateOf(q.getColumn(4));
    file.Add({t(0), t(1), t(2), t(3), PalmShowName(t(1), t(2), t(3)), PalmDate(birth),
              Str(AgeAtDate(birth, state.clock->Today())), t(5), team, "", "", "", "", "", "",
              t(6), t(7), t(8), "", t(9), t(10), t(11), t(12), t(13), t(14), t(15), t(16), t(17),
              t(18), t(19)});
  }
}

// Best times and their splits and meets; with a since date TRANK ranks the swims since.
void ExportBestTimes(AppState& state, const PalmExportChoice& choice, const fs::path& folder) {
  SQLite::Database& db = *state.gDb;
  Staging best(folder, kBestFile), splits(folder, kBestSplitFile), meets(folder, kBestMeetFile);
  if (choice.since) AddTRank(state, TRankSelection{*choice.since, kNullDate, "", 0, ""});
  const std::string rank = choice.since ? "R.TRANK" : "R.RANK";
  SQLite::Statement q(db,
                      "SELECT R.Result, R.Stroke, R.Distance, R.Course, M.Start, R.Meet, R.Score, "
                      "R.Age FROM RESULT R INNER JOIN MEET M ON M.Meet = R.Meet "
                      "WHERE R.Athlete = ? AND R.I_R = 'I' AND " + rank +
                          " = 1 AND R.Course = ? ORDER BY R.Stroke, R.Distance");
  std::set<int32_t> meet_ids;
  for (int32_t athlete : choice.athletes) {
    q.reset();
    SQLite::bind(q, athlete, std::string(1, choice.course));
    while (q.executeStep()) {
      const int stroke = q.getColumn(1).getInt();
      const int distance = q.getColumn(2).getInt();
      const std::string course = TextOf(q.getColumn(3));
      const int32_t meet = q.getColumn(5).getInt();
      best.Add({Str(athlete), PalmStroke(stroke), Str(stroke), PalmDistance(distance), course,
                PalmDate(DateOf(q.getColumn(4))), Str(meet), PalmTime(q.getColumn(6).getInt()),
                Str(q.getColumn(7).getInt())});
      meet_ids.insert(meet);
      EachSplit(db, q.getColumn(0).getInt(),
                [&](const std::string& num, const std::string& time, const std::string& lap) {
                  splits.Add({Str(athlete), Str(stroke), PalmDistance(distance), course, num,
                              time, lap});
                });
    }
  }
  for (int32_t meet : meet_ids) AddMeetRow(meets, db, meet);
}

// Results, their meets and splits; the files are made even with no meet chosen.
void ExportResults(AppState& state, const PalmExportChoice& choice, const fs::path& folder,
                   bool with_splits) {
  SQLite::Database& db = *state.gDb;
  Staging hist(folder, kHistFile), meets(folder, kHistMeetFile), splits(folder, kHistSplitFile);
  SQLite::Statement q(db,
                      "SELECT R.Result, R.Stroke, R.Distance, R.Course, R.F_P, R.Score, R.Place, "
                      "R.NT, R.Age, A.Sex, M.Start FROM RESULT R "
                      "INNER JOIN MEET M ON M.Meet = R.Meet "
                      "INNER JOIN Athlete A ON A.Athlete = R.Athlete "
                      "WHERE R.Athlete = ? AND R.Meet = ? AND R.I_R = 'I' "
                      "ORDER BY R.Stroke, R.Distance, R.F_P");
  for (int32_t meet : choice.meets) {
    AddMeetRow(meets, db, meet);
    for (int32_t athlete : choice.athletes) {
      q.reset();
      SQLite::bind(q, athlete, meet);
      while (q.executeStep()) {
        const int32_t result = q.getColumn(0).getInt();
        const int stroke = q.getColumn(1).getInt();
        const int nt = q.getColumn(7).getInt();
        hist.Add({Str(athlete), Str(meet), PalmStroke(stroke), Str(stroke),
                  PalmDistance(q.getColumn(2).getInt()), TextOf(q.getColumn(3)),
                  TextOf(q.getColumn(4)), nt > 0 ? "" : PalmTime(q.getColumn(5).getInt(), true),
                  Str(q.getColumn(6).getInt()), "", PalmDq(nt), Str(q.getColumn(8).getInt()),
                  TextOf(q.getColumn(9)), PalmDate(DateOf(q.getColumn(10))), Str(result)});
        if (!with_splits) continue;
        EachSplit(db, result,
                  [&](const std::string& num, const std::string& time, const std::string& lap) {
                    splits.Add({Str(result), num, time, lap, Str(meet)});
                  });
      }
    }
  }
}

// Entries of the entry meet with their seeds, the meet itself, its events and age groups.
int ExportEntries(AppState& state, const PalmExportChoice& choice, const fs::path& folder) {
  SQLite::Database& db = *state.gDb;
  Staging times(folder, kTimesFile), meet_file(folder, kMeetFile), events(folder, kEventFile),
      ages(folder, kAgeGroupFile);
  int count = 0;
  const auto meet = choice.entry_meet != 0 ? ReadMeet(db, choice.entry_meet) : std::nullopt;
  if (!meet) return 0;
  AddMeetRow(meet_file, db, choice.entry_meet);
  const char meet_course = meet->course.empty() ? choice.course : meet->course[0];
  const auto age_date = meet->age_up ? meet->age_up : meet->start;
  SQLite::Statement q(db,
                      "SELECT E.Entry, E.Score, E.Course, V.Stroke, V.Distance, V.MtEv, V.MtEvX, "
                      "A.Birth, A.Sex FROM ENTRY E INNER JOIN Athlete A ON A.Athlete = E.Athlete "
                      "INNER JOIN MTEVENTE V ON V.MtEvent = E.MtEvent "
                      "WHERE E.Athlete = ? AND E.I_R = 'I' AND E.Meet = ? "
                      "ORDER BY V.MtEv, V.MtEvX");
  BestTimeFinder finder(state);
  for (int32_t athlete : choice.athletes) {
    q.reset();
    SQLite::bind(q, athlete, choice.entry_meet);
    while (q.executeStep()) {
      const auto stroke = static_cast<int16_t>(q.getColumn(3).getInt());
      const auto distance = static_cast<int16_t>(q.getColumn(4).getInt());
      int32_t seed = q.getColumn(1).getInt();
      const std::string entry_course = TextOf(q.getColumn(2)).substr(0, 1);
      char seed_course = entry_course.empty() ? meet_course : entry_course[0];
      if (seed <= 0) {
        const bool since = meet->since.has_value() && *meet->since != kNullDate;
        const BestTimeRec b = finder.Best(athlete, distance, stroke, meet_course, since,
                                          meet->since.value_or(kNullDate), kNullDate, "");
        seed = b.converted;
        seed_course = meet_course;
      }
      if (seed > 0 && seed_course != meet_course) {
        seed = ConvertTime(state, distance, seed, stroke, seed_course, meet_course);
      }
      times.Add({Str(athlete), PalmStroke(stroke), Str(stroke), PalmDistance(distance),
                 std::string(1, meet_course), "F", Str(q.getColumn(0).getInt()), "",
                 PalmTime(seed), "", "", "", Str(AgeAtDate(DateOf(q.getColumn(7)), age_date)),
                 TextOf(q.getColumn(8)),
                 PalmEventNum(q.getColumn(5).getInt(), TextOf(q.getColumn(6))), "1", ""});
      ++count;
    }
  }
  SQLite::Statement ev(db,
                       "SELECT MtEvent, MtEv, MtEvX, Stroke, Distance, Lo_Hi, Sex FROM MTEVENTE "
                       "WHERE Meet = ? AND I_R = 'I' ORDER BY MtEv, MtEvX");
  ev.bind(1, choice.entry_meet);
  std::set<int> lo_his;
  while (ev.executeStep()) {
    const int stroke = ev.getColumn(3).getInt();
    const int lo_hi = ev.getColumn(5).getInt();
    events.Add({Str(choice.entry_meet), Str(ev.getColumn(0).getInt()),
                PalmEventNum(ev.getColumn(1).getInt(), TextOf(ev.getColumn(2))),
                PalmStroke(stroke), Str(stroke), PalmDistance(ev.getColumn(4).getInt()),
                PalmAgeGroup(lo_hi), TextOf(ev.getColumn(6))});
    lo_his.insert(lo_hi);
  }
  for (int lo_hi : lo_his) {
    const int lo = lo_hi == 99 ? 0 : lo_hi / 100;
    const int hi = lo_hi == 99 ? 99 : lo_hi % 100;
    ages.Add({Str(lo), Str(hi), PalmAgeGroup(lo_hi)});
  }
  return count;
}

}  // namespace

std::vector<PalmMeetChoice> PalmResultMeets(SQLite::Database& db, char course) {
  SQLite::Statement q(db,
                      "SELECT DISTINCT M.Meet, M.MName, M.Start FROM MEET M "
                      "INNER JOIN RESULT R ON M.Meet = R.Meet "
                      "WHERE substr(M.Course, 1, 1) = ? AND IFNULL(M.Type, '') <> 'G' "
                      "AND IFNULL(M.Start, '') <> ? ORDER BY M.Start DESC");
  SQLite::bind(q, std::string(1, course), kPseudoMeetStart.Iso());
  return MeetChoices(q);
}

std::vector<PalmMeetChoice> PalmEntryMeets(SQLite::Database& db, char course) {
  SQLite::Statement q(db,
                      "SELECT DISTINCT M.Meet, M.MName, M.Start FROM MEET M "
                      "INNER JOIN ENTRY E ON M.Meet = E.Meet "
                      "WHERE substr(M.Course, 1, 1) = ? ORDER BY M.Start DESC");
  q.bind(1, std::string(1, course));
  return MeetChoices(q);
}

std::optional<std::string> CheckPalmExport(const PalmExportChoice& choice) {
  if (choice.athletes.empty() || choice.course == 0) return std::string();
  if (choice.meets.size() > 5) return std::string(palm_text::kOnlyFive);
  return std::nullopt;
}

PalmExportSummary StagePalmExport(AppState& state, const PalmExportChoice& choice,
                                  const fs::path& staging) {
  using namespace palm_text;
  MakeFolder(staging);
  for (const auto& t : HandheldTables()) RemoveIfExists(staging / t.staging_file);
  PalmExportSummary summary;
  state.io->Progress(kExportingAthletes);
  ExportAthletes(state, choice, staging);
  state.io->Progress(kExportingBest);
  ExportBestTimes(state, choice, staging);
  if (!choice.meets.empty()) {
    state.io->Progress(kExportingResults);
    state.io->Progress(kExportingSplits);
  }
  ExportResults(state, choice, staging, true);
  summary.meets = static_cast<int>(choice.meets.size());
  if (choice.entry_meet != 0) state.io->Progress(kExportingEntries);
  summary.entries = ExportEntries(state, choice, staging);
  return summary;
}

std::string PalmExportSummaryText(const PalmExportSummary& summary,
                                  const PalmExportChoice& choice) {
  using namespace palm_text;
  std::string text = fmt::format("{}\r\n{}\r\n", kExportedBest, kExportedAthletes);
  if (!choice.meets.empty()) text += fmt::format("Exported Results for {} meets\r\n", summary.meets);
  if (choice.entry_meet != 0) text += fmt::format("Exported {} Entries\r\n", summary.entries);
  return text + std::string(kPrepareHotSync);
}

bool RunPalmExport(AppState& state, const PalmExportChoice& choice, const fs::path& sync_dir,
                   PalmExportSummary* summary_out) {
  using namespace palm_text;
  const fs::path staging = HandheldStagingDir(state);
  PalmExportSummary summary;
  try {
    summary = StagePalmExport(state, choice, staging);
  } catch (const std::exception& e) {
    ReportError(state, "frmPalm.cmdOK_Click", e);
    return false;
  }
  state.io->Message(PalmExportSummaryText(summary, choice), box::kInformation, kExportTitle);
  state.io->Progress(kPreparingFiles);
  bool ok = true;
  const DateTime now = state.clock->Now();
  for (const HandheldTable& t : HandheldTables()) {
    std::string pdb;
    try {
      auto db = OpenStoreFile(staging / t.staging_file, OpenMode::kExisting, false);
      pdb = WritePdb(TableToPdb(*db, t.table, t.base, now));
    } catch (const std::exception&) {
      state.io->Tell(std::string(kErrorCreating) + t.base);
      ok = false;
      break;
    }
    try {
      MakeFolder(sync_dir);
      WriteFileAtomically(sync_dir / (t.base + ".pdb"), pdb);
      summary.files.push_back(sync_dir / (t.base + ".pdb"));
    } catch (const std::exception&) {
      state.io->Tell(std::string(kErrorStaging) + t.base);
      ok = false;
      break;
    }
  }
  for (const auto& t : HandheldTables()) {
    std::error_code ec;
    fs::remove(staging / t.staging_file, ec);
  }
  if (summary_out) *summary_out = summary;
  return ok;
}

}  // namespace kvlr
