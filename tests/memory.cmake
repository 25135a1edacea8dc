# Memory that is not given back.

# Many cycles in one process: kv_soak CYCLES, in the simulator's directory.
add_executable(kv_soak soak.cpp ${PROJECT_SOURCE_DIR}/fuzz/openpad.cpp ${PROJECT_SOURCE_DIR}/fuzz/target.cpp)
target_include_directories(kv_soak PRIVATE
  ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/fuzz ${PROJECT_SOURCE_DIR}/simulator)
target_link_libraries(kv_soak PRIVATE kvsignpadsdk Qt5::Widgets ${CMAKE_DL_LIBS} kv_warnings)
target_compile_options(kv_soak PRIVATE ${KV_TEST_OPTIONS})
add_dependencies(kv_soak kvsignpaddrv)
