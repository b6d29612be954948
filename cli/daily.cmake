target_sources(kvlr_clilib PRIVATE DailyCommands.cpp)
target_link_libraries(kvlr_clilib PUBLIC kvlr_daily)
