// Filled by its owner.
#include "Command.h"

namespace kvlr::cli {

std::vector<Command> BackupCommands() { return {}; }

}  // namespace kvlr::cli
