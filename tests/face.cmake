# What a calling application sees: identifiers, exported names, the frame of every function, opening and closing, the
# log, the about box; and inside, the shape of the ten instance classes.

kv_add_tests(face_tests PADS
  about_test.cpp argument_checks_test.cpp diagnostics_log_test.cpp forwarding_test.cpp without_instance_test.cpp
  wrong_device_type_test.cpp
  THREADS lifecycle_test.cpp)
kv_add_tests(face_inside_tests INSIDE
  instance_defaults_test.cpp instance_fields_test.cpp instance_methods_test.cpp log_files_test.cpp
  log_writers_test.cpp)
kv_add_tests(open_instance_inside_test INSIDE open_instance_inside_test.cpp) # refuses memory

# Ends its application object before it closes the pad, and so can delete no window, which a sanitizer takes for leaks.
if(NOT KV_SANITIZE)
  set(KV_CLOSED_AFTER_APPLICATION closed_after_application_test.cpp)
endif()
kv_add_tests(without_application_tests PADS NO_APPLICATION
  about_without_application_test.cpp fingerprint_without_application_test.cpp ${KV_CLOSED_AFTER_APPLICATION})

kv_add_tests(header_tests
  exported_symbols_test.cpp identifiers_test.cpp one_header_test.cpp
  SOURCES one_header.c LIBRARIES kvsignpadsdk
  DEFINES KV_LIBRARY="$<TARGET_FILE:kvsignpadsdk>" KV_SOURCES="${PROJECT_SOURCE_DIR}/kvsignpadsdk")
