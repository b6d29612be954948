#include "interchange/Psn.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/DateText.h"
#include "core/VbRules.h"
#include "interchange/ImportSession.h"

namespace kvlr {
namespace {

std::string CurrentSwimmerName(const AppState& state) {
  if (!Trim(state.gAthleteName).empty()) return state.gAthleteName;
  return Trim(state.gAthleteFirst + " " + state.gAthleteLast);
}

}  // namespace

bool CheckPSNHeader(AppState& state, std::string_view line) {
  const auto header = ParsePsnHeader(line);
  if (!header) {
    state.io->Tell(kPsnCorrupted);
    return false;
  }
  if (header->creator != kPsnCreator) {
    state.io->Tell(kPsnNotProduced);
    return false;
  }
  const std::string for_whom = std::string(kPsnImportIsFor) + PsnSwimmerName(*header);
  if (UCase(header->last) != UCase(Trim(state.gAthleteLast))) {
    state.io->Tell(for_whom + "\n\n" + std::string(kPsnDatabaseLastName) + state.gAthleteLast +
                   ".\n" + std::string(kPsnLastNameOnly));
    return false;
  }
  const std::string first = UCase(header->first);
  const std::string pref = UCase(Trim(state.gAthletePref));
  if (first != UCase(Trim(state.gAthleteFirst)) && (pref.empty() || first != pref)) {
    const std::string ask = for_whom + "\n\n" + std::string(kPsnFirstNameWarning) + "\n" +
                            std::string(kPsnFirstNameOfCurrent) + "\n" +
                            std::string(kPsnCurrentSwimmer) + CurrentSwimmerName(state) + "\n\n" +
                            std::string(kPsnContinueAsk);
    if (!state.io->AskYesNo(ask)) return false;
  }
  return true;
}

int32_t SavePSNResult(ImportSession& session, const PsnResult& result) {
  AppState& state = session.State();
  SQLite::Database& db = *state.gDb;
  const std::string course = ImportCourseLetter(result.course);
  const int32_t athlete = session.Matcher().CurrentAthlete();
  const int32_t meet = session.CurrentMeet();
  const int32_t mt_event = session.GetMeetEvent(
      result.distance, result.stroke, 99, session.Matcher().Current().sex, 0, "", course, "I");
  // A row of another swimmer of the family may share meet, event and F_P: the swimmer's own
  // row comes first, so the edit can't collide with it on the unique index.
  SQLite::Statement find(db,
                         "SELECT RESULT FROM RESULT WHERE MEET = ? AND MTEVENT = ? AND F_P = ? "
                         "ORDER BY (ATHLETE = ?) DESC LIMIT 1");
  SQLite::bind(find, meet, mt_event, result.f_p, athlete);
  const bool found = find.executeStep();
  const int32_t existing = found ? find.getColumn(0).getInt() : 0;

  std::optional<Date> start = session.MeetStart();
  if (!start && !result.start.bad && !result.start.IsBlank()) start = result.start.date;
  const int age = AgeAtDate(state.gAthleteBirth, start);

  SQLite::Statement write(
      db, found ? "UPDATE RESULT SET ATHLETE = ?, DISTANCE = ?, STROKE = ?, MTEVENT = ?, "
                  "MEET = ?, F_P = ?, SCORE = ?, AGE = ?, PLACE = ?, COURSE = ?, I_R = ? "
                  "WHERE RESULT = ?"
                : "INSERT INTO RESULT (ATHLETE, DISTANCE, STROKE, MTEVENT, MEET, F_P, SCORE, "
                  "AGE, PLACE, COURSE, I_R) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  SQLite::bind(write, athlete, result.distance, result.stroke, mt_event, meet, result.f_p,
               result.time.score, age, result.place, course, result.i_r);
  if (found) write.bind(12, existing);
  write.exec();
  return found ? existing : static_cast<int32_t>(db.getLastInsertRowid());
}

bool ProcessPSNLine(ImportSession& session, std::string_view line, PsnProgress& progress) {
  if (Trim(line).empty()) return true;
  const PsnLine parsed = ParsePsnLine(line, session.State().gDateOrder);
  if (parsed.kind == PsnLine::Kind::kSplits) {
    if (progress.last_result == 0) return true;
    const int step = PsnSplitStep(progress.last_course);
    const int first = progress.split_lines * kPsnSplitGroups;
    ++progress.split_lines;
    for (int g = 0; g < kPsnSplitGroups; ++g) {
      const int32_t value = parsed.splits[static_cast<size_t>(g)];
      if (value <= 0) continue;
      const int index = (first + g + 1) * step;
      if (index > 255) break;  // SplitIndex is a byte
      session.SaveSplit(progress.last_result, index, value, true);
    }
    return true;
  }
  const PsnResult& r = parsed.result;
  if (!session.ProcessMeetRec(r.meet_name, r.start, r.end, FileDate{}, r.course, "")) {
    return false;
  }
  progress.last_result = SavePSNResult(session, r);
  progress.last_course = ImportCourseLetter(r.course);
  progress.split_lines = 0;
  ++progress.count;
  return true;
}

int PSNImport(ImportSession& session, const std::vector<std::string>& lines) {
  PsnProgress progress;
  const size_t total = lines.size();
  for (size_t i = 0; i < total; ++i) {
    const std::string& line = lines[i];
    // The header names the swimmer; it was checked before the run.
    if (i == 0) {
      const auto header = ParsePsnHeader(line);
      if (header && header->creator == kPsnCreator) continue;
    }
    ProcessPSNLine(session, line, progress);
    if (total > 0) session.Monitor().Percent(static_cast<int>((i + 1) * 100 / total));
    if (session.Monitor().Cancelled()) break;
  }
  return progress.count;
}

}  // namespace kvlr
