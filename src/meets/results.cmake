target_sources(kvlr_meets PRIVATE
  ResultsQuery.cpp
  ResultLookups.cpp
  Splits.cpp
  RelayLegs.cpp
  ResultComments.cpp
  ResultsByName.cpp
)
