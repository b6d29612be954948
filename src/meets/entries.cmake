target_sources(kvlr_meets PRIVATE
  Entries.cpp
  Favorites.cpp
)
