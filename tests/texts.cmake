# Texts that callers take away and bring back: images, ink record, live push, office canvas.

foreach(name base64_text_test bitmap_kinds_test svg_text_test ink_record_test image_decode_test
        office_canvas_test texts_log_test)
  kv_add_test(${name} ${name}.cpp inkpicture.cpp PADS)
endforeach()
foreach(name svg_text_at_once_test live_push_test receivers_call_back_test)
  kv_add_test(${name} ${name}.cpp inkpicture.cpp PADS THREADS)
endforeach()
kv_add_test(forged_image_test forged_image_test.cpp inkpicture.cpp INSIDE)
foreach(name image_members_test ink_record_members_test)
  kv_add_test(${name} ${name}.cpp INSIDE)
endforeach()
set_property(TEST ink_record_members_test APPEND PROPERTY LABELS large)

# Brings an application object of its own, late.
kv_add_test(jpeg_before_application_test hosts/jpeg_before_application.cpp inkpicture.cpp LIBRARIES kv_test_pads)
add_dependencies(jpeg_before_application_test kvsignpaddrv)
