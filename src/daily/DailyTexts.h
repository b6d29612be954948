#pragma once
// The words of the calendar, health and journal screens, shared by screens, commands and tests.

#include <string_view>

namespace kvlr::dailytext {

// Calendar.
inline constexpr std::string_view kAllEvents = "All Events";
inline constexpr std::string_view kMulti = "Multi";
inline constexpr std::string_view kDefaultStart = "5:00 AM";
inline constexpr std::string_view kDefaultEnd = "09:00 PM";
inline constexpr std::string_view kDayFirst = "5:00 AM";
inline constexpr std::string_view kDayLast = "10:00 PM";
inline constexpr std::string_view kEndNotAfterStart = "End Time is less or equal to Start Time.";
inline constexpr std::string_view kAdjustingHour = "Adjusting to 1 hour difference.";
inline constexpr std::string_view kAddTitle = "Add New Event";
inline constexpr std::string_view kAlreadyA = "There is already a ";
inline constexpr std::string_view kRecordFor = " record for ";
inline constexpr std::string_view kAt = " at ";
inline constexpr std::string_view kIfYouAdd = "If you add a new ";
inline constexpr std::string_view kIncremented =
    ", the start and end times will be incremented by 15 minutes.";
inline constexpr std::string_view kAdjustThose = "You should adjust those times to what you need.";
inline constexpr std::string_view kDoYouWish = "Do you wish to add a new ";
inline constexpr std::string_view kRecordQ = " record?";
inline constexpr std::string_view kYesAdd = "Yes = Add new ";
inline constexpr std::string_view kNoEdit = "No = Edit existing record";
inline constexpr std::string_view kCancelNothing = "Cancel = do nothing";
inline constexpr std::string_view kFirstStart = "8:00am";
inline constexpr std::string_view kFirstEnd = "8:15am";
inline constexpr std::string_view kInvalidStart = "Invalid Start Time";
inline constexpr std::string_view kInvalidEnd = "Invalid End Time";
inline constexpr std::string_view kTwoEvents =
    "You can't have two events of the same type start at the same time on the same day.";
inline constexpr std::string_view kEndBeforeStart =
    "Error: End Time can not be earlier than Start Time";
inline constexpr std::string_view kNotFound = "Didn't find selected event!";
inline constexpr std::string_view kSelectTask = "Please select a task to modify";
inline constexpr std::string_view kEventWord = "Event: ";
inline constexpr std::string_view kOnWord = " on ";
inline constexpr std::string_view kStartingAt = " starting at ";
inline constexpr std::string_view kCommentWord = "Comment: ";
inline constexpr std::string_view kSureRemove = "Are you sure you wish to remove this event?";
inline constexpr std::string_view kDeleteEventTitle = "Delete event";
inline constexpr std::string_view kRemoveResultsFrom = "Warning: This will remove all the results from:";
inline constexpr std::string_view kStillDeleteMeet = "Do you still wish to delete this meet?";
inline constexpr std::string_view kDeleteMeetTitle = "Delete Meet";
inline constexpr std::string_view kMeetMissing = "Error finding Meet Record";
inline constexpr std::string_view kCalendarFor = "Calendar for ";
inline constexpr std::string_view kPrint = "Print";
inline constexpr std::string_view kExitForm = "Exit this Form";

// Health.
inline constexpr std::string_view kHealthRecord = "Health Record";
inline constexpr std::string_view kHeartRate = "Heart Rate";
inline constexpr std::string_view kSleep = "Sleep";
inline constexpr std::string_view kWeight = "Weight";
inline constexpr std::string_view kWellness = "Wellness";
inline constexpr std::string_view kNotReversible = "Warning: This operation is not reversible.";
inline constexpr std::string_view kStillDeleteHealth =
    "Do you still want to delete the Health record for:";
inline constexpr std::string_view kDateWord = "Date: ";
inline constexpr std::string_view kStartTimeWord = "Start Time:";
inline constexpr std::string_view kHealthReports = "Health Reports";
inline constexpr std::string_view kHealthTitle = "Health";
inline constexpr std::string_view kByAscending = " (by  Date Ascending)";
inline constexpr std::string_view kByDescending = " (by Dates Descending)";
inline constexpr std::string_view kSincePart = "  Since: ";
inline constexpr std::string_view kUntilPart = "  Until: ";
inline constexpr std::string_view kNoHealthRecords =
    "No Health Records for current selection criteria.";
// The misnamed table of the health report's since filter and ascending order.
inline constexpr std::string_view kMisnamedHealthTable = "tbhHealth";

// Journal.
inline constexpr std::string_view kJournalFrame = "Add/Edit Journal Entry";
inline constexpr std::string_view kNeedSubject = "You must enter a subject for this Journal Entry";
inline constexpr std::string_view kNeedDate = "You must select a date for this Journal Entry";
inline constexpr std::string_view kAddJournalFirst =
    "You must first add a Jornal Entry before you can use the Edit command.";
inline constexpr std::string_view kRemoveJournalWarning =
    "Warning: This action will remove the selected Jounal Entry";
inline constexpr std::string_view kStillRemove = "Do you still want to remove: ";
inline constexpr std::string_view kRemoveJournalTitle = "Remove Journal Entry";

}  // namespace kvlr::dailytext
