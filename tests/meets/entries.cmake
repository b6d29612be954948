kvlr_add_test(entries_test
  SOURCES
    EntriesTest.cpp
    FavoritesTest.cpp
  LIBS kvlr_meets)

find_package(Qt6 REQUIRED COMPONENTS Test)
kvlr_add_test(ui_entries_test
  SOURCES EntriesScreenTest.cpp
  LIBS kvlr_ui Qt6::Test)
