#include "Command.h"

namespace kvlr::cli {

std::vector<Command> ImportCommands() { return {}; }

}  // namespace kvlr::cli
