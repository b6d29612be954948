// Filled by its owner.
#include "Command.h"

namespace kvlr::cli {

std::vector<Command> ResultCommands() { return {}; }

}  // namespace kvlr::cli
