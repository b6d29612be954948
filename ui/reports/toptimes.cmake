# Top times, memorizing report settings and the memorized reports list.
target_sources(kvlr_ui PRIVATE TopTimesScreen.cpp)
