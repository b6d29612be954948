#pragma once
// The rows of the athlete list (`frmAthlete`) and the rule on how many swimmers a database
// may hold.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

inline constexpr int kMaxAthletes = 4;

// The list's columns, in order.
enum class ListColumn { kActive, kLast, kFirst, kInitial, kSex, kBirth, kAge, kPref, kId };
inline constexpr std::array<std::string_view, 9> kListHeaders = {
    "Active", "Last Name", "First Name", "Mid", "Gen", "Birth", "Age", "Preferred Name", "ID"};

struct AthleteListRow {
  int32_t athlete = 0;
  bool active = true;  // the stored Inactive, inverted
  std::string last;
  std::string first;
  std::string initial;
  std::string sex;
  std::optional<Date> birth;  // none when not stored (or stored as the no-date value)
  std::string pref;
  std::string id_no;
};

// The swimmers (Athlete <> 0) ordered by `sort` (by default Last, First); a descending sort
// turns the order of that column round. Age sorts by birth date the other way round; without
// a birth date a swimmer comes last. Active ascending puts active swimmers first.
// Store failures throw SQLite::Exception.
std::vector<AthleteListRow> ListAthletes(SQLite::Database& db,
                                         std::optional<ListColumn> sort = std::nullopt,
                                         bool descending = false);

// Rows in Athlete.
int AthleteRowCount(SQLite::Database& db);

// The Add command's rule, before any card opens: false, with the words told, when the table
// already holds kMaxAthletes rows or more.
bool MayAddAthlete(AppState& state);

// Sets Inactive of one swimmer from the list's checkbox.
void SetAthleteActive(SQLite::Database& db, int32_t athlete, bool active);

// The age shown for a row: AgeAtDate of the birth date and `today`; nullopt without a birth
// date.
std::optional<int> ListAge(const AthleteListRow& row, const Date& today);

// "Last, First Initial" as the questions of the list name a swimmer.
std::string ListName(const AthleteListRow& row);

}  // namespace kvlr
