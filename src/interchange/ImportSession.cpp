#include "interchange/ImportSession.h"

#include <fstream>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "core/Columns.h"
#include "core/VbRules.h"
#include "meets/Meets.h"
#include "meets/Ranking.h"

namespace kvlr {

namespace {

constexpr Date kMissingStart{2003, 1, 1};

// A file date that names a real day: neither the bad date nor the blank one.
bool IsRealDate(const FileDate& d) {
  return !d.bad && !d.IsBlank();
}

std::vector<FamilyMember> ReadFamilyList(SQLite::Database& db) {
  std::vector<FamilyMember> family;
  SQLite::Statement q(db, "SELECT Athlete, First, Pref FROM ATHLETE ORDER BY First");
  while (q.executeStep()) {
    family.push_back({UCase(Trim(TextOf(q.getColumn(1)))), UCase(Trim(TextOf(q.getColumn(2)))),
                      q.getColumn(0).getInt()});
  }
  return family;
}

CurrentSwimmer CurrentOf(const AppState& state) {
  return {state.gAthlete, state.gAthleteFirst, state.gAthleteLast, state.gAthleteSex};
}

bool IsDigits(std::string_view text) {
  if (text.empty()) return false;
  for (char c : text) {
    if (c < '0' || c > '9') return false;
  }
  return true;
}

}  // namespace

uint8_t NtFromTimeText(std::string_view time_text) {
  const std::string text = UCase(time_text);
  static constexpr std::pair<std::string_view, uint8_t> kCodes[] = {
      {"DQ", 5}, {"SCR", 1}, {"NS", 2}, {"DNF", 3}, {"NT", 4}};
  for (const auto& [code, nt] : kCodes) {
    if (text.find(code) != std::string::npos) return nt;
  }
  return 0;
}

std::string ImportCourseLetter(std::string_view course_code) {
  const std::string code = Trim(course_code);
  if (code.empty()) return "Y";
  if (!IsDigits(code)) return code;
  const double n = Val(code);
  return n == 0 ? "Y" : n == 1 ? "S" : n == 2 ? "L" : "";
}

int PrivateEventNumber(int distance, int stroke) {
  static constexpr std::pair<int, int> kBases[] = {{25, 10},   {50, 15},  {100, 20}, {200, 25},
                                                   {400, 30},  {500, 35}, {800, 40}, {1000, 45},
                                                   {1500, 50}, {1650, 55}};
  for (const auto& [d, base] : kBases) {
    if (d == distance) return base + stroke;
  }
  return distance / 25 + stroke;
}

std::string PrivateEventLetter(int lo_hi) {
  if (lo_hi == 99) return "";
  const int high = lo_hi % 100;
  if (high < 9) return "A";
  if (high < 11) return "B";
  if (high < 13) return "C";
  if (high < 15) return "D";
  if (high < 17) return "E";
  if (high < 19) return "F";
  return "G";
}

ImportSession::ImportSession(AppState& state, const ImportCriteria& criteria,
                             ImportMonitor& monitor, bool roster_mode)
    : state_(state),
      monitor_(monitor),
      criteria_(criteria),
      matcher_(CurrentOf(state),
               criteria.all_family ? ReadFamilyList(*state.gDb) : std::vector<FamilyMember>{},
               criteria.all_family),
      roster_mode_(roster_mode),
      transaction_(std::make_unique<SQLite::Transaction>(*state.gDb)),
      log_path_(state.home.Root() / kImportErrorLog) {
  // A fresh log for every run; it stays behind for the user to read.
  std::ofstream(log_path_, std::ios::binary | std::ios::trunc);
}

ImportSession::~ImportSession() = default;

bool ImportSession::ProcessMeetRec(std::string_view name_in, const FileDate& start_in,
                                   const FileDate& end, const FileDate& age_up,
                                   std::string_view course_code, std::string_view location) {
  std::string name = Trim(name_in);
  if (name.empty()) {
    state_.io->Tell(fmt::format("{}\r\n{}{}", kNoMeetName, kGivenNameMeet, no_meet_counter_));
    name = fmt::format("MEET{}", no_meet_counter_++);
  }
  Date start = start_in.date;
  if (start_in.bad) {
    LogException({std::string(kNoStartDateFor) + name, std::string(kGivenDate2003), ""});
    start = kMissingStart;
  }
  SQLite::Database& db = *state_.gDb;
  SQLite::Statement by_name(db,
                            "SELECT Meet, MName, Course FROM MEET WHERE MName = ? AND Start = ?");
  SQLite::bind(by_name, name, start.Iso());
  auto take = [&](SQLite::Statement& row) {
    meet_ = row.getColumn(0).getInt();
    meet_name_ = Trim(TextOf(row.getColumn(1)));
    const char letter = CourseLetter(TextOf(row.getColumn(2)));
    meet_course_ = letter ? std::string(1, letter) : "";
    meet_start_ = start;
    return true;
  };
  if (by_name.executeStep()) return take(by_name);

  SQLite::Statement by_start(db,
                             "SELECT Meet, MName, Course FROM MEET WHERE Start = ? ORDER BY Meet");
  by_start.bind(1, start.Iso());
  if (by_start.executeStep()) {
    const std::string existing = Trim(TextOf(by_start.getColumn(1)));
    const std::string question = fmt::format(
        "There is already an existing meet with start date of: {}  named: {}\r\nWould you like "
        "to treat this meet, {} and {} as the same meet?",
        MeetShortDate(start, state_.gDateOrder), existing, name, existing);
    if (state_.io->AskYesNo(question, kSameMeetTitle)) return take(by_start);
  }

  Meet meet;
  meet.mname = name;
  meet.start = start;
  meet.end = IsRealDate(end) ? end.date : start;
  if (IsRealDate(age_up)) {
    meet.age_up = age_up.date;
  } else {
    SQLite::Statement options(db, "SELECT MtAgeUp, MtDate FROM OPTIONS LIMIT 1");
    if (options.executeStep()) {
      if (options.getColumn(0).getInt() == 1) {
        meet.age_up = start;
      } else if (auto on_file = DateOf(options.getColumn(1));
                 on_file && *on_file != kSdifBlankDate) {
        meet.age_up = on_file;
      }
    }
  }
  meet.location = Trim(location);
  meet.course = ImportCourseLetter(course_code);
  SQLite::Statement add(db,
                        "INSERT INTO MEET (MName, Start, End, AgeUp, Course, Location) VALUES "
                        "(?, ?, ?, ?, ?, ?)");
  SQLite::bind(add, meet.mname, start.Iso(), meet.end->Iso());
  if (meet.age_up) {
    add.bind(4, meet.age_up->Iso());
  } else {
    add.bind(4);
  }
  add.bind(5, meet.course);
  add.bind(6, meet.location);
  add.exec();
  meet.meet = static_cast<int32_t>(db.getLastInsertRowid());
  WriteMeetCalendar(state_, meet);
  meet_ = meet.meet;
  meet_name_ = meet.mname;
  meet_course_ = meet.course.substr(0, 1);
  meet_start_ = start;
  return true;
}

void ImportSession::ProcessB2Rec(std::string_view b1_name, std::string_view location) {
  if (meet_ == 0 || meet_name_ == Trim(b1_name)) return;
  SQLite::Statement edit(*state_.gDb, "UPDATE MEET SET Location = ? WHERE Meet = ?");
  SQLite::bind(edit, Trim(location), meet_);
  edit.exec();
}

int32_t ImportSession::GetMeetEvent(int distance, int stroke, int lo_hi, std::string_view sex,
                                    int number, std::string_view letter_in, std::string_view course,
                                    std::string_view i_r) {
  EventKey key{meet_,
               distance,
               stroke,
               lo_hi,
               std::string(sex),
               number,
               std::string(letter_in),
               std::string(course.substr(0, 1)),
               std::string(i_r)};
  if (auto hit = events_.find(key); hit != events_.end()) return hit->second;
  const int32_t event =
      FindOrAddEvent(distance, stroke, lo_hi, sex, number, letter_in, course, i_r);
  events_.emplace(std::move(key), event);
  return event;
}

int32_t ImportSession::FindOrAddEvent(int distance, int stroke, int lo_hi, std::string_view sex,
                                      int number, std::string_view letter_in,
                                      std::string_view course, std::string_view i_r) {
  SQLite::Database& db = *state_.gDb;
  std::string letter = Trim(letter_in);
  if (IsDigits(letter)) {  // "12" + "3" is event 123
    number = number * 10 + static_cast<int>(Val(letter));
    letter.clear();
  }
  auto seek = [&](int n, const std::string& x) -> std::optional<std::pair<int32_t, bool>> {
    SQLite::Statement q(db,
                        "SELECT MtEvent, Stroke, Distance, Lo_Hi FROM MTEVENT WHERE Meet = ? AND "
                        "MtEv = ? AND IFNULL(MtEvX, '') = ?");
    SQLite::bind(q, meet_, n, x);
    if (!q.executeStep()) return std::nullopt;
    const bool same = q.getColumn(1).getInt() == stroke && q.getColumn(2).getInt() == distance &&
                      q.getColumn(3).getInt() == lo_hi;
    return std::make_pair(q.getColumn(0).getInt(), same);
  };
  auto next_number = [&] {
    SQLite::Statement q(db, "SELECT MAX(MtEv) FROM MTEVENT WHERE Meet = ?");
    q.bind(1, meet_);
    return q.executeStep() && !q.getColumn(0).isNull() ? q.getColumn(0).getInt() + 1 : 1;
  };

  if (number != 0) {
    if (auto hit = seek(number, letter)) {
      if (hit->second) return hit->first;
      // The file's numbering collides with ours: a private number for this swim.
      number = PrivateEventNumber(distance, stroke);
      letter = PrivateEventLetter(lo_hi);
      if (auto again = seek(number, letter)) {
        if (again->second) return again->first;
        number = next_number();  // taken too: the next free number keeps the key unique
      }
    }
  } else {
    SQLite::Statement q(db,
                        "SELECT MtEvent FROM MTEVENT WHERE Distance = ? AND Stroke = ? AND I_R = ? "
                        "AND Lo_Hi = ? AND Sex = ? AND Meet = ?");
    SQLite::bind(q, distance, stroke, std::string(i_r), lo_hi, std::string(sex), meet_);
    if (q.executeStep()) return q.getColumn(0).getInt();
    number = next_number();
  }
  SQLite::Statement add(db,
                        "INSERT INTO MTEVENT (Meet, Distance, Stroke, Sex, Lo_Hi, MtEv, MtEvX, "
                        "Course, I_R) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
  SQLite::bind(add, meet_, distance, stroke, std::string(sex), lo_hi, number, letter,
               std::string(course.substr(0, 1)), std::string(i_r));
  add.exec();
  return static_cast<int32_t>(db.getLastInsertRowid());
}

int32_t ImportSession::FindResult(int32_t athlete, std::string_view i_r, int32_t mt_event,
                                  std::string_view f_p) {
  SQLite::Statement q(*state_.gDb,
                      "SELECT Result FROM RESULT WHERE Meet = ? AND Athlete = ? AND I_R = ? AND "
                      "MtEvent = ? AND F_P = ?");
  SQLite::bind(q, meet_, athlete, std::string(i_r), mt_event, std::string(f_p));
  return q.executeStep() ? q.getColumn(0).getInt() : 0;
}

bool ImportSession::SaveResult(std::string_view time_text, int distance, int stroke,
                               std::string_view f_p, std::string_view course, int32_t score,
                               std::string_view i_r, int place, int32_t mt_event, int age,
                               std::string_view ex) {
  duplicate_skipped_ = false;
  if (Trim(time_text).empty()) return true;
  const int32_t athlete = matcher_.CurrentAthlete();
  const int32_t existing = FindResult(athlete, i_r, mt_event, f_p);
  if (existing != 0 && !criteria_.overlay_results) {
    duplicate_skipped_ = true;
    last_result_ = 0;
    return true;
  }
  SQLite::Database& db = *state_.gDb;
  const bool with_place = place >= 0;
  SQLite::Statement write(
      db, existing == 0
              ? "INSERT INTO RESULT (Distance, Stroke, Course, Score, Age, Ex, NT, Place, Athlete, "
                "Meet, I_R, MtEvent, F_P) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"
              : (with_place ? "UPDATE RESULT SET Distance = ?, Stroke = ?, Course = ?, Score = ?, "
                              "Age = ?, Ex = ?, NT = ?, Place = ? WHERE Result = ?"
                            : "UPDATE RESULT SET Distance = ?, Stroke = ?, Course = ?, Score = ?, "
                              "Age = ?, Ex = ?, NT = ? WHERE Result = ?"));
  SQLite::bind(write, distance, stroke, std::string(course.substr(0, 1)), score, age,
               std::string(ex.substr(0, 1)), static_cast<int>(NtFromTimeText(time_text)));
  int next = 8;
  if (with_place) {
    write.bind(next++, place);
  } else if (existing == 0) {
    write.bind(next++);
  }
  if (existing == 0) {
    write.bind(next++, athlete);
    write.bind(next++, meet_);
    write.bind(next++, std::string(i_r));
    write.bind(next++, mt_event);
    write.bind(next, std::string(f_p));
  } else {
    write.bind(next, existing);
  }
  write.exec();
  last_result_ = existing != 0 ? existing : static_cast<int32_t>(db.getLastInsertRowid());
  return true;
}

bool ImportSession::SaveSplit(int32_t result, int split_index, int32_t split, bool overlay) {
  if (result <= 0 || split_index < 0 || split_index > 255) return false;  // SplitIndex is a byte
  SQLite::Database& db = *state_.gDb;
  SQLite::Statement seek(db, "SELECT 1 FROM SPLITS WHERE SplitID = ? AND SplitIndex = ?");
  SQLite::bind(seek, result, split_index);
  const bool exists = seek.executeStep();
  if (exists && !overlay) return false;
  SQLite::Statement write(db, exists ? "UPDATE SPLITS SET Split = ? WHERE SplitID = ? AND "
                                       "SplitIndex = ?"
                                     : "INSERT INTO SPLITS (Split, SplitID, SplitIndex) VALUES "
                                       "(?, ?, ?)");
  SQLite::bind(write, split, result, split_index);
  write.exec();
  return true;
}

void ImportSession::LogException(const std::vector<std::string>& lines) {
  not_all_imported_ = true;
  std::ofstream log(log_path_, std::ios::binary | std::ios::app);
  for (const std::string& line : lines) {
    std::string record = line.substr(0, 78);
    record.resize(78, ' ');
    log << record << "\r\n";
  }
}

void ImportSession::Commit() {
  if (!transaction_) return;
  transaction_->commit();
  transaction_.reset();
}

void ImportSession::UpdateResultRankings() {
  monitor_.Status(kUpdatingResultRankings);
  AddRank(state_);
  monitor_.Percent(-1);
}

}  // namespace kvlr
