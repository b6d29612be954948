#pragma once
// The one way core code asks and tells the user. The desktop program answers with
// dialogs, the command-line tool with prompts and flags, tests with scripted answers.

#include <string>
#include <string_view>

namespace kvlr {

// Box styles are the sum of an icon and a button set, as the message table gives them.
namespace box {
inline constexpr int kOk = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kAbortRetryIgnore = 2;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kRetryCancel = 5;
inline constexpr int kStop = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;

inline constexpr int Buttons(int style) {
  return style & 7;
}
inline constexpr int Icon(int style) {
  return style & 0x70;
}
}  // namespace box

// The button the user pressed.
enum class Answer { kOk = 1, kCancel = 2, kAbort = 3, kRetry = 4, kIgnore = 5, kYes = 6, kNo = 7 };

class UserIo {
 public:
  virtual ~UserIo() = default;

  // A message box; returns the button pressed. `title` empty means the program's name.
  virtual Answer Message(std::string_view text, int style, std::string_view title) = 0;

  // The line of a progress panel ("Checking System Tables", "Compacting Database...").
  virtual void Progress(std::string_view line) = 0;

  // True once the user asked a long run to stop.
  virtual bool Cancelled() { return false; }

  // Shorthands.
  void Tell(std::string_view text, std::string_view title = {}) {
    Message(text, box::kExclamation, title);
  }
  bool AskYesNo(std::string_view text, std::string_view title = {}) {
    return Message(text, box::kYesNo + box::kQuestion, title) == Answer::kYes;
  }
};

// Title of plain boxes.
inline constexpr std::string_view kProgramTitle = "Norvan's KVL RENEWED";

}  // namespace kvlr
