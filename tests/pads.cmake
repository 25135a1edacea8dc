# Tests of the library on faulty pads, on recorded ones and on the virtual pad.

kv_add_tests(faults_tests PADS
  faults_test.cpp recorder_replay_test.cpp
  SOURCES faultrun.cpp faults_of_calls.cpp faults_of_pads.cpp LIBRARIES kv_recording
  RUNS kvsignpaddrv_recorder ${KV_DRIVERS_WITHOUT})

if(TARGET kv_virtualpad)
  kv_add_tests(virtualpad_tests PADS
    packetclock_test.cpp padcommands_test.cpp
    THREADS virtualpad_connections_test.cpp virtualpad_test.cpp virtualpad_troubles_test.cpp
    LIBRARIES kv_virtualpad Qt5::Test
    DEFINES KV_VIRTUALPAD="$<TARGET_FILE:kv-virtualpad>" RUNS kv-virtualpad)
endif()
