# tests of the online result files, event files and unzipping
kvlr_add_test(online_test
  SOURCES ScrambleTest.cpp EventFileTest.cpp PsnTest.cpp
  LIBS kvlr_interchange kvlr_athletes)

kvlr_add_test(event_command_test
  SOURCES EventCommandTest.cpp
  LIBS kvlr_clilib)
