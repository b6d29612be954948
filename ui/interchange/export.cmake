# the export screens of the File > Export menu
target_sources(kvlr_ui PRIVATE
  ExportFolderBox.cpp
  ExportEntriesScreen.cpp
  ExportResultsScreen.cpp
  ExportScreens.cpp)
