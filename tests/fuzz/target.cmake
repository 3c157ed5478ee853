# The fuzzing targets are replayed by test_fuzz; tests/fuzz.sh builds them for libFuzzer with Clang.
set(fuzz_sources
  ${CMAKE_CURRENT_LIST_DIR}/corpus.cpp
  ${CMAKE_CURRENT_LIST_DIR}/fuzz_input.cpp
  ${CMAKE_CURRENT_LIST_DIR}/readers.cpp
  ${CMAKE_CURRENT_LIST_DIR}/runs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/targets.cpp)
target_sources(test_fuzz PRIVATE ${fuzz_sources})
if(OVRI_FUZZ)
  add_executable(ovri_fuzz ${fuzz_sources} ${CMAKE_CURRENT_LIST_DIR}/libfuzzer_main.cpp)
  target_link_libraries(ovri_fuzz PRIVATE ovri_settings ovri_test_support)
  target_link_options(ovri_fuzz PRIVATE -fsanitize=fuzzer)
  add_executable(write_seeds ${fuzz_sources} ${CMAKE_CURRENT_LIST_DIR}/write_seeds.cpp)
  target_link_libraries(write_seeds PRIVATE ovri_settings ovri_test_support)
endif()
