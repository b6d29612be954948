#pragma once
// The system's own words of the athlete screens, kept together so that the screens, the
// command-line tool and the tests share them.

#include <string_view>

namespace kvlr::athlete_text {

// The list.
inline constexpr std::string_view kOpening = "Opening Athletes...";
inline constexpr std::string_view kNoAthletes = "No Athletes have been added yet.";
inline constexpr std::string_view kMaximum = "KVL-R allows a maximum of 4 Athletes.";
inline constexpr std::string_view kAddCommand = "Add New Athlete";
inline constexpr std::string_view kEditCommand = "Edit Current Athlete";
inline constexpr std::string_view kDeleteCommand = "Delete Current Athlete";
inline constexpr std::string_view kExitCommand = "Exit this Form";
inline constexpr std::string_view kNotFound = "Athlete not found";

// The card.
inline constexpr std::string_view kFirstNameMissing = "You must enter a First Name.";
inline constexpr std::string_view kSexMissing = "You must select the gender of the athlete.";
inline constexpr std::string_view kDuplicateTitle = "Duplicate Name Found";
inline constexpr std::string_view kDuplicateWarning =
    "Warning: you already have a swimmer on file with that name.";
inline constexpr std::string_view kDuplicateOptions = "You have three options:";
inline constexpr std::string_view kDuplicateYes = "Select 'Yes' to save the record as entered.";
inline constexpr std::string_view kDuplicateNo = "Select 'No' to merge with other swimmer on file.";
inline constexpr std::string_view kDuplicateCancel =
    "Select 'Cancel' to return to editing this record.";
inline constexpr std::string_view kDuplicateQuestion =
    "Do you want to save this swimmer's record as entered?";
inline constexpr std::string_view kSameNameOnFile = "An Athlete with the same name is on file.  ";
inline constexpr std::string_view kDuplicateOtherSex =
    "Duplicate Names with different sexes are not allowed.";
inline constexpr std::string_view kDuplicateName = "Cannot add dupicate Athlete names.";
inline constexpr std::string_view kHasIndividualResults =
    "This athlete has individual results on file.  ";
inline constexpr std::string_view kSexLocked =
    "This athlete's sex cannot be changed while this is true.";
inline constexpr std::string_view kBirthBefore1930 =
    "Please use the drop-down calendar to enter dates before 1930.";
inline constexpr std::string_view kBirthAfterToday = "The birth date can not be later than today.";

// The background picture.
inline constexpr std::string_view kPictureNeedsFirstName =
    "You must enter a First Name to assign the Picture to.";
inline constexpr std::string_view kPictureDialogTitle = "Import Backgound Picture";
inline constexpr std::string_view kPictureFilter = "Picture Files (*.bmp)";
inline constexpr std::string_view kPictureStartName = "KVL-R.bmp";
inline constexpr std::string_view kPictureNotBmp = "Background picture must be a .bmp file.";
inline constexpr std::string_view kCannotOpen = "Cannot open ";  // followed by the file

// Removing and merging.
inline constexpr std::string_view kRemoveTitle = "Remove Athlete";
inline constexpr std::string_view kRemoveQuestion = "Do you still want to remove: ";
inline constexpr std::string_view kMergeOtherSex = "Can't merge with swimmer of a different sex.";
inline constexpr std::string_view kMergeWarning =
    "Operation is not reversible!  Backup is recommended first.";
inline constexpr std::string_view kMergeWhat = "Merge all Athlete info, results and entries for : ";
inline constexpr std::string_view kMergeInto = "into : ";
inline constexpr std::string_view kMergeFailed = "Merge Failed.";

// Recruiting.
inline constexpr std::string_view kRecruitingTitle = "Athlete Recruiting";
inline constexpr std::string_view kRecruitingPrint = "Print Recruiting Report";
inline constexpr std::string_view kRecruitingLoadPicture = "Load Swimmer's Picture";
inline constexpr std::string_view kRecruitingPictureTitle = "Import Picture";
inline constexpr std::string_view kRecruitingPictureFilter = "Picture files (*.bmp)";
inline constexpr std::string_view kNoBmpSelected = "No BMP file selected";
inline constexpr std::string_view kPictureTooLong = "The file name and path exceeds 60 characters.";

// Team.
inline constexpr std::string_view kTeamTitle = "Team Maintenance";

// Where traps report.
inline constexpr std::string_view kSaveAthleteSource = "frmAthMt.SaveAthlete";
inline constexpr std::string_view kLoadFieldsSource = "frmAthMt.LoadFields";
inline constexpr std::string_view kListSource = "frmAthlete.LoadList";
inline constexpr std::string_view kRemoveSource = "basUtil.RemoveOneAthletesRecords";
inline constexpr std::string_view kMergeSource = "basUtil.MergeAthlete";
inline constexpr std::string_view kPictureSource = "frmAthMt.cmdGetPic";
inline constexpr std::string_view kRecruitingSaveSource = "frmRecr.SaveRecruiting";
inline constexpr std::string_view kRecruitingLoadSource = "frmRecr.LoadRecruiting";
inline constexpr std::string_view kTeamSaveSource = "frmTeamMaint.SaveTeam";
inline constexpr std::string_view kTeamLoadSource = "frmTeamMaint.LoadTeam";

// Box line break.
inline constexpr std::string_view kBreak = "\r\n";

}  // namespace kvlr::athlete_text
