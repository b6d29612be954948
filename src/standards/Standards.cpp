#include "standards/Standards.h"

#include <algorithm>
#include <memory>
#include <tuple>

#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include "core/ErrorHandler.h"
#include "core/TextClean.h"
#include "core/VbRules.h"
#include "standards/StandardTexts.h"
#include "store/TableBuilder.h"
#include "store/UserTables.h"

namespace kvlr {
namespace {

// A line as the lookup reads it: the values at ordinals 0 to 74 (NULL as 0) and the key.
struct LookupLine {
  std::array<int32_t, kLimitOrdinalEnd> ordinal{};
  bool ages_null = false;
  int16_t distance = 0;
  int16_t stroke = 0;
  std::string sex;  // upper case, as the NOCASE index compares
  std::string i_r;
};

using LookupKey = std::tuple<int16_t, int16_t, std::string_view, std::string_view>;

LookupKey KeyOf(const LookupLine& line) {
  return {line.distance, line.stroke, line.sex, line.i_r};
}

std::string Quoted(std::string_view name) {
  std::string out = "\"";
  for (char c : name) {
    out += c;
    if (c == '"') out += '"';
  }
  return out + "\"";
}

// Lines in the order of the index "Hi_Age": the key, then Hi_Age, then Lo_Age descending.
// Lines without distance or stroke can never be found and are left out.
std::vector<LookupLine> ReadLookupLines(SQLite::Statement& query) {
  std::vector<LookupLine> lines;
  while (query.executeStep()) {
    if (query.getColumn(75).isNull() || query.getColumn(76).isNull()) continue;
    LookupLine line;
    for (int i = 0; i < kLimitOrdinalEnd; ++i) {
      const SQLite::Column c = query.getColumn(i);
      line.ordinal[static_cast<size_t>(i)] = c.isNull() ? 0 : c.getInt();
    }
    line.ages_null = query.getColumn(1).isNull() || query.getColumn(2).isNull();
    line.distance = static_cast<int16_t>(query.getColumn(75).getInt());
    line.stroke = static_cast<int16_t>(query.getColumn(76).getInt());
    line.sex = UCase(query.getColumn(77).getString());
    line.i_r = UCase(query.getColumn(78).getString());
    lines.push_back(std::move(line));
  }
  // SQLite's NOCASE order folds to lower case; the lookup compares upper case.
  std::stable_sort(lines.begin(), lines.end(),
                   [](const LookupLine& a, const LookupLine& b) { return KeyOf(a) < KeyOf(b); });
  return lines;
}

constexpr const char* kIndexOrder = " ORDER BY Distance, Stroke, Sex, I_R, Hi_Age, Lo_Age DESC";

// The in-memory copy of the opened standard.
struct StandardCopy {
  sqlite3* handle = nullptr;  // the connection it was read from
  std::string file;
  long long changes = -1;  // sqlite3_total_changes when read
  std::string table;       // "" when no standard is open
  std::vector<LookupLine> lines;

  void Clear() {
    handle = nullptr;
    file.clear();
    changes = -1;
    table.clear();
    lines.clear();
  }

  void Read(SQLite::Database& db) {
    handle = db.getHandle();
    file = db.getFilename();
    changes = sqlite3_total_changes(handle);
    lines.clear();
    if (table.empty() || !TableExists(db, table)) return;
    SQLite::Statement query(db, "SELECT * FROM " + Quoted(table) + kIndexOrder);
    lines = ReadLookupLines(query);
  }

