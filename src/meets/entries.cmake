target_sources(kvlr_meets PRIVATE)
