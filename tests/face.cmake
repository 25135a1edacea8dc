# What a calling application sees: identifiers, exported names, the frame of every function, opening and closing, the
# log, the about box; and inside, the shape of the ten instance classes.

kv_add_test(identifiers_test identifiers_test.cpp LIBRARIES kvsignpadsdk)
kv_add_test(one_header_test one_header_test.cpp one_header.c LIBRARIES kvsignpadsdk)

kv_add_test(exported_symbols_test exported_symbols_test.cpp)
add_dependencies(exported_symbols_test kvsignpadsdk)
target_compile_definitions(exported_symbols_test PRIVATE
  KV_LIBRARY="$<TARGET_FILE:kvsignpadsdk>" KV_SOURCES="${PROJECT_SOURCE_DIR}/kvsignpadsdk")

foreach(name wrong_device_type_test without_instance_test argument_checks_test forwarding_test)
  kv_add_test(${name} ${name}.cpp exportedcalls_table.cpp PADS)
endforeach()
kv_add_test(lifecycle_test lifecycle_test.cpp PADS THREADS)

foreach(name instance_fields_test instance_methods_test instance_defaults_test open_instance_inside_test)
  kv_add_test(${name} ${name}.cpp INSIDE)
endforeach()
kv_add_test(diagnostics_log_test diagnostics_log_test.cpp PADS)
kv_add_test(log_writers_test log_writers_test.cpp LIBRARIES kvsignpadsdk_inside)
kv_add_test(log_files_test log_files_test.cpp LIBRARIES kvsignpadsdk_inside)
kv_add_test(about_test about_test.cpp PADS)
# Brings no application object.
kv_add_test(about_without_application_test hosts/about_without_application.cpp LIBRARIES kv_test_pads)
# Ends its application object before it closes the pad, and so can delete no window, which a sanitizer takes for leaks.
if(NOT KV_SANITIZE)
  kv_add_test(closed_after_application_test hosts/closed_after_application.cpp
    LIBRARIES kv_test_pads kv_test_fingerprints)
  add_dependencies(closed_after_application_test kvsignpaddrv)
endif()
