target_sources(kvlr_ui PRIVATE
  StandardScreens.cpp
)
