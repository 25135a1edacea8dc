# What is installed, and as which Debian packages: the library, what compiles against it, the pad simulator,
# the command-line tool.

set(components library:libkvsignpadsdk1 development:libkvsignpadsdk-dev simulator:kvsignpad-simulator
  python:python3-kvsignpad)
set(KV_SIMULATOR_INSTALL ${CMAKE_INSTALL_LIBDIR}/kvsignpadsdk/simulator)
configure_file(packaging/kvsignpadsdk.pc.in ${CMAKE_BINARY_DIR}/packaging/kvsignpadsdk.pc @ONLY)

install(TARGETS kvsignpadsdk
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)
install(FILES kvsignpadsdk/kvsignpadsdk.h kvsignpadsdk/kvsignpadsdk_global.h
    kvsignpadsdk/signpad.hpp kvsignpadsdk/signpaddetail.hpp kvsignpadsdk/signpadtable.hpp kvsignpadsdk/signpadtypes.hpp
    kvsignpadsdk/signpadversion.hpp
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kvsignpadsdk COMPONENT development)
install(FILES ${CMAKE_BINARY_DIR}/packaging/kvsignpadsdk.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
install(FILES README.md docs/hosts.md docs/models.md docs/log.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libkvsignpadsdk-dev COMPONENT development)

install(TARGETS kvsignpaddrv LIBRARY DESTINATION ${KV_SIMULATOR_INSTALL} COMPONENT simulator)
install(TARGETS kv-make-recording kv-make-finger kv-import-handwriting
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT simulator)
install(FILES simulator/simulatorcontrol.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kvsignpadsdk COMPONENT simulator)
install(DIRECTORY simulator/recordings
  DESTINATION ${CMAKE_INSTALL_DATADIR}/kvsignpad-simulator COMPONENT simulator)
install(FILES simulator/README.md simulator/FORMAT.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kvsignpad-simulator COMPONENT simulator)

if(KV_BUILD_TOOLS)
  install(TARGETS kvsign RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT kvsign)
  install(FILES ${CMAKE_BINARY_DIR}/tools/man/kvsign.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT kvsign)
  install(FILES ${CMAKE_BINARY_DIR}/tools/completions/kvsign
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT kvsign)
  list(APPEND components kvsign:kvsign)
endif()

if(KV_BUILD_EXAMPLES)
  install(TARGETS kv-sign-desk RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT signdesk)
  install(FILES examples/sign-desk/sample/delivery-note.pdf
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kv-sign-desk COMPONENT signdesk)
  list(APPEND components signdesk:kv-sign-desk)
endif()

install(DIRECTORY bindings/python/kvsignpad DESTINATION lib/python3/dist-packages COMPONENT python
  PATTERN __pycache__ EXCLUDE)
install(FILES docs/languages/python.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/python3-kvsignpad COMPONENT python)
if(EXISTS ${CMAKE_BINARY_DIR}/packaging/kvsignpad.jar) # packaging/build makes it
  install(FILES ${CMAKE_BINARY_DIR}/packaging/kvsignpad.jar
    DESTINATION ${CMAKE_INSTALL_DATADIR}/java COMPONENT java)
  install(FILES docs/languages/java.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libkvsignpad-java COMPONENT java)
  list(APPEND components java:libkvsignpad-java)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "Korvane")
set(CPACK_PACKAGE_CONTACT "Korvane <support@korvane.example>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/kvsignpadsdk)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libkvsignpadsdk1)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "signatures from Korvane signature pads")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkvsignpadsdk-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libkvsignpadsdk1 (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "signatures from Korvane signature pads, headers")
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME kvsignpad-simulator)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_SIMULATOR_DESCRIPTION "a signature pad that plays recorded pens and fingers")
set(CPACK_DEBIAN_KVSIGN_PACKAGE_NAME kvsign)
set(CPACK_DEBIAN_KVSIGN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_KVSIGN_PACKAGE_DEPENDS "libkvsignpadsdk1 (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_KVSIGN_DESCRIPTION "signatures from Korvane signature pads at the command line")

set(CPACK_DEBIAN_SIGNDESK_PACKAGE_NAME kv-sign-desk)
set(CPACK_DEBIAN_SIGNDESK_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_SIGNDESK_PACKAGE_DEPENDS "libkvsignpadsdk1 (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_SIGNDESK_DESCRIPTION "signs pages on Korvane signature pads")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-kvsignpad)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3 (>= 3.9), libkvsignpadsdk1 (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-numpy")
set(CPACK_DEBIAN_PYTHON_DESCRIPTION "signatures from Korvane signature pads in Python")
set(CPACK_DEBIAN_JAVA_PACKAGE_NAME libkvsignpad-java)
set(CPACK_DEBIAN_JAVA_PACKAGE_SECTION java)
set(CPACK_DEBIAN_JAVA_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_JAVA_PACKAGE_DEPENDS "libjna-java, libkvsignpadsdk1 (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_JAVA_DESCRIPTION "signatures from Korvane signature pads in Java")

# dpkg wants the licence and the changes under each package's own name.
set(CPACK_COMPONENTS_ALL "")
foreach(component_package IN LISTS components)
  string(REPLACE ":" ";" pair ${component_package})
  list(GET pair 0 component)
  list(GET pair 1 package)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} RENAME copyright COMPONENT ${component})
  install(FILES CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
endforeach()

include(CPack)
