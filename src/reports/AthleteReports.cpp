// The reports of one swimmer: the recruiting card and the goals of a course.

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "interchange/ImportReportTexts.h"
#include "reports/ReportFill.h"
#include "reports/ReportKinds.h"

namespace kvlr {

std::string SplitsText(SQLite::Database& report_db, int64_t split_id) {
  if (split_id == 0) return "";
  SQLite::Statement q(report_db, "SELECT * FROM RSPLITS WHERE SPLITID = ?");
  q.bind(1, split_id);
  if (!q.executeStep()) return "";
  // Columns: SPLITID, F(0)..F(32), SR(0)..SR(32).
  std::string text;
  for (int i = 0; i <= 32; ++i) {
    const std::string split = Trim(TextOf(q.getColumn(1 + i)));
    if (split.empty()) continue;
    const std::string lap = Trim(TextOf(q.getColumn(34 + i)));
    if (!text.empty()) text += "   ";
    // A no-break space keeps a split with its lap when the line wraps.
    text += lap.empty() ? split : split + "\u00a0(" + lap + ")";
  }
  return text;
}

std::string ReportAgeText(int lo_hi, const ReportParameters& p) {
  return lo_hi == 99 ? p.open_event : LoHiText(lo_hi);
}

std::string ReportSexWord(std::string_view sex, const ReportParameters& p) {
  if (sex == "F" || sex == "f") return p.girl_sex;
  if (sex == "M" || sex == "m") return p.boy_sex;
  return SexWord(sex);
}

int32_t RequestedAthlete(const AppState& state, const ReportRequest& request) {
  return request.athlete != 0 ? request.athlete : state.gAthlete;
}

namespace {

bool FillRecruiting(AppState& state, const ReportRequest& request) {
  const int32_t athlete = RequestedAthlete(state, request);
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM ATHRECR");
  SQLite::Statement q(*state.gDb,
                      "SELECT ATHRECR.* FROM ATHLETE INNER JOIN ATHRECR "
                      "ON ATHLETE.ATHLETE = ATHRECR.ATHLETE WHERE ATHLETE.ATHLETE = ?");
  q.bind(1, athlete);
  if (!q.executeStep()) {
    transaction.commit();
    state.io->Tell(rpttxt::kNoAthletes);
    return false;
  }
  // Both tables share one layout: the column names come from the schema, not from data.
  std::string names, marks;
  for (int i = 0; i < q.getColumnCount(); ++i) {
    names += std::string(i ? ", " : "") + "\"" + q.getColumnName(i) + "\"";
    marks += i ? ",?" : "?";
  }
  SQLite::Statement add(rdb, "INSERT INTO ATHRECR (" + names + ") VALUES (" + marks + ")");
  for (int i = 0; i < q.getColumnCount(); ++i) BindColumn(add, i + 1, q.getColumn(i));
  add.exec();
  transaction.commit();
  GetAthletesForReports(state, athlete);
  SetReportParameters(state, rpttxt::kRecruitingTitle, {});
  return true;
}

ReportDoc LayoutRecruiting(AppState& state, const ReportRequest& request) {
  ReportDoc doc = StartReportDoc(state, request);
  SQLite::Database& rdb = *state.gReportDb;
  ReportSection s;
  s.columns = {{"", 16}, {"", 34}, {"", 16}, {"", 34}};
  SQLite::Statement who(rdb,
                        "SELECT NAME, BIRTH, SEX, MAILTO, ADDR, CITYSTZIP, EMAIL, DAYP1, EVEP1 "
                        "FROM RATHINFO LIMIT 1");
  if (who.executeStep()) {
    auto t = [&who](int i) { return Trim(TextOf(who.getColumn(i))); };
    s.Group(t(0));
    const auto born = DateOf(who.getColumn(1));
    s.Row({"Born:", born ? ShownDate(*born, state.gDateOrder) : "", "Sex:", SexWord(t(2))});
    s.Row({"Address:", t(4), "", t(5)});
    s.Row({"E-mail:", t(6), "Phone:", Trim(t(7) + "  " + t(8))});
  }
  SQLite::Statement q(rdb, "SELECT * FROM ATHRECR LIMIT 1");
  if (q.executeStep()) {
    auto t = [&q](const char* field) { return Trim(TextOf(q.getColumn(field))); };
    auto n = [&q](const char* field) {
      const SQLite::Column c = q.getColumn(field);
      return c.isNull() || c.getDouble() == 0 ? std::string() : Trim(c.getString());
    };
    s.Group("School");
    s.Row({"School:", t("HS_Name"), "Phone:", t("HS_Phone")});
    s.Row({"Address:", t("HS_Addr"), "",
           Trim(t("HS_City") + ", " + t("HS_State") + " " + t("HS_ZIP"))});
    s.Row({"Coach:", t("HS_Coach"), "Graduation:", n("Grad")});
    s.Row({"Study:", t("HS_Study"), "GPA:", n("HS_GPA")});
    const std::string rank = n("HS_Rank");
    s.Row({"Class rank:", rank.empty() ? "" : rank + " of " + n("HS_Num"), "Awards:",
           t("Awards")});
    s.Group("Tests");
    s.Row({"Test1:", t("T1Name"), "Score:", n("T1Score")});
    s.Row({"Test2:", t("T2Name"), "Score:", n("T2Score")});
    s.Row({"Test3:", t("T3Name"), t("T3SName1"), n("T3Score1")});
    s.Row({"", "", t("T3SName2"), n("T3Score2")});
    s.Group("Other Swim Team");
    s.Row({"Team:", t("Oth_Team"), "Coach:", t("Oth_Coach")});
    s.Row({"Phone:", t("Oth_Phone"), "", ""});
    s.Group("More");
    s.Row({"Height:", n("Height"), "Weight:", n("Weight")});
    s.Row({"Activities:", t("Activities"), "Has Video", q.getColumn("Video").getInt() ? "Yes" : "No"});
    s.Row({"Camps/Clinics:", t("Camps"), "", ""});
    s.Row({"Information:", t("Add_Info"), "Remarks:", t("Remarks")});
    if (!t("Comments").empty()) s.Detail("Comments: " + t("Comments"));
  }
  doc.sections.push_back(std::move(s));
  return doc;
}

std::string GoalCourseWords(char course) {
  return course == 'Y' ? "Yards" : course == 'L' ? "Long Course Meters" : "Short Course Meters";
}

bool FillGoals(AppState& state, const ReportRequest& request) {
  const int32_t athlete = RequestedAthlete(state, request);
  SQLite::Database& db = *state.gDb;
  char course = request.course ? request.course : 'Y';
  if (request.meet != 0) {
    // The goals screen names its goal meet; its course decides.
    SQLite::Statement meet(db, "SELECT Course FROM MEET WHERE Meet = ?");
    meet.bind(1, request.meet);
    if (meet.executeStep() && !TextOf(meet.getColumn(0)).empty()) {
      course = TextOf(meet.getColumn(0))[0];
    }
  }
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM RMEETI");
  rdb.exec("DELETE FROM RSPLITS");
  SQLite::Statement swimmer(db, "SELECT Last, First, Initial, Sex FROM ATHLETE WHERE Athlete = ?");
  swimmer.bind(1, athlete);
  std::string last, first, initial, sex;
  if (swimmer.executeStep()) {
    last = TextOf(swimmer.getColumn(0));
    first = TextOf(swimmer.getColumn(1));
    initial = TextOf(swimmer.getColumn(2));
    sex = TextOf(swimmer.getColumn(3));
  }
  const std::string name = ReportCase(ReportCaseOption(state), ReportName(last, first, initial));
  SQLite::Statement q(db,
                      "SELECT r.RESULT, r.MEET, r.SCORE, r.NT, r.DISTANCE, r.STROKE, r.I_R, "
                      "c.Comment, e.Sex FROM RESULT r "
                      "JOIN MEET m ON m.Meet = r.MEET AND substr(m.MName, 1, 5) = ? "
                      "AND m.Course = ? "
                      "LEFT JOIN MTEVENT e ON e.MtEvent = r.MTEVENT "
                      "LEFT JOIN tblComments c ON r.RESULT = c.RESULTID "
                      "WHERE r.ATHLETE = ? AND r.I_R = 'G' "
                      "ORDER BY r.STROKE, r.DISTANCE, r.SCORE");
  q.bind(1, "Goals");
  q.bind(2, std::string(1, course));
  q.bind(3, athlete);
  int rows = 0;
  MeetRowWriter rows_out(rdb);
  while (q.executeStep()) {
    const int64_t result = q.getColumn(0).getInt64();
    RMeetRow row;
    row.last = last;
    row.first = first;
    row.initial = initial;
    row.name = name;
    row.sex = sex;
    row.athlete = athlete;
    row.i_r = "G";
    row.int_dist = q.getColumn(4).getInt();
    row.int_stroke = q.getColumn(5).getInt();
    row.distance = ReportDistText(row.int_dist);
    row.stroke = StrokeText(row.int_stroke, "I");
    row.meet_id = q.getColumn(1).getInt();
    row.course = std::string(1, course);
    row.event_sex = TextOf(q.getColumn(8));
    row.convt = q.getColumn(2).getInt();
    row.score = Trim(ScoreText(row.convt, row.int_stroke, "", q.getColumn(3).getInt()));
    row.comment = TextOf(q.getColumn(7));
    row.sort_order = ++rows;
    if (AddSplitsToReport(state, result, row.int_dist, course, 3)) row.split = result;
    rows_out.Add(row);
  }
  transaction.commit();
  if (rows == 0) {
    state.io->Tell(rpttxt::kNoGoals);
    return false;
  }
  SetReportParameters(state,
                      std::string(rpttxt::kGoalsFor) + ReportName(last, first, initial) +
                          " for " + GoalCourseWords(course),
                      {});
  return true;
}

ReportDoc LayoutGoals(AppState& state, const ReportRequest& request) {
  ReportDoc doc = StartReportDoc(state, request);
  SQLite::Database& rdb = *state.gReportDb;
  ReportSection s;
  s.columns = {{"Event", 22}, {"Goal Time", 12, ReportColumn::Align::kRight}, {"", 3},
               {"Comment", 50}};
  SQLite::Statement q(rdb,
                      "SELECT DISTANCE, STROKE, SCORE, COMMENT, SPLIT FROM RMEETI "
                      "ORDER BY SORTORDER");
  std::string stroke;
  while (q.executeStep()) {
    auto t = [&q](int i) { return Trim(TextOf(q.getColumn(i))); };
    if (t(1) != stroke) s.Group(stroke = t(1));
    s.Row({t(0) + " " + t(1), t(2), "", t(3)});
    const std::string splits = SplitsText(rdb, q.getColumn(4).getInt64());
    if (!splits.empty()) s.Detail(splits);
  }
  doc.sections.push_back(std::move(s));
  return doc;
}

}  // namespace

void AddAthleteReports(ReportCatalog& catalog) {
  catalog.Add({"recruiting", "the Athlete Recruiting Report of --athlete", FillRecruiting,
               LayoutRecruiting});
  catalog.Add({"goals", "the goals of --athlete in --course Y|S|L", FillGoals, LayoutGoals});
}

}  // namespace kvlr
