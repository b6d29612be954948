# event/unzip/online screen tests
kvlr_add_test(ui_online_test
  SOURCES OnlineScreensTest.cpp
  LIBS kvlr_ui)
