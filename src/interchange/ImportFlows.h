#pragma once
// The line walks of an import, one per format, over a session. They count into
// session.Counts(), report progress to the session's monitor and stop between lines when
// it asks. A line they cannot process throws ImportLineError; the store's failures pass
// through as they are.

#include <stdexcept>
#include <string>
#include <vector>

#include "interchange/ImportSession.h"

namespace kvlr {

// A line of the file that the import cannot process.
class ImportLineError : public std::runtime_error {
 public:
  ImportLineError(size_t line_number, std::string problem)
      : std::runtime_error(problem), line_number(line_number), problem(std::move(problem)) {}
  size_t line_number;  // from 1
  std::string problem;
};

enum class WalkEnd { kDone, kCancelled };

// `SDIFImport` over the lines of a .cl2 or .sd3 file.
WalkEnd SDIFImport(ImportSession& session, const std::vector<std::string>& lines);
// `NV3Import` over the lines of an .nv3 file (or the unscrambled lines of a .txt).
WalkEnd NV3Import(ImportSession& session, const std::vector<std::string>& lines,
                  bool allow_entries = false);

// Reports progress for line `index` (from 0) of `count` when the percent changes.
class LineProgress {
 public:
  LineProgress(ImportMonitor& monitor, size_t count) : monitor_(monitor), count_(count) {}
  void At(size_t index) {
    const int percent = count_ ? static_cast<int>(index * 100 / count_) : 100;
    if (percent != last_) monitor_.Percent(last_ = percent);
  }

 private:
  ImportMonitor& monitor_;
  size_t count_;
  int last_ = -1;
};

}  // namespace kvlr
