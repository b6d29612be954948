#pragma once
// The words of the meet list, the meet card, meet types and meet events, shared by the
// logic, the screens and their tests.

#include <string_view>

namespace kvlr::meettxt {

inline constexpr std::string_view kCrLf = "\r\n";

// Meet list.
inline constexpr std::string_view kNoMeetsGoToAdd =
    "Since there are no meets setup yet, KVL-R will take you directly to the Meet Add Form.";
inline constexpr std::string_view kNoMeetsCancel =
    "You can simply click Cancel if you do not wish to add a Meet at this time.";
inline constexpr std::string_view kNoMeetsYet = "No meets have been setup yet.";
inline constexpr std::string_view kSortName = "Meet Name";
inline constexpr std::string_view kSortCourse = "Course (newest first)";
inline constexpr std::string_view kSortStart = "Start Date ";
inline constexpr std::string_view kNewestFirst = "(newest first)";
inline constexpr std::string_view kOldestFirst = "(oldest first)";

// Going to entries and results.
inline constexpr std::string_view kNoEventsForMeet = "No events have been setup yet for this meet.";
inline constexpr std::string_view kNeedEventForEntries =
    "You must have at least one event defined before you can do entries.";
inline constexpr std::string_view kNeedEventForResults =
    "You must have at least one event defined before you can enter Results.";
inline constexpr std::string_view kSelectEventsFromMenu =
    "Select Events from the menu to add Events for this meet.";
inline constexpr std::string_view kNoResultEvents =
    "No Result events have been setup yet for this meet.";
inline constexpr std::string_view kCopyEntryEventsOver =
    "There are already events setup for Entries.  Do you want to copy them over?";
inline constexpr std::string_view kNoSendsToEvents =
    "Selecting 'No' will send you to the Events form to add events.";

// Meet card.
inline constexpr std::string_view kMeetNameRequired = "Meet Name is required.";
inline constexpr std::string_view kSelectCourse = "Please select a course";
inline constexpr std::string_view kStartRequired = "Start Date is required.";
inline constexpr std::string_view kInvalidSince = "Invalid Since Date";
inline constexpr std::string_view kDuplicateMeet = "There is already a meet named '";
inline constexpr std::string_view kDuplicateStart = " with a start date of ";
inline constexpr std::string_view kNoDuplicates =
    "Duplicates are not allowed so please change the meet name or start date.";
inline constexpr std::string_view kCourseChanged = "You have changed this meet's Course.";
inline constexpr std::string_view kCourseChangedDistances =
    "This can result is some events having incorrect distances.";
inline constexpr std::string_view kCourseChangedExample =
    "  For example, a 500 Yard result would become 500 Meters.";
inline constexpr std::string_view kCourseChangedQuestion =
    "Saving this change will edit all the results already on file for this meet.\rDo you "
    "still want to save this change?";
inline constexpr std::string_view kMeetRecordMissing = "Error trying to find Meet record.";

// The course list of the card: value, then what it means.
inline constexpr std::string_view kCourseChoices[] = {
    "Y;convert all best times to Yards",     "YO;use best Yard times only",
    "S;convert all best times to SC Meters", "SO;use best SC Meter times only",
    "L;convert all best times to LC Meters", "LO;use best LC Meter times only"};

// Removing and merging meets.
inline constexpr std::string_view kRemoveMeetTitle = "Remove Meet";
inline constexpr std::string_view kRemoveMeetWarning =
    "Warning: This action will remove the selected Meet";
inline constexpr std::string_view kRemoveMeetAll = " and ALL of the results and entries.";
inline constexpr std::string_view kRemoveMeetQuestion = "Do you still want to remove: ";
inline constexpr std::string_view kMergeDifferentCourses =
    "You can't merge meets for different courses.";
inline constexpr std::string_view kMergeTooFarApart =
    "You can't merge meets that are more than one day apart.";
inline constexpr std::string_view kMergeNotReversible =
    "Operation is not reversible!  Backup is recommended first.";
inline constexpr std::string_view kMergeQuestion =
    "Merge all Meet info, events, results and entries for : ";
inline constexpr std::string_view kMergeInto = "into : ";
inline constexpr std::string_view kMergeFailed = "Merge Failed.";
inline constexpr std::string_view kAllMeets = "All Meets";
inline constexpr std::string_view kNoMeetsAvailable = "No Meets Available";

// Meet types.
inline constexpr std::string_view kMeetTypeHelp =
    "These 3 character codes can be used for filtering and for designating Meets of similar "
    "type.\r\nExamples: USS, Summer League, High School, Varsity, JV";
inline constexpr std::string_view kMeetTypeRequired = "You must enter a Meet Type";
inline constexpr std::string_view kDescriptionRequired = "You must enter a Description";
inline constexpr std::string_view kMeetTypeExists = "That Meet Type already exists.";
inline constexpr std::string_view kChangedMeetTypeTitle = "Changed Meet Type";
inline constexpr std::string_view kRemoveMeetTypeTitle = "Remove Meet Type";

// Event list.
inline constexpr std::string_view kResultsTitle = " [Results]";
inline constexpr std::string_view kEntriesTitle = " [Entries]";
inline constexpr std::string_view kNoResultEventsDefined =
    "There are no Result Events defined for this Meet.";
inline constexpr std::string_view kCopyEntryEventsQuestion =
    "Do you want to copy the Entry Events for use with Results?";
inline constexpr std::string_view kEventHasResult =
    "This event has at least one Result linked to it so it can't be changed.";
inline constexpr std::string_view kDivingOnly =
    "Changes are allowed only for Diving Events to change between 6 and 11 dives.";
inline constexpr std::string_view kRemoveEventTitle = "Remove Event";
inline constexpr std::string_view kMenFirst = "(Men First)";
inline constexpr std::string_view kWomenLast = "(Women Last)";

// Event card.
inline constexpr std::string_view kEventNumberPositive = "Event Number must be greater than 0";
inline constexpr std::string_view kSetAgeRange = "Please set the age range.";
inline constexpr std::string_view kSelectDistance = "Please select a Distance for the event.";
inline constexpr std::string_view kSelectStroke = "Please select a Stroke for the event.";
inline constexpr std::string_view kSelectSex = "Please select a sex for the event.";
inline constexpr std::string_view kHighAboveLow = "High Age must be greater than Low Age.";
inline constexpr std::string_view kEventNumberRequired = "Event number required !";
inline constexpr std::string_view kInvalidEventNumber = "Invalid event number !";
inline constexpr std::string_view kEventNumberShape = "3 digits and one alpha character permitted.";
inline constexpr std::string_view kEventNumberRange = "Event number range is 1 to 999 !";
inline constexpr std::string_view kBadEventNumber = "Bad Event Number";
inline constexpr std::string_view kEventNumberDigits = "0123456789";
inline constexpr std::string_view kEventNumberLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
inline constexpr std::string_view kRemoveEntriesQuestion =
    "This will remove any entries you have for this event.Do you still want to continue?";
inline constexpr std::string_view kNewEventAdded = "New Event Added";
inline constexpr std::string_view kEventUpdated = "Event Updated";
inline constexpr std::string_view kSaveBeforeMoving =
    "You need to save your changes before changing to a new event.";

// Copying event lists.
inline constexpr std::string_view kCopyToItself =
    "You are trying to copy events from the current meet to itself.";
inline constexpr std::string_view kMeetHasEntries =
    "This meet already has entries.  You can't copy new events.";
inline constexpr std::string_view kMeetHasResults =
    "This meet already has results.  You can't copy new events.";
inline constexpr std::string_view kOverwriteEntryEventsTitle = "Overwrite Exiting Entry Events";
inline constexpr std::string_view kOverwriteEventsTitle = "Overwrite Exiting Events";
inline constexpr std::string_view kNoEntryEventsFound =
    "No Entry Events found.  Will try to copy Result Events.";
inline constexpr std::string_view kSourceHasNoEvents =
    "You selected meet does not have any Events defined.";

// Default events.
inline constexpr std::string_view kNoEventsForSelectedMeet =
    "No events have been setup for the selected Meet.";
inline constexpr std::string_view kLoadDefaultEvents =
    "Do you want KVL-R to automatically load the default events ?";

}  // namespace kvlr::meettxt
