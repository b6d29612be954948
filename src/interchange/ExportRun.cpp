#include "interchange/ExportRun.h"

#include <fstream>
#include <map>
#include <tuple>

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/Options.h"
#include "core/RunFolder.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "interchange/ExportLines.h"
#include "interchange/ExportTexts.h"
#include "interchange/Nv3CheckSum.h"
#include "interchange/Nv3Writer.h"
#include "interchange/Scramble.h"
#include "interchange/SdifWriter.h"
#include "meets/BestTimes.h"
#include "standards/Conversion.h"
#include "store/ZipArchive.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

int IntOf(const SQLite::Column& c) {
  return c.isNull() ? 0 : c.getInt();
}

char CourseLetterOf(std::string_view course) {
  const std::string t = UCase(Trim(course));
  return t.empty() ? 'Y' : t[0];
}

ExportMeet ReadMeet(SQLite::Database& db, int32_t meet) {
  SQLite::Statement q(db,
                      "SELECT MName, Location, Course, Type, Start, End, AgeUp FROM MEET "
                      "WHERE Meet = ?");
  q.bind(1, meet);
  ExportMeet m;
  m.meet = meet;
  if (!q.executeStep()) return m;
  m.name = TextOf(q.getColumn(0));
  m.location = TextOf(q.getColumn(1));
  m.course = Trim(TextOf(q.getColumn(2)));
  m.type = TextOf(q.getColumn(3));
  m.start = DateOf(q.getColumn(4));
  m.end = DateOf(q.getColumn(5));
  m.age_up = DateOf(q.getColumn(6));
  return m;
}

// `GetAthleteInfo`: nullopt when the swimmer has no row.
std::optional<ExportSwimmer> GetAthleteInfo(SQLite::Database& db, int32_t athlete) {
  SQLite::Statement q(db,
                      "SELECT Last, First, Initial, Sex, Birth, Age, ID_NO, Citizen, Pref "
                      "FROM Athlete WHERE Athlete = ?");
  q.bind(1, athlete);
  if (!q.executeStep()) return std::nullopt;
  ExportSwimmer s;
  s.athlete = athlete;
  s.last = TextOf(q.getColumn(0));
  s.first = TextOf(q.getColumn(1));
  s.initial = TextOf(q.getColumn(2));
  s.sex = TextOf(q.getColumn(3));
  s.birth = DateOf(q.getColumn(4));
  s.age = IntOf(q.getColumn(5));
  s.id_no = TextOf(q.getColumn(6));
  s.citizen = TextOf(q.getColumn(7));
  s.pref = TextOf(q.getColumn(8));
  SQLite::Statement info(db, "SELECT * FROM AthInfo WHERE Athlete = ?");
  info.bind(1, athlete);
  if (info.executeStep()) {
    for (int i = 0; i < info.getColumnCount(); ++i) {
      s.info.emplace_back(info.getColumnName(i), TextOf(info.getColumn(i)));
    }
  }
  return s;
}

// The team's details, kept as the family's name of the NV3 header too.
std::string FamilyName(const ExportTeam& team) {
  return team.name;
}

// A folder the run may write in: made sure by writing and removing a file.
bool WriteTest(AppState& state, const fs::path& folder) {
  const fs::path probe = PartFileBeside(folder / "KVL-RWriteTest");
  std::error_code ec;
  bool ok = fs::is_directory(folder, ec);
  if (ok) {
    std::ofstream out(probe, std::ios::binary);
    ok = static_cast<bool>(out << "x");
    out.close();
    fs::remove(probe, ec);
  }
  if (!ok) state.io->Tell(std::string(kFailedToAccess) + folder.string() + std::string(kQuiting));
  return ok;
}

void WriteFile(const fs::path& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  if (!out) throw FileError(err::kDiskIo, "Could not write " + file.string());
}

// The build folder's files packed and moved to the chosen folder under a free name.
std::optional<fs::path> Deliver(AppState& state, const fs::path& folder, std::string_view prefix,
                                const std::vector<fs::path>& files) {
  const auto zip = GetFileName(state, folder, prefix, ".zip", true);
  if (!zip) return std::nullopt;
  if (!ZipExportFiles(state, *zip, files)) return std::nullopt;
  return zip;
}

bool TeamReady(AppState& state, std::optional<ExportTeam>& team) {
  team = LoadExportTeam(*state.gDb);
  if (!team) state.io->Tell(kNeedTeam);
  return team.has_value();
}

