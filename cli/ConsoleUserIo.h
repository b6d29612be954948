#pragma once
// Messages and questions on a terminal. Questions are answered by --yes / --no, else asked
// when a terminal is there, else the command stops and the question is printed.

#include <iosfwd>
#include <optional>
#include <stdexcept>

#include "core/UserIo.h"

namespace kvlr {

// A question nobody could answer: the command stops (exit 1).
class QuestionUnanswered : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class ConsoleUserIo final : public UserIo {
 public:
  // `preset` is the --yes (true) or --no (false) answer, if given.
  ConsoleUserIo(std::ostream& err, std::istream& in, bool interactive, std::optional<bool> preset);

  Answer Message(std::string_view text, int style, std::string_view title) override;
  void Progress(std::string_view) override {}

  // Replaces the --yes (true) / --no (false) answer; nullopt asks again.
  void SetPreset(std::optional<bool> preset) { preset_ = preset; }

  // True once a plain message (a refusal or a report) was shown.
  bool Told() const { return told_; }

 private:
  std::ostream& err_;
  std::istream& in_;
  bool interactive_;
  std::optional<bool> preset_;
  bool told_ = false;
};

}  // namespace kvlr
