# The faster ways beside the plain ones, which bench/ keeps as the reference.

foreach(name fast_png_test fast_texts_test fast_canvas_test)
  kv_add_test(${name} ${name}.cpp recordedink.cpp INSIDE LIBRARIES kv_plain kv_recording)
  target_compile_definitions(${name} PRIVATE KV_RECORDINGS="${PROJECT_SOURCE_DIR}/simulator/recordings")
endforeach()
kv_add_test(other_writers_test other_writers_test.cpp PADS)
target_link_libraries(other_writers_test PRIVATE ${CMAKE_DL_LIBS})

# The library once more with its faster ways stepping aside: what includes plainways.h is compiled anew, and found before
# the same code of the library.
set(kv_ways "")
file(GLOB kv_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/kvsignpadsdk/*.cpp)
foreach(source IN LISTS kv_sources)
  file(STRINGS ${source} found REGEX "#include \"plainways\\.h\"")
  if(found)
    list(APPEND kv_ways ${source})
  endif()
endforeach()
add_library(kv_plain_ways OBJECT ${kv_ways})
target_compile_definitions(kv_plain_ways PRIVATE KV_PLAIN_WAYS)
target_link_libraries(kv_plain_ways PRIVATE kvsignpadsdk_inside kv_warnings)

foreach(ways fast plain)
  add_executable(kv_scenarios_${ways} scenarios.cpp scenario.cpp
    ${PROJECT_SOURCE_DIR}/fuzz/openpad.cpp ${PROJECT_SOURCE_DIR}/fuzz/target.cpp)
  target_include_directories(kv_scenarios_${ways} PRIVATE
    ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/fuzz ${PROJECT_SOURCE_DIR}/simulator)
  target_link_libraries(kv_scenarios_${ways} PRIVATE kvsignpadsdk_inside ${CMAKE_DL_LIBS} kv_warnings)
  target_compile_options(kv_scenarios_${ways} PRIVATE ${KV_TEST_OPTIONS})
  add_dependencies(kv_scenarios_${ways} kvsignpaddrv)
endforeach()
target_sources(kv_scenarios_plain PRIVATE $<TARGET_OBJECTS:kv_plain_ways>)
kv_add_test(plain_ways_test plain_ways_test.cpp LIBRARIES Qt5::Core)
target_compile_definitions(plain_ways_test PRIVATE
  KV_SCENARIOS_FAST="$<TARGET_FILE:kv_scenarios_fast>" KV_SCENARIOS_PLAIN="$<TARGET_FILE:kv_scenarios_plain>")
add_dependencies(plain_ways_test kv_scenarios_fast kv_scenarios_plain)

# The sanitizers hand out memory in their own way.
if(NOT KV_SANITIZE)
  kv_add_test(mergecache_memory_test mergecache_memory_test.cpp recordedink.cpp INSIDE LIBRARIES kv_plain kv_recording)
  target_compile_definitions(mergecache_memory_test PRIVATE KV_RECORDINGS="${PROJECT_SOURCE_DIR}/simulator/recordings")
endif()