struct SwimmerCache {
  SQLite::Database& db;
  std::map<int32_t, std::optional<ExportSwimmer>> rows;
  const ExportSwimmer* Get(int32_t athlete) {
    auto it = rows.find(athlete);
    if (it == rows.end()) it = rows.emplace(athlete, GetAthleteInfo(db, athlete)).first;
    return it->second ? &*it->second : nullptr;
  }
};

}  // namespace

std::optional<ExportTeam> LoadExportTeam(SQLite::Database& db) {
  SQLite::Statement q(db, "SELECT TCode, TName, LSC FROM TEAM LIMIT 1");
  if (!q.executeStep() || Trim(TextOf(q.getColumn(0))).empty()) return std::nullopt;
  return ExportTeam{Trim(TextOf(q.getColumn(0))), Trim(TextOf(q.getColumn(1))),
                    Trim(TextOf(q.getColumn(2)))};
}

std::vector<ExportMeetChoice> MeetsWithEntries(SQLite::Database& db) {
  SQLite::Statement q(db,
                      "SELECT DISTINCT MEET.MNAME, MEET.START, MEET.MEET FROM ENTRY INNER JOIN "
                      "MEET ON ENTRY.MEET = MEET.MEET ORDER BY START DESC");
  std::vector<ExportMeetChoice> out;
  while (q.executeStep()) {
    out.push_back({IntOf(q.getColumn(2)), TextOf(q.getColumn(0)), DateOf(q.getColumn(1))});
  }
  return out;
}

std::vector<ExportMeetChoice> MeetsWithResults(SQLite::Database& db, int32_t athlete) {
  SQLite::Statement q(db,
                      "SELECT DISTINCT MEET.MNAME, MEET.START, MEET.MEET FROM RESULT INNER JOIN "
                      "MEET ON RESULT.MEET = MEET.MEET WHERE (? = 0 OR RESULT.ATHLETE = ?) "
                      "ORDER BY START DESC");
  q.bind(1, athlete);
  q.bind(2, athlete);
  std::vector<ExportMeetChoice> out;
  while (q.executeStep()) {
    out.push_back({IntOf(q.getColumn(2)), TextOf(q.getColumn(0)), DateOf(q.getColumn(1))});
  }
  return out;
}

std::vector<fs::path> ExportFolders(AppState& state) {
  std::vector<fs::path> out;
  auto add = [&out](const fs::path& p) {
    if (p.empty() || std::find(out.begin(), out.end(), p) != out.end()) return;
    std::error_code ec;
    if (fs::is_directory(p, ec)) out.push_back(p);
  };
  for (DirectoryKind kind : {DirectoryKind::kExport, DirectoryKind::kImport, DirectoryKind::kBackup,
                             DirectoryKind::kReport}) {
    add(state.gDb ? GetDirectories(state, kind) : state.gDataDir);
  }
  add(state.gDataDir);
  add(state.data_root);
  return out;
}

std::optional<fs::path> GetFileName(AppState& state, const fs::path& folder,
                                    std::string_view prefix, std::string_view extension,
                                    bool two_digits) {
  const int limit = two_digits ? 99 : 999;
  auto name = [&](int n) {
    return folder / fmt::format("{}{:0{}d}{}", prefix, n, two_digits ? 2 : 3, extension);
  };
  for (int n = 1; n <= limit; ++n) {
    std::error_code ec;
    if (!fs::exists(name(n), ec)) return name(n);
  }
  const std::string question = fmt::format(
      "All {} {}... file names have been used.\r\nDo you wish to overwrite the first one, {}?",
      limit, prefix, name(1).string());
  if (state.io->Message(question, box::kYesNo + box::kQuestion, kOverwriteTitle) != Answer::kYes) {
    return std::nullopt;
  }
  return name(1);
}

bool ZipExportFiles(AppState& state, const fs::path& zip, const std::vector<fs::path>& files) {
  std::error_code ec;
  if (fs::exists(zip, ec)) {
    std::ifstream in(zip, std::ios::binary);
    char head[2] = {};
    in.read(head, 2);
    if (!fs::is_regular_file(zip, ec) || in.gcount() != 2 || head[0] != 'P' || head[1] != 'K') {
      state.io->Tell(zip.string() + std::string(kNotAZip));
      return false;
    }
  }
  std::uintmax_t bytes = 0;
  std::vector<ZipSource> members;
  for (const fs::path& f : files) {
    bytes += fs::file_size(f);
    members.push_back({f.filename().string(), f});
  }
  // Deflate never grows text much: the files' size is room enough.
  if (state.disk->FreeBytes(zip.parent_path()) < bytes) {
    state.io->Tell(std::string(kNotEnoughSpace) + zip.parent_path().string());
    return false;
  }
  try {
    ZipArchive::Create(zip, members, "", 1);
  } catch (const KvlError& e) {
    state.io->Tell(std::string(kZipError) + zip.string() + ".  Error: " + e.what());
    return false;
  }
  return true;
}

