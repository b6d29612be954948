#pragma once
// The words of the entry screen and of the favourite filters, shared by the logic, the
// screens and their tests. The writers' own words stay in meets/EntryWriter.h.

#include <string_view>

namespace kvlr::entrytxt {

// Entries by name.
inline constexpr std::string_view kEntriesTitle = "Entries by Name";
inline constexpr std::string_view kOpeningEntries = "Opening Entries by Name...";
inline constexpr std::string_view kNeedEventForEntries =
    "You must have at least one event defined before you can do entries.";
inline constexpr std::string_view kColEvent = "Event";
inline constexpr std::string_view kColEntered = "Entered";
inline constexpr std::string_view kColBestTime = "Best Time";
inline constexpr std::string_view kColCustomTime = "Custom Time";
inline constexpr std::string_view kColExhib = "Exhib";
inline constexpr std::string_view kNoTime = "NT";
inline constexpr std::string_view kTimeCalculator = "Time Calculator";
inline constexpr std::string_view kEntriesHelp =
    "Choose a swimmer on the left to see the events of this meet open to the swimmer's age "
    "and sex. Tick \"Entered\" to enter an event with the time under \"Best Time\": the "
    "swimmer's best, converted to the meet's course unless the meet is of one course only. "
    "Type a time in \"Custom Time\" to enter with another one, or NT for none, and tick "
    "\"Exhib\" for an exhibition swim. Every change is kept at once.";

// Favourite filters.
inline constexpr std::string_view kFavoritesTitle = "Favorite Defaults";
inline constexpr std::string_view kColName = "Name";
inline constexpr std::string_view kColMeetType = "Meet Type";
inline constexpr std::string_view kColCourse = "Course";
inline constexpr std::string_view kAddEditTitle = "Add / Edit Favorite";
inline constexpr std::string_view kFavoriteNameLabel = "Favorite Name:";
inline constexpr std::string_view kMeetTypeLabel = "Meet Type:";
inline constexpr std::string_view kCourseLabel = "Course:";
inline constexpr std::string_view kNone = "None";
inline constexpr std::string_view kNameRequired = "You must enter a name for this Favorite";
inline constexpr std::string_view kNoQuoteMarks = "No quote marks are allowed in the Favorite Name";
inline constexpr std::string_view kNameExists =
    "This Filter name already exists.  Please choose another.";
inline constexpr std::string_view kRemoveTitle = "Remove Favorite";
inline constexpr std::string_view kRemoveWarning =
    "Warning: This action will remove the selected favorite.";
inline constexpr std::string_view kRemoveQuestion = "Do you still want to remove it?";
inline constexpr std::string_view kNoDefaultSet = "You have not set a Default Favorite Filter.";
inline constexpr std::string_view kNoDefaultHow =
    "To set the Default Filter, select a Filter from the list and click on the Heart";
inline constexpr std::string_view kNoDefaultWhere = "at the top of the form.";
inline constexpr std::string_view kSetDefaultQuestion =
    "Do you wish to set a Favorite Default Filter before leaving ? ";
inline constexpr std::string_view kFavoritesHelp =
    "A Favorite is a named pair of a meet type and a course. The Default Favorite gives the "
    "meet type and course that the meet, result and report screens start with. Select a "
    "Favorite and click on the Heart to make it the Default; Clear Default lets those "
    "screens start with all meet types and courses.";

// The joints of texts shown as one box: each part on its own line.
inline constexpr std::string_view kLineBreak = "\r\n";

}  // namespace kvlr::entrytxt
