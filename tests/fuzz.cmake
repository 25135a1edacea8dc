# What fuzzing found and starts from, replayed.

if(TARGET kv_fuzz_entries)
  kv_add_tests(fuzz_replay_test PADS fuzz_replay_test.cpp
    LIBRARIES kv_fuzz_entries DEFINES KV_FUZZ_DIRECTORY="${PROJECT_SOURCE_DIR}/fuzz")
endif()
