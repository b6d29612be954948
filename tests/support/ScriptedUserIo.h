#pragma once
// A user who answers from a script and remembers everything shown.

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "core/UserIo.h"

namespace kvlr::test {

class ScriptedUserIo final : public UserIo {
 public:
  struct Shown {
    std::string text;
    int style;
    std::string title;
  };
  // Answers given in turn to boxes that ask; an empty script answers Yes/OK.
  void Script(std::initializer_list<Answer> answers) { answers_.insert(answers_.end(), answers); }
  Answer Message(std::string_view text, int style, std::string_view title) override;
  void Progress(std::string_view line) override { progress.emplace_back(line); }
  // True if any message holds `part`.
  bool Saw(std::string_view part) const;
  std::vector<Shown> shown;
  std::vector<std::string> progress;
  // Called as each box is shown, before it is answered.
  std::function<void(const Shown&)> on_message;

 private:
  std::deque<Answer> answers_;
};

}  // namespace kvlr::test
