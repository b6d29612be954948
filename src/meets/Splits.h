#pragma once
// The splits of one result (SPLITS) as frmSplits edits them: one place for each 25 of the
// race holding the cumulative time there (hundredths), and the laps worked out from them.
//
// Places are numbered 1 to N (N = distance / 25, rounded half to even); an empty place is
// std::nullopt. Laps are never stored.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"

namespace kvlr {

using SplitPlace = std::optional<int32_t>;

// The number of 25s of a race.
int SplitCount(int distance);

// The distance between shown splits on opening: `split` when it is 25, 50 or 100, else 100
// for course L and 50 otherwise.
int StartSplitStep(int32_t split, std::string_view course);

// Places 1 to N of the splits (index 0 unused, so places[i] is place i).
class SplitSheet {
 public:
  SplitSheet() = default;
  SplitSheet(int distance, int32_t score);

  int Count() const { return n_; }
  const SplitPlace& At(int i) const { return places_[static_cast<size_t>(i)]; }
  void Set(int i, SplitPlace value) { places_[static_cast<size_t>(i)] = value; }

  // Reads the rows of `split_id`: each goes to its SplitIndex (stopping at one past N, a
  // Null read as empty); an empty finish place takes the result's score. Remembers what was
  // read, so Changed() compares with it. Store failures throw.
  void Load(SQLite::Database& db, int64_t split_id);
  // Replaces the rows of `split_id` by one row for each place whose value is above 0, in
  // one transaction. Store failures throw (nothing written).
  void Save(SQLite::Database& db, int64_t split_id) const;

  // True when any place differs from what was last loaded or saved.
  bool Changed() const { return places_ != loaded_; }
  void MarkSaved() { loaded_ = places_; }

  // Whether place i shows at `step` (25, 50 or 100).
  static bool Visible(int i, int step) { return i % (step / 25) == 0; }
  // The visible places at `step`, in order.
  std::vector<int> VisiblePlaces(int step) const;

  // The lap of visible place i at `step`: the split itself up to the first step, empty for
  // an empty or zero split, else the split less the nearest earlier visible split above 0
  // (0 when none before the first step).
  SplitPlace Lap(int i, int step) const;

  // An edit of the "Splits" row (laps_row false) or the "Laps" row at place i. Returns
  // false when the edit is dropped: a lap of the finish (unless it is also the first
  // column), a split of the finish, or i outside 1 to N. `text` is read as a time.
  bool Edit(int i, bool laps_row, std::string_view text, int step);

 private:
  int n_ = 0;
  int32_t score_ = 0;
  std::vector<SplitPlace> places_;
  std::vector<SplitPlace> loaded_;
};

// A place or lap as the grid shows it: FormatTime, empty stays empty.
std::string SplitText(const SplitPlace& value);

// The caption of frmSplits: "Event: 100 Free [Finals] - Time: 1:00.00  Pat Swimmer   Meet:
// Lakeside". `meet_name` empty leaves the meet off.
std::string SplitsCaption(int distance, int stroke, std::string_view f_p, std::string_view time,
                          std::string_view swimmer, std::string_view meet_name);

}  // namespace kvlr
