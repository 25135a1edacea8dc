# What fuzzing found and starts from, replayed.

if(TARGET kv_fuzz_entries)
  kv_add_test(fuzz_replay_test fuzz_replay_test.cpp PADS LIBRARIES kv_fuzz_entries)
  target_compile_definitions(fuzz_replay_test PRIVATE KV_FUZZ_DIRECTORY="${PROJECT_SOURCE_DIR}/fuzz")
endif()
