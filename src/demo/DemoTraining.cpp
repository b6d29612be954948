#include "demo/DemoTraining.h"

#include <random>

#include <fmt/format.h>

#include "daily/Calendar.h"

namespace kvlr::demo {
namespace {

// Energy levels of a new database: 1 REC, 2 EN1, 3 EN2, 4 EN3, 5 SP1, 7 SP3.
enum Energy : int16_t { kRec = 1, kEn1 = 2, kEn2 = 3, kEn3 = 4, kSp1 = 5, kSp3 = 7 };

PlannedLine Set(int32_t reps, int32_t dist, int32_t interval, const char* desc, int16_t energy,
                const char* type, const char* stroke) {
  return {PlannedLine::kSet, {reps, dist, interval, desc, energy, type, stroke}, 0};
}
PlannedLine Circuit(int16_t passes, PlannedLine first) {
  first.kind = PlannedLine::kNewCircuit;
  first.circuit_reps = passes;
  return first;
}
PlannedLine Joins(PlannedLine line) {
  line.kind = PlannedLine::kCircuitLine;
  return line;
}
PlannedLine Note(std::string text) {
  PlannedLine line;
  line.kind = PlannedLine::kNote;
  line.values.desc = std::move(text);
  return line;
}

class Trainer {
 public:
  Trainer(const Date& today, uint32_t seed) : rng_(seed ^ 0x5eedu), first_(AddDays(today, -28)) {}

  Training Make() {
    Training t;
    for (int day = 0; day < 28; ++day) {
      const Date d = AddDays(first_, day);
      const int week = day / 7;
      const int wd = Weekday(d);
      // The older swimmer: four afternoons, Saturday mornings every other week, dry-land
      // on Wednesdays; the younger one on Tuesdays and some Thursdays.
      if (wd == 1 || wd == 2 || wd == 4 || wd == 5 || (wd == 6 && week % 2 == 1)) {
        const bool saturday = wd == 6;
        const int start = saturday ? 8 * 60 : 16 * 60 + 30;
        t.workouts.push_back({0, d, saturday ? "08:00 AM" : "04:30 PM", Older(session_++, week)});
        t.events.push_back({0, kEventSwim, d, start, start + 120, "Team practice"});
      }
      if (wd == 3) {
        t.events.push_back({0, kEventDry, d, 17 * 60, 18 * 60, "Dry-land: core and bands"});
      }
      if (wd == 2 || (wd == 4 && week % 2 == 0)) {
        t.workouts.push_back({1, d, "05:30 PM", Younger(week)});
        t.events.push_back({1, kEventSwim, d, 17 * 60 + 30, 18 * 60 + 30, "Age group practice"});
      }
      if (wd == 1 || wd == 4) {
        t.health.push_back(
            {0, d, fmt::format("{}", 56 + Pick(6)), fmt::format("{:.1f}", 7.5 + 0.5 * Pick(4)),
             fmt::format("{:.1f}", 101.5 + 0.5 * Pick(3)), fmt::format("{}", 3 + Pick(3)),
             wd == 1 ? "After the weekend" : "Before practice"});
      }
      if (wd == 0) {
        t.health.push_back({1, d, fmt::format("{}", 70 + Pick(5)), "9.5",
                            fmt::format("{:.1f}", 69.0 + 0.5 * Pick(3)),
                            fmt::format("{}", 4 + Pick(2)), "Sunday check"});
      }
    }
    t.journal = {{AddDays(first_, 1), "Season goals",
                  "Mira wants the 200 free under the county cut by the holiday meet; Theo wants a "
                  "legal breaststroke kick."},
                 {AddDays(first_, 10), "Dry-land plan",
                  "Coach added band work and planks on Wednesdays. Mira's shoulder feels fine."},
                 {AddDays(first_, 24), "Before the meet",
                  "Last hard week done. Early nights, and the 100 back turn needs more practice."}};
    return t;
  }

 private:
  int Pick(int n) { return static_cast<int>(rng_() % static_cast<uint32_t>(n)); }

