target_sources(kvlr_clilib PRIVATE CheckCommands.cpp)
