#pragma once
// The built-in individual events of a course, loaded into a meet that has none.

#include <cstdint>
#include <vector>

#include "core/AppState.h"
#include "meets/MeetEvents.h"

namespace kvlr {

struct DefaultEvent {
  int16_t distance = 0;
  int16_t stroke = 0;
};

// The standard individual events of a course letter ('Y', 'S', 'L'; case ignored), by
// stroke then distance; empty for other letters.
const std::vector<DefaultEvent>& DefaultEvents(char course);

// Open age group of default events.
inline constexpr int16_t kDefaultEventLoHi = 99;

// True when the meet's list has an individual event. Store failures throw.
bool HasIndividualEvents(SQLite::Database& db, EventList list, int32_t meet);

// Adds the default events of the meet's course to its list: each makes an "M" and then an
// "F" row, open age, I_R "I", numbered on by one from the highest number in the list. One
// transaction; the number of rows added, 0 when the meet has no course or is missing.
// Store failures throw.
int LoadDefaultEvents(AppState& state, EventList list, int32_t meet);

// A meet opened for a purpose that needs individual events: with none, asks and on Yes
// loads the defaults. True when the meet has individual events afterwards. Failures are
// reported (".LoadDefaultEvents") and give false.
bool OfferDefaultEvents(AppState& state, EventList list, int32_t meet);

}  // namespace kvlr
