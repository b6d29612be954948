#pragma once
// Choosing the file of an import or a file report, without the dialogs themselves: their
// titles and filters, the refusal of other programs' backups, unpacking a zip into a
// private folder of the run inside the program home's temporary folder, and which
// extensions each mode takes.

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"
#include "core/RunFolder.h"
#include "interchange/ImportTypes.h"

namespace kvlr {

namespace choose_text {
inline constexpr std::string_view kDialogTitle = "Import Results";
// Filters in the "description|patterns|description|patterns" form.
// The first pair shows every kind the mode takes, so no file hides behind a filter.
inline constexpr std::string_view kImportFilter =
    "Import files (*.cl2,*.sd3,*.nv3,*.psn,*.zip)|*.cl2;*.sd3;*.nv3;*.psn;*.zip|"
    "Result files (*.nv3,*.zip,*.cl2,*.psn)|*.nv3;*.zip;*.cl2;*.psn|SDIF files (*.SD3)|*.sd3";
inline constexpr std::string_view kReportFilter =
    "Reportable files (*.cl2,*.sd3,*.nv3,*.zip)|*.cl2;*.sd3;*.nv3;*.zip|"
    "Result files (*.nv3,*.zip,*.cl2)|*.nv3;*.zip;*.cl2|SDIF files (*.SD3)|*.sd3";
inline constexpr std::string_view kOnlineFilter = "CSO Result files (KVLR_*.txt)|KVLR_*.txt|";
inline constexpr std::string_view kUnzippedImportFilter =
    "Result/Roster files (*.nv3)|*.nv3|Commlink files (*.cl2)|*.cl2|SDIF files (*.SD3)|*.sd3";
inline constexpr std::string_view kUnzippedReportFilter =
    "Reportable files (*.nv3,*.cl2)|*.nv3;*.cl2|SDIF files (*.SD3)|*.sd3";

inline constexpr std::string_view kNoValidFile = "No valid import file selected.";
inline constexpr std::string_view kNoImportFilesInZip =
    "No import files found in the selected Zip file.";
inline constexpr std::string_view kZipError =
    "There was an error extracting from your ZIP file.  Error: ";

inline constexpr std::string_view kGalaStewardBackup[] = {
    "The file you selected is a Norvan GALA STEWARD for Windows (WIN-GS) Backup file.",
    "1. If you have WIN-GS, Restore this backup and then export meet results for your club to ",
    "import into KVL-R. ",
    "2. Contact the meet host and ask them to ",
    "provide you with the Meet Results Export instead of a Database Backup.",
};
inline constexpr std::string_view kCsBackup =
    "The file you selected is a Norvan CS II Backup file and cannot be used to import Meet "
    "Results.";
inline constexpr std::string_view kWinCsBackup =
    "The file you selected is a Norvan WIN-CS or DOS-GS Backup file and cannot be used to "
    "import Meet Results.";

inline constexpr std::string_view kUnzippedTo =
    "The files inside the selected zip file have been unzipped to ";
inline constexpr std::string_view kListedAfterOk =
    "These unzipped files will be listed after you click OK.";
inline constexpr std::string_view kDoubleClick =
    "After the list is displayed, double click on the file you wish to ";
inline constexpr std::string_view kToImport = "import.";
inline constexpr std::string_view kToReport = "report.";
inline constexpr std::string_view kNoteNv3Only =
    "Note that since this file contains Norvan specific nv3 files, only those files will be "
    "displayed.";
inline constexpr std::string_view kNoteCl2Sd3 =
    "Note that only *.cl2 and *.sd3 files will be displayed.";
}  // namespace choose_text

// The filter of the first dialog for `mode`.
std::string_view ImportDialogFilter(ImportMode mode);

// A "description|patterns|..." filter in Qt's form "description (p1 p2);;...": patterns split
// by blanks, each also in capitals so that files named in capitals show on a case-sensitive
// file system. An empty trailing pair is dropped. The description stays as it is; the dialog
// hides the added pattern list (QFileDialog::HideNameFilterDetails).
std::string QtFileFilter(std::string_view filter);

// The extension as the import flows know it: the last four characters of the name in
// capitals (".CL2", ".ZIP").
std::string ImportExtension(const std::filesystem::path& file);
bool IsZipName(const std::filesystem::path& file);

// The words (lines joined with line ends) that refuse a zip that is another program's
// backup, tested by the first letters of its name in capitals; nullopt for any other name
// and for names that aren't zips.
std::optional<std::string> ZipRefusal(const std::filesystem::path& file);

// True when `mode` can work on a file of this name (a zip is unpacked first, so it isn't
// one): import .CL2 .SD3 .NV3 .PSN; report .CL2 .SD3 .NV3 .TXT; online .TXT .PSN.
bool AcceptsImportFile(ImportMode mode, const std::filesystem::path& file);

// What a zip left in its run folder for the second dialog. The folder and the files in it
// are removed when the last copy of `owner` goes: keep one until the import run is over.
struct UnzippedFiles {
  std::shared_ptr<RunFolder> owner;
  std::filesystem::path folder;              // owner's folder, inside the home's KVL-RTemp
  std::vector<std::filesystem::path> files;  // what the list will offer, sorted
  std::string_view filter;                   // the second dialog's filter ("|" form)
  std::string selected_filter;               // the description of its first pair that
                                             // shows any of the files
};

// Extracts the members of `zip` whose names end in .cl2, .nv3 or .sd3 (any case) into a
// fresh RunFolder of its own, each under its last name part; members whose names could
// leave the folder are skipped, and a member above kMaxMeetFileBytes refuses the zip.
// Outside report mode an .nv3 among them makes the .cl2 and .sd3 files go. Then tells the
// user where they are. nullopt, the user told, when the zip can't be unpacked or holds no
// such file; the folder is gone again then.
std::optional<UnzippedFiles> ExtractImportZip(AppState& state, const std::filesystem::path& zip,
                                              bool report_mode);

// The box shown after the extraction.
std::string UnzippedMessage(const std::filesystem::path& folder, bool report_mode, bool nv3_only);

}  // namespace kvlr
