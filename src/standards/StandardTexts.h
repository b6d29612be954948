#pragma once
// The words of the standards screens and checks, shared by the logic, the screens and tests.

#include <string_view>

namespace kvlr::stdtext {

// Routines as the error log names them.
inline constexpr std::string_view kGetStandard = "basUtil.GetStandard";
inline constexpr std::string_view kMakeCurrent = "frmStan.MakeCurrent";
inline constexpr std::string_view kOpenCurrentStandard = "basUtil.OpenCurrentStandard";
inline constexpr std::string_view kCreateStandardsTable = "basUtil.CreateStandardsTable";
inline constexpr std::string_view kAddstandardDefinitionr = "basUtil.AddstandardDefinitionr";
inline constexpr std::string_view kLoadStandardsCombo = "basUtil.LoadStandardsCombo";
inline constexpr std::string_view kCopyStandard = "frmDesig.CopyStandard";
inline constexpr std::string_view kDesigDone = "frmDesig.cmdDone_Click";
inline constexpr std::string_view kLoadGrid = "frmStan.LoadGrid";
inline constexpr std::string_view kDeleteOneStandard = "frmStan.DeleteOneStandard";
inline constexpr std::string_view kRemoveEntireStandard = "frmStan.RemoveEntireStandard";
inline constexpr std::string_view kLoadStanForm = "frmStanAdd.LoadStanForm";
inline constexpr std::string_view kStanAddDone = "frmStanAdd.cmdDone_Click";

// The four blanks of a swim between two levels.
inline constexpr std::string_view kBetweenLevels = "    ";

// frmDesig.
inline constexpr std::string_view kDesigHelp =
    "Add Designators from top to bottom starting in box 1 and progressing to box 12."
    "  You can have from 1 to 12 Designators but you can't skip any boxes.";
inline constexpr std::string_view kNeedName = "You must supply a name for the standard.";
inline constexpr std::string_view kAlreadyExists = " already exists.";
inline constexpr std::string_view kNeedDesignator =
    "You must have at least one Designator or Copy another Standard File.";
inline constexpr std::string_view kNoSkipping = "You can't skip any lines when adding designators.";
inline constexpr std::string_view kStandardsCopied = " standards copied.";
inline constexpr std::string_view kNothingToCopy =
    "No standards available to copy in selected file.";
inline constexpr std::string_view kCopyFromMissing =
    "Error retrieving Copy From Standard Information";
inline constexpr std::string_view kCopyToMissing = "Error retrieving Copy To Standard Information";

// frmStanAdd.
inline constexpr std::string_view kStanAddTitle = "Add/Edit One Standard";
inline constexpr std::string_view kSetAgeRange = "Please set the age range.";
inline constexpr std::string_view kSelectDistance = "Please select a Distance for the standard.";
inline constexpr std::string_view kSelectStroke = "Please select a Stroke for the standard.";
inline constexpr std::string_view kSelectSex = "Please select a sex for the standard.";
inline constexpr std::string_view kHighAboveLow = "High Age must be greater than Low Age.";
inline constexpr std::string_view kLineExists = "That times standard already exists.";
inline constexpr std::string_view kHelpOther =
    "For 'Other' Age Ranges, use 0 to designate 'Under' and 99 to designate 'Over'.";
inline constexpr std::string_view kHelpUnderOver =
    "For 9 and Under, use 0 for Low Age.  For 15 and Over, use 99 for High Age.";
inline constexpr std::string_view kHelpAfterAdd =
    "After adding a new standard here, you can add and edit the times for the standard on the "
    "main Standards Grid.";
inline constexpr std::string_view kFilteredSexStart =
    "Since you have filtered your standards to view ";
inline constexpr std::string_view kFilteredSexMiddle = " only, you can only add standards for ";

// frmStan.
inline constexpr std::string_view kRemoveLineTitle = "Remove Standard";
inline constexpr std::string_view kRemoveEntireWarning =
    "Warning: This will completely remove the currently displayed standard.";
inline constexpr std::string_view kSelectOrCreate =
    "Please select a standard or create a new standard.";
inline constexpr std::string_view kNoStandardYet = "No Standard has been added yet.";
// Which standard the results and reports judge against.
inline constexpr std::string_view kCurrentStandard = "Current standard: ";
inline constexpr std::string_view kNoCurrentStandard = "No current standard";
inline constexpr std::string_view kMakeCurrentCaption = "Make &Current";
inline constexpr std::string_view kRelaysFirst = "(Relays First)";
inline constexpr std::string_view kRelaysLast = "(Relays Last)";

// Exchange of a standard as CSV (the program's own format).
inline constexpr std::string_view kCsvEmpty = "The file holds no header line.";

}  // namespace kvlr::stdtext
