# Tests of the sign desk: driven in its window, looked at in every scale, and started as a program.

if(NOT TARGET kv_signdesk)
  return()
endif()

find_program(KV_LUPDATE lupdate HINTS /usr/lib/qt5/bin)
kv_add_tests(signdesk_tests PADS
  padpresence_test.cpp signdesk_fingerprint_test.cpp signdesk_layout_test.cpp signdesk_outputs_test.cpp
  signdesk_pages_test.cpp signdesk_program_test.cpp signdesk_signing_test.cpp signdesk_troubles_test.cpp
  signdesk_unplugged_test.cpp signdesk_wholeink_test.cpp signdesk_words_test.cpp
  SOURCES signdesk.cpp LIBRARIES kv_signdesk kv_padpresence Qt5::Test
  DEFINES KV_SIGNDESK="$<TARGET_FILE:kv-sign-desk>" KV_SIGNDESK_SOURCES="${PROJECT_SOURCE_DIR}/examples/sign-desk"
    KV_SIGNDESK_GERMAN="${CMAKE_BINARY_DIR}/examples/sign-desk/sign-desk_de.qm" KV_LUPDATE="${KV_LUPDATE}"
    KV_SIGNDESK_PICTURES="${CMAKE_BINARY_DIR}/sign-desk-pictures"
  RUNS kv-sign-desk kv_signdesk_translations)
if(NOT TARGET signdesk_tests)
  return()
endif()

# The scale factor holds for a whole process.
foreach(scale 1.25 2)
  kv_run_test(signdesk_layout_at_${scale}_test signdesk_layout_test.cpp
    $<TARGET_FILE:signdesk_tests> --file=signdesk_layout_test.cpp)
  kv_environment(signdesk_layout_at_${scale}_test QT_SCALE_FACTOR=${scale})
endforeach()

# Text fields have other keys of their own on X11.
find_program(KV_XVFB_RUN xvfb-run)
if(KV_XVFB_RUN AND NOT KV_SANITIZE)
  kv_run_test(signdesk_on_x11_test signdesk.cpp
    ${KV_XVFB_RUN} -a -s "-screen 0 1600x1200x24 -dpi 96" $<TARGET_FILE:signdesk_tests>
      "--gtest_filter=*Shortcuts*:*Keyboard*:*TheSignatureIsExported*:*ThePagesArePrinted*:*TabReaches*")
  kv_environment(signdesk_on_x11_test QT_QPA_PLATFORM=xcb)
endif()
