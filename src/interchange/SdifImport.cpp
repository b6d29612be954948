#include <array>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/VbRules.h"
#include "interchange/ImportFlows.h"
#include "interchange/ImportReport.h"
#include "interchange/ImportReportTexts.h"
#include "interchange/SdifChecks.h"
#include "interchange/SdifRecords.h"

namespace kvlr {

namespace {

// A result course by the file's own codes; the meet's course when the file gives none.
std::string ResultCourse(std::string_view course, const std::string& meet_course) {
  const std::string c = SdifCourseLetter(course);
  if (c == "S" || c == "Y" || c == "L") return c;
  return meet_course;
}

class SdifWalk {
 public:
  SdifWalk(ImportSession& session, const std::vector<std::string>& lines)
      : s_(session), lines_(lines), order_(session.State().gDateOrder) {
    for (const std::string& line : lines) {
      if (line.starts_with("D3")) {
        has_d3_ = true;
        break;
      }
    }
  }

  WalkEnd Run() {
    LineProgress progress(s_.Monitor(), lines_.size());
    for (i_ = 0; i_ < lines_.size(); ++i_) {
      if (s_.Monitor().Cancelled()) return WalkEnd::kCancelled;
      progress.At(i_);
      Line(lines_[i_]);
      if (lines_[i_].starts_with("Z0")) break;
    }
    s_.Monitor().Counts(s_.Counts());
    return WalkEnd::kDone;
  }

 private:
  int& Count(ImportRow row) { return s_.Counts().Processed(row); }
  void Refresh() { s_.Monitor().Counts(s_.Counts()); }

  void Line(const std::string& line) {
    const std::string_view code = std::string_view(line).substr(0, 2);
    if (code == "A0" || code == "J0" || code == "J1" || code == "J2") return;
    if (code == "B1") {
      LoadB1Rec(line, order_, b1_);
      b1_line_ = line;
      if (!s_.ProcessMeetRec(b1_.meet_name, b1_.start, b1_.end, FileDate{},
                             SdifCourseLetter(b1_.course), b1_.location)) {
        throw ImportLineError(i_ + 1, "Meet");
      }
      ++Count(ImportRow::kMeets);
      Refresh();
    } else if (code == "B2") {
      SdifB2 b2;
      LoadB2Rec(line, b2);
      s_.ProcessB2Rec(b1_.meet_name, b2.location);
      ++Count(ImportRow::kMeets);
    } else if (code == "C1") {
      relay_open_ = false;
      LoadC1Rec(line, c1_);
      ++Count(ImportRow::kTeams);
      Refresh();
    } else if (code == "C2") {
      SdifC2 c2;
      LoadC2Rec(line, c2);
      if (Trim(c2.team_code) != Trim(c1_.team_code)) ++Count(ImportRow::kTeams);
    } else if (code == "D0") {
      D0(line);
    } else if (code == "D1") {
      SdifD1 d1;
      if (!s_.Matcher().SameLastName(SdifText(line, 19, 46))) {
        s_.Matcher().ClearFound();
        return;
      }
      LoadD1Rec(line, order_, d1);
      if (s_.Matcher().MatchNameField(d1.swimmer_name, d1.sex)) {
        WriteAthInfo("UPDATE AthInfo SET Cntry = ?, DayP1 = ?, EveP1 = ? WHERE Athlete = ?",
                     {Trim(d1.citizen), Trim(d1.day_phone), Trim(d1.evening_phone)});
        if (s_.RosterMode()) ++Count(ImportRow::kIndividual);
      }
    } else if (code == "D2") {
      SdifD2 d2;
      LoadD2Rec(line, d2);
      if (s_.Matcher().FoundSwimmer()) {
        WriteAthInfo(
            "UPDATE AthInfo SET MailTo = ?, Addr = ?, City = ?, State = ?, Cntry = ?, ZIP = ? "
            "WHERE Athlete = ?",
            {Trim(d2.addressee), Trim(d2.street), Trim(d2.city), Trim(d2.state), Trim(d2.country),
             Trim(d2.zip)});
      }
    } else if (code == "D3") {
      LoadD3Rec(line, d3_);  // serves the reports only
    } else if (code == "E0") {
      E0(line);
    } else if (code == "F0") {
      F0(line);
    } else if (code == "G0") {
      G0(line);
    } else if (code == "Z0") {
      SdifZ0 z0;
      LoadZ0Rec(line, z0);
    } else {
      throw ImportLineError(i_ + 1, "Record Code");
    }
  }

  void D0(const std::string& line) {
    s_.Matcher().ClearFound();
    relay_open_ = false;
    d0_taken_ = false;
    // Most of a meet is other families: their lines are not even cut.
    if (!s_.Matcher().SameLastName(SdifText(line, 12, 39))) return;
    LoadD0Rec(line, order_, d0_);
    d0_line_ = line;
    if (!s_.Matcher().MatchNameField(d0_.swimmer_name, d0_.sex)) return;
    d3_ = SdifD3{};  // another swimmer's D3 must not lend this one its number
    if (has_d3_ && i_ + 1 < lines_.size() && lines_[i_ + 1].starts_with("D3")) {
      LoadD3Rec(lines_[++i_], d3_);
    }
    if (s_.RosterMode()) return;
    ProcessD0Rec();
  }

