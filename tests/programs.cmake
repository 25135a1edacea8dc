# How test programs are made, and how ctest runs them.

# Tests are built often and run briefly, so they are not optimised: that halves the time to compile them. The checked copies
# work only in optimised code.
# With -fvisibility=hidden clang hides even a test's own malloc, which the libraries must find. GCC does not.
set(KV_TEST_OPTIONS -O0 $<IF:$<BOOL:${KV_QUICK}>,-g0,-g1> -U_FORTIFY_SOURCE -fvisibility=default)
if(KV_SANITIZE)
  list(APPEND KV_TEST_OPTIONS -fno-sanitize=undefined) # not in the tests' own code
endif()
if(KV_FUZZ)
  list(APPEND KV_TEST_OPTIONS -fno-sanitize=fuzzer-no-link)
endif()
find_program(KV_GOLD ld.gold) # links a test in a quarter of the time
if(KV_GOLD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  set(KV_TEST_LINK_OPTIONS -fuse-ld=gold)
endif()

# For all test programs: where to find the repository, the build and what is in them.
add_library(kv_test_settings INTERFACE)
target_include_directories(kv_test_settings INTERFACE
  ${CMAKE_CURRENT_SOURCE_DIR}/harness ${PROJECT_SOURCE_DIR}/simulator ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
target_compile_definitions(kv_test_settings INTERFACE
  KV_SOURCE_DIRECTORY="${PROJECT_SOURCE_DIR}" KV_BUILD_DIRECTORY="${CMAKE_BINARY_DIR}"
  KV_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data" KV_RECORDINGS="${PROJECT_SOURCE_DIR}/simulator/recordings"
  KV_KVSIGN="${CMAKE_BINARY_DIR}/tools/bin/kvsign")
if(KV_SANITIZE)
  target_compile_definitions(kv_test_settings INTERFACE KV_SANITIZED)
endif()
if(KV_QUICK)
  target_compile_definitions(kv_test_settings INTERFACE KV_QUICK) # tests of chance are briefer
endif()
target_compile_options(kv_test_settings INTERFACE ${KV_TEST_OPTIONS})
target_link_libraries(kv_test_settings INTERFACE GTest::gtest kv_warnings)

# The harness, compiled once: opens pads on the simulated driver, draws the pictures to compare with, runs other programs. It
# is linked to the shared library or to the one with everything visible.
add_library(kv_harness STATIC
  harness/everycall.cpp harness/exportedcalls_table.cpp harness/fingerprints.cpp harness/inkpicture.cpp
  harness/openpad.cpp harness/outsidecommand.cpp harness/readsvg.cpp)
target_link_libraries(kv_harness
  PUBLIC Qt5::Core Qt5::Gui Qt5::Widgets Qt5::Svg Threads::Threads ${CMAKE_DL_LIBS} PRIVATE kv_test_settings)
target_precompile_headers(kv_harness PRIVATE harness/testheaders.h)

# main(), with a QApplication and without.
add_library(kv_test_main STATIC harness/qtmain.cpp harness/testsoffile.cpp)
add_library(kv_test_plain_main STATIC harness/plainmain.cpp harness/testsoffile.cpp)
target_link_libraries(kv_test_main PRIVATE kv_harness kv_test_settings)
target_precompile_headers(kv_test_main REUSE_FROM kv_harness)
target_link_libraries(kv_test_plain_main PRIVATE kv_test_settings)

# The library's log files and its SVG file are in /tmp, so tests that use them must not run side by side. Each test gets a
# private /tmp where the system allows it. Elsewhere the tests that use one of these files run one after another; these words
# in a source give them away.
set(KV_APART ${CMAKE_CURRENT_SOURCE_DIR}/apart ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} --)
execute_process(COMMAND ${KV_APART} true RESULT_VARIABLE KV_NOT_APART OUTPUT_QUIET ERROR_QUIET)
if(KV_NOT_APART)
  message(STATUS "Tests have no /tmp of their own here; those that share files in it run one after another")
  set(KV_APART "")
endif()
set(KV_SHARES_FILES "logfile\\.h|logmessages\\.h|svgfiles\\.h|[sS][vV][gG]|KVeSign|everycall|exportedcalls_table|virtual|_fuzzer|examples")

set(KV_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen"
  "TSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/tsan.supp halt_on_error=1"
  "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/lsan.supp")

# kv_run_test(<name> <source> <command>...): adds one test to ctest. The source is searched for the shared files.
function(kv_run_test name source)
  add_test(NAME ${name} COMMAND ${KV_APART} ${ARGN} WORKING_DIRECTORY ${KV_DRIVER_DIRECTORY})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 ENVIRONMENT "${KV_TEST_ENVIRONMENT}")
  file(STRINGS ${source} shared REGEX "${KV_SHARES_FILES}" LIMIT_COUNT 1)
  if(KV_NOT_APART AND shared)
    set_property(TEST ${name} APPEND PROPERTY RESOURCE_LOCK kvsignpadsdk_files)
  endif()
endfunction()

# kv_environment(<test> <variable>=<value>...), kv_label(<label> <test>...): for tests that were added. kv_label passes over
# those that this build lacks.
function(kv_environment test)
  set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT ${ARGN})
