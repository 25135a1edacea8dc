# Tests of what a newcomer touches: the demo, the documented programs and commands, the scripts.

set(KV_REPOSITORY_DEFINITIONS
  KV_SOURCE_DIRECTORY="${PROJECT_SOURCE_DIR}" KV_BUILD_DIRECTORY="${CMAKE_BINARY_DIR}")

add_library(kv_outside_command STATIC outsidecommand.cpp)
target_link_libraries(kv_outside_command PUBLIC Qt5::Core GTest::gtest PRIVATE kv_warnings)

# kv_add_repository_test(<name>): outside of the library, with the paths of the repository and of the build
function(kv_add_repository_test name)
  kv_add_test(${name} ${name}.cpp LIBRARIES kv_outside_command Qt5::Gui)
  target_compile_definitions(${name} PRIVATE ${KV_REPOSITORY_DEFINITIONS})
endfunction()

kv_add_repository_test(demo_test)
add_dependencies(demo_test kv-demo)
kv_add_repository_test(scripts_test)

# The documented commands use the compilers as a reader would, without sanitizers.
if(NOT KV_SANITIZE)
  kv_add_repository_test(documented_programs_test)
  add_dependencies(documented_programs_test kvsignpadsdk kvsignpaddrv)
  if(TARGET kv-virtualpad)
    kv_add_repository_test(documented_drivers_test)
    add_dependencies(documented_drivers_test kvsign kvsignpaddrv kvsignpaddrv_recorder kv-virtualpad)
  endif()
  find_program(KV_JAVAC javac)
  find_file(KV_JNA jna.jar PATHS /usr/share/java)
  find_program(KV_MCS mcs)
  find_program(KV_PYTHON python3)
  if(KV_JAVAC AND KV_JNA)
    target_compile_definitions(documented_programs_test PRIVATE KV_JNA="${KV_JNA}")
  endif()
  if(KV_MCS)
    target_compile_definitions(documented_programs_test PRIVATE KV_WITH_MONO)
  endif()
  if(KV_PYTHON)
    target_compile_definitions(documented_programs_test PRIVATE KV_WITH_PYTHON)
  endif()
endif()
