// Filled by its owner.
#include "Command.h"

namespace kvlr::cli {

std::vector<Command> RankCommands() { return {}; }

}  // namespace kvlr::cli
