target_sources(kvlr_ui PRIVATE
  ResultsBrowserModel.cpp
  ResultsBrowserScreen.cpp
  ResultsByNameModel.cpp
  ResultsByNameScreen.cpp
  SplitsScreen.cpp
  RelayLegsScreen.cpp
  CommentsScreen.cpp
)
