# The faster ways beside the plain ones, which bench/ keeps as the reference.

kv_add_tests(fastways_tests INSIDE
  fast_canvas_test.cpp fast_png_test.cpp fast_texts_test.cpp
  SOURCES recordedink.cpp LIBRARIES kv_plain kv_recording)
kv_add_tests(other_writers_test PADS other_writers_test.cpp) # replaces Qt's writers

# The library once more with its faster ways stepping aside: what includes plainways.h is compiled anew, and found before
# the same code of the library.
set(kv_ways "")
file(GLOB kv_sources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/kvsignpadsdk/*.cpp ${PROJECT_SOURCE_DIR}/kvsignpadsdk/*/*.cpp)
foreach(source IN LISTS kv_sources)
  file(STRINGS ${source} found REGEX "#include \"(fastways/)?plainways\\.h\"")
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
  target_include_directories(kv_scenarios_${ways} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz)
  target_link_libraries(kv_scenarios_${ways} PRIVATE kvsignpadsdk_inside ${CMAKE_DL_LIBS} kv_test_settings)
  add_dependencies(kv_scenarios_${ways} kvsignpaddrv)
endforeach()
target_sources(kv_scenarios_plain PRIVATE $<TARGET_OBJECTS:kv_plain_ways>)
kv_add_tests(plain_ways_test plain_ways_test.cpp LIBRARIES Qt5::Core
  DEFINES KV_SCENARIOS_FAST="$<TARGET_FILE:kv_scenarios_fast>" KV_SCENARIOS_PLAIN="$<TARGET_FILE:kv_scenarios_plain>"
  RUNS kv_scenarios_fast kv_scenarios_plain)

# Refuses memory, which the sanitizers hand out in their own way.
kv_add_tests(mergecache_memory_test INSIDE UNSANITIZED mergecache_memory_test.cpp
  SOURCES recordedink.cpp LIBRARIES kv_plain kv_recording)
