#include "interchange/SdifCertify.h"

#include <algorithm>

#include "core/DateText.h"
#include "core/VbRules.h"
#include "interchange/SdifChecks.h"
#include "interchange/SdifRecordChecks.h"
#include "interchange/SdifTexts.h"
#include "interchange/SwimmerMatch.h"

namespace kvlr {

namespace {

namespace ct = certify_text;

bool Fail(std::string_view label, std::string* problem) {
  if (problem) *problem = std::string(label);
  return false;
}

bool Blank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

bool NameParses(std::string_view name, std::string* problem) {
  return ParseSwimmerName(name).ok || Fail(sdif::kSwimmerNameLabel, problem);
}

// Columns `from`..`to` (from 1) without copying; shorter where the line is short.
std::string_view Cols(std::string_view line, size_t from, size_t to) {
  if (line.size() < from) return {};
  return line.substr(from - 1, std::min(line.size(), to) - (from - 1));
}

}  // namespace

A0Check CheckA0(int mode, const SdifA0& rec, bool allow_entries) {
  A0Check out;
  auto fail = [&](std::string_view words) {
    out.problem = std::string(words);
    return out;
  };
  if (rec.record_code != "A0") return fail(sdif::kNotA0);
  if (mode == 0) {
    if (rec.software_name.substr(0, sdif::kNorvanSoftware.size()) != sdif::kNorvanSoftware) {
      return fail(sdif::kNotByNorvan);
    }
    const std::string& content = rec.content_code;
    if (content == "41" || content == "44") {
      if (!allow_entries) return fail(sdif::kHoldsEntries);
      out.has_entries = true;
    } else if (content == "45") {
      return fail(sdif::kHoldsMotivational);
    } else if (content == "46" || content == "47" || content == "48") {
      return fail(sdif::kHoldsGalaSteward);
    } else {
      // A Commlink file of any other content is trusted from here on.
      out.ok = true;
      return out;
    }
  }
  if (!CheckCode(rec.file_code, sdif::kFileCodes, sdif::kFileCodeLabel, false, &out.problem)) {
    return out;
  }
  if (Blank(rec.contact_name) || Blank(rec.contact_phone) || rec.file_date.IsBlank()) {
    return fail(sdif::kRequiredMissing);
  }
  if (mode == 1 && rec.file_code != "02") return fail(sdif::kNoResultsSd3);
  if (rec.file_date.bad) return fail(sdif::kDateLabel);
  out.ok = true;
  return out;
}

std::string ContentCodeMeaning(std::string_view content_code, std::string_view source,
                               std::string_view software_version) {
  if (content_code == "41" || content_code == "44") return std::string(ct::kMeetEntries);
  if (content_code == "42") return std::string(ct::kBestTimes);
  if (content_code == "43") {
    std::string version = Trim(software_version);
    if (!version.empty() && (version[0] == 'V' || version[0] == 'v')) version.erase(0, 1);
    if (source == "CS" && Val(version) >= 2) return std::string(ct::kWincsRoster);
    if (source == "LS") return std::string(ct::kLedgerRoster);
  }
  return {};
}

bool CheckB1(int mode, const SdifB1& rec, std::string* problem) {
  if (mode == 0) return true;
  if (Blank(rec.meet_name)) return Fail(sdif::kRequiredMissing, problem);
  if (rec.start.bad) return Fail(sdif::kDateLabel, problem);
  return CheckCode(rec.course, sdif::kCourseCodes, sdif::kCourseCodeLabel, false, problem);
}

bool CheckC1(int mode, const SdifC1& rec, std::string* problem) {
  if (mode == 0) return true;
  if (Blank(rec.team_code) || Blank(rec.team_name)) return Fail(sdif::kRequiredMissing, problem);
  return true;
}

bool CheckD1(int mode, const SdifD1& rec, std::string* problem) {
  if (mode == 0) return true;
  if (!CheckCode(rec.organization, sdif::kOrganizationCodes, sdif::kOrganizationCodeLabel, true,
                 problem) ||
      !NameParses(rec.swimmer_name, problem)) {
    return false;
  }
  if (rec.birth.bad) return Fail(sdif::kDateLabel, problem);
  if (!CheckCode(rec.sex, sdif::kSexCodes, sdif::kSexCodeLabel, false, problem)) return false;
  if (rec.last_membership.bad) return Fail(sdif::kDateLabel, problem);
  return CheckCode(rec.member_code, sdif::kMemberCodes, sdif::kMemberCodeLabel, true, problem);
}

bool CheckD2(int mode, const SdifD2& rec, std::string* problem) {
  if (mode == 0) return true;
  return CheckCode(rec.organization, sdif::kOrganizationCodes, sdif::kOrganizationCodeLabel, true,
                   problem) &&
         NameParses(rec.swimmer_name, problem) &&
         CheckCode(rec.region, sdif::kRegionCodes, sdif::kRegionCodeLabel, true, problem) &&
         CheckCode(rec.season, sdif::kSeasonCodes, sdif::kSeasonCodeLabel, true, problem);
}

bool CheckF0(int mode, const SdifF0& rec, std::string* problem) {
  if (mode == 0) return true;
  if (Blank(rec.team_code)) return Fail(sdif::kRequiredMissing, problem);
  if (!NameParses(rec.swimmer_name, problem)) return false;
  if (rec.birth.bad) return Fail(sdif::kDateLabel, problem);
  if (!CheckCode(rec.sex, sdif::kSexCodes, sdif::kSexCodeLabel, false, problem) ||
      !CheckCode(rec.prelim_order, sdif::kOrderCodes, sdif::kOrderCodeLabel, false, problem) ||
      !CheckCode(rec.swim_off_order, sdif::kOrderCodes, sdif::kOrderCodeLabel, false, problem) ||
      !CheckCode(rec.finals_order, sdif::kOrderCodes, sdif::kOrderCodeLabel, false, problem)) {
    return false;
  }
  // The leg's course is only looked at when a leg time stands.
  if (!Blank(rec.leg_time.text) &&
      !CheckTimeAndCourse(rec.leg_time.score, rec.leg_time.text, rec.leg_course, problem)) {
    return false;
  }
  return true;
}

bool CheckG0(int mode, const SdifG0& rec, std::string* problem) {
  if (mode == 0) return true;
  if (!CheckCode(rec.organization, sdif::kOrganizationCodes, sdif::kOrganizationCodeLabel, true,
                 problem) ||
      !NameParses(rec.swimmer_name, problem)) {
    return false;
  }
  if (rec.sequence == 0 || rec.total_splits == 0 || rec.split_distance == 0) {
    return Fail(sdif::kRequiredMissing, problem);
  }
  return CheckCode(rec.split_code, sdif::kSplitCodes, sdif::kSplitCodeLabel, false, problem) &&
         CheckCode(rec.prelim_final, sdif::kPrelimFinalCodes, sdif::kPrelimFinalCodeLabel, false,
                   problem);
}

bool CheckJ0(int mode, const SdifJ0& rec, std::string* problem) {
  if (mode == 0) return true;
  if (!CheckCode(rec.meet_code, sdif::kMeetCodes, sdif::kMeetCodeLabel, false, problem) ||
      !CheckCode(rec.event_sex, sdif::kEventSexCodes, sdif::kEventSexCodeLabel, false, problem) ||
      !CheckCode(rec.stroke, sdif::kStrokeCodes, sdif::kStrokeCodeLabel, false, problem)) {
    return false;
  }
  if (rec.distance == 0 || rec.event_age == 0) return Fail(sdif::kRequiredMissing, problem);
  if (rec.date.bad) return Fail(sdif::kDateLabel, problem);
  return true;
}

bool CheckJ1(int /*mode*/, std::string* problem) {
  // Its fields are those of a buffer nothing fills: distance 0, so required fields miss.
  return Fail(sdif::kRequiredMissing, problem);
}

bool CheckJ2(int mode, const SdifJ2& rec, std::string* problem) {
  if (mode == 0) return true;
  if (!CheckCode(rec.event_sex, sdif::kEventSexCodes, sdif::kEventSexCodeLabel, false, problem) ||
      !CheckCode(rec.stroke, sdif::kStrokeCodes, sdif::kStrokeCodeLabel, false, problem)) {
    return false;
  }
  if (rec.distance == 0) return Fail(sdif::kRequiredMissing, problem);
  if (!CheckCode(rec.color, sdif::kColorCodes, sdif::kColorCodeLabel, false, problem)) {
    return false;
  }
  if (rec.date.bad) return Fail(sdif::kDateLabel, problem);
  return true;
}

bool CheckZ0(int mode, const SdifZ0& rec, const SdifCounters& counters, bool roster,
             std::string* problem) {
  if (mode == 0) return true;
  if (counters.b != rec.b1_count) return Fail(ct::kMismatchedB1, problem);
  if (counters.c1 != rec.c1_count) return Fail(ct::kMismatchedC1, problem);
  if (roster) {
    if (counters.d != rec.swimmer_count) return Fail(ct::kMismatchedSwimmers, problem);
  } else if (counters.d != rec.d0_count) {
    return Fail(ct::kMismatchedD0, problem);
  }
  if (counters.e0 != rec.e0_count) return Fail(ct::kMismatchedE0, problem);
  if (counters.g0 != rec.g0_count) return Fail(ct::kMismatchedG0, problem);
  return true;
}

bool IsRosterFile(std::string_view first_line) {
  return Cols(first_line, 152, 153) == "43";
}

FilePanel ShowFileStatistics(const std::vector<std::string>& lines,
                             const std::filesystem::path& file, int date_order, UserIo* io) {
  FilePanel panel;
  panel.file_name = file.filename().string();
  if (lines.empty()) return panel;
  SdifA0 a0;
  LoadA0Rec(lines.front(), date_order, a0);
  panel.created_by = Trim(a0.software_name);
  const std::string version = Trim(a0.software_version);
  if (!version.empty()) panel.created_by += " " + version;

  if (a0.file_code == "02") {
    panel.file_type = std::string(ct::kMeetResults);
  } else if (a0.file_code == "16") {
    panel.file_type = std::string(ct::kTop16);
  } else if (a0.file_code == "20") {
    panel.file_type = ContentCodeMeaning(a0.content_code, a0.source_code, a0.software_version);
    if (a0.content_code == "43" && panel.file_type.empty()) {
      // A roster from elsewhere belongs to the roster import, not this one.
      if (io) {
        io->Tell(std::string(ct::kRosterFile) + "\r\n" + std::string(ct::kUseRosterImport));
      }
      panel.file_type = std::string(ct::kNoValidForImport);
      panel.valid_for_import = false;
    }
    if (panel.file_type.empty()) panel.file_type = std::string(ct::kContentsUnknown);
  } else {
    panel.file_type = std::string(ct::kContentsUnknown);
  }

  for (const std::string& line : lines) {
    if (line.compare(0, 2, "B1") != 0) continue;
    SdifB1 b1;
    LoadB1Rec(line, date_order, b1);
    panel.meet_name = Trim(b1.meet_name);
    const std::string start = SdifText(line, 122, 129);
    panel.start_date =
        b1.start.bad || b1.start.IsBlank() ? Trim(start) : ShownDate(b1.start.date, date_order);
    if (!b1.start.bad && !b1.start.IsBlank()) panel.start = b1.start.date;
    break;
  }
  return panel;
}

std::string CertificationFailureText(size_t line_number, std::string_view line,
                                     std::string_view problem) {
  std::string text(ct::kDidNotPass);
  text += "\r\n";
  text += ct::kErrorOnLine;
  text += std::to_string(line_number);
  text += "\r\n";
  text += ct::kTwoParts;
  text += "\r\n>>";
  text += line.substr(0, std::min<size_t>(80, line.size()));
  text += "<<\r\n>>";
  if (line.size() > 80) text += line.substr(80);
  text += "<<\r\n";
  if (!Trim(problem).empty()) {
    text += ct::kProblem;
    text += problem;
  }
  return text;
}

namespace {

// The pass's state between lines.
class SdifPass {
 public:
  SdifPass(const std::vector<std::string>& lines, bool allow_entries, std::string_view extension,
           bool report_mode, int date_order, SwimmerMatcher* matcher, ImportMonitor& monitor,
           UserIo& io)
      : lines_(lines),
        allow_entries_(allow_entries),
        sd3_(UCase(extension) == ".SD3"),
        report_mode_(report_mode),
        date_order_(date_order),
        matcher_(report_mode ? nullptr : matcher),
        monitor_(monitor),
        io_(io) {}

