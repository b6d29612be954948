# Choosing an import file: zip rules and extraction.
target_sources(kvlr_interchange PRIVATE ImportChoice.cpp)
