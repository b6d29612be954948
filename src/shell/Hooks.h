#pragma once

#include "core/AppState.h"

namespace kvlr {

// Every subsystem's steps in the shared flows: re-ranking, the current standard, the
// default favourite filter.
void InstallHooks(AppState& state);

}  // namespace kvlr
