# Writes a source that holds several tests: cmake -DOUTPUT=... -DSOURCES=a_test.cpp|b_test.cpp -P unit.cmake
# Half of the time to compile a test goes to its headers and templates: six at once take as long as two or three. Each test is
# put into a namespace inside an unnamed one, so that tests may use the same names and export nothing. Their includes are
# moved to the front.

string(REPLACE "|" ";" SOURCES "${SOURCES}")
set(includes "")
set(tests "")
foreach(source IN LISTS SOURCES)
  file(STRINGS ${source} lines REGEX "^#include [<\"].*\\.?[a-z]*[>\"]")
  list(APPEND includes ${lines})
  get_filename_component(name ${source} NAME_WE)
  string(APPEND tests "namespace {\nnamespace ${name} {\n#include \"${source}\"\n}\n}\n")
endforeach()
list(FILTER includes EXCLUDE REGEX "\\.inl\"$")
list(REMOVE_DUPLICATES includes)
list(JOIN includes "\n" includes)
file(WRITE ${OUTPUT} "${includes}\n${tests}")
