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
kv_add_test(svg_files_test svg_files_test.cpp svglines.cpp ${inkpicture} PADS)
