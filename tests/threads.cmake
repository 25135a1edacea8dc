# Threads, hosts without Qt, bad input.

kv_add_tests(threads_tests PADS
  THREADS hostwindow_destroyed_test.cpp repaint_requests_test.cpp signing_beside_calls_test.cpp
    taps_call_back_test.cpp)
kv_add_tests(threads_inside_tests INSIDE
  forked_child_test.cpp
  THREADS lock_use_test.cpp repaint_turns_test.cpp)
kv_add_tests(badinput_tests PADS
  badinput_arguments_test.cpp badinput_canvas_test.cpp badinput_fulldisk_test.cpp badinput_models_test.cpp
  badinput_packets_test.cpp)

# Count allocations and memory, which the sanitizers use in their own way.
kv_add_tests(packet_allocations_test PADS UNSANITIZED packet_allocations_test.cpp)
kv_add_tests(output_memory_test PADS UNSANITIZED output_memory_test.cpp)
kv_add_tests(outputs_without_memory_test PADS UNSANITIZED outputs_without_memory_test.cpp)

# A C compiler, the public header and the shared library: nothing else.
add_executable(threads_chost hosts/threads_chost.c)
set_target_properties(threads_chost PROPERTIES C_STANDARD 11)
target_link_libraries(threads_chost PRIVATE kvsignpadsdk kv_warnings ${CMAKE_DL_LIBS})
add_dependencies(threads_chost kvsignpaddrv)
kv_run_test(threads_chost hosts/threads_chost.c $<TARGET_FILE:threads_chost>)
kv_label(threads threads_chost)
add_dependencies(kv_threads_tests threads_chost)

# Its children leave the parent's pad alone, which a sanitizer takes for a leak.
add_executable(forks_chost hosts/forks_chost.c)
set_target_properties(forks_chost PROPERTIES C_STANDARD 11)
target_link_libraries(forks_chost PRIVATE kvsignpadsdk kv_warnings)
add_dependencies(forks_chost kvsignpaddrv)
if(NOT KV_SANITIZE)
  kv_run_test(forks_chost hosts/forks_chost.c $<TARGET_FILE:forks_chost>)
endif()

# Clang's run time of the sanitizers for C++, which the library needs, comes with the linker's call for C++ alone.
if(KV_SANITIZE)
  set_target_properties(threads_chost forks_chost PROPERTIES LINKER_LANGUAGE CXX)
endif()
