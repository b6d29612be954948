#include "meets/Splits.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"

namespace kvlr {
namespace {

int32_t ValueOf(const SplitPlace& p) {
  return p.value_or(0);
}

}  // namespace

int SplitCount(int distance) {
  return static_cast<int>(RoundHalfEven(distance / 25.0));
}

int StartSplitStep(int32_t split, std::string_view course) {
  if (split == 25 || split == 50 || split == 100) return split;
  return UCase(Trim(course)).starts_with("L") ? 100 : 50;
}

SplitSheet::SplitSheet(int distance, int32_t score)
    : n_(std::max(0, SplitCount(distance))),
      score_(score),
      places_(static_cast<size_t>(n_) + 1),
      loaded_(places_) {
  if (n_ > 0) places_[static_cast<size_t>(n_)] = score_;
  loaded_ = places_;
}

void SplitSheet::Load(SQLite::Database& db, int64_t split_id) {
  places_.assign(static_cast<size_t>(n_) + 1, std::nullopt);
  SQLite::Statement q(db,
                      "SELECT SplitIndex, Split FROM SPLITS WHERE SplitID = ? ORDER BY SplitIndex");
  q.bind(1, split_id);
  while (q.executeStep()) {
    const int index = q.getColumn(0).getInt();
    if (index > n_) break;
    if (index < 1) continue;
    const auto& value = q.getColumn(1);
    places_[static_cast<size_t>(index)] =
        value.isNull() ? SplitPlace{} : SplitPlace{value.getInt()};
  }
  if (n_ > 0 && !places_[static_cast<size_t>(n_)]) places_[static_cast<size_t>(n_)] = score_;
  loaded_ = places_;
}

void SplitSheet::Save(SQLite::Database& db, int64_t split_id) const {
  SQLite::Transaction transaction(db);
  SQLite::Statement del(db, "DELETE FROM SPLITS WHERE SplitID = ?");
  del.bind(1, split_id);
  del.exec();
  SQLite::Statement add(db, "INSERT INTO SPLITS (Split, SplitID, SplitIndex) VALUES (?, ?, ?)");
  for (int i = 1; i <= n_; ++i) {
    const int32_t value = ValueOf(places_[static_cast<size_t>(i)]);
    if (value <= 0) continue;
    add.reset();
    add.bind(1, value);
    add.bind(2, split_id);
    add.bind(3, i);
    add.exec();
  }
  transaction.commit();
}

std::vector<int> SplitSheet::VisiblePlaces(int step) const {
  std::vector<int> out;
  for (int i = 1; i <= n_; ++i) {
    if (Visible(i, step)) out.push_back(i);
  }
  return out;
}

SplitPlace SplitSheet::Lap(int i, int step) const {
  const int s = step / 25;
  if (i < 1 || i > n_) return std::nullopt;
  if (i <= s) return At(i);
  if (ValueOf(At(i)) == 0) return std::nullopt;
  // A missing split is bridged by the nearest earlier one at the same step.
  int j = i - s;
  while (j > s && ValueOf(At(j)) == 0) j -= s;
  return ValueOf(At(i)) - ValueOf(At(j));
}

bool SplitSheet::Edit(int i, bool laps_row, std::string_view text, int step) {
  if (i < 1 || i > n_) return false;
  const int s = step / 25;
  std::string typed(text);
  const bool blank = Trim(typed).empty();
  const int32_t value = TimeTextToScore(typed);
  SplitPlace split;
  if (laps_row) {
    if (i == s) {
      split = blank ? SplitPlace{} : SplitPlace{value};
    } else if (i == n_) {
      return false;  // the finish can't be changed by its lap
    } else {
      split = ValueOf(At(i - s)) + value;
    }
  } else {
    if (i == n_) return false;
    split = blank ? SplitPlace{} : SplitPlace{value};
  }
  Set(i, split);
  return true;
}

std::string SplitText(const SplitPlace& value) {
  return value ? FormatTime(*value, false) : std::string();
}

std::string SplitsCaption(int distance, int stroke, std::string_view f_p, std::string_view time,
                          std::string_view swimmer, std::string_view meet_name) {
  std::string caption = fmt::format("Event: {} {} [{}] - Time: {}  {}", distance,
                                    StrokeText(stroke, ""), FinalsWord(f_p), Trim(time), swimmer);
  if (!meet_name.empty()) caption += fmt::format("   Meet: {}", meet_name);
  return caption;
}

}  // namespace kvlr
