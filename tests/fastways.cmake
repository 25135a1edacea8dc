# The faster ways beside the plain ones, which bench/ keeps as the reference.

foreach(name fast_png_test fast_texts_test fast_canvas_test)
  kv_add_test(${name} ${name}.cpp recordedink.cpp INSIDE LIBRARIES kv_plain kv_recording)
  target_compile_definitions(${name} PRIVATE KV_RECORDINGS="${PROJECT_SOURCE_DIR}/simulator/recordings")
endforeach()
kv_add_test(other_writers_test other_writers_test.cpp PADS)
target_link_libraries(other_writers_test PRIVATE ${CMAKE_DL_LIBS})
