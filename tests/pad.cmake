# Tests of the driver's binding, the pad's settings, the mapping, the canvas host and pen packets.

# A driver that throws or never returns, in a directory of its own.
add_library(kv_unruly_driver SHARED hosts/unruly_driver.cpp)
target_include_directories(kv_unruly_driver PRIVATE ${PROJECT_SOURCE_DIR}/kvsignpadsdk)
target_compile_options(kv_unruly_driver PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
target_link_libraries(kv_unruly_driver PRIVATE kv_warnings Threads::Threads)
set_target_properties(kv_unruly_driver PROPERTIES
  OUTPUT_NAME kvsignpaddrv LIBRARY_OUTPUT_DIRECTORY ${KV_DRIVER_DIRECTORY}/unruly NO_SONAME ON)

kv_add_tests(pad_tests PADS
  cancelled_threads_test.cpp devicesettings_test.cpp driver_loading_test.cpp throwing_driver_test.cpp
  THREADS canvaswidget_test.cpp penevents_test.cpp penpackets_test.cpp throwing_receivers_test.cpp
  RUNS kv_unruly_driver ${KV_DRIVERS_WITHOUT})
kv_add_tests(pad_inside_tests INSIDE
  clearcontent_test.cpp deviceinfo_test.cpp devicesettings_inside_test.cpp driver_recognition_test.cpp
  penpackets_log_test.cpp penstates_test.cpp signmapping_test.cpp
  THREADS canvashost_test.cpp driver_shutdown_test.cpp)
