add_executable(fuzz_pdb fuzz_pdb.cpp ${SRC}/handheld/Pdb.cpp ${SRC}/handheld/PdbRows.cpp)
target_link_libraries(fuzz_pdb PRIVATE fuzz_readers)
