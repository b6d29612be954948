#include "support/ScriptedUserIo.h"

namespace kvlr::test {

Answer ScriptedUserIo::Message(std::string_view text, int style, std::string_view title) {
  shown.push_back({std::string(text), style, std::string(title)});
  if (on_message) on_message(shown.back());
  if (!answers_.empty()) {
    Answer a = answers_.front();
    answers_.pop_front();
    return a;
  }
  const int buttons = box::Buttons(style);
  return buttons == box::kYesNo || buttons == box::kYesNoCancel ? Answer::kYes : Answer::kOk;
}

bool ScriptedUserIo::Saw(std::string_view part) const {
  for (const auto& s : shown) {
    if (s.text.find(part) != std::string::npos) return true;
  }
  return false;
}

}  // namespace kvlr::test
