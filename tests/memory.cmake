# Memory that cannot be had, and memory that is not given back.

# The sanitizers have allocators of their own.
if(NOT KV_SANITIZE)
  # A driver that asks for no memory, so that only the library's allocations count.
  add_library(kv_quiet_driver SHARED ${PROJECT_SOURCE_DIR}/bench/benchdriver.cpp)
  set_target_properties(kv_quiet_driver PROPERTIES OUTPUT_NAME kvsignpaddrv NO_SONAME ON
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/simulator/quiet)
  target_include_directories(kv_quiet_driver PRIVATE ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
  target_link_libraries(kv_quiet_driver PRIVATE kv_warnings)
  kv_add_tests(memory_tests PADS
    allocation_faults_test.cpp
    SOURCES memorycalls.cpp quietpad.cpp crashingchild.cpp failingmemory.cpp
    DEFINES KV_QUIET_DRIVER_DIRECTORY="${CMAKE_BINARY_DIR}/simulator/quiet" RUNS kv_quiet_driver)
endif()

# Many cycles in one process: kv_soak CYCLES, in the simulator's directory.
add_executable(kv_soak soak.cpp ${PROJECT_SOURCE_DIR}/fuzz/openpad.cpp ${PROJECT_SOURCE_DIR}/fuzz/target.cpp)
target_include_directories(kv_soak PRIVATE
  ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/fuzz ${PROJECT_SOURCE_DIR}/simulator)
target_link_libraries(kv_soak PRIVATE kvsignpadsdk Qt5::Widgets ${CMAKE_DL_LIBS} kv_warnings)
target_compile_options(kv_soak PRIVATE ${KV_TEST_OPTIONS})
add_dependencies(kv_soak kvsignpaddrv)
