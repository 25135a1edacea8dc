# Texts that callers take away and bring back: images, ink record, live push, office canvas.

kv_add_tests(text_tests PADS
  base64_text_test.cpp bitmap_kinds_test.cpp image_decode_test.cpp ink_record_test.cpp
  office_canvas_test.cpp svg_text_test.cpp texts_log_test.cpp
  THREADS live_push_test.cpp receivers_call_back_test.cpp svg_text_at_once_test.cpp)
kv_add_tests(text_inside_tests INSIDE forged_image_test.cpp image_members_test.cpp ink_record_members_test.cpp)
kv_label(large ink_record_members_test)

# Brings an application object of its own, late.
kv_add_tests(jpeg_before_application_test PADS NO_APPLICATION jpeg_before_application_test.cpp)