std::string OnlineLine(const std::string& nv3_line, std::size_t n) {
  for (std::size_t k = 0; k < 5; ++k) {
    if (auto line = ScrambleLine(nv3_line, static_cast<int>((n + k) % 5 + 1))) return *line;
  }
  // No key can carry some character here: it goes out as a blank, the check sum made anew.
  std::string plain = nv3_line;
  for (std::size_t i = 0; i < 120 && i < plain.size(); ++i) {
    const char c = plain[i];
    if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')))
      plain[i] = ' ';
  }
  plain = Nv3LineCheckSum(plain.substr(0, kNv3SumColumns));
  plain.resize(kNv3LineLength);
  return ScrambleLine(plain, 1).value_or(std::string());
}

ExportOutcome ExportEntries(AppState& state, const EntryExportOptions& options) {
  ExportOutcome out;
  try {
    SQLite::Database& db = *state.gDb;
    std::optional<ExportTeam> team;
    if (!TeamReady(state, team)) return out;
    SQLite::Statement any(db, "SELECT COUNT(*) FROM ENTRY");
    if (!any.executeStep() || any.getColumn(0).getInt() == 0) {
      state.io->Tell(kNoEntries);
      return out;
    }
    if (MeetsWithEntries(db).empty()) {
      state.io->Tell(kNoEntryMeets);
      return out;
    }
    SQLite::Statement q(db,
                        "SELECT N.Entry, N.Athlete, N.Score, N.Course, N.Ex, N.Misc, E.MtEv, "
                        "E.MtEvX, E.Lo_Hi, E.Distance, E.Stroke, E.Sex FROM ENTRY N INNER JOIN "
                        "MTEVENTE E ON E.MtEvent = N.MtEvent WHERE N.Entry > 0 AND N.Meet = ? "
                        "AND COALESCE(N.I_R, 'I') <> 'R' "
                        "ORDER BY N.Athlete, E.MtEv, E.MtEvX, E.Stroke, E.Distance");
    q.bind(1, options.meet);
    const ExportMeet meet = ReadMeet(db, options.meet);
    const char meet_course = CourseLetterOf(meet.course);
    std::vector<ExportSwim> swims;
    while (q.executeStep()) {
      ExportSwim s;
      s.key = IntOf(q.getColumn(0));
      s.athlete = IntOf(q.getColumn(1));
      s.meet = options.meet;
      s.score = Trim(TextOf(q.getColumn(5))) == "N" ? 0 : IntOf(q.getColumn(2));
      s.course = std::string(1, CourseLetterOf(TextOf(q.getColumn(3))));
      s.ex = Trim(TextOf(q.getColumn(4)));
      s.mtev = IntOf(q.getColumn(6));
      s.mtevx = Trim(TextOf(q.getColumn(7)));
      s.lo_hi = IntOf(q.getColumn(8));
      s.distance = IntOf(q.getColumn(9));
      s.stroke = IntOf(q.getColumn(10));
      s.event_sex = Trim(TextOf(q.getColumn(11)));
      if (!options.actual && s.score > 0 && s.course[0] != meet_course) {
        s.score = ConvertTime(state, static_cast<int16_t>(s.distance), s.score,
                              static_cast<int16_t>(s.stroke), s.course[0], meet_course);
        s.course = std::string(1, meet_course);
      }
      swims.push_back(std::move(s));
    }
    if (swims.empty()) {
      state.io->Tell(kNoEntriesForMeet);
      return out;
    }
    if (!WriteTest(state, options.folder)) return out;
    SdifWriter cl2(state.clock->Today());
    Nv3Writer nv3(state.clock->Now());
    cl2.A0Record("20", "Meet Entries", "41");
    nv3.NV3A1Record("02", FamilyName(*team));
    cl2.B0Record(meet);
    cl2.C1Record(*team);
    nv3.NV3B1Record(meet);
    nv3.NV3B2Record(meet);
    nv3.NV3C1Record(*team);
    nv3.NV3C2Record();
    nv3.NV3C3Record("");
    SwimmerCache swimmers{db, {}};
    int32_t last = 0;
    for (ExportSwim& s : swims) {
      const ExportSwimmer* swimmer = swimmers.Get(s.athlete);
      if (!swimmer) {
        state.io->Tell(kNoAthleteFound);
        return out;
      }
      s.age = meet.age_up ? AgeAtDate(swimmer->birth, meet.age_up) : 0;
      if (s.age <= 0) s.age = swimmer->age;
      if (s.age <= 0) s.age = AgeAtDate(swimmer->birth, meet.start);
      if (s.athlete != last) nv3.NV3AthDetailRecords(*swimmer);
      last = s.athlete;
      cl2.D0RecordEntry(*swimmer, s, meet);
      cl2.D3Record(*swimmer);
      nv3.NV3E1RecordEntries(*swimmer, s);
    }
    cl2.Z0Record("20");
    RunFolder build(state.home);
    const std::vector<fs::path> files = {build.Path() / kCl2FileName, build.Path() / kNv3FileName};
    WriteFile(files[0], cl2.Text());
    WriteFile(files[1], nv3.Text());
    const auto zip = Deliver(state, options.folder, kEntriesZipPrefix, files);
    if (!zip) return out;
    state.io->Message(std::string(kEntriesExportedTo) + zip->string(), box::kInformation, "");
    out = {true, *zip, static_cast<int>(swims.size())};
  } catch (const std::exception& e) {
    ReportError(state, "frmExpEnt.ExportEntries", e);
    out = {};
  }
  return out;
}

