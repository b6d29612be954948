#pragma once
// The layout version of a user database and the upgrades it calls for.

#include <string>
#include <string_view>

#include "core/AppState.h"

namespace kvlr {

// Brings an opened database to this release's layout version.
void CheckDbVersion(AppState& state);

// Sets OPTIONS.DbVersion to this release's version; returns the old value ("" for none).
std::string ReadDbVersion(AppState& state);

// True when version `a` is older than `b`, compared letter by letter after the number.
bool VersionIsOlder(std::string_view a, std::string_view b);

// Relay legs ('L', 'N') written with NT 0 get NT Null, as the relay legs screen writes
// them, so that ranking numbers them apart from individual swims. Changes no other row and
// nothing on a second run; stored ranks are left for the next whole ranking. Returns the
// rows changed. Store failures throw.
int ClearRelayLegNt(AppState& state);

// Adds the 200 fly events (numbers 37 and 38) to the yards and short-course goal meets that
// lack them.
void AddGoalFlyEvents(AppState& state);

}  // namespace kvlr