  // Four kinds of practice in turn; the main intervals tighten a second a week.
  std::vector<PlannedLine> Older(int n, int week) {
    const int32_t faster = week;
    const int32_t extra = Pick(3);
    switch (n % 4) {
      case 0:
        return {Set(1, 500, 450, "Warm-up", kRec, "S", "FR"),
                Set(8, 50, 60, "Kick side-bk-stomach", kEn1, "K", "FR"),
                Note("Main set: hold the same pace on every 100"),
                Set(8 + extra, 100, 85 - faster, "Freestyle", kEn1, "S", "FR"),
                Circuit(3, Set(1, 200, 180, "Free-medley", kEn2, "S", "FRM")),
                Joins(Set(2, 50, 50, "Descend 1-3 stroke", kEn3, "S", "FR")),
                Set(6, 50, 60, "Kick your stroke", kEn1, "K", "STK"),
                Set(1, 200, 240, "Recovery / swim-down", kRec, "S", "FR")};
      case 1:
        return {Set(1, 400, 360, "Warm-up", kRec, "S", "FR"),
                Set(4, 75, 90, "Rt-lft-double arm", kRec, "D", "FLY"),
                Note("IM order; build each 25"),
                Set(4 + extra, 200, 190 - faster, "Individual Medley", kEn2, "S", "IM"),
                Circuit(4, Set(1, 100, 95, "Backstroke", kEn2, "S", "BK")),
                Joins(Set(1, 50, 60, "Breaststroke", kEn1, "S", "BR")),
                Set(8, 50, 65, "Kick your stroke", kEn1, "K", "STK"),
                Set(1, 200, 240, "Recovery / swim-down", kRec, "S", "FR")};
      case 2:
        return {Set(1, 400, 360, "Warm-up", kRec, "S", "FR"),
                Set(3, 200, 180, "Free breathe 3-5-7-9", kEn1, "P", "PAD"),
                Note("Sprints: full rest, dive starts"),
                Set(10 + 2 * extra, 25, 45, "Sprint no breath", kSp3, "S", "FR"),
                Circuit(2, Set(4, 50, 90 - faster, "Your Stroke", kSp1, "S", "STK")),
                Joins(Set(1, 100, 120, "Recovery / swim-down", kRec, "S", "FR")),
                Set(4, 100, 125, "Kick your stroke", kEn1, "K", "FIN"),
                Set(1, 300, 330, "Recovery / swim-down", kRec, "S", "FR")};
      default:
        return {Set(1, 600, 540, "Swim-kick-pull", kRec, "S", "FRM"),
                Set(6, 50, 60, "Kick side-bk-stomach", kEn1, "K", "FR"),
                Note("Threshold: best average, count strokes"),
                Set(4 + extra, 200, 170 - faster, "Freestyle", kEn2, "S", "FR"),
                Circuit(3, Set(2, 100, 95, "Free-medley", kEn1, "P", "FRM")),
                Joins(Set(4, 25, 30, "Descend 1-3 stroke", kEn3, "S", "FR")),
                Set(1, 200, 240, "Recovery / swim-down", kRec, "S", "FR")};
    }
  }

  std::vector<PlannedLine> Younger(int week) {
    return {Set(1, 300, 360, "Warm-up", kRec, "S", "FR"),
            Set(6, 50, 75, "Kick your stroke", kEn1, "K", "BR"),
            Note("Streamline off every wall"),
            Set(6 + Pick(3), 50, 65 - week, "Freestyle", kEn1, "S", "FR"),
            Circuit(2, Set(2, 50, 70, "Backstroke", kEn1, "S", "BK")),
            Joins(Set(1, 50, 75, "Breaststroke", kRec, "D", "BR")),
            Set(1, 200, 300, "Recovery / swim-down", kRec, "S", "FR")};
  }

  std::minstd_rand rng_;
  Date first_;
  int session_ = 0;
};

}  // namespace

Training MakeTraining(const Date& today, uint32_t seed) {
  return Trainer(today, seed).Make();
}

}  // namespace kvlr::demo
