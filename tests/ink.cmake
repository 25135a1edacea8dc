# Strokes, stored points, bounds and image files.

# The picture that tests draw themselves, for both faces of the library.
add_library(kv_inkpicture OBJECT inkpicture.cpp)
target_link_libraries(kv_inkpicture PRIVATE kv_test_pads kv_warnings)
set(inkpicture $<TARGET_OBJECTS:kv_inkpicture>)

kv_add_test(strokes_test strokes_test.cpp ${inkpicture} PADS THREADS)
kv_add_test(recorded_signatures_test recorded_signatures_test.cpp ${inkpicture} PADS THREADS)
kv_add_test(strokes_inside_test strokes_inside_test.cpp ${inkpicture} INSIDE)
kv_add_test(ink_points_test ink_points_test.cpp PADS)
kv_add_test(ink_points_inside_test ink_points_inside_test.cpp INSIDE)
kv_add_test(ink_time_text_test ink_time_text_test.cpp INSIDE)
kv_add_test(ink_bounds_test ink_bounds_test.cpp INSIDE)
kv_add_test(clipped_outputs_test clipped_outputs_test.cpp ${inkpicture} PADS)
kv_add_test(image_files_test image_files_test.cpp ${inkpicture} PADS)
kv_add_test(pdf_files_test pdf_files_test.cpp ${inkpicture} PADS)
kv_add_test(svg_files_test svg_files_test.cpp readsvg.cpp ${inkpicture} PADS)
kv_add_test(svg_fingerprint_test svg_fingerprint_test.cpp readsvg.cpp PADS LIBRARIES kv_test_fingerprints)
kv_add_test(long_canvases_test long_canvases_test.cpp ${inkpicture} PADS)
kv_add_test(file_paths_test file_paths_test.cpp PADS)
kv_add_test(outputs_in_one_thread_test outputs_in_one_thread_test.cpp INSIDE LIBRARIES kv_test_fingerprints)
kv_add_test(replaced_file_test replaced_file_test.cpp LIBRARIES kvsignpadsdk_inside)
kv_add_test(cancelled_files_test cancelled_files_test.cpp LIBRARIES kvsignpadsdk_inside)
kv_add_test(save_members_test save_members_test.cpp INSIDE)

# A host with and without an application object.
add_executable(save_everything hosts/save_everything.cpp)
target_link_libraries(save_everything PRIVATE kv_test_pads kv_warnings)
kv_add_test(headless_without_application_test headless_without_application_test.cpp PADS)
target_compile_definitions(headless_without_application_test
  PRIVATE KV_SAVE_EVERYTHING="$<TARGET_FILE:save_everything>")
add_dependencies(headless_without_application_test save_everything)