  int32_t D0Event() {
    return s_.GetMeetEvent(d0_.distance, static_cast<int>(Val(d0_.stroke)), d0_.event_age,
                           Trim(d0_.event_sex), d0_.event_number, d0_.event_letter, s_.MeetCourse(),
                           "I");
  }

  void ProcessD0Rec() {
    if (Trim(d0_.event_sex + d0_.stroke_as_read + d0_.event_letter).empty()) return;
    d0_taken_ = true;
    const int32_t event = D0Event();
    const int stroke = static_cast<int>(Val(d0_.stroke));
    const int age = static_cast<int>(Val(d0_.age_text));
    bool skipped = false;
    struct Swim {
      const FileTime& time;
      const std::string& course;
      const char* f_p;
      int place;
    };
    const Swim swims[] = {{d0_.prelim_time, d0_.prelim_course, "P", d0_.prelim_place},
                          {d0_.finals_time, d0_.finals_course, "F", d0_.finals_place},
                          {d0_.swim_off_time, d0_.swim_off_course, "S", -1}};
    for (const Swim& swim : swims) {
      const int place = age == 0 ? -1 : swim.place;
      s_.SaveResult(Trim(swim.time.text), d0_.distance, stroke, swim.f_p,
                    ResultCourse(swim.course, s_.MeetCourse()), swim.time.score, "I", place, event,
                    age, Trim(d0_.exhibition));
      skipped = skipped || s_.DuplicateSkipped();
    }
    if (skipped) {
      ReportDuplicate();
    } else {
      ++Count(ImportRow::kIndividual);
      Refresh();
    }
  }

  void ReportDuplicate() {
    s_.SetNotAllImported();
    SQLite::Database* report = s_.State().gReportDb.get();
    if (!report) return;
    IsdinRow row;
    row.reason = "1";
    row.meet_name = Trim(b1_.meet_name);
    row.meet_beg = ReportDateText(SdifText(b1_line_, 122, 129), order_);
    row.meet_end = ReportDateText(SdifText(b1_line_, 130, 137), order_);
    row.lsc = Trim(c1_.lsc);
    row.team_code = Trim(c1_.team_code);
    row.team_name = Trim(c1_.team_name);
    PutSdifSwim(row, d0_, d0_line_, order_);
    if (!d3_.new_swimmer_number.empty()) row.id_no = d3_.new_swimmer_number;
    AddIsdinRow(*report, row);
  }

  // AthInfo of the matched swimmer; a missing row is only added by a roster import. The
  // update binds `values` in order, then the swimmer.
  void WriteAthInfo(const char* update, std::initializer_list<std::string> values) {
    SQLite::Database& db = *s_.State().gDb;
    const int32_t athlete = s_.Matcher().CurrentAthlete();
    SQLite::Statement seek(db, "SELECT 1 FROM AthInfo WHERE Athlete = ?");
    seek.bind(1, athlete);
    if (!seek.executeStep()) {
      if (!s_.RosterMode()) return;
      SQLite::Statement add(db, "INSERT INTO AthInfo (Athlete) VALUES (?)");
      add.bind(1, athlete);
      add.exec();
    }
    SQLite::Statement edit(db, update);
    int i = 1;
    for (const std::string& value : values) edit.bind(i++, value);
    edit.bind(i, athlete);
    edit.exec();
  }

  void E0(const std::string& line) {
    s_.Matcher().ClearFound();
    leg_count_ = 0;
    relay_open_ = true;
    relay_event_ = 0;
    leg_results_.fill(0);
    leg_times_.fill(0);
    if (!s_.Criteria().lead_off) return;
    LoadE0Rec(line, order_, e0_);
    relay_event_ = s_.GetMeetEvent(e0_.distance, static_cast<int>(Val(e0_.relay_stroke)),
                                   e0_.event_age, Trim(e0_.event_sex), e0_.event_number,
                                   e0_.event_letter, s_.MeetCourse(), "R");
    leg_distance_ = e0_.distance / 4;
    ++Count(ImportRow::kRelay);
    Refresh();
  }

  void F0(const std::string& line) {
    ++leg_count_;
    f0_family_ = false;
    if (!s_.Criteria().lead_off || relay_event_ == 0) return;
    if (!s_.Matcher().SameLastName(SdifText(line, 23, 45))) return;
    LoadF0Rec(line, order_, f0_);
    f0_family_ = s_.Matcher().MatchNameField(f0_.swimmer_name, f0_.sex);
    if (!f0_family_) return;
    if (Trim(f0_.finals_order) == "1" && f0_.leg_time.score != 0) {
      AddRelayLeg(Trim(f0_.leg_time.text), f0_.leg_time.score);
    }
  }

