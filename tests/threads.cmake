# Threads, hosts without Qt, bad input.

set(kv_everycall everycall.cpp)
kv_add_test(signing_beside_calls_test signing_beside_calls_test.cpp ${kv_everycall} PADS THREADS)
kv_add_test(taps_call_back_test taps_call_back_test.cpp ${kv_everycall} PADS THREADS)
kv_add_test(repaint_requests_test repaint_requests_test.cpp PADS THREADS)
kv_add_test(repaint_turns_test repaint_turns_test.cpp INSIDE THREADS)
kv_add_test(hostwindow_destroyed_test hostwindow_destroyed_test.cpp PADS THREADS)
kv_add_test(forked_child_test forked_child_test.cpp INSIDE)
kv_add_test(lock_use_test lock_use_test.cpp INSIDE THREADS)

foreach(input arguments canvas fulldisk models packets)
  kv_add_test(badinput_${input}_test badinput_${input}_test.cpp inkpicture.cpp PADS)
endforeach()

# The sanitizers count allocations in their own way.
if(NOT KV_SANITIZE)
  kv_add_test(packet_allocations_test packet_allocations_test.cpp PADS)
  kv_add_test(output_memory_test output_memory_test.cpp inkpicture.cpp PADS)
  kv_add_test(outputs_without_memory_test outputs_without_memory_test.cpp PADS LIBRARIES kv_test_fingerprints)
endif()

# A C compiler, the public header and the shared library: nothing else.
add_executable(threads_chost hosts/threads_chost.c)
set_target_properties(threads_chost PROPERTIES C_STANDARD 11)
target_link_libraries(threads_chost PRIVATE kvsignpadsdk kv_warnings ${CMAKE_DL_LIBS})
add_dependencies(threads_chost kvsignpaddrv)
add_test(NAME threads_chost COMMAND threads_chost WORKING_DIRECTORY ${KV_DRIVER_DIRECTORY})
set_tests_properties(threads_chost PROPERTIES
  TIMEOUT 60 RESOURCE_LOCK kvsignpadsdk_files LABELS threads
  ENVIRONMENT "TSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/tsan.supp halt_on_error=1;LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/lsan.supp")

# Its children leave the parent's pad alone, which a sanitizer takes for a leak.
if(NOT KV_SANITIZE)
  add_executable(forks_chost hosts/forks_chost.c)
  set_target_properties(forks_chost PROPERTIES C_STANDARD 11)
  target_link_libraries(forks_chost PRIVATE kvsignpadsdk kv_warnings)
  add_dependencies(forks_chost kvsignpaddrv)
  add_test(NAME forks_chost COMMAND forks_chost WORKING_DIRECTORY ${KV_DRIVER_DIRECTORY})
  set_tests_properties(forks_chost PROPERTIES TIMEOUT 600 RESOURCE_LOCK kvsignpadsdk_files)
endif()
