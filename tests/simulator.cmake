# Tests of the pad simulator itself; the library has no part in them.

kv_add_test(recording_test recording_test.cpp LIBRARIES kv_handwriting)

kv_add_test(virtuallink_test virtuallink_test.cpp THREADS LIBRARIES kv_playback Threads::Threads ${CMAKE_DL_LIBS})
target_include_directories(virtuallink_test PRIVATE ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
add_dependencies(virtuallink_test kvsignpaddrv)

foreach(name simulator_test simulator_playback_test driver_threads_test)
  kv_add_test(${name} ${name}.cpp THREADS LIBRARIES Qt5::Gui Threads::Threads ${CMAKE_DL_LIBS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/simulator ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
  add_dependencies(${name} kvsignpaddrv kvsignpaddrv_without_UnInitial)
endforeach()

# A host of its own: an interpreter that is not sanitized cannot load what is.
find_program(KV_PYTHON python3)
if(KV_PYTHON AND NOT KV_SANITIZE)
  kv_add_test(host_ends_test host_ends_test.cpp LIBRARIES Qt5::Core)
  target_compile_definitions(host_ends_test PRIVATE
    KV_ENDING_HOST="${CMAKE_CURRENT_SOURCE_DIR}/hosts/ending_host.py" KV_LIBRARY="$<TARGET_FILE:kvsignpadsdk>")
  add_dependencies(host_ends_test kvsignpadsdk kvsignpaddrv)
endif()
