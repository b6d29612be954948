// The error handler: log entry first, then the box, then the decision.

#include <gtest/gtest.h>

#include "core/ErrorHandler.h"
#include "core/ErrorLog.h"
#include "core/Errors.h"
#include "core/FileOps.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::TempHome;

TEST(ErrorHandler, LogsFirstThenAsksOnlyWithADisplay) {
  TempHome t;
  t.state.gShortDbName = "family";
  t.state.gAthlete = 3;
  t.state.gCurrentMeet = 12;
  int action = ReportError(t.state, "basUtil.OpenLocalDB",
                           FileError(err::kFileNotFound, "File not found"), false);
  EXPECT_EQ(action, action::kContinue);
  EXPECT_TRUE(t.io.shown.empty());
  EXPECT_EQ(ReadWholeFile(t.state.home.Log()),
            "Sunday, November 22, 2026  10:30:00 AM\n"
            "Error Description: File not found\n"
            "Error Source: basUtil.OpenLocalDB\n"
            "Error Number: 53\n"
            "Current Database: family\n"
            "Current Athlete: 3\n"
            "Current Meet: 12\n"
            "===========================\n");
  // With a display: a user who ends the program at the box still leaves the entry behind.
  std::filesystem::remove(t.state.home.Log());
  bool logged_before_box = false;
  t.io.on_message = [&](const auto&) {
    logged_before_box = std::filesystem::exists(t.state.home.Log());
  };
  t.io.Script({Answer::kOk});
  action = ReportError(t.state, "frmResults.SaveResult", FileError(err::kBadFileName, "bad name"));
  EXPECT_TRUE(logged_before_box);
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].title, "Program Error");
  EXPECT_EQ(t.io.shown[0].style, 49);  // OK and Cancel: OK retries
  EXPECT_EQ(action, action::kRetry);
  EXPECT_EQ(t.io.shown[0].text,
            "That filename is illegal.\r\n\r\nError Description: bad name\r\nError Source: "
            "frmResults.SaveResult\r\nError Number: 64");
  EXPECT_EQ(t.state.gErrorAction, action::kRetry);
}

TEST(ErrorHandler, TableGivesTextAndStyleForSystemFailuresAndAnswers) {
  struct Case {
    int number;
    const char* source;
    const char* text;
    int style;
  };
  const Case cases[] = {
      {6, "", "Serious Windows Error.\r\nIn most cases, you should Abort your current operation.",
       18},
      {13, "", "Data error.", 50},
      {53, "", "File Processing Error.", 50},
      {61, "", "Disk is full. Continue?", 50},
      {70, "", "File Processing Error.", 50},
      {71, "", "Insert a disk in the drive and close the door.", 49},
      {481, "frmGraph.PrintChart",
       "Problem with Windows Clipboard.\r\nThe Clipboard is used to print the Chart.", 53},
      {481, "frmResults.Copy", "Problem with Windows Clipboard.", 53},
      {482, "", "Printer Problem.  Try to fix before trying this operation again.", 53},
      {3049, "", "Unknown Error.", 50},
  };
  for (const auto& c : cases) {
    ErrorMessage m = ErrorMessageFor(c.number, c.source);
    EXPECT_EQ(m.text, c.text) << c.number;
    EXPECT_EQ(m.style, c.style) << c.number;
  }
  EXPECT_EQ(FileErrorNumber(ENOSPC), err::kDiskFull);
  EXPECT_EQ(FileErrorNumber(EACCES), err::kPermissionDenied);
  EXPECT_EQ(FileErrorNumber(ENOENT), err::kFileNotFound);
  EXPECT_EQ(StoreErrorNumber(11 /* corrupt */), err::kDamagedFile);
  EXPECT_EQ(StoreErrorNumber(5 /* busy */), err::kFileInUse);
  EXPECT_EQ(StoreErrorNumber(13 /* full */), err::kDiskFull);
  EXPECT_EQ(StoreErrorNumber(275 /* check constraint */), err::kFieldTooLong);
  EXPECT_EQ(std::make_tuple(ActionFor(Answer::kOk), ActionFor(Answer::kRetry),
                            ActionFor(Answer::kCancel), ActionFor(Answer::kIgnore),
                            ActionFor(Answer::kAbort), ActionFor(Answer::kNo)),
            std::make_tuple(action::kRetry, action::kRetry, action::kContinue, action::kContinue,
                            action::kAbort, action::kLeave));
}

TEST(ErrorHandler, AnUnwritableLogIsPassedOverSilently) {
  TempHome t;
  std::filesystem::create_directories(t.state.home.Log());  // a folder where the file should be
  EXPECT_EQ(ReportError(t.state, "basUtil.X", FileError(57, "disk"), false), action::kContinue);
}

TEST(ShowProgramError, NamesTheRoutineAndTheErrorAndTheLogUsesTwelveHours) {
  test::ScriptedUserIo io;
  ShowProgramError(io, "basUtil.StripIt", 13, "Type mismatch");
  ShowProgramError(io, "basUtil.StripIt", 0, "");
  ASSERT_EQ(io.shown.size(), 2u);
  EXPECT_EQ(io.shown[0].text,
            "A program error has occurred.\r\nbasUtil.StripIt error.\r\nError: 13 - Type mismatch");
  EXPECT_EQ(io.shown[1].text, "A program error has occurred.\r\nbasUtil.StripIt error.");
  EXPECT_EQ(io.shown[0].title, "Norvan's KVL RENEWED");
  EXPECT_EQ(LongTimeText(DateTime{Date{2026, 1, 1}, 0, 5, 9}), "12:05:09 AM");
  EXPECT_EQ(LongTimeText(DateTime{Date{2026, 1, 1}, 13, 0, 0}), "1:00:00 PM");
  EXPECT_EQ(LongDateText(Date{2024, 2, 29}), "Thursday, February 29, 2024");
}

}  // namespace
}  // namespace kvlr
