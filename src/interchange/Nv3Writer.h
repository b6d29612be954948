#pragma once
// The NV3 records of an export: each line 130 columns with NV3CheckSum and CR LF, 132
// bytes. There is no end record.

#include <functional>
#include <string>
#include <string_view>

#include "core/Date.h"
#include "interchange/ExportTypes.h"

namespace kvlr {

// The best times of a swim's event in L, S and Y (hundredths, 0 for none).
struct Nv3BestTimes {
  int32_t l = 0, s = 0, y = 0;
};

class Nv3Writer {
 public:
  explicit Nv3Writer(DateTime now) : now_(now) {}

  // `code` "02" entries, "09" results, "11" proof of time; `name` the family's name.
  void NV3A1Record(std::string_view code, std::string_view name);
  void NV3B1Record(const ExportMeet& meet);
  // The made-up meet of a best-times file ("Best Times " + `course_word`) and its B2.
  void NV3B1RecordBestTimes(char course, std::string_view course_word);
  void NV3B2Record(const ExportMeet& meet);
  void NV3C1Record(const ExportTeam& team);
  void NV3C2Record();
  void NV3C3Record(std::string_view line);
  // D1, D2, D3 always; D4-D9 and DB when one of their fields has a value.
  void NV3AthDetailRecords(const ExportSwimmer& swimmer);
  void NV3E1RecordResults(const ExportSwimmer& swimmer, const ExportSwim& swim);
  void NV3E1RecordEntries(const ExportSwimmer& swimmer, const ExportSwim& swim);
  void NV3E2RecordResults(const ExportSwim& swim);
  void NV3E3RecordResults(const Nv3BestTimes& best);
  // The splits of a swim, 11 to a line; none without splits.
  void NV3G1RecordResults(const ExportSwim& swim);

  const std::string& Text() const { return text_; }
  // Every line as written, without its CR LF (for the online form).
  const std::vector<std::string>& Lines() const { return lines_; }

 private:
  void Write(const class FixedLine& line);
  class FixedLine E1(const ExportSwimmer& swimmer, const ExportSwim& swim) const;

  DateTime now_;
  std::string text_;
  std::vector<std::string> lines_;
};

// The distance an NV3 file gives a diving event: 9991, 9992, 9993 by the board (a stored
// board height 1, 3, 10 or a distance already so); others as they stand.
int Nv3Distance(int distance, int stroke);

}  // namespace kvlr
