#include "interchange/SdifRecordChecks.h"

#include "core/VbRules.h"
#include "interchange/SdifChecks.h"
#include "interchange/SdifTexts.h"

namespace kvlr {

namespace {

bool Fail(std::string_view label, std::string* problem) {
  if (problem) *problem = std::string(label);
  return false;
}

// Finals, prelim and swim-off, in that order, each only when its text is not blank.
template <typename Rec>
bool CheckSwimTimes(const Rec& rec, std::string* problem) {
  const std::pair<const FileTime*, const std::string*> times[] = {
      {&rec.finals_time, &rec.finals_course},
      {&rec.prelim_time, &rec.prelim_course},
      {&rec.swim_off_time, &rec.swim_off_course}};
  for (const auto& [time, course] : times) {
    if (!Trim(time->text).empty() &&
        !CheckTimeAndCourse(time->score, time->text, *course, problem)) {
      return false;
    }
  }
  return true;
}

// The lower class may not be "O" nor the upper "U".
bool CheckTimeClasses(const std::string& lower, const std::string& upper, std::string* problem) {
  if (!CheckCode(lower, sdif::kEventTimeCodes, sdif::kEventTimeCodeLabel, true, problem) ||
      lower == "O") {
    return Fail(sdif::kEventTimeCodeLabel, problem);
  }
  if (!CheckCode(upper, sdif::kEventTimeCodes, sdif::kEventTimeCodeLabel, true, problem) ||
      upper == "U") {
    return Fail(sdif::kEventTimeCodeLabel, problem);
  }
  return true;
}

}  // namespace

bool CheckD0(int mode, const SdifD0& rec, std::string* problem) {
  if (mode == 0) return true;
  // A D0 with no event at all is passed over.
  if (Trim(rec.event_sex + rec.stroke_as_read + rec.event_letter).empty()) return true;
  if (!CheckCode(rec.sex, sdif::kSexCodes, sdif::kSexCodeLabel, false, problem) ||
      !CheckCode(rec.event_sex, sdif::kEventSexCodes, sdif::kEventSexCodeLabel, false, problem) ||
      !CheckCode(rec.stroke_as_read, sdif::kStrokeCodes, sdif::kStrokeCodeLabel, false, problem) ||
      !CheckSwimTimes(rec, problem)) {
    return false;
  }
  if (rec.distance == 0 || rec.event_age == 0) return Fail(sdif::kRequiredMissing, problem);
  if (rec.birth.bad || rec.swim_date.bad) return Fail(sdif::kDateLabel, problem);
  if (!CheckTimeClasses(rec.lower_time_class, rec.upper_time_class, problem) ||
      !CheckCode(rec.organization, sdif::kOrganizationCodes, sdif::kOrganizationCodeLabel, true,
                 problem) ||
      !CheckCode(rec.attach, sdif::kAttachCodes, sdif::kAttachCodeLabel, true, problem)) {
    return false;
  }
  if (!ParseSwimmerName(rec.swimmer_name).ok) return Fail(sdif::kSwimmerNameLabel, problem);
  return true;
}

bool CheckE0(int mode, const SdifE0& rec, std::string* problem) {
  if (mode == 0) return true;
  if (!CheckCode(rec.event_sex, sdif::kEventSexCodes, sdif::kEventSexCodeLabel, false, problem)) {
    return false;
  }
  // The event number and its letter are required together: one of them will do.
  if (rec.distance == 0 || rec.event_age == 0 ||
      Trim(rec.event_number_text + rec.event_letter).empty()) {
    return Fail(sdif::kRequiredMissing, problem);
  }
  if (!CheckCode(rec.stroke, sdif::kRelayStrokeCodes, sdif::kStrokeCodeLabel, false, problem)) {
    return false;
  }
  if (Trim(rec.team_code).empty()) return Fail(sdif::kRequiredMissing, problem);
  return CheckSwimTimes(rec, problem) &&
         CheckTimeClasses(rec.lower_time_class, rec.upper_time_class, problem);
}

}  // namespace kvlr