  SdifCheckResult Run();

 private:
  bool CheckLine(std::string_view line, std::string& problem);
  void Refresh();
  SdifCheckResult& Failed(size_t index, std::string problem);

  const std::vector<std::string>& lines_;
  bool allow_entries_, sd3_, report_mode_;
  int date_order_;
  SwimmerMatcher* matcher_;
  ImportMonitor& monitor_;
  UserIo& io_;

  int mode_ = 1;
  bool roster_ = false;
  bool has_d3_ = false;
  SdifCounters n_;
  SdifCheckResult out_;

  // One buffer per record, overwritten by each line of its kind.
  SdifA0 a0_;
  SdifB1 b1_;
  SdifB2 b2_;
  SdifC1 c1_;
  SdifC2 c2_;
  SdifD0 d0_;
  SdifD1 d1_;
  SdifD2 d2_;
  SdifD3 d3_;
  SdifE0 e0_;
  SdifF0 f0_;
  SdifG0 g0_;
  SdifJ0 j0_;
  SdifJ2 j2_;
  SdifZ0 z0_;
};

void SdifPass::Refresh() {
  out_.counts.Checked(ImportRow::kMeets) = n_.b;
  out_.counts.Checked(ImportRow::kTeams) = n_.c1;
  out_.counts.Checked(ImportRow::kIndividual) = n_.d;
  out_.counts.Checked(ImportRow::kRelay) = n_.e0;
  out_.counts.Checked(ImportRow::kSplits) = n_.g0;
  monitor_.Counts(out_.counts);
}

SdifCheckResult& SdifPass::Failed(size_t index, std::string problem) {
  Refresh();
  const std::string_view line = index < lines_.size() ? lines_[index] : std::string_view();
  io_.Message(CertificationFailureText(index + 1, line, problem), box::kStop + box::kOk,
              ct::kErrorTitle);
  out_.ok = false;
  out_.problem = std::move(problem);
  out_.bad_line = index + 1;
  out_.status = std::string(ct::kErrorChecking);
  monitor_.Status(out_.status);
  monitor_.Percent(-1);
  return out_;
}

// One line: its reader and its check, and the counters. A Commlink file (mode 0) is
// trusted for its content, so only what the counters and the swimmer match need is cut.
bool SdifPass::CheckLine(std::string_view line, std::string& problem) {
  const char a = line.size() > 0 ? line[0] : ' ';
  const char b = line.size() > 1 ? line[1] : ' ';
  const bool full = mode_ == 1;
  switch (a) {
    case 'A':
      if (b != '0') break;
      {
        LoadA0Rec(line, date_order_, a0_);
        const A0Check a0 = CheckA0(mode_, a0_, allow_entries_);
        if (!a0.ok) {
          io_.Tell(a0.problem);
          problem = a0.problem;
          return false;
        }
        out_.has_entries = out_.has_entries || a0.has_entries;
      }
      return true;
    case 'B':
      if (b == '1') {
        if (full) {
          LoadB1Rec(line, date_order_, b1_);
          if (!CheckB1(mode_, b1_, &problem)) return false;
        }
      } else if (b == '2') {
        if (full) LoadB2Rec(line, b2_);
      } else {
        break;
      }
      ++n_.b;
      return true;
    case 'C':
      if (b == '1') {
        if (full) {
          LoadC1Rec(line, c1_);
          if (!CheckC1(mode_, c1_, &problem)) return false;
        }
        ++n_.c1;
        return true;
      }
      if (b == '2') {
        if (full) LoadC2Rec(line, c2_);
        return true;
      }
      break;
    case 'D':
      switch (b) {
        case '0':
          if (full) {
            LoadD0Rec(line, date_order_, d0_);
            if (!CheckD0(mode_, d0_, &problem)) return false;
          }
          if (matcher_) matcher_->MatchNameField(Cols(line, 12, 39), Cols(line, 66, 66));
          if (!roster_) ++n_.d;
          if (n_.d >= 2 && !has_d3_ && sd3_) {
            problem = std::string(ct::kMissingD3);
            return false;
          }
          return true;
        case '1':
          if (full) {
            LoadD1Rec(line, date_order_, d1_);
            if (!CheckD1(mode_, d1_, &problem)) return false;
          }
          if (matcher_) matcher_->MatchNameField(Cols(line, 19, 46), Cols(line, 74, 74));
          if (roster_) ++n_.d;
          return true;
        case '2':
          if (full) {
            LoadD2Rec(line, d2_);
            if (!CheckD2(mode_, d2_, &problem)) return false;
          }
          return true;
        case '3':
          if (full) LoadD3Rec(line, d3_);
          has_d3_ = true;
          return true;
        default:
          break;
      }
      break;
    case 'E':
      if (b != '0') break;
      if (full) {
        LoadE0Rec(line, date_order_, e0_);
        if (!CheckE0(mode_, e0_, &problem)) return false;
      }
      ++n_.e0;
      out_.has_relays = true;
      return true;
    case 'F':
      if (b != '0') break;
      if (full) {
        LoadF0Rec(line, date_order_, f0_);
        if (!CheckF0(mode_, f0_, &problem)) return false;
      }
      return true;
    case 'G':
      if (b != '0') break;
      if (full) {
        LoadG0Rec(line, g0_);
        if (!CheckG0(mode_, g0_, &problem)) return false;
      }
      ++n_.g0;
      return true;
    case 'J':
      if (b == '0') {
        if (full) LoadJ0Rec(line, date_order_, j0_);
        return CheckJ0(mode_, j0_, &problem);
      }
      if (b == '1') {
        LoadJ2Rec(line, date_order_, j2_);
        return CheckJ1(mode_, &problem);
      }
      if (b == '2') {
        if (full) LoadJ2Rec(line, date_order_, j2_);
        return CheckJ2(mode_, j2_, &problem);
      }
      break;
    case 'Z':
      if (b != '0') break;
      if (full) LoadZ0Rec(line, z0_);
      return CheckZ0(mode_, z0_, n_, roster_, &problem);
    default:
      break;
  }
  problem.clear();  // an unknown record has no words of its own
  return false;
}

SdifCheckResult SdifPass::Run() {
  out_.status = std::string(ct::kCheckingImportFile);
  monitor_.Status(out_.status);
  if (lines_.empty()) return Failed(0, std::string(sdif::kNotA0));
  const std::string_view first = lines_.front();
  // A plain SDIF file has no check sums; its fields are tested instead.
  mode_ = Blank(Cols(first, 159, 160)) ? 1 : 0;
  out_.current_format = Cols(first, 4, 5) == "V3" || Cols(first, 150, 153) == "LS43";
  roster_ = IsRosterFile(first);
  Refresh();
  monitor_.Percent(0);

  const size_t count = lines_.size();
  int percent = 0;
  std::string problem;
  for (size_t i = 0; i < count; ++i) {
    if (monitor_.Cancelled()) {
      Refresh();
      out_.cancelled = true;
      out_.problem = std::string(ct::kCheckingCanceled);
      out_.status = out_.problem;
      monitor_.Status(out_.status);
      monitor_.Percent(-1);
      return out_;
    }
    const int now = static_cast<int>(i * 100 / count);
    if (now != percent) {
      monitor_.Percent(percent = now);
      Refresh();
    }
    const std::string_view line = lines_[i];
    if (mode_ == 1 && line.size() >= 158 && line[157] != ' ') {
      return Failed(i, std::string(ct::kImproperNonBlank));
    }
    problem.clear();
    if (!CheckLine(line, problem)) return Failed(i, std::move(problem));
  }
  Refresh();
  monitor_.Percent(-1);

  if (matcher_ && !matcher_->AnyMatch()) {
    io_.Message(NoResultsText(*matcher_), box::kInformation, {});
    const std::string others = OthersFoundText(*matcher_);
    if (!others.empty()) io_.Message(others, box::kInformation, {});
  }
  out_.ok = true;
  out_.status = std::string(ct::kImportFileChecked);
  if (report_mode_) {
    out_.status += ct::kToFormatReport;
    if (out_.has_relays) out_.status += ct::kRelayReportToo;
  } else {
    out_.status += ct::kToImport;
  }
  monitor_.Status(out_.status);
  return out_;
}

}  // namespace

SdifCheckResult SDIFCheck(const std::vector<std::string>& lines, bool allow_entries,
                          std::string_view extension, bool report_mode, int date_order,
                          SwimmerMatcher* matcher, ImportMonitor& monitor, UserIo& io) {
  SdifPass pass(lines, allow_entries, extension, report_mode, date_order, matcher, monitor, io);
  return pass.Run();
}

}  // namespace kvlr
