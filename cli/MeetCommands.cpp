// Filled by its owner.
#include "Command.h"

namespace kvlr::cli {

std::vector<Command> MeetCommands() { return {}; }

}  // namespace kvlr::cli