  // A lead-off swim of the family's swimmer becomes a result of its own.
  void AddRelayLeg(const std::string& time_text, int32_t score) {
    const int relay_stroke = static_cast<int>(Val(e0_.relay_stroke));
    const int leg_stroke = relay_stroke == 5 ? 2 : 1;  // a medley starts with backstroke
    std::string f_p = "F";
    std::string course = e0_.prelim_course;
    if (!e0_.no_finals) {
      if (leg_count_ >= 5) {
        f_p = "P";
      } else {
        course = e0_.finals_course;
      }
    } else if (leg_count_ > 5) {
      leg_count_ -= 4;
    }
    course = ResultCourse(Trim(course).empty() ? b1_.course : course, s_.MeetCourse());
    const int32_t event = s_.GetMeetEvent(leg_distance_, leg_stroke, e0_.event_age,
                                          Trim(e0_.event_sex), 0, "", course, "L");
    s_.SaveResult(time_text, leg_distance_, leg_stroke, f_p, course, score, "L", -1, event,
                  static_cast<int>(Val(f0_.age)), Trim(e0_.exhibition));
    if (s_.DuplicateSkipped()) return;
    leg_results_[PhaseIndex(f_p)] = s_.LastResult();
  }

  void G0(const std::string& line) {
    SdifG0 g0;
    LoadG0Rec(line, g0);
    bool any = false;
    for (const FileTime& t : g0.splits) any = any || t.score != 0;
    if (!any) return;
    const int step = g0.split_distance == 50 ? 2 : g0.split_distance == 100 ? 4 : 1;
    int32_t result = 0;
    if (!relay_open_) {
      if (!d0_taken_ || !s_.Criteria().import_splits) return;
      result = s_.FindResult(s_.Matcher().CurrentAthlete(), "I", D0Event(), Trim(g0.prelim_final));
    } else {
      if (!f0_family_) return;
      RelayLegTime(g0);
      result = leg_results_[PhaseIndex(Trim(g0.prelim_final))];
    }
    if (result == 0) return;
    StoreSplits(g0, result, step);
    ++Count(ImportRow::kSplits);
    Refresh();
  }

  // The leg's time from its last split; a lead-off whose F0 had another time is stored
  // again with this one.
  void RelayLegTime(const SdifG0& g0) {
    if (g0.sequence != 1 && g0.count == 0) return;
    int32_t last = 0;
    for (int k = 0; k < g0.count && k < 10; ++k) last = g0.splits[k].score;
    const int leg = leg_count_ >= 1 && leg_count_ <= 8 ? leg_count_ : 0;
    if (leg == 0 || g0.count + (g0.sequence - 1) * 10 < g0.total_splits) return;
    const int32_t before = leg == 1 || leg == 5 ? 0 : leg_times_[leg - 2];
    leg_times_[leg - 1] = last - before;
    if ((leg == 1 || leg == 5) && leg_times_[leg - 1] != f0_.leg_time.score &&
        leg_times_[leg - 1] > 0) {
      AddRelayLeg(ScoreText(leg_times_[leg - 1]), leg_times_[leg - 1]);
    }
  }

  void StoreSplits(const SdifG0& g0, int32_t result, int step) {
    const bool interval = Trim(g0.split_code) == "I";
    if (g0.sequence <= 1) running_ = 0;
    int32_t last = 0;
    for (int k = 0; k < g0.count && k < 10; ++k) {
      int32_t value = g0.splits[k].score;
      if (g0.sequence > 1 && interval) value += running_;
      const int index = (k + 1 + (g0.sequence - 1) * 10) * step;
      if (!s_.SaveSplit(result, index, value, s_.Criteria().overlay_results)) return;
      last = value;
    }
    running_ = last;
  }

  static size_t PhaseIndex(std::string_view f_p) { return f_p == "P" ? 1 : f_p == "S" ? 2 : 0; }

  static std::string ScoreText(int32_t score) {
    return std::to_string(score / 100) + "." + (score % 100 < 10 ? "0" : "") +
           std::to_string(score % 100);
  }

  ImportSession& s_;
  const std::vector<std::string>& lines_;
  int order_;
  size_t i_ = 0;
  bool has_d3_ = false;
  SdifB1 b1_;
  std::string_view b1_line_, d0_line_;  // lines of lines_
  SdifC1 c1_;
  SdifD0 d0_;
  SdifD3 d3_;
  SdifE0 e0_;
  SdifF0 f0_;
  bool d0_taken_ = false;
  bool relay_open_ = false;
  bool f0_family_ = false;
  int32_t relay_event_ = 0;
  int leg_count_ = 0;
  int leg_distance_ = 0;
  std::array<int32_t, 3> leg_results_{};  // the lead-off's result: finals, prelim, swim-off
  std::array<int32_t, 8> leg_times_{};    // legs 1-4 finals, 5-8 prelim
  int32_t running_ = 0;
};

}  // namespace

WalkEnd SDIFImport(ImportSession& session, const std::vector<std::string>& lines) {
  return SdifWalk(session, lines).Run();
}

}  // namespace kvlr
