#include "workouts/LineEdits.h"

#include "core/VbRules.h"
#include "workouts/WorkoutTexts.h"

namespace kvlr {
namespace {

using Lines = std::vector<WkLine>;

int Count(const Lines& lines) {
  return static_cast<int>(lines.size());
}

std::string OrBlank(const std::string& text) {
  return Trim(text).empty() ? " " : text;
}

void Renumber(Lines& lines) {
  const int32_t ptr = lines.empty() ? 0 : lines.front().wk_ptr;
  for (size_t i = 0; i < lines.size(); ++i) {
    lines[i].wk_line = static_cast<int16_t>(i + 1);
    lines[i].wk_ptr = ptr;
  }
}

bool FirstOfCircuit(const WkLine& l) {
  return l.wk_type == "C" && l.circuit_line == 1;
}

// Inside a circuit past its first line: F2 and F4 refuse there.
bool InsideCircuit(const Lines& lines, int r) {
  return r >= 1 && r <= Count(lines) && lines[r - 1].wk_type == "C" &&
         lines[r - 1].circuit_line != 1;
}

// 0-based first and last index of the circuit holding index i.
std::pair<int, int> Range(const Lines& lines, int i) {
  int first = i;
  while (first > 0 && lines[first].circuit_line != 1 && lines[first - 1].wk_type == "C") --first;
  int last = i;
  while (last + 1 < Count(lines) && lines[last + 1].wk_type == "C" &&
         lines[last + 1].circuit_line != 1) {
    ++last;
  }
  return {first, last};
}

// Indexes first..last become one circuit of `reps` passes, numbered from 1.
void Restitch(Lines& lines, int first, int last, int16_t reps) {
  for (int k = first; k <= last; ++k) {
    auto& l = lines[k];
    l.wk_type = "C";
    l.circuit_line = static_cast<int16_t>(k - first + 1);
    l.circuit_tot = static_cast<int16_t>(last - first + 1);
    l.circuit_reps = reps;
  }
}

void MakeSingle(WkLine& l) {
  l.wk_type = "S";
  l.circuit_line = l.circuit_tot = l.circuit_reps = 0;
}

WkLine FromValues(const SetValues& v) {
  WkLine l;
  l.set_reps = v.reps;
  l.set_dist = v.dist;
  l.set_interval = v.interval;
  l.set_desc = OrBlank(v.desc);
  l.set_energyno = v.energyno;
  l.set_type = OrBlank(v.type);
  l.set_categoryabbr = OrBlank(v.category);
  return l;
}

WkLine NoteLine(const std::string& note) {
  WkLine l;
  l.set_note = note;
  return l;
}

void WriteValues(WkLine& l, const SetValues& v) {
  l.set_reps = v.reps;
  l.set_dist = v.dist;
  l.set_interval = v.interval;
  l.set_desc = OrBlank(v.desc);
  l.set_energyno = v.energyno;
  l.set_type = OrBlank(v.type);
  l.set_categoryabbr = OrBlank(v.category);
}

// Index at which row r's place starts (End row: behind the last line).
int At(const Lines& lines, int r) {
  if (r < 1) return 0;
  return std::min(r, Count(lines) + 1) - 1;
}

// The type a line placed in front of r takes: r's, but "S" at the End row or in front of a
// circuit's first line.
bool JoinsCircuitAt(const Lines& lines, int r) {
  return r >= 1 && r <= Count(lines) && lines[r - 1].wk_type == "C" &&
         lines[r - 1].circuit_line != 1;
}

// Inserts `added` at index `at` into the circuit whose line sits there now.
void InsertIntoCircuit(Lines& lines, int at, const Lines& added, int16_t reps) {
  const auto [first, last] = Range(lines, at);
  lines.insert(lines.begin() + at, added.begin(), added.end());
  Restitch(lines, first, last + static_cast<int>(added.size()), reps);
}

}  // namespace

std::string CheckSetEntry(int32_t reps, int32_t dist, int32_t interval, bool work_type_valid) {
  if (reps == 0 && dist == 0) return std::string(wk_text::kRepsDistZero);
  if (reps == 0 && dist >= 1) return std::string(wk_text::kNeedReps);
  if (interval == 0) return std::string(wk_text::kNeedInterval);
  if (!work_type_valid) return std::string(wk_text::kBadWorkType);
  return {};
}

std::string CheckNoteEntry(const std::string& note) {
  return Trim(note).empty() ? std::string(wk_text::kBlankNote) : std::string();
}

std::optional<std::string> RefuseAddSingle(const Lines& lines, int r) {
  if (InsideCircuit(lines, r)) return std::string(wk_text::kUseAddCircuit);
  return std::nullopt;
}

std::string AddSingleTitle(const Lines& lines, int r) {
  if (lines.empty()) return "Add Line 1";
  return "Add Single Set in front of Line " + std::to_string(r);
}

std::string AddNoteTitle(int r) {
  return "Add Note in front of Line " + std::to_string(r);
}

std::string NewCircuitTitle(int r) {
  return "Insert New Circuit in front of Line " + std::to_string(r);
}

std::string EditTitle(const Lines& lines, int r) {
  if (r >= 1 && r <= Count(lines) && lines[r - 1].set_reps == 0 && lines[r - 1].set_dist == 0) {
    return "Edit note for Line " + std::to_string(r);
  }
  return "Edit Line " + std::to_string(r);
}

bool AddSingleSet(Lines& lines, int r, const SetValues& v) {
  if (InsideCircuit(lines, r)) return false;
  const int at = At(lines, r);
  lines.insert(lines.begin() + at, FromValues(v));
  Renumber(lines);
  return true;
}

bool AddNote(Lines& lines, int r, const std::string& note) {
  if (Trim(note).empty()) return false;
  const int at = At(lines, r);
  if (JoinsCircuitAt(lines, r)) {
    InsertIntoCircuit(lines, at, {NoteLine(note)}, lines[at].circuit_reps);
  } else {
    lines.insert(lines.begin() + at, NoteLine(note));
  }
  Renumber(lines);
  return true;
}

bool NewCircuit(Lines& lines, int r, const SetValues& v, int16_t circuit_reps) {
  if (InsideCircuit(lines, r)) return false;
  const int at = At(lines, r);
  lines.insert(lines.begin() + at, FromValues(v));
  Restitch(lines, at, at, circuit_reps);
  Renumber(lines);
  return true;
}

CircuitPlace PlanAddCircuitLine(const Lines& lines, int r) {
  const int n = Count(lines);
  const bool p_circuit = r >= 2 && r - 1 <= n && lines[r - 2].wk_type == "C";
  const bool c_circuit = r >= 1 && r <= n && lines[r - 1].wk_type == "C";
  if (!p_circuit && !c_circuit) return CircuitPlace::kNewCircuit;
  if (p_circuit && !c_circuit) return CircuitPlace::kEndOfPrevious;
  if (!p_circuit) return CircuitPlace::kFrontOfNext;
  return lines[r - 1].circuit_line == 1 ? CircuitPlace::kAsk : CircuitPlace::kInside;
}

std::string AddCircuitTitle(CircuitPlace place, int r) {
  switch (place) {
    case CircuitPlace::kEndOfPrevious:
      return "Add to Circuit Set ending on Line " + std::to_string(r - 1);
    case CircuitPlace::kFrontOfNext:
      return "Add to front of Circuit Set starting on Line " + std::to_string(r);
    case CircuitPlace::kInside:
      return "Insert set in Circuit at Line " + std::to_string(r);
    default:
      return NewCircuitTitle(r);
  }
}

std::string AddCircuitQuestion(int r) {
  return "Yes = Add to end of circuit ending at line " + std::to_string(r - 1) +
         "\r\n No = Add to front of circuit starting at line " + std::to_string(r) + ".";
}

int16_t CircuitRepsAt(const Lines& lines, int r, CircuitPlace place, int16_t default_reps) {
  if (place == CircuitPlace::kEndOfPrevious && r >= 2) return lines[r - 2].circuit_reps;
  if ((place == CircuitPlace::kFrontOfNext || place == CircuitPlace::kInside) && r >= 1 &&
      r <= Count(lines)) {
    return lines[r - 1].circuit_reps;
  }
  return default_reps;
}

bool AddCircuitLine(Lines& lines, int r, CircuitPlace place, const SetValues& v,
                    int16_t circuit_reps) {
  if (place == CircuitPlace::kAsk) return false;
  if (place == CircuitPlace::kNewCircuit) return NewCircuit(lines, r, v, circuit_reps);
  const int n = Count(lines);
  if (place == CircuitPlace::kEndOfPrevious) {
    if (r < 2 || r - 2 >= n || lines[r - 2].wk_type != "C") return false;
    const auto [first, last] = Range(lines, r - 2);
    lines.insert(lines.begin() + last + 1, FromValues(v));
    Restitch(lines, first, last + 1, circuit_reps);
  } else {
    if (r < 1 || r > n || lines[r - 1].wk_type != "C") return false;
    InsertIntoCircuit(lines, r - 1, {FromValues(v)}, circuit_reps);
  }
  Renumber(lines);
  return true;
}

bool EditLine(Lines& lines, int r, const SetValues& v, int16_t circuit_reps) {
  if (r < 1 || r > Count(lines)) return false;
  WkLine& l = lines[r - 1];
  WriteValues(l, v);
  if (FirstOfCircuit(l) && circuit_reps != l.circuit_reps) {
    const auto [first, last] = Range(lines, r - 1);
    Restitch(lines, first, last, circuit_reps);
  }
  return true;
}

bool EditNote(Lines& lines, int r, const std::string& note) {
  if (r < 1 || r > Count(lines) || Trim(note).empty()) return false;
  WkLine& l = lines[r - 1];
  l.set_note = note;
  l.set_reps = l.set_dist = 0;
  l.set_energyno = 0;
  l.set_type = l.set_categoryabbr = " ";
  return true;
}

bool DeleteLine(Lines& lines, int r) {
  if (r < 1 || r > Count(lines)) return false;
  const int i = r - 1;
  if (lines[i].wk_type == "C") {
    const auto [first, last] = Range(lines, i);
    const int16_t reps = lines[i].circuit_reps;
    lines.erase(lines.begin() + i);
    if (last > first) Restitch(lines, first, last - 1, reps);
  } else {
    lines.erase(lines.begin() + i);
  }
  Renumber(lines);
  return true;
}

int MoveLine(Lines& lines, int from, int to) {
  const int n = Count(lines);
  if (from < 1 || from > n || to < 1 || to > n + 1 || to == from || to == from + 1) return 0;
  WkLine moved = lines[from - 1];
  // The target is judged before the source leaves: r's circuit, unless r opens one or is End.
  const bool join = JoinsCircuitAt(lines, to);
  const bool lone_circuit = moved.wk_type == "C" && moved.circuit_line == 1 &&
                            moved.circuit_tot == 1;
  // Close the source's circuit where it stood.
  if (moved.wk_type == "C") {
    const auto [first, last] = Range(lines, from - 1);
    lines.erase(lines.begin() + from - 1);
    if (last > first) Restitch(lines, first, last - 1, moved.circuit_reps);
  } else {
    lines.erase(lines.begin() + from - 1);
  }
  const int at = from < to ? to - 2 : to - 1;
  if (join) {
    InsertIntoCircuit(lines, at, {moved}, lines[at].circuit_reps);
  } else {
    if (!lone_circuit) MakeSingle(moved);
    lines.insert(lines.begin() + at, moved);
  }
  Renumber(lines);
  return at + 1;
}

bool InsertMemorizedSet(Lines& lines, int r, const SetValues& v) {
  const int at = At(lines, r);
  if (JoinsCircuitAt(lines, r)) {
    InsertIntoCircuit(lines, at, {FromValues(v)}, lines[at].circuit_reps);
  } else {
    lines.insert(lines.begin() + at, FromValues(v));
  }
  Renumber(lines);
  return true;
}

bool InsertMemorizedCircuit(Lines& lines, int r, const std::vector<SetValues>& mem,
                            int16_t cycles) {
  if (mem.empty()) return false;
  Lines added;
  for (const auto& v : mem) {
    if (v.reps == 0 && v.dist == 0) {
      WkLine note = NoteLine(OrBlank(v.desc));
      note.set_interval = v.interval;
      added.push_back(note);
    } else {
      added.push_back(FromValues(v));
    }
  }
  const int at = At(lines, r);
  if (JoinsCircuitAt(lines, r)) {
    InsertIntoCircuit(lines, at, added, lines[at].circuit_reps);
  } else {
    lines.insert(lines.begin() + at, added.begin(), added.end());
    Restitch(lines, at, at + static_cast<int>(added.size()) - 1, cycles);
  }
  Renumber(lines);
  return true;
}

bool SetRepsAndInterval(Lines& lines, int r, int32_t reps, int32_t interval) {
  if (r < 1 || r > Count(lines)) return false;
  lines[r - 1].set_reps = reps;
  lines[r - 1].set_interval = interval;
  return true;
}

std::optional<std::pair<int, int>> CircuitRows(const Lines& lines, int r) {
  if (r < 1 || r > Count(lines) || lines[r - 1].wk_type != "C") return std::nullopt;
  const auto [first, last] = Range(lines, r - 1);
  return std::make_pair(first + 1, last + 1);
}

}  // namespace kvlr
