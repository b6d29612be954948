# tests of the export: round trips through the import, line lengths and check sums, edge cases
kvlr_add_test(export_test
  SOURCES ExportTest.cpp
  LIBS kvlr_interchange kvlr_athletes)
