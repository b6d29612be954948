#include "core/VbRules.h"
#include "interchange/ImportFlows.h"
#include "interchange/ImportReport.h"
#include "interchange/Nv3Records.h"
#include "interchange/Nv3Texts.h"

namespace kvlr {

namespace {

FileDate AsFileDate(const std::optional<Date>& date) {
  return date ? FileDate{*date, false} : FileDate{kSdifBlankDate, true};
}

// Phases of a file from the meet program: semi-finals and the like fold into ours.
std::string GsSplitPhase(const std::string& f_p) {
  if (f_p == "S" || f_p == "T") return "F";
  if (f_p == "I") return "S";
  return f_p;
}

class Nv3Walk {
 public:
  Nv3Walk(ImportSession& session, const std::vector<std::string>& lines, bool allow_entries)
      : s_(session), lines_(lines), order_(session.State().gDateOrder) {
    if (!lines.empty()) source_ = CheckNV3Header(lines.front(), allow_entries).source;
  }

  WalkEnd Run() {
    LineProgress progress(s_.Monitor(), lines_.size());
    for (i_ = 0; i_ < lines_.size(); ++i_) {
      if (s_.Monitor().Cancelled()) return WalkEnd::kCancelled;
      progress.At(i_);
      Line(lines_[i_]);
    }
    s_.Monitor().Counts(s_.Counts());
    return WalkEnd::kDone;
  }

 private:
  int& Count(ImportRow row) { return s_.Counts().Processed(row); }
  std::string_view CodeAt(size_t i) const {
    return i < lines_.size() ? std::string_view(lines_[i]).substr(0, 2) : std::string_view();
  }
  void Fail(std::string_view words) { throw ImportLineError(i_ + 1, std::string(words)); }

  void Line(const std::string& line) {
    const std::string_view code = CodeAt(i_);
    previous_ = current_;
    current_ = std::string(code);
    if (code == "A1" || code == "E3" || code == "F3") return;
    if (code == "B1") {
      const Nv3Meet b1 = LoadNV3B1Rec(line, order_);
      Nv3MeetKind b2;
      if (CodeAt(i_ + 1) == "B2") b2 = LoadNV3B2Rec(lines_[++i_]);
      if (!s_.ProcessMeetRec(b1.name, AsFileDate(b1.start), AsFileDate(b1.end),
                             AsFileDate(b1.age_up), b2.course_letter, b1.location)) {
        Fail("Meet");
      }
      ++Count(ImportRow::kMeets);
      s_.Monitor().Counts(s_.Counts());
    } else if (code == "B2") {
      // Read with its B1.
    } else if (code == "C1") {
      LoadNv3C1Rec(line);
      ++Count(ImportRow::kTeams);
    } else if (code == "C2" || code == "C3" || code == "C4" || code == "C5") {
      if (!previous_.starts_with("C")) Fail(kNv3TeamOutOfPlace);
    } else if (code == "D1") {
      athlete_ = LoadNV3AthleteRec(line, order_);
      s_.Matcher().Match(athlete_.last, athlete_.first + " " + athlete_.pref, athlete_.sex);
    } else if (code.size() == 2 && code[0] == 'D' &&
               ((code[1] >= '2' && code[1] <= '9') || code[1] == 'A' || code[1] == 'B')) {
      if (!previous_.starts_with("D")) Fail(kNv3AthleteOutOfPlace);
    } else if (code == "E1") {
      entry_ = LoadNV3EventRec(line);
      first_result_ = second_result_ = 0;
      // The meet program marks swim-offs, time trials and the like on the entry itself.
      phase_ = source_ == "GS" ? Trim(entry_.gs_mark) : "";
    } else if (code == "E2") {
      if (previous_ != "E1" && previous_ != "E2") Fail(kNv3EventOutOfPlace);
      if (s_.Matcher().FoundSwimmer() && !s_.RosterMode()) ProcessNv3EventInfo(line);
    } else if (code == "F1") {
      LoadNV3RelayRec(line);
    } else if (code == "F2") {
      if (previous_ != "F1" && previous_ != "F2") Fail(kNv3RelayOutOfPlace);
    } else if (code == "G1") {
      if (s_.Criteria().import_splits && (first_result_ > 0 || second_result_ > 0)) {
        ProcessNv3Splits(line);
        ++Count(ImportRow::kSplits);
      }
    } else {
      Fail("Record Code");
    }
  }

