kvlr_add_test(graph_test
  SOURCES GraphDataTest.cpp GraphRenderTest.cpp
  LIBS kvlr_reports kvlr_clilib)
