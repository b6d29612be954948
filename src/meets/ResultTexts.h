#pragma once
// The words of the result screens (results browser, results by name, splits, relay legs,
// comments), shared by the screens, the command line and the tests.

#include <string_view>

namespace kvlr {

// Results by name.
inline constexpr std::string_view kUseBrowserToDelete =
    "Please use the Results Browser to Delete a Meet Result.";
inline constexpr std::string_view kMustBeInTimeColumn =
    "You must be in a Time column to show splits.";
inline constexpr std::string_view kNoRelayEventsYet =
    "No relay events have been setup for this meet yet.\rFrom the Meet Form select Events to "
    "add Relay Events";

// Results browser.
inline constexpr std::string_view kBrowserTitle = "Individual Results Browser";
inline constexpr std::string_view kRemoveResultTitle = "Remove Result";
inline constexpr std::string_view kShowNonLeadLegs = "Show Non-Lead Relay Legs";
inline constexpr std::string_view kShowGoals = "Show Goals";
inline constexpr std::string_view kUseSinceDate = "Use Since Date";
inline constexpr std::string_view kFastest = "Fastest";
inline constexpr std::string_view kChronological = "Chronological";
inline constexpr std::string_view kShowConversion = "Show Conversion";
inline constexpr std::string_view kShowStandards = "Show Standards";
inline constexpr std::string_view kStandardsCurrentAge = "Show Standards based on Current age";
inline constexpr std::string_view kLastEnteredFirst = "Last Entered First";
inline constexpr std::string_view kOldestFirst = "(oldest first)";
inline constexpr std::string_view kNewestFirst = "(newest first)";

// Splits.
inline constexpr std::string_view kSaveSplitChanges = "Do you want to save the changes you made?";
inline constexpr std::string_view kSaveSplitChangesTitle = "Save Split Changes ?";

// Relay legs.
inline constexpr std::string_view kRelayLegsTitle = "Save Relay Split as Individual Result";
inline constexpr std::string_view kSelectLeadOff = "Please select Leadoff or Non-Leadoff";
inline constexpr std::string_view kSelectRound = "Please select Final or Prelim";
inline constexpr std::string_view kSelectStroke = "Please select a stroke";
inline constexpr std::string_view kEnterValidTime = "Please enter a valid time";
inline constexpr std::string_view kRelayLegExists =
    "There is already a Relay leg entered for this event.Do you want to overwrite it?";
inline constexpr std::string_view kErrorSavingResult = "Error trying to save result.";
inline constexpr std::string_view kInvalidTimeCharacters = "Invalid characters in time.";

}  // namespace kvlr
