target_sources(kvlr_clilib PRIVATE ImportCommands.cpp)
