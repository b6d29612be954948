#include "Command.h"

namespace kvlr::cli {

std::vector<Command> CheckCommands() { return {}; }

}  // namespace kvlr::cli
