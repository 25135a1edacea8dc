# Tests of the sign desk: driven in its window, looked at in every scale, and started as a program.

find_program(KV_LUPDATE lupdate HINTS /usr/lib/qt5/bin)
add_library(kv_signdesk_tests STATIC signdesk.cpp)
target_link_libraries(kv_signdesk_tests PUBLIC kv_signdesk kv_test_pads Qt5::Test kv_outside_command PRIVATE kv_warnings)
target_compile_options(kv_signdesk_tests PRIVATE ${KV_TEST_OPTIONS})
target_compile_definitions(kv_signdesk_tests PUBLIC
  KV_SIGNDESK="$<TARGET_FILE:kv-sign-desk>" KV_SIGNDESK_SOURCES="${PROJECT_SOURCE_DIR}/examples/sign-desk"
  KV_SIGNDESK_GERMAN="${CMAKE_BINARY_DIR}/examples/sign-desk/sign-desk_de.qm"
  KV_LUPDATE="${KV_LUPDATE}"
  KV_SIGNDESK_PICTURES="${CMAKE_BINARY_DIR}/sign-desk-pictures")

kv_add_test(signdesk_test
  signdesk_signing_test.cpp signdesk_outputs_test.cpp signdesk_fingerprint_test.cpp signdesk_pages_test.cpp
  signdesk_troubles_test.cpp signdesk_unplugged_test.cpp signdesk_wholeink_test.cpp signdesk_words_test.cpp
  PADS LIBRARIES kv_signdesk_tests)
kv_add_test(signdesk_program_test signdesk_program_test.cpp PADS LIBRARIES kv_signdesk_tests)
kv_add_test(signdesk_layout_test signdesk_layout_test.cpp PADS LIBRARIES kv_signdesk_tests)
kv_add_test(padpresence_test padpresence_test.cpp LIBRARIES kv_padpresence)
add_dependencies(signdesk_test kv_signdesk_translations)
add_dependencies(signdesk_program_test kv-sign-desk)
add_dependencies(signdesk_layout_test kv_signdesk_translations)

# The scale factor holds for a whole process.
get_test_property(signdesk_layout_test ENVIRONMENT environment)
foreach(scale 1.25 2)
  set(name signdesk_layout_at_${scale}_test)
  add_test(NAME ${name} COMMAND signdesk_layout_test WORKING_DIRECTORY ${KV_DRIVER_DIRECTORY})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 RESOURCE_LOCK kvsignpadsdk_files
    ENVIRONMENT "${environment};QT_SCALE_FACTOR=${scale}")
endforeach()

# Text fields have other keys of their own on X11.
find_program(KV_XVFB_RUN xvfb-run)
if(KV_XVFB_RUN AND NOT KV_SANITIZE)
  add_test(NAME signdesk_on_x11_test
    COMMAND ${KV_XVFB_RUN} -a -s "-screen 0 1600x1200x24 -dpi 96" $<TARGET_FILE:signdesk_test>
      "--gtest_filter=*Shortcuts*:*Keyboard*:*TheSignatureIsExported*:*ThePagesArePrinted*:*TabReaches*"
    WORKING_DIRECTORY ${KV_DRIVER_DIRECTORY})
  set_tests_properties(signdesk_on_x11_test PROPERTIES TIMEOUT 300 RESOURCE_LOCK kvsignpadsdk_files
    ENVIRONMENT "QT_QPA_PLATFORM=xcb")
endif()
