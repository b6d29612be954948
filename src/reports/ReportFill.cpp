#include "reports/ReportFill.h"

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "core/Columns.h"
#include "core/TextClean.h"
#include "core/TimeText.h"
#include "core/VbRules.h"

namespace kvlr {

std::string FitText(std::string_view text, size_t size) {
  size_t chars = 0;
  size_t i = 0;
  while (i < text.size()) {
    if (chars == size) return std::string(text.substr(0, i));
    const auto lead = static_cast<unsigned char>(text[i]);
    i += lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    ++chars;
  }
  return std::string(text);
}

void BindColumn(SQLite::Statement& q, int index, const SQLite::Column& value) {
  if (value.isNull()) {
    q.bind(index);
  } else if (value.isInteger()) {
    q.bind(index, value.getInt64());
  } else if (value.isFloat()) {
    q.bind(index, value.getDouble());
  } else {
    q.bind(index, value.getString());
  }
}

std::string ReportName(std::string_view last, std::string_view first, std::string_view initial) {
  std::string name = Trim(last) + ", " + Trim(first);
  if (!Trim(initial).empty()) name += " " + Trim(initial);
  return name;
}

std::string ReportCase(int output_case, std::string_view text) {
  switch (output_case) {
    case 1:
      return UCase(text);
    case 2:
      return ProperName(text);
    default:
      return std::string(text);
  }
}

int ReportCaseOption(AppState& state) {
  try {
    SQLite::Statement q(*state.gDb, "SELECT RptUcase FROM OPTIONS LIMIT 1");
    if (q.executeStep() && !q.getColumn(0).isNull()) return q.getColumn(0).getInt();
  } catch (const std::exception&) {
    // An older file without the field prints names as keyed.
  }
  return 0;
}

int GetAthletesForReports(AppState& state, int32_t athlete, bool use_athletes_name) {
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM RATHINFO");
  SQLite::Statement q(
      *state.gDb,
      "SELECT a.Last, a.First, a.Initial, a.Sex, a.Birth, a.Age, a.ID_NO, a.Citizen, a.Pref, "
      "i.MailTo, i.Addr, i.SecAddr, i.City, i.State, i.ZIP, i.Cntry, i.EMail, i.MailTo2, "
      "i.Addr2, i.SecAddr2, i.City2, i.State2, i.ZIP2, i.Cntry2, i.EMail2, i.DayP1, i.EveP1, "
      "i.FaxP1, i.DayP2, i.EveP2, i.FaxP2, i.MedCondition, i.Medication, i.DoctorName, "
      "i.DoctorPhone, i.EmerContact, i.EmerPhone "
      "FROM ATHLETE a LEFT JOIN AthInfo i ON i.Athlete = a.Athlete "
      "WHERE (? = 0 AND a.Athlete <> 0) OR a.Athlete = ? ORDER BY a.Last, a.First");
  q.bind(1, athlete);
  q.bind(2, athlete);
  SQLite::Statement add(rdb,
                        "INSERT INTO RATHINFO (NAME, SEX, BIRTH, AGE, ID_NO, CITIZEN, PREF, "
                        "MAILTO, ADDR, SECADDR, CITYSTZIP, CNTRY, EMAIL, MAILTO2, ADDR2, "
                        "SECADDR2, CITYSTZIP2, CNTRY2, EMAIL2, DAYP1, EVEP1, FAXP1, DAYP2, EVEP2, "
                        "FAXP2, MEDCONDITION, MEDICATION, DOCTORNAME, DOCTORPHONE, EMERCONTACT, "
                        "EMERPHONE, LAST, FIRST, INITIAL, CITY, STATE, ZIP) VALUES "
                        "(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  auto city_line = [](const std::string& city, const std::string& st, const std::string& zip) {
    std::string line = Trim(city);
    if (!Trim(st).empty()) line += (line.empty() ? "" : ", ") + Trim(st);
    if (!Trim(zip).empty()) line += (line.empty() ? "" : " ") + Trim(zip);
    return line;
  };
  int count = 0;
  while (q.executeStep()) {
    auto t = [&q](int i) { return TextOf(q.getColumn(i)); };
    const std::string name = ReportName(t(0), t(1), t(2));
    std::string mail_to = t(9);
    if (use_athletes_name && Trim(mail_to).empty()) mail_to = Trim(t(1)) + " " + Trim(t(0));
    const std::vector<std::pair<std::string, size_t>> texts = {
        {name, 43},   {t(3), 1},    {t(4), 10},  {"", 0},     {t(6), 17},   {t(7), 3},
        {t(8), 20},   {mail_to, 40}, {t(10), 30}, {t(11), 30},
        {city_line(t(12), t(13), t(14)), 46},     {t(15), 20}, {t(16), 36},  {t(17), 40},
        {t(18), 30},  {t(19), 30},  {city_line(t(20), t(21), t(22)), 46},     {t(23), 20},
        {t(24), 36},  {t(25), 20},  {t(26), 20}, {t(27), 20}, {t(28), 20},  {t(29), 20},
        {t(30), 20},  {t(31), 120}, {t(32), 120}, {t(33), 30}, {t(34), 20}, {t(35), 30},
        {t(36), 20},  {t(0), 20},   {t(1), 20},  {t(2), 1},   {t(12), 30},  {t(13), 3},
        {t(14), 10}};
    for (size_t i = 0; i < texts.size(); ++i) {
      const int at = static_cast<int>(i) + 1;
      if (i == 2 && texts[i].first.empty()) {
        add.bind(at);
      } else if (i == 3) {
        add.bind(at, q.getColumn(5).isNull() ? 0 : q.getColumn(5).getInt());
      } else {
        add.bind(at, FitText(texts[i].first, texts[i].second));
      }
    }
    add.exec();
    add.reset();
    ++count;
  }
  transaction.commit();
  return count;
}

MeetRowWriter::MeetRowWriter(SQLite::Database& report_db, bool relay)
    : insert_(report_db,
              std::string("INSERT INTO ") + (relay ? "RMEETR" : "RMEETI") +
                  " (MEET, MEETSTART, MEETEND, STROKE, DISTANCE, LAST, FIRST, INITIAL, COURSE, "
                  "SCORE, F_P, EX, MTEV, SEX, I_R, MEETCRS, MEETTYPE, NAME, EVENTSEX, COMMENT, "
                  "MISC, SPLIT, LO_HI, AGE, PLACE, INTSTROKE, INTDIST, SORTORDER, MEETID, "
                  "ATHLETE, CONVT, IMPROV) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,"
                  "?,?,?,?,?)") {}

void MeetRowWriter::Add(const RMeetRow& r) {
  SQLite::Statement& q = insert_;
  q.reset();
  const std::pair<const std::string*, size_t> texts[] = {
      {&r.meet, 45},      {&r.meet_start, 10}, {&r.meet_end, 10}, {&r.stroke, 12},
      {&r.distance, 12},  {&r.last, 20},       {&r.first, 20},    {&r.initial, 1},
      {&r.course, 2},     {&r.score, 12},      {&r.f_p, 1},       {&r.ex, 1},
      {&r.mtev, 8},       {&r.sex, 1},         {&r.i_r, 1},       {&r.meet_crs, 2},
      {&r.meet_type, 3},  {&r.name, 43},       {&r.event_sex, 1}, {&r.comment, 50},
      {&r.misc, 4}};
  int at = 1;
  for (const auto& [text, size] : texts) {
    if ((at == 2 || at == 3) && text->empty()) {
      q.bind(at++);
    } else {
      q.bind(at++, FitText(*text, size));
    }
  }
  q.bind(at++, r.split);
  for (int v : {r.lo_hi, r.age, r.place, r.int_stroke, r.int_dist, r.sort_order}) q.bind(at++, v);
  for (int32_t v : {r.meet_id, r.athlete, r.convt}) q.bind(at++, v);
  if (r.improv) {
    q.bind(at, *r.improv);
  } else {
    q.bind(at);
  }
  q.exec();
}

void AddMeetRow(SQLite::Database& report_db, const RMeetRow& row, bool relay) {
  MeetRowWriter(report_db, relay).Add(row);
}

bool AddSplitsToReport(AppState& state, int64_t result, int distance, char course, int mode) {
  if (mode != 2 && mode != 3) return false;
  SQLite::Statement q(*state.gDb,
                      "SELECT SplitIndex, Split FROM SPLITS WHERE SplitID = ? ORDER BY SplitIndex");
  q.bind(1, result);
  const bool fifties = mode == 3 && (course == 'Y' || course == 'S') && distance > 50;
  std::vector<int32_t> splits;
  while (q.executeStep() && splits.size() < 33) {
    const int index = q.getColumn(0).getInt();
    const int32_t split = q.getColumn(1).isNull() ? 0 : q.getColumn(1).getInt();
    if (split <= 0) continue;
    if (fifties && index % 2 != 0) continue;
    splits.push_back(split);
  }
  if (splits.empty()) return false;
  std::string sql = "INSERT OR REPLACE INTO RSPLITS (SPLITID";
  std::string marks = "?";
  for (size_t i = 0; i < splits.size(); ++i) {
    sql += fmt::format(", \"F({})\"", i);
    marks += ",?";
    if (mode == 3) {
      sql += fmt::format(", \"SR({})\"", i);
      marks += ",?";
    }
  }
  SQLite::Statement add(*state.gReportDb, sql + ") VALUES (" + marks + ")");
  int at = 1;
  add.bind(at++, result);
  for (size_t i = 0; i < splits.size(); ++i) {
    add.bind(at++, FitText(FormatTime(splits[i], false), 8));
    if (mode == 3) {
      const int32_t lap = i == 0 ? splits[0] : splits[i] - splits[i - 1];
      add.bind(at++, FitText(FormatTime(lap, false), 8));
    }
  }
  add.exec();
  return true;
}

int RemoveExtraTimes(AppState& state, TopGroup group, int n) {
  state.io->Progress(rpttxt::kFilteringTimes);
  const char* sql = nullptr;
  int keys = 0;
  switch (group) {
    case TopGroup::kSwimmer:
      sql = "SELECT rowid, INTSTROKE, INTDIST, ATHLETE FROM RMEETI "
            "ORDER BY INTSTROKE, INTDIST, ATHLETE, CONVT, MEETSTART";
      keys = 3;
      break;
    case TopGroup::kRelay:
      sql = "SELECT rowid, INTSTROKE, INTDIST, SEX, LO_HI FROM RMEETR "
            "ORDER BY INTSTROKE, INTDIST, SEX, LO_HI, CONVT, MEETSTART";
      keys = 4;
      break;
    case TopGroup::kEvent:
      sql = "SELECT rowid, INTSTROKE, INTDIST, LO_HI FROM RMEETI "
            "ORDER BY INTSTROKE, INTDIST, LO_HI, CONVT, MEETSTART";
      keys = 3;
      break;
    case TopGroup::kEventAndSex:
      sql = "SELECT rowid, SEX, INTSTROKE, INTDIST, LO_HI FROM RMEETI "
            "ORDER BY SEX, INTSTROKE, INTDIST, LO_HI, CONVT, MEETSTART";
      keys = 4;
      break;
  }
  SQLite::Database& rdb = *state.gReportDb;
  std::vector<int64_t> extra;
  {
    SQLite::Statement q(rdb, sql);
    std::vector<std::string> last;
    int count = 0;
    while (q.executeStep()) {
      std::vector<std::string> key;
      for (int i = 1; i <= keys; ++i) key.push_back(TextOf(q.getColumn(i)));
      count = key == last ? count + 1 : 1;
      last = std::move(key);
      if (count > n) extra.push_back(q.getColumn(0).getInt64());
    }
  }
  SQLite::Transaction transaction(rdb);
  SQLite::Statement del(rdb, group == TopGroup::kRelay ? "DELETE FROM RMEETR WHERE rowid = ?"
                                                       : "DELETE FROM RMEETI WHERE rowid = ?");
  for (int64_t id : extra) {
    del.bind(1, id);
    del.exec();
    del.reset();
  }
  transaction.commit();
  return static_cast<int>(extra.size());
}

}  // namespace kvlr
