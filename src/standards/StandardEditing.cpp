#include "standards/StandardEditing.h"

#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "standards/StandardTexts.h"
#include "standards/Standards.h"
#include "store/TableBuilder.h"
#include "store/UserTables.h"

namespace kvlr {

std::string CheckNewStandard(SQLite::Database& db, const StandardDefinition& def,
                             std::string_view copy_from) {
  const std::string name = Trim(def.name);
  if (name.empty() || StandardTableName(name).empty()) return std::string(stdtext::kNeedName);
  if (ReadStandardDefinition(db, name) || TableExists(db, StandardTableName(name))) {
    return name + std::string(stdtext::kAlreadyExists);
  }
  if (!copy_from.empty()) return "";
  if (def.designators[0].empty()) return std::string(stdtext::kNeedDesignator);
  for (int i = def.DesignatorsInUse(); i < kDesignatorCount; ++i) {
    if (!def.designators[static_cast<size_t>(i)].empty()) return std::string(stdtext::kNoSkipping);
  }
  return "";
}

bool SaveNewStandard(AppState& state, const StandardDefinition& def, std::string_view copy_from) {
  SQLite::Database& db = *state.gDb;
  const std::string message = CheckNewStandard(db, def, copy_from);
  if (!message.empty()) {
    state.io->Tell(message);
    return false;
  }
  StandardDefinition trimmed = def;
  trimmed.name = Trim(def.name);
  const std::string source(copy_from);
  if (!source.empty() && !state.io->AskYesNo("Copy " + source + " into " + trimmed.name)) {
    return false;
  }
  if (!source.empty() && !ReadStandardDefinition(db, source)) {
    state.io->Tell(stdtext::kCopyFromMissing);
    return false;
  }
  const bool made = RunTrapped(state, stdtext::kDesigDone, [&] {
    int copied = 0;
    {
      SQLite::Transaction transaction(db);
      CreateTable(db, StandardsTable(StandardTableName(trimmed.name)));
      WriteStandardDefinition(db, trimmed);
      if (!source.empty()) {
        const std::string problem = CopyDesignators(db, source, trimmed.name);
        if (!problem.empty()) throw std::runtime_error(problem);
        copied = CopyStandardLines(db, source, trimmed.name);
      }
      transaction.commit();
    }
    if (!source.empty()) {
      state.io->Tell(copied > 0 ? std::to_string(copied) + std::string(stdtext::kStandardsCopied)
                                : std::string(stdtext::kNothingToCopy));
    }
    return true;
  });
  // The first standard is the one results are judged against until the user picks another.
  if (made && Trim(state.gStandardName).empty()) MakeCurrentStandard(state, trimmed.name);
  return made;
}

const std::vector<AgeRangePreset>& AgeRangePresets() {
  static const std::vector<AgeRangePreset> presets = [] {
    std::vector<AgeRangePreset> rows(24);
    auto put = [&rows](int16_t lo, int16_t hi) {
      const int at = AgeGroupIndex(lo, hi);
      if (at == kOtherAgeRange || !rows[static_cast<size_t>(at)].text.empty()) return;
      rows[static_cast<size_t>(at)] = {lo == hi ? std::to_string(lo) : AgeRangeCaption(lo, hi), lo,
                                       hi, false};
    };
    for (auto [lo, hi] : std::initializer_list<std::pair<int16_t, int16_t>>{{0, 6},
                                                                            {0, 8},
                                                                            {0, 10},
                                                                            {15, 99},
                                                                            {0, 99},
                                                                            {7, 8},
                                                                            {9, 10},
                                                                            {11, 12},
                                                                            {13, 14},
                                                                            {15, 16},
                                                                            {17, 18},
                                                                            {15, 18}}) {
      put(lo, hi);
    }
    for (int16_t age = 8; age <= 18; ++age) put(age, age);
    rows[kOtherAgeRange] = {"Other", 0, 0, true};
    return rows;
  }();
  return presets;
}

std::string CheckStandardLine(SQLite::Database& db, std::string_view table,
                              const StanAddForm& form) {
  if (!form.lo_age || !form.hi_age) return std::string(stdtext::kSetAgeRange);
  if (form.distance <= 0) return std::string(stdtext::kSelectDistance);
  if (form.stroke <= 0) return std::string(stdtext::kSelectStroke);
  if (form.sex != "M" && form.sex != "F") return std::string(stdtext::kSelectSex);
  if (*form.hi_age < *form.lo_age) return std::string(stdtext::kHighAboveLow);
  StandardLine key;
  key.lo_age = *form.lo_age;
  key.hi_age = *form.hi_age;
  key.sex = form.sex;
  key.stroke = form.stroke;
  key.distance = form.distance;
  key.i_r = form.relay ? "R" : "I";
  if (StandardLineExists(db, table, key)) return std::string(stdtext::kLineExists);
  return "";
}

int32_t AddStandardLine(AppState& state, std::string_view table, const StanAddForm& form) {
  return RunTrapped(
      state, stdtext::kStanAddDone,
      [&]() -> int32_t {
        const std::string message = CheckStandardLine(*state.gDb, table, form);
        if (!message.empty()) {
          state.io->Tell(message);
          return 0;
        }
        StandardLine line;
        line.lo_age = *form.lo_age;
        line.hi_age = *form.hi_age;
        line.distance = form.distance;
        line.stroke = form.stroke;
        line.sex = form.sex;
        line.i_r = form.relay ? "R" : "I";
        return InsertStandardLine(*state.gDb, table, line);
      },
      int32_t{0});
}

std::string FilteredSexMessage(std::string_view sex_filter) {
  std::string word;
  if (sex_filter == "M") word = "Males";
  if (sex_filter == "F") word = "Females";
  if (word.empty()) return "";
  return std::string(stdtext::kFilteredSexStart) + word + std::string(stdtext::kFilteredSexMiddle) +
         word;
}

std::string_view GridCourseText(GridCourse course) {
  switch (course) {
    case GridCourse::kSCY:
      return "SCY";
    case GridCourse::kSCM:
      return "SCM";
    case GridCourse::kLCM:
      return "LCM";
    case GridCourse::kAll:
      return "All";
  }
  return "All";
}

std::vector<StanColumn> StanColumns(const StandardDefinition& def, GridCourse course) {
  std::vector<StanColumn> columns = {{"Gen", 77, false},     {"Low Age", 1, false},
                                     {"High Age", 2, false}, {"Distance", 75, false},
                                     {"Stroke", 76, false},  {"I/R", 78, false}};
  struct Shown {
    GridCourse course;
    char letter;
  };
  std::vector<Shown> shown;
  for (Shown s :
       {Shown{GridCourse::kSCY, 'Y'}, Shown{GridCourse::kSCM, 'S'}, Shown{GridCourse::kLCM, 'L'}}) {
    if (course == GridCourse::kAll || course == s.course) shown.push_back(s);
  }
  for (const Shown& s : shown) {
    const std::string tail =
        course == GridCourse::kAll ? " " + std::string(GridCourseText(s.course)) : "";
    for (int i = 0; i < kDesignatorCount; ++i) {
      const std::string& d = def.designators[static_cast<size_t>(i)];
      if (d.empty()) continue;
      columns.push_back({"Slower " + d + tail, FastBase(s.letter) + i, true});
      columns.push_back({"Faster " + d + tail, SlowBase(s.letter) + i, true});
    }
  }
  return columns;
}

StandardSort SortForHeading(int column, StandardSort current) {
  switch (column) {
    case 0:
      return StandardSort::kSex;
    case 1:
      return StandardSort::kLowAge;
    case 2:
      return StandardSort::kHighAge;
    case 3:
      return StandardSort::kDistance;
    case 4:
      return StandardSort::kStroke;
    case 5:
      return current == StandardSort::kRelaysFirst ? StandardSort::kRelaysLast
                                                   : StandardSort::kRelaysFirst;
    default:
      return current;
  }
}

int32_t LineLimit(const StandardLine& line, int ordinal) {
  switch (ordinal) {
    case 0:
      return line.std;
    case 1:
      return line.lo_age;
    case 2:
      return line.hi_age;
    case 75:
      return line.distance;
    case 76:
      return line.stroke;
    default:
      break;
  }
  if (ordinal >= 3 && ordinal < 39) return line.fast[static_cast<size_t>(ordinal - 3)];
  if (ordinal >= 39 && ordinal < 75) return line.slow[static_cast<size_t>(ordinal - 39)];
  return 0;
}

void SetLineLimit(StandardLine& line, int ordinal, int32_t score) {
  if (ordinal >= 3 && ordinal < 39) line.fast[static_cast<size_t>(ordinal - 3)] = score;
  if (ordinal >= 39 && ordinal < 75) line.slow[static_cast<size_t>(ordinal - 39)] = score;
}

std::string CellText(const StandardLine& line, const StanColumn& column) {
  if (column.time) {
    const int32_t score = LineLimit(line, column.ordinal);
    return score == 0 ? "" : FormatTime(score, false);
  }
  switch (column.ordinal) {
    case 77:
      return line.sex;
    case 78:
      return line.i_r;
    case 76:
      return StrokeText(line.stroke, line.i_r);
    default:
      return std::to_string(LineLimit(line, column.ordinal));
  }
}

std::optional<int32_t> ParseLimitText(std::string_view text) {
  const std::string trimmed = Trim(text);
  if (trimmed.empty()) return 0;
  bool digit = false;
  int colons = 0;
  int points = 0;
  for (char c : trimmed) {
    if (c >= '0' && c <= '9') {
      digit = true;
    } else if (c == ':') {
      if (points > 0) return std::nullopt;
      ++colons;
    } else if (c == '.') {
      ++points;
    } else {
      return std::nullopt;
    }
  }
  if (!digit || colons > 1 || points > 1) return std::nullopt;
  std::string normal = trimmed;
  return TimeTextToScore(normal);
}

std::string RemoveLineQuestion(const StandardLine& line) {
  return fmt::format("Remove Standard for:\r\nSex:{}\r\nLow Age:{}\r\nHigh Age: {}", line.sex,
                     line.lo_age, line.hi_age);
}

std::string RemoveStandardQuestion(std::string_view name) {
  return std::string(stdtext::kRemoveEntireWarning) +
         "\r\n\r\nAre you sure you want to delete the [" + std::string(name) + "] Time Standard ?";
}

}  // namespace kvlr
