# Tests of faulty pads, of recorders and of the virtual pad.

kv_add_test(faultplayback_test faultplayback_test.cpp THREADS LIBRARIES kv_recording Threads::Threads ${CMAKE_DL_LIBS})
target_include_directories(faultplayback_test PRIVATE ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
add_dependencies(faultplayback_test kvsignpaddrv)

kv_add_test(faults_test faults_test.cpp faultrun.cpp faults_of_calls.cpp faults_of_pads.cpp PADS LIBRARIES kv_recording)
foreach(operation IN ITEMS Initial UnInitial OpenDeviceLCD ClearDeviceContent GetDevicePenID GetDevicePadID
    GetDeviceSecureID GetDevicePartsVersion ShowVersionInfoOnDevice SetDevicePenStyle ShowFPImageOnDevice)
  add_dependencies(faults_test kvsignpaddrv_without_${operation})
endforeach()

foreach(name recorder_test recorder_processes_test)
  kv_add_test(${name} ${name}.cpp THREADS LIBRARIES kv_recording Threads::Threads ${CMAKE_DL_LIBS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
  add_dependencies(${name} kvsignpaddrv kvsignpaddrv_recorder kvsignpaddrv_without_GetDevicePadID)
endforeach()

kv_add_test(recorder_replay_test recorder_replay_test.cpp PADS LIBRARIES kv_recording)
add_dependencies(recorder_replay_test kvsignpaddrv_recorder)

kv_add_test(scramble_recording_test scramble_recording_test.cpp LIBRARIES kv_recording)
target_compile_definitions(scramble_recording_test PRIVATE KV_SCRAMBLE="$<TARGET_FILE:kv-scramble-recording>")
add_dependencies(scramble_recording_test kv-scramble-recording)

if(TARGET kv_virtualpad)
  find_package(Qt5 5.15 REQUIRED COMPONENTS Network Test)
  kv_add_test(packetclock_test packetclock_test.cpp LIBRARIES kv_virtualpad)
  target_include_directories(packetclock_test PRIVATE ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
  kv_add_test(padcommands_test padcommands_test.cpp LIBRARIES kv_virtualpad)
  foreach(name virtualpad_test virtualpad_troubles_test virtualpad_connections_test)
    kv_add_test(${name} ${name}.cpp PADS THREADS LIBRARIES kv_virtualpad Qt5::Test)
    target_compile_definitions(${name} PRIVATE KV_VIRTUALPAD="$<TARGET_FILE:kv-virtualpad>")
    add_dependencies(${name} kv-virtualpad)
  endforeach()
endif()
