#pragma once
// Event files (.nvv): a meet and its events from the meet's host, read before the meet so
// that entries can be made. Text, one record a line, fields separated by ';'; a trailing
// ';' closes the last field. Line 1 is the meet:
//   0 name, 1 start, 2 end, 3 age-up (dates "MM/DD/YYYY"), 4 course word, 5 location,
//   7 creator, 9 class, 10 check value; the twelfth field (11) takes the rest of the line.
// Every later line is one event:
//   0 number with an optional letter ("12A"), 1 distance, 2 stroke, 3 I_R, 4 low age,
//   5 high age, 6 sex.
// The readers here are pure; CheckEventFile and ImportEvents talk to the user and the store.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"
#include "core/Date.h"
#include "core/RunFolder.h"

namespace kvlr {

inline constexpr std::string_view kEventFileCreator = "Norvan Sports Software";

inline constexpr std::string_view kEvInvalidFormat = "Error: Invalid file format.";
inline constexpr std::string_view kEvFailedIntegrity = "Error: This file failed integrity test.";
inline constexpr std::string_view kEvNotNorvan = "Error: This file was not produced by Norvan.";
inline constexpr std::string_view kEvNoStartDate = "Error: There is no start date found for meet: ";
inline constexpr std::string_view kEvExistingMeet =
    "There is already an existing meet with start date of: ";
inline constexpr std::string_view kEvExistingNamed = "  named: ";
inline constexpr std::string_view kEvRemoveMeetFirst =
    "You will need to remove that meet before importing this file.";
inline constexpr std::string_view kEventsImported = "Events imported: ";
inline constexpr std::string_view kImportEventsTitle = "Import Events";
inline constexpr std::string_view kNoEventFilesInZip =
    "No meet event files were found in the selected Zip file.";
inline constexpr std::string_view kZipExtractError =
    "There was an error extracting from your ZIP file.  Error: ";

// Fields of a line split at ';'. A trailing ';' closes the last field rather than opening an
// empty one. With `whole_last` > 0, field `whole_last` - 1 takes the rest of the line as it
// stands (less one closing ';').
std::vector<std::string> SplitEventFields(std::string_view line, size_t whole_last = 0);

// The check value of a meet line: S = the sum of the byte codes of all columns but the last
// five; S / 7 (floor) + 121 right-aligned in four; its last character, its first, its two
// middle ones, then the third character of `name_field` (none when shorter).
std::string EventFileCheckValue(std::string_view line, std::string_view name_field);

// The Course a course word gives: a word beginning "B" and ending "N" names two courses and
// keeps the letters between (up to two); otherwise the first letter. Upper-cased.
std::string EventCourse(std::string_view course_word);

struct EventFileMeet {
  std::string name;  // trimmed
  Date start;
  std::optional<Date> end, age_up;
  std::string course;  // EventCourse of field 4
  std::string location, meet_class;
};

struct EventFileEvent {
  int number = 0;
  std::string letter;  // "" or one character, upper-cased
  int distance = 0;
  int stroke = 0;
  std::string i_r;  // "I" when blank
  int lo_hi = 99;
  std::string sex;
};

struct EventFile {
  EventFileMeet meet;
  std::vector<EventFileEvent> events;  // lines with a number of 1 or more, in file order
};

// The steps of CheckEventFile that need no store, in their order; `error` holds the words
// of the first that fails ("" and a file when all pass).
struct EventFileParse {
  std::optional<EventFile> file;
  std::string error;
};
EventFileParse ParseEventFile(const std::vector<std::string>& lines);

// The lines of a file, without line ends (LF, CR LF or a lone CR). Throws FileError when
// unreadable, FormatError when larger than kMaxMeetFileBytes.
std::vector<std::string> ReadEventFileLines(const std::filesystem::path& file);

// `CheckEventFile`: ParseEventFile, then no meet of that start may be on file. The first
// failure is told through state.io; nullopt then.
std::optional<EventFile> CheckEventFile(AppState& state, const std::vector<std::string>& lines);

struct EventImportOutcome {
  bool ok = false;
  int32_t meet = 0;  // the new MEET key
  std::string meet_name;
  int events = 0;  // events added
};

// `ImportEvents` of one chosen .nvv: CheckEventFile, then the MEET row, its calendar rows
// and the events (MTEVENTE, the entry side) in one transaction, then the box "Events
// imported: " + count. A store failure is reported ("frmImpEv.ImportEvents") and nothing
// is written.
EventImportOutcome ImportEvents(AppState& state, const std::filesystem::path& nvv);

// The .nvv files of a zip in a RunFolder of their own; the folder and the files go with
// the last copy of `owner`.
struct EventZipFiles {
  std::shared_ptr<RunFolder> owner;
  std::vector<std::filesystem::path> files;  // in archive order
};

// The .nvv files of a zip, extracted into a fresh RunFolder inside the program home's
// KVL-RTemp. None: "No meet event files were found in the selected Zip file." is told; a
// zip that can't be unpacked: "There was an error extracting from your ZIP file.  Error: "
// + the words of UnzipError. Both give no files (and no folder).
EventZipFiles ExtractEventFiles(AppState& state, const std::filesystem::path& zip);

// What a chosen name of the "Import Events" dialog is.
enum class EventFileKind { kNvv, kZip, kInvalid };
EventFileKind EventFileKindOf(const std::filesystem::path& file);
// The box for a name that is neither: name + "Not a valid filename".
std::string NotValidEventFileText(const std::filesystem::path& file);

}  // namespace kvlr
