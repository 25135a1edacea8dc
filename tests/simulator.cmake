# Tests of the pad simulator itself; they run in the directory of the driver.

kv_add_test(recording_test recording_test.cpp)
target_link_libraries(recording_test PRIVATE kv_handwriting)

foreach(name simulator_test simulator_playback_test)
  kv_add_test(${name} ${name}.cpp)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/simulator ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
  target_link_libraries(${name} PRIVATE Qt5::Gui Threads::Threads ${CMAKE_DL_LIBS})
  foreach(operation IN ITEMS "" _without_UnInitial)
    add_dependencies(${name} kvsignpaddrv${operation})
  endforeach()
  set_tests_properties(${name} PROPERTIES LABELS threads)
endforeach()
foreach(name recording_test simulator_playback_test)
  target_compile_definitions(${name} PRIVATE KV_RECORDINGS="${CMAKE_CURRENT_SOURCE_DIR}/data/recordings/")
endforeach()
