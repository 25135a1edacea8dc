# Where `cmake --install` puts each file. debian/*.install says which package each file goes to.
# `cmake --build ... --target kv_installed` builds all of it, and nothing else.

set(KV_SIMULATOR_INSTALL ${CMAKE_INSTALL_LIBDIR}/kvsignpadsdk/simulator)
set(KV_RECORDER_INSTALL ${CMAKE_INSTALL_LIBDIR}/kvsignpadsdk/recorder)
add_custom_target(kv_installed)

# kv_install_programs(<target>...): installs each with its manual page, which is beside its sources or in MANUALS
function(kv_install_programs)
  cmake_parse_arguments(arg "" "MANUALS" "" ${ARGN})
  foreach(program IN LISTS arg_UNPARSED_ARGUMENTS)
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES ${arg_MANUALS}/${program}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    add_dependencies(kv_installed ${program})
  endforeach()
endfunction()

include(packaging/development.cmake)

install(TARGETS kvsignpaddrv LIBRARY DESTINATION ${KV_SIMULATOR_INSTALL})
install(TARGETS kvsignpaddrv_recorder LIBRARY DESTINATION ${KV_RECORDER_INSTALL})
add_dependencies(kv_installed kvsignpaddrv kvsignpaddrv_recorder)
install(FILES docs/man/kvrec.5 DESTINATION ${CMAKE_INSTALL_MANDIR}/man5)
kv_install_programs(kv-make-recording kv-make-finger kv-import-handwriting MANUALS simulator/tools)
kv_install_programs(kv-scramble-recording MANUALS simulator/recorder)
install(FILES simulator/simulatorcontrol.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kvsignpadsdk)
install(DIRECTORY simulator/recordings DESTINATION ${CMAKE_INSTALL_DATADIR}/kvsignpad-simulator)
install(FILES simulator/README.md simulator/FORMAT.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kvsignpad-simulator)
install(FILES simulator/recorder/README.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kvsignpad-simulator RENAME recorder.md)

if(KV_BUILD_TOOLS)
  kv_install_programs(kvsign MANUALS tools/kvsign)
  kv_install_programs(kv-virtualpad MANUALS tools/virtualpad)
  install(FILES ${CMAKE_BINARY_DIR}/tools/completions/kvsign
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES tools/virtualpad/README.md
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kvsignpad-simulator RENAME virtualpad.md)
  add_dependencies(kv_installed kvsign_completion)

  kv_install_programs(kv-sign-bridge MANUALS bridge/system)
  install(FILES bridge/system/kv-sign-bridge.service bridge/system/kv-sign-bridge.socket
    DESTINATION lib/systemd/user)
  install(FILES docs/web.md docs/web-protocol.md docs/bridge-security.md bridge/protocol.schema.json
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kv-sign-bridge)
  install(FILES bridge/system/kv-sign-bridge.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kv-sign-bridge/examples)
  install(DIRECTORY web/src/ DESTINATION ${CMAKE_INSTALL_DATADIR}/javascript/kvsignpad)
endif()

if(KV_BUILD_EXAMPLES)
  kv_install_programs(kv-sign-desk MANUALS examples/sign-desk)
  install(FILES examples/sign-desk/desktop/kv-sign-desk.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES examples/sign-desk/desktop/kv-sign-desk.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  install(FILES examples/sign-desk/desktop/com.korvane.SignDesk.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES examples/sign-desk/sample/delivery-note.pdf
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kv-sign-desk/examples)
endif()
