#pragma once
// The words of the SDIF and Commlink reader and checks, shared by the checks, the
// screens and the tests. Code lists are tested by substring (see CheckCode).

#include <string_view>

namespace kvlr::sdif {

// Code lists.
inline constexpr std::string_view kFileCodes = "01,02,03,04,05,06,07,08,09,10,16,20";
inline constexpr std::string_view kCourseCodes = "123SYLXM";
inline constexpr std::string_view kOrganizationCodes = "123456789";
inline constexpr std::string_view kAttachCodes = "AU";
inline constexpr std::string_view kSexCodes = "MF";
inline constexpr std::string_view kEventSexCodes = "MFX";
inline constexpr std::string_view kStrokeCodes = "1234567H";
inline constexpr std::string_view kRelayStrokeCodes = "1567";
inline constexpr std::string_view kEventTimeCodes = "UO1P23456JS";
inline constexpr std::string_view kMemberCodes = "RNCD";
inline constexpr std::string_view kRegionCodes = "123456789ABCDE";
inline constexpr std::string_view kSeasonCodes = "12N";
inline constexpr std::string_view kOrderCodes = "01234A";
inline constexpr std::string_view kSplitCodes = "CI";
inline constexpr std::string_view kPrelimFinalCodes = "PFS";
inline constexpr std::string_view kMeetCodes = "1234567890ABC";
inline constexpr std::string_view kColorCodes = "GOLD,SILV,BRNZ,BLUE,RED ,WHIT";
inline constexpr std::string_view kTimeCodes = "NT,NS,DQ,SCR,DNF";

// Problem labels ("Problem: " + label).
inline constexpr std::string_view kFileCodeLabel = "File Code";
inline constexpr std::string_view kCourseCodeLabel = "Course Code";
inline constexpr std::string_view kOrganizationCodeLabel = "Organization Code";
inline constexpr std::string_view kAttachCodeLabel = "Attach Code";
inline constexpr std::string_view kSexCodeLabel = "Sex Code";
inline constexpr std::string_view kEventSexCodeLabel = "Event Sex Code";
inline constexpr std::string_view kStrokeCodeLabel = "Stroke Code";
inline constexpr std::string_view kEventTimeCodeLabel = "Event Time Code";
inline constexpr std::string_view kMemberCodeLabel = "Member Code";
inline constexpr std::string_view kRegionCodeLabel = "Region Code";
inline constexpr std::string_view kSeasonCodeLabel = "Season Code";
inline constexpr std::string_view kOrderCodeLabel = "Order Code";
inline constexpr std::string_view kSplitCodeLabel = "Split Code";
inline constexpr std::string_view kPrelimFinalCodeLabel = "Prelim/Final Code";
inline constexpr std::string_view kMeetCodeLabel = "Meet Code";
inline constexpr std::string_view kColorCodeLabel = "Color Code";
inline constexpr std::string_view kTimeCodeLabel = "Time Code";
inline constexpr std::string_view kDateLabel = "Date";
inline constexpr std::string_view kSwimmerNameLabel = "Swimmer's Name";
inline constexpr std::string_view kRequiredMissing = "Required fields missing";
inline constexpr std::string_view kAgeRangeLabel = "Age Range";
inline constexpr std::string_view kChecksumLabel = "Checksum";

// Line lengths.
inline constexpr std::string_view kLineLengthError = "Line length error. Line length should be ";
inline constexpr std::string_view kLineLengthFound = ". Found ";

// Commlink lines.
inline constexpr std::string_view kNotNorvanCl2 =
    "This .cl2 file was not created by Norvan software !";
inline constexpr std::string_view kAskForSd3 =
    "Contact the source and ask them to generate an SDIF .sd3 file if their software is not "
    "Norvan.";
inline constexpr std::string_view kOnlyNorvanCl2 =
    "Only Norvan software is authorized to generate a .cl2 file.";
inline constexpr std::string_view kFailedIntegrity =
    "This file failed the SDIF integrity test - please request another copy of the file.";
inline constexpr std::string_view kNorvanSoftware = "Norvan, Ltd";

// The first line.
inline constexpr std::string_view kNotA0 = "Invalid format.  First line is not an A0 record.";
inline constexpr std::string_view kNotByNorvan =
    "The Proprietary LUSKUGE File format was not produced by Norvan";
inline constexpr std::string_view kHoldsEntries =
    "This file contains Meet Entries and is not a candidate for import.";
inline constexpr std::string_view kHoldsMotivational =
    "This file contains ASCA motivational times and is not a candidate for import.";
inline constexpr std::string_view kHoldsGalaSteward =
    "This file contains GALA STEWARD specific information and is not a candidate for import.";
inline constexpr std::string_view kNoResultsSd3 =
    "Selected SD3 file does not contain Results and is not a candidate for import.";

}  // namespace kvlr::sdif
