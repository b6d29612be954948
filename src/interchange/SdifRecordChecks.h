#pragma once
// The content checks of the swim records. `mode` 0 is a Commlink (.cl2) file, trusted for
// its content once its check sums pass, so these pass at once; mode 1 (.sd3) tests the
// fields. On failure `problem` (may be null) receives the label the failure box shows.

#include <string>

#include "interchange/SdifRecords.h"

namespace kvlr {

bool CheckD0(int mode, const SdifD0& rec, std::string* problem);
bool CheckE0(int mode, const SdifE0& rec, std::string* problem);

}  // namespace kvlr
