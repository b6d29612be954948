target_sources(kvlr_meets PRIVATE
  Meets.cpp
  MeetTypes.cpp
  MeetEvents.cpp
  DefaultEvents.cpp
)
