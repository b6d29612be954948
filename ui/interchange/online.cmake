# event import, unzip and online-service screens
target_sources(kvlr_ui PRIVATE
  ImportEventsScreen.cpp
  UnZipScreen.cpp
  OnlineInfoScreen.cpp
  OnlineScreens.cpp)