  // One swim of an E2: stored when it has a time or a non-time code.
  // The phase of a swim; in a file of the meet program its "S" is a semi-final.
  std::string Phase(const Nv3Swim& swim) const {
    std::string f_p = Trim(swim.f_p);
    if (source_ == "GS" && f_p == "S") f_p = "I";
    return f_p;
  }

  int32_t SaveSwim(const Nv3Swim& swim, const std::string& f_p, int32_t event,
                   const std::string& i_r, std::string& f_p_kept, bool& skipped) {
    if (swim.score < 1 && Trim(swim.nt_text).empty()) return 0;
    int age = entry_.age;
    if (source_ == "GS" && Val(athlete_.age) > 0) age = static_cast<int>(Val(athlete_.age));
    const std::string text = Trim(swim.nt_text).empty() ? swim.time_text : swim.nt_text;
    s_.SaveResult(text, entry_.key.distance, entry_.key.stroke, f_p,
                  Trim(swim.course).empty() ? s_.MeetCourse() : Trim(swim.course), swim.score, i_r,
                  swim.place, event, age, Trim(swim.exhibition));
    if (s_.DuplicateSkipped()) {
      skipped = true;
      return 0;
    }
    f_p_kept = f_p;
    return s_.LastResult();
  }

  void ProcessNv3EventInfo(const std::string& line) {
    const Nv3Result e2 = LoadNV3ResultRec(line);
    const Nv3EventKey& k = entry_.key;
    // Some writers leave the E1 without a number and put the final's number on the E2.
    const int number =
        k.event_number == 0 && Trim(e2.first.f_p) == "F" ? e2.number : k.event_number;
    const int32_t event = s_.GetMeetEvent(k.distance, k.stroke, k.lo_hi, Trim(k.event_sex), number,
                                          k.event_letter, s_.MeetCourse(), "I");
    if (!(source_ == "GS" && (phase_ == "S" || phase_ == "T" || phase_ == "M"))) {
      phase_ = Phase(e2.first);
    }
    bool skipped = false;
    const std::string first_ir = Trim(entry_.lead_off) == "L" ? "L" : "I";
    first_result_ = SaveSwim(e2.first, phase_, event, first_ir, first_fp_, skipped);
    second_result_ = SaveSwim(e2.second, Phase(e2.second), event, "I", second_fp_, skipped);
    if (skipped) {
      s_.SetNotAllImported();
      if (SQLite::Database* report = s_.State().gReportDb.get()) {
        IsdinRow row;
        row.reason = "1";
        row.meet_name = s_.MeetName();
        row.ln = athlete_.last;
        row.fn = athlete_.first;
        row.mi = athlete_.initial;
        row.sex = athlete_.sex;
        row.id_no = athlete_.id_no;
        PutNv3Event(row, k, "I");
        row.f_time = e2.first.time_text.empty() ? e2.first.nt_text : e2.first.time_text;
        row.f_cors = e2.first.course;
        AddIsdinRow(*report, row);
      }
    } else {
      ++Count(ImportRow::kIndividual);
      s_.Monitor().Counts(s_.Counts());
    }
  }

  void ProcessNv3Splits(const std::string& line) {
    const Nv3Splits g1 = LoadNV3SplitRec(line);
    for (int g = 0; g < g1.count; ++g) {
      const Nv3Split& split = g1.splits[g];
      const std::string f_p = source_ == "GS" ? GsSplitPhase(Trim(split.f_p)) : Trim(split.f_p);
      if (f_p == first_fp_ && first_result_ > 0) {
        s_.SaveSplit(first_result_, split.number, split.value, true);
      } else if (f_p == second_fp_ && second_result_ > 0) {
        s_.SaveSplit(second_result_, split.number, split.value, true);
      }
    }
  }

  ImportSession& s_;
  const std::vector<std::string>& lines_;
  int order_;
  std::string source_;
  size_t i_ = 0;
  std::string previous_, current_;
  Nv3Athlete athlete_;
  Nv3Entry entry_;
  int32_t first_result_ = 0, second_result_ = 0;
  std::string first_fp_, second_fp_;
  std::string phase_;  // of the first swim; a mark of the meet program's E1 outlives its E2s
};

}  // namespace

WalkEnd NV3Import(ImportSession& session, const std::vector<std::string>& lines,
                  bool allow_entries) {
  return Nv3Walk(session, lines, allow_entries).Run();
}

}  // namespace kvlr
