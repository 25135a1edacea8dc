# Tests of the pad simulator itself; the library has no part in them.

kv_add_test(recording_test recording_test.cpp LIBRARIES kv_handwriting)

kv_add_test(virtuallink_test virtuallink_test.cpp THREADS LIBRARIES kv_playback Threads::Threads ${CMAKE_DL_LIBS})
target_include_directories(virtuallink_test PRIVATE ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
add_dependencies(virtuallink_test kvsignpaddrv)

set(tests simulator_test simulator_playback_test)
if(NOT KV_SANITIZE MATCHES "address") # which fails by itself where a thread is unwound to its end
  list(APPEND tests driver_threads_test)
endif()
foreach(name IN LISTS tests)
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
