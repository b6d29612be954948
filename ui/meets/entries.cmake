target_sources(kvlr_ui PRIVATE
  EntriesScreen.cpp
  FavoritesScreen.cpp
)
