target_sources(kvlr_interchange PRIVATE Nv3CheckSum.cpp Nv3Records.cpp)
