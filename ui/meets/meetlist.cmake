target_sources(kvlr_ui PRIVATE
  MeetListModel.cpp
  MeetListScreen.cpp
  MeetCardScreen.cpp
  MeetTypeModel.cpp
  MeetTypeScreens.cpp
  EventListModel.cpp
  EventScreens.cpp
)
