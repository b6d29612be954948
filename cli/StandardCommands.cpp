// Filled by its owner.
#include "Command.h"

namespace kvlr::cli {

std::vector<Command> StandardCommands() { return {}; }

}  // namespace kvlr::cli
