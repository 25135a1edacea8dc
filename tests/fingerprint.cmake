# Tests of the fingerprint: intake, the pad's screen, placement, merge, output.

add_library(kv_test_fingerprints OBJECT fingerprints.cpp inkpicture.cpp)
target_include_directories(kv_test_fingerprints PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/simulator
  ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
target_link_libraries(kv_test_fingerprints PRIVATE Qt5::Widgets GTest::gtest kv_warnings)

foreach(name intake display log)
  kv_add_test(fingerprint_${name}_test fingerprint_${name}_test.cpp INSIDE LIBRARIES kv_test_fingerprints)
endforeach()
kv_add_test(fingerprint_display_thread_test fingerprint_display_thread_test.cpp INSIDE THREADS
  LIBRARIES kv_test_fingerprints)
foreach(name placement merge)
  kv_add_test(fingerprint_${name}_test fingerprint_${name}_test.cpp PADS LIBRARIES kv_test_fingerprints)
endforeach()
kv_add_test(fingerprint_output_test fingerprint_output_test.cpp PADS LIBRARIES kv_test_fingerprints)
kv_add_test(fingerprint_widget_test fingerprint_widget_test.cpp INSIDE LIBRARIES kv_test_fingerprints)
kv_add_test(fingerprint_threads_test fingerprint_threads_test.cpp PADS THREADS LIBRARIES kv_test_fingerprints)

# Brings no application object.
kv_add_test(fingerprint_without_application_test hosts/fingerprint_without_application.cpp
  LIBRARIES kv_test_pads kv_test_fingerprints)
add_dependencies(fingerprint_without_application_test kvsignpaddrv)