endfunction()
function(kv_label label)
  foreach(test IN LISTS ARGN)
    if(TEST ${test})
      set_property(TEST ${test} APPEND PROPERTY LABELS ${label})
    endif()
  endforeach()
endfunction()

# What the tsan preset builds and runs: the tests labelled threads.
add_custom_target(kv_threads_tests)
if(KV_SANITIZE MATCHES thread)
  set(KV_ONLY_THREADS TRUE)
endif()

set(KV_UNIT ${CMAKE_CURRENT_SOURCE_DIR}/unit.cmake)
# kv_units(<variable> <program> <source>...): joins the tests into sources of up to ten tests each, see unit.cmake
function(kv_units variable program)
  set(units "")
  list(LENGTH ARGN left)
  while(left GREATER 0)
    math(EXPR parts "(${left} + 9) / 10")
    math(EXPR count "(${left} + ${parts} - 1) / ${parts}") # of about one size, so that they are compiled side by side
    list(SUBLIST ARGN 0 ${count} sources)
    list(REMOVE_ITEM ARGN ${sources})
    list(LENGTH ARGN left)
    if(count EQUAL 1)
      list(APPEND units ${sources})
      continue()
    endif()
    list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    list(LENGTH units number)
    set(unit ${CMAKE_CURRENT_BINARY_DIR}/units/${program}_${number}.cpp)
    string(REPLACE ";" "|" list "${sources}")
    add_custom_command(OUTPUT ${unit}
      COMMAND ${CMAKE_COMMAND} -DOUTPUT=${unit} "-DSOURCES=${list}" -P ${KV_UNIT}
      DEPENDS ${sources} ${KV_UNIT} COMMENT "Joining tests of ${program}" VERBATIM)
    list(APPEND units ${unit})
  endwhile()
  set(${variable} ${units} PARENT_SCOPE)
endfunction()

# kv_add_tests(<program> <name>_test.cpp... [THREADS <name>_test.cpp...] [UNSANITIZED <name>_test.cpp...]
#   [PADS | INSIDE] [NO_APPLICATION] [SOURCES ...] [LIBRARIES ...] [DEFINES ...] [RUNS ...])
# Makes one program; ctest runs each <name>_test.cpp as <name>_test, in its own process. A test that replaces functions of the
# system or of Qt needs its own program.
# THREADS: run under ThreadSanitizer too; a build with it leaves the others out.
# UNSANITIZED: built, but not run, under the other sanitizers; labelled unsanitized elsewhere.
# PADS: with the harness, the shared library and a QApplication. The tests can call only the exported functions.
# INSIDE: the same with the library that has everything visible. Without PADS or INSIDE there is neither harness, library nor
#   application.
# NO_APPLICATION: with PADS, leaves out the QApplication.
# SOURCES: further sources. RUNS: targets that the tests run or load.
function(kv_add_tests program)
  cmake_parse_arguments(arg "PADS;INSIDE;NO_APPLICATION" "" "THREADS;UNSANITIZED;SOURCES;LIBRARIES;DEFINES;RUNS" ${ARGN})
  set(tests ${arg_THREADS})
  if(NOT KV_ONLY_THREADS)
    list(APPEND tests ${arg_UNPARSED_ARGUMENTS} ${arg_UNSANITIZED})
  endif()
  if(NOT tests)
    return()
  endif()
  kv_units(units ${program} ${tests})
  add_executable(${program} ${units} ${arg_SOURCES})
  if(arg_INSIDE OR arg_PADS)
    target_link_libraries(${program} PRIVATE kv_harness $<IF:$<BOOL:${arg_INSIDE}>,kvsignpadsdk_inside,kvsignpadsdk>)
    target_precompile_headers(${program} REUSE_FROM kv_harness)
    list(APPEND arg_RUNS kvsignpaddrv)
  endif()
  if((arg_INSIDE OR arg_PADS) AND NOT arg_NO_APPLICATION)
    target_link_libraries(${program} PRIVATE kv_test_main)
  else()
    target_link_libraries(${program} PRIVATE kv_test_plain_main)
  endif()
  target_include_directories(${program} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${program} PRIVATE kv_test_settings ${arg_LIBRARIES})
  target_link_options(${program} PRIVATE ${KV_TEST_LINK_OPTIONS})
  target_compile_definitions(${program} PRIVATE ${arg_DEFINES})
  if(arg_RUNS)
    add_dependencies(${program} ${arg_RUNS})
  endif()
  if(KV_SANITIZE)
    list(REMOVE_ITEM tests ${arg_UNSANITIZED})
  endif()
  foreach(source IN LISTS tests)
    get_filename_component(name ${source} NAME_WE)
    kv_run_test(${name} ${source} $<TARGET_FILE:${program}> --file=${source})
  endforeach()
  foreach(label THREADS UNSANITIZED)
    foreach(source IN LISTS arg_${label})
      get_filename_component(name ${source} NAME_WE)
      string(TOLOWER ${label} lower)
      kv_label(${lower} ${name})
    endforeach()
  endforeach()
  if(arg_THREADS)
    add_dependencies(kv_threads_tests ${program})
  endif()
endfunction()
