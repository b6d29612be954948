# frmWorkout and the logbook's PDF
kvlr_add_test(ui_workouts_test
  SOURCES WorkoutScreenTest.cpp
  LIBS kvlr_ui)
