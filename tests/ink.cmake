# Strokes, stored points, bounds and image files.

# A host with and without an application object.
add_executable(save_everything hosts/save_everything.cpp)
target_link_libraries(save_everything PRIVATE kv_harness kvsignpadsdk kv_test_settings)

kv_add_tests(ink_tests PADS
  clipped_outputs_test.cpp file_paths_test.cpp headless_without_application_test.cpp image_files_test.cpp
  ink_points_test.cpp long_canvases_test.cpp pdf_files_test.cpp svg_files_test.cpp svg_fingerprint_test.cpp
  THREADS recorded_signatures_test.cpp strokes_test.cpp
  DEFINES KV_SAVE_EVERYTHING="$<TARGET_FILE:save_everything>" RUNS save_everything)
kv_add_tests(ink_inside_tests INSIDE
  cancelled_files_test.cpp ink_bounds_test.cpp ink_points_inside_test.cpp ink_time_text_test.cpp replaced_file_test.cpp
  save_members_test.cpp strokes_inside_test.cpp)
kv_add_tests(outputs_in_one_thread_test INSIDE outputs_in_one_thread_test.cpp)
