target_sources(kvlr_clilib PRIVATE EventCommands.cpp)
