#pragma once
// The Commlink (.cl2) records of an export: each line 160 columns with its check sum and
// CR LF, 162 bytes. The writer keeps the counts the Z0 reports.

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "core/Date.h"
#include "interchange/ExportTypes.h"

namespace kvlr {

// The maker's telephone of the A0 (any 12 characters).
inline constexpr std::string_view kMakerPhone = "555-555-0100";

class SdifWriter {
 public:
  explicit SdifWriter(Date today) : today_(today) {}

  // "20", "Meet Entries", "41" for entries; "02", "Meet Results", "42" for results.
  void A0Record(std::string_view file_code, std::string_view description,
                std::string_view content_code);
  void B0Record(const ExportMeet& meet);
  // A made-up meet of a best-times file: `name`, today, `course`.
  void B0RecordBestTimes(char course, std::string_view name);
  void C1Record(const ExportTeam& team);
  // A result of `meet`; its age by the swim, the meet's AgeUp or the swimmer.
  void D0Record(const ExportSwimmer& swimmer, const ExportSwim& swim, const ExportMeet& meet);
  // An entry: the seed time (swim.score in swim.course; 0 is "NT").
  void D0RecordEntry(const ExportSwimmer& swimmer, const ExportSwim& swim, const ExportMeet& meet);
  void D3Record(const ExportSwimmer& swimmer);
  // The G0 lines of a swim's splits, ten to a line; none without splits.
  void G0Record(const ExportSwimmer& swimmer, const ExportSwim& swim);
  void Z0Record(std::string_view file_code);

  const std::string& Text() const { return text_; }
  int Records() const { return records_; }

 private:
  void Write(const class FixedLine& line);
  void D0(const ExportSwimmer& swimmer, const ExportSwim& swim, const ExportMeet& meet, bool entry);

  Date today_;
  std::string text_;
  int records_ = 0;
  int b1_ = 0, c1_ = 0, d0_ = 0, g0_ = 0;
  std::set<int32_t> meets_, swimmers_;
  std::set<std::string> teams_;
};

// "Last, First I" as the 28 columns of a swimmer's name.
std::string SdifSwimmerName(const ExportSwimmer& swimmer);

}  // namespace kvlr
