#pragma once
// A user who answers every box with OK and ignores progress: benchmarks time the work only.

#include "core/UserIo.h"

namespace kvlr::bench {

class SilentIo final : public UserIo {
 public:
  Answer Message(std::string_view, int, std::string_view) override { return Answer::kOk; }
  void Progress(std::string_view) override {}
};

}  // namespace kvlr::bench
