#pragma once
// The workout subsystem's own words, shared by its routines, screens and tests.

#include <string_view>

namespace kvlr::wk_text {

inline constexpr std::string_view kNumberTaken = "Workout Number is already assigned.";
inline constexpr std::string_view kStartInvalid = "Start time is invalid.";
inline constexpr std::string_view kRestInvalid = "Rest Period is invalid.";
inline constexpr std::string_view kIntervalInvalid = "Set Interval is invalid.";
inline constexpr std::string_view kNothingToDelete = "Nothing to delete.";
inline constexpr std::string_view kNothingToEdit = "Nothing to edit; click Add.";
inline constexpr std::string_view kNothingToPrint = "Nothing to print.";
inline constexpr std::string_view kSaveAsNeedsWorkout =
    "At least one workout must exist in order to use Save As.";
inline constexpr std::string_view kNumberPrompt = "Enter a Workout Number to look for: ";
inline constexpr std::string_view kNoDetails = "No details";

inline constexpr std::string_view kUseAddCircuit =
    "Use the Add Circuit button to insert a line within a circuit.";
inline constexpr std::string_view kRepsDistZero = "Reps and Distance cannot both be zero !";
inline constexpr std::string_view kNeedReps = "Please enter a number for Reps !";
inline constexpr std::string_view kNeedInterval = "Please enter an interval !";
inline constexpr std::string_view kBadWorkType = "There are invalid characters for Work Type !";
inline constexpr std::string_view kBlankNote = "The note cannot be blank !";

inline constexpr std::string_view kEndNotMemorizable =
    "The End row is not a valid set that can be memorized.";
inline constexpr std::string_view kNoNoteMemorize = "Cannot memorize single note lines.";
inline constexpr std::string_view kNoSets = "No sets have been created.";
inline constexpr std::string_view kNoCircuits = "No circuit titles have been created.";
inline constexpr std::string_view kNoCircuitLines = "No lines have been added.";
inline constexpr std::string_view kDeleteMemSet = "Delete highlighted set ?";
inline constexpr std::string_view kDeleteMemCircuit =
    "Delete highlighted name and its circuit sets ?";

inline constexpr std::string_view kEnergyCodeNeeded =
    "You must enter an abbreviation of 1 to 3 characters for the energy category.";
inline constexpr std::string_view kCodeAssigned = "Code is already assigned.";
inline constexpr std::string_view kEnergyNameNeeded = "You must enter a name for the energy category.";
inline constexpr std::string_view kDescriptionBlank = "Set descriptions cannot be blank.";
inline constexpr std::string_view kCategoryCodeNeeded =
    "You must enter an abbreviation of 1 to 3 characters for the Stroke category.";
inline constexpr std::string_view kCategoryNameNeeded = "You must enter a name for the Stroke category.";
inline constexpr std::string_view kRemoveCodeTitle = "Remove Code";
inline constexpr std::string_view kRemoveDescription =
    "Warning: This action will remove the selected set description.\r\nDo you still want to "
    "remove it ?";
inline constexpr std::string_view kRemoveDescriptionTitle = "Remove Set Description";

inline constexpr std::string_view kWk3Tag = "<H>,Norvan's Workout Export";
inline constexpr std::string_view kWk3Title = "Norvan's Workout Export";
inline constexpr std::string_view kNotWk3 = "Not a Norvan Workout Export File";
inline constexpr std::string_view kReadError = "Error reading file; ";
inline constexpr std::string_view kNoWk3InZip = "No Workout Export files found in selected Zip file.";
inline constexpr std::string_view kUnzipFailed =
    "There was an error extracting from your ZIP file.  Error:  ";
inline constexpr std::string_view kNoImportFile = "No import file selected.";
inline constexpr std::string_view kImportCompleted = "Import completed";
inline constexpr std::string_view kImported = "Imported: ";
inline constexpr std::string_view kImporting = "Importing: ";
inline constexpr std::string_view kGalaBackup =
    "This is a Norvan GALA STEWARD for Windows (WIN-GS) Backup file.";
inline constexpr std::string_view kClubBackup =
    "This is a Norvan CLUB STEWARD for Windows (WIN-CS) Backup file.";
inline constexpr std::string_view kExportName = "WorkoutExport";
inline constexpr std::string_view kPurgeQuestion =
    "Are you sure you want to delete ALL workouts ?\r\nThis action is NOT reversible.\r\n"
    "Perform a backup first if in doubt.";
inline constexpr std::string_view kPurged = "ALL workouts have been deleted.";
inline constexpr std::string_view kNoWorkoutsToExport = "No workouts to export.";

}  // namespace kvlr::wk_text
