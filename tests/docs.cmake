# Tests of what a newcomer touches: the demo, the documented programs and commands, the scripts.

set(tests scripts_test.cpp)
set(run "")
if(TARGET kv-demo)
  list(APPEND tests demo_test.cpp)
  list(APPEND run kv-demo)
endif()
# What uses the compilers as a reader would, without sanitizers.
set(with_compilers documented_programs_test.cpp library_alone_test.cpp)
if(TARGET kv-virtualpad AND TARGET kvsign)
  list(APPEND with_compilers documented_drivers_test.cpp)
  list(APPEND run kvsign kvsignpaddrv_recorder kv-virtualpad)
endif()
kv_add_tests(documents_tests PADS NO_APPLICATION ${tests} UNSANITIZED ${with_compilers} RUNS ${run})
