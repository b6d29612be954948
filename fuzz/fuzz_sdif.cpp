// Any bytes as an SDIF or Commlink file: read into lines, every line through every reader,
// the check sum and the record checks, then the whole certification pass with a swimmer
// to match. Nothing may crash or read out of bounds.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/UserIo.h"
#include "interchange/Cl2CheckSum.h"
#include "interchange/SdifCertify.h"
#include "interchange/SdifChecks.h"
#include "interchange/SdifRecordChecks.h"
#include "interchange/SdifRecords.h"
#include "interchange/SwimmerMatch.h"

namespace {

class Quiet final : public kvlr::UserIo {
 public:
  kvlr::Answer Message(std::string_view, int, std::string_view) override {
    return kvlr::Answer::kYes;
  }
  void Progress(std::string_view) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace kvlr;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (std::string_view extension : {".CL2", ".SD3"}) {
    InterchangeLines file = ReadInterchangeText(text, extension);
    for (const std::string& line : file.lines) {
      const int order = static_cast<int>(line.size() % 3);
      SdifA0 a0;
      LoadA0Rec(line, order, a0);
      SdifB1 b1;
      LoadB1Rec(line, order, b1);
      SdifB2 b2;
      LoadB2Rec(line, b2);
      SdifC1 c1;
      LoadC1Rec(line, c1);
      SdifC2 c2;
      LoadC2Rec(line, c2);
      SdifD0 d0;
      LoadD0Rec(line, order, d0);
      SdifD1 d1;
      LoadD1Rec(line, order, d1);
      SdifD2 d2;
      LoadD2Rec(line, d2);
      SdifD3 d3;
      LoadD3Rec(line, d3);
      SdifE0 e0;
      LoadE0Rec(line, order, e0);
      SdifF0 f0;
      LoadF0Rec(line, order, f0);
      SdifG0 g0;
      LoadG0Rec(line, g0);
      SdifJ0 j0;
      LoadJ0Rec(line, order, j0);
      SdifJ2 j2;
      LoadJ2Rec(line, order, j2);
      SdifZ0 z0;
      LoadZ0Rec(line, z0);
      CheckCL2Line(line);
      ParseSwimmerName(line.substr(0, std::min<size_t>(line.size(), 28)));
      std::string problem;
      CheckD0(0, d0, &problem);
      CheckD0(1, d0, &problem);
      CheckE0(1, e0, &problem);
    }
    Quiet io;
    kvlr::ImportMonitor monitor;
    SwimmerMatcher matcher({1, "JANE", "DOE", "F"}, {{"JANE", "", 1}, {"ANN", "AN", 2}}, true);
    SDIFCheck(file.lines, size % 2 == 0, extension, false, 0, &matcher, monitor, io);
    SDIFCheck(file.lines, false, extension, true, 1, nullptr, monitor, io);
  }
  return 0;
}
