# the import screen
target_sources(kvlr_ui PRIVATE
  ImportStatsModel.cpp
  ImportScreen.cpp)
