#pragma once
// Which swims of a file belong to the family. A file holds a whole meet; a line is taken
// only when its swimmer's name matches the current swimmer or, with "all family", any
// swimmer of the database. Names are compared in capitals and first names by substring,
// as the meet programs abbreviate and decorate them.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvlr {

struct FamilyMember {  // a row of FamilyList
  std::string first;   // upper-cased
  std::string pref;    // upper-cased, may be empty
  int32_t athlete = 0;
};

struct CurrentSwimmer {
  int32_t athlete = 0;
  std::string first, last, sex;  // as the store has them; compared in capitals
};

class SwimmerMatcher {
 public:
  // `family` is the list in the order "select Athlete,first,Pref from athlete order by
  // first"; it is only walked when `all_family` is on and holds at least two rows.
  SwimmerMatcher(CurrentSwimmer current, std::vector<FamilyMember> family, bool all_family);

  // A swimmer field "LAST, FIRST M" (any case) and the file's sex for the swimmer. True
  // when it is one of the family; CurrentAthlete() is then the swimmer it belongs to.
  bool MatchNameField(std::string_view name_field, std::string_view sex);
  // The same with the parts already apart (NV3's D1): `first_part` is searched for the
  // first (or preferred) name.
  bool Match(std::string_view last, std::string_view first_part, std::string_view sex);

  // A cheap first test of a swimmer field: does its last name (before the comma) equal the
  // family's? Lines that fail it can be passed over without reading them.
  bool SameLastName(std::string_view name_field) const;

  bool FoundSwimmer() const { return found_; }
  void ClearFound() { found_ = false; }
  // The swimmer the last matching line belongs to; the current swimmer before any.
  int32_t CurrentAthlete() const { return current_athlete_; }
  const CurrentSwimmer& Current() const { return current_; }
  // True once any line matched (for "This file did not contain any results for ...").
  bool AnyMatch() const { return any_match_; }
  // Others of the family's last name, "First Last", once each in the order seen.
  const std::vector<std::string>& OthersFound() const { return others_; }

 private:
  CurrentSwimmer current_;
  std::vector<FamilyMember> family_;
  bool all_family_;
  std::string last_upper_, first_upper_, sex_upper_;
  bool found_ = false;
  bool any_match_ = false;
  int32_t current_athlete_;
  std::vector<std::string> others_;
};

// The words of the "no results" boxes.
inline constexpr std::string_view kNoResultsFor = "This file did not contain any results for ";
inline constexpr std::string_view kRunImportReport =
    "Please run the Import/Export Files Report to determine if this swimmer's name was "
    "spelled correctly by the meet host.";
inline constexpr std::string_view kOthersWithLastName =
    "The file did contain the following athlete(s) with the last name of ";

// Both boxes, as one text each: the first always, the second only when others were seen
// (empty otherwise).
std::string NoResultsText(const SwimmerMatcher& matcher);
std::string OthersFoundText(const SwimmerMatcher& matcher);

}  // namespace kvlr
