kvlr_add_test(graph_test
  SOURCES GraphDataTest.cpp GraphRenderTest.cpp
  LIBS kvlr_reports kvlr_clilib)

kvlr_add_test(ui_graph_test
  SOURCES GraphScreenTest.cpp
  LIBS kvlr_ui)
