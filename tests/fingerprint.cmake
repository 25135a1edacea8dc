# Tests of the fingerprint: intake, the pad's screen, placement, merge, output.

kv_add_tests(fingerprint_tests PADS
  fingerprint_merge_test.cpp fingerprint_output_test.cpp fingerprint_placement_test.cpp
  THREADS fingerprint_threads_test.cpp)
kv_add_tests(fingerprint_inside_tests INSIDE
  fingerprint_display_test.cpp fingerprint_intake_test.cpp fingerprint_log_test.cpp fingerprint_widget_test.cpp
  THREADS fingerprint_display_thread_test.cpp)
