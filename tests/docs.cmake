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
endif()
