// Filled by its owner.
#include "Command.h"

namespace kvlr::cli {

std::vector<Command> ConversionCommands() { return {}; }

}  // namespace kvlr::cli
