#pragma once
// The words of the handheld link, shared by its screens, the command-line tool and tests.

#include <string_view>

namespace kvlr::palm_text {

// Export.
inline constexpr std::string_view kExportTitle = "Export to KVL-R Mobile";
inline constexpr std::string_view kJustActive = "Include just the Active Swimmer";
inline constexpr std::string_view kAllFamily = "Include ALL Family Swimmers";
inline constexpr std::string_view kCourse = "Course:";
inline constexpr std::string_view kUseSince = "Use Since Date for Best Times";
inline constexpr std::string_view kBestSince = "Best Times Since:";
inline constexpr std::string_view kResultMeets =
    "Result Meets (you may select up to 5 for export):";
inline constexpr std::string_view kEntryMeet = "Entry Meet:";
inline constexpr std::string_view kSameCourse = "All the meets must be for the same course.";
inline constexpr std::string_view kOnlyFive = "You can only select 5 Meets for export.";
inline constexpr std::string_view kExportingAthletes = "Exporting Athletes";
inline constexpr std::string_view kExportingBest = "Exporting Best Times";
inline constexpr std::string_view kExportingResults = "Exporting Meet Results";
inline constexpr std::string_view kExportingSplits = "Exporting Splits";
inline constexpr std::string_view kExportingEntries = "Exporting Meet Entries";
inline constexpr std::string_view kExportedBest = "Exported Best Times";
inline constexpr std::string_view kExportedAthletes = "Exported Athlete Information";
inline constexpr std::string_view kPrepareHotSync =
    "Prepare your Palm Pilot for Hot-Sync and click OK.";
inline constexpr std::string_view kPreparingFiles = "Preparing Files for Hot-Sync";
inline constexpr std::string_view kErrorCreating = "Error creating file for Palm Pilot.  File: ";
inline constexpr std::string_view kErrorStaging =
    "Error staging file for Palm Pilot Hot-Sync.  File: ";
inline constexpr std::string_view kExportDoneTitle = "PocketTally Export";

// Import.
inline constexpr std::string_view kFindErrorTitle = "Error trying to find Palm files.";
inline constexpr std::string_view kFindError = "Unable to find KVL-R files in Palm backup directory.";
inline constexpr std::string_view kSelectYourself =
    "Do you want to select your Palm OS Handheld backup directory yourself ?";
inline constexpr std::string_view kNoResultsTitle =
    "'Pocket TALLY for Palm OS' files could not be found.";
inline constexpr std::string_view kNoResults[] = {
    "  KVL-R cannont find any Pocket TALLY meet results - two suggestions.",
    "  1. Please make sure you have hot synced over new meet results that you have entered",
    "     into Pro TALLY.",
    "  2. Click on the 'Set Pocket TALLY Import Directory' button and make sure that you have",
    "     selected the right directory that contains the hot synced data."};
inline constexpr std::string_view kNoControlTitle = "KVL-R Mobile Control file could not be found.";
inline constexpr std::string_view kNoControl[] = {
    "  KVL-R cannot find required Control file.",
    "  KVL-R cannont find any required Control File: ENV080200_KVLCONTROL.PDB",
    "Please reinstall your KVL-R Mobile software."};
inline constexpr std::string_view kCopyErrorTitle = "Error trying to copy Palm files.";
inline constexpr std::string_view kCopyError = "Unable to copy files from Palm backup directory.";
inline constexpr std::string_view kNoDataTitle = "No data retrieved.";
inline constexpr std::string_view kNoData = "Unable to get import information from Palm backup.";
inline constexpr std::string_view kOldVersion[] = {
    "In order to import results back from Pocket TALLY, you must be running",
    "Pocket TALLY version 2.0 or later.  Please go to the Norvan web site at:"};
inline constexpr std::string_view kIncompatible[] = {
    "The software on your Palm OS handheld is not compatible with KVL-R.",
    "Norvan's Pocket TALLY for Palm OS will allow you to interface your handheld to KVL-R."};
inline constexpr std::string_view kAthleteTableError = "Error creating Athlete Table.";
inline constexpr std::string_view kEventTableError = "Error creating Event Table.";
inline constexpr std::string_view kTimesTableError = "Error creating Times Table.";
inline constexpr std::string_view kMeetNotFound[] = {
    "KVL-R was not able to find the meet that was hot-synced to Pro TALLY in this database.",
    "You may have the wrong database open."};
inline constexpr std::string_view kNoTimedRows =
    "If you did not use Pocket TALLY to time any events, not results will be returned.";
inline constexpr std::string_view kEventMismatch = "Event Mismatch";
inline constexpr std::string_view kNoEvent = "No Event";
inline constexpr std::string_view kNotSelected = "Not Selected";
inline constexpr std::string_view kAdded = "Added";
inline constexpr std::string_view kDuplicate = "Duplicate";
inline constexpr std::string_view kUpdated = "Updated";
inline constexpr std::string_view kGridHeadings[] = {"Imp", "Name",     "Gen",    "Ev#", "Age",
                                                     "Distance", "Stroke", "Rnd", "Time"};

// frmPalmDirectory.
inline constexpr std::string_view kDirectoryHelp[] = {
    "First select the drive and directory. ",
    "Then, use 'Set Directory' button to save the Handheld Backup Directory.  This is the "
    "directory that your Palm OS Handheld uses to backup its files.",
    "Usually, the directory is C:\\Palm\\<user name>\\Backup.",
    "Where <user name> is the name the Palm OS uses for Hot-Sync.  ",
    "KVL-R can retrieve your Pro TALLY results from the directory that your Palm OS Handheld "
    "uses for backup. ",
    "You must do a Hot-Sync after you have entered your results to download them to the backup "
    "directory.",
    "If you have not done a Hot-Sync after entering your results on your handheld, cancel this "
    "operation and Hot-Sync before attempting the Pro TALLY import."};
inline constexpr std::string_view kPathTooLong[] = {
    "Total path length can not exceed 60 characters.  ", "Please select a shorter path."};
inline constexpr std::string_view kFilesNotInFolder[] = {
    "Pro TALLY files not found in selected directory.",
    "The directory must contain the file ENV080200_KVLTIMES.PDB"};
inline constexpr std::string_view kBackupDirectoryWord = "Handheld Backup Directory";

}  // namespace kvlr::palm_text
