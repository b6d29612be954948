# kvlr export-entries, export-results
target_sources(kvlr_clilib PRIVATE ExportCommands.cpp)
