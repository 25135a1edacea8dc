# kv_lint: clang-tidy over the library, the simulator, the examples and the tools, as .clang-tidy says. Each source has
# a stamp and is looked at again only when its object was built anew, for the compiler knows best what it includes.

find_program(KV_CLANG_TIDY NAMES clang-tidy-14 clang-tidy)
if(NOT KV_CLANG_TIDY OR NOT CMAKE_EXPORT_COMPILE_COMMANDS)
  return()
endif()

set(KV_LINT_DIRECTORY ${CMAKE_BINARY_DIR}/lint)

# The commands without what only GCC takes: its precompiled headers and one of its options.
add_custom_target(kv_lint_database
  COMMAND ${CMAKE_COMMAND} -E make_directory ${KV_LINT_DIRECTORY}
  COMMAND sed -E -e "s/ -Winvalid-pch//" -e "s/ -include [^ ]*cmake_pch\\.hxx//" -e "s/ -fno-gnu-unique//"
    ${CMAKE_BINARY_DIR}/compile_commands.json > ${KV_LINT_DIRECTORY}/compile_commands.json
  COMMENT "" VERBATIM)

# kv_lint_stamps(<variable> <target>...): the stamps of these targets' sources
function(kv_lint_stamps variable)
  set(stamps "")
  foreach(target IN LISTS ARGN)
    if(NOT TARGET ${target})
      continue()
    endif()
    get_target_property(sources ${target} SOURCES)
    get_target_property(source_directory ${target} SOURCE_DIR)
    get_target_property(binary_directory ${target} BINARY_DIR)
    list(FILTER sources INCLUDE REGEX "^[^/$]+(/[^/$]+)*\\.cpp$")
    foreach(source IN LISTS sources)
      file(RELATIVE_PATH name ${PROJECT_SOURCE_DIR} ${source_directory}/${source})
      string(REPLACE "/" "-" stamp "${name}.stamp")
      add_custom_command(OUTPUT ${KV_LINT_DIRECTORY}/${stamp}
        COMMAND ${KV_CLANG_TIDY} --quiet -p ${KV_LINT_DIRECTORY} ${source_directory}/${source}
        COMMAND ${CMAKE_COMMAND} -E touch ${KV_LINT_DIRECTORY}/${stamp}
        DEPENDS kv_lint_database ${PROJECT_SOURCE_DIR}/.clang-tidy
          ${binary_directory}/CMakeFiles/${target}.dir/${source}.o
        COMMENT "Looking at ${name}" VERBATIM)
      list(APPEND stamps ${KV_LINT_DIRECTORY}/${stamp})
    endforeach()
  endforeach()
  set(${variable} ${stamps} PARENT_SCOPE)
endfunction()

kv_lint_stamps(stamps kvsignpadsdk_objects kv_recording kv_playback kvsignpaddrv_objects kv_handwriting kv-demo kv_kvsign kvsign
  kv_signdesk kv-sign-desk)
add_custom_target(kv_lint DEPENDS ${stamps})
