# Tests of kvsign, the command-line tool: the program is run as a person would, and its files read by other programs.

add_library(kv_kvsign_tests STATIC kvsign.cpp)
target_link_libraries(kv_kvsign_tests
  PUBLIC kv_outside_command kvsignpadsdk Qt5::Core Qt5::Gui PRIVATE kv_warnings)
target_compile_options(kv_kvsign_tests PRIVATE ${KV_TEST_OPTIONS})
target_compile_definitions(kv_kvsign_tests PUBLIC
  ${KV_REPOSITORY_DEFINITIONS} KV_KVSIGN="${CMAKE_BINARY_DIR}/tools/bin/kvsign")
if(KV_SANITIZE)
  target_compile_definitions(kv_kvsign_tests PUBLIC KV_SANITIZED)
endif()
add_dependencies(kv_kvsign_tests kvsign kvsignpaddrv)

kv_add_test(kvsign_commands_test
  kvsign_capture_test.cpp kvsign_inspect_test.cpp kvsign_replay_test.cpp kvsign_doctor_test.cpp
  kvsign_answers_test.cpp kvsign_atomic_test.cpp kvsign_unplugged_test.cpp
  LIBRARIES kv_kvsign_tests)
kv_add_test(kvsign_formats_test
  kvsign_lossless_test.cpp kvsign_otherfiles_test.cpp kvsign_broken_test.cpp kvsign_pictures_test.cpp
  kvsign_big_test.cpp kvsign_inkml_test.cpp kvsign_tables_test.cpp
  LIBRARIES kv_kvsign_tests)
kv_add_test(kvsign_window_test kvsign_window_test.cpp kvsign_outputs_test.cpp PADS LIBRARIES kv_kvsign kv_kvsign_tests)
kv_add_test(kvsign_documents_test kvsign_documents_test.cpp LIBRARIES kv_kvsign_tests)
add_dependencies(kvsign_commands_test kvsignpaddrv_without_SetDevicePenStyle kvsignpaddrv_without_ShowFPImageOnDevice)

kv_add_test(driverfile_test driverfile_test.cpp LIBRARIES kv_driverfile)
