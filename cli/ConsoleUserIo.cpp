#include "ConsoleUserIo.h"

#include <iostream>
#include <string>

namespace kvlr {
namespace {

// Line breaks of box texts become plain new lines.
std::string PlainText(std::string_view text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r') {
      out += '\n';
      if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      out += text[i];
    }
  }
  return out;
}

}  // namespace

ConsoleUserIo::ConsoleUserIo(std::ostream& err, std::istream& in, bool interactive,
                             std::optional<bool> preset)
    : err_(err), in_(in), interactive_(interactive), preset_(preset) {}

Answer ConsoleUserIo::Message(std::string_view text, int style, std::string_view title) {
  const int buttons = box::Buttons(style);
  const std::string plain = PlainText(text);
  if (buttons == box::kYesNo || buttons == box::kYesNoCancel) {
    if (preset_) return *preset_ ? Answer::kYes : Answer::kNo;
    if (!interactive_) {
      err_ << plain << "\n(answer with --yes or --no)\n";
      throw QuestionUnanswered(plain);
    }
    err_ << plain << " [y/n] " << std::flush;
    std::string line;
    std::getline(in_, line);
    return (!line.empty() && (line[0] == 'y' || line[0] == 'Y')) ? Answer::kYes : Answer::kNo;
  }
  told_ = true;
  if (!title.empty() && title != kProgramTitle) err_ << title << ": ";
  err_ << plain << "\n";
  // A box that offers a way out of a failing step is answered with it.
  switch (buttons) {
    case box::kAbortRetryIgnore:
      return Answer::kAbort;
    case box::kOkCancel:
    case box::kRetryCancel:
      return Answer::kCancel;
    default:
      return Answer::kOk;
  }
}

}  // namespace kvlr
