# The logbook and the workout statistics.
target_sources(kvlr_reports PRIVATE WorkoutReports.cpp)
target_link_libraries(kvlr_reports PUBLIC kvlr_workouts)
