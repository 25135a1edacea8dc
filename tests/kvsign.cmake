# Tests of kvsign, the command-line tool: the program is run as a person would, and its files read by other programs.

if(NOT TARGET kvsign)
  return()
endif()

kv_add_tests(kvsign_tests PADS NO_APPLICATION
  kvsign_answers_test.cpp kvsign_atomic_test.cpp kvsign_big_test.cpp kvsign_broken_test.cpp kvsign_capture_test.cpp
  kvsign_doctor_test.cpp kvsign_documents_test.cpp kvsign_inkml_test.cpp kvsign_inspect_test.cpp
  kvsign_lossless_test.cpp kvsign_otherfiles_test.cpp kvsign_pictures_test.cpp kvsign_replay_test.cpp
  kvsign_tables_test.cpp kvsign_unplugged_test.cpp
  SOURCES kvsign.cpp
  RUNS kvsign kvsignpaddrv_without_SetDevicePenStyle kvsignpaddrv_without_ShowFPImageOnDevice)
kv_add_tests(kvsign_inside_tests PADS
  kvsign_outputs_test.cpp kvsign_window_test.cpp
  SOURCES kvsign.cpp LIBRARIES kv_kvsign RUNS kvsign)
