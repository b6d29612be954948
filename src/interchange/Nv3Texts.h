#pragma once
// The system's own words for NV3 files: header refusals and file errors.

#include <string_view>

namespace kvlr {

inline constexpr std::string_view kNv3Creator = "Norvan, Ltd";
inline constexpr std::string_view kNv3NotNorvan = "Not a Norvan created .NV3 file !";
inline constexpr std::string_view kNv3MeetEntriesRefused =
    "This file contains Meet Entries and is not a candidate for import.";
inline constexpr std::string_view kNv3MergeResultsRefused =
    "This file contains GALA STEWARD specific Merge Results  and is not a candidate for "
    "import.";
inline constexpr std::string_view kNv3ProofOfTimeReview =
    "CLUB STEWARD Proof of Time for GALA STEWARD \r\n"
    "Use GALA STEWARD for Windows to review this data.";
inline constexpr std::string_view kNv3ProofOfTimeRefused =
    "This file contains CLUB STEWARD Proof of Time for GALA STEWARD  and is not a "
    "candidate for import.";
inline constexpr std::string_view kNv3UnknownRefused =
    "This file contains UNKNOWN contents  and is not a candidate for import.";

inline constexpr std::string_view kNv3IntegrityCompromised =
    "This file's Integrity has been compromised - please request another copy of the file.";
inline constexpr std::string_view kNv3ErrorTitle = "error";
inline constexpr std::string_view kNv3FileErrorPrefix = "File processing error for file: ";
inline constexpr std::string_view kNv3ErrorLinePrefix = "The error is on line: ";
inline constexpr std::string_view kNv3ProblemLineTwoParts =
    "The problem line is listed below in two parts: ";

inline constexpr std::string_view kNv3TeamOutOfPlace = "Processing error on Team/Coaches Records.";
inline constexpr std::string_view kNv3AthleteOutOfPlace = "Processing error on Athlete Records.";
inline constexpr std::string_view kNv3EventOutOfPlace = "Processing error on Event Records.";
inline constexpr std::string_view kNv3RelayOutOfPlace = "Processing error on Relay Records.";

inline constexpr std::string_view kNv3AthleteCheckSuccessful = " Athlete Check Successful ";

}  // namespace kvlr
