# Precompiles Qt's widgets once for all programs: target_precompile_headers(<target> REUSE_FROM kv_desktop_headers)

file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/desktopheaders.cpp CONTENT "")
add_library(kv_desktop_headers OBJECT ${CMAKE_BINARY_DIR}/desktopheaders.cpp)
target_link_libraries(kv_desktop_headers PRIVATE Qt5::Widgets kv_warnings)
target_precompile_headers(kv_desktop_headers PRIVATE <QtWidgets>)
