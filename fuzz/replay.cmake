# In the normal build every fuzz target's entry function is linked with a small
# driver that feeds it each file of the target's corpus, and each run is a test:
# an input that once crashed a reader stays in the corpus and keeps it fixed.
include(${CMAKE_CURRENT_LIST_DIR}/targets.cmake)

foreach(target ${TESSARO_FUZZ_TARGETS})
  set(replay replay_${target})
  add_executable(${replay} ${CMAKE_CURRENT_LIST_DIR}/${target}.cpp
                           ${CMAKE_CURRENT_LIST_DIR}/replay_main.cpp)
  target_link_libraries(${replay} PRIVATE tessaro_core)
  tessaro_warnings(${replay})
  add_test(NAME ${replay} COMMAND ${replay} ${CMAKE_CURRENT_LIST_DIR}/corpus/${target})
  set_tests_properties(${replay} PROPERTIES TIMEOUT 300)
endforeach()
