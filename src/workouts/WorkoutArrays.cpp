#include "workouts/WorkoutArrays.h"

#include "core/VbRules.h"

namespace kvlr {
namespace {

std::string Col(SQLite::Statement& q, int i) {
  return q.getColumn(i).isNull() ? std::string() : q.getColumn(i).getString();
}

}  // namespace

EnergyArray gLoadWKEnergyArray(SQLite::Database& db) {
  EnergyArray e;
  e[0] = {" ", "Undefined ", 0};
  SQLite::Statement q(db, "SELECT energy_no, energy_abbr, energy_name, stress_index FROM Energy");
  while (q.executeStep()) {
    const int no = q.getColumn(0).getInt();
    if (no < 1 || no > 9) continue;
    e[static_cast<size_t>(no)] = {Col(q, 1), Col(q, 2),
                                  static_cast<int16_t>(q.getColumn(3).getInt())};
  }
  return e;
}

std::vector<WorkStrokeEntry> gLoadWKWorkStrokeArray(SQLite::Database& db) {
  std::vector<WorkStrokeEntry> out;
  for (int kind : {1, 2}) {
    SQLite::Statement q(db, kind == 1
                                ? "SELECT stroke_abbr, stroke_name FROM WorkCategory ORDER BY stroke_abbr"
                                : "SELECT stroke_abbr, stroke_name FROM StrokeCategory ORDER BY stroke_abbr");
    bool any = false;
    while (q.executeStep()) {
      out.push_back({Col(q, 0), Col(q, 1), kind});
      any = true;
    }
    if (!any) out.push_back(kind == 1 ? WorkStrokeEntry{"S", "Swim", 1} : WorkStrokeEntry{"FR", "Free", 2});
  }
  return out;
}

std::vector<std::string> gLoadWKSetDescArray(SQLite::Database& db) {
  std::vector<std::string> out;
  SQLite::Statement q(db, "SELECT set_name FROM SetDescriptions ORDER BY set_name");
  while (q.executeStep()) out.push_back(Col(q, 0));
  if (out.empty()) out.push_back("Freestyle");
  return out;
}

std::string WorkoutUserName(std::string_view pref, std::string_view first,
                            std::string_view initial, std::string_view last) {
  if (!Trim(pref).empty()) return Trim(pref);
  std::string name(first);
  if (!Trim(initial).empty()) name += " " + std::string(initial);
  name += " " + std::string(last);
  return Trim(name);
}

std::vector<WorkoutUser> LoadWorkoutUsers(SQLite::Database& db) {
  std::vector<WorkoutUser> out = {{"0", "Unknown"}};
  SQLite::Statement q(db, "SELECT Athlete, Pref, First, Initial, Last FROM Athlete ORDER BY Athlete");
  while (q.executeStep()) {
    out.push_back({std::to_string(q.getColumn(0).getInt()),
                   WorkoutUserName(Col(q, 1), Col(q, 2), Col(q, 3), Col(q, 4))});
  }
  return out;
}

std::vector<WorkoutUser> WorkoutUserSelector(const std::vector<WorkoutUser>& users) {
  std::vector<WorkoutUser> out = {{"---", "Generic"}};
  for (size_t i = 1; i < users.size(); ++i) out.push_back(users[i]);
  return out;
}

std::string UserNameOf(const std::vector<WorkoutUser>& users, std::string_view code) {
  if (Trim(code) == "---") return "Generic";
  for (const auto& u : users) {
    if (u.code == Trim(code)) return u.name;
  }
  return {};
}

std::string EnergyName(const EnergyArray& energy, std::string_view abbr) {
  for (size_t i = 1; i < energy.size(); ++i) {
    if (energy[i].abbr == abbr) {
      return Trim(energy[i].name).empty() ? "Undefined" : energy[i].name;
    }
  }
  return "Undefined";
}

std::string WorkStrokeName(const std::vector<WorkStrokeEntry>& array, std::string_view abbr,
                           int kind) {
  for (const auto& e : array) {
    if (e.kind == kind && UCase(e.abbr) == UCase(abbr)) return e.name;
  }
  return "Undefined";
}

bool ValidWorkType(const std::vector<WorkStrokeEntry>& array, std::string_view work_type) {
  for (char ch : work_type) {
    if (ch == ' ') continue;
    if (WorkStrokeName(array, std::string(1, ch), 1) == "Undefined") return false;
  }
  return true;
}

}  // namespace kvlr
