# Tests of the pad simulator itself; the library has no part in them: its recordings, its control face, faults, the
# recorder; and what the programs ask of a driver's file.

set(KV_DRIVERS_WITHOUT "")
foreach(operation IN LISTS SIM_OPERATIONS)
  list(APPEND KV_DRIVERS_WITHOUT kvsignpaddrv_without_${operation})
endforeach()

if(NOT KV_SANITIZE MATCHES address) # which fails by itself where a thread is unwound to its end
  set(unwound driver_threads_test.cpp)
endif()
kv_add_tests(simulator_tests
  driverfile_test.cpp recording_test.cpp scramble_recording_test.cpp
  THREADS ${unwound} faultplayback_test.cpp recorder_processes_test.cpp recorder_test.cpp
    simulator_playback_test.cpp simulator_test.cpp virtuallink_test.cpp
  LIBRARIES kv_driverfile kv_handwriting kv_playback Qt5::Gui Threads::Threads ${CMAKE_DL_LIBS}
  DEFINES KV_SCRAMBLE="$<TARGET_FILE:kv-scramble-recording>"
  RUNS kvsignpaddrv kvsignpaddrv_recorder kvsignpaddrv_without_UnInitial kvsignpaddrv_without_GetDevicePadID
    kv-scramble-recording)

# A host of its own: an interpreter that is not sanitized cannot load what is.
find_program(KV_PYTHON python3)
if(KV_PYTHON)
  kv_add_tests(host_ends_test UNSANITIZED host_ends_test.cpp LIBRARIES Qt5::Core
    DEFINES KV_ENDING_HOST="${CMAKE_CURRENT_SOURCE_DIR}/hosts/ending_host.py" KV_LIBRARY="$<TARGET_FILE:kvsignpadsdk>"
    RUNS kvsignpadsdk kvsignpaddrv)
endif()
