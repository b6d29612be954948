target_sources(kvlr_ui PRIVATE GraphScreen.cpp GraphScreens.cpp)