  bool Fresh(SQLite::Database& db) const {
    return handle == db.getHandle() && changes == sqlite3_total_changes(handle) &&
           file == db.getFilename();
  }
};

void ReadStandardOption(AppState& state) {
  SQLite::Statement query(*state.gDb, "SELECT Standard FROM OPTIONS ORDER BY rowid LIMIT 1");
  state.gStandardName = query.executeStep() ? query.getColumn(0).getString() : std::string();
}

// The hook owns the copy, so the copy lives exactly as long as the state's hooks do.
struct StandardHook {
  std::shared_ptr<StandardCopy> copy = std::make_shared<StandardCopy>();
  void operator()(AppState& state) const {
    if (!state.gDb) return;
    ReadStandardOption(state);
    OpenCurrentStandard(state);
  }
};

StandardCopy* CopyOf(AppState& state) {
  auto* hook = state.hooks.load_standard.target<StandardHook>();
  return hook ? hook->copy.get() : nullptr;
}

void ClearDesignators(AppState& state) {
  for (auto& row : state.gDesignators) {
    for (auto& text : row) text.clear();
  }
}

// Steps 5 to 10 of the lookup over the lines of one key, in index order.
std::string Judge(const AppState& state, const LookupLine* first, const LookupLine* last,
                  int16_t& designator, int32_t score, int16_t age, std::string_view course) {
  const LookupLine* found = nullptr;
  for (const LookupLine* line = first; line != last; ++line) {
    if (!line->ages_null && line->ordinal[1] <= age && age <= line->ordinal[2]) {
      found = line;
      break;
    }
  }
  if (!found) {
    designator = 0;
    return "";
  }
  const char letter = course.empty() ? '\0' : course.front();
  const size_t fast_base = static_cast<size_t>(FastBase(letter));
  const size_t slow_base = static_cast<size_t>(SlowBase(letter));
  std::string text(stdtext::kBetweenLevels);
  bool no_slow = false;
  bool no_fast = false;
  for (size_t i = 0; i < kDesignatorCount; ++i) {
    const int32_t slow = found->ordinal[slow_base + i];
    const int32_t fast = found->ordinal[fast_base + i];
    if (slow == 0) no_slow = true;
    if (fast == 0) no_fast = true;
    if (!no_fast && score >= fast) text = state.gDesignators[0][i];
    if (!no_slow) {
      if (score <= slow) {
        if (no_fast || score >= fast) {
          designator = static_cast<int16_t>(i + 1);
          return state.gDesignators[0][i];
        }
        designator = 0;
        return "";
      }
      text = stdtext::kBetweenLevels;
      designator = 0;
    }
  }
  return text;
}

// Calls `judge(first, last)` with the lines of one key of the current standard, in index
// order; with no standard open, with no lines. Returns what `judge` returns.
template <typename Judge>
auto WithKeyLines(AppState& state, std::string_view sex, int16_t distance, int16_t stroke,
                  bool relay, Judge judge) {
  // A relay's Lo_Hi age would split into low and high ages, but the lookup tests the raw
  // value: kept so, since stored levels of relays depend on it.
  const std::string_view i_r = relay ? "R" : "I";
  const std::string upper_sex = UCase(sex);
  if (!state.gDb) return judge(nullptr, nullptr);
  SQLite::Database& db = *state.gDb;
  if (StandardCopy* copy = CopyOf(state)) {
    if (!copy->Fresh(db)) copy->Read(db);
    const LookupKey key{distance, stroke, upper_sex, i_r};
    const auto& lines = copy->lines;
    const auto low = std::lower_bound(
        lines.begin(), lines.end(), key,
        [](const LookupLine& line, const LookupKey& k) { return KeyOf(line) < k; });
    auto high = low;
    while (high != lines.end() && KeyOf(*high) == key) ++high;
    return judge(lines.data() + (low - lines.begin()), lines.data() + (high - lines.begin()));
  }
  const std::string table = StandardTableName(state.gStandardName);
  if (Trim(state.gStandardName).empty() || !TableExists(db, table)) return judge(nullptr, nullptr);
  SQLite::Statement query(db, "SELECT * FROM " + Quoted(table) +
                                  " WHERE Distance = ? AND Stroke = ? AND Sex = ? AND I_R = ?" +
                                  kIndexOrder);
  query.bind(1, distance);
  query.bind(2, stroke);
  query.bind(3, std::string(sex));
  query.bind(4, std::string(i_r));
  const auto lines = ReadLookupLines(query);
  return judge(lines.data(), lines.data() + lines.size());
}

std::string LookUp(AppState& state, int16_t& designator, int32_t score, std::string_view sex,
                   int16_t distance, int16_t stroke, int16_t age, std::string_view course,
                   bool relay) {
  return WithKeyLines(state, sex, distance, stroke, relay,
                      [&](const LookupLine* first, const LookupLine* last) {
                        return Judge(state, first, last, designator, score, age, course);
                      });
}

}  // namespace

void OpenCurrentStandard(AppState& state) {
  RunTrapped(state, stdtext::kOpenCurrentStandard, [&] {
    StandardCopy* copy = CopyOf(state);
    if (copy) copy->Clear();
    ClearDesignators(state);
    if (!state.gDb || Trim(state.gStandardName).empty()) return 0;
    SQLite::Database& db = *state.gDb;
    const std::string table = StandardTableName(state.gStandardName);
    if (!TableExists(db, table)) return 0;
    if (copy) {
      copy->table = table;
      copy->Read(db);
    }
    const auto def = ReadStandardDefinition(db, state.gStandardName);
    if (!def) return 0;
    for (size_t i = 0; i < kDesignatorCount; ++i) {
      if (def->designators[i].empty()) continue;
      state.gDesignators[0][i] = def->designators[i];
      state.gDesignators[1][i] = def->long_names[i];
    }
    state.gStandardYear = def->year;
    state.gStandardDescript = def->descript;
    return 0;
  });
}

std::string GetStandard(AppState& state, int16_t& designator, int32_t score, std::string_view sex,
                        int16_t distance, int16_t stroke, int16_t age, std::string_view course,
                        bool relay) {
  if (score == 0) return "";
  return RunTrapped(state, stdtext::kGetStandard, [&] {
    return LookUp(state, designator, score, sex, distance, stroke, age, course, relay);
  });
}

StandardCut NextStandardCut(AppState& state, int32_t score, std::string_view sex,
                            int16_t distance, int16_t stroke, int16_t age, char course) {
  return RunTrapped(state, stdtext::kGetStandard, [&] {
    return WithKeyLines(
        state, sex, distance, stroke, false, [&](const LookupLine* first, const LookupLine* last) {
          StandardCut cut;
          const LookupLine* line = first;
          while (line != last && (line->ages_null || age < line->ordinal[1] ||
                                  age > line->ordinal[2])) {
            ++line;
          }
          if (line == last) return cut;
          const size_t slow_base = static_cast<size_t>(SlowBase(course));
          const size_t fast_base = static_cast<size_t>(FastBase(course));
          for (size_t i = 0; i < kDesignatorCount; ++i) {
            if (state.gDesignators[0][i].empty()) continue;
            // A level is reached by swimming at or under its slow limit; a standard
            // without slow limits gives its fast limits as the cuts.
            int32_t limit = line->ordinal[slow_base + i];
            if (limit == 0) limit = line->ordinal[fast_base + i];
            if (limit <= 0 || (score > 0 && limit >= score)) continue;
            if (limit > cut.score) cut = {state.gDesignators[0][i], limit};
          }
          return cut;
        });
  });
}

bool MakeCurrentStandard(AppState& state, std::string_view name) {
  const bool stored = RunTrapped(state, stdtext::kMakeCurrent, [&] {
    SQLite::Statement update(*state.gDb, "UPDATE OPTIONS SET Standard = ?");
    update.bind(1, Trim(name));
    if (update.exec() == 0) {
      SQLite::Statement add(*state.gDb, "INSERT INTO OPTIONS (Standard) VALUES (?)");
      add.bind(1, Trim(name));
      add.exec();
    }
    return true;
  });
  if (!stored) return false;
  state.gStandardName = Trim(name);
  OpenCurrentStandard(state);
  return true;
}

void InstallStandardHooks(AppState& state) {
  state.hooks.load_standard = StandardHook{};
}

bool CreateStandardsTable(AppState& state, std::string_view table_name) {
  return RunTrapped(state, stdtext::kCreateStandardsTable, [&] {
    CreateTable(*state.gDb, StandardsTable(std::string(table_name)));
    return true;
  });
}

bool AddstandardDefinitionr(AppState& state, const StandardDefinition& def) {
  return RunTrapped(state, stdtext::kAddstandardDefinitionr, [&] {
    WriteStandardDefinition(*state.gDb, def);
    return true;
  });
}

StandardsCombo LoadStandardsCombo(AppState& state) {
  return RunTrapped(state, stdtext::kLoadStandardsCombo, [&] {
    StandardsCombo combo;
    for (const auto& def : ReadStandardDefinitions(*state.gDb)) {
      if (combo.selected < 0 && !state.gStandardName.empty() &&
          SameName(def.name, state.gStandardName)) {
        combo.selected = static_cast<int>(combo.lines.size());
      }
      combo.lines.push_back({def.name, def.year, def.descript});
    }
    return combo;
  });
}

}  // namespace kvlr
