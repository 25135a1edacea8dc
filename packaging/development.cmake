# What programs are compiled with: the headers, KvSignpad::sdk for CMake, and kvsignpadsdk.pc for everything else.
# No file names the folder it was installed to, so the tree may be moved, and the build tree can be used too.

include(CMakePackageConfigHelpers)
set(KV_CMAKE_INSTALL ${CMAKE_INSTALL_LIBDIR}/cmake/KvSignpad)

set_target_properties(kvsignpadsdk PROPERTIES EXPORT_NAME sdk)
install(TARGETS kvsignpadsdk EXPORT KvSignpadTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES kvsignpadsdk/kvsignpadsdk.h kvsignpadsdk/kvsignpadsdk_global.h
    kvsignpadsdk/signpad.hpp kvsignpadsdk/signpaddetail.hpp kvsignpadsdk/signpadtable.hpp kvsignpadsdk/signpadtypes.hpp
    kvsignpadsdk/signpadversion.hpp
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kvsignpadsdk)
install(EXPORT KvSignpadTargets NAMESPACE KvSignpad:: DESTINATION ${KV_CMAKE_INSTALL})
export(EXPORT KvSignpadTargets NAMESPACE KvSignpad:: FILE ${CMAKE_BINARY_DIR}/packaging/KvSignpadTargets.cmake)

# The build tree can be used with -DKvSignpad_DIR=build/release/packaging. There the simulator is not beside the library.
set(KV_SIMULATOR_OF_CONFIG ${CMAKE_BINARY_DIR}/simulator)
configure_package_config_file(packaging/KvSignpadConfig.cmake.in ${CMAKE_BINARY_DIR}/packaging/KvSignpadConfig.cmake
  INSTALL_DESTINATION ${CMAKE_BINARY_DIR}/packaging INSTALL_PREFIX ${CMAKE_BINARY_DIR}
  PATH_VARS KV_SIMULATOR_OF_CONFIG)
set(KV_SIMULATOR_OF_CONFIG ${KV_SIMULATOR_INSTALL})
configure_package_config_file(packaging/KvSignpadConfig.cmake.in
  ${CMAKE_BINARY_DIR}/packaging/installed/KvSignpadConfig.cmake
  INSTALL_DESTINATION ${KV_CMAKE_INSTALL} PATH_VARS KV_SIMULATOR_OF_CONFIG)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/packaging/KvSignpadConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/packaging/installed/KvSignpadConfig.cmake
    ${CMAKE_BINARY_DIR}/packaging/KvSignpadConfigVersion.cmake
  DESTINATION ${KV_CMAKE_INSTALL})

# kv_pkg_config(<file> <library folder> <prefix, from the file's folder> <include folder> <simulator folder>)
function(kv_pkg_config file KV_PC_LIBRARIES KV_PC_PREFIX KV_PC_HEADERS KV_PC_SIMULATOR)
  configure_file(packaging/kvsignpadsdk.pc.in ${file} @ONLY)
endfunction()
file(RELATIVE_PATH KV_PREFIX_OF_PC /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
kv_pkg_config(${CMAKE_BINARY_DIR}/packaging/installed/kvsignpadsdk.pc \${prefix}/${CMAKE_INSTALL_LIBDIR}
  \${pcfiledir}/${KV_PREFIX_OF_PC} \${prefix}/${CMAKE_INSTALL_INCLUDEDIR}/kvsignpadsdk \${prefix}/${KV_SIMULATOR_INSTALL})
kv_pkg_config(${CMAKE_BINARY_DIR}/packaging/kvsignpadsdk.pc \${prefix}/kvsignpadsdk
  \${pcfiledir}/.. ${PROJECT_SOURCE_DIR}/kvsignpadsdk \${prefix}/simulator)
install(FILES ${CMAKE_BINARY_DIR}/packaging/installed/kvsignpadsdk.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(FILES docs/man/kvsignpadsdk.7 DESTINATION ${CMAKE_INSTALL_MANDIR}/man7)
install(FILES docs/man/kvsignpad-ink.5 DESTINATION ${CMAKE_INSTALL_MANDIR}/man5)
add_dependencies(kv_installed kvsignpadsdk)
