#pragma once
// The words of backup and restore: screen captions, questions, refusals and reports.

#include <string_view>

namespace kvlr::backup_text {

// frmBackup.
inline constexpr std::string_view kBackupTitle = "Backup Current KVL-R Database";
inline constexpr std::string_view kEnterComments = "Enter Comments for the Backup:";
inline constexpr std::string_view kBackupHelp =
    "You may back up to any folder: another folder on this computer, a USB stick or a network "
    "drive.  KVL-R names the backup after the database and numbers the backups from 1 to 99, so "
    "many backups can share one folder; nothing else in that folder is touched.";
inline constexpr std::string_view kBackupExamples =
    "KVL-RBkup-01.zip, KVL-RBkup-02.zip, KVL-RBkup-23.zip";

// Backup.
inline constexpr std::string_view kOverwriteTitle = "KVL-R";
inline constexpr std::string_view kBackupCancelled = "Backup cancelled.";
inline constexpr std::string_view kNotEnoughSpace =
    "Backup can not be executed as specified.  Not Enough disk space on: ";
inline constexpr std::string_view kErrorCreatingBackup =
    "There was an error creating the backup file.  Error: ";
inline constexpr std::string_view kBackupCompleted = "Backup Completed Successfully...";
inline constexpr std::string_view kErrorCreatingSilent =
    "There was an error creating silent backup file.  Error: ";
inline constexpr std::string_view kSilentComment = "Silent Backup";
inline constexpr std::string_view kCommentMarker = "KVLR";

// frmRestore.
inline constexpr std::string_view kRestoreTitle = "Restore a KVL-R database";
inline constexpr std::string_view kRestoreDialogTitle = "Restore a Database";
inline constexpr std::string_view kRestoreFilter =
    "KVL-R Backup files (KVL-RBkup*.zip;KVL-RArchive*.zip)|KVL-RBkup*.zip;KVL-RArchive*.zip|"
    "Backup files (KVL-RBkup*.zip)|KVL-RBkup*.zip|Archived files "
    "(KVL-RArchive*.zip)|KVL-RArchive*.zip";
inline constexpr std::string_view kNotValidFilename = "Not a valid filename: ";
inline constexpr std::string_view kNotOurBackup = "This is not a KVL-R backup.";
inline constexpr std::string_view kNotValidBackup = "Not a valid KVL-R backup.";
inline constexpr std::string_view kBackupFileName = "Backup File Name";
inline constexpr std::string_view kBackedUpDatabase = "Backed up Database Name";
inline constexpr std::string_view kBackupCreated = "Backup was Created:";
inline constexpr std::string_view kTotalSize = "Total Backup Files Size:";
inline constexpr std::string_view kBackupComments = "Backup Comments:";
inline constexpr std::string_view kRestoreOptions = "Restore Options";
inline constexpr std::string_view kReplaceOpen = "Replace currently opened database";
inline constexpr std::string_view kCurrentFolder = "Unzip and copy to currently opened folder";
inline constexpr std::string_view kSelectedFolder = "Unzip and copy to a selected folder";
inline constexpr std::string_view kChangeFolder = "Change Folder";
inline constexpr std::string_view kSelectDirectory = "Please select a directory to restore to.";
inline constexpr std::string_view kRenameTo = "Rename database to:";
inline constexpr std::string_view kOpenAfter = "Open database after restore";
inline constexpr std::string_view kSameName =
    "The zipped database name is the same as the currently opened database.";
inline constexpr std::string_view kSameAsFirstOption =
    "If you do not rename the database, this will be the same as picking the first option";
inline constexpr std::string_view kRecommendBackup =
    "It is highly recommended that you do a backup of your current database before restoring "
    "this backup over it.";

// Restore.
inline constexpr std::string_view kExtracting = "Extracting database to temporary directory";
inline constexpr std::string_view kErrorExtracting =
    "There was an error extracting the backup file.  Error: ";
inline constexpr std::string_view kRestoreCanceled = "Restore Canceled.";
inline constexpr std::string_view kRestoredArchived =
    "Restore completed successfully and your previous database has been archived.";
inline constexpr std::string_view kRestored = "Restore completed successfully...";
inline constexpr std::string_view kBackupDamaged =
    "The database in this backup is damaged, so it was not restored; nothing was changed. Try "
    "another backup.";
inline constexpr std::string_view kNothingRestored = "Nothing was restored: ";
// Our own words for an archive whose member names point outside the folder they go to.
inline constexpr std::string_view kMemberLeavesFolder =
    "A file in this backup is named so that it would be written outside the restore folder: ";

}  // namespace kvlr::backup_text
