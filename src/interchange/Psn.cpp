#include "interchange/Psn.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/DateText.h"
#include "core/VbRules.h"
#include "interchange/ImportSession.h"

namespace kvlr {
namespace {

// "MM/DD/YYYY" of a .psn; blank columns are a blank date, anything else that isn't a day
// is the bad date.
FileDate PsnDate(std::string_view line, int from, int to, int date_order) {
  const std::string cols = SdifText(line, from, to);
  if (Trim(cols).empty()) return {kSdifBlankDate, false};
  if (auto date = USTextToDate(cols, date_order)) return {*date, false};
  return {kSdifBlankDate, true};
}

std::string CurrentSwimmerName(const AppState& state) {
  if (!Trim(state.gAthleteName).empty()) return state.gAthleteName;
  return Trim(state.gAthleteFirst + " " + state.gAthleteLast);
}

}  // namespace

std::optional<PsnHeader> ParsePsnHeader(std::string_view line) {
  if (line.size() != kPsnHeaderColumns) return std::nullopt;
  PsnHeader header;
  header.first = SdifTrimmed(line, 1, 20);
  header.last = SdifTrimmed(line, 21, 40);
  header.preferred = SdifTrimmed(line, 41, 60);
  header.middle = SdifTrimmed(line, 61, 61);
  header.creator = SdifTrimmed(line, 62, static_cast<int>(kPsnHeaderColumns));
  return header;
}

std::string PsnSwimmerName(const PsnHeader& header) {
  std::string name;
  const auto add = [&name](std::string_view part) {
    if (part.empty()) return;
    if (!name.empty()) name += ' ';
    name += part;
  };
  if (!header.preferred.empty()) {
    return header.first + " '" + header.preferred + "' " + header.last;
  }
  add(header.first);
  add(header.middle);
  add(header.last);
  return name;
}

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
                            std::string(kPsnCurrentSwimmer) + CurrentSwimmerName(state) +
                            "\n\n" + std::string(kPsnContinueAsk);
    if (!state.io->AskYesNo(ask)) return false;
  }
  return true;
}

PsnLine ParsePsnLine(std::string_view line, int date_order) {
  PsnLine out;
  if (Trim(SdifText(line, 77, 78)).empty()) {
    out.kind = PsnLine::Kind::kSplits;
    for (int g = 0; g < kPsnSplitGroups; ++g) {
      const int from = 1 + g * kPsnSplitWidth;
      out.splits[static_cast<size_t>(g)] =
          ParseFileTime(SdifText(line, from, from + kPsnSplitWidth - 1)).score;
    }
    return out;
  }
  PsnResult& r = out.result;
  r.stroke = SdifInt(line, 1, 1);
  r.distance = SdifInt(line, 2, 5);
  r.time = ParseFileTime(SdifText(line, 6, 13));
  r.course = UCase(SdifTrimmed(line, 15, 15));
  r.f_p = UCase(SdifTrimmed(line, 16, 16));
  r.i_r = SdifText(line, 17, 17) == "R" ? "L" : "I";
  r.start = PsnDate(line, 18, 27, date_order);
  r.end = PsnDate(line, 29, 38, date_order);
  r.meet_name = SdifTrimmed(line, 40, 69);
  if (line.size() == kPsnHeaderColumns) r.place = SdifInt(line, 79, 81);
  return out;
}

int PsnSplitStep(std::string_view course) {
  return !course.empty() && (course[0] == 'L' || course[0] == 'l') ? 4 : 2;
}

int32_t SavePSNResult(ImportSession& session, const PsnResult& result) {
  AppState& state = session.State();
  SQLite::Database& db = *state.gDb;
  const std::string course = ImportCourseLetter(result.course);
  const int32_t athlete = session.Matcher().CurrentAthlete();
  const int32_t meet = session.CurrentMeet();
  const int32_t mt_event = session.GetMeetEvent(result.distance, result.stroke, 99,
                                                session.Matcher().Current().sex, 0, "", course,
                                                "I");
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

std::string ResultsProcessedText(int count) {
  return std::string(kResultsProcessed) + std::to_string(count);
}

}  // namespace kvlr
