#pragma once
// Turns a trapped failure into a line in the log, a box and a decision how to go on.

#include <exception>
#include <string>
#include <string_view>
#include <type_traits>

#include "core/AppState.h"

namespace kvlr {

// What a trap does next.
namespace action {
inline constexpr int kRetry = 0;     // OK or Retry: repeat the failed step
inline constexpr int kContinue = 1;  // Cancel or Ignore, or no box: go on with the next step
inline constexpr int kAbort = 2;     // Abort: leave with failure
inline constexpr int kLeave = 3;     // any other answer: leave with failure
}  // namespace action

inline constexpr std::string_view kProgramErrorTitle = "Program Error";

struct ErrorMessage {
  std::string text;
  int style = 0;
};

// The table's text and box style for an error number; `source` names the failing routine.
ErrorMessage ErrorMessageFor(int number, std::string_view source);

// The decision for the button pressed.
int ActionFor(Answer answer);

// Logs the failure under state.gErrorSource (written before any box shows), then, when
// `display`, shows the box titled "Program Error". Returns one of the actions above.
int ErrorHandler(AppState& state, const std::exception& error, bool display);

// The same, setting state.gErrorSource to `source` first: the usual form of a trap.
int ReportError(AppState& state, std::string_view source, const std::exception& error,
                bool display = true);

// The usual trap around a routine's body: a failure is reported under `source`; Retry runs
// the body again, any other answer gives `failed`.
template <class Body, class Result = std::invoke_result_t<Body>>
Result RunTrapped(AppState& state, std::string_view source, Body&& body, Result failed = {}) {
  for (;;) {
    try {
      return body();
    } catch (const std::exception& e) {
      if (ReportError(state, source, e) != action::kRetry) return failed;
    }
  }
}

// The short box of small routines; nothing is logged.
void ShowProgramError(UserIo& io, std::string_view routine, int number, std::string_view text);

}  // namespace kvlr
