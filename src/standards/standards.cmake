target_sources(kvlr_standards PRIVATE
  Standards.cpp
  StandardStore.cpp
  StandardsCsv.cpp
  StandardEditing.cpp
)
