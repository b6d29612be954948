#include "interchange/SwimmerMatch.h"

#include <algorithm>

#include "core/VbRules.h"

namespace kvlr {

SwimmerMatcher::SwimmerMatcher(CurrentSwimmer current, std::vector<FamilyMember> family,
                               bool all_family)
    : current_(std::move(current)),
      family_(std::move(family)),
      all_family_(all_family),
      last_upper_(UCase(Trim(current_.last))),
      first_upper_(UCase(Trim(current_.first))),
      sex_upper_(UCase(Trim(current_.sex))),
      current_athlete_(current_.athlete) {}

bool SwimmerMatcher::SameLastName(std::string_view name_field) const {
  std::string_view last = name_field.substr(0, name_field.find(','));
  while (!last.empty() && last.front() == ' ') last.remove_prefix(1);
  while (!last.empty() && last.back() == ' ') last.remove_suffix(1);
  if (last.size() != last_upper_.size()) return false;
  for (size_t i = 0; i < last.size(); ++i) {
    const char c = last[i] >= 'a' && last[i] <= 'z' ? static_cast<char>(last[i] - 32) : last[i];
    if (c != last_upper_[i]) return false;
  }
  return true;
}

bool SwimmerMatcher::MatchNameField(std::string_view name_field, std::string_view sex) {
  const std::string name = UCase(name_field);
  const size_t comma = name.find(',');
  if (comma == std::string::npos) return Match(name, "", sex);
  return Match(std::string_view(name).substr(0, comma), std::string_view(name).substr(comma + 1),
               sex);
}

bool SwimmerMatcher::Match(std::string_view last, std::string_view first_part,
                           std::string_view sex) {
  found_ = false;
  const std::string last_upper = UCase(Trim(last));
  if (last_upper != last_upper_) return false;  // not this family's line
  const std::string first = UCase(first_part);
  if (all_family_ && family_.size() >= 2) {
    for (const FamilyMember& member : family_) {
      const bool by_first = first.find(member.first) != std::string::npos;
      const bool by_pref = !member.pref.empty() && first.find(member.pref) != std::string::npos;
      if (by_first || by_pref) {
        current_athlete_ = member.athlete;
        found_ = true;
        any_match_ = true;
        return true;
      }
    }
  } else if (first.find(first_upper_) != std::string::npos && UCase(Trim(sex)) == sex_upper_) {
    current_athlete_ = current_.athlete;
    found_ = true;
    any_match_ = true;
    return true;
  }
  std::string other = Trim(first);  // already in capitals
  other += ' ';
  other += last_upper;
  if (std::find(others_.begin(), others_.end(), other) == others_.end()) {
    others_.push_back(std::move(other));
  }
  return false;
}

std::string NoResultsText(const SwimmerMatcher& matcher) {
  const CurrentSwimmer& s = matcher.Current();
  return std::string(kNoResultsFor) + Trim(s.first) + " " + Trim(s.last) + "\r\n" +
         std::string(kRunImportReport);
}

std::string OthersFoundText(const SwimmerMatcher& matcher) {
  if (matcher.OthersFound().empty()) return {};
  std::string text = std::string(kOthersWithLastName) + Trim(matcher.Current().last);
  for (const std::string& name : matcher.OthersFound()) text += "\r\n" + name;
  return text;
}

}  // namespace kvlr
