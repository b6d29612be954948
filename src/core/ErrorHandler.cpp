#include "core/ErrorHandler.h"

#include <algorithm>
#include <initializer_list>

#include <fmt/format.h>

#include "core/ErrorLog.h"
#include "core/Errors.h"

namespace kvlr {
namespace {

bool In(int number, std::initializer_list<int> list) {
  return std::find(list.begin(), list.end(), number) != list.end();
}

}  // namespace

ErrorMessage ErrorMessageFor(int n, std::string_view source) {
  static constexpr std::string_view kFileProcessing = "File Processing Error.";
  if (In(n, {6, 7, 11, 14, 28, 51, 31001})) {
    return {"Serious Windows Error.\r\nIn most cases, you should Abort your current operation.",
            18};
  }
  if (In(n, {13, 94})) return {"Data error.", 50};
  if (In(n, {52, 64})) return {"That filename is illegal.", 49};
  if (In(n, {53, 58, 59, 63, 67, 70, 75, 76, 321, 322, 31036, 31037})) {
    return {std::string(kFileProcessing), 50};
  }
  if (n == 54) return {"Can't open your file for that type of access.", 48};
  if (n == 55) return {"This file is already open.", 48};
  if (n == 57) return {"Internal disk error.", 48};
  if (n == 61) return {"Disk is full. Continue?", 50};
  if (n == 62) {
    return {
        "This file has a nonstandard end-of-file marker, or an attempt was made to read "
        "beyond the end-of-file marker.",
        50};
  }
  if (n == 68) return {"That device appears unavailable.", 49};
  if (n == 71) return {"Insert a disk in the drive and close the door.", 49};
  if (n == 91) return {"An application error has occurred trying to access data.", 50};
  if (In(n, {460, 481, 485, 520, 521})) {
    std::string text = "Problem with Windows Clipboard.";
    if (source.find("frmGraph") != std::string_view::npos) {
      text += "\r\nThe Clipboard is used to print the Chart.";
    }
    return {text, 53};
  }
  if (In(n, {482, 483, 484})) {
    return {"Printer Problem.  Try to fix before trying this operation again.", 53};
  }
  return {"Unknown Error.", 50};
}

int ActionFor(Answer answer) {
  switch (answer) {
    case Answer::kOk:
    case Answer::kRetry:
      return action::kRetry;
    case Answer::kCancel:
    case Answer::kIgnore:
      return action::kContinue;
    case Answer::kAbort:
      return action::kAbort;
    default:
      return action::kLeave;
  }
}

int ErrorHandler(AppState& state, const std::exception& error, bool display) {
  const int number = ErrorNumberOf(error);
  ErrorLogEntry entry{state.clock->Now(), error.what(),   state.gErrorSource, number,
                      state.gShortDbName, state.gAthlete, state.gCurrentMeet};
  AppendErrorLog(state.home.Log(), entry);
  if (!display) return action::kContinue;

  ErrorMessage message = ErrorMessageFor(number, state.gErrorSource);
  std::string text =
      fmt::format("{}\r\n\r\nError Description: {}\r\nError Source: {}\r\nError Number: {}",
                  message.text, entry.description, entry.source, number);
  return ActionFor(state.io->Message(text, message.style, kProgramErrorTitle));
}

int ReportError(AppState& state, std::string_view source, const std::exception& error,
                bool display) {
  state.gErrorSource = std::string(source);
  state.gErrorAction = ErrorHandler(state, error, display);
  return state.gErrorAction;
}

void ShowProgramError(UserIo& io, std::string_view routine, int number, std::string_view text) {
  std::string message = fmt::format("A program error has occurred.\r\n{} error.", routine);
  if (number > 0) message += fmt::format("\r\nError: {} - {}", number, text);
  io.Message(message, box::kExclamation, kProgramTitle);
}

}  // namespace kvlr
