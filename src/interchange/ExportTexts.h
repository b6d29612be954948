#pragma once
// The system's own words of the export screens and runs.

#include <string_view>

namespace kvlr {

inline constexpr std::string_view kExportEntriesTitle = "Export Entries";
inline constexpr std::string_view kExportBestTimesTitle = "Export Best Times";
inline constexpr std::string_view kExportProofTitle = "Export Proof of Time";
inline constexpr std::string_view kBestTimesHeading = "Best Times ";
inline constexpr std::string_view kForProof = "for Proof";

inline constexpr std::string_view kNeedTeam =
    "You need to go to the Setup Menu on the main KVL-R menu and enter your Team information.";
inline constexpr std::string_view kNoEntries = "No entries available.";
inline constexpr std::string_view kNoEntryMeets = "No Meets with Entries are available.";
inline constexpr std::string_view kNoEntriesForMeet = "No entries for the selected meet.";
inline constexpr std::string_view kNoResultsToExport = "No results to export.";
inline constexpr std::string_view kNoAthleteFound = "no athlete found";
inline constexpr std::string_view kEntriesExportedTo = "Entries exported to ";
inline constexpr std::string_view kResultsExportedTo = " Individual Results exported to ";
inline constexpr std::string_view kFailedToAccess = "Failed to access ";
inline constexpr std::string_view kQuiting = ".  Quiting.";
inline constexpr std::string_view kOverwriteTitle = "Overwrite?";
inline constexpr std::string_view kZipError = "There was an error creating the Zip file: ";
inline constexpr std::string_view kNotEnoughSpace =
    "Can not create ZIP file.  Not Enough disk space on: ";
// Beyond the old program: a file under the chosen name that is no zip is never replaced.
inline constexpr std::string_view kNotAZip = " is not a zip file and is left as it is.";

// The files of one export, built in a private folder and packed in one zip.
inline constexpr std::string_view kCl2FileName = "CFILE01.CL2";
inline constexpr std::string_view kNv3FileName = "HFILE001.NV3";
inline constexpr std::string_view kOnlineFileName = "KVLR_001.TXT";
inline constexpr std::string_view kEntriesZipPrefix = "KVL-REnt";
inline constexpr std::string_view kResultsZipPrefix = "KVL-RRes";

}  // namespace kvlr
