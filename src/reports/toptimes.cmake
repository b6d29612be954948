# The top times report and the memorized report settings.
target_sources(kvlr_reports PRIVATE TopTimes.cpp Memorized.cpp)
