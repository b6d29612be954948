// Filled by its owner.
#include "Command.h"

namespace kvlr::cli {

std::vector<Command> AthleteCommands() { return {}; }

}  // namespace kvlr::cli
