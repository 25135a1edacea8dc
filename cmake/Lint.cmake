# kv_lint: runs clang-tidy, with the checks of .clang-tidy, over all that is built outside the tests, but for the short
# programs of bench/ and fuzz/ themselves: each has a main() or an entry of its own, so none can be looked at together.
# Sources are checked in groups, because most of the time goes to the headers that they share. A group is checked again when
# one of its objects was rebuilt: the compiler already tracks what each source includes. That takes one object a source,
# hence KV_UNITY=OFF, as in the clang preset.

find_program(KV_CLANG_TIDY NAMES clang-tidy-14 clang-tidy)
find_program(KV_PYTHON python3)
if(NOT KV_CLANG_TIDY OR NOT KV_PYTHON OR NOT CMAKE_EXPORT_COMPILE_COMMANDS OR KV_UNITY)
  return()
endif()

set(KV_LINT_DIRECTORY ${CMAKE_BINARY_DIR}/lint)
file(MAKE_DIRECTORY ${KV_LINT_DIRECTORY})
add_custom_target(kv_lint)

# kv_lint_together(<target>...): checks the sources of these targets in groups of ten. The targets must have the same
# compiler options, because a group is checked as one source.
function(kv_lint_together first)
  set(all "")
  foreach(target IN LISTS first ARGN)
    if(NOT TARGET ${target})
      continue()
    endif()
    get_target_property(sources ${target} SOURCES)
    get_target_property(source_directory ${target} SOURCE_DIR)
    get_target_property(binary_directory ${target} BINARY_DIR)
    list(FILTER sources INCLUDE REGEX "^[^/$]+(/[^/$]+)*\\.cpp$")
    foreach(source IN LISTS sources)
      list(APPEND all ${source_directory}/${source})
      set(object_of_${source_directory}/${source} ${binary_directory}/CMakeFiles/${target}.dir/${source}.o)
    endforeach()
  endforeach()
  set(number 0)
  while(all)
    list(SUBLIST all 0 10 sources)
    list(REMOVE_ITEM all ${sources})
    set(objects "")
    foreach(source IN LISTS sources)
      list(APPEND objects ${object_of_${source}})
    endforeach()
    set(unit ${KV_LINT_DIRECTORY}/${first}_${number})
    add_custom_command(OUTPUT ${unit}.stamp
      COMMAND ${KV_PYTHON} ${PROJECT_SOURCE_DIR}/cmake/lint_together.py ${KV_CLANG_TIDY}
        ${CMAKE_BINARY_DIR}/compile_commands.json ${unit}.cpp ${sources}
      COMMAND ${CMAKE_COMMAND} -E touch ${unit}.stamp
      DEPENDS ${PROJECT_SOURCE_DIR}/.clang-tidy ${PROJECT_SOURCE_DIR}/cmake/lint_together.py ${objects}
      COMMENT "Looking at ${first}, part ${number}" VERBATIM)
    add_custom_target(kv_lint_${first}_${number} DEPENDS ${unit}.stamp)
    add_dependencies(kv_lint kv_lint_${first}_${number})
    math(EXPR number "${number} + 1")
  endwhile()
endfunction()

kv_lint_together(kvsignpadsdk_objects)
kv_lint_together(kv_recording kv_playback kvsignpaddrv_objects)
kv_lint_together(kv_handwriting kv-make-recording)
kv_lint_together(kv-make-finger)
kv_lint_together(kv-import-handwriting)
kv_lint_together(kv_scramble kvsignpaddrv_recorder kv-scramble-recording kv_driverfile kv_padpresence
  kv_simulatorplace)
kv_lint_together(kv-demo)
kv_lint_together(kv_kvsign kvsign)
kv_lint_together(kv_documents)
kv_lint_together(kv_screen)
kv_lint_together(kv_virtualpad kv-virtualpad)
kv_lint_together(kv_signdesk kv-sign-desk)
kv_lint_together(kv_bridge_rules kv_bridge kv-sign-bridge)
kv_lint_together(kv_fuzz)
kv_lint_together(kv_plain kv_benchpad)
