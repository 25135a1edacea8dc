# Tests of the pad simulator itself; the library has no part in them.

kv_add_test(recording_test recording_test.cpp LIBRARIES kv_handwriting)

kv_add_test(virtuallink_test virtuallink_test.cpp THREADS LIBRARIES kv_playback Threads::Threads ${CMAKE_DL_LIBS})
target_include_directories(virtuallink_test PRIVATE ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
add_dependencies(virtuallink_test kvsignpaddrv)

foreach(name simulator_test simulator_playback_test)
  kv_add_test(${name} ${name}.cpp THREADS LIBRARIES Qt5::Gui Threads::Threads ${CMAKE_DL_LIBS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/simulator ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
  add_dependencies(${name} kvsignpaddrv kvsignpaddrv_without_UnInitial)
endforeach()