ExportOutcome ExportResults(AppState& state, const ResultExportOptions& options) {
  ExportOutcome out;
  try {
    SQLite::Database& db = *state.gDb;
    std::optional<ExportTeam> team;
    if (!TeamReady(state, team)) return out;
    const bool best = options.kind != ResultExportKind::kResults;
    std::string sql =
        "SELECT R.RESULT, R.ATHLETE, R.MEET, R.I_R, R.SCORE, R.F_P, R.EX, R.NT, R.AGE, "
        "R.DISTANCE, R.STROKE, R.PLACE, R.COURSE, E.MtEv, E.MtEvX, E.Lo_Hi, E.Sex "
        "FROM RESULT R INNER JOIN ATHLETE A ON A.Athlete = R.ATHLETE "
        "INNER JOIN MTEVENT E ON E.MtEvent = R.MTEVENT INNER JOIN MEET M ON M.Meet = R.MEET";
    sql += options.lead_off ? " WHERE (R.I_R = 'I' OR R.I_R = 'L')" : " WHERE (R.I_R = 'I')";
    if (options.since) sql += " AND M.Start >= :since";
    if (!options.all_family) sql += " AND R.ATHLETE = :athlete";
    if (best) sql += " AND R.RANK = 1";
    if (options.course) sql += " AND R.COURSE = :course";
    if (options.meet) sql += " AND R.MEET = :meet";
    sql += " ORDER BY ";
    if (options.all_family) sql += "R.ATHLETE, ";
    sql += "R.MEET, R.I_R, R.STROKE, R.DISTANCE, ";
    sql += best ? "R.COURSE" : "R.F_P";
    SQLite::Statement q(db, sql);
    if (options.since) q.bind(":since", options.since->Iso());
    if (!options.all_family) q.bind(":athlete", options.athlete);
    if (options.course) q.bind(":course", std::string(1, options.course));
    if (options.meet) q.bind(":meet", options.meet);
    SQLite::Statement split_q(db,
                              "SELECT SplitIndex, Split FROM SPLITS WHERE SplitID = ? "
                              "ORDER BY SplitIndex");
    std::vector<ExportSwim> swims;
    while (q.executeStep()) {
      ExportSwim s;
      s.key = IntOf(q.getColumn(0));
      s.athlete = IntOf(q.getColumn(1));
      s.meet = IntOf(q.getColumn(2));
      s.i_r = Trim(TextOf(q.getColumn(3)));
      s.score = IntOf(q.getColumn(4));
      s.f_p = Trim(TextOf(q.getColumn(5)));
      if (s.f_p.empty()) s.f_p = "F";
      s.ex = Trim(TextOf(q.getColumn(6)));
      s.nt = IntOf(q.getColumn(7));
      s.age = IntOf(q.getColumn(8));
      s.distance = IntOf(q.getColumn(9));
      s.stroke = IntOf(q.getColumn(10));
      s.place = IntOf(q.getColumn(11));
      s.course = UCase(Trim(TextOf(q.getColumn(12))));
      s.mtev = IntOf(q.getColumn(13));
      s.mtevx = Trim(TextOf(q.getColumn(14)));
      s.lo_hi = IntOf(q.getColumn(15));
      s.event_sex = Trim(TextOf(q.getColumn(16)));
      if (options.splits) {
        split_q.bind(1, s.key);
        while (split_q.executeStep()) {
          s.splits.emplace_back(IntOf(split_q.getColumn(0)), IntOf(split_q.getColumn(1)));
        }
        split_q.reset();
      }
      swims.push_back(std::move(s));
    }
    if (swims.empty()) {
      state.io->Tell(kNoResultsToExport);
      return out;
    }
    if (!WriteTest(state, options.folder)) return out;
    SdifWriter cl2(state.clock->Today());
    Nv3Writer nv3(state.clock->Now());
    cl2.A0Record("02", "Meet Results", "42");
    nv3.NV3A1Record(options.kind == ResultExportKind::kProof ? "11" : "09", FamilyName(*team));
    // Best times of one course stand under one made-up meet of that course.
    const bool one_meet = best && options.course;
    const std::vector<std::string> words = CourseList();
    const std::string course_word =
        options.course ? words[CourseLetters.find(options.course) + 1] : "";
    std::map<int32_t, ExportMeet> meets;
    auto meet_of = [&](int32_t id) -> const ExportMeet& {
      auto it = meets.find(id);
      if (it == meets.end()) it = meets.emplace(id, ReadMeet(db, id)).first;
      return it->second;
    };
    auto write_meet = [&](int32_t id) {
      if (one_meet) {
        cl2.B0RecordBestTimes(options.course, "Best Times " + course_word);
        nv3.NV3B1RecordBestTimes(options.course, course_word);
      } else {
        cl2.B0Record(meet_of(id));
        nv3.NV3B1Record(meet_of(id));
        nv3.NV3B2Record(meet_of(id));
      }
    };
    write_meet(swims.front().meet);
    cl2.C1Record(*team);
    nv3.NV3C1Record(*team);
    nv3.NV3C2Record();
    nv3.NV3C3Record("");
    SwimmerCache swimmers{db, {}};
    BestTimeFinder finder(state);
    std::map<std::tuple<int32_t, int, int>, Nv3BestTimes> bests;
    int32_t last_athlete = 0;
    int32_t last_meet = swims.front().meet;
    const ExportMeet made_up;
    for (const ExportSwim& s : swims) {
      const ExportSwimmer* swimmer = swimmers.Get(s.athlete);
      if (!swimmer) {
        state.io->Tell(kNoAthleteFound);
        return out;
      }
      if (s.athlete != last_athlete) nv3.NV3AthDetailRecords(*swimmer);
      last_athlete = s.athlete;
      if (s.meet != last_meet && !one_meet) write_meet(s.meet);
      last_meet = s.meet;
      const ExportMeet& meet = one_meet ? made_up : meet_of(s.meet);
      cl2.D0Record(*swimmer, s, meet);
      cl2.D3Record(*swimmer);
      cl2.G0Record(*swimmer, s);
      nv3.NV3E1RecordResults(*swimmer, s);
      nv3.NV3E2RecordResults(s);
      const auto key = std::make_tuple(s.athlete, s.distance, s.stroke);
      auto best_it = bests.find(key);
      if (best_it == bests.end()) {
        Nv3BestTimes b;
        const Date none = state.gNullDate;
        const auto d = static_cast<int16_t>(s.distance);
        const auto st = static_cast<int16_t>(s.stroke);
        b.l = finder.Best(s.athlete, d, st, 'L', false, none, none, "").converted;
        b.s = finder.Best(s.athlete, d, st, 'S', false, none, none, "").converted;
        b.y = finder.Best(s.athlete, d, st, 'Y', false, none, none, "").converted;
        best_it = bests.emplace(key, b).first;
      }
      nv3.NV3E3RecordResults(best_it->second);
      nv3.NV3G1RecordResults(s);
    }
    cl2.Z0Record("02");
    std::string online;
    for (std::size_t i = 0; i < nv3.Lines().size(); ++i) {
      online += OnlineLine(nv3.Lines()[i], i) + "\r\n";
    }
    RunFolder build(state.home);
    const std::vector<fs::path> files = {build.Path() / kCl2FileName, build.Path() / kNv3FileName,
                                         build.Path() / kOnlineFileName};
    WriteFile(files[0], cl2.Text());
    WriteFile(files[1], nv3.Text());
    WriteFile(files[2], online);
    const auto zip = Deliver(state, options.folder, kResultsZipPrefix, files);
    if (!zip) return out;
    state.io->Message(
        std::to_string(swims.size()) + std::string(kResultsExportedTo) + zip->string(),
        box::kInformation, "");
    out = {true, *zip, static_cast<int>(swims.size())};
  } catch (const std::exception& e) {
    ReportError(state, "frmExpRes.ExportResults", e);
    out = {};
  }
  return out;
}

}  // namespace kvlr
