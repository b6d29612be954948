#pragma once
// What the export writers are given: plain rows read from the store. Texts are UTF-8 as
// the store keeps them; the writers turn them into the files' 8-bit columns.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/Date.h"

namespace kvlr {

struct ExportTeam {
  std::string code;  // TCode, up to 5
  std::string name;  // TName
  std::string lsc;   // "" when none
};

struct ExportMeet {
  int32_t meet = 0;
  std::string name, location, course, type;  // course as stored ("Y", "YO", ...)
  std::optional<Date> start, end, age_up;    // nullopt: not a date
};

// A swimmer with the AthInfo row (field name -> value; empty when there is no row).
struct ExportSwimmer {
  int32_t athlete = 0;
  std::string last, first, initial, pref, sex, id_no, citizen;
  std::optional<Date> birth;
  int age = 0;  // the Age field
  std::vector<std::pair<std::string, std::string>> info;

  // An AthInfo field by name (any case); "" when absent.
  std::string Info(std::string_view field) const;
};

// One swim: a result, or an entry (then f_p is "", score the seed in `course`).
struct ExportSwim {
  int32_t key = 0;  // RESULT or Entry
  int32_t athlete = 0;
  int32_t meet = 0;
  std::string i_r = "I";
  std::string f_p;
  int32_t score = 0;
  int nt = 0;
  std::string course;  // "Y", "S", "L"
  std::string ex;      // "X" for an exhibition swim
  int place = 0;
  int age = 0;  // Result.Age; 0 when not known
  int distance = 0;
  int stroke = 0;
  int mtev = 0;
  std::string mtevx;
  int lo_hi = 0;
  std::string event_sex;
  std::vector<std::pair<int, int32_t>> splits;  // SplitIndex (25s), Split; by index
};

}  // namespace kvlr
