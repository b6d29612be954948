#include "workouts/WorkoutAnalysis.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "core/VbRules.h"

namespace kvlr {
namespace {

void AddTo(std::vector<AnalysisRow>& table, const std::string& key, long d, long t) {
  auto it = std::find_if(table.begin(), table.end(),
                         [&](const AnalysisRow& r) { return r.key == key; });
  if (it == table.end()) {
    table.push_back({key, "", 0, "", 0, ""});
    it = table.end() - 1;
  }
  it->distance += d;
  it->seconds += t;
}

// Cut, never rounded: the printed figures of the old reports did the same.
std::string CutDecimals(double value, int places) {
  std::string text = fmt::format("{:.6f}", value);
  const size_t point = text.find('.');
  return text.substr(0, point + 1 + static_cast<size_t>(places));
}

}  // namespace

std::string AnalysisPercent(long part, long total) {
  if (total == 0) return "0.00%";
  return CutDecimals(static_cast<double>(part) * 100.0 / static_cast<double>(total), 2) + "%";
}

std::string AnalysisMinutes(long seconds) {
  return CutDecimals(static_cast<double>(seconds) / 60.0, 1);
}

WorkoutAnalysis AnalyzeWorkout(const std::vector<WkLine>& lines, const EnergyArray& energy,
                               const std::vector<WorkStrokeEntry>& work_stroke) {
  WorkoutAnalysis a;
  for (const WkLine& l : lines) {
    long d = static_cast<long>(l.set_reps) * l.set_dist;
    long t = static_cast<long>(l.set_reps) * l.set_interval;
    if (l.IsCircuit()) {
      d *= l.circuit_reps;
      t *= l.circuit_reps;
    }
    if (d == 0) continue;
    const std::string energy_key =
        l.set_energyno >= 1 && l.set_energyno <= 9
            ? Trim(energy[static_cast<size_t>(l.set_energyno)].abbr)
            : std::string();
    AddTo(a.energy, energy_key, d, t);
    const std::string work = Trim(l.set_type);
    const size_t n = std::max<size_t>(1, work.size());
    for (size_t i = 0; i < n; ++i) {
      AddTo(a.work, work.empty() ? "" : work.substr(i, 1),
            static_cast<long>(RoundHalfEven(static_cast<double>(d) / static_cast<double>(n))),
            static_cast<long>(RoundHalfEven(static_cast<double>(t) / static_cast<double>(n))));
    }
    AddTo(a.stroke, Trim(l.set_categoryabbr), d, t);
  }
  for (const AnalysisRow& r : a.energy) {
    a.total_distance += r.distance;
    a.total_seconds += r.seconds;
  }
  a.any = a.total_distance != 0;
  auto finish = [&](std::vector<AnalysisRow>& table, int kind) {
    for (AnalysisRow& r : table) {
      r.distance_percent = AnalysisPercent(r.distance, a.total_distance);
      r.time_percent = AnalysisPercent(r.seconds, a.total_seconds);
      r.name = kind == 0 ? EnergyName(energy, r.key) : WorkStrokeName(work_stroke, r.key, kind);
    }
    std::stable_sort(table.begin(), table.end(), [](const AnalysisRow& x, const AnalysisRow& y) {
      if (x.distance != y.distance) return x.distance > y.distance;
      return x.name > y.name;
    });
  };
  finish(a.energy, 0);
  finish(a.work, 1);
  finish(a.stroke, 2);
  return a;
}

}  // namespace kvlr
