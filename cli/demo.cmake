target_sources(kvlr_clilib PRIVATE DemoCommands.cpp)
target_link_libraries(kvlr_clilib PUBLIC kvlr_demo)
