#include "meets/ResultsQuery.h"

#include <array>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "meets/ResultTexts.h"

namespace kvlr {
namespace {

constexpr std::string_view kSelect =
    "SELECT RESULT.RESULT, RESULT.MEET, RESULT.ATHLETE, RESULT.I_R, RESULT.F_P, RESULT.EX, "
    "RESULT.COURSE, RESULT.SCORE, RESULT.NT, RESULT.AGE, RESULT.DISTANCE, RESULT.STROKE, "
    "RESULT.PLACE, RESULT.SPLIT, RESULT.MTEVENT, MTEVENT.MtEv, MTEVENT.MtEvX, MTEVENT.Lo_Hi, "
    "MEET.MName, MEET.Start, tblComments.Comment, ATHLETE.Sex "
    "FROM RESULT INNER JOIN ATHLETE ON RESULT.ATHLETE = ATHLETE.Athlete "
    "INNER JOIN MEET ON RESULT.MEET = MEET.Meet "
    "INNER JOIN MTEVENT ON RESULT.MTEVENT = MTEVENT.MtEvent "
    "LEFT JOIN tblComments ON RESULT.RESULT = tblComments.ResultID "
    "WHERE RESULT.ATHLETE = ?";

// A result with no course stays under a course filter when it has a non-time or is a dive.
constexpr std::string_view kCourseClause =
    " AND ((RESULT.COURSE = ? OR (TRIM(IFNULL(RESULT.COURSE, '')) = '' AND "
    "IFNULL(RESULT.NT, 0) > 0)) OR (TRIM(IFNULL(RESULT.COURSE, '')) = '' AND "
    "(RESULT.STROKE = 6 OR RESULT.STROKE = 7)))";

}  // namespace

std::string_view SortText(ResultSort sort) {
  switch (sort) {
    case ResultSort::kStart:
      return "MtEvent.Stroke,MtEvent.Distance,NT";
    case ResultSort::kDistance:
      return "Result.Distance,Result.Stroke,NT";
    case ResultSort::kStroke:
      return "Result.Stroke,Result.Distance,NT";
    case ResultSort::kStartOldest:
      return "Start,Result.Stroke, Result.Distance,NT";
    case ResultSort::kStartNewest:
      return "Start desc,Result.Stroke, Result.Distance,NT";
    case ResultSort::kMeetName:
      return "Meet.MName,Result.Stroke,Result.Distance,NT";
    case ResultSort::kLastEntered:
      return "result desc";
  }
  return "MtEvent.Stroke,MtEvent.Distance,NT";
}

int16_t DistanceFilterValue(int list_index) {
  if (list_index <= 0) return 0;
  if (list_index < 11) {
    const auto list = DistanceList();
    if (list_index >= static_cast<int>(list.size())) return 0;
    return static_cast<int16_t>(Val(list[static_cast<size_t>(list_index)]));
  }
  return static_cast<int16_t>(list_index + 9980);
}

std::string CourseLetterOf(std::string_view course_text) {
  const std::string t = UCase(Trim(course_text));
  if (t.empty()) return "";
  if (t == "SCM") return "S";
  if (t == "LCM") return "L";
  if (t == "YARDS" || t == "SCY") return "Y";
  if (t[0] == 'Y' || t[0] == 'S' || t[0] == 'L') return t.substr(0, 1);
  return "";
}

ResultsPlan PlanResults(const ResultFilter& filter, bool use_lead_off, const Date& today,
                        const Date& null_date) {
  ResultsPlan plan;
  plan.sql = kSelect;
  plan.binds.emplace_back(int64_t{filter.athlete});

  if (filter.show_non_lead && use_lead_off) {
    plan.sql += " AND (RESULT.I_R = 'I' OR RESULT.I_R = 'N' OR RESULT.I_R = 'L'";
  } else if (use_lead_off) {
    plan.sql += " AND (RESULT.I_R = 'I' OR RESULT.I_R = 'L'";
  } else {
    plan.sql += " AND (RESULT.I_R = 'I'";
  }
  plan.sql += filter.show_goals ? " OR RESULT.I_R = 'G')" : ")";

  if (filter.meet != 0) {
    plan.sql += " AND RESULT.MEET = ?";
    plan.binds.emplace_back(int64_t{filter.meet});
  }
  if (!filter.course.empty()) {
    plan.sql += kCourseClause;
    plan.binds.emplace_back(filter.course);
  }
  if (filter.stroke != 0) {
    plan.sql += " AND RESULT.STROKE = ?";
    plan.binds.emplace_back(int64_t{filter.stroke});
  }
  if (filter.distance != 0) {
    plan.sql += " AND RESULT.DISTANCE = ?";
    plan.binds.emplace_back(int64_t{filter.distance});
  }
  const bool since = filter.use_since && filter.since.Valid() && filter.since < today;
  if (since) {
    plan.sql += " AND MEET.Start >= ?";
    plan.binds.emplace_back(filter.since.Iso());
    plan.filtered = true;
  }
  if (!filter.meet_type.empty()) {
    plan.sql += " AND MEET.Type = ?";
    plan.binds.emplace_back(filter.meet_type);
    plan.filtered = true;
  }
  if (filter.fastest) {
    int n = static_cast<int>(Val(filter.fastest_text));
    if (n == 0) n = 1;
    plan.fastest_n = n;
    if (plan.filtered) {
      TRankSelection selection;
      selection.since = since ? filter.since : null_date;
      selection.until = null_date;
      selection.meet_type = filter.meet_type;
      selection.athlete = filter.athlete;
      plan.rank_first = selection;
    }
    // The same ticks decide as above, so an unusable since date still picks TRANK.
    if (filter.use_since || !filter.meet_type.empty()) {
      plan.sql += " AND RESULT.TRANK <> 0 AND RESULT.TRANK <= ?";
    } else {
      plan.sql += " AND RESULT.RANK <= ?";
    }
    plan.binds.emplace_back(int64_t{n});
  }
  plan.sql += " ORDER BY ";
  plan.sql += SortText(filter.sort);
  plan.sql += filter.chronological && !filter.fastest ? ", Start DESC, Score" : ", Score";
  return plan;
}

std::vector<ResultRecord> RunResults(SQLite::Database& db, const ResultsPlan& plan) {
  SQLite::Statement q(db, plan.sql);
  for (size_t i = 0; i < plan.binds.size(); ++i) {
    const int at = static_cast<int>(i) + 1;
    if (const auto* n = std::get_if<int64_t>(&plan.binds[i])) {
      q.bind(at, *n);
    } else {
      q.bind(at, std::get<std::string>(plan.binds[i]));
    }
  }
  std::vector<ResultRecord> rows;
  while (q.executeStep()) {
    ResultRecord r;
    r.result = q.getColumn(0).getInt64();
    r.meet = q.getColumn(1).getInt();
    r.athlete = q.getColumn(2).getInt();
    r.i_r = TextOf(q.getColumn(3));
    r.f_p = TextOf(q.getColumn(4));
    r.ex = TextOf(q.getColumn(5));
    r.course = TextOf(q.getColumn(6));
    r.score = q.getColumn(7).getInt();
    r.nt = q.getColumn(8).getInt();
    r.age = static_cast<int16_t>(q.getColumn(9).getInt());
    r.distance = static_cast<int16_t>(q.getColumn(10).getInt());
    r.stroke = static_cast<int16_t>(q.getColumn(11).getInt());
    r.place = static_cast<int16_t>(q.getColumn(12).getInt());
    r.split = q.getColumn(13).getInt();
    r.mt_event = q.getColumn(14).getInt();
    r.mt_ev = (q.getColumn(15).isNull() ? std::string() : q.getColumn(15).getString()) +
              Trim(TextOf(q.getColumn(16)));
    r.lo_hi = q.getColumn(17).getInt();
    r.meet_name = TextOf(q.getColumn(18));
    r.start = Date::FromIso(TextOf(q.getColumn(19)));
    r.comment = TextOf(q.getColumn(20));
    r.sex = TextOf(q.getColumn(21));
    rows.push_back(std::move(r));
  }
  return rows;
}

std::array<std::string, kResultColumnCount> ResultHeadings(ResultSort sort) {
  std::array<std::string, kResultColumnCount> h = {
      "Distance",    "Stroke",   "Time",       "DQ/NT", "I/R",
      "P/F",         "Standard", "Converted",  "Event", "Event Age",
      "Swimmer Age", "Place",    "Start Date", "Meet",  "Comment"};
  if (sort == ResultSort::kStartOldest)
    h[kColStartDate] = "Meet Start " + std::string(kOldestFirst);
  if (sort == ResultSort::kStartNewest)
    h[kColStartDate] = "Meet Start " + std::string(kNewestFirst);
  if (sort == ResultSort::kMeetName) h[kColMeet] = "Meet Name";
  return h;
}

ResultSort SortAfterHeadingClick(int column, ResultSort current, bool& untick_chronological) {
  untick_chronological = false;
  switch (column) {
    case kColDistance:
      untick_chronological = true;
      return ResultSort::kDistance;
    case kColStroke:
      untick_chronological = true;
      return ResultSort::kStroke;
    case kColStartDate:
      return current == ResultSort::kStartOldest ? ResultSort::kStartNewest
                                                 : ResultSort::kStartOldest;
    case kColMeet:
      return ResultSort::kMeetName;
    default:
      return current;
  }
}

char ConvertTarget(std::optional<char> chosen, std::string_view course, bool y2l) {
  if (chosen) return *chosen;
  const std::string c = UCase(Trim(course));
  if (c.empty()) return 0;
  switch (c[0]) {
    case 'Y':
      return 'L';
    case 'S':
      return y2l ? 'Y' : 'L';
    case 'L':
      return y2l ? 'Y' : 'S';
    default:
      return 0;
  }
}

namespace {

std::string DistanceText(int16_t distance) {
  if (distance >= 9991 && distance <= 9993) {
    return DistanceList()[static_cast<size_t>(distance - 9980)];
  }
  return std::to_string(distance);
}

}  // namespace

std::vector<ResultCells> FillResultCells(const std::vector<ResultRecord>& records,
                                         const ResultCellOptions& options,
                                         const StandardLookup& standard,
                                         const TimeConverter& convert) {
  std::vector<ResultCells> out;
  out.reserve(records.size());
  int16_t age = 0;  // kept from row to row when a row has no age of its own
  for (const auto& r : records) {
    ResultCells c;
    c[kColDistance] = DistanceText(r.distance);
    c[kColStroke] = StrokeText(r.stroke, "");
    c[kColTime] = r.ex + ScoreText(r.score, r.stroke, Trim(r.course), r.nt);
    c[kColNt] = NtText(r.nt);
    c[kColIR] = r.i_r;
    c[kColFP] = r.f_p;
    if (options.show_standards && standard) {
      if (options.standards_current_age && options.current_age > 0) {
        age = options.current_age;
      } else if (r.age != 0) {
        age = r.age;
      }
      c[kColStandard] = standard(r, age);
    }
    if (options.show_conversion && convert && r.score != 0) {
      const char to = ConvertTarget(options.convert_to, r.course, options.y2l);
      const std::string from = UCase(Trim(r.course));
      if (to != 0 && !from.empty()) {
        c[kColConverted] =
            FormatTime(convert(r.distance, r.score, r.stroke, from[0], to), true) + to;
      }
    }
    c[kColEvent] = r.mt_ev;
    c[kColEventAge] = r.lo_hi ? LoHiText(r.lo_hi) : "";
    c[kColSwimmerAge] = std::to_string(r.age);
    c[kColPlace] = std::to_string(r.place);
    c[kColStartDate] = r.start ? ShownDate(*r.start, options.date_order) : "";
    c[kColMeet] = r.meet_name;
    c[kColComment] = r.comment;
    out.push_back(std::move(c));
  }
  return out;
}

std::vector<MeetChoice> BrowserMeets(SQLite::Database& db, int date_order) {
  SQLite::Statement q(db,
                      "SELECT Meet, MName, Start FROM MEET WHERE IFNULL(Type, '') <> 'G' AND "
                      "IFNULL(Start, '') <> ? ORDER BY Start DESC");
  q.bind(1, kPseudoMeetStart.Iso());
  std::vector<MeetChoice> out;
  while (q.executeStep()) {
    const auto start = Date::FromIso(TextOf(q.getColumn(2)));
    out.push_back(
        {q.getColumn(0).getInt(),
         (start ? ShownDate(*start, date_order) + " " : std::string()) + TextOf(q.getColumn(1))});
  }
  return out;
}

std::vector<std::pair<std::string, std::string>> MeetTypes(SQLite::Database& db) {
  SQLite::Statement q(db, "SELECT ABBR, DESC FROM CODE WHERE TYPE = 3 ORDER BY ABBR");
  std::vector<std::pair<std::string, std::string>> out;
  while (q.executeStep()) out.emplace_back(TextOf(q.getColumn(0)), TextOf(q.getColumn(1)));
  return out;
}

std::string DeleteResultQuestion(const ResultRecord& record, std::string_view start_text,
                                 std::string_view swimmer) {
  const std::string relay = record.i_r == "L" ? " Relay Lead Off" : "";
  return fmt::format(
      "Warning: This action will remove the selected result and any splits associated with "
      "it.\r\n\r\nEvent: \t{} {}{}\r\nScore: \t{}\r\nDate: \t{}\r\nMeet: \t{}\r\n\r\nAthlete: "
      "\t{}\r\n\r\nDo you still want to remove this result?\r\n",
      DistanceText(record.distance), StrokeText(record.stroke, ""), relay,
      record.ex + ScoreText(record.score, record.stroke, Trim(record.course), record.nt),
      start_text, record.meet_name, swimmer);
}

bool DeleteOneResult(AppState& state, const ResultRecord& record, std::string_view swimmer) {
  const std::string start_text = record.start ? ShownDate(*record.start, state.gDateOrder) : "";
  const Answer answer = state.io->Message(DeleteResultQuestion(record, start_text, swimmer),
                                          box::kYesNo + box::kQuestion, kRemoveResultTitle);
  if (answer != Answer::kYes) return false;
  const std::string course = Trim(record.course).substr(0, 1);
  const bool deleted = RunTrapped(state, "frmResults.DeleteOneResult", [&] {
    SQLite::Statement del(*state.gDb, "DELETE FROM RESULT WHERE RESULT = ?");
    del.bind(1, record.result);
    del.exec();
    return true;
  });
  if (!deleted) return false;
  // Every kind of row re-ranks the individual group, a non-lead leg included.
  AddRankForOne(state, record.athlete, record.stroke, record.distance, course);
  return true;
}

int RowAfterDelete(int deleted, int count) {
  const int left = count - 1;
  if (left <= 0) return -1;
  return deleted < left ? deleted : left - 1;
}

}  // namespace kvlr
