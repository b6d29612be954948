#pragma once
// Memorized reports: named report settings in CUSTOMRPTS of the user database, saved from a
// report screen (frmRptSaveCustom) and run, renamed or removed from the list (frmRptCustom).
// A row is the ReportRequest of its screen; swimmer and meet are not part of it, a run
// takes them from the caller. Store failures throw.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "reports/ReportFrame.h"

namespace kvlr {

namespace memtxt {
inline constexpr std::string_view kSaveTitle = "Save as Memorized Report";
inline constexpr std::string_view kSaveLines[] = {
    "Give your report a meaningful name of up to 30 characters.",
    "Example: 'End of Season Top 5 LC AAA'", "Example: 'Elite Relay Entries Female'",
    "Access these reports from the Main Reports menu."};
inline constexpr std::string_view kNameRequired = "You must enter a name.";
inline constexpr std::string_view kOverwrite = "That Report already exists.  Overwrite?";
inline constexpr std::string_view kListTitle = "Memorized Reports";
inline constexpr std::string_view kNoneYet = "You have not memorized any reports yet.";
inline constexpr std::string_view kNoneYetLines[] = {
    "You can 'memorize' report settings from the following report forms:",
    "Top Times, Top Times Spread Sheet, Meet Results, ", "Meet Entries."};
inline constexpr std::string_view kHelp =
    "You can 'memorize' report settings from the individual report forms.  "
    "On each form you can pick all your options and then click on the 'Memorize Report' "
    "button.  The botton has a picture of a disk on it.  Once 'memorized', you can use that "
    "report each time instead of having to set all your options each time.";
inline constexpr std::string_view kNameTaken =
    "This Report name already exists for this report type.";
inline constexpr std::string_view kChooseAnother = "Please choose another Report name.";
inline constexpr std::string_view kGridNameTaken =
    "That name is already in use for this type of report.";
inline constexpr std::string_view kRemove = "Remove ";
inline constexpr std::string_view kNoneRemain = "No reports remain.  Exiting...";
inline constexpr std::string_view kColName = "Report Name";
inline constexpr std::string_view kColType = "Report Type";
inline constexpr std::string_view kSaveButton = "Memorized Report Settings";
}  // namespace memtxt

// CUSTOMRPTS Type.
enum class MemorizedType { kTopTimes = 0, kTopTimesSpread = 1, kMeetResults = 2, kMeetEntries = 3 };

// The list's word of a type: "Top Times", "Meet Results", "Meet Entry".
std::string MemorizedTypeWord(MemorizedType type);
// The report kind (BuiltInReports) a type runs; "" when this version has none.
std::string MemorizedKind(MemorizedType type);

struct MemorizedReport {
  std::string name;  // at most 30 characters
  MemorizedType type = MemorizedType::kTopTimes;
  ReportRequest request;
};

// The rows of one type (all without), by name or by "Type desc" then name.
std::vector<MemorizedReport> ListMemorized(SQLite::Database& db,
                                           std::optional<MemorizedType> type = std::nullopt,
                                           bool by_type = false);
// The row of that name, within a type if given (the lowest type otherwise).
std::optional<MemorizedReport> FindMemorized(SQLite::Database& db, std::string_view name,
                                             std::optional<MemorizedType> type = std::nullopt);

// frmRptSaveCustom's OK: a name is required; an existing name of the type is replaced
// after "That Report already exists.  Overwrite?". False when refused or declined.
bool SaveMemorized(AppState& state, const MemorizedReport& report);
// A new name for a row. `from_grid` picks the words of an edit in the list's grid. False
// (the user told) when the name is empty or taken within the type.
bool RenameMemorized(AppState& state, MemorizedType type, std::string_view name,
                     std::string_view new_name, bool from_grid = false);
// Asks "Remove <name>"; true when removed.
bool RemoveMemorized(AppState& state, MemorizedType type, std::string_view name);

}  // namespace kvlr
