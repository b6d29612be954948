target_sources(kvlr_ui PRIVATE
  GoalsScreen.cpp
)
